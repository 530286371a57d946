// SPDX-License-Identifier: MIT
// What built-in commands share: questions, selections, transformations, new entities.
#include "prancheta/editor/commands/support.h"

#include <algorithm>
#include <cmath>

#include "dbsymtb.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/user_system.h"
#include "prancheta/editor/details.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/viewports.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

Prompt::Prompt(InputKind kind, std::wstring prompt) {
    m_request.kind = kind;
    m_request.prompt = std::move(prompt);
}

Prompt& Prompt::from(const AcGePoint3d& base) {
    m_request.base = base;
    return *this;
}

Prompt& Prompt::words(std::span<const Word> words) {
    std::vector<Keyword> keywords(m_request.keywords.begin(), m_request.keywords.end());
    for (const Word& word : words) keywords.push_back({word.local, word.global});
    m_request.keywords = std::move(keywords);
    return *this;
}

Prompt& Prompt::required() {
    m_request.nullAllowed = false;
    m_request.flags |= RSG_NONULL;
    return *this;
}

Prompt& Prompt::bits(int flags) {
    m_request.flags |= flags;
    return *this;
}

Prompt& Prompt::absolute() {
    m_request.absoluteAngle = true;
    return *this;
}

Prompt& Prompt::anywhere() {
    m_request.orthoAllowed = false;
    return *this;
}

Prompt& Prompt::wholeLine() {
    m_request.blanksAllowed = true;
    return *this;
}

Prompt& Prompt::moving(const Ids& ids) {
    m_request.moving = true;
    m_request.selection = ids;
    return *this;
}

Prompt& Prompt::turning(const Ids& ids) {
    m_request.rotating = true;
    m_request.selection = ids;
    return *this;
}

Prompt& Prompt::changing(const Ids& ids, std::function<AcGeMatrix3d(const AcGePoint3d&)> by) {
    m_request.transforming = std::move(by);
    m_request.selection = ids;
    return *this;
}

Prompt& Prompt::showing(const CommandContext& context,
                        std::function<std::unique_ptr<AcDbEntity>(const AcGePoint3d&)> make) {
    AcDbDatabase* const database = &context.database();
    return preview([database, make = std::move(make)](const AcGePoint3d& at, Picture& out) {
        const std::unique_ptr<AcDbEntity> entity = make(at);
        if (!entity) return;
        entity->setDatabaseDefaults(database);
        recordPicture(*entity, out, kAcGiStandardDisplay, true);
    });
}

Prompt& Prompt::inPlace(const TextFrame& frame) {
    m_request.inPlace = std::make_shared<const TextFrame>(frame);
    return *this;
}

Prompt& Prompt::preview(std::function<void(const AcGePoint3d&, Picture&)> draw) {
    m_request.preview = std::move(draw);
    return *this;
}
Prompt& Prompt::shiftPreview(std::function<void(const AcGePoint3d&, Picture&)> draw) {
    m_request.shiftPreview = std::move(draw);
    return *this;
}

Task<Selection> selectForChange(CommandContext context) { return selectObjects(context, {}); }

Task<Selection> selectToRead(CommandContext context) {
    SelectOptions options;
    options.dropLocked = false;
    return selectObjects(context, options);
}

Task<InputValue> askTwoPoints(CommandContext context, std::wstring first, std::wstring second) {
    const InputValue start = co_await context.ask(Prompt(InputKind::Point, first).required());
    if (start.status != RTNORM) co_return start;
    InputValue end =
        co_await context.ask(Prompt(InputKind::Point, second).from(start.point).required());
    end.number = start.point.distanceTo(end.point);
    co_return end;
}

Task<InputValue> askKept(CommandContext context, InputKind kind, std::wstring question, int bits,
                         double& kept) {
    const std::wstring offered = kind == InputKind::Integer ? std::to_wstring(std::lround(kept))
                                 : kind == InputKind::Angle ? turnText(context, kept)
                                                            : lengthText(kept);
    InputValue answer =
        co_await context.ask(Prompt(kind, L"\n" + question + L" <" + offered + L">: ").bits(bits));
    if (answer.status == RTNORM) kept = answer.number;
    if (answer.status == RTNONE) answer.status = RTNORM;
    co_return answer;
}

Task<InputValue> askYesNo(CommandContext context, std::wstring question, Choice byDefault) {
    static constexpr Word kSupportWords[] = {{L"Sim", L"Yes"}, {L"Não", L"No"}};
    const wchar_t* shown = byDefault == Choice::Yes ? L"Sim" : L"Não";
    InputValue answer =
        co_await context.ask(Prompt(InputKind::Keyword, question + L" [Sim/Não] <" + shown + L">: ")
                                 .words(kSupportWords));
    const bool yes = answer.status == RTNONE ? byDefault == Choice::Yes : isWord(answer, L"Yes");
    answer.number = yes ? 1.0 : 0.0;
    co_return answer;
}

void say(const CommandContext& context, std::wstring text) {
    text += L'\n';
    context.print(text);
}

std::vector<std::size_t> changeEach(const Ids& ids, const Change& change) {
    std::vector<std::size_t> refused;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenAcDbEntity(entity, ids[i], AcDb::kForWrite) != Acad::eOk) {
            refused.push_back(i);
        } else if (change(*entity, i) != Acad::eOk) {
            refused.push_back(i);
            (void)entity->cancel();  // the refusal is what is reported
        } else {
            (void)entity->close();
        }
    }
    return refused;
}

void showEach(const Ids& ids, const Change& change, Picture& out) {
    constexpr std::size_t kMostShown = 500;
    for (std::size_t i = 0; i < std::min(ids.size(), kMostShown); ++i) {
        const AcDbObjectPointer<AcDbEntity> original(ids[i], AcDb::kForRead);
        AcDbEntity* raw = nullptr;
        if (original.openStatus() != Acad::eOk ||
            original->getTransformedCopy(AcGeMatrix3d::kIdentity, raw) != Acad::eOk)
            continue;
        const std::unique_ptr<AcDbEntity> copy(raw);
        if (change(*copy, i) == Acad::eOk) recordPicture(*copy, out, kAcGiStandardDisplay, true);
    }
}

void tellNotStretched(const CommandContext& context, std::size_t count) {
    if (count > 0)
        say(context, counted(count, L"objeto não pôde ser esticado.",
                             L"objetos não puderam ser esticados."));
}

namespace {

/// What shows a region that is not mirrored with it only goes to the mirrored place.
AcGeMatrix3d withoutMirror(const AcDbBlockReference& detail, const AcGeMatrix3d& matrix) {
    return AcGeMatrix3d::translation(matrix * detail.position() - detail.position());
}

std::vector<std::size_t> transformEach(const CommandContext& context, const Ids& ids,
                                       const AcGeMatrix3d& matrix) {
    std::vector<Detail> details;
    if (matrix.det() < 0.0) details = detailsOf(context.database());
    return changeEach(ids, [&](AcDbEntity& entity, std::size_t) {
        const auto* const insertion = AcDbBlockReference::cast(&entity);
        const bool isDetail =
            insertion != nullptr && std::ranges::find(details, insertion->blockTableRecord(),
                                                      &Detail::block) != details.end();
        return entity.transformBy(isDetail ? withoutMirror(*insertion, matrix) : matrix);
    });
}

void takeOut(Ids& ids, const std::vector<std::size_t>& places) {
    for (const std::size_t place : places) ids[place] = AcDbObjectId::kNull;
    std::erase(ids, AcDbObjectId::kNull);
}

}  // namespace

void transformAll(const CommandContext& context, const Ids& ids, const AcGeMatrix3d& matrix) {
    const std::size_t failed = transformEach(context, ids, matrix).size();
    if (failed > 0)
        say(context, counted(failed, L"objeto não pôde ser transformado.",
                             L"objetos não puderam ser transformados."));
}

std::vector<std::size_t> transformCopies(const CommandContext& context, Ids& copies,
                                         const AcGeMatrix3d& matrix) {
    std::vector<std::size_t> refused = transformEach(context, copies, matrix);
    if (refused.empty()) return refused;
    Ids wrong;
    for (const std::size_t place : refused) wrong.push_back(copies[place]);
    (void)eraseAll(context, wrong);
    takeOut(copies, refused);
    say(context, counted(refused.size(), L"objeto não pôde ser transformado e não foi copiado.",
                         L"objetos não puderam ser transformados e não foram copiados."));
    return refused;
}

Ids copyAll(const CommandContext& context, Ids& ids, const AcGeMatrix3d& matrix) {
    Ids copies = cloneAll(context, ids);
    takeOut(ids, transformCopies(context, copies, matrix));  // copies stand as their originals
    return copies;
}

bool mayCopy(const CommandContext& context, double times, const Ids& ids) {
    constexpr double kMostCopies = 1e6;
    if (times * static_cast<double>(ids.size()) <= kMostCopies) return true;
    context.editor().complain(
        L"A matriz faria mais de 1.000.000 de cópias. Peça menos itens "
        L"ou selecione menos objetos.",
        Complaint::Refused);
    return false;
}

void transformOrCopy(const CommandContext& context, Ids ids, const AcGeMatrix3d& matrix,
                     Originals originals) {
    if (originals == Originals::Stay) {
        ids = withLabels(context.database(), std::move(ids));
        (void)copyAll(context, ids, matrix);
    } else {
        transformAll(context, ids, matrix);
    }
}

Ids cloneAll(const CommandContext& context, const Ids& ids) {
    AcDbObjectIdArray originals;
    for (const AcDbObjectId id : ids) originals.append(id);
    AcDbObjectIdArray copies;
    AcDbDatabase& database = context.database();
    if (database.deepCloneObjects(originals, database.currentSpaceId(), copies) != Acad::eOk) {
        say(context, L"Os objetos não puderam ser copiados.");
        return {};
    }
    for (int i = 0; i < copies.length(); ++i) {
        const AcDbViewport* const original = viewportOf(originals[i]);
        if (original != nullptr && original->isNonRectClipOn() &&
            !viewportOf(copies[i])->isNonRectClipOn())
            say(context, L"A cópia da janela ficou sem o contorno que a recorta.");
    }
    return Ids(copies.begin(), copies.end());
}

Ids eraseAll(const CommandContext& context, const Ids& ids) {
    Ids erased;
    for (const AcDbObjectId id : ids) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk && entity->erase() == Acad::eOk) erased.push_back(id);
    }
    if (erased.size() < ids.size())
        say(context, counted(ids.size() - erased.size(), L"objeto não pôde ser apagado.",
                             L"objetos não puderam ser apagados."));
    return erased;
}

double annotationScale(const CommandContext& context) {
    const Spaces& spaces = context.editor().spaces();
    if (spaces.drawsOnPaper()) return 1.0;
    const AcDbViewport* const through = viewportOf(spaces.viewport());
    return through != nullptr && !sizesAnnotations(*through) ? 1.0 / through->customScale()
                                                             : context.database().dimscale();
}

double userTurn(const CommandContext& context) { return turnOf(context.editor().ucs()); }

void keepLastAngle(const CommandContext& context, double direction) {
    context.editor().variables().force(L"LASTANGLE", positiveAngle(direction - userTurn(context)));
}

AcDbObjectId addEntity(const CommandContext& context, std::unique_ptr<AcDbEntity> entity) {
    AcDbDatabase& database = context.database();
    entity->setDatabaseDefaults(&database);
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    if (space.openStatus() != Acad::eOk || space->appendAcDbEntity(id, entity.get()) != Acad::eOk) {
        say(context, L"O objeto não pôde ser criado.");
        return AcDbObjectId::kNull;
    }
    (void)entity.release()->close();  // the database owns it now
    return id;
}

}  // namespace prancheta::commands
