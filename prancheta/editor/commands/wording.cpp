// SPDX-License-Identifier: MIT
// Numbers, counts and name patterns in what built-in commands say and are told.
#include "acedads.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/listing.h"

namespace prancheta::commands {

std::wstring lengthText(double value) {
    ACHAR text[512];
    return acdbRToS(value, -1, -1, text) == RTNORM ? text : numberTextWide(value);
}

std::wstring toldLength(double value) { return withComma(lengthText(value)); }

std::wstring directionText(double angle) {
    ACHAR text[512];
    return acdbAngToS(angle, -1, -1, text) == RTNORM ? text : numberTextWide(angle);
}

std::wstring turnText(const CommandContext& context, double angle) {
    return directionText(context.editor().variables().real(L"ANGBASE") + angle);
}

std::wstring pointText(const AcGePoint3d& p) {
    return lengthText(p.x) + L", " + lengthText(p.y) + L", " + lengthText(p.z);
}

std::wstring counted(std::size_t count, std::wstring_view one, std::wstring_view many) {
    return std::to_wstring(count) + L" " + std::wstring(count == 1 ? one : many);
}

std::vector<std::wstring> splitList(std::wstring_view list) {
    std::vector<std::wstring> parts;
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(L','), list.size());
        const std::wstring_view part = trim(list.substr(0, comma));
        if (!part.empty()) parts.emplace_back(part);
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return parts;
}

}  // namespace prancheta::commands
