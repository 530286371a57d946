// SPDX-License-Identifier: MIT
// Dialog functions: painting into image tiles.
#include <algorithm>
#include <cmath>

#include "adsdlg.h"
#include "prancheta/base/event.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/session.h"
#include "prancheta/slides/library.h"

using namespace prancheta;
using namespace prancheta::dcl;

namespace {

/// Largest coordinate of a length in pixels.
short largest(double pixels) {
    return static_cast<short>(std::clamp(std::floor(pixels) - 1, 0.0, 32767.0));
}

/// True when the fill hides all that was painted before. Programs pass the largest coordinates as
/// sizes.
bool coversTile(const ImageInProgress& image, const Paint& fill) {
    const Rect& frame = image.dialog->box(*image.tile).frame;
    return fill.x1 <= 0 && fill.y1 <= 0 && fill.x1 + fill.x2 >= largest(frame.width) &&
           fill.y1 + fill.y2 >= largest(frame.height);
}

std::wstring withoutFolder(const std::wstring& reference) {
    const std::size_t separator = reference.find_last_of(L"\\/");
    return separator == std::wstring::npos ? reference : reference.substr(separator + 1);
}

void recordImage(const ImageInProgress& image) {
    EventValue slide;
    if (image.slide) slide = {toUtf8(withoutFolder(*image.slide))};
    EventValue color;
    if (image.color) color = {static_cast<long long>(*image.color)};
    record({"imagem",
            {{"chave", {image.tile->key}},
             {"slide", slide},
             {"cor", color},
             {"achado", {image.found}}}});
}

}  // namespace

int ads_dimensions_tile(ads_hdlg dialog, const ACHAR* key, short* cx, short* cy) {
    const TileAddress at = tileAt(dialog, key);
    if (!at || cx == nullptr || cy == nullptr) return RTERROR;
    const Rect& frame = at.dialog->box(*at.tile).frame;
    *cx = largest(frame.width);
    *cy = largest(frame.height);
    return RTNORM;
}

int ads_start_image(ads_hdlg dialog, const ACHAR* key) {
    const TileAddress at = tileAt(dialog, key);
    if (!at || !isImage(at.tile->kind) || session().image.tile != nullptr) return RTERROR;
    session().image = {at.dialog, at.tile, {}, {}};
    return RTNORM;
}

int ads_fill_image(short x, short y, short width, short height, short color) {
    ImageInProgress& image = session().image;
    if (image.tile == nullptr) return RTERROR;
    const Paint fill{Paint::Kind::Fill, x, y, width, height, color, {}, false};
    if (coversTile(image, fill)) image.tile->paints.clear();
    image.tile->paints.push_back(fill);
    image.color = color;
    return RTNORM;
}

int ads_vector_image(short x1, short y1, short x2, short y2, short color) {
    ImageInProgress& image = session().image;
    if (image.tile == nullptr) return RTERROR;
    image.tile->paints.push_back({Paint::Kind::Vector, x1, y1, x2, y2, color, {}, false});
    return RTNORM;
}

int ads_slide_image(short x, short y, short width, short height, const ACHAR* slide) {
    ImageInProgress& image = session().image;
    if (image.tile == nullptr || slide == nullptr) return RTERROR;
    image.slide = slide;
    image.found = slides::loadSlide(slide, image.dialog->serial()) != nullptr;
    image.tile->paints.push_back({Paint::Kind::Slide, x, y, width, height, 0, slide, image.found});
    return image.found ? RTNORM : RTERROR;
}

int ads_end_image() {
    ImageInProgress& image = session().image;
    if (image.tile == nullptr) return RTERROR;
    const ImageInProgress ended = std::move(image);
    image = {};
    if (recording()) recordImage(ended);
    ended.dialog->changed(*ended.tile);
    return RTNORM;
}
