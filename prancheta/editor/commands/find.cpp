// SPDX-License-Identifier: MIT
// FIND: finds words in texts, paragraphs, dimensions and attributes, and replaces them.
#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/texts.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/scene.h"
#include "prancheta/entities/paragraphs.h"

namespace prancheta::commands {

namespace {

/// What is looked for; `instead` is not there when nothing is replaced.
struct Search {
    std::wstring wanted;
    std::optional<std::wstring> instead;
};

/// The text with every place replaced, or nothing when there is none; `places` counts them. Codes
/// of paragraphs are no letters: they are neither found nor changed.
std::optional<std::wstring> replaced(const Words& words, const Search& search,
                                     std::size_t& places) {
    const std::wstring& text = words.text;
    std::vector<std::size_t> at;
    std::wstring shown = text;
    if (words.paragraphs) {
        at = letterPlaces(text);
        shown.clear();
        // A letter that needs its backslash is not found.
        for (const std::size_t i : at) shown += i > 0 && text[i - 1] == L'\\' ? L'\0' : text[i];
    }
    const std::wstring folded = foldCase(shown);
    const std::wstring wanted = foldCase(search.wanted);
    const auto placeOf = [&](std::size_t i) { return words.paragraphs ? at[i] : i; };
    std::wstring result;
    std::size_t copied = 0;
    std::size_t found = folded.find(wanted);
    if (found == std::wstring::npos) return std::nullopt;
    for (; found != std::wstring::npos; found = folded.find(wanted, found + wanted.size())) {
        ++places;
        result.append(text, copied, placeOf(found) - copied);
        const std::wstring instead = search.instead.value_or(L"");
        result += words.paragraphs ? withoutCodes(instead) : instead;
        // Codes between the letters stay.
        copied = placeOf(found) + 1;
        for (std::size_t i = found + 1; i < found + wanted.size(); ++i) {
            result.append(text, copied, placeOf(i) - copied);
            copied = placeOf(i) + 1;
        }
    }
    return result.append(text, copied);
}

struct Count {
    std::size_t places = 0;
    std::size_t locked = 0;
    Ids objects;
};

/// What one object says of it; replaces where that is asked for. False when it refuses.
bool searchOne(AcDbObjectId id, const Search& search, std::size_t& places) {
    std::vector<std::pair<std::size_t, std::wstring>> changes;
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) return true;
        const std::vector<Words> all = wordsOf(*entity);
        for (std::size_t i = 0; i < all.size(); ++i)
            if (std::optional<std::wstring> changed = replaced(all[i], search, places))
                changes.emplace_back(i, *std::move(changed));
    }
    if (changes.empty() || !search.instead) return true;
    if (onLockedLayer(id)) return false;
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk) return false;
    for (const auto& [place, text] : changes)
        if (setWords(*entity, place, text) != Acad::eOk) return false;
    return true;
}

Count searchAll(const Ids& ids, const Search& search) {
    Count count;
    for (const AcDbObjectId& id : ids) {
        std::size_t places = 0;
        if (!searchOne(id, search, places)) {
            ++count.locked;
        } else if (places > 0) {
            count.places += places;
            count.objects.push_back(id);
        }
    }
    return count;
}

/// A line for each text in which it is.
void listFound(const CommandContext& context, AcDbObjectId id, const Search& search) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return;
    for (const Words& words : wordsOf(*entity)) {
        std::size_t places = 0;
        if (!replaced(words, search, places)) continue;
        say(context, L"  " + (words.paragraphs ? plainParagraphs(words.text).front() : words.text));
    }
}

Task<InputValue> askText(CommandContext context, std::wstring question) {
    co_return co_await context.ask(Prompt(InputKind::Text, question).wholeLine());
}

}  // namespace

CommandTask find(CommandContext context) {
    Ids ids = context.editor().selection().take();
    if (ids.empty()) ids = entitiesOfSpace(context.editor());
    const InputValue wanted = co_await askText(context, L"\nTexto a localizar: ");
    if (wanted.status != RTNORM || wanted.text.empty()) co_return endOf(wanted.status);
    const InputValue instead =
        co_await askText(context, L"\nSubstituir por (\"\" apaga) <só localizar>: ");
    if (instead.status == RTCAN) co_return CommandEnd::Cancelled;
    Search search;
    search.wanted = wanted.text;
    if (instead.status == RTNORM && !instead.text.empty())
        search.instead = instead.text == L"\"\"" ? std::wstring() : instead.text;
    const Count count = searchAll(ids, search);
    if (count.locked > 0)
        say(context, counted(count.locked, L"objeto não pôde", L"objetos não puderam") +
                         L" ser alterado por estar em camada bloqueada ou em uso.");
    if (count.objects.empty() && count.locked == 0)
        say(context, L"\"" + search.wanted + L"\" não foi encontrado.");
    if (count.objects.empty()) co_return CommandEnd::Done;
    const std::wstring where =
        L" em " + counted(count.objects.size(), L"objeto", L"objetos") + L".";
    if (search.instead) {
        say(context,
            counted(count.places, L"ocorrência substituída", L"ocorrências substituídas") + where);
        co_return CommandEnd::Done;
    }
    say(context, counted(count.places, L"ocorrência", L"ocorrências") + where);
    for (const AcDbObjectId& id : count.objects) listFound(context, id, search);
    // What was found is selected: grips show where it stands.
    context.editor().selection().select(count.objects);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
