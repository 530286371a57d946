// SPDX-License-Identifier: MIT
// The prompt "Selecione objetos:".
#include "prancheta/editor/select.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "adscodes.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/scene.h"
#include "prancheta/entities/viewports.h"

namespace prancheta {
namespace {

using Ids = std::vector<AcDbObjectId>;

const Keywords& selectionWords() {
    static const Keywords kWords = {
        {L"Janela", L"Window"},      {L"Cruzando", L"Crossing"}, {L"uLtimo", L"Last"},
        {L"Prévio", L"Previous"},    {L"Tudo", L"ALL"},          {L"Adicionar", L"Add"},
        {L"Remover", L"Remove"},     {L"Desfazer", L"Undo"},     {L"JPolígono", L"WPolygon"},
        {L"CPolígono", L"CPolygon"}, {L"CErca", L"Fence"},       {L"CAixa", L"BOX"},
        {L"AUto", L"AUto"},          {L"SImples", L"SIngle"},    {L"Múltiplo", L"Multiple"},
        {L"Grupo", L"Group"},
    };
    return kWords;
}

Keywords wordsOf(const SelectOptions& options) {
    if (options.words.begin() == options.words.end()) return selectionWords();
    std::vector<Keyword> all(options.words.begin(), options.words.end());
    all.insert(all.end(), selectionWords().begin(), selectionWords().end());
    return all;
}

bool isAmong(const std::wstring& word, const Keywords& words) {
    return std::any_of(words.begin(), words.end(),
                       [&](const Keyword& known) { return known.global == word; });
}

struct IdHash {
    std::size_t operator()(const AcDbObjectId& id) const {
        return std::hash<Adesk::LongPtr>()(id.asOldId());
    }
};

/// Counts of one step, as they are told.
struct StepCount {
    std::size_t found = 0;
    std::size_t known = 0;
    std::size_t locked = 0;
};

struct Found {
    int status = RTNORM;
    Ids ids;
    std::vector<AcGePoint3d> crossing;  ///< corners of the frame that crosses them, world
};

/// Whether a step joins what was selected before it or takes its place.
enum class Adding { More, Instead };

/// What has been selected so far: every object once, in order, with the steps to take back. A step
/// and its way back cost what it changes, but for one that removes: O(all).
class Picked {
public:
    StepCount add(const Found& found, bool dropLocked, Adding adding = Adding::More) {
        const Ids& ids = found.ids;
        LayerStates layers;
        const auto there = [](const AcDbObjectId& id) { return id.isValid() && !id.isErased(); };
        const auto barred = [&](const AcDbObjectId& id) {
            return dropLocked && layers.of(id).locked;
        };
        const bool some = std::any_of(ids.begin(), ids.end(), [&](const AcDbObjectId& id) {
            return there(id) && !barred(id);
        });
        Step step{m_ids.size(), {}, found.crossing};
        if (adding == Adding::Instead && some) {
            for (const AcDbObjectId& id : m_ids) step.removed.push_back({0, id, m_crossed.at(id)});
            step.before = 0;
            m_ids.clear();
            m_crossed.clear();
        }
        m_steps.push_back(std::move(step));
        StepCount count;
        for (const AcDbObjectId& id : ids) {
            if (!there(id)) continue;
            ++count.found;
            if (barred(id)) {
                ++count.locked;
            } else if (m_crossed.emplace(id, !found.crossing.empty()).second) {
                m_ids.push_back(id);
            } else {
                ++count.known;
            }
        }
        return count;
    }
    StepCount remove(const Ids& ids) {
        Step step;
        StepCount count;
        count.found = ids.size();
        const std::unordered_set<AcDbObjectId, IdHash> gone(ids.begin(), ids.end());
        Ids kept;
        for (const AcDbObjectId& id : m_ids) {
            if (gone.contains(id)) {
                step.removed.push_back({kept.size(), id, m_crossed.at(id)});
                m_crossed.erase(id);
            } else {
                kept.push_back(id);
            }
        }
        m_ids = std::move(kept);
        step.before = m_ids.size();
        m_steps.push_back(std::move(step));
        return count;
    }
    bool undo() {
        if (m_steps.empty()) return false;
        const Step step = std::move(m_steps.back());
        m_steps.pop_back();
        for (; m_ids.size() > step.before; m_ids.pop_back()) m_crossed.erase(m_ids.back());
        if (!step.removed.empty()) putBack(step.removed);
        return true;
    }
    const Ids& ids() const { return m_ids; }
    bool holdsSome(const Ids& ids) const {
        return std::any_of(ids.begin(), ids.end(),
                           [&](const AcDbObjectId& id) { return m_crossed.contains(id); });
    }
    Selection selection() const {
        Selection all;
        all.status = m_ids.empty() ? RTNONE : RTNORM;
        all.ids = m_ids;
        for (const AcDbObjectId& id : m_ids)
            if (m_crossed.at(id)) all.crossed.push_back(id);
        for (const Step& step : m_steps)
            if (!step.crossing.empty()) all.crossing = step.crossing;
        return all;
    }
    bool first() const { return m_steps.size() <= 1; }

private:
    struct Removed {
        std::size_t place;  // among those that stayed
        AcDbObjectId id;
        bool crossed;
    };
    struct Step {
        std::size_t before = 0;  // so many of the first stay when it is taken back
        std::vector<Removed> removed;
        std::vector<AcGePoint3d> crossing;
    };

    void putBack(const std::vector<Removed>& removed) {
        Ids all;
        auto next = removed.begin();
        for (std::size_t i = 0; i <= m_ids.size(); ++i) {
            for (; next != removed.end() && next->place == i; ++next) {
                all.push_back(next->id);
                m_crossed.emplace(next->id, next->crossed);
            }
            if (i < m_ids.size()) all.push_back(m_ids[i]);
        }
        m_ids = std::move(all);
    }

    Ids m_ids;
    std::unordered_map<AcDbObjectId, bool, IdHash> m_crossed;  // whether a crossing frame found it
    std::vector<Step> m_steps;
};

std::wstring counted(std::size_t n, const wchar_t* one, const wchar_t* many) {
    return std::to_wstring(n) + (n == 1 ? one : many);
}

void tellLocked(const CommandContext& context, std::size_t count) {
    if (count > 0)
        context.print(counted(count, L" estava em uma camada bloqueada.\n",
                              L" estavam em uma camada bloqueada.\n"));
}

/// What "Tudo" left out: in sight, but locked.
std::size_t lockedInSpace(const Editor& editor) {
    LayerStates layers;
    const Ids all = entitiesOfSpace(editor);
    return static_cast<std::size_t>(std::count_if(all.begin(), all.end(), [&](AcDbObjectId id) {
        return layers.of(id).locked && !layers.of(id).frozen;
    }));
}

void tell(const CommandContext& context, const StepCount& count, const Picked& picked,
          bool removed) {
    std::wstring text =
        removed ? counted(count.found, L" encontrado, removido", L" encontrados, removidos")
                : counted(count.found, L" encontrado", L" encontrados");
    if (count.known > 0)
        text += counted(count.known, L" duplicado)", L" duplicados)").insert(0, L" (");
    if (!picked.first()) text += L", " + std::to_wstring(picked.ids().size()) + L" total";
    context.print(text + L"\n");
    tellLocked(context, count.locked);
}

InputRequest pointRequest(std::wstring prompt, InputKind kind = InputKind::Point) {
    InputRequest request;
    request.kind = kind;
    request.prompt = std::move(prompt);
    request.nullAllowed = false;
    request.orthoAllowed = false;
    request.snapModes = 0;
    return request;
}

enum class Frame { Window, Crossing, ByDirection };

/// Entities of a frame from `first` (asked when it is missing) to a corner.
Task<Found> askFrame(CommandContext context, Frame frame, std::optional<AcGePoint3d> first) {
    Found found;
    if (!first) {
        const InputValue corner =
            co_await context.ask(pointRequest(L"\nEspecifique o primeiro canto: "));
        found.status = corner.status;
        if (corner.status != RTNORM) co_return found;
        first = corner.point;
    }
    InputRequest request = pointRequest(L"\nEspecifique o canto oposto: ", InputKind::Corner);
    request.base = first;
    const InputValue opposite = co_await context.ask(request);
    found.status = opposite.status;
    if (opposite.status != RTNORM) co_return found;
    const AcGeMatrix3d toUser = context.editor().ucs().inverse();
    const bool leftwards = (toUser * opposite.point).x < (toUser * *first).x;
    const bool crossing = frame == Frame::Crossing || (frame == Frame::ByDirection && leftwards);
    if (crossing) found.crossing = cornersBetween(*first, opposite.point);
    found.ids = crossing ? entitiesCrossing(context.editor(), *first, opposite.point)
                         : entitiesInWindow(context.editor(), *first, opposite.point);
    co_return found;
}

/// Corners of a polygon or fence until Enter.
Task<Found> askPolygon(CommandContext context, std::wstring_view word) {
    Found found;
    std::vector<AcGePoint3d> points;
    const bool fence = word == L"Fence";
    for (;;) {
        InputRequest request =
            pointRequest(points.empty() ? L"\nEspecifique o primeiro ponto: "
                                        : L"\nEspecifique o próximo ponto ou [Desfazer]: ");
        request.nullAllowed = !points.empty();
        if (!points.empty()) {
            request.base = points.back();
            request.keywords = {{L"Desfazer", L"Undo"}};
        }
        const InputValue value = co_await context.ask(request);
        if (value.status == RTKWORD) {
            points.pop_back();
        } else if (value.status == RTNORM) {
            points.push_back(value.point);
        } else {
            found.status = value.status == RTCAN ? RTCAN : RTNORM;
            break;
        }
    }
    if (found.status == RTCAN) co_return found;
    found.ids = fence ? entitiesOnFence(context.editor(), points)
                      : entitiesInPolygon(context.editor(), points, word == L"CPolygon");
    if (word == L"CPolygon") found.crossing = points;
    co_return found;
}

/// What a point typed at the prompt selects: the entity there, else a frame that begins there.
Task<Found> askAtPoint(CommandContext context, AcGePoint3d point) {
    Found found;
    const AcDbObjectId hit = entityAt(context.editor(), point);
    if (!hit.isNull()) {
        found.ids.push_back(hit);
        co_return found;
    }
    if (context.database().core().variables().number(L"PICKAUTO") == 0) co_return found;
    co_return co_await askFrame(context, Frame::ByDirection, point);
}

Task<Found> askByWord(CommandContext context, std::wstring word) {
    Found found;
    Editor& editor = context.editor();
    if (word == L"Window") co_return co_await askFrame(context, Frame::Window, {});
    if (word == L"Crossing") co_return co_await askFrame(context, Frame::Crossing, {});
    if (word == L"BOX") co_return co_await askFrame(context, Frame::ByDirection, {});
    if (word == L"WPolygon" || word == L"CPolygon" || word == L"Fence")
        co_return co_await askPolygon(context, word);
    if (word == L"ALL") found.ids = allEntities(editor);
    if (word == L"Last") {
        const AcDbObjectId last = lastEntity(editor);
        if (!last.isNull()) found.ids.push_back(last);
    }
    if (word == L"Previous") {
        found.ids = editor.selection().previous();
        std::erase_if(found.ids, [](const AcDbObjectId& id) { return id.isErased(); });
        if (found.ids.empty()) context.print(L"Nenhum conjunto de seleção anterior.\n");
    }
    co_return found;
}

/// Words that change how the prompt goes on; true when `word` was one.
bool changesMode(const std::wstring& word, bool& removing, bool& single) {
    if (word == L"Add" || word == L"Remove") {
        removing = word == L"Remove";
    } else if (word == L"SIngle") {
        single = true;
    } else if (word != L"AUto" && word != L"Multiple") {
        return false;
    }
    return true;
}

bool picksReplace(const CommandContext& context) {
    return context.database().core().variables().number(L"PICKADD") == 0;
}

/// PICKADD 0: what is pointed at without Shift takes the place of what was selected. Programs and
/// scripts name their objects one after the other.
Adding addingOf(const CommandContext& context, const InputValue& answer, const Found& found) {
    const bool byHand = context.editor().runner().interactive() && !answer.removes;
    if (!picksReplace(context) || !byHand || found.ids.empty()) return Adding::More;
    for (const wchar_t* const word : {L"ALL", L"Last", L"Previous"})
        if (answer.status == RTKWORD && answer.text == word) return Adding::More;
    return Adding::Instead;
}

}  // namespace

Task<Selection> selectObjects(CommandContext context) {
    return selectObjects(context, SelectOptions());
}

Task<Selection> selectObjects(CommandContext context, SelectOptions options) {
    Selection selection;
    Picked picked;
    bool removing = false;
    bool single = options.single;
    Ids before;
    if (options.usePickfirst) before = context.editor().selection().take();
    if (!before.empty()) {
        Found known;
        known.ids = before;
        tell(context, picked.add(known, options.dropLocked), picked, false);
    }
    bool done = !picked.ids().empty();
    while (!done) {
        InputRequest request;
        request.kind = InputKind::Selection;
        request.prompt = removing ? L"\nRemova objetos: " : options.prompt;
        request.keywords = wordsOf(options);
        request.selection = picked.ids();
        request.blanksAllowed = true;
        const InputValue value = co_await context.ask(std::move(request));
        if (value.status == RTNONE) break;
        Found found;
        if (value.status == RTKWORD && isAmong(value.text, options.words)) {
            selection.word = value.text;
            if (!options.single) continue;
            selection.status = RTKWORD;
            co_return selection;
        }
        if (value.status == RTKWORD) {
            if (changesMode(value.text, removing, single)) continue;
            if (value.text == L"Undo") {
                if (!picked.undo()) context.print(L"Nada a desfazer na seleção.\n");
                continue;
            }
            if (value.text == L"Group") {
                context.print(L"Não há grupos no desenho.\n");
                continue;
            }
            found = co_await askByWord(context, value.text);
        } else if (value.status == RTNORM && !value.entities.empty()) {
            found.ids = value.entities;
            found.crossing = value.crossing;
        } else if (value.status == RTNORM) {
            found = co_await askAtPoint(context, value.point);
        } else {
            found.status = RTCAN;
        }
        if (found.ids.empty()) found.crossing.clear();
        if (found.status != RTNORM) {
            selection.status = RTCAN;
            co_return selection;
        }
        // Where every pick replaces, Shift is the way to add.
        const bool shiftAdds = picksReplace(context) && !picked.holdsSome(found.ids);
        const bool out = removing || (value.removes && !shiftAdds);
        tell(context,
             out ? picked.remove(found.ids)
                 : picked.add(found, options.dropLocked, addingOf(context, value, found)),
             picked, out);
        if (value.status == RTKWORD && value.text == L"ALL" && options.dropLocked && !out)
            tellLocked(context, lockedInSpace(context.editor()));
        done = single && !picked.ids().empty();
    }
    std::wstring word = std::move(selection.word);
    selection = picked.selection();
    selection.word = std::move(word);
    if (!options.single) selection.ids = withClips(std::move(selection.ids));
    if (selection.status == RTNORM) context.editor().selection().setPrevious(selection.ids);
    co_return selection;
}

}  // namespace prancheta
