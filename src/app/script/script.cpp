#include "app/script/script.h"

namespace tq {

Script::Script(const ScriptOptions& options, std::ostream& out)
    : Driver(own_session), advise_(options.advise), printer_(own_session, out, options.times) {
    own_session.listen(*this);
    options.prepare(own_session);
    own_session.call(SizeCall{options.width, options.height});
    paint_if_asked();  // a document's view is meant for the box as it is laid out
    if (!options.document.empty()) own_session.open(options.document);
    paint_if_asked();
}

void Script::paint(const std::string& file, double ratio) {
    painter_.ratio = ratio;
    Prseq& box = own_session.box();
    redraw_asked_ = false;
    if (file.empty())
        painter_.paint(box);
    else if (auto reason = painter_.paint_to_png(box, file))
        object_error(box, *reason);
}

void Script::paint_if_asked() {
    if (redraw_asked_ && !replaying()) paint("", painter_.ratio);
}

}  // namespace tq
