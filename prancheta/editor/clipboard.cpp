// SPDX-License-Identifier: MIT
// What was copied, to be pasted into any drawing.
#include "prancheta/editor/clipboard.h"

#include "prancheta/database/database_core.h"
#include "prancheta/database/deep_clone.h"

namespace prancheta {

Clipboard::Ids Clipboard::take(const Ids& ids, const AcGePoint3d& base, std::size_t& left) {
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

void Clipboard::take(std::shared_ptr<AcDbDatabase> drawing, const AcGePoint3d& base) {
    m_drawing = std::move(drawing);
    m_base = base;
}

Clipboard::Ids Clipboard::ids() const { return m_drawing ? m_drawing->core().modelSpace() : Ids(); }

}  // namespace prancheta
