// SPDX-License-Identifier: MIT
// Binary groups to text.
#include "prancheta/dxf/binary.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <type_traits>

namespace prancheta::dxf {
namespace {

// The signature as numbers, the way the format's description gives it.
constexpr unsigned char kSignature[22] = {0x41, 0x75, 0x74, 0x6F, 0x43, 0x41, 0x44, 0x20,
                                          0x42, 0x69, 0x6E, 0x61, 0x72, 0x79, 0x20, 0x44,
                                          0x58, 0x46, 0x0D, 0x0A, 0x1A, 0x00};

class Converter {
public:
    explicit Converter(std::string_view bytes)
        : m_bytes(bytes), m_at(sizeof kSignature), m_wide(hasWideCodes(bytes)) {}

    Result<BinaryText> run(Damage damage) {
        while (m_at < m_bytes.size() && !m_ended) {
            const std::size_t start = m_at;
            const std::size_t written = m_out.text.size();
            const char* const fault = takeGroup();
            if (fault == nullptr) continue;
            if (damage == Damage::IsAnError) return error(start, fault);
            m_out.text.resize(written);
            m_out.offsets.resize(m_groups);
            m_out.offsets.push_back(start);
            m_out.text += "?\n?\n";
            ++m_groups;
            m_at = nextRecord(start + 1);
        }
        return std::move(m_out);
    }

private:
    /// Null, or what is wrong.
    const char* takeGroup() {
        const std::size_t start = m_at;
        int code = 0;
        if (!takeCode(code)) return "o arquivo termina no meio de um grupo";
        if (code < 0 || code > 1071) return "código de grupo inválido";
        m_out.offsets.push_back(start);
        m_out.text += std::to_string(code);
        m_out.text.push_back('\n');
        const std::size_t valueAt = m_out.text.size();
        if (!takeValue(code)) return "o arquivo termina no meio de um grupo";
        const std::string_view value = std::string_view(m_out.text).substr(valueAt);
        m_ended = code == 0 && value == "EOF";
        if (!m_ended) m_out.text.push_back('\n');
        ++m_groups;
        return nullptr;
    }

    /// Where the next group 0 with what looks like a type begins, the end without one.
    std::size_t nextRecord(std::size_t from) const {
        const std::size_t codeSize = m_wide ? 2 : 1;
        const auto isLetter = [](char c) {
            return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        };
        constexpr std::size_t kShortestType = 3;
        for (std::size_t at = m_bytes.find('\0', from); at != std::string_view::npos;
             at = m_bytes.find('\0', at + 1)) {
            std::size_t end = at + codeSize;
            if (m_wide && end <= m_bytes.size() && m_bytes[at + 1] != '\0') continue;
            while (end < m_bytes.size() && isLetter(m_bytes[end])) ++end;
            if (end < m_bytes.size() && m_bytes[end] == '\0' &&
                end - at >= codeSize + kShortestType)
                return at;
        }
        return m_bytes.size();
    }

    static bool hasWideCodes(std::string_view bytes) {
        return bytes.size() > sizeof kSignature + 1 && bytes[sizeof kSignature + 1] == '\0';
    }
    static Error error(std::size_t at, const char* text) {
        return {std::string(text) + " (byte " + std::to_string(at) + ")", "", 0, 0};
    }

    template <class T>
    bool take(T& value) {
        if (m_bytes.size() - m_at < sizeof(T)) return false;
        std::memcpy(&value, m_bytes.data() + m_at, sizeof(T));
        m_at += sizeof(T);
        return true;
    }

    bool takeCode(int& code) {
        std::uint8_t narrow = 0;
        std::uint16_t wide = 0;
        if (m_wide) {
            if (!take(wide)) return false;
            code = wide;
            return true;
        }
        if (!take(narrow)) return false;
        code = narrow;
        if (narrow != 0xFF) return true;
        if (!take(wide)) return false;
        code = wide;
        return true;
    }

    template <class T>
    bool takeNumber() {
        T value{};
        if (!take(value)) return false;
        char buffer[40];
        // A number that is none stays visible as one: the reader of the text refuses it.
        char* const end = std::to_chars(buffer, buffer + 40, value).ptr;
        m_out.text.append(buffer, end);
        const bool isWhole =
            std::none_of(buffer, end, [](char c) { return c == '.' || c == 'e' || c == 'n'; });
        if (std::is_floating_point_v<T> && isWhole) m_out.text += ".0";
        return true;
    }

    bool takeChunk() {
        constexpr char kDigits[] = "0123456789ABCDEF";
        std::uint8_t size = 0;
        if (!take(size) || m_bytes.size() - m_at < size) return false;
        for (int i = 0; i < size; ++i) {
            const auto byte = static_cast<unsigned char>(m_bytes[m_at++]);
            m_out.text.push_back(kDigits[byte >> 4]);
            m_out.text.push_back(kDigits[byte & 0xF]);
        }
        return true;
    }

    bool takeText() {
        const std::size_t end = m_bytes.find('\0', m_at);
        if (end == std::string_view::npos) return false;
        // A line end inside a text would split the value.
        for (; m_at < end; ++m_at) {
            const char c = m_bytes[m_at];
            if (c == '\n' || c == '\r')
                m_out.text += c == '\n' ? "^J" : "^M";
            else
                m_out.text.push_back(c);
        }
        ++m_at;
        return true;
    }

    bool takeValue(int code) {
        switch (kindOf(code)) {
            case ValueKind::Real:
                return takeNumber<double>();
            case ValueKind::Int16:
                return takeNumber<std::int16_t>();
            case ValueKind::Int32:
                return takeNumber<std::int32_t>();
            case ValueKind::Int64:
                return takeNumber<std::int64_t>();
            case ValueKind::Bool:
                return takeNumber<std::uint8_t>();
            case ValueKind::Binary:
                return takeChunk();
            default:
                return takeText();
        }
    }

    std::string_view m_bytes;
    std::size_t m_at;
    bool m_wide;
    bool m_ended = false;
    std::size_t m_groups = 0;
    BinaryText m_out;
};

}  // namespace

std::string_view binarySignature() {
    return {reinterpret_cast<const char*>(kSignature), sizeof kSignature};
}

bool isBinary(std::string_view bytes) {
    return bytes.substr(0, sizeof kSignature) == binarySignature();
}

Result<BinaryText> textOfBinary(std::string_view bytes, Damage damage) {
    return Converter(bytes).run(damage);
}

}  // namespace prancheta::dxf
