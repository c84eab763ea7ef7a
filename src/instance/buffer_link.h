// Links of events to audio buffers by name, and what all links of a document to one name share.
#pragma once

#include <boost/intrusive/list.hpp>
#include <memory>
#include <unordered_map>

#include "host/symbol.h"
#include "instance/counted.h"

namespace tq {

class Buffer;
class BufferOverviews;
class Object;
class Surface;
struct Event;

/// What an event plays of its buffer.
struct BufferRange {
    double length = 0;          ///< of the buffer's sound, ms; 0 while no buffer is bound
    bool adapt = false;         ///< the ratio relates the buffer's length to the event's duration
    double ratio = 0;           ///< how fast the buffer is played
    double start = 0, end = 0;  ///< the played range, ms
    bool awaits = false;        ///< the range was there before its buffer, and stays when that comes
};

/// The values of a link. Without a name there is none, though the other values stay.
struct BufferLink : BufferRange {
    Symbol name;
};

struct BufferOverview;

/// A link in its event. As long as it is there, it counts for its name's overview and is found through it.
class LinkedBuffer
    : public boost::intrusive::list_base_hook<boost::intrusive::link_mode<boost::intrusive::auto_unlink>> {
 public:
    explicit LinkedBuffer(Event& event) : event_(event) {}
    LinkedBuffer(const LinkedBuffer&) = delete;
    LinkedBuffer& operator=(const LinkedBuffer&) = delete;
    ~LinkedBuffer();

    Event& event() const { return event_; }
    const BufferLink& values() const { return values_; }
    BufferRange& range() { return values_; }
    /// The bound buffer, or none at the moment.
    Buffer* buffer() const;
    /// The overview is that of the name; none for the empty name.
    void set(const BufferLink& values, Ref<BufferOverview> overview);

 private:
    void unlink_from_overview();

    Event& event_;
    BufferLink values_;
    Ref<BufferOverview> overview_;
};

/// A name that links refer to; it exists as long as they do.
struct BufferOverview : Counted<BufferOverview> {
    using Links = boost::intrusive::list<LinkedBuffer, boost::intrusive::constant_time_size<false>>;

    BufferOverview(BufferOverviews& owner, Symbol buffername) : table(&owner), name(buffername) {}
    ~BufferOverview();
    /// How many events link to the name.
    long refcount() const { return static_cast<long>(use_count()); }

    BufferOverviews* table;  ///< none once the document is gone
    Symbol name;
    Buffer* buffer = nullptr;                ///< bound to the name, or none at the moment
    mutable std::shared_ptr<Surface> image;  ///< of the whole buffer; made when it is first painted
    Links links;
};

/// The names that a document's events link to. While a name is in the table, the document is told of what
/// becomes of its buffer.
class BufferOverviews {
 public:
    explicit BufferOverviews(Object& document) : document_(document) {}
    ~BufferOverviews();
    BufferOverviews(const BufferOverviews&) = delete;
    BufferOverviews& operator=(const BufferOverviews&) = delete;

    /// None when nothing links to the name.
    BufferOverview* find(Symbol name) const;
    /// Made when nothing has linked to the name so far.
    Ref<BufferOverview> of(Symbol name);

 private:
    friend struct BufferOverview;
    Object& document_;
    std::unordered_map<Symbol, BufferOverview*> by_name_;
};

}  // namespace tq
