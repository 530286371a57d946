// SPDX-License-Identifier: MIT
// Groups out of their places.
#include "prancheta/dxf/damaged_groups.h"

#include <algorithm>

#include "prancheta/base/text.h"

namespace prancheta::dxf {
namespace {

constexpr int kMarker = 100;
constexpr int kFirstOfXdata = 1000;
constexpr int kApplication = 1001;
constexpr int kBracket = 1002;

bool isNameLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

void eraseMarked(DamagedRecord& record, const std::vector<bool>& gone) {
    std::size_t at = 0;
    std::erase_if(record.groups, [&](const DamagedGroup&) { return gone[at++]; });
    record.changed = true;
}

/// Brackets of one application's data, from `first` on, that have no other half.
void markLoneBrackets(const DamagedRecord& record, std::vector<bool>& gone) {
    std::vector<std::size_t> open;
    const auto leave = [&] {
        for (const std::size_t i : open) gone[i] = true;
        open.clear();
    };
    for (std::size_t i = 0; i < record.groups.size(); ++i) {
        const DamagedGroup& group = record.groups[i];
        if (group.code == kApplication) leave();
        if (group.code != kBracket || gone[i]) continue;
        const bool opens = trim(group.value) == "{";
        if (opens) {
            open.push_back(i);
        } else if (open.empty() || trim(group.value) != "}") {
            gone[i] = true;
        } else {
            open.pop_back();
        }
    }
    leave();
}

}  // namespace

void tidyExtendedData(DamagedRecord& record, const TellGroup& tell) {
    std::vector<bool> gone(record.groups.size(), false);
    bool named = false;
    bool begun = false;
    for (std::size_t i = 0; i < record.groups.size(); ++i) {
        const int code = record.groups[i].code;
        const bool extended = code >= kFirstOfXdata;
        if (code == kApplication) named = !trim(record.groups[i].value).empty();
        gone[i] = extended ? !named : begun;
        begun = begun || (extended && named);
    }
    markLoneBrackets(record, gone);
    const auto first = std::find(gone.begin(), gone.end(), true);
    if (first == gone.end()) return;
    tell(record.type + ": dados estendidos fora de ordem (" +
             std::to_string(std::count(gone.begin(), gone.end(), true)) +
             " grupos); foram deixados de fora",
         record.groups[static_cast<std::size_t>(first - gone.begin())].line);
    eraseMarked(record, gone);
}

void tidyMarkers(DamagedRecord& record, const TellGroup& tell) {
    static constexpr std::string_view kEntity = "AcDbEntity";
    for (DamagedGroup& group : record.groups) {
        const std::string_view name = trim(group.value);
        if (group.code != kMarker || std::all_of(name.begin(), name.end(), isNameLetter)) continue;
        std::size_t others = 0;
        for (std::size_t i = 0; i < std::min(name.size(), kEntity.size()); ++i)
            others += name[i] != kEntity[i] ? 1 : 0;
        const bool isEntity = name.size() == kEntity.size() && others <= 2;
        record.kept.push_back(std::string(isEntity ? kEntity : name));
        std::string& mended = record.kept.back();
        std::replace_if(
            mended.begin(), mended.end(), [](char c) { return !isNameLetter(c); }, '_');
        tell(record.type + ": marcador de classe danificado; foi lido como " + mended, group.line);
        group.value = mended;
        record.changed = true;
    }
}

void tidyApplicationGroups(DamagedRecord& record, const TellGroup& tell) {
    if (record.type == "XRECORD") return;  // any group may be a value there
    constexpr int kGroups = 102;
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::vector<bool> gone(record.groups.size(), false);
    std::size_t open = kNone;
    const auto leave = [&](std::size_t end) {
        for (std::size_t i = open; i < end; ++i) gone[i] = true;
    };
    for (std::size_t i = 0; i < record.groups.size(); ++i) {
        const DamagedGroup& group = record.groups[i];
        const bool ends = group.code == kMarker || group.code >= kFirstOfXdata;
        if (open != kNone && group.code != kGroups && ends) {
            leave(i);
            open = kNone;
        }
        if (group.code != kGroups) continue;
        const bool begins = trim(group.value).starts_with('{');
        if (begins && open != kNone) leave(i);
        if (!begins && open == kNone) gone[i] = true;
        open = begins ? i : kNone;
    }
    if (open != kNone) leave(record.groups.size());
    const auto first = std::find(gone.begin(), gone.end(), true);
    if (first == gone.end()) return;
    tell(record.type + ": grupos 102 que não fecham; foram deixados de fora",
         record.groups[static_cast<std::size_t>(first - gone.begin())].line);
    eraseMarked(record, gone);
}

void dropRepeatedVariables(DamagedRecord& record, std::set<std::string>& known,
                           const TellGroup& tell) {
    constexpr int kVariable = 9;
    std::vector<bool> gone(record.groups.size(), false);
    bool repeated = false;
    for (std::size_t i = 0; i < record.groups.size(); ++i) {
        const DamagedGroup& group = record.groups[i];
        if (group.code == kVariable) {
            repeated = !known.insert(std::string(trim(group.value))).second;
            if (repeated)
                tell("HEADER: a variável " + std::string(trim(group.value)) +
                         " aparece duas vezes; vale a primeira",
                     group.line);
        }
        gone[i] = repeated;
    }
    if (std::find(gone.begin(), gone.end(), true) != gone.end()) eraseMarked(record, gone);
}

}  // namespace prancheta::dxf
