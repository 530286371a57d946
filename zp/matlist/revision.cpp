// SPDX-License-Identifier: MIT
// Revision clouds and their table.
#include <algorithm>
#include <map>
#include <numeric>
#include <optional>

#include "acutads.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "perfis/entities/zpfuncoes.h"
#include "zp/buffer_chain.h"
#include "zp/matlist/book.h"
#include "zp/matlist/compare.h"
#include "zp/matlist/draughtsman.h"
#include "zp/objects/barra_data.h"
#include "zp/objects/each_entity.h"
#include "zp/objects/edit.h"

namespace zp::matlist {
namespace {

constexpr const ACHAR* kRevisionApplication = L"ZP_REVISAO";
constexpr const wchar_t* kLayer = L"REVISAO";
/// mm on paper: a cloud's distance from what it is drawn around, one of its arcs, the table's
/// texts and its distance from the drawing.
constexpr double kAway = 4.0;
constexpr double kArc = 7.0;
constexpr double kAltura = 2.5;
constexpr double kTableAway = 20.0;
constexpr std::size_t kMostRows = 500;
/// More clouds than there are cells on a chessboard of so many by so many are too many to look at.
constexpr std::size_t kCells = 22;
constexpr int kMostTurns = 40;

struct Box {
    AcGePoint3d lower;
    AcGePoint3d upper;
};

/// Drawn in the block, one of the layouts; nothing for what stands elsewhere.
std::optional<Box> boxOf(const JobMember& member) {
    const AcDbObjectPointer<AcDbEntity> entity(member.peca, AcDb::kForRead);
    AcDbExtents extents;
    if (member.chapa || entity.object() == nullptr || entity->getGeomExtents(extents) != Acad::eOk)
        return {};
    return Box{extents.minPoint(), extents.maxPoint()};
}

/// Of this drawing, where a member of whichever drawing stands; null for a block that is no layout.
AcDbObjectId layoutOf(const AcDbDatabase& drawing, const JobMember& member) {
    const AcDbObjectPointer<AcDbBlockTableRecord> block(member.block, AcDb::kForRead);
    const ACHAR* name = nullptr;
    AcDbObjectId id;
    if (block.object() == nullptr || !block->isLayout() || block->getName(name) != Acad::eOk)
        return {};
    const AcDbObjectPointer<AcDbBlockTable> table(drawing.blockTableId(), AcDb::kForRead);
    return table.object() != nullptr && table->getAt(name, id) == Acad::eOk ? id : AcDbObjectId();
}

Box around(const Box& a, const Box& b) {
    return {{std::min(a.lower.x, b.lower.x), std::min(a.lower.y, b.lower.y), a.lower.z},
            {std::max(a.upper.x, b.upper.x), std::max(a.upper.y, b.upper.y), a.lower.z}};
}

/// Boxes that no upright and no level line keeps apart become one; so do those that are kept apart
/// only after `levels` turns from one to the other, as along a spiral. O(n log n).
using Boxes = std::vector<Box>;
void gather(Boxes::iterator from, Boxes::iterator to, bool upright, bool tried, int levels,
            Boxes& gathered) {
    const auto low = [upright](const Box& b) { return upright ? b.lower.x : b.lower.y; };
    const auto high = [upright](const Box& b) { return upright ? b.upper.x : b.upper.y; };
    std::ranges::sort(from, to, {}, low);
    auto start = from;
    double reach = high(*from);
    bool split = false;
    for (auto box = from + 1; box != to; ++box) {
        if (low(*box) > reach && levels > 0) {
            gather(start, box, !upright, false, levels - 1, gathered);
            start = box;
            split = true;
        }
        reach = std::max(reach, high(*box));
    }
    if (split || (!tried && levels > 0 && to - from > 1)) {
        gather(start, to, !upright, !split, levels - 1, gathered);
        return;
    }
    gathered.push_back(std::accumulate(from + 1, to, *from, around));
}

/// Those of one cell of a chessboard over all of them become one.
Boxes gatherCells(const Boxes& boxes) {
    Box all = boxes.front();
    for (const Box& box : boxes) all = around(all, box);
    const auto cell = [](double at, double from, double to) {
        return static_cast<int>(static_cast<double>(kCells) * (at - from) /
                                std::max(to - from, 1.0));
    };
    std::map<std::pair<int, int>, Box> cells;
    for (const Box& box : boxes) {
        const AcGePoint3d& at = box.lower;
        const auto [found, fresh] = cells.try_emplace(
            {cell(at.x, all.lower.x, all.upper.x), cell(at.y, all.lower.y, all.upper.y)}, box);
        if (!fresh) found->second = around(found->second, box);
    }
    Boxes gathered;
    for (const auto& [place, box] : cells) gathered.push_back(box);
    return gathered;
}

/// Clouds around boxes, so far away from them.
Boxes cloudsAround(Boxes boxes, double away) {
    const AcGeVector3d far(away, away, 0.0);
    for (Box& box : boxes) box = {box.lower - far, box.upper + far};
    Boxes clouds;
    gather(boxes.begin(), boxes.end(), true, false, kMostTurns, clouds);
    return clouds.size() > kCells * kCells ? gatherCells(clouds) : clouds;
}

void sign(const Draughtsman& drawn) {
    for (const AcDbSoftPointerId& id : drawn.ids()) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        const BufferChain list(acutBuildList(AcDb::kDxfRegAppName, kRevisionApplication,
                                             AcDb::kDxfXdAsciiString, kCompareCommand, RTNONE));
        if (entity.object() != nullptr) (void)entity->setXData(list.get());  // registered, short
    }
}

/// Where the drawing's model ends on the right and above.
AcGePoint3d cornerOf(AcDbDatabase& drawing, AcDbObjectId model) {
    AcDbExtents all;
    eachEntity(drawing, [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        AcDbExtents extents;
        if (entity.object() != nullptr && entity->ownerId() == model &&
            entity->getGeomExtents(extents) == Acad::eOk)
            all.addExt(extents);
    });
    return all.isEmpty() ? AcGePoint3d() : AcGePoint3d(all.maxPoint().x, all.maxPoint().y, 0.0);
}

/// How many rows had no room.
std::size_t drawTable(Draughtsman& d, AcGePoint3d corner, const std::wstring& title,
                      const std::vector<MemberChange>& changes, double scale) {
    const double h = kAltura * scale;
    const std::size_t rows = std::min(changes.size(), kMostRows);
    std::vector<std::wstring> lines{title};
    for (std::size_t i = 0; i < rows; ++i) lines.push_back(lineOf(changes[i]));
    lines.push_back(summaryOf(changes));
    std::size_t widest = 0;
    for (const std::wstring& line : lines) widest = std::max(widest, line.size());
    const double width = widthOf(widest, h);
    double y = corner.y;
    d.line({corner.x, y, 0.0}, {corner.x + width, y, 0.0});
    for (const std::wstring& line : lines) {
        d.text({corner.x + 0.8 * h, y - 1.5 * h, 0.0}, line, h, Align::Left);
        y -= 2.0 * h;
        d.line({corner.x, y, 0.0}, {corner.x + width, y, 0.0});
    }
    for (const double x : {corner.x, corner.x + width}) d.line({x, corner.y, 0.0}, {x, y, 0.0});
    return changes.size() - rows;
}

}  // namespace

ErasedRevision eraseRevision(AcDbDatabase& drawing) {
    ErasedRevision result;
    std::vector<AcDbObjectId> signedOnes;
    eachEntity(drawing, [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.object() == nullptr) return;
        const BufferChain list(entity->xData(kRevisionApplication));
        if (!list) return;
        if (edit::onLockedLayer(*entity.object()))
            ++result.locked;
        else
            signedOnes.push_back(id);
    });
    for (const AcDbObjectId& id : signedOnes) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.object() != nullptr && entity->erase() == Acad::eOk) ++result.erased;
    }
    return result;
}

std::wstring lockedRevisionText() {
    return L"A camada " + std::wstring(ZpLayerToUsr(kLayer)) +
           L" está bloqueada; desbloqueie-a para tirar ou substituir a revisão que está no "
           L"desenho.";
}

Revision drawRevision(AcDbDatabase& drawing, const std::wstring& title,
                      const std::vector<MemberChange>& changes) {
    Revision drawn;
    if (changes.empty() || !registerApplication(drawing, kRevisionApplication)) return drawn;
    const double scale = GetScale();
    const wchar_t* const layer = ZpLayerToUsr(kLayer);
    std::map<AcDbObjectId, Boxes, Older> boxes;  // in the same order in every run
    const auto add = [&](const std::vector<JobMember>& members) {
        for (const JobMember& member : members) {
            const AcDbObjectId layout = layoutOf(drawing, member);
            std::optional<Box> box = boxOf(member);
            if (layout.isNull() || !box) continue;
            boxes[layout].push_back(*box);
        }
    };
    for (const MemberChange& change : changes) {
        add(change.after);
        // Where it stood is looked at when it stands there no more.
        if (change.kind == Difference::Gone || change.kind == Difference::Quantity)
            add(change.before);
    }
    AcDbObjectId model;
    for (auto& [layout, all] : boxes) {
        const Boxes clouds = cloudsAround(std::move(all), kAway * scale);
        Draughtsman d(layout, layer);
        for (const Box& cloud : clouds) d.cloud(cloud.lower, cloud.upper, kArc * scale);
        sign(d);
        drawn.clouds += clouds.size();
    }
    {
        const AcDbObjectPointer<AcDbBlockTable> table(drawing.blockTableId(), AcDb::kForRead);
        if (table.object() == nullptr || table->getAt(ACDB_MODEL_SPACE, model) != Acad::eOk)
            return drawn;
    }
    AcGePoint3d corner = cornerOf(drawing, model);
    corner.x += kTableAway * scale;
    Draughtsman d(model, layer);
    drawn.rowsLeftOut = drawTable(d, corner, title, changes, scale);
    sign(d);
    return drawn;
}

}  // namespace zp::matlist
