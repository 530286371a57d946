// SPDX-License-Identifier: MIT
// The symbol of a weld, by AWS A2.4.
#include "prancheta/entities/weld_symbol.h"

#include <algorithm>
#include <cmath>

#include "acutmem.h"
#include "prancheta/entities/annotation_size.h"
#include "prancheta/entities/arrow_head.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

ACRX_DXF_DEFINE_MEMBERS(WeldSymbol, AcDbEntity, 0, 0, 0, PRANCHETA_SOLDA, "Prancheta")

namespace {

constexpr double kLetter = 2.5;  ///< on paper, mm
constexpr Adesk::Int16 kRecordVersion = 1;

/// Draws with the elbow as origin; lengths in heights of a letter.
class Pen {
public:
    Pen(const AcGePoint3d& origin, double unit, AcGiGeometry& to)
        : m_origin(origin), m_unit(unit), m_to(to) {}

    AcGePoint3d at(double x, double y) const {
        return m_origin + AcGeVector3d(x * m_unit, y * m_unit, 0.0);
    }
    void line(std::initializer_list<std::pair<double, double>> points) const {
        std::vector<AcGePoint3d> path;
        for (const auto& [x, y] : points) path.push_back(at(x, y));
        m_to.polyline(static_cast<Adesk::UInt32>(path.size()), path.data());
    }
    void arc(double x, double y, double radius, double from, double sweep) const {
        m_to.circularArc(at(x, y), radius * m_unit, AcGeVector3d::kZAxis,
                         {std::cos(from), std::sin(from), 0.0}, sweep);
    }
    void circle(double x, double y, double radius) const {
        m_to.circle(at(x, y), radius * m_unit, AcGeVector3d::kZAxis);
    }
    /// From the left end of its baseline.
    void text(double x, double y, const std::wstring& words) const {
        if (words.empty()) return;
        m_to.text(at(x, y), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, m_unit, 1.0, 0.0,
                  words.c_str());
    }
    AcGiGeometry& geometry() const { return m_to; }

private:
    AcGePoint3d m_origin;
    double m_unit;
    AcGiGeometry& m_to;
};

double widthOf(const std::wstring& text) { return text.empty() ? 0.0 : textWidth(text, 1.0, 1.0); }

constexpr double kSign = 1.4;    ///< width and height of a sign
constexpr double kGap = 0.4;     ///< between sign and letters
constexpr double kMargin = 1.6;  ///< from the ends of the line
constexpr double kLeast = 6.0;   ///< length of the line
constexpr double kTail = 1.0;

/// The sign at x; `side` is 1 above the line, -1 below it. Upright legs stand on the left.
void drawSign(WeldKind kind, double x, double side, const Pen& pen) {
    const double end = side * kSign;
    const double middle = x + kSign / 2.0;
    const double radius = kSign / 2.0;
    switch (kind) {
        case WeldKind::Fillet:
            return pen.line({{x, 0.0}, {x, end}, {x + kSign, 0.0}});
        case WeldKind::Square:
            pen.line({{x + kSign / 3.0, 0.0}, {x + kSign / 3.0, end}});
            return pen.line({{x + kSign / 1.5, 0.0}, {x + kSign / 1.5, end}});
        case WeldKind::V:
            return pen.line({{x, end}, {middle, 0.0}, {x + kSign, end}});
        case WeldKind::Bevel:
            pen.line({{x, 0.0}, {x, end}});
            return pen.line({{x, 0.0}, {x + kSign, end}});
        case WeldKind::U:
            pen.line({{middle, 0.0}, {middle, end - side * radius}});
            return pen.arc(middle, end, radius, 0.0, side > 0.0 ? -kPi : kPi);
        case WeldKind::J:
            pen.line({{x, 0.0}, {x, end}});
            return pen.arc(x, end, radius * 1.4, side > 0.0 ? -kPi / 2.0 : kPi / 2.0,
                           side > 0.0 ? kPi / 2.0 : -kPi / 2.0);
    }
}

/// Everything on one side: size, sign, length, angle.
void drawSide(const Weld& weld, double left, double side, const Pen& pen) {
    const double sizeWidth = widthOf(weld.size);
    const double x = left + (sizeWidth > 0.0 ? sizeWidth + kGap : 0.0);
    const double baseline = side > 0.0 ? kGap : -kGap - 1.0;
    drawSign(weld.kind, x, side, pen);
    pen.text(left, baseline, weld.size);
    pen.text(x + kSign + kGap, baseline, weld.length);
    if (weld.angle.empty()) return;
    const std::wstring angle = weld.angle + L"%%d";
    pen.text(x + (kSign - widthOf(angle)) / 2.0, side > 0.0 ? kSign + kGap : -kSign - kGap - 1.0,
             angle);
}

/// `towards` is 1 when the line runs to the right from the elbow.
void drawTail(const Weld& weld, double end, double towards, const Pen& pen) {
    if (weld.tail.empty()) return;
    const double tip = end + towards * kTail;
    pen.line({{tip, kTail}, {end, 0.0}, {tip, -kTail}});
    const double x = tip + towards * kGap;
    pen.text(towards > 0.0 ? x : x - widthOf(weld.tail), -0.5, weld.tail);
}

void drawFieldFlag(double towards, const Pen& pen) {
    pen.line({{0.0, 0.0}, {0.0, 2.4}});
    const AcGePoint3d flag[3] = {pen.at(0.0, 2.4), pen.at(0.0, 1.4), pen.at(towards * 1.2, 1.9)};
    pen.geometry().polygon(3, flag);
}

}  // namespace

Acad::ErrorStatus WeldSymbol::setDescription(const std::wstring& line) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    Weld read;
    std::wstring why;
    if (!readWeld(line, read, why)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_line = line;
    m_weld = read;
    return Acad::eOk;
}

Acad::ErrorStatus WeldSymbol::setScale(double scale) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(scale > 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_scale = scale;
    return Acad::eOk;
}

Adesk::Boolean WeldSymbol::subWorldDraw(AcGiWorldDraw* draw) {
    AcGiGeometry& to = draw->geometry();
    const double unit = kLetter * m_scale * AnnotationSize::factor();
    const double towards = m_elbow.x >= m_tip.x ? 1.0 : -1.0;
    const Pen pen(m_elbow, unit, to);
    const AcGeVector3d arm = m_tip - m_elbow;
    if (!arm.isZeroLength()) {
        const AcGePoint3d path[2] = {m_elbow, m_tip};
        to.polyline(2, path);
        drawArrowHead(m_tip, arm.normal(), unit, AcGeVector3d::kZAxis, to);
    }
    const double size = widthOf(m_weld.size);
    const double length = widthOf(m_weld.length);
    const double content =
        (size > 0.0 ? size + kGap : 0.0) + kSign + (length > 0.0 ? length + kGap : 0.0);
    const double line = std::max(kLeast, content + 2.0 * kMargin);
    pen.line({{0.0, 0.0}, {towards * line, 0.0}});
    const double left = (towards > 0.0 ? 0.0 : -line) + (line - content) / 2.0;
    if (m_weld.side != WeldSide::Other) drawSide(m_weld, left, -1.0, pen);
    if (m_weld.side != WeldSide::Arrow) drawSide(m_weld, left, 1.0, pen);
    if (m_weld.allRound) pen.circle(0.0, 0.0, 0.5);
    if (m_weld.field) drawFieldFlag(towards, pen);
    drawTail(m_weld, towards * line, towards, pen);
    return Adesk::kTrue;
}

Acad::ErrorStatus WeldSymbol::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    m_tip.transformBy(m);
    m_elbow.transformBy(m);
    m_scale *= m.scale();
    xDataTransformBy(m);
    return Acad::eOk;
}

Acad::ErrorStatus WeldSymbol::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_tip);
    filer->writePoint3d(m_elbow);
    filer->writeDouble(m_scale);
    filer->writeString(m_line.c_str());
    return filer->filerStatus();
}

Acad::ErrorStatus WeldSymbol::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_tip);
    filer->readPoint3d(&m_elbow);
    filer->readDouble(&m_scale);
    es = readText(filer, m_line);
    if (es != Acad::eOk) return es;
    std::wstring why;
    (void)readWeld(m_line, m_weld, why);  // it was one
    return filer->filerStatus();
}

Acad::ErrorStatus WeldSymbol::dxfOutFields(AcDbDxfFiler* filer) const {
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeString(AcDb::kDxfSubclass, isA()->name());
    filer->writeInt16(70, kRecordVersion);
    filer->writePoint3d(10, m_tip);
    filer->writePoint3d(11, m_elbow);
    filer->writeDouble(40, m_scale);
    filer->writeString(1, m_line.c_str());
    return filer->filerStatus();
}

Acad::ErrorStatus WeldSymbol::dxfInFields(AcDbDxfFiler* filer) {
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk) return es;
    if (!filer->atSubclassData(isA()->name()))
        return filer->setError(Acad::eBadDxfSequence, L"%ls: falta o registro da solda.",
                               isA()->name());
    resbuf group = {};
    std::wstring line;
    double scale = 0.0;
    while (filer->readItem(&group) == Acad::eOk) {
        const ads_real* const p = group.resval.rpoint;
        if (group.restype == 10) m_tip.set(p[0], p[1], p[2]);
        if (group.restype == 11) m_elbow.set(p[0], p[1], p[2]);
        if (group.restype == 40) scale = group.resval.rreal;
        if (group.restype != 1) continue;
        line = group.resval.rstring;
        acutDelString(group.resval.rstring);
    }
    std::wstring why;
    if (!(scale > 0.0) || !readWeld(line, m_weld, why))
        return filer->setError(Acad::eInvalidInput, L"%ls: a solda não é entendida.",
                               isA()->name());
    m_scale = scale;
    m_line = line;
    return filer->filerStatus();
}

void WeldSymbol::getEcs(AcGeMatrix3d& ecs) const {
    ecs = AcGeMatrix3d::translation(m_tip.asVector());
}

void WeldSymbol::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listText(L"solda", m_line);
    listPoint(L"ponta da seta,", m_tip);
    listPoint(L"linha de referência,", m_elbow);
    listNumber(L"escala", m_scale);
}

Acad::ErrorStatus WeldSymbol::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                               AcDbIntArray&) const {
    points.append(m_tip);
    points.append(m_elbow);
    return Acad::eOk;
}

Acad::ErrorStatus WeldSymbol::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                  const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.contains(0)) m_tip += offset;
    if (indices.contains(1)) m_elbow += offset;
    return Acad::eOk;
}

}  // namespace prancheta
