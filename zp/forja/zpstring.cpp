// SPDX-License-Identifier: MIT
// Wide text: numbers without a locale, cutting at separators.
#include "zp/forja/zpstring.h"

#include <cmath>
#include <cwchar>

#include "texts/number.h"
#include "zp/forja/zpstringlist.h"

ZpString::ZpString(const wchar_t* text) : m_text(text != nullptr ? text : L"") {}

ZpString::ZpString(int number) : m_text(std::to_wstring(number)) {}

ZpString::ZpString(double number) : m_text(texts::withPoint(number, 6)) {}

ZpString& ZpString::operator+=(const ZpString& other) {
    m_text += other.m_text;
    return *this;
}

double ZpString::toDouble() const {
    const double value = texts::toReal(m_text, texts::DecimalSign::kPoint);
    return std::isfinite(value) ? value : 0.0;
}

ZpStringList ZpString::Separate(const wchar_t* separator) const {
    ZpStringList parts;
    const std::size_t step = separator != nullptr ? std::wcslen(separator) : 0;
    std::size_t from = 0;
    while (step > 0) {
        const std::size_t to = m_text.find(separator, from);
        if (to == std::wstring::npos) break;
        parts.append(m_text.substr(from, to - from));
        from = to + step;
    }
    parts.append(m_text.substr(from));
    return parts;
}

void ZpString::CloseInChar(const wchar_t* set) {
    if (set == nullptr) return;
    const std::size_t where = m_text.find_first_of(set);
    if (where != std::wstring::npos) m_text.erase(where);
}
