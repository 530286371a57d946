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

constexpr double kLine = 2.0;  ///< from line to line, in heights of the texts

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

using Lines = std::vector<std::vector<std::wstring>>;

/// Left and right edges of the columns from 0 on; the last one is wide enough for the title above
/// all.
std::vector<double> edgesOf(const Listing& listing, const Lines& lines, double h) {
    std::vector<double> edges{0.0};
    for (std::size_t i = 0; i < listing.columns.size(); ++i) {
        std::size_t largest = 0;
        for (const auto& line : lines) largest = std::max(largest, line[i].size());
        edges.push_back(edges.back() + widthOf(largest, h));
    }
    edges.back() = std::max(edges.back(), widthOf(listing.title.size(), h));
    return edges;
}

/// How the lines of a table follow each other.
struct Grid {
    AcGePoint3d corner;     ///< left one at the title's outer edge
    std::vector<double> x;  ///< edgesOf()
    double h;               ///< height of the texts
    double step;            ///< to the next line: below 0 downwards
};

/// Title, headings and further lines from the corner on.
void draw(Draughtsman& d, const Listing& listing, const Lines& lines, const Grid& grid) {
    const double h = grid.h;
    const double z = grid.corner.z;
    // The title is line 0.
    const auto y = [&](std::size_t n) {
        return grid.corner.y + grid.step * static_cast<double>(n);
    };
    const auto x = [&](std::size_t i) { return grid.corner.x + grid.x[i]; };
    const auto baseline = [&](std::size_t n) { return std::min(y(n), y(n + 1)) + 0.5 * h; };
    const std::size_t last = lines.size() + 1;
    const std::size_t columns = listing.columns.size();
    for (std::size_t n = 0; n <= last; ++n) d.line({x(0), y(n), z}, {x(columns), y(n), z});
    for (std::size_t i = 0; i <= columns; ++i) {
        const bool frame = i == 0 || i == columns;
        d.line({x(i), y(frame ? 0 : 1), z}, {x(i), y(last), z});
    }
    d.text({0.5 * (x(0) + x(columns)), baseline(0), z}, listing.title, h, Align::Middle);
    for (std::size_t n = 0; n < lines.size(); ++n)
        for (std::size_t i = 0; i < columns; ++i) {
            const bool right = listing.columns[i]->shown.decimals >= 0 && n > 0;
            const double where = right ? x(i + 1) - 0.8 * h : x(i) + 0.8 * h;
            d.text({where, baseline(n + 1), z}, lines[n][i], h, right ? Align::Right : Align::Left);
        }
}

/// A list as it stands on a sheet: blocks of so many lines, the headings in each.
struct SheetTable {
    Listing listing;
    Lines lines;
    std::vector<double> x;
    std::size_t inBlock;  ///< without the headings

    std::size_t blocks() const { return (lines.size() - 1 + inBlock - 1) / inBlock; }
    Lines block(std::size_t n) const {
        const auto at = [&](std::size_t i) {
            return lines.begin() + static_cast<std::ptrdiff_t>(1 + std::min(i, lines.size() - 1));
        };
        Lines part{lines.front()};
        part.insert(part.end(), at(n * inBlock), at((n + 1) * inBlock));
        return part;
    }
};

}  // namespace

bool drawTable(const MaterialList& list) {
    std::optional<Header> header = readHeader(list.id);
    if (!header) return false;
    const Standing standing = standingOf(*header);
    if (standing.corner) header->point = *standing.corner;
    eraseTable(*header);
    Draughtsman d(standing.space, ZpLayerToUsr(L"LISTA"));
    d.turn(header->point, standing.angle);
    const Listing listing = listingOf({list.number, list.id, *header});
    const Lines lines = linesOf(listing);
    const double h = 2.5 * GetScale();
    draw(d, listing, lines, {header->point, edgesOf(listing, lines, h), h, -kLine * h});
    header->table = d.ids();
    return writeHeader(list.id, *header);
}

bool drawTablesOn(AcDbDatabase& drawing, const protocol::TablePlace& place,
                  AcDbObjectIdArray& drawn) {
    const double h = place.text;
    // Title and headings take two of them.
    const double fitting = std::floor(place.height / (kLine * h)) - 2.0;
    std::vector<SheetTable> tables;
    double width = -h;
    for (const MaterialList& list : materialLists(drawing)) {
        if (hasNoRows(list.id)) continue;
        if (fitting < 1.0) return false;
        SheetTable& table = tables.emplace_back(listingOf(list));
        table.lines = linesOf(table.listing);
        table.x = edgesOf(table.listing, table.lines, h);
        table.inBlock = static_cast<std::size_t>(fitting);
        width += static_cast<double>(table.blocks()) * (table.x.back() + h);
    }
    if (width > place.width) return false;
    Draughtsman d(place.space, ZpLayerToUsr(L"LISTA"));
    AcGePoint3d corner = place.corner;
    for (const SheetTable& table : tables)
        for (std::size_t n = 0; n < table.blocks(); ++n) {
            corner.x -= table.x.back();
            draw(d, table.listing, table.block(n), {corner, table.x, h, kLine * h});
            corner.x -= h;
        }
    for (const AcDbSoftPointerId& id : d.ids()) drawn.append(id);
    return true;
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
