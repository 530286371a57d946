// SPDX-License-Identifier: MIT
// What the commands share that draw dimensions.
#include "prancheta/editor/commands/dimensions.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "prancheta/base/text.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/details.h"
#include "prancheta/editor/dimension_ties.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/dimension_layout.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

Ends endsOf(const Edge& edge, const AcGePoint3d& pick) {
    if (!edge.isCircle()) return {edge.a, edge.b};
    // An object that was named instead of picked may have its centre where the pick would be.
    AcGeVector3d towards = pick - edge.center;
    towards.z = 0.0;
    const AcGeVector3d radius =
        (towards.isZeroLength() ? AcGeVector3d::kXAxis : towards.normal()) * edge.radius;
    return {edge.center - radius, edge.center + radius};
}

/// "n x p", numbers with comma or point; nothing for any other text.
std::optional<std::pair<int, double>> equalSteps(std::wstring_view text) {
    const std::size_t cross = text.find_first_of(L"xX×*");
    if (cross == std::wstring_view::npos) return {};
    std::wstring step(trim(text.substr(cross + 1)));
    for (wchar_t& c : step)
        if (c == L',') c = L'.';
    double count = 0.0;
    double length = 0.0;
    if (!parseNumber(trim(text.substr(0, cross)), count) ||
        !parseNumber(std::wstring_view(step), length))
        return {};
    if (count < 1.0 || count > 1e6 || count != std::floor(count) || length <= 0.0) return {};
    return std::pair(static_cast<int>(count), length);
}

/// The text as it is kept; says so when equal steps are not what is measured.
std::wstring withSteps(const CommandContext& context, const std::wstring& text,
                       const AcDbDimension& trial) {
    const auto steps = equalSteps(text);
    if (!steps || trial.isAngular()) return text;
    const AcDbDimStyleValues style = styleValues(trial);
    const std::wstring sum = measureText(steps->first * steps->second, style);
    const std::wstring measured = measureText(trial.measurement() * std::abs(style.dimlfac), style);
    if (sum == measured) return text + L" = <>";
    say(context, text + L" = " + sum + L", mas a medida é " + measured +
                     L": o texto fica como foi digitado.");
    return text;
}

/// Units of the model for one where both points lie: in a viewport of a sheet, in the copy of a
/// detail; 0 elsewhere.
double modelLength(const CommandContext& context, const AcGePoint3d& a, const AcGePoint3d& b) {
    const Spaces& spaces = context.editor().spaces();
    if (!spaces.onSheet()) return lengthFactorBetween(context.editor(), a, b);
    const AcDbViewport* const viewport =
        spaces.drawsOnPaper() ? viewportOf(spaces.viewportAt(a)) : nullptr;
    if (viewport == nullptr) return 0.0;
    // The frame itself is the sheet's.
    constexpr double kOnFrame = 1e-6;
    const Box2d inside = frameOf(*viewport).grown(-kOnFrame);
    if (!inside.contains(a.x, a.y) || !inside.contains(b.x, b.y)) return 0.0;
    return 1.0 / viewport->customScale();
}

/// What is drawn at a scale of its own is told in the units of the model.
void measureThrough(const CommandContext& context, AcDbDimension& dimension) {
    if (dimension.isAngular()) return;
    const auto points = dimension.definitionPoints();
    const double factor = modelLength(context, points[0], points[1]);
    if (factor > 0.0) setLengthFactor(dimension, factor);
}

}  // namespace

std::optional<Edge> edgeAt(const CommandContext& context, AcDbObjectId id,
                           const AcGePoint3d& pick) {
    std::optional<Edge> nearest;
    double least = 0.0;
    for (const PrimitiveView primitive : context.editor().display().picture(id))
        forEachEdge(primitive, [&](const Edge& edge) {
            const double distance = planeDistance(nearestOn(edge, pick), pick);
            if (nearest && distance >= least) return;
            nearest = edge;
            least = distance;
        });
    return nearest;
}

Task<PickedEdge> askEdge(CommandContext context, std::wstring question, bool (*takes)(const Edge&),
                         std::wstring refusal) {
    PickedEdge picked;
    for (;;) {
        const InputValue answer = co_await context.ask(Prompt(InputKind::Entity, question));
        picked.status = answer.status;
        if (answer.status == RTCAN || answer.status == RTNONE) co_return picked;
        if (answer.status == RTNORM && !answer.entities.empty()) {
            picked.id = answer.entities.front();
            picked.pick = answer.point;
            const std::optional<Edge> edge = edgeAt(context, picked.id, answer.point);
            if (edge && takes(*edge)) {
                picked.edge = *edge;
                co_return picked;
            }
        }
        context.editor().complain(refusal, Complaint::Refused);
    }
}

Task<Measured> askEnds(CommandContext context, std::wstring first, std::wstring second) {
    Measured measured;
    const InputValue one = co_await context.ask(Prompt(InputKind::Point, first));
    measured.status = one.status;
    if (one.status == RTNONE) {
        const PickedEdge picked =
            co_await askEdge(context, L"\nSelecione o objeto a cotar: ", anyEdge,
                             L"O objeto selecionado não pode ser cotado.");
        measured.status = picked.status;
        if (picked.status == RTNORM) measured.ends = endsOf(picked.edge, picked.pick);
        co_return measured;
    }
    if (one.status != RTNORM) co_return measured;
    const InputValue other =
        co_await context.ask(Prompt(InputKind::Point, second).from(one.point).required());
    measured.status = other.status;
    measured.ends = {one.point, other.point};
    co_return measured;
}

std::unique_ptr<AcDbDimension> dressed(const CommandContext& context,
                                       std::unique_ptr<AcDbDimension> dimension,
                                       const DimensionWords& words) {
    if (dimension->dimensionStyle().isNull())
        (void)dimension->setDimensionStyle(context.database().dimstyle());  // not resident
    (void)dimension->setDimensionText(words.text.c_str());
    (void)dimension->setTextRotation(words.rotation);
    const double scale = annotationScale(context);
    if (dimension->dimscale() != scale) (void)dimension->setDimscale(scale);
    measureThrough(context, *dimension);
    return dimension;
}

namespace {

/// Asks for the text after [textoM] or [Texto], for its angle after [Ângulo]; `trial` is the
/// dimension as it would be. RTCAN after Esc.
Task<int> askWords(CommandContext context, InputValue option, const AcDbDimension& trial,
                   DimensionWords& words) {
    if (isWord(option, L"Angle")) {
        const InputValue angle = co_await context.ask(
            Prompt(InputKind::Angle, L"\nÂngulo do texto: ").required().from(trial.textPosition()));
        if (angle.status == RTNORM) words.rotation = angle.number + userTurn(context);
        co_return angle.status == RTCAN ? RTCAN : RTNORM;
    }
    const InputValue typed = co_await context.ask(
        Prompt(InputKind::Text, L"\nDigite o texto da cota <" + measuredText(trial) + L">: ")
            .wholeLine());
    if (typed.status == RTCAN) co_return RTCAN;
    words.text = typed.status == RTNORM ? withSteps(context, typed.text, trial) : L"";
    co_return RTNORM;
}

constexpr Word kTextWords[] = {{L"textoM", L"Mtext"}, {L"Texto", L"Text"}, {L"Ângulo", L"Angle"}};

}  // namespace

CommandTask placeDimension(CommandContext context, Placing placing) {
    DimensionWords words;
    for (;;) {
        Prompt place(InputKind::Point, placing.question);
        place.words(kTextWords).words(placing.more).required();
        if (placing.from) place.from(*placing.from);
        place.showing(context, [context, make = placing.make, words](const AcGePoint3d& at) {
            return dressed(context, make(at), words);
        });
        const InputValue answer = co_await context.ask(place);
        if (answer.status == RTKWORD) {
            const bool other = std::ranges::any_of(
                placing.more, [&](const Word& word) { return isWord(answer, word.global); });
            const auto trial = dressed(context, placing.make(placing.trial));
            int status = RTNORM;
            if (other)
                status = co_await placing.takeMore(answer);
            else
                status = co_await askWords(context, answer, *trial, words);
            if (status == RTCAN) co_return CommandEnd::Cancelled;
            continue;
        }
        if (answer.status != RTNORM) co_return endOf(answer.status);
        const AcDbObjectId id =
            addDimension(context, dressed(context, placing.make(answer.point), words));
        co_return id.isNull() ? CommandEnd::Failed : CommandEnd::Done;
    }
}

AcDbObjectId addDimension(const CommandContext& context, std::unique_ptr<AcDbEntity> dimension) {
    const AcDbObjectId id = addEntity(context, std::move(dimension));
    if (id.isNull()) return id;
    tieDimension(context.editor(), id);
    const AcDbObjectPointer<AcDbDimension> added(id, AcDb::kForRead);
    if (added.openStatus() == Acad::eOk) say(context, L"Texto da cota = " + added->shownText());
    return id;
}

std::optional<LinearModel> linearModel(AcDbObjectId id, const AcGePoint3d* near) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return {};
    const auto* const linear = dynamic_cast<const PranchetaLinearDimension*>(entity.object());
    if (linear == nullptr) return {};
    LinearModel model;
    model.id = id;
    model.first = linear->xLine1Point();
    model.second = linear->xLine2Point();
    model.line = linear->dimLinePoint();
    const AcGeVector3d along = linear->measuredAlong();
    model.rotation = std::atan2(along.y, along.x);
    model.style = linear->dimensionStyle();
    const AcDbDimStyleValues style = styleValues(*linear);
    model.scale = style.dimscale;
    model.spacing = style.dimdli * style.dimscale;
    if (near != nullptr && std::abs((*near - model.first).dotProduct(along)) <
                               std::abs((*near - model.second).dotProduct(along)))
        std::swap(model.first, model.second);
    return model;
}

}  // namespace prancheta::commands
