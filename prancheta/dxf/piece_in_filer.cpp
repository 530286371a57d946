// SPDX-License-Identifier: MIT
// Fields of a piece from its record.
#include "prancheta/dxf/piece_in_filer.h"

#include <cstdarg>
#include <cwchar>
#include <iterator>

#include "acutmem.h"
#include "prancheta/base/text.h"

namespace prancheta::dxf {

Acad::ErrorStatus PieceInFiler::setError(Acad::ErrorStatus es, const ACHAR* text, ...) {
    ACHAR buffer[256] = L"";
    va_list arguments;
    va_start(arguments, text);
    if (text != nullptr && std::vswprintf(buffer, std::size(buffer), text, arguments) >= 0)
        m_message = buffer;
    va_end(arguments);
    return m_status = es;
}

std::wstring PieceInFiler::textAt(std::size_t value, int parts) const {
    // Parts are put together before carets are decoded: one may have been cut in two.
    std::string whole;
    for (int i = 0; i < parts; ++i)
        whole +=
            decode(m_record.values[value + static_cast<std::size_t>(i)].value, m_names.charset());
    return decodeText(whole, Charset::Utf8);
}

Acad::ErrorStatus PieceInFiler::readItem(resbuf* value) {
    if (value == nullptr) return Acad::eInvalidInput;
    if (m_status != Acad::eOk) return m_status;
    if (atEOF()) return Acad::eBadDxfSequence;
    m_lastCode = m_code;
    m_lastValue = m_value;
    const auto [code, parts] = m_record.codes[m_code++];
    value->restype = static_cast<short>(code < 0 ? 100 : code);
    if (code < 0) return acutNewString(toWide(m_record.className).c_str(), value->resval.rstring);
    const Tag& tag = m_record.values[m_value];
    long long integer = 0;
    switch (tag.code) {
        case 1000:
            m_value += static_cast<std::size_t>(parts);
            return acutNewString(textAt(m_lastValue, parts).c_str(), value->resval.rstring);
        case 1010:
            m_value += 3;
            for (std::size_t i = 0; i < 3; ++i)
                if (!parseReal(m_record.values[m_lastValue + i].value, value->resval.rpoint[i]))
                    m_status = Acad::eInvalidInput;
            return m_status;
        case 1040:
            ++m_value;
            return parseReal(tag.value, value->resval.rreal) ? Acad::eOk
                                                             : m_status = Acad::eInvalidInput;
        case 1005:
            ++m_value;
            (void)acdbGetAdsName(value->resval.rlname, m_names.byHandle(tag.value));  // may be none
            return Acad::eOk;
        case 1070:
        case 1071:
            ++m_value;
            if (!parseInteger(tag.value, integer)) return m_status = Acad::eInvalidInput;
            if (kindOf(code) != ValueKind::Int32)
                value->resval.rint = static_cast<short>(integer);
            else
                value->resval.rlong = static_cast<Adesk::Int32>(integer);
            return Acad::eOk;
        default:
            return m_status = Acad::eBadDxfSequence;
    }
}

void PieceInFiler::pushBackItem() {
    m_code = m_lastCode;
    m_value = m_lastValue;
}

bool PieceInFiler::atSubclassData(const ACHAR* name) {
    if (name == nullptr || atEOF()) return false;
    const auto [code, parts] = m_record.codes[m_code];
    if (code >= 0 && code != 100) return false;
    const std::wstring found = code < 0 ? toWide(m_record.className) : textAt(m_value, parts);
    if (found != name) return false;
    m_lastCode = m_code++;
    m_lastValue = m_value;
    if (code == 100) m_value += static_cast<std::size_t>(parts);
    return true;
}

}  // namespace prancheta::dxf
