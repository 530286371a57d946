// SPDX-License-Identifier: MIT
// The sample is drawn by the entities themselves, in a drawing of its own.
#include "prancheta/desktop/shell/style_preview.h"

#include <QPainter>

#include <numbers>

#include "dbdim.h"
#include "dbents.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/plot/painter.h"

namespace prancheta::desktop {
namespace {

constexpr double kUsualHeight = 2.5;
constexpr double kRoom = 0.85;  ///< of the widget

void add(AcDbDatabase& drawing, std::unique_ptr<AcDbEntity> entity, Picture& picture) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.currentSpaceId(), AcDb::kForWrite);
    if (space.openStatus() != Acad::eOk || space->appendAcDbEntity(entity.get()) != Acad::eOk)
        return;
    AcDbEntity* const added = entity.release();
    recordPicture(*added, picture);
    (void)added->close();
}

void addText(AcDbDatabase& drawing, const StyleDraft& draft, Picture& picture) {
    auto text =
        std::make_unique<AcDbText>(AcGePoint3d::kOrigin, L"Perfil U 200x75x3", AcDbObjectId::kNull,
                                   draft.height > 0.0 ? draft.height : kUsualHeight);
    (void)text->setWidthFactor(draft.widthFactor);
    (void)text->setOblique(draft.oblique * std::numbers::pi / 180.0);
    add(drawing, std::move(text), picture);
}

/// A wide and a narrow one.
void addDimensions(AcDbDatabase& drawing, const StyleDraft& draft, Picture& picture) {
    {
        const AcDbObjectPointer<AcDbDimStyleTableRecord> style(drawing.dimstyle(), AcDb::kForWrite);
        if (style.openStatus() != Acad::eOk) return;
        AcDbDimStyleValues values = draft.dimension;
        values.dimscale = 1.0;
        values.dimblk = values.dimblk1 = values.dimblk2 = AcDbObjectId();  // blocks of the drawing
        (void)style->setValues(values);
    }
    const AcGePoint3d left(0, 0, 0);
    const AcGePoint3d right(40, 0, 0);
    const AcGePoint3d top(40, 8, 0);
    add(drawing, std::make_unique<AcDbRotatedDimension>(0.0, left, right, AcGePoint3d(0, -9, 0)),
        picture);
    add(drawing,
        std::make_unique<AcDbRotatedDimension>(std::numbers::pi / 2.0, right, top,
                                               AcGePoint3d(50, 0, 0)),
        picture);
}

}  // namespace

StylePreview::StylePreview(StyleDialog::Kind kind, QWidget* parent)
    : QWidget(parent), m_kind(kind) {
    setObjectName("amostra");
    setMinimumSize(240, 160);
}

void StylePreview::show(const StyleDraft& draft) {
    m_draft = draft;
    update();
}

void StylePreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Qt::white);
    AcDbDatabase drawing;
    Picture picture;
    if (m_kind == StyleDialog::Kind::Text)
        addText(drawing, m_draft, picture);
    else
        addDimensions(drawing, m_draft, picture);
    const AcDbExtents box = picture.extents();
    if (box.isEmpty()) return;
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    const double scale =
        kRoom * std::min(width() / std::max(size.x, 1e-6), height() / std::max(size.y, 1e-6));
    AppearanceTable looks(drawing);
    PicturePainter::Settings settings;
    settings.lineWeights = false;
    settings.toDevice = QTransform::fromTranslate(-(box.minPoint().x + size.x / 2.0),
                                                  -(box.minPoint().y + size.y / 2.0)) *
                        QTransform::fromScale(scale, -scale) *
                        QTransform::fromTranslate(width() / 2.0, height() / 2.0);
    PicturePainter(painter, looks, settings).paint(picture);
}

}  // namespace prancheta::desktop
