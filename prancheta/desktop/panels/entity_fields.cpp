// SPDX-License-Identifier: MIT
// Geometry of the built-in classes, one table a class.
#include "prancheta/desktop/panels/entity_fields.h"

#include <cmath>

#include "dbdim.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta::desktop {
namespace {

double& axisOf(AcGePoint3d& p, int axis) { return axis == 0 ? p.x : axis == 1 ? p.y : p.z; }

FieldValue number(double value) { return {value, {}}; }
FieldValue text(std::wstring value) { return {0.0, std::move(value)}; }

// --- Fields that are one member function to read and one to set ---------------------------------

template <class T, auto Get, auto Set, int Axis>
struct Coordinate {
    static FieldValue get(const AcDbEntity& e) {
        AcGePoint3d p = (static_cast<const T&>(e).*Get)();
        return number(axisOf(p, Axis));
    }
    static Acad::ErrorStatus set(AcDbEntity& e, const FieldValue& v) {
        AcGePoint3d p = (static_cast<const T&>(e).*Get)();
        axisOf(p, Axis) = v.number;
        return (static_cast<T&>(e).*Set)(p);
    }
};

template <class T, auto Get, auto Set, int Axis>
constexpr Field coordinate(const wchar_t* key, const wchar_t* label) {
    using Of = Coordinate<T, Get, Set, Axis>;
    return {key, label, FieldKind::Length, Of::get, Of::set};
}

template <class T, auto Get, auto Set>
struct Member {
    static FieldValue get(const AcDbEntity& e) {
        return number(static_cast<double>((static_cast<const T&>(e).*Get)()));
    }
    static Acad::ErrorStatus set(AcDbEntity& e, const FieldValue& v) {
        return (static_cast<T&>(e).*Set)(v.number);
    }
};

template <class T, auto Get, auto Set>
constexpr Field member(const wchar_t* key, const wchar_t* label, FieldKind kind) {
    using Of = Member<T, Get, Set>;
    return {key, label, kind, Of::get, Of::set};
}

template <class T, auto Get>
constexpr Field shown(const wchar_t* key, const wchar_t* label, FieldKind kind) {
    const auto get = [](const AcDbEntity& e) {
        return number(static_cast<double>((static_cast<const T&>(e).*Get)()));
    };
    return {key, label, kind, get, nullptr};
}

// --- Line ---------------------------------------------------------------------------------------

const AcDbLine& line(const AcDbEntity& e) { return static_cast<const AcDbLine&>(e); }

FieldValue lineLength(const AcDbEntity& e) {
    return number(line(e).startPoint().distanceTo(line(e).endPoint()));
}
/// The start stays, the end moves along the line.
Acad::ErrorStatus setLineLength(AcDbEntity& e, const FieldValue& v) {
    const AcGeVector3d along = line(e).endPoint() - line(e).startPoint();
    const double length = along.length();
    if (length == 0.0) return Acad::eInvalidInput;
    return static_cast<AcDbLine&>(e).setEndPoint(line(e).startPoint() +
                                                 along * (v.number / length));
}
FieldValue lineAngle(const AcDbEntity& e) {
    const AcGeVector3d along = line(e).endPoint() - line(e).startPoint();
    return number(positiveAngle(std::atan2(along.y, along.x)));
}
/// Turns about the start in the plan.
Acad::ErrorStatus setLineAngle(AcDbEntity& e, const FieldValue& v) {
    const AcGeVector3d along = line(e).endPoint() - line(e).startPoint();
    const double inPlan = std::hypot(along.x, along.y);
    const SineCosine sc = sineCosine(v.number);
    const AcGeVector3d turned(inPlan * sc.cosine, inPlan * sc.sine, along.z);
    return static_cast<AcDbLine&>(e).setEndPoint(line(e).startPoint() + turned);
}

constexpr Field kLine[] = {
    coordinate<AcDbLine, &AcDbLine::startPoint, &AcDbLine::setStartPoint, 0>(L"inicio_x",
                                                                             L"Início X"),
    coordinate<AcDbLine, &AcDbLine::startPoint, &AcDbLine::setStartPoint, 1>(L"inicio_y",
                                                                             L"Início Y"),
    coordinate<AcDbLine, &AcDbLine::startPoint, &AcDbLine::setStartPoint, 2>(L"inicio_z",
                                                                             L"Início Z"),
    coordinate<AcDbLine, &AcDbLine::endPoint, &AcDbLine::setEndPoint, 0>(L"fim_x", L"Fim X"),
    coordinate<AcDbLine, &AcDbLine::endPoint, &AcDbLine::setEndPoint, 1>(L"fim_y", L"Fim Y"),
    coordinate<AcDbLine, &AcDbLine::endPoint, &AcDbLine::setEndPoint, 2>(L"fim_z", L"Fim Z"),
    {L"comprimento", L"Comprimento", FieldKind::Positive, lineLength, setLineLength},
    {L"angulo", L"Ângulo", FieldKind::Angle, lineAngle, setLineAngle},
};

// --- Point --------------------------------------------------------------------------------------

constexpr Field kPoint[] = {
    coordinate<AcDbPoint, &AcDbPoint::position, &AcDbPoint::setPosition, 0>(L"posicao_x",
                                                                            L"Posição X"),
    coordinate<AcDbPoint, &AcDbPoint::position, &AcDbPoint::setPosition, 1>(L"posicao_y",
                                                                            L"Posição Y"),
    coordinate<AcDbPoint, &AcDbPoint::position, &AcDbPoint::setPosition, 2>(L"posicao_z",
                                                                            L"Posição Z"),
};

// --- Circle and arc -----------------------------------------------------------------------------

template <class T>
double radiusOf(const AcDbEntity& e) {
    return static_cast<const T&>(e).radius();
}
FieldValue circleDiameter(const AcDbEntity& e) { return number(2.0 * radiusOf<AcDbCircle>(e)); }
Acad::ErrorStatus setCircleDiameter(AcDbEntity& e, const FieldValue& v) {
    return static_cast<AcDbCircle&>(e).setRadius(v.number / 2.0);
}
FieldValue circumference(const AcDbEntity& e) { return number(kTwoPi * radiusOf<AcDbCircle>(e)); }
FieldValue circleArea(const AcDbEntity& e) {
    return number(kPi * radiusOf<AcDbCircle>(e) * radiusOf<AcDbCircle>(e));
}

constexpr Field kCircle[] = {
    coordinate<AcDbCircle, &AcDbCircle::center, &AcDbCircle::setCenter, 0>(L"centro_x",
                                                                           L"Centro X"),
    coordinate<AcDbCircle, &AcDbCircle::center, &AcDbCircle::setCenter, 1>(L"centro_y",
                                                                           L"Centro Y"),
    coordinate<AcDbCircle, &AcDbCircle::center, &AcDbCircle::setCenter, 2>(L"centro_z",
                                                                           L"Centro Z"),
    member<AcDbCircle, &AcDbCircle::radius, &AcDbCircle::setRadius>(L"raio", L"Raio",
                                                                    FieldKind::Positive),
    {L"diametro", L"Diâmetro", FieldKind::Positive, circleDiameter, setCircleDiameter},
    {L"circunferencia", L"Circunferência", FieldKind::Length, circumference, nullptr},
    {L"area", L"Área", FieldKind::Area, circleArea, nullptr},
};

double arcSweep(const AcDbEntity& e) {
    const auto& arc = static_cast<const AcDbArc&>(e);
    const double sweep = positiveAngle(arc.endAngle() - arc.startAngle());
    return sweep == 0.0 ? kTwoPi : sweep;
}
FieldValue arcTotal(const AcDbEntity& e) { return number(arcSweep(e)); }
FieldValue arcLength(const AcDbEntity& e) { return number(arcSweep(e) * radiusOf<AcDbArc>(e)); }

constexpr Field kArc[] = {
    coordinate<AcDbArc, &AcDbArc::center, &AcDbArc::setCenter, 0>(L"centro_x", L"Centro X"),
    coordinate<AcDbArc, &AcDbArc::center, &AcDbArc::setCenter, 1>(L"centro_y", L"Centro Y"),
    coordinate<AcDbArc, &AcDbArc::center, &AcDbArc::setCenter, 2>(L"centro_z", L"Centro Z"),
    member<AcDbArc, &AcDbArc::radius, &AcDbArc::setRadius>(L"raio", L"Raio", FieldKind::Positive),
    member<AcDbArc, &AcDbArc::startAngle, &AcDbArc::setStartAngle>(
        L"angulo_inicial", L"Ângulo inicial", FieldKind::Angle),
    member<AcDbArc, &AcDbArc::endAngle, &AcDbArc::setEndAngle>(L"angulo_final", L"Ângulo final",
                                                               FieldKind::Angle),
    {L"angulo_total", L"Ângulo total", FieldKind::Angle, arcTotal, nullptr},
    {L"comprimento", L"Comprimento do arco", FieldKind::Length, arcLength, nullptr},
};

// --- Text ---------------------------------------------------------------------------------------

AcDbText& asText(AcDbEntity& e) { return static_cast<AcDbText&>(e); }
const AcDbText& asText(const AcDbEntity& e) { return static_cast<const AcDbText&>(e); }

/// The point that the user gave: with a justification the position is only what follows from it.
bool justified(const AcDbText& t) { return t.horizontalMode() != 0 || t.verticalMode() != 0; }

template <int Axis>
FieldValue textPoint(const AcDbEntity& e) {
    AcGePoint3d p = justified(asText(e)) ? asText(e).alignmentPoint() : asText(e).position();
    return number(axisOf(p, Axis));
}
template <int Axis>
Acad::ErrorStatus setTextPoint(AcDbEntity& e, const FieldValue& v) {
    AcDbText& t = asText(e);
    AcGePoint3d p = justified(t) ? t.alignmentPoint() : t.position();
    axisOf(p, Axis) = v.number;
    return justified(t) ? t.setAlignmentPoint(p) : t.setPosition(p);
}
FieldValue contents(const AcDbEntity& e) { return text(asText(e).textStringConst()); }
Acad::ErrorStatus setContents(AcDbEntity& e, const FieldValue& v) {
    if (trim(std::wstring_view(v.text)).empty()) return Acad::eInvalidInput;
    return asText(e).setTextString(v.text.c_str());
}

template <class Table>
AcDbObjectId styleNamed(const AcDbEntity& e, const std::wstring& name) {
    AcDbObjectId id;
    Table* table = nullptr;
    if (e.database() == nullptr || e.database()->getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return id;
    if (table->getAt(name.c_str(), id) != Acad::eOk) id.setNull();
    (void)table->close();
    return id;
}
FieldValue textStyle(const AcDbEntity& e) {
    const AcDbObjectId own = asText(e).textStyle();
    return text(
        recordName(own.isNull() && e.database() != nullptr ? e.database()->textstyle() : own));
}
Acad::ErrorStatus setTextStyle(AcDbEntity& e, const FieldValue& v) {
    return asText(e).setTextStyle(styleNamed<AcDbTextStyleTable>(e, v.text));
}

constexpr Field kText[] = {
    {L"conteudo", L"Conteúdo", FieldKind::Text, contents, setContents},
    {L"estilo", L"Estilo", FieldKind::TextStyle, textStyle, setTextStyle},
    member<AcDbText, &AcDbText::height, &AcDbText::setHeight>(L"altura", L"Altura",
                                                              FieldKind::Positive),
    member<AcDbText, &AcDbText::rotation, &AcDbText::setRotation>(L"rotacao", L"Rotação",
                                                                  FieldKind::Angle),
    member<AcDbText, &AcDbText::widthFactor, &AcDbText::setWidthFactor>(
        L"fator_largura", L"Fator de largura", FieldKind::Number),
    {L"posicao_x", L"Posição X", FieldKind::Length, textPoint<0>, setTextPoint<0>},
    {L"posicao_y", L"Posição Y", FieldKind::Length, textPoint<1>, setTextPoint<1>},
    {L"posicao_z", L"Posição Z", FieldKind::Length, textPoint<2>, setTextPoint<2>},
};

// --- Definition of an attribute -----------------------------------------------------------------

using Definition = AcDbAttributeDefinition;

FieldValue tagOf(const AcDbEntity& e) { return text(static_cast<const Definition&>(e).tagConst()); }
Acad::ErrorStatus setTag(AcDbEntity& e, const FieldValue& v) {
    return static_cast<Definition&>(e).setTag(v.text.c_str());
}
FieldValue promptOf(const AcDbEntity& e) {
    return text(static_cast<const Definition&>(e).promptConst());
}
Acad::ErrorStatus setPrompt(AcDbEntity& e, const FieldValue& v) {
    return static_cast<Definition&>(e).setPrompt(v.text.c_str());
}
Acad::ErrorStatus setOffered(AcDbEntity& e, const FieldValue& v) {
    return asText(e).setTextString(v.text.c_str());
}
template <int Mode>
FieldValue hasMode(const AcDbEntity& e) {
    return number((static_cast<const Definition&>(e).modes() & Mode) != 0 ? 1.0 : 0.0);
}
template <int Mode>
Acad::ErrorStatus setMode(AcDbEntity& e, const FieldValue& v) {
    auto& definition = static_cast<Definition&>(e);
    const int others = definition.modes() & ~Mode;
    return definition.setModes(v.number != 0.0 ? others | Mode : others);
}
template <int Mode>
constexpr Field mode(const wchar_t* key, const wchar_t* label) {
    return {key, label, FieldKind::YesNo, hasMode<Mode>, setMode<Mode>};
}

constexpr Field kDefinition[] = {
    {L"etiqueta", L"Etiqueta", FieldKind::Text, tagOf, setTag},
    {L"pergunta", L"Pergunta", FieldKind::Text, promptOf, setPrompt},
    {L"padrao", L"Valor padrão", FieldKind::Text, contents, setOffered},
    mode<Definition::kInvisible>(L"invisivel", L"Invisível"),
    mode<Definition::kConstant>(L"constante", L"Constante"),
    mode<Definition::kVerifiable>(L"verificar", L"Verificar"),
    mode<Definition::kPreset>(L"predefinido", L"Predefinido"),
    {L"estilo", L"Estilo", FieldKind::TextStyle, textStyle, setTextStyle},
    member<AcDbText, &AcDbText::height, &AcDbText::setHeight>(L"altura", L"Altura",
                                                              FieldKind::Positive),
    member<AcDbText, &AcDbText::rotation, &AcDbText::setRotation>(L"rotacao", L"Rotação",
                                                                  FieldKind::Angle),
    {L"posicao_x", L"Posição X", FieldKind::Length, textPoint<0>, setTextPoint<0>},
    {L"posicao_y", L"Posição Y", FieldKind::Length, textPoint<1>, setTextPoint<1>},
};

// --- Paragraphs ---------------------------------------------------------------------------------

AcDbMText& asMText(AcDbEntity& e) { return static_cast<AcDbMText&>(e); }
const AcDbMText& asMText(const AcDbEntity& e) { return static_cast<const AcDbMText&>(e); }

FieldValue paragraphs(const AcDbEntity& e) { return text(asMText(e).contentsConst()); }
Acad::ErrorStatus setParagraphs(AcDbEntity& e, const FieldValue& v) {
    if (trim(std::wstring_view(v.text)).empty()) return Acad::eInvalidInput;
    return asMText(e).setContents(v.text.c_str());
}
FieldValue paragraphStyle(const AcDbEntity& e) {
    const AcDbObjectId own = asMText(e).textStyle();
    return text(
        recordName(own.isNull() && e.database() != nullptr ? e.database()->textstyle() : own));
}
Acad::ErrorStatus setParagraphStyle(AcDbEntity& e, const FieldValue& v) {
    return asMText(e).setTextStyle(styleNamed<AcDbTextStyleTable>(e, v.text));
}

constexpr Field kMText[] = {
    {L"conteudo", L"Conteúdo", FieldKind::Text, paragraphs, setParagraphs},
    {L"estilo", L"Estilo", FieldKind::TextStyle, paragraphStyle, setParagraphStyle},
    member<AcDbMText, &AcDbMText::textHeight, &AcDbMText::setTextHeight>(L"altura", L"Altura",
                                                                         FieldKind::Positive),
    member<AcDbMText, &AcDbMText::width, &AcDbMText::setWidth>(L"largura", L"Largura",
                                                               FieldKind::Length),
    member<AcDbMText, &AcDbMText::rotation, &AcDbMText::setRotation>(L"rotacao", L"Rotação",
                                                                     FieldKind::Angle),
    member<AcDbMText, &AcDbMText::lineSpacingFactor, &AcDbMText::setLineSpacingFactor>(
        L"espacamento", L"Espaçamento de linha", FieldKind::Number),
    coordinate<AcDbMText, &AcDbMText::location, &AcDbMText::setLocation, 0>(L"posicao_x",
                                                                            L"Posição X"),
    coordinate<AcDbMText, &AcDbMText::location, &AcDbMText::setLocation, 1>(L"posicao_y",
                                                                            L"Posição Y"),
};

// --- Dimension ----------------------------------------------------------------------------------

AcDbDimension& asDimension(AcDbEntity& e) { return static_cast<AcDbDimension&>(e); }
const AcDbDimension& asDimension(const AcDbEntity& e) {
    return static_cast<const AcDbDimension&>(e);
}

FieldValue dimensionText(const AcDbEntity& e) { return text(asDimension(e).dimensionTextConst()); }
Acad::ErrorStatus setDimensionText(AcDbEntity& e, const FieldValue& v) {
    return asDimension(e).setDimensionText(v.text.c_str());
}
FieldValue dimensionShown(const AcDbEntity& e) { return text(asDimension(e).shownText()); }
FieldValue dimensionStyle(const AcDbEntity& e) {
    const AcDbObjectId own = asDimension(e).dimensionStyle();
    return text(
        recordName(own.isNull() && e.database() != nullptr ? e.database()->dimstyle() : own));
}
Acad::ErrorStatus setDimensionStyle(AcDbEntity& e, const FieldValue& v) {
    return asDimension(e).setDimensionStyle(styleNamed<AcDbDimStyleTable>(e, v.text));
}

using Dim = AcDbDimension;
using Linear = PranchetaLinearDimension;
constexpr Field kMeasure = shown<Dim, &Dim::measurement>(L"medida", L"Medida", FieldKind::Length);
constexpr Field kAngle = shown<Dim, &Dim::measurement>(L"medida", L"Medida", FieldKind::Angle);
constexpr Field kSubstitute = {L"texto", L"Texto substituto", FieldKind::Text, dimensionText,
                               setDimensionText};
constexpr Field kShown = {L"texto_mostrado", L"Texto mostrado", FieldKind::Text, dimensionShown,
                          nullptr};
constexpr Field kStyle = {L"estilo", L"Estilo de cota", FieldKind::DimStyle, dimensionStyle,
                          setDimensionStyle};
constexpr Field kScale =
    member<Dim, &Dim::dimscale, &Dim::setDimscale>(L"escala", L"Escala geral", FieldKind::Positive);
constexpr Field kTextTurn = member<Dim, &Dim::textRotation, &Dim::setTextRotation>(
    L"rotacao_texto", L"Rotação do texto", FieldKind::Angle);
constexpr Field kRoundDimension[] = {kMeasure, kSubstitute, kShown, kStyle, kScale, kTextTurn};
constexpr Field kAngularDimension[] = {kAngle, kSubstitute, kShown, kStyle, kScale, kTextTurn};
constexpr Field kDimension[] = {
    kMeasure,
    kSubstitute,
    kShown,
    kStyle,
    kScale,
    kTextTurn,
    coordinate<Linear, &Linear::xLine1Point, &Linear::setXLine1Point, 0>(L"ponto1_x", L"Ponto 1 X"),
    coordinate<Linear, &Linear::xLine1Point, &Linear::setXLine1Point, 1>(L"ponto1_y", L"Ponto 1 Y"),
    coordinate<Linear, &Linear::xLine2Point, &Linear::setXLine2Point, 0>(L"ponto2_x", L"Ponto 2 X"),
    coordinate<Linear, &Linear::xLine2Point, &Linear::setXLine2Point, 1>(L"ponto2_y", L"Ponto 2 Y"),
};

// --- Polyline -----------------------------------------------------------------------------------

AcDbPolyline& asPolyline(AcDbEntity& e) { return static_cast<AcDbPolyline&>(e); }
const AcDbPolyline& asPolyline(const AcDbEntity& e) { return static_cast<const AcDbPolyline&>(e); }

struct Outline {
    double length = 0.0;
    double area = 0.0;  ///< of the closed outline, also for an open polyline
};

/// Chords by cross products about the first vertex, arcs by their segments.
Outline outlineOf(const AcDbPolyline& polyline) {
    Outline sum;
    const unsigned count = polyline.numVerts();
    AcGePoint3d first;
    if (count < 2 || polyline.getPointAt(0, first) != Acad::eOk) return sum;
    const AcGeVector3d normal = polyline.normal();
    for (unsigned i = 0; i < count; ++i) {
        AcGePoint3d a;
        AcGePoint3d b;
        double bulge = 0.0;
        (void)polyline.getPointAt(i, a);  // the indices are below the count
        (void)polyline.getPointAt((i + 1) % count, b);
        (void)polyline.getBulgeAt(i, bulge);
        const bool drawn = i + 1 < count || polyline.isClosed();
        BulgeArc arc;
        const bool round = drawn && arcOfBulge(a, b, bulge, normal, arc);
        sum.area += (a - first).crossProduct(b - first).dotProduct(normal) / 2.0;
        if (round) sum.area += arc.radius * arc.radius * (arc.sweep - std::sin(arc.sweep)) / 2.0;
        if (drawn) sum.length += round ? arc.radius * std::abs(arc.sweep) : a.distanceTo(b);
    }
    sum.area = std::abs(sum.area);
    return sum;
}

FieldValue polylineClosed(const AcDbEntity& e) {
    return number(asPolyline(e).isClosed() ? 1.0 : 0.0);
}
Acad::ErrorStatus setPolylineClosed(AcDbEntity& e, const FieldValue& v) {
    return asPolyline(e).setClosed(v.number != 0.0);
}
FieldValue polylineLength(const AcDbEntity& e) { return number(outlineOf(asPolyline(e)).length); }
FieldValue polylineArea(const AcDbEntity& e) { return number(outlineOf(asPolyline(e)).area); }

constexpr Field kPolyline[] = {
    {L"fechada", L"Fechada", FieldKind::YesNo, polylineClosed, setPolylineClosed},
    shown<AcDbPolyline, &AcDbPolyline::numVerts>(L"vertices", L"Vértices", FieldKind::Number),
    {L"comprimento", L"Comprimento", FieldKind::Length, polylineLength, nullptr},
    {L"area", L"Área", FieldKind::Area, polylineArea, nullptr},
    member<AcDbPolyline, &AcDbPolyline::elevation, &AcDbPolyline::setElevation>(
        L"elevacao", L"Elevação", FieldKind::Length),
};

// --- Block reference ----------------------------------------------------------------------------

using Insert = AcDbBlockReference;

template <int Axis>
FieldValue scaleFactor(const AcDbEntity& e) {
    const AcGeVector3d s = static_cast<const Insert&>(e).scaleFactors();
    return number(Axis == 0 ? s.x : Axis == 1 ? s.y : s.z);
}
template <int Axis>
Acad::ErrorStatus setScaleFactor(AcDbEntity& e, const FieldValue& v) {
    AcGeVector3d s = static_cast<const Insert&>(e).scaleFactors();
    (Axis == 0 ? s.x : Axis == 1 ? s.y : s.z) = v.number;
    return static_cast<Insert&>(e).setScaleFactors(s);
}
FieldValue blockName(const AcDbEntity& e) {
    return text(recordName(static_cast<const Insert&>(e).blockTableRecord()));
}

/// What is inserted from now on; the attributes stay.
Acad::ErrorStatus setBlockName(AcDbEntity& e, const FieldValue& v) {
    const AcDbObjectId block = styleNamed<AcDbBlockTable>(e, v.text);
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    if (record.openStatus() != Acad::eOk || record->isLayout()) return Acad::eInvalidInput;
    return static_cast<Insert&>(e).setBlockTableRecord(block);
}

constexpr Field kInsert[] = {
    {L"nome", L"Nome do bloco", FieldKind::Text, blockName, setBlockName},
    coordinate<Insert, &Insert::position, &Insert::setPosition, 0>(L"posicao_x", L"Posição X"),
    coordinate<Insert, &Insert::position, &Insert::setPosition, 1>(L"posicao_y", L"Posição Y"),
    coordinate<Insert, &Insert::position, &Insert::setPosition, 2>(L"posicao_z", L"Posição Z"),
    {L"escala_x", L"Escala X", FieldKind::Number, scaleFactor<0>, setScaleFactor<0>},
    {L"escala_y", L"Escala Y", FieldKind::Number, scaleFactor<1>, setScaleFactor<1>},
    {L"escala_z", L"Escala Z", FieldKind::Number, scaleFactor<2>, setScaleFactor<2>},
    member<Insert, &Insert::rotation, &Insert::setRotation>(L"rotacao", L"Rotação",
                                                            FieldKind::Angle),
};

// --- Entities of other programs -----------------------------------------------------------------

FieldValue foreignType(const AcDbEntity& e) {
    return text(toWide(static_cast<const ForeignEntity&>(e).typeName()));
}
constexpr Field kForeign[] = {
    {L"tipo_no_arquivo", L"Tipo no arquivo", FieldKind::Text, foreignType, nullptr},
};

const ClassFields kClasses[] = {
    {AcDbLine::desc, L"Linha", kLine},
    {AcDbPoint::desc, L"Ponto", kPoint},
    {AcDbCircle::desc, L"Círculo", kCircle},
    {AcDbArc::desc, L"Arco", kArc},
    {AcDbAttributeDefinition::desc, L"Definição de atributo", kDefinition},
    {AcDbText::desc, L"Texto", kText},
    {AcDbMText::desc, L"Texto de parágrafos", kMText},
    {AcDbAlignedDimension::desc, L"Cota alinhada", kDimension},
    {AcDbRotatedDimension::desc, L"Cota linear", kDimension},
    {AcDbRadialDimension::desc, L"Cota de raio", kRoundDimension},
    {AcDbDiametricDimension::desc, L"Cota de diâmetro", kRoundDimension},
    {AcDb2LineAngularDimension::desc, L"Cota angular", kAngularDimension},
    {AcDb3PointAngularDimension::desc, L"Cota angular", kAngularDimension},
    {AcDbPolyline::desc, L"Polilinha", kPolyline},
    {AcDbBlockReference::desc, L"Referência de bloco", kInsert},
    {AcDbSolid::desc, L"Sólido 2D", {}},
    {ForeignEntity::desc, L"Objeto de outro programa", kForeign},
};

}  // namespace

const ClassFields* fieldsOf(const AcDbEntity& entity) {
    for (const ClassFields& each : kClasses)
        if (entity.isKindOf(each.desc())) return &each;
    return nullptr;
}

}  // namespace prancheta::desktop
