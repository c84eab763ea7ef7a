// Records that the document, the history, the clipboard and playback hold together.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

namespace tq {

/// A record that lives for as long as anybody refers to it. The count is not atomic: the box has one thread.
template <typename Record>
using Counted = boost::intrusive_ref_counter<Record, boost::thread_unsafe_counter>;

template <typename Record>
using Ref = boost::intrusive_ptr<Record>;

template <typename Record, typename... Arguments>
Ref<Record> make_ref(Arguments&&... arguments) {
    return Ref<Record>(new Record(std::forward<Arguments>(arguments)...));
}

}  // namespace tq
