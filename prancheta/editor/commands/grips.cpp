// SPDX-License-Identifier: MIT
// GRIPS: stretches, moves, turns, scales or mirrors by the grips that were taken hold of.
#include <algorithm>
#include <cmath>

#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"

namespace prancheta::commands {

namespace {

constexpr Word kGripsWords[] = {
    {L"Base", L"Base"}, {L"Copiar", L"Copy"}, {L"Desfazer", L"Undo"}, {L"Sair", L"eXit"}};

AcGeMatrix3d moved(const AcGePoint3d& base, const InputValue& to) {
    return AcGeMatrix3d::translation(to.point - base);
}
AcGeMatrix3d turned(const AcGePoint3d& base, const InputValue& to) {
    return AcGeMatrix3d::rotation(to.number, AcGeVector3d::kZAxis, base);
}
AcGeMatrix3d scaled(const AcGePoint3d& base, const InputValue& to) {
    return to.number > 0.0 ? AcGeMatrix3d::scaling(to.number, base) : AcGeMatrix3d::kIdentity;
}
AcGeMatrix3d mirrored(const AcGePoint3d& base, const InputValue& to) {
    const AcGeVector3d across(base.y - to.point.y, to.point.x - base.x, 0.0);
    if (across.isZeroLength()) return AcGeMatrix3d::kIdentity;
    return AcGeMatrix3d::mirroring(base, across.normal());
}

/// What Enter goes through. Stretching has no matrix: each entity knows what its grips do.
struct Mode {
    const wchar_t* prompt;
    InputKind kind;
    int bits;
    AcGeMatrix3d (*matrix)(const AcGePoint3d& base, const InputValue& to);
};
constexpr Mode kModes[] = {
    {L"\n** ESTICAR **\nEspecifique o ponto de estiramento", InputKind::Point, 0, nullptr},
    {L"\n** MOVER **\nEspecifique o ponto de destino", InputKind::Point, 0, moved},
    {L"\n** ROTACIONAR **\nEspecifique o ângulo de rotação", InputKind::Angle, 0, turned},
    {L"\n** ESCALA **\nEspecifique o fator de escala", InputKind::Distance, RSG_NOZERO | RSG_NONEG,
     scaled},
    {L"\n** ESPELHAR **\nEspecifique o segundo ponto", InputKind::Point, 0, mirrored},
};

/// The grips of one entity that move together.
struct Pulled {
    AcDbObjectId entity;
    AcDbIntArray indices;
};

std::vector<Pulled> byEntity(const std::vector<Grip>& grips) {
    std::vector<Pulled> all;
    for (const Grip& grip : grips) {
        auto at = std::find_if(all.begin(), all.end(),
                               [&](const Pulled& p) { return p.entity == grip.entity; });
        if (at == all.end()) at = all.insert(at, {grip.entity, {}});
        at->indices.append(grip.index);
    }
    return all;
}

/// The grips are hot as long as the command runs.
class HotGrips {
public:
    explicit HotGrips(Editor& editor) : m_editor(editor) {}
    ~HotGrips() { m_editor.selection().coolAll(); }
    HotGrips(const HotGrips&) = delete;
    HotGrips& operator=(const HotGrips&) = delete;

private:
    Editor& m_editor;
};

void dropLocked(const CommandContext& context, Ids& ids) {
    const std::size_t locked = std::erase_if(ids, onLockedLayer);
    if (locked > 0)
        say(context, counted(locked, L"estava em uma camada bloqueada.",
                             L"estavam em uma camada bloqueada."));
}

Ids entitiesOf(const std::vector<Pulled>& pulled) {
    Ids ids;
    for (const Pulled& each : pulled) ids.push_back(each.entity);
    return ids;
}

/// The copies of `pulled`, or they themselves, in the same order.
Change pulling(const std::vector<Pulled>& pulled, const AcGeVector3d& by) {
    return [pulled, by](AcDbEntity& entity, std::size_t place) {
        return entity.moveGripPointsAt(pulled[place].indices, by);
    };
}

/// Returns those that refused, after saying how many.
Ids stretch(const CommandContext& context, const std::vector<Pulled>& pulled, const Ids& targets,
            const AcGeVector3d& by) {
    Ids refused;
    for (const std::size_t place : changeEach(targets, pulling(pulled, by)))
        refused.push_back(targets[place]);
    tellNotStretched(context, refused.size());
    return refused;
}

/// What the pointer would answer to the mode's question.
InputValue answerAt(const AcGePoint3d& base, const Mode& mode, const AcGePoint3d& pointer,
                    double turn) {
    InputValue value;
    value.point = pointer;
    value.number = mode.kind == InputKind::Angle ? directionOf(base, pointer) - turn
                                                 : base.distanceTo(pointer);
    return value;
}

Prompt question(const CommandContext& context, const Mode& mode, const AcGePoint3d& base,
                const std::vector<Pulled>& pulled, const Ids& selection) {
    Prompt prompt(mode.kind, std::wstring(mode.prompt) + L" ou [Base/Copiar/Desfazer/Sair]: ");
    prompt.from(base).words(kGripsWords).bits(mode.bits);
    if (mode.matrix == nullptr)
        prompt.preview([pulled, base](const AcGePoint3d& to, Picture& out) {
            showEach(entitiesOf(pulled), pulling(pulled, to - base), out);
        });
    else
        prompt.changing(selection, [&mode, base, turn = userTurn(context)](const AcGePoint3d& to) {
            return mode.matrix(base, answerAt(base, mode, to, turn));
        });
    return prompt;
}

/// Copies that were made, empty when the entities themselves were changed. What cannot be copied so
/// goes out of the selection.
Ids apply(const CommandContext& context, const Mode& mode, const AcGePoint3d& base,
          const InputValue& answer, const std::vector<Pulled>& pulled, Ids& selection,
          bool copying) {
    if (mode.matrix != nullptr) {
        if (copying) return copyAll(context, selection, mode.matrix(base, answer));
        transformAll(context, selection, mode.matrix(base, answer));
        return {};
    }
    const Ids originals = entitiesOf(pulled);
    Ids copies = copying ? cloneAll(context, originals) : Ids();
    if (copying && copies.size() != originals.size()) return copies;
    const Ids refused = stretch(context, pulled, copying ? copies : originals, answer.point - base);
    if (copying && !refused.empty()) {
        (void)eraseAll(context, refused);
        std::erase_if(copies, [](const AcDbObjectId& id) { return id.isErased(); });
    }
    return copies;
}

/// Without grips taken by hand: those of the selection nearest to a point.
Task<InputValue> askGrip(CommandContext context, Ids selection) {
    Editor& editor = context.editor();
    std::vector<Grip> all;
    for (const AcDbObjectId& id : selection) appendGrips(id, all);
    InputValue answer;
    if (all.empty()) {
        say(context, L"Selecione antes os objetos cujas alças quer usar.");
        answer.status = RTNONE;
        co_return answer;
    }
    Prompt prompt(InputKind::Point, L"\nEspecifique a alça: ");
    answer = co_await context.ask(prompt.required());
    if (answer.status != RTNORM) co_return answer;
    const auto nearest =
        std::min_element(all.begin(), all.end(), [&](const Grip& a, const Grip& b) {
            return a.at.distanceTo(answer.point) < b.at.distanceTo(answer.point);
        });
    const AcGePoint3d place = nearest->at;
    for (const Grip& grip : all)
        if (grip.at == place) editor.selection().heat(grip);
    co_return answer;
}

}  // namespace

CommandTask grips(CommandContext context) {
    Editor& editor = context.editor();
    const HotGrips hot(editor);
    Ids selection = editor.selection().ids();
    dropLocked(context, selection);
    if (editor.selection().hotGrips().empty()) {
        const InputValue taken = co_await askGrip(context, selection);
        if (taken.status != RTNORM) co_return endOf(taken.status);
    }
    std::vector<Grip> taken = editor.selection().hotGrips();
    std::erase_if(taken, [](const Grip& grip) { return onLockedLayer(grip.entity); });
    if (taken.empty()) co_return CommandEnd::Done;
    const std::vector<Pulled> pulled = byEntity(taken);
    AcGePoint3d base = taken.back().at;
    std::size_t mode = 0;
    bool copying = false;
    std::vector<Ids> made;
    for (;;) {
        editor.setLastPoint(base);
        const Prompt prompt = question(context, kModes[mode], base, pulled, selection);
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status == RTNONE) {
            mode = (mode + 1) % std::size(kModes);
        } else if (isWord(answer, L"Base")) {
            Prompt at(InputKind::Point, L"\nEspecifique o ponto base: ");
            const InputValue given = co_await context.ask(at.required());
            if (given.status != RTNORM) break;
            base = given.point;
        } else if (isWord(answer, L"Copy")) {
            copying = true;
        } else if (isWord(answer, L"Undo")) {
            if (made.empty()) {
                say(context, L"Nada a desfazer.");
                continue;
            }
            (void)eraseAll(context, made.back());
            made.pop_back();
        } else if (answer.status == RTNORM) {
            Ids copies = apply(context, kModes[mode], base, answer, pulled, selection, copying);
            if (!copying) co_return CommandEnd::Done;
            made.push_back(std::move(copies));
        } else {
            break;  // Esc or the word for it: copies that were made stay
        }
    }
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
