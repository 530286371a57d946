// SPDX-License-Identifier: MIT
// ESCALADESENHO: the one scale by which dimensions, marks, texts, tables, hatches and linetypes are
// sized; what stands is laid out for it again when the user wants that.
#include <cmath>

#include "dbdim.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbmtext.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
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

bool rescaleLeader(AcDbObjectId id, const Rescaling& by) {
    AcGePoint3d end;
    AcDbObjectId note;
    {
        const AcDbObjectPointer<AcDbLeader> leader(id, AcDb::kForRead);
        if (leader.openStatus() != Acad::eOk || !by.isFormer(leader->ownDimscale())) return false;
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

bool rescale(AcDbEntity& entity, const Rescaling& by) {
    if (auto* const dimension = AcDbDimension::cast(&entity))
        return by.isFormer(dimension->dimscale()) && dimension->upgradeOpen() == Acad::eOk &&
               dimension->setDimscale(by.to) == Acad::eOk;
    if (auto* const weld = WeldSymbol::cast(&entity))
        return by.isFormer(weld->scale()) && weld->upgradeOpen() == Acad::eOk &&
               weld->setScale(by.to) == Acad::eOk;
    auto* const hatch = AcDbHatch::cast(&entity);
    if (hatch == nullptr || hatch->isSolidFill() || hatch->families().empty() ||
        by.factor() == 1.0 || hatch->upgradeOpen() != Acad::eOk)
        return false;
    scalePattern(*hatch, by.factor());
    return true;
}

/// What is drawn by the host itself and was sized by the former scale.
std::size_t rescaleOwn(const Ids& ids, const Rescaling& by) {
    std::size_t changed = 0;
    for (const AcDbObjectId id : ids) {
        const AcRxClass* const kind = id.objectClass();
        if (id.isErased() || kind == nullptr || onLockedLayer(id)) continue;
        if (kind->isDerivedFrom(AcDbLeader::desc())) {
            changed += rescaleLeader(id, by) ? 1 : 0;
            continue;
        }
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() == Acad::eOk) changed += rescale(*entity.object(), by) ? 1 : 0;
    }
    return changed;
}

/// What modules drew, by the scale that the drawing has by now.
std::size_t layAgain(AcDbDatabase& database, const Ids& ids) {
    int changed = 0;
    for (const AcDbObjectId id : ids) {
        const protocol::ScaleFollower* follower = nullptr;
        if (const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            entity.openStatus() == Acad::eOk)
            follower = protocol::extensionOf<protocol::ScaleFollower>(
                *entity.object(), protocol::kScaleFollowerClass);
        if (follower != nullptr) changed += follower->layAgain(id);
    }
    if (auto* const report = static_cast<protocol::DrawingReport*>(
            acrxSysRegistry()->at(protocol::kDrawingReportKey)))
        changed += report->drawTablesAgain(database);
    return static_cast<std::size_t>(changed);
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
    if (updates) {
        std::size_t changed = layAgain(database, standing);
        changed += rescaleOwn(standing, {former, scale.number});
        if (changed > 0)
            told += L" " + counted(changed, L"objeto a acompanha.", L"objetos a acompanham.");
    }
    say(context, told);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
