// SPDX-License-Identifier: MIT
// Strokes of a piece's picture, and the linetypes that they need.
#include "zp/objects/picture.h"

#include "dbsymtb.h"
#include "zp/objects/cortes.h"

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

/// Strokes of a longitudinal view: x of an end is a linear function over the section.
class Longitudinal {
public:
    Longitudinal(const Peca& p, const Frame& q)
        : m_p(p),
          m_q(q),
          m_v(p.secao().vista(p.vista)),
          m_slopes{cortes::slopeOf(p, cortes::kStart), cortes::slopeOf(p, cortes::kEnd)} {}

    std::vector<Stroke> draw() {
        edges(true);
        for (const std::size_t end : {cortes::kStart, cortes::kEnd}) drawEnd(end);
        edges(false);
        for (const std::size_t end : {cortes::kStart, cortes::kEnd})
            if (m_slopes[end].p > 0.0) drawFace(end, Linetype::Hidden);
        if (m_v.axis) line({0.0, 0.0}, {m_p.comprimento, 0.0}, Linetype::Axis);
        return std::move(m_strokes);
    }

private:
    secao::Point at(std::size_t end, const secao::VistaPoint& q) const {
        const double reach = m_slopes[end].w * q.w + m_slopes[end].p * q.p;
        return {end == cortes::kStart ? -reach : m_p.comprimento + reach, q.w};
    }
    void line(const secao::Point& a, const secao::Point& b, Linetype type) {
        m_strokes.push_back(linetype(m_q, a.x, a.y, b.x, b.y, type));
    }
    void edges(bool visible) {
        for (const secao::Level& n : m_v.levels)
            if (n.visible == visible)
                line(at(cortes::kStart, {n.w, n.p}), at(cortes::kEnd, {n.w, n.p}),
                     visible ? Linetype::Own : Linetype::Hidden);
    }
    /// The cut face where it looks at the viewer, else the front edges that hide it.
    void drawEnd(std::size_t end) {
        if (m_slopes[end].p < 0.0) {
            drawFace(end, Linetype::Own);
            return drawBehind(end);
        }
        const auto part = [&](const secao::VistaPoint& a, const secao::VistaPoint& b) {
            line(at(end, a), at(end, b), Linetype::Own);
        };
        if (m_slopes[end].p == 0.0) {
            for (const auto& [w0, w1] : m_v.stretches) part({w0}, {w1});
            return;
        }
        for (std::size_t i = 1; i < m_v.levels.size(); ++i) {
            const auto front = secao::frontBetween(m_p.secao().outlines(), m_p.vista,
                                                   m_v.levels[i - 1].w, m_v.levels[i].w);
            for (std::size_t k = 0; k + 1 < front.size(); k += 2) part(front[k], front[k + 1]);
        }
    }
    /// Edges further back that reach further out than what hides them.
    void drawBehind(std::size_t end) {
        for (const secao::Level& n : m_v.levels)
            for (const auto& [from, to] : secao::seenBehind(m_p.secao().outlines(), m_p.vista, n.w))
                line(at(end, {n.w, from}), at(end, {n.w, to}), Linetype::Own);
    }
    /// Foreshortened; roundings in straight parts.
    void drawFace(std::size_t end, Linetype type) {
        constexpr int kParts = 6;
        for (const secao::Outline& c : m_p.secao().outlines()) {
            Stroke face;
            face.linetype = type;
            for (const secao::Segment& s : c.segments)
                for (int i = 0; i < (s.arc() ? kParts : 1); ++i) {
                    const secao::Point p =
                        at(end, secao::see(m_p.vista, s.point(static_cast<double>(i) / kParts)));
                    face.points.push_back(m_q.toWorld(p.x, p.y));
                    face.bulges.push_back(0.0);
                }
            m_strokes.push_back(std::move(face));
        }
    }

    const Peca& m_p;
    const Frame& m_q;
    const secao::Vista& m_v;
    std::array<cortes::Slope, 2> m_slopes;
    std::vector<Stroke> m_strokes;
};

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
    if (!peca.inSecao()) return Longitudinal(peca, q).draw();
    std::vector<Stroke> strokes;
    for (const secao::Outline& c : peca.secao().outlines())
        strokes.push_back(outline(c, q, peca.mirrored));
    return strokes;
}

AcDb::LineWeight lineWeightOf(const Peca& peca, Linetype linetype, AcDb::LineWeight own) {
    if (linetype == Linetype::Hidden) return AcDb::kLnWt025;
    if (linetype == Linetype::Axis) return AcDb::kLnWt018;
    return peca.inSecao() && own == AcDb::kLnWtByLayer ? AcDb::kLnWt070 : own;
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
