// SPDX-License-Identifier: MIT
// Groups as text or binary.
#include "prancheta/dxf/tag_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "prancheta/dxf/binary.h"
#include "prancheta/dxf/tag.h"

namespace prancheta::dxf {
namespace {

constexpr std::size_t kChunk = 1U << 20;

void appendReal(std::string& out, double value) {
    char buffer[40];
    char* end = buffer;
    if (!std::isfinite(value)) value = 0.0;
    if (std::abs(value) < 1e15 && value == std::trunc(value)) {
        if (value == 0.0 && std::signbit(value)) *end++ = '-';
        end = std::to_chars(end, buffer + 32, static_cast<long long>(value)).ptr;
        *end++ = '.';
        *end++ = '0';
    } else {
        end = std::to_chars(buffer, buffer + 32, value).ptr;
    }
    out.append(buffer, end);
}

}  // namespace

TagWriter::TagWriter(AtomicFile& file, Form form, Charset charset)
    : m_file(file), m_form(form), m_charset(charset) {
    m_buffer.reserve(kChunk + 4096);
    if (m_form == Form::Binary) m_buffer += binarySignature();
}

void TagWriter::begin(int code) {
    if (m_form == Form::Binary) {
        const auto narrow = static_cast<std::uint16_t>(code);
        bytes(&narrow, sizeof narrow);
        return;
    }
    char digits[8];
    char* const last = std::to_chars(digits, digits + 7, code).ptr;
    *last = '\n';
    m_buffer.append(digits, last + 1);
}

void TagWriter::end() {
    if (m_form == Form::Ascii) m_buffer.push_back('\n');
    if (m_buffer.size() >= kChunk) flush();
}

void TagWriter::bytes(const void* data, std::size_t size) {
    m_buffer.append(static_cast<const char*>(data), size);
}

void TagWriter::flush() {
    m_file.write(m_buffer);
    m_buffer.clear();
}

void TagWriter::text(int code, std::string_view utf8) {
    begin(code);
    appendEncoded(m_buffer, utf8, m_charset);
    if (m_form == Form::Binary) m_buffer.push_back('\0');
    end();
}

void TagWriter::meaning(int code, std::wstring_view value) {
    const auto isPlain = [](wchar_t c) { return c >= 0x20 && c < 0x7f && c != L'^'; };
    if (m_form == Form::Binary || !std::all_of(value.begin(), value.end(), isPlain)) {
        text(code, encodeText(value));
        return;
    }
    begin(code);
    for (const wchar_t c : value) m_buffer.push_back(static_cast<char>(c));
    end();
}

void TagWriter::real(int code, double value) {
    begin(code);
    if (m_form == Form::Binary)
        binaryNumber(code, 0, value);
    else
        appendReal(m_buffer, value);
    end();
}

void TagWriter::integer(int code, long long value) {
    begin(code);
    if (m_form == Form::Binary) {
        binaryNumber(code, value, static_cast<double>(value));
    } else {
        char digits[24];
        m_buffer.append(digits, std::to_chars(digits, digits + 24, value).ptr);
    }
    end();
}

void TagWriter::handle(int code, Adesk::UInt64 value) {
    char digits[17];
    char* const last = std::to_chars(digits, digits + 16, value, 16).ptr;
    for (char* at = digits; at != last; ++at)
        if (*at >= 'a') *at = static_cast<char>(*at - 'a' + 'A');
    begin(code);
    m_buffer.append(digits, last);
    if (m_form == Form::Binary) m_buffer.push_back('\0');
    end();
}

void TagWriter::point(int code, const AcGePoint3d& p) {
    real(code, p.x);
    real(code + 10, p.y);
    real(code + 20, p.z);
}

void TagWriter::point2d(int code, double x, double y) {
    real(code, x);
    real(code + 10, y);
}

void TagWriter::binaryNumber(int code, long long integer, double real) {
    switch (kindOf(code)) {
        case ValueKind::Real:
            bytes(&real, sizeof real);
            break;
        case ValueKind::Int16: {
            const auto v = static_cast<std::int16_t>(integer);
            bytes(&v, sizeof v);
            break;
        }
        case ValueKind::Int32: {
            const auto v = static_cast<std::int32_t>(integer);
            bytes(&v, sizeof v);
            break;
        }
        case ValueKind::Int64:
            bytes(&integer, sizeof integer);
            break;
        default:
            m_buffer.push_back(static_cast<char>(integer != 0));
            break;
    }
}

void TagWriter::binaryChunk(std::string_view hex) {
    m_buffer.push_back(static_cast<char>(std::min<std::size_t>(hex.size() / 2, 255)));
    for (std::size_t i = 0; i + 1 < hex.size() && i < 510; i += 2) {
        unsigned value = 0;
        std::from_chars(hex.data() + i, hex.data() + i + 2, value, 16);
        m_buffer.push_back(static_cast<char>(value));
    }
}

void TagWriter::raw(int code, std::string_view utf8) {
    if (code < 0) return;  // notes of the reader to itself
    const ValueKind kind = kindOf(code);
    if (m_form == Form::Ascii || kind == ValueKind::Text || kind == ValueKind::Handle) {
        text(code, utf8);
        return;
    }
    begin(code);
    if (kind == ValueKind::Binary) {
        binaryChunk(utf8);
    } else {
        double value = 0.0;
        long long integer = 0;
        if (kind == ValueKind::Real)
            (void)parseReal(utf8, value);  // checked when the file was read
        else
            (void)parseInteger(utf8, integer);
        binaryNumber(code, integer, value);
    }
    end();
}

void TagWriter::raw(const RawTags& tags, std::size_t first, std::size_t last) {
    for (std::size_t i = first; i < std::min(last, tags.size()); ++i)
        raw(tags[i].code, tags[i].value);
}

void TagWriter::raw(const PackedTags& tags) {
    for (const RawTagView& tag : tags) raw(tag.code, tag.value);
}

}  // namespace prancheta::dxf
