// SPDX-License-Identifier: MIT
// A drawing as an image, for other programs.
#include "prancheta/plot/image.h"

#include <algorithm>

#include "prancheta/display/display_list.h"
#include "prancheta/plot/painter.h"

namespace prancheta {

QImage imageOf(AcDbDatabase& drawing, int longest) {
    constexpr double kMargin = 8.0;  // pixels
    DisplayList display(drawing);
    const Box2d area = display.extents();
    if (area.empty()) return {};
    const double span = std::max({area.width(), area.height(), 1e-9});
    const double scale = (longest - 2.0 * kMargin) / span;
    const auto side = [&](double length) {
        return static_cast<int>(length * scale + 2.0 * kMargin);
    };
    QImage image(side(area.width()), side(area.height()), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    PicturePainter::Settings how;
    how.toDevice = QTransform::fromTranslate(-area.left, -area.top) *
                   QTransform::fromScale(scale, -scale) *
                   QTransform::fromTranslate(kMargin, kMargin);
    AppearanceTable appearances(drawing);
    PicturePainter pictures(painter, appearances, how);
    for (const DisplayList::Item& item : display.find(area)) pictures.add(display.picture(item.id));
    pictures.flush();
    return image;
}

}  // namespace prancheta
