// SPDX-License-Identifier: MIT
// What was copied, to be pasted into any drawing.
#include "prancheta/editor/clipboard.h"

#include "prancheta/database/database_core.h"
#include "prancheta/database/deep_clone.h"
#include "prancheta/dxf/document.h"

namespace prancheta {

namespace {

/// Lower left corner of their box.
AcGePoint3d cornerOf(const Clipboard::Ids& ids) {
    AcDbExtents all;
    for (const AcDbObjectId& id : ids) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        AcDbExtents own;
        if (entity.openStatus() == Acad::eOk && entity->getGeomExtents(own) == Acad::eOk)
            all.addExt(own);
    }
    if (all.isEmpty()) return AcGePoint3d::kOrigin;
    return {all.minPoint().x, all.minPoint().y, 0.0};
}

}  // namespace

Clipboard::Ids Clipboard::take(const Ids& ids, std::optional<AcGePoint3d> base, std::size_t& left) {
    auto drawing = std::make_shared<AcDbDatabase>();
    drawing->core().undo().setRecording(false);
    AcDbObjectIdArray originals;
    for (const AcDbObjectId& id : ids) originals.append(id);
    AcDbObjectIdArray copies;
    if (cloneAcross(originals, drawing->core().modelSpaceId(), copies, left) != Acad::eOk)
        return {};
    Ids taken;
    for (int i = 0; i < copies.length(); ++i)
        if (!copies[i].isNull()) taken.push_back(originals[i]);
    if (!taken.empty()) take(std::move(drawing), base);
    return taken;
}

void Clipboard::take(std::shared_ptr<AcDbDatabase> drawing, std::optional<AcGePoint3d> base) {
    m_drawing = std::move(drawing);
    m_base = base ? *base : cornerOf(ids());
}

Result<void> Clipboard::write(const std::filesystem::path& file) const {
    if (!m_drawing) return Error{"A área de transferência está vazia."};
    dxf::SaveOptions options;
    options.version = dxf::Version::R2000;
    return dxf::save(*m_drawing, file, options);
}

Clipboard::Ids Clipboard::ids() const { return m_drawing ? m_drawing->core().modelSpace() : Ids(); }

}  // namespace prancheta
