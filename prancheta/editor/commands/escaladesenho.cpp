// SPDX-License-Identifier: MIT
// ESCALADESENHO: the one scale by which dimensions, marks, texts, tables, hatches and linetypes are
// sized; what stands is laid out for it again when the user wants that.
#include <algorithm>
#include <cmath>

#include "dbdim.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbmtext.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/annotations.h"
#include "prancheta/display/appearance.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/hatch_patterns.h"
#include "prancheta/entities/weld_symbol.h"
#include "protocol/attach.h"
#include "protocol/report.h"
#include "protocol/scale.h"

namespace prancheta::commands {

namespace {

struct Rescaling {
    double from;
    double to;
    double factor() const { return to / from; }
    bool isFormer(double scale) const { return std::abs(scale - from) <= 1e-9 * from; }
};

/// The note keeps its distance from the leader's end on paper; the end stays.
void resizeNote(AcDbObjectId note, const AcGePoint3d& end, double factor) {
    const AcDbObjectPointer<AcDbMText> text(note, AcDb::kForWrite);
    if (text.openStatus() == Acad::eOk)
        (void)text->transformBy(AcGeMatrix3d::scaling(factor, end));  // which a text takes
}

/// What became of what stood.
struct Outcome {
    int changed = 0;
    int locked = 0;  ///< would have changed, but for its layer
};

/// What is drawn by the host itself and was sized by the former scale.
bool isSizedBy(const AcDbEntity& entity, const Rescaling& by) {
    if (const auto* const leader = AcDbLeader::cast(&entity))
        return by.isFormer(leader->ownDimscale());
    if (const auto* const dimension = AcDbDimension::cast(&entity))
        return by.isFormer(dimension->dimscale());
    if (const auto* const weld = WeldSymbol::cast(&entity)) return by.isFormer(weld->scale());
    const auto* const hatch = AcDbHatch::cast(&entity);
    return hatch != nullptr && !hatch->isSolidFill() && !hatch->families().empty() &&
           by.factor() != 1.0;
}

bool rescaleLeader(AcDbObjectId id, const Rescaling& by) {
    AcGePoint3d end;
    AcDbObjectId note;
    {
        const AcDbObjectPointer<AcDbLeader> leader(id, AcDb::kForRead);
        end = leader->lastVertex();
        note = leader->annotationObjId();
    }
    // Its end follows the note when that closes, and is put back.
    if (!note.isNull() && !onLockedLayer(note)) resizeNote(note, end, by.factor());
    const AcDbObjectPointer<AcDbLeader> leader(id, AcDb::kForWrite);
    if (leader.openStatus() != Acad::eOk) return false;
    (void)leader->setVertexAt(leader->numVertices() - 1, end);
    return leader->setDimscale(by.to) == Acad::eOk;
}

bool rescale(AcDbObjectId id, const Rescaling& by) {
    if (id.objectClass()->isDerivedFrom(AcDbLeader::desc())) return rescaleLeader(id, by);
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk) return false;
    if (auto* const dimension = AcDbDimension::cast(entity.object()))
        return dimension->setDimscale(by.to) == Acad::eOk;
    if (auto* const weld = WeldSymbol::cast(entity.object()))
        return weld->setScale(by.to) == Acad::eOk;
    scalePattern(*AcDbHatch::cast(entity.object()), by.factor());
    return true;
}

void rescaleOwn(const Ids& ids, const Rescaling& by, Outcome& outcome) {
    for (const AcDbObjectId id : ids) {
        {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (entity.openStatus() != Acad::eOk || !isSizedBy(*entity.object(), by)) continue;
        }
        if (!onLockedLayer(id))
            outcome.changed += rescale(id, by) ? 1 : 0;
        else if (by.factor() != 1.0)
            ++outcome.locked;
    }
}

/// What modules drew, by the scale that the drawing has by now.
void layAgain(AcDbDatabase& database, const Ids& ids, Outcome& outcome) {
    for (const AcDbObjectId id : ids) {
        const protocol::ScaleFollower* follower = nullptr;
        if (const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            entity.openStatus() == Acad::eOk)
            follower = protocol::extensionOf<protocol::ScaleFollower>(
                *entity.object(), protocol::kScaleFollowerClass);
        if (follower != nullptr) outcome.changed += follower->layAgain(id, outcome.locked);
    }
    if (auto* const report = static_cast<protocol::DrawingReport*>(
            acrxSysRegistry()->at(protocol::kDrawingReportKey)))
        outcome.changed += report->drawTablesAgain(database);
}

/// " 4 objetos a acompanham; 1 objeto em camada bloqueada não."; empty for none.
std::wstring toldOf(const Outcome& outcome) {
    const auto of = [](int count, const wchar_t* one, const wchar_t* many) {
        return count > 0 ? counted(static_cast<std::size_t>(count), one, many) : std::wstring();
    };
    std::wstring told = of(outcome.changed, L"objeto a acompanha", L"objetos a acompanham");
    const std::wstring locked =
        of(outcome.locked, L"objeto em camada bloqueada não", L"objetos em camadas bloqueadas não");
    if (!told.empty() && !locked.empty()) told += L"; ";
    told += locked;
    if (outcome.changed == 0 && outcome.locked > 0)
        told += outcome.locked == 1 ? L" a acompanha" : L" a acompanham";
    return told.empty() ? told : L" " + told + L".";
}

std::size_t countSizedBy(const Ids& ids, const Rescaling& by) {
    return static_cast<std::size_t>(std::ranges::count_if(ids, [&](const AcDbObjectId id) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        return entity.openStatus() == Acad::eOk &&
               (isSizedBy(*entity.object(), by) || isMark(*entity.object()));
    }));
}

/// Of what was not to be updated; empty for none.
std::wstring toldLeft(std::size_t count, double former) {
    if (count == 0) return {};
    return L" " +
           counted(count, L"objeto continua com o tamanho de ",
                   L"objetos continuam com o tamanho de ") +
           paperScaleText(former) +
           L": para atualizar, volte a essa escala e mude outra vez com Sim.";
}

/// Drawing units per mm of paper; Enter keeps the present one.
Task<InputValue> askScale(CommandContext context, double present) {
    const Prompt prompt(InputKind::Text,
                        L"\nEscala do desenho 1: <" + numberTextWide(present) + L">: ");
    for (;;) {
        InputValue answer = co_await context.ask(prompt);
        if (answer.status == RTCAN) co_return answer;
        answer.number = present;
        if (answer.status == RTNONE || answer.text.empty()) co_return answer;
        if (const auto scale = readDrawingScale(answer.text)) {
            answer.number = *scale;
            co_return answer;
        }
        context.editor().complain(L"Requer uma escala como 20 ou 1:20, de 1000:1 a 1:100000.",
                                  Complaint::Refused);
    }
}

}  // namespace

CommandTask escaladesenho(CommandContext context) {
    AcDbDatabase& database = context.database();
    const double former = drawingScale(database);
    const InputValue scale = co_await askScale(context, former);
    if (scale.status == RTCAN) co_return CommandEnd::Cancelled;
    const Ids standing = database.core().modelSpace();
    bool updates = false;
    if (!standing.empty()) {
        const InputValue answer =
            co_await askYesNo(context, L"\nAtualizar o que já está desenhado?", Choice::Yes);
        if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
        updates = answer.number != 0.0;
    }
    setDrawingScale(database, scale.number);
    // No object tells that its dashes are others.
    context.editor().display().invalidate();
    context.editor().appearances().invalidate();
    std::wstring told = L"Escala do desenho: " + paperScaleText(scale.number) + L".";
    const Rescaling by{former, scale.number};
    if (updates) {
        Outcome outcome;
        layAgain(database, standing, outcome);
        rescaleOwn(standing, by, outcome);
        told += toldOf(outcome);
    } else if (by.factor() != 1.0) {
        told += toldLeft(countSizedBy(standing, by), former);
    }
    say(context, told);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
