#include "app/journal/journal.h"

namespace tq {

Journal::Journal(Session& session, SessionFolder folder, bool fresh)
    : folder_(std::move(folder)),
      file_(folder_.path(), folder_.journal()),
      recorder_(session, file_, fresh) {}

Journal::~Journal() {
    if (!finished_) return;
    file_.drain();  // or it would still be writing into the folder
    folder_.remove();
}

}  // namespace tq
