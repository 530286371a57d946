// SPDX-License-Identifier: MIT
// LEADER: an arrow with a line to a note.
#include <cmath>

#include "dblead.h"
#include "dbmtext.h"
#include "dbsymtb.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/texts.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kLeaderWords[] = {
    {L"Anotação", L"Annotation"}, {L"Desfazer", L"Undo"}, {L"Curva", L"Spline"}};
/// A last segment steeper than this gets a hook line.
constexpr double kSteep = 15.0 * 3.14159265358979323846 / 180.0;

struct Draft {
    std::vector<AcGePoint3d> points;
    bool splined = false;
};

/// True when the note stands to the right of the last point.
bool toTheRight(const Draft& draft) {
    const AcGeVector3d last = draft.points.back() - draft.points[draft.points.size() - 2];
    return last.x >= -1e-9;
}

bool isSteep(const Draft& draft) {
    const AcGeVector3d last = draft.points.back() - draft.points[draft.points.size() - 2];
    return std::abs(std::atan2(last.y, std::abs(last.x))) > kSteep;
}

std::unique_ptr<AcDbLeader> makeLeader(const CommandContext& context, const Draft& draft) {
    auto leader = std::make_unique<AcDbLeader>();
    for (const AcGePoint3d& p : draft.points) (void)leader->appendVertex(p);
    (void)leader->setSplined(draft.splined);
    (void)leader->setDimensionStyle(context.database().dimstyle());
    (void)leader->setDimscale(annotationScale(context));
    return leader;
}

AcDbDimStyleValues styleOf(const CommandContext& context) {
    AcDbDimStyleValues values;
    const AcDbObjectPointer<AcDbDimStyleTableRecord> style(context.database().dimstyle(),
                                                           AcDb::kForRead);
    if (style.openStatus() == Acad::eOk) values = style->values();
    values.dimscale = context.database().dimscale();
    if (!(values.dimscale > 0.0)) values.dimscale = 1.0;
    return values;
}

/// Where the note begins, beside the last point or the hook line.
std::unique_ptr<AcDbMText> makeNote(const CommandContext& context, const Draft& draft,
                                    const std::wstring& contents) {
    const AcDbDimStyleValues style = styleOf(context);
    const double side = toTheRight(draft) ? 1.0 : -1.0;
    const double away = std::abs(style.dimgap) + (isSteep(draft) ? style.dimasz : 0.0);
    auto note = std::make_unique<AcDbMText>();
    (void)note->setLocation(draft.points.back() +
                            AcGeVector3d::kXAxis * (side * away * style.dimscale));
    (void)note->setTextHeight(style.dimtxt * style.dimscale);
    (void)note->setAttachment(side > 0.0 ? AcDbMText::kMiddleLeft : AcDbMText::kMiddleRight);
    (void)note->setTextStyle(context.database().textstyle());
    (void)note->setContents(contents.c_str());
    return note;
}

Task<int> askPoints(CommandContext context, Draft* draft) {
    while (true) {
        const bool may = draft->points.size() > 1;
        Prompt prompt(InputKind::Point,
                      may ? L"\nPróximo ponto ou [Anotação/Curva/Desfazer] <Anotação>: "
                          : L"\nPróximo ponto: ");
        prompt.from(draft->points.back());
        if (may)
            prompt.words(kLeaderWords);
        else
            prompt.required();
        prompt.showing(context, [context, draft](const AcGePoint3d& at) {
            Draft trial = *draft;
            trial.points.push_back(at);
            return makeLeader(context, trial);
        });
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status == RTNORM) {
            if (answer.point.isEqualTo(draft->points.back()))
                context.editor().complain(L"O ponto é igual ao anterior: indique outro.",
                                          Complaint::Refused);
            else
                draft->points.push_back(answer.point);
        } else if (isWord(answer, L"Undo")) {
            draft->points.pop_back();
        } else if (isWord(answer, L"Spline")) {
            draft->splined = !draft->splined;
            say(context, draft->splined ? L"A diretriz é uma curva." : L"A diretriz é reta.");
        } else {
            co_return answer.status == RTCAN ? RTCAN : RTNORM;
        }
    }
}

/// Adds the leader, and its note if it has one.
CommandEnd addBoth(const CommandContext& context, const Draft& draft,
                   const std::wstring& contents) {
    std::unique_ptr<AcDbLeader> made = makeLeader(context, draft);
    if (isSteep(draft) && !contents.empty())
        (void)made->setHook(toTheRight(draft) ? AcDbLeader::Hook::Along
                                              : AcDbLeader::Hook::Against);
    const AcDbObjectId id = addEntity(context, std::move(made));
    if (id.isNull()) return CommandEnd::Failed;
    if (contents.empty()) return CommandEnd::Done;
    const AcDbObjectId note = addEntity(context, makeNote(context, draft, contents));
    const AcDbObjectPointer<AcDbLeader> leader(id, AcDb::kForWrite);
    if (note.isNull() || leader.openStatus() != Acad::eOk) return CommandEnd::Failed;
    return leader->attachAnnotation(note) == Acad::eOk ? CommandEnd::Done : CommandEnd::Failed;
}

}  // namespace

CommandTask leader(CommandContext context) {
    const InputValue tip =
        co_await context.ask(Prompt(InputKind::Point, L"\nPonta da seta: ").required());
    if (tip.status != RTNORM) co_return endOf(tip.status);
    Draft draft;
    draft.points.push_back(tip.point);
    if (co_await askPoints(context, &draft) != RTNORM) co_return CommandEnd::Cancelled;
    const std::unique_ptr<AcDbMText> place = makeNote(context, draft, L"");
    TextFrame frame;
    frame.corner = place->location() + AcGeVector3d::kYAxis * (place->textHeight() / 2.0);
    frame.height = place->textHeight();
    frame.lines = true;
    const TypedLines typed = co_await askTextLines(context, L"\nTexto da anotação: ", &frame);
    const CommandEnd end = addBoth(context, draft, joinParagraphs(typed.lines));
    co_return typed.status == RTCAN ? CommandEnd::Cancelled : end;
}

}  // namespace prancheta::commands
