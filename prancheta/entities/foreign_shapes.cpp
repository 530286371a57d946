// SPDX-License-Identifier: MIT
// Entities of other programs, drawn from their groups.
#include "prancheta/entities/foreign_shapes.h"

#include <algorithm>
#include <cmath>

#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/tag_list.h"
#include "prancheta/graphics/picture.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

using Points = std::vector<AcGePoint3d>;

void polyline(const Points& points, AcGiGeometry& to) {
    if (points.size() > 1) to.polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

void line(const AcGePoint3d& a, const AcGePoint3d& b, AcGiGeometry& to) {
    const AcGePoint3d ends[] = {a, b};
    if (a != b) to.polyline(2, ends);
}

/// Corners by number, from 1; a negative one begins an edge that is not seen. Zeros are none.
void drawFace(const Points& corners, const std::vector<int>& face, AcGiGeometry& to) {
    const auto corner = [&](std::size_t i) -> const AcGePoint3d* {
        const auto number = static_cast<std::size_t>(std::abs(face[i % face.size()]));
        return number > 0 && number <= corners.size() ? &corners[number - 1] : nullptr;
    };
    for (std::size_t i = 0; i < face.size(); ++i) {
        const AcGePoint3d* const a = corner(i);
        const AcGePoint3d* const b = corner(i + 1);
        if (a != nullptr && b != nullptr && face[i] > 0) line(*a, *b, to);
    }
}

void drawGrid(const Points& corners, int rows, int columns, int flags, AcGiGeometry& to) {
    constexpr int kClosedAcross = 1;
    constexpr int kClosedAlong = 32;
    if (rows < 1 || columns < 1 ||
        corners.size() / static_cast<std::size_t>(columns) < static_cast<std::size_t>(rows))
        return;
    const auto at = [&](int row, int column) {
        return corners[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                       static_cast<std::size_t>(column)];
    };
    for (int row = 0; row < rows; ++row) {
        Points along;
        for (int column = 0; column < columns; ++column) along.push_back(at(row, column));
        if ((flags & kClosedAlong) != 0) along.push_back(at(row, 0));
        polyline(along, to);
    }
    for (int column = 0; column < columns; ++column) {
        Points across;
        for (int row = 0; row < rows; ++row) across.push_back(at(row, column));
        if ((flags & kClosedAcross) != 0) across.push_back(at(0, column));
        polyline(across, to);
    }
}

void drawArrow(const AcGePoint3d& tip, const AcGePoint3d& from, double size, AcGiGeometry& to) {
    const AcGeVector3d along = from - tip;
    if (along.isZeroLength() || !(size > 0.0) || along.length() < size) return;
    const AcGePoint3d tail = tip + along.normal() * size;
    const AcGeVector3d half = AcGeVector3d::kZAxis.crossProduct(along.normal()) * (size / 6.0);
    const AcGePoint3d arrow[] = {tip, tail + half, tail - half};
    to.polygon(3, arrow);
}

void addPoint(RawTags& tags, int code, const AcGePoint3d& p) {
    const double values[] = {p.x, p.y, p.z};
    for (int i = 0; i < 3; ++i) tags.push_back({code + 10 * i, numberText(values[i])});
}

}  // namespace

void drawNet(const RawTags& tags, AcGiGeometry& to) {
    constexpr int kFaces = 64;
    constexpr int kPlace = 64;
    constexpr int kFace = 128;
    constexpr int kFrameOfSpline = 16;
    const int flags = findWhole(tags, 70, 0);
    Points corners;
    std::vector<std::vector<int>> faces;
    for (const RawTags& record : recordsOf(tags)) {
        if (record[0].code != 0 || trim(std::string_view(record[0].value)) != "VERTEX") continue;
        const int kind = findWhole(record, 70, 0);
        if ((kind & kFrameOfSpline) != 0) continue;
        if ((kind & kFace) != 0 && (kind & kPlace) == 0) {
            std::vector<int> face;
            for (int code = 71; code <= 74; ++code)
                if (const int corner = findWhole(record, code, 0); corner != 0)
                    face.push_back(corner);
            faces.push_back(std::move(face));
        } else {
            corners.push_back(findPoint(record, 10));
        }
    }
    if ((flags & kFaces) == 0)
        return drawGrid(corners, findWhole(tags, 71, 0), findWhole(tags, 72, 0), flags, to);
    for (const std::vector<int>& face : faces) drawFace(corners, face, to);
}

void drawMesh(const RawTags& tags, AcGiGeometry& to) {
    const Points corners = findPoints(tags, 10);
    std::size_t i = 0;
    while (i < tags.size() && tags[i].code != 93) ++i;
    if (i == tags.size()) return;
    const auto end =
        std::min(tags.size(), i + 1 + static_cast<std::size_t>(std::max(0, tagWhole(tags[i]))));
    for (++i; i < end;) {
        const auto count = static_cast<std::size_t>(std::max(0, tagWhole(tags[i])));
        std::vector<int> face;
        for (++i; face.size() < count && i < end; ++i) face.push_back(tagWhole(tags[i]) + 1);
        drawFace(corners, face, to);
    }
}

void drawMline(const RawTags& tags, AcGiGeometry& to) {
    constexpr int kClosed = 2;
    std::vector<Points> elements;
    AcGePoint3d corner;
    AcGeVector3d across;
    std::size_t element = 0;
    for (std::size_t i = 0; i < tags.size(); ++i) {
        if (tags[i].code == 11) {
            corner = pointAt(tags, i);
            element = 0;
        }
        if (tags[i].code == 13) across = pointAt(tags, i).asVector();
        // The first parameter of an element is its distance from the corner.
        if (tags[i].code != 74 || i + 1 >= tags.size() || tags[i + 1].code != 41) continue;
        if (element == elements.size()) elements.emplace_back();
        elements[element++].push_back(corner + across * tagNumber(tags[i + 1]));
    }
    for (Points& points : elements) {
        if ((findWhole(tags, 71, 0) & kClosed) != 0) points.push_back(points.front());
        polyline(points, to);
    }
}

/// Parts stand one inside the other, each between its own pair of groups; see moveGroups().
void drawMultileader(const ForeignEntity& entity, AcGiWorldDraw& draw) {
    const RawTags& tags = entity.tags();
    AcGiGeometry& to = draw.geometry();
    enum Depth { kOutside, kContext, kLeader, kLine };
    int depth = kOutside;
    RawTags context;
    RawTags leader;
    std::vector<Points> lines;
    const auto finishLeader = [&] {
        const AcGePoint3d landing = findPoint(leader, 10);
        const AcGeVector3d dogleg = findPoint(leader, 11).asVector() * findNumber(leader, 40, 0.0);
        for (Points& points : lines) {
            points.push_back(landing);
            polyline(points, to);
            if (points.size() > 1)
                drawArrow(points[0], points[1], findNumber(context, 140, 0.0), to);
        }
        line(landing, landing + dogleg, to);
        leader.clear();
        lines.clear();
    };
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const RawTag& tag = tags[i];
        if (tag.code == 300 + 2 * depth && tag.value.ends_with('{')) {
            if (++depth == kLine) lines.emplace_back();
        } else if (depth > 0 && tag.code == 299 + 2 * depth) {
            if (depth-- == kLeader) finishLeader();
        } else if (depth == kLine && tag.code == 10) {
            lines.back().push_back(pointAt(tags, i));
        } else if (depth == kLeader) {
            leader.push_back(tag);
        } else if (depth == kContext) {
            context.push_back(tag);
        }
    }
    const std::wstring words = findText(context, 304);
    if (words.empty()) return;
    RawTags text;
    addPoint(text, 10, findPoint(context, 12));
    text.push_back({40, numberText(findNumber(context, 41, 2.5))});
    text.push_back({41, numberText(findNumber(context, 43, 0.0))});
    text.push_back({71, std::to_string(std::clamp(findWhole(context, 171, 1), 1, 3))});
    text.push_back({1, toUtf8(words)});
    addPoint(text, 11, findPoint(context, 13, {1, 0, 0}));
    drawMtext(text, entity, draw);
}

void drawTolerance(const ForeignEntity& entity, AcGiWorldDraw& draw) {
    const RawTags& tags = entity.tags();
    AcGiGeometry& to = draw.geometry();
    const double height = AcDbDimStyleValues().dimtxt;
    std::wstring words = findText(tags, 1);
    for (std::size_t at; (at = words.find(L"%%v")) != std::wstring::npos;)
        words.replace(at, 3, L" | ");
    RawTags text;
    const AcGePoint3d place = findPoint(tags, 10);
    AcGeVector3d along = findPoint(tags, 11, {1, 0, 0}).asVector();
    if (along.isZeroLength()) along = AcGeVector3d::kXAxis;
    along = along.normal();
    const std::vector<std::wstring> lines = plainParagraphs(words);
    double width = 0.0;
    for (const std::wstring& each : lines) width = std::max(width, textWidth(each, height, 1.0));
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(along) * height;
    const double rows = std::max(1.0, static_cast<double>(lines.size()));
    const AcGeVector3d whole = along * (width + height);
    polyline({place + up, place + up + whole, place + up - up * (2.0 * rows) + whole,
              place + up - up * (2.0 * rows), place + up},
             to);
    addPoint(text, 10, place + along * (height / 2.0) + up * 0.5);
    text.push_back({40, numberText(height)});
    text.push_back({71, "1"});
    text.push_back({1, toUtf8(words)});
    addPoint(text, 11, AcGePoint3d::kOrigin + along);
    drawMtext(text, entity, draw);
}

namespace {

/// Corners, the first again at the end.
Points frameOf(const RawTags& tags) {
    constexpr int kRectangle = 1;
    const AcGePoint3d corner = findPoint(tags, 10);
    const AcGeVector3d u = findPoint(tags, 11).asVector();
    const AcGeVector3d v = findPoint(tags, 12).asVector();
    const AcGePoint3d size = findPoint(tags, 13);
    Points clip = findPoints(tags, 14);
    if (clip.size() < 2) clip = {{-0.5, -0.5, 0}, {size.x - 0.5, size.y - 0.5, 0}};
    if (clip.size() == 2 || findWhole(tags, 71, kRectangle) == kRectangle)
        clip = {clip[0], {clip[1].x, clip[0].y, 0}, clip[1], {clip[0].x, clip[1].y, 0}};
    // Counted in pixels from the middle of the first one, downwards.
    Points frame;
    for (const AcGePoint3d& p : clip)
        frame.push_back(corner + u * (p.x + 0.5) + v * (size.y - p.y - 0.5));
    frame.push_back(frame.front());
    return frame;
}

}  // namespace

void drawImageFrame(const RawTags& tags, AcGiGeometry& to) { polyline(frameOf(tags), to); }

void drawWipeout(const ForeignEntity& entity, AcGiWorldDraw& draw) {
    constexpr int kShown = 1;
    const Points frame = frameOf(entity.tags());
    if ((findWhole(entity.tags(), 70, kShown) & kShown) != 0) {
        draw.subEntityTraits().setSelectionMarker(kCoverMarker);
        draw.geometry().polygon(static_cast<Adesk::UInt32>(frame.size() - 1), frame.data());
        draw.subEntityTraits().setSelectionMarker(-1);
    }
    const AcDbDatabase* const database = entity.database();
    if (database == nullptr || database->core().variables().number(L"WIPEOUTFRAME") != 0)
        polyline(frame, draw.geometry());
}

}  // namespace prancheta
