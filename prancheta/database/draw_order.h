// SPDX-License-Identifier: MIT
// In which order the entities of a block are drawn, where it is not the one in which they came.
#pragma once

#include <utility>
#include <vector>

#include "dbsymtb.h"

namespace prancheta {

/// Lends entities the places of others: an entity is drawn where its own handle would put it, or
/// the handle of the object lent to it. Stands in the extension dictionary of its block record.
class DrawOrderTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(DrawOrderTable);
    static constexpr const ACHAR* kKey = L"ACAD_SORTENTS";

    /// An entity, and the object whose handle tells its place.
    using Places = std::vector<std::pair<AcDbObjectId, AcDbObjectId>>;
    const Places& places() const { return m_places; }
    Acad::ErrorStatus setPlaces(Places places);

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    Places m_places;
};

/// The block whose order the table tells; null for one that stands elsewhere.
AcDbObjectId blockOf(const DrawOrderTable& table);

/// Entities of the block from back to front, erased ones included: by place in the block, or as its
/// table tells. O(n), O(n log n) with a table.
std::vector<AcDbObjectId> drawOrder(const AcDbBlockTableRecord& block);
bool hasDrawOrder(const AcDbBlockTableRecord& block);

/// `order` holds every entity of the block, as drawOrder() gives them. O(n log n), one step of
/// undo.
Acad::ErrorStatus setDrawOrder(AcDbObjectId block, const std::vector<AcDbObjectId>& order);

enum class DrawPlace { Front, Back, Above, Under };
/// Draws `ids`, which keep their order among themselves, before or behind all others, or right
/// above or under the others that are named. Nothing changes
/// where none of the others is in the block.
Acad::ErrorStatus moveInDrawOrder(AcDbObjectId block, const std::vector<AcDbObjectId>& ids,
                                  DrawPlace place, const std::vector<AcDbObjectId>& others = {});

}  // namespace prancheta
