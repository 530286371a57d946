// SPDX-License-Identifier: MIT
// Records of a damaged file.
#include "prancheta/dxf/damaged_records.h"

#include <algorithm>
#include <cstring>

#include "prancheta/base/text.h"

namespace prancheta::dxf {
namespace {

constexpr int kLargestCode = 1071;

/// -1 for a line that is no group code.
int groupCodeOf(std::string_view line) {
    line = trim(line);
    int code = 0;
    for (const char c : line) {
        if (c < '0' || c > '9' || code > kLargestCode) return -1;
        code = code * 10 + (c - '0');
    }
    return line.empty() || code > kLargestCode ? -1 : code;
}

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }

bool mayBeType(std::string_view line) {
    line = trim(line);
    return !line.empty() && isLetter(line[0]);
}

/// What the type of a record looks like, where the groups before it made no sense.
bool isType(std::string_view line) {
    line = trim(line);
    return mayBeType(line) && std::all_of(line.begin(), line.end(), [](char c) {
               return isLetter(c) || (c >= '0' && c <= '9');
           });
}

}  // namespace

DamagedRecords::DamagedRecords(std::string_view text) : m_end(text.data() + text.size()) {
    m_at.at = text.data() + (text.starts_with("\xEF\xBB\xBF") ? 3 : 0);
}

bool DamagedRecords::read(Line& line) {
    if (m_at.at == m_end) return false;
    line.begin = m_at;
    const auto left = static_cast<std::size_t>(m_end - m_at.at);
    const char* end = static_cast<const char*>(std::memchr(m_at.at, '\n', left));
    m_at = {end == nullptr ? m_end : end + 1, m_at.line + 1};
    if (end == nullptr) end = m_end;
    if (end != line.begin.at && end[-1] == '\r') --end;
    line.text = {line.begin.at, static_cast<std::size_t>(end - line.begin.at)};
    return true;
}

/// At the next record from there on; false at the end of the text.
bool DamagedRecords::takeHold(Place from) {
    m_at = from;
    Line before;
    if (!read(before)) return false;
    for (Line line; read(line); before = line) {
        if (groupCodeOf(before.text) != 0 || !isType(line.text)) continue;
        m_at = before.begin;
        return true;
    }
    return false;
}

bool DamagedRecords::next(DamagedRecord& record) {
    record = {};
    Place from = m_at;
    for (;;) {
        const Place here = m_at;
        Line code;
        Line value;
        if (!read(code)) break;
        const int number = groupCodeOf(code.text);
        const bool whole = number >= 0 && read(value);
        if (whole && number == 999) continue;
        const bool begins = whole && number == 0 && mayBeType(value.text);
        if (begins && !record.type.empty()) {
            m_at = here;
            record.text = {from.at, static_cast<std::size_t>(here.at - from.at)};
            return true;
        }
        if (begins) {
            from = here;
            record.type = trim(value.text);
            record.line = value.begin.line;
        } else if (whole && number != 0 && !record.type.empty()) {
            record.groups.push_back({number, value.text, value.begin.line});
        } else if (isBlank(code.begin)) {
            m_at.at = m_end;
            break;
        } else if (!passGarbage(record, code.begin, number >= 0 && !whole)) {
            break;
        } else if (!record.type.empty()) {
            return true;
        }
    }
    record.last = true;
    record.text = {from.at, static_cast<std::size_t>(m_end - from.at)};
    return !record.type.empty();
}

bool DamagedRecords::isBlank(Place from) const {
    return trim(std::string_view(from.at, static_cast<std::size_t>(m_end - from.at))).empty();
}

/// False when nothing comes behind it.
bool DamagedRecords::passGarbage(DamagedRecord& record, Place at, bool ends) {
    record.broken = ends ? "o arquivo termina no meio de um grupo" : "código de grupo inválido";
    record.brokenAt = at.line;
    if (record.groups.empty()) return takeHold(at);
    // The value read last may be the 0 of the next record.
    const DamagedGroup last = record.groups.back();
    if (!takeHold({last.value.data(), last.line})) return false;
    if (m_at.at == last.value.data()) record.groups.pop_back();
    return true;
}

}  // namespace prancheta::dxf
