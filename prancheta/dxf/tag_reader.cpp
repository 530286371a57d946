// SPDX-License-Identifier: MIT
// Line splitting by memchr and grouping into records.
#include "prancheta/dxf/tag_reader.h"

#include <cstring>

#include "prancheta/base/text.h"

namespace prancheta::dxf {
namespace {

/// Group code of a line: up to four digits between blanks. -1 when it is none.
int codeOf(std::string_view line) {
    std::size_t at = 0;
    while (at < line.size() && (line[at] == ' ' || line[at] == '\t')) ++at;
    const std::size_t first = at;
    int code = 0;
    while (at < line.size() && line[at] >= '0' && line[at] <= '9' && at - first < 4)
        code = code * 10 + (line[at++] - '0');
    if (at == first) return -1;
    while (at < line.size() && (line[at] == ' ' || line[at] == '\t')) ++at;
    return at == line.size() ? code : -1;
}

}  // namespace

TagReader::TagReader(std::string_view text) : m_at(text.data()), m_end(text.data() + text.size()) {
    if (text.substr(0, 3) == "\xEF\xBB\xBF") m_at += 3;
    m_recordAt = m_at;
}

void TagReader::fail(const char* at, std::string text) {
    m_fault = Fault{std::move(text), at};
    m_at = m_end;
    m_hasPending = false;
}

bool TagReader::line(std::string_view& out) {
    if (m_at == m_end) return false;
    const auto left = static_cast<std::size_t>(m_end - m_at);
    const char* end = static_cast<const char*>(std::memchr(m_at, '\n', left));
    const char* const next = end == nullptr ? m_end : end + 1;
    if (end == nullptr) end = m_end;
    if (end != m_at && end[-1] == '\r') --end;
    out = {m_at, static_cast<std::size_t>(end - m_at)};
    m_at = next;
    return true;
}

bool TagReader::next(Tag& tag) {
    if (m_hasPending) {
        tag = m_pending;
        m_hasPending = false;
        return true;
    }
    for (;;) {
        std::string_view code;
        if (!line(code)) return false;
        tag.code = codeOf(code);
        if (tag.code < 0) {
            // Blank lines after the last group are no damage.
            if (m_at == m_end && trim(code).empty()) return false;
            fail(code.data(), "código de grupo inválido: \"" +
                                  toUtf8(toWide(std::string(code.substr(0, 40)))) + "\"");
            return false;
        }
        if (!line(tag.value)) {
            fail(nullptr, "o arquivo termina no meio de um grupo");
            return false;
        }
        if (tag.code == 0) m_recordAt = code.data();
        if (tag.code != 999) return true;
    }
}

bool TagReader::next(Record& record) {
    Tag tag;
    record.tags.clear();
    if (!next(tag)) return false;
    if (tag.code != 0) {
        fail(tag.value.data(), "esperado o código 0, encontrado " + std::to_string(tag.code));
        return false;
    }
    record.type = trim(tag.value);
    record.at = tag.value.data();
    if (record.type == "EOF") {
        // What may stand behind it, Ctrl-Z or blank lines, belongs to no record.
        m_recordAt = m_at;
        return true;
    }
    while (next(tag)) {
        if (tag.code == 0) {
            m_pending = tag;
            m_hasPending = true;
            return true;
        }
        record.tags.push_back(tag);
    }
    m_recordAt = m_at;
    return !m_fault;
}

bool TagReader::skip(std::string_view& type) {
    Tag tag;
    if (!next(tag)) return false;
    type = trim(tag.value);
    while (next(tag)) {
        if (tag.code != 0) continue;
        m_pending = tag;
        m_hasPending = true;
        return true;
    }
    m_recordAt = m_at;
    return !m_fault;
}

}  // namespace prancheta::dxf
