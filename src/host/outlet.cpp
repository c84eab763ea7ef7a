#include "host/outlet.h"

#include "host/host.h"

namespace tq {

void outlet_list(Object& object, int outlet, AtomSpan atoms) {
    static const Symbol list = gensym("list");
    object.host().patch.outlet(object, outlet, list, atoms);
}

void outlet_anything(Object& object, int outlet, Symbol selector, AtomSpan atoms) {
    object.host().patch.outlet(object, outlet, selector, atoms);
}

void dumpout_anything(Object& object, Symbol selector, AtomSpan atoms) {
    object.host().patch.dumpout(object, selector, atoms);
}

}  // namespace tq
