// SPDX-License-Identifier: MIT
// ZOOM: which part of the drawing is seen.
#include <algorithm>
#include <cmath>

#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/place_view.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

constexpr Word kZoomWords[] = {
    {L"Tudo", L"All"},         {L"Centro", L"Center"},     {L"Dinâmico", L"Dynamic"},
    {L"Estender", L"Extents"}, {L"Anterior", L"Previous"}, {L"ESCala", L"Scale"},
    {L"Janela", L"Window"},    {L"Objeto", L"Object"},
};
constexpr double kMargin = 1.02;  // of extents, so that nothing lies on the frame

/// Limits of a new drawing: a sheet lying on its long side.
AcDbExtents limits(const CommandContext& context) {
    const SystemVariables& variables = context.editor().variables();
    AcDbExtents box;
    box.addPoint(variables.find(L"LIMMIN") ? variables.point(L"LIMMIN") : AcGePoint3d(0, 0, 0));
    box.addPoint(variables.find(L"LIMMAX") ? variables.point(L"LIMMAX") : AcGePoint3d(420, 297, 0));
    return box;
}

AcDbExtents extentsOf(const Ids& ids) {
    AcDbExtents all;
    for (const AcDbObjectId id : ids) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        AcDbExtents one;
        if (entity.openStatus() == Acad::eOk && entity->getGeomExtents(one) == Acad::eOk &&
            !one.isEmpty())
            all.addExt(one);
    }
    return all;
}

bool onFrozenLayer(AcDbObjectId id) {
    AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return false;
    AcDbObjectPointer<AcDbLayerTableRecord> layer(entity->layerId(), AcDb::kForRead);
    return layer.openStatus() == Acad::eOk && layer->isFrozen();
}

/// Layers that are frozen do not count; those that are off are regenerated and do.
AcDbExtents drawingExtents(const CommandContext& context) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(context.database().currentSpaceId(),
                                                  AcDb::kForRead);
    AcDbBlockTableRecordIterator* raw = nullptr;
    if (space.openStatus() != Acad::eOk || space->newIterator(raw) != Acad::eOk) return {};
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(raw);
    Ids ids;
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getEntityId(id) == Acad::eOk && !onFrozenLayer(id)) ids.push_back(id);
    }
    return extentsOf(ids);
}

/// Height of the view that holds all of the box.
double heightFor(const Editor& editor, const AcDbExtents& box) {
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    return std::max(size.y, size.x * placeProportion(editor));
}

void showBox(const CommandContext& context, const AcDbExtents& box, double margin) {
    Editor& editor = context.editor();
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    const double height = heightFor(editor, box);
    View view = placeView(editor);
    view.centre = box.minPoint() + size / 2.0;
    if (height > 0.0) view.height = height * margin;
    showInPlace(editor, view);
}

void showExtents(const CommandContext& context) {
    const AcDbExtents box = drawingExtents(context);
    showBox(context, box.isEmpty() ? limits(context) : box, box.isEmpty() ? 1.0 : kMargin);
}

void showAll(const CommandContext& context) {
    AcDbExtents box = limits(context);
    const AcDbExtents drawn = drawingExtents(context);
    if (!drawn.isEmpty()) box.addExt(drawn);
    showBox(context, box, drawn.isEmpty() ? 1.0 : kMargin);
}

/// "2" is relative to the limits, "2x" to the present view, "2xp" to paper, which shows one drawing
/// unit as one unit of paper. False for a text that is none of these.
bool showFactor(const CommandContext& context, std::wstring_view text) {
    const std::wstring folded = foldCase(trim(text));
    std::wstring_view number = folded;
    const bool toPaper = number.ends_with(L"xp");
    const bool toView = number.ends_with(L"x");
    number.remove_suffix(toPaper ? 2 : toView ? 1 : 0);
    double factor = 0.0;
    if (!parseNumber(number, factor) || !(factor > 0.0) || !std::isfinite(factor)) return false;
    Editor& editor = context.editor();
    View view = placeView(editor);
    const AcDbViewport* const frame = viewportOf(editor.spaces().viewport());
    if (toPaper && frame != nullptr)
        view.height = frame->height() / factor;
    else
        view.height = (toView ? view.height : heightFor(editor, limits(context))) / factor;
    showInPlace(editor, view);
    return true;
}

void showPrevious(const CommandContext& context) {
    if (!context.editor().screen().back()) say(context, L"Não há vista anterior.");
}

Task<InputValue> askScale(CommandContext context) {
    for (;;) {
        InputValue answer = co_await context.ask(
            Prompt(InputKind::Text, L"\nDigite um fator de escala (nX ou nXP): ").required());
        if (answer.status != RTNORM || showFactor(context, answer.text)) co_return answer;
        context.editor().complain(L"Requer um fator de escala maior que zero.", Complaint::Refused);
    }
}

Task<InputValue> askWindow(CommandContext context, AcGePoint3d first) {
    InputValue second = co_await context.ask(
        Prompt(InputKind::Corner, L"\nEspecifique o canto oposto: ").from(first).required());
    if (second.status != RTNORM) co_return second;
    AcDbExtents box;
    box.addPoint(first);
    box.addPoint(second.point);
    showBox(context, box, 1.0);
    co_return second;
}

Task<InputValue> askCenter(CommandContext context) {
    Editor& editor = context.editor();
    InputValue center = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto central: ").required());
    if (center.status != RTNORM) co_return center;
    View view = placeView(editor);
    view.centre = center.point;
    const std::wstring prompt =
        L"\nDigite o fator de ampliação ou a altura <" + lengthText(view.height) + L">: ";
    for (;;) {
        const InputValue height = co_await context.ask(Prompt(InputKind::Text, prompt));
        if (height.status == RTCAN) co_return height;
        if (height.status == RTNONE || trim(height.text).empty()) {
            showInPlace(editor, view);
            co_return center;
        }
        std::wstring typed = foldCase(trim(height.text));
        const bool factor = typed.ends_with(L'x');
        if (factor) typed.pop_back();
        double value = 0.0;
        if (parseNumber(typed, value) && value > 0.0 && std::isfinite(value)) {
            view.height = factor ? view.height / value : value;
            showInPlace(editor, view);
            co_return center;
        }
        context.editor().complain(L"Requer um número maior que zero.", Complaint::Refused);
    }
}

Task<InputValue> askObjects(CommandContext context) {
    const Selection chosen = co_await selectToRead(context);
    InputValue end;
    end.status = chosen.status;
    const AcDbExtents box = extentsOf(chosen.ids);
    if (chosen.status == RTNORM && !box.isEmpty()) showBox(context, box, kMargin);
    co_return end;
}

Task<InputValue> askCorners(CommandContext context) {
    InputValue first = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o primeiro canto: ").required());
    if (first.status == RTNORM) first = co_await askWindow(context, first.point);
    co_return first;
}

}  // namespace

CommandTask zoom(CommandContext context) {
    for (;;) {
        InputValue answer = co_await context.ask(
            Prompt(InputKind::Point,
                   L"\nEspecifique o canto da janela, digite um fator de escala (nX ou nXP), ou\n"
                   L"[Tudo/Centro/Dinâmico/Estender/Anterior/ESCala/Janela/Objeto] <tempo real>: ")
                .words(kZoomWords)
                .bits(RSG_OTHER));
        if (answer.status == RTNORM)
            answer = co_await askWindow(context, answer.point);
        else if (isWord(answer, L"All"))
            showAll(context);
        else if (isWord(answer, L"Center"))
            answer = co_await askCenter(context);
        else if (isWord(answer, L"Dynamic") || isWord(answer, L"Window"))
            answer = co_await askCorners(context);
        else if (isWord(answer, L"Extents"))
            showExtents(context);
        else if (isWord(answer, L"Previous"))
            showPrevious(context);
        else if (isWord(answer, L"Scale"))
            answer = co_await askScale(context);
        else if (isWord(answer, L"Object"))
            answer = co_await askObjects(context);
        else if (answer.status == RTKWORD && !showFactor(context, answer.text)) {
            context.editor().complain(L"Ponto, fator de escala ou opção inválida.",
                                      Complaint::Refused);
            continue;
        }
        co_return endOf(answer.status);
    }
}

}  // namespace prancheta::commands
