// SPDX-License-Identifier: MIT
// DIMCONTINUE and DIMBASELINE: dimensions that go on from another one.
#include <cmath>

#include "prancheta/database/object_access.h"
#include "prancheta/editor/commands/dimensions.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/common.h"

namespace prancheta::commands {

namespace {

constexpr Word kDimchainWords[] = {{L"Selecionar", L"Select"}, {L"Desfazer", L"Undo"}};

enum class ChainKind { Series, Baseline };

/// The last linear dimension of the present space.
std::optional<LinearModel> lastModel(const CommandContext& context) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(context.database().currentSpaceId(),
                                                        AcDb::kForRead);
    if (space.openStatus() != Acad::eOk) return {};
    const Ids& all = ObjectAccess::entities(*space.object());
    for (auto id = all.rbegin(); id != all.rend(); ++id)
        if (!id->isErased())
            if (auto model = linearModel(*id)) return model;
    return {};
}

/// The next one: from the end of the model on its line, or from its beginning on a line farther
/// from what is measured.
LinearModel next(const LinearModel& model, ChainKind kind, const AcGePoint3d& to) {
    LinearModel made = model;
    made.second = to;
    if (kind == ChainKind::Series) {
        made.first = model.second;
        return made;
    }
    const AcGeVector3d along = directionInPlane(model.rotation, AcGeVector3d::kZAxis);
    AcGeVector3d across = AcGeVector3d::kZAxis.crossProduct(along);
    if ((model.line - model.first).dotProduct(across) < 0.0) across = -across;
    made.line = model.line + across * model.spacing;
    return made;
}

std::unique_ptr<AcDbEntity> drawn(const CommandContext& context, const LinearModel& made) {
    auto dimension = std::make_unique<AcDbRotatedDimension>(made.rotation, made.first, made.second,
                                                            made.line, nullptr, made.style);
    auto linear = dressed(context, std::move(dimension));
    // A chain looks as the dimension from which it goes on.
    if (linear->dimscale() != made.scale) (void)linear->setDimscale(made.scale);
    return linear;
}

/// RTNORM with a model, RTNONE for Enter, RTCAN.
Task<int> askModel(CommandContext context, ChainKind kind, std::optional<LinearModel>& model) {
    const std::wstring question = kind == ChainKind::Series ? L"\nSelecione a cota a continuar: "
                                                            : L"\nSelecione a cota de base: ";
    for (;;) {
        const InputValue picked = co_await context.ask(Prompt(InputKind::Entity, question));
        if (picked.status == RTCAN || picked.status == RTNONE) co_return picked.status;
        if (!picked.entities.empty()) {
            auto found = linearModel(picked.entities.front(), &picked.point);
            if (found) {
                // What is kept is the origin that others start from.
                if (kind == ChainKind::Baseline) std::swap(found->first, found->second);
                model = found;
                co_return RTNORM;
            }
        }
        context.editor().complain(L"Selecione uma cota linear ou alinhada.", Complaint::Refused);
    }
}

struct Step {
    AcDbObjectId made;
    LinearModel before;
};

CommandTask chain(CommandContext context, ChainKind kind) {
    std::optional<LinearModel> model = lastModel(context);
    std::vector<Step> steps;
    for (;;) {
        if (!model) {
            const int status = co_await askModel(context, kind, model);
            if (status != RTNORM) co_return endOf(status);
        }
        Prompt prompt(InputKind::Point,
                      L"\nOrigem da segunda linha de extensão ou [Selecionar/Desfazer] "
                      L"<Selecionar>: ");
        prompt.from(kind == ChainKind::Series ? model->second : model->first).words(kDimchainWords);
        prompt.showing(context, [context, kind, model](const AcGePoint3d& to) {
            return drawn(context, next(*model, kind, to));
        });
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status == RTCAN)
            co_return steps.empty() ? CommandEnd::Cancelled : CommandEnd::Done;
        if (isWord(answer, L"Undo")) {
            if (steps.empty()) {
                say(context, L"Não há o que desfazer.");
                continue;
            }
            (void)eraseAll(context, {steps.back().made});
            model = steps.back().before;
            steps.pop_back();
        } else if (answer.status == RTNORM) {
            const LinearModel made = next(*model, kind, answer.point);
            const AcDbObjectId id = addDimension(context, drawn(context, made));
            if (id.isNull()) co_return CommandEnd::Failed;
            steps.push_back({id, *model});
            model = made;
        } else {
            model.reset();
        }
    }
}

}  // namespace

CommandTask dimcontinue(CommandContext context) { return chain(context, ChainKind::Series); }
CommandTask dimbaseline(CommandContext context) { return chain(context, ChainKind::Baseline); }

}  // namespace prancheta::commands
