// SPDX-License-Identifier: MIT
// AREA: of points, of objects, and sums of both.
#include <cmath>
#include <optional>

#include "dbhatch.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/hatch_area.h"
#include "prancheta/entities/listing.h"
#include "prancheta/graphics/edges.h"
#include "protocol/attach.h"
#include "protocol/report.h"

namespace prancheta::commands {

namespace {

constexpr Word kObject = {L"Objeto", L"Object"};
constexpr Word kAdd = {L"Adicionar", L"Add"};
constexpr Word kSubtract = {L"Subtrair", L"Subtract"};

struct Measured {
    double area = 0.0;    ///< square drawing units
    double length = 0.0;  ///< drawing units
    bool closed = true;
};

/// What a module says of a piece: the steel of a section.
class SectionReader : public protocol::PropertyVisitor {
public:
    void number(const ACHAR* name, double value) override {
        if (m_depth > 0 || name == nullptr) return;
        if (std::wstring_view(name) == L"area") measured.area = value;
        if (std::wstring_view(name) == L"perimetro") measured.length = value;
    }
    void integer(const ACHAR* name, long long value) override {
        if (name != nullptr && std::wstring_view(name) == L"vista") isSection = value == 0;
    }
    void text(const ACHAR*, const ACHAR*) override {}
    void point(const ACHAR*, const AcGePoint3d&) override {}
    void object(const ACHAR*, const AcDbObjectId&) override {}
    void beginList(const ACHAR*) override { ++m_depth; }
    void endList() override { --m_depth; }
    void beginGroup(const ACHAR*) override { ++m_depth; }
    void endGroup() override { --m_depth; }

    Measured measured;
    bool isSection = false;

private:
    int m_depth = 0;
};

/// Between the edge and its chord counts, and between the chord and the origin.
double areaUnder(const Edge& edge) {
    double area = (edge.a.x * edge.b.y - edge.b.x * edge.a.y) / 2.0;
    if (edge.isArc()) area += edge.radius * edge.radius * (edge.sweep - std::sin(edge.sweep)) / 2.0;
    return area;
}

/// Of a single curve, closed by a straight line where it is open; coordinates are told from its
/// first point, so that no digit is lost far from the origin.
std::optional<Measured> measureCurve(const Picture& picture) {
    std::optional<PrimitiveView> curve;
    for (const PrimitiveView p : picture) {
        // Fillings are what a polyline's width adds to its line.
        if (p.kind() == PrimitiveKind::Text) return {};
        if (p.kind() == PrimitiveKind::Polygon && picture.size() > 1) continue;
        if (curve) return {};
        curve = p;
    }
    if (!curve || curve->traits().marker == kEndlessMarker) return {};
    std::optional<AcGePoint3d> start;
    AcGePoint3d end;
    Measured measured;
    forEachEdge(*curve, [&](const Edge& each) {
        if (!start) start = each.a;
        Edge edge = each;
        edge.a -= start->asVector();
        edge.b -= start->asVector();
        end = edge.b;
        measured.area += areaUnder(edge);
        measured.length +=
            edge.isArc() ? edge.radius * std::abs(edge.sweep) : edge.a.distanceTo(edge.b);
    });
    if (!start || measured.area == 0.0) return {};
    measured.area = std::abs(measured.area);
    measured.closed = end.distanceTo(AcGePoint3d::kOrigin) <= 1e-9 * measured.length;
    return measured;
}

/// Null text, or why the object has no area.
const wchar_t* measure(const CommandContext& context, AcDbObjectId id, Measured& measured) {
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) return L"O objeto não pode ser aberto.";
        if (const auto* const report = protocol::extensionOf<protocol::EntityReport>(
                *entity.object(), protocol::kEntityReportClass)) {
            SectionReader reader;
            report->describe(*entity.object(), reader);
            measured = reader.measured;
            return reader.isSection
                       ? nullptr
                       : L"Esta vista da peça não delimita uma área: selecione a seção.";
        }
    }
    if (const AcDbObjectPointer<AcDbHatch> hatch(id, AcDb::kForRead);
        hatch.openStatus() == Acad::eOk) {
        if (hatch->getArea(measured.area) != Acad::eOk) return L"A hachura não delimita uma área.";
        for (const HatchSegment& each : segmentsOf(filledOutlines(*hatch.object())))
            measured.length += each.radius > 0.0
                                   ? each.radius * std::abs(each.sweep)
                                   : std::hypot(each.b.x - each.a.x, each.b.y - each.a.y);
        return nullptr;
    }
    const std::optional<Measured> found = measureCurve(context.editor().display().picture(id));
    if (!found) return L"O objeto não delimita uma área.";
    measured = *found;
    return nullptr;
}

Measured measurePoints(const std::vector<AcGePoint3d>& points) {
    Measured measured;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const AcGeVector3d a = points[i] - points[0];
        const AcGeVector3d b = points[(i + 1) % points.size()] - points[0];
        measured.area += (a.x * b.y - b.x * a.y) / 2.0;
        measured.length += (b - a).length();
    }
    measured.area = std::abs(measured.area);
    return measured;
}

/// The sum, and which way what is measured next counts; 0: nothing is summed.
struct Sum {
    int sense = 0;
    double total = 0.0;
};

void tell(const CommandContext& context, const Measured& measured, Sum& sum) {
    say(context, L"Área = " + commaText(measured.area, 2) +
                     (measured.closed ? L", perímetro = " : L", comprimento = ") +
                     commaText(measured.length, 2));
    sum.total += sum.sense * measured.area;
    if (sum.sense != 0) say(context, L"Área total = " + commaText(sum.total, 2));
    context.editor().variables().force(L"AREA", sum.sense != 0 ? sum.total : measured.area);
    context.editor().variables().force(L"PERIMETER", measured.length);
}

/// False after Esc.
Task<bool> measureObjects(CommandContext context, Sum& sum) {
    for (;;) {
        Prompt prompt(InputKind::Entity, L"\nSelecione um objeto: ");
        if (sum.sense == 0) prompt.required();
        const InputValue picked = co_await context.ask(prompt);
        if (picked.status == RTCAN) co_return false;
        if (picked.status == RTNONE) co_return true;
        Measured measured;
        const wchar_t* const reason = picked.entities.empty()
                                          ? L"Nenhum objeto encontrado nesse ponto."
                                          : measure(context, picked.entities.front(), measured);
        if (reason != nullptr) {
            context.editor().complain(reason, Complaint::Refused);
            continue;
        }
        tell(context, measured, sum);
        if (sum.sense == 0) co_return true;
    }
}

/// False after Esc.
Task<bool> measureCorners(CommandContext context, AcGePoint3d first, Sum& sum) {
    std::vector<AcGePoint3d> points = {first};
    for (;;) {
        Prompt prompt(InputKind::Point, L"\nPróximo ponto: ");
        prompt.from(points.back()).preview([points](const AcGePoint3d& at, Picture& out) {
            std::vector<AcGePoint3d> outline = points;
            outline.push_back(at);
            outline.push_back(points.front());
            out.addPolyline({}, outline);
        });
        const InputValue next = co_await context.ask(prompt);
        if (next.status == RTCAN) co_return false;
        if (next.status == RTNORM) {
            points.push_back(next.point);
            continue;
        }
        if (points.size() > 2) {
            tell(context, measurePoints(points), sum);
            co_return true;
        }
        context.editor().complain(L"Uma área precisa de três pontos ou mais.", Complaint::Refused);
    }
}

Prompt firstPrompt(const Sum& sum) {
    std::vector<Word> words = {kObject};
    if (sum.sense <= 0) words.push_back(kAdd);
    if (sum.sense >= 0) words.push_back(kSubtract);
    std::wstring text = L"\nPrimeiro ponto ou [";
    for (const Word& word : words)
        text += word.local + std::wstring(&word == &words.back() ? L"]: " : L"/");
    Prompt prompt(InputKind::Point, text);
    prompt.words(words);
    if (sum.sense == 0) prompt.required();
    return prompt;
}

}  // namespace

CommandTask area(CommandContext context) {
    Sum sum;
    const Ids before = context.editor().selection().take();
    if (before.size() == 1) {
        Measured measured;
        if (const wchar_t* const reason = measure(context, before.front(), measured))
            say(context, reason);
        else
            tell(context, measured, sum);
        co_return CommandEnd::Done;
    }
    for (;;) {
        const InputValue first = co_await context.ask(firstPrompt(sum));
        bool going = first.status != RTCAN;
        if (isWord(first, L"Add"))
            sum.sense = 1;
        else if (isWord(first, L"Subtract"))
            sum.sense = -1;
        else if (isWord(first, L"Object"))
            going = co_await measureObjects(context, sum);
        else if (first.status == RTNORM)
            going = co_await measureCorners(context, first.point, sum);
        else
            co_return endOf(first.status);
        if (!going) co_return CommandEnd::Cancelled;
        if (sum.sense == 0) co_return CommandEnd::Done;
    }
}

}  // namespace prancheta::commands
