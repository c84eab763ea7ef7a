#include "instance/buffer_link.h"

#include "host/host.h"

namespace tq {

LinkedBuffer::~LinkedBuffer() { unlink_from_overview(); }

Buffer* LinkedBuffer::buffer() const { return overview_ ? overview_->buffer : nullptr; }

void LinkedBuffer::set(const BufferLink& values, Ref<BufferOverview> overview) {
    values_ = values;
    if (overview == overview_) return;
    unlink_from_overview();
    overview_ = std::move(overview);
    if (overview_) overview_->links.push_back(*this);
}

void LinkedBuffer::unlink_from_overview() {
    if (is_linked()) unlink();
    overview_.reset();
}

BufferOverview::~BufferOverview() {
    if (!table) return;
    table->by_name_.erase(name);
    globalsymbol_dereference(table->document_, name);
}

BufferOverviews::~BufferOverviews() {
    // Events that outlive their document are told of nothing any more.
    for (auto& [name, overview] : by_name_) {
        globalsymbol_dereference(document_, name);
        overview->table = nullptr;
        overview->buffer = nullptr;
    }
}

BufferOverview* BufferOverviews::find(Symbol name) const {
    auto found = by_name_.find(name);
    return found == by_name_.end() ? nullptr : found->second;
}

Ref<BufferOverview> BufferOverviews::of(Symbol name) {
    if (BufferOverview* found = find(name)) return Ref<BufferOverview>(found);
    Ref<BufferOverview> made = make_ref<BufferOverview>(*this, name);
    by_name_[name] = made.get();
    document_.host().patch.want_buffer(name);
    globalsymbol_reference(document_, name);
    made->buffer = buffer_named(document_.host(), name);
    return made;
}

}  // namespace tq
