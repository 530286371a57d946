// SPDX-License-Identifier: MIT
// Table of a material list.
#include "zp/matlist/table.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "dbents.h"
#include "perfis/entities/zpfuncoes.h"
#include "zp/matlist/draughtsman.h"
#include "zp/matlist/listing.h"

namespace zp::matlist {
namespace {

/// What stands of the table drawn before.
struct Standing {
    AcDbObjectId space;                 ///< null: nothing
    std::optional<AcGePoint3d> corner;  ///< upper left one of its frame; nothing without a line
    double angle = 0.0;                 ///< of its rows, where the user turned it
};

void include(std::optional<AcGePoint3d>& corner, const AcGePoint3d& p) {
    if (!corner) corner = p;
    corner->x = std::min(corner->x, p.x);
    corner->y = std::max(corner->y, p.y);
}

/// The frame tells where the user moved the table: its lines, and nothing else, reach its corner.
/// The first of them is the upper edge, from left to right; without it, or turned round by a
/// mirror, the table is read as if it stood upright.
Standing standingOf(const Header& header) {
    Standing standing;
    std::optional<AcGePoint3d> first;
    AcGeVector3d along;
    AcGeVector3d across;
    for (const AcDbSoftPointerId& id : header.table) {
        const AcDbObjectPointer<AcDbEntity> part(id, AcDb::kForRead);
        if (part.object() == nullptr) continue;
        standing.space = part->blockId();
        const auto* line = AcDbLine::cast(part.object());
        if (line == nullptr) continue;
        include(standing.corner, line->startPoint());
        include(standing.corner, line->endPoint());
        if (id == header.table.front()) {
            first = line->startPoint();
            along = line->endPoint() - *first;
        }
        // The left edge is the first line that is not parallel to the upper one, downwards.
        const AcGeVector3d direction = line->endPoint() - line->startPoint();
        if (first && across.length() == 0.0 && !along.isParallelTo(direction)) across = direction;
    }
    if (first && along.x * across.y - along.y * across.x < 0.0) {
        standing.corner = first;
        standing.angle = std::atan2(along.y, along.x);
    }
    return standing;
}

void eraseTable(const Header& header) {
    for (const AcDbSoftPointerId& id : header.table) {
        const AcDbObjectPointer<AcDbEntity> part(id, AcDb::kForWrite);
        if (part.object() != nullptr) (void)part->erase();  // open for write and alive
    }
}

/// Left and right edges of the columns; the last one is wide enough for the title above all.
std::vector<double> edgesOf(const Listing& listing,
                            const std::vector<std::vector<std::wstring>>& lines, double x,
                            double h) {
    std::vector<double> edges{x};
    for (std::size_t i = 0; i < listing.columns.size(); ++i) {
        std::size_t largest = 0;
        for (const auto& line : lines) largest = std::max(largest, line[i].size());
        edges.push_back(edges.back() + widthOf(largest, h));
    }
    edges.back() = std::max(edges.back(), x + widthOf(listing.title.size(), h));
    return edges;
}

/// Title, headings, rows and totals below the corner; `h` is the height of the texts.
void draw(Draughtsman& d, const Listing& listing, const AcGePoint3d& corner, double h) {
    const auto lines = linesOf(listing);
    const std::vector<double> x = edgesOf(listing, lines, corner.x, h);
    const double z = corner.z;
    // The title is line 0.
    const auto y = [&](std::size_t n) { return corner.y - 2.0 * h * static_cast<double>(n); };
    const std::size_t last = lines.size() + 1;
    for (std::size_t n = 0; n <= last; ++n) d.line({x.front(), y(n), z}, {x.back(), y(n), z});
    for (const double edge : x) {
        const bool frame = edge == x.front() || edge == x.back();
        d.line({edge, y(frame ? 0 : 1), z}, {edge, y(last), z});
    }
    d.text({0.5 * (x.front() + x.back()), y(1) + 0.5 * h, z}, listing.title, h, Align::Middle);
    for (std::size_t n = 0; n < lines.size(); ++n)
        for (std::size_t i = 0; i < listing.columns.size(); ++i) {
            const bool right = listing.columns[i]->shown.decimals >= 0 && n > 0;
            const double where = right ? x[i + 1] - 0.8 * h : x[i] + 0.8 * h;
            d.text({where, y(n + 2) + 0.5 * h, z}, lines[n][i], h,
                   right ? Align::Right : Align::Left);
        }
}

}  // namespace

bool drawTable(const MaterialList& list) {
    std::optional<Header> header = readHeader(list.id);
    if (!header) return false;
    const Standing standing = standingOf(*header);
    if (standing.corner) header->point = *standing.corner;
    eraseTable(*header);
    Draughtsman d(standing.space, ZpLayerToUsr(L"LISTA"));
    d.turn(header->point, standing.angle);
    draw(d, listingOf({list.number, list.id, *header}), header->point, 2.5 * GetScale());
    header->table = d.ids();
    return writeHeader(list.id, *header);
}

bool tableIsStale(const MaterialList& list) {
    std::vector<std::wstring> shown;
    for (const AcDbSoftPointerId& id : list.header.table) {
        const AcDbObjectPointer<AcDbText> text(id, AcDb::kForRead);
        if (text.object() != nullptr) shown.emplace_back(text->textStringConst());
    }
    // In the order in which they are drawn.
    const Listing listing = listingOf(list);
    std::vector<std::wstring> wanted{listing.title};
    for (const auto& line : linesOf(listing))
        std::ranges::copy_if(line, std::back_inserter(wanted),
                             [](const std::wstring& cell) { return !cell.empty(); });
    return shown != wanted;
}

}  // namespace zp::matlist
