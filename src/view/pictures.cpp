#include "view/pictures.h"

#include <unordered_map>

#include "instance/utilities.h"

namespace tq {

SurfaceRef bundled_picture(Symbol filename) {
    static std::unordered_map<Symbol, SurfaceRef> kept;
    if (auto found = kept.find(filename); found != kept.end()) return found->second;
    const Symbol path = TQ_Prseq_Utilities_GetBundledResourcesPathFromFilename(filename);
    SurfaceRef picture = path.empty() ? nullptr : jgraphics_image_surface_create_from_file(path.text());
    if (picture) kept[filename] = picture;
    return picture;
}

void draw_picture(Graphics& g, const Surface& picture, Point at) {
    const Size size = picture.size();
    jgraphics_image_surface_draw(g, picture, {0, 0, size.width, size.height},
                                 {at.x, at.y, size.width, size.height});
}

}  // namespace tq
