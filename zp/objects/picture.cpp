// SPDX-License-Identifier: MIT
// Strokes of a piece's picture, and the linetypes that they need.
#include "zp/objects/picture.h"

#include "dbsymtb.h"

namespace zp {
namespace {

Stroke linetype(const Frame& q, double x0, double y0, double x1, double y1,
                Linetype type = Linetype::Own) {
    return {{q.toWorld(x0, y0), q.toWorld(x1, y1)}, {}, 0.0, type};
}

Stroke outline(const secao::Outline& c, const Frame& q, bool mirrored) {
    Stroke t;
    if (c.circle) {
        const secao::Segment& s = c.segments.front();
        t.points.push_back(q.toWorld(s.centre.x, s.centre.y));
        t.radius = s.radius;
        return t;
    }
    for (const secao::Segment& s : c.segments) {
        t.points.push_back(q.toWorld(s.a.x, s.a.y));
        t.bulges.push_back(mirrored ? -s.bulge() : s.bulge());
    }
    return t;
}

Stroke rectangle(const secao::Bounds& c, const Frame& q) {
    return {{q.toWorld(c.x0, c.y0), q.toWorld(c.x1, c.y0), q.toWorld(c.x1, c.y1),
             q.toWorld(c.x0, c.y1)},
            {0.0, 0.0, 0.0, 0.0},
            0.0,
            Linetype::Own};
}

std::vector<Stroke> longitudinal(const Peca& p, const Frame& q) {
    std::vector<Stroke> strokes;
    const secao::Vista& v = p.secao().vista(p.vista);
    const double L = p.comprimento;
    for (const bool visible : {true, false}) {
        for (const secao::Level& n : v.levels)
            if (n.visible == visible)
                strokes.push_back(
                    linetype(q, 0.0, n.w, L, n.w, visible ? Linetype::Own : Linetype::Hidden));
        if (!visible) break;
        for (const double x : {0.0, L})
            for (const auto& [w0, w1] : v.stretches) strokes.push_back(linetype(q, x, w0, x, w1));
    }
    if (v.axis) strokes.push_back(linetype(q, 0.0, 0.0, L, 0.0, Linetype::Axis));
    return strokes;
}

struct Pattern {
    const ACHAR* name;
    const ACHAR* drawing;
    std::vector<double> strokes;
};

void load(AcDbLinetypeTable& table, const Pattern& pattern) {
    if (table.has(pattern.name)) return;
    auto record = std::make_unique<AcDbLinetypeTableRecord>();
    (void)record->setName(pattern.name);  // a constant, valid name
    (void)record->setComments(pattern.drawing);
    (void)record->setNumDashes(static_cast<int>(pattern.strokes.size()));
    for (std::size_t i = 0; i < pattern.strokes.size(); ++i)
        (void)record->setDashLengthAt(static_cast<int>(i), pattern.strokes[i]);
    if (table.add(record.get()) == Acad::eOk) (void)record.release()->close();
}

}  // namespace

std::vector<Stroke> pictureOf(const Peca& peca) {
    const Frame q = peca.pictureFrame();
    if (peca.chapa()) return {rectangle(peca.picture(), q)};
    if (!peca.inSecao()) return longitudinal(peca, q);
    std::vector<Stroke> strokes;
    for (const secao::Outline& c : peca.secao().outlines())
        strokes.push_back(outline(c, q, peca.mirrored));
    return strokes;
}

const ACHAR* linetypeName(Linetype linetype) {
    switch (linetype) {
        case Linetype::Hidden:
            return L"HIDDEN";
        case Linetype::Axis:
            return L"CENTER";
        case Linetype::Own:
            break;
    }
    return nullptr;
}

AcDbObjectId linetypeId(AcDbDatabase* drawing, Linetype linetype) {
    AcDbObjectId id;
    const ACHAR* name = linetypeName(linetype);
    if (drawing == nullptr || name == nullptr) return id;
    const AcDbObjectPointer<AcDbLinetypeTable> table(drawing->linetypeTableId(), AcDb::kForRead);
    if (table.object() != nullptr) (void)table->getAt(name, id);  // stays null when it is missing
    return id;
}

void loadLinetypes(AcDbDatabase& drawing) {
    if (!linetypeId(&drawing, Linetype::Hidden).isNull() &&
        !linetypeId(&drawing, Linetype::Axis).isNull())
        return;
    const AcDbObjectPointer<AcDbLinetypeTable> table(drawing.linetypeTableId(), AcDb::kForWrite);
    if (table.object() == nullptr) return;
    load(*table.object(), {L"HIDDEN", L"Hidden __ __ __ __ __ __ __ __", {6.35, -3.175}});
    load(*table.object(), {L"CENTER", L"Center ____ _ ____ _ ____ _", {31.75, -6.35, 6.35, -6.35}});
}

}  // namespace zp
