// SPDX-License-Identifier: MIT
// Kinds of group codes and values as numbers.
#include "prancheta/dxf/tag.h"

#include <charconv>
#include <cmath>

#include "prancheta/base/text.h"

namespace prancheta::dxf {
namespace {

struct CodeRange {
    int first;
    int last;
    ValueKind kind;
};

constexpr CodeRange kRanges[] = {
    {0, 4, ValueKind::Text},       {5, 5, ValueKind::Handle},       {6, 9, ValueKind::Text},
    {10, 59, ValueKind::Real},     {60, 79, ValueKind::Int16},      {90, 99, ValueKind::Int32},
    {100, 104, ValueKind::Text},   {105, 105, ValueKind::Handle},   {110, 149, ValueKind::Real},
    {160, 169, ValueKind::Int64},  {170, 179, ValueKind::Int16},    {210, 239, ValueKind::Real},
    {270, 289, ValueKind::Int16},  {290, 299, ValueKind::Bool},     {300, 309, ValueKind::Text},
    {310, 319, ValueKind::Binary}, {320, 369, ValueKind::Handle},   {370, 389, ValueKind::Int16},
    {390, 399, ValueKind::Handle}, {400, 409, ValueKind::Int16},    {410, 419, ValueKind::Text},
    {420, 429, ValueKind::Int32},  {430, 439, ValueKind::Text},     {440, 459, ValueKind::Int32},
    {460, 469, ValueKind::Real},   {470, 479, ValueKind::Text},     {480, 489, ValueKind::Handle},
    {1000, 1003, ValueKind::Text}, {1004, 1004, ValueKind::Binary}, {1005, 1005, ValueKind::Handle},
    {1010, 1059, ValueKind::Real}, {1060, 1070, ValueKind::Int16},  {1071, 1071, ValueKind::Int32},
};

/// Kind of every code up to the last one, so that the question costs one read.
struct KindTable {
    ValueKind kinds[1072] = {};
    constexpr KindTable() {
        for (const CodeRange& range : kRanges)
            for (int code = range.first; code <= range.last; ++code) kinds[code] = range.kind;
    }
};
constexpr KindTable kKinds;

constexpr bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view bare(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

bool isHexText(std::string_view text) {
    return text.size() % 2 == 0 &&
           text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

/// "valor inválido no código 40: "x"".
std::string complaint(const char* what, const Tag& tag) {
    const std::string shown(bare(tag.value).substr(0, 40));
    return std::string("valor ") + what + " no código " + std::to_string(tag.code) + ": \"" +
           toUtf8(toWide(shown)) + "\"";
}

}  // namespace

ValueKind kindOf(int code) {
    return code >= 0 && code <= 1071 ? kKinds.kinds[code] : ValueKind::Text;
}

bool parseReal(std::string_view text, double& value) {
    text = bare(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    if (text.empty()) return false;
    double parsed = 0.0;
    const char* const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, parsed);
    // The library takes "inf" and "nan" too.
    if (error != std::errc() || at != end || !std::isfinite(parsed)) return false;
    value = parsed;
    return true;
}

bool parseInteger(std::string_view text, long long& value) {
    text = bare(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    if (text.empty()) return false;
    long long parsed = 0;
    const char* const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, parsed);
    if (error == std::errc() && at == end) {
        value = parsed;
        return true;
    }
    double real = 0.0;
    if (!parseReal(text, real) || real != std::floor(real) || std::abs(real) > 1e15) return false;
    value = static_cast<long long>(real);
    return true;
}

bool parseHandle(std::string_view text, std::uint64_t& value) {
    text = bare(text);
    if (text.empty()) {
        value = 0;
        return true;
    }
    std::uint64_t parsed = 0;
    const char* const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, parsed, 16);
    if (error != std::errc() || at != end) return false;
    value = parsed;
    return true;
}

std::string handleText(std::uint64_t handle) {
    std::string out;
    do {
        out.insert(out.begin(), "0123456789ABCDEF"[handle & 0xFU]);
        handle >>= 4;
    } while (handle != 0);
    return out;
}

bool checkValue(const Tag& tag, std::string& why) {
    double real = 0.0;
    long long integer = 0;
    std::uint64_t handle = 0;
    switch (kindOf(tag.code)) {
        case ValueKind::Text:
            return true;
        case ValueKind::Real:
            if (parseReal(tag.value, real)) return true;
            break;
        case ValueKind::Handle:
            if (parseHandle(tag.value, handle)) return true;
            break;
        case ValueKind::Binary:
            if (isHexText(bare(tag.value))) return true;
            break;
        default:
            if (parseInteger(tag.value, integer)) return true;
            break;
    }
    const std::string_view shown = bare(tag.value);
    why = complaint("inválido", tag);
    if (kindOf(tag.code) == ValueKind::Real && shown.find(',') != std::string::npos)
        why += " (o separador decimal deve ser o ponto)";
    return false;
}

std::string complaintAbout(const Tag& tag) {
    std::string why;
    return checkValue(tag, why) ? complaint("inesperado", tag) : why;
}

}  // namespace prancheta::dxf
