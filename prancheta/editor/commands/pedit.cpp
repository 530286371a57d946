// SPDX-License-Identifier: MIT
// PEDIT: closes, opens, joins, widens polylines, and changes their vertices.
#include "prancheta/editor/commands/pedit.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/cut.h"
#include "prancheta/editor/commands/join_parts.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/wanted.h"

namespace prancheta::commands {

std::vector<PolylineVertex> verticesIn(AcDbObjectId polyline) {
    const AcDbObjectPointer<AcDbPolyline> opened(polyline, AcDb::kForRead);
    return opened.openStatus() == Acad::eOk ? verticesOf(*opened.object())
                                            : std::vector<PolylineVertex>();
}

bool putVertices(const CommandContext& context, AcDbObjectId polyline,
                 const std::vector<PolylineVertex>& vertices) {
    const AcDbObjectPointer<AcDbPolyline> opened(polyline, AcDb::kForWrite);
    if (opened.openStatus() == Acad::eOk) {
        setVertices(*opened.object(), vertices);
        return true;
    }
    say(context, L"A polilinha não pode ser mudada agora.");
    return false;
}

namespace {

constexpr Word kJoin = {L"Unir", L"Join"};
constexpr Word kPolylineWords[] = {
    {L"Largura", L"Width"},     {L"Editar", L"Edit"}, {L"aJustar", L"Fit"},  {L"Spline", L"Spline"},
    {L"Retificar", L"Decurve"}, {L"Gerar", L"Ltype"}, {L"Desfazer", L"Undo"}};

bool isPolyline(AcDbObjectId id) { return id.objectClass() == AcDbPolyline::desc(); }
bool mayBePolyline(AcDbObjectId id) { return isPolyline(id) || joinPartOf(id).has_value(); }

/// A line or an arc gives place to a polyline; null, after saying so, when that fails.
AcDbObjectId turnedInto(const CommandContext& context, const JoinPart& part) {
    const AcDbObjectId id = addEntity(context, polylineOf(part.curve, part.height));
    if (id.isNull()) return id;
    {
        const AcDbObjectPointer<AcDbEntity> from(part.id, AcDb::kForRead);
        const AcDbObjectPointer<AcDbEntity> to(id, AcDb::kForWrite);
        if (from.openStatus() == Acad::eOk) (void)to->setPropertiesFrom(from.object());
    }
    (void)eraseAll(context, {part.id});
    return id;
}

/// Null after Enter or Esc, or when the object is to stay what it is.
Task<AcDbObjectId> askPolylineToEdit(CommandContext context) {
    for (;;) {
        const InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, L"\nSelecione a polilinha: "));
        if (picked.status == RTCAN || picked.status == RTNONE) co_return AcDbObjectId();
        if (picked.entities.empty()) {
            refuse(context, L"Nenhum objeto aí.");
            continue;
        }
        const AcDbObjectId id =
            wantedAt(context.editor(), picked.entities.front(), picked.point, mayBePolyline);
        if (cutTarget(context, id) == std::nullopt) continue;
        if (isPolyline(id)) co_return id;
        const std::optional<JoinPart> part = joinPartOf(id);
        if (!part) {
            refuse(context, L"Só linhas e arcos podem ser transformados em polilinha.");
            continue;
        }
        const InputValue yes = co_await askYesNo(
            context, L"\nO objeto não é uma polilinha. Transformá-lo em uma?", Choice::Yes);
        if (yes.status == RTCAN || yes.number == 0.0) co_return AcDbObjectId();
        co_return turnedInto(context, *part);
    }
}

bool setClosed(const CommandContext& context, AcDbObjectId id, bool closed) {
    const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForWrite);
    if (polyline.openStatus() == Acad::eOk && polyline->setClosed(closed) == Acad::eOk) return true;
    say(context, L"A polilinha não pode ser mudada agora.");
    return false;
}

/// What touches its ends, and what touches that, goes into the polyline.
void joinTo(const CommandContext& context, AcDbObjectId id, const Ids& others) {
    std::vector<JoinPart> parts;
    if (std::optional<JoinPart> own = joinPartOf(id)) parts.push_back(std::move(*own));
    if (parts.empty()) return say(context, L"A polilinha fechada não tem ponta a unir.");
    for (const AcDbObjectId each : others) {
        if (each == id) continue;
        std::optional<JoinPart> part = joinPartOf(each);
        if (part && std::abs(part->height - parts.front().height) <= 1e-6)
            parts.push_back(std::move(*part));
    }
    std::vector<Curve> curves;
    for (const JoinPart& part : parts) curves.push_back(part.curve);
    const std::vector<EndChain> chains = endChains(curves, nearOf(parts));
    const auto holdsIt = [](const EndChain& chain) {
        return std::any_of(chain.links.begin(), chain.links.end(),
                           [](const EndChain::Link& link) { return link.curve == 0; });
    };
    const auto chain = std::find_if(chains.begin(), chains.end(), holdsIt);
    if (chain == chains.end() || chain->links.size() < 2)
        return say(context, L"Nenhuma ponta toca a polilinha: nada foi unido.");
    const auto joined = joinedPolyline(parts, curves, *chain, parts.front().height);
    {
        const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForWrite);
        if (polyline.openStatus() != Acad::eOk)
            return say(context, L"A polilinha não pode ser mudada agora.");
        (void)polyline->setNormal(joined->normal());
        (void)polyline->setElevation(joined->elevation());
        setVertices(*polyline.object(), verticesOf(*joined));
        (void)polyline->setClosed(chain->closed);
    }
    Ids gone;
    for (const EndChain::Link& link : chain->links)
        if (link.curve != 0) gone.push_back(parts[link.curve].id);
    (void)eraseAll(context, gone);
    say(context,
        counted(gone.size(), L"objeto unido à polilinha.", L"objetos unidos à polilinha."));
}

Task<int> askWidth(CommandContext context, AcDbObjectId id) {
    const InputValue width =
        co_await context.ask(Prompt(InputKind::Distance, L"\nNova largura de todos os segmentos: ")
                                 .required()
                                 .bits(RSG_NONEG));
    if (width.status != RTNORM) co_return RTCAN;
    std::vector<PolylineVertex> vertices = verticesIn(id);
    for (PolylineVertex& vertex : vertices) vertex.startWidth = vertex.endWidth = width.number;
    (void)putVertices(context, id, vertices);
    co_return RTNORM;
}

void straightenAll(const CommandContext& context, AcDbObjectId id) {
    std::vector<PolylineVertex> vertices = verticesIn(id);
    for (PolylineVertex& vertex : vertices) vertex.bulge = 0.0;
    (void)putVertices(context, id, vertices);
}

void turnLinetype(const CommandContext& context, AcDbObjectId id) {
    const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForWrite);
    if (polyline.openStatus() != Acad::eOk) return;
    (void)polyline->setPlinegen(!polyline->hasPlinegen());
    say(context, polyline->hasPlinegen() ? L"O tipo de linha corre por toda a polilinha."
                                         : L"O tipo de linha recomeça em cada vértice.");
}

Task<int> takeOption(CommandContext context, AcDbObjectId id, std::wstring word) {
    if (word == L"Close" || word == L"Open") (void)setClosed(context, id, word == L"Close");
    if (word == L"Join") {
        SelectOptions options;
        options.usePickfirst = false;
        const Selection chosen = co_await selectObjects(context, options);
        if (chosen.status == RTCAN) co_return RTCAN;
        joinTo(context, id, chosen.ids);
    }
    if (word == L"Width") co_return co_await askWidth(context, id);
    if (word == L"Edit") co_return co_await editVertices(context, id);
    if (word == L"Fit" || word == L"Spline")
        refuse(context,
               L"Polilinhas ajustadas a curvas não são feitas aqui: use os arcos de POLILINHA.");
    if (word == L"Decurve") straightenAll(context, id);
    if (word == L"Ltype") turnLinetype(context, id);
    co_return RTNORM;
}

bool isClosed(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForRead);
    return polyline.openStatus() == Acad::eOk && polyline->isClosed();
}

Prompt polylinePrompt(AcDbObjectId id) {
    const Word close = isClosed(id) ? Word{L"Abrir", L"Open"} : Word{L"Fechar", L"Close"};
    Prompt prompt(InputKind::Keyword, std::wstring(L"\n[") + close.local +
                                          L"/Unir/Largura/Editar vértices/aJustar/Spline/Retificar/"
                                          L"Gerar tipo de linha/Desfazer]: ");
    prompt.words({&close, 1}).words({&kJoin, 1}).words(kPolylineWords);
    return prompt;
}

}  // namespace

CommandTask pedit(CommandContext context) {
    const Ids before = context.editor().selection().take();
    AcDbObjectId id;
    if (before.size() == 1 && isPolyline(before.front()) && canBeCut(before.front()))
        id = before.front();
    else
        id = co_await askPolylineToEdit(context);
    if (id.isNull()) co_return CommandEnd::Cancelled;
    UndoSteps steps(context.database().core().undo());
    for (;;) {
        const InputValue option = co_await context.ask(polylinePrompt(id));
        if (option.status != RTKWORD) break;  // Esc only ends it: what was changed stays
        if (option.text == L"Undo") {
            if (!steps.undo()) say(context, L"Nada a desfazer.");
            continue;
        }
        if (co_await takeOption(context, id, option.text) == RTCAN) break;
        steps.next();
    }
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
