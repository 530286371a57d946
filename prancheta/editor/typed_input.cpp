// SPDX-License-Identifier: MIT
// What a person types: points, numbers, angles, option words.
#include "prancheta/editor/typed_input.h"

#include <cmath>
#include <cwctype>

#include "prancheta/base/text.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {
namespace {

bool isUpper(wchar_t c) { return foldCase(c) != c || (c >= L'0' && c <= L'9') || c == L'?'; }

/// Takes a plain decimal number from the front of `text`.
std::optional<double> takeNumber(std::wstring_view& text) {
    std::size_t n = 0;
    const auto digits = [&] {
        while (n < text.size() && text[n] >= L'0' && text[n] <= L'9') ++n;
    };
    if (n < text.size() && (text[n] == L'+' || text[n] == L'-')) ++n;
    digits();
    if (n < text.size() && text[n] == L'.') {
        ++n;
        digits();
    }
    if (n + 1 < text.size() && (text[n] == L'e' || text[n] == L'E')) {
        const std::size_t mantissa = n++;
        if (text[n] == L'+' || text[n] == L'-') ++n;
        const std::size_t first = n;
        digits();
        if (n == first) n = mantissa;
    }
    double value = 0.0;
    if (!parseNumber(text.substr(0, n), value) || !std::isfinite(value)) return {};
    text.remove_prefix(n);
    return value;
}

bool takeChar(std::wstring_view& text, wchar_t c) {
    if (text.empty() || foldCase(text.front()) != c) return false;
    text.remove_prefix(1);
    return true;
}

double radiansPerUnit(int units) {
    if (units == 2) return kPi / 200.0;
    return units == 3 ? 1.0 : kPi / 180.0;
}

/// Coordinates after the prefixes, in the system they are meant in.
struct Coordinates {
    AcGePoint3d at;
    bool valid = false;
    bool plainNumber = false;
};

/// Number of `<` signs (one to three) and the angle after them; `<<` and `<<<` are degrees from +X.
std::optional<double> takeAngle(std::wstring_view text, const InputFrame& frame) {
    std::size_t signs = 0;
    while (signs < text.size() && text[signs] == L'<') ++signs;
    if (signs == 0 || signs > 3) return {};
    const std::optional<double> typed =
        readAngle(text.substr(signs), signs == 1 ? frame.angleUnits : 0);
    if (!typed) return {};
    return signs == 1 ? directionOf(*typed, frame) : *typed;
}

Coordinates readPolar(double distance, std::wstring_view rest, const InputFrame& frame) {
    Coordinates result;
    const std::size_t comma = rest.find(L',');
    const std::size_t angleStart = rest.find_first_not_of(L'<');
    const std::size_t second = angleStart == rest.npos ? rest.npos : rest.find(L'<', angleStart);
    if (comma != rest.npos && second != rest.npos) return result;
    const std::size_t end = std::min(comma, second);
    const std::optional<double> angle = takeAngle(rest.substr(0, end), frame);
    if (!angle) return result;
    double radius = distance;
    double z = 0.0;
    if (comma != rest.npos) {
        const std::optional<double> height = readNumber(rest.substr(comma + 1));
        if (!height) return result;
        z = *height;
    } else if (second != rest.npos) {
        const std::optional<double> elevation =
            readAngle(rest.substr(second + 1), frame.angleUnits);
        if (!elevation) return result;
        const SineCosine sc = sineCosine(*elevation);
        radius = distance * sc.cosine;
        z = distance * sc.sine;
    }
    const SineCosine sc = sineCosine(*angle);
    result.at = AcGePoint3d(radius * sc.cosine, radius * sc.sine, z);
    result.valid = true;
    return result;
}

Coordinates readCoordinates(std::wstring_view text, const InputFrame& frame) {
    Coordinates result;
    double values[3] = {};
    int count = 0;
    const std::size_t angle = text.find(L'<');
    if (angle != text.npos) {
        const std::optional<double> distance = readNumber(text.substr(0, angle));
        return distance ? readPolar(*distance, text.substr(angle), frame) : result;
    }
    for (;;) {
        const std::size_t comma = text.find(L',');
        const std::optional<double> value = readNumber(text.substr(0, comma));
        if (!value || count == 3) return result;
        values[count++] = *value;
        if (comma == text.npos) break;
        text.remove_prefix(comma + 1);
    }
    result.at = AcGePoint3d(values[0], values[1], values[2]);
    result.plainNumber = count == 1;
    result.valid = true;
    return result;
}

}  // namespace

std::optional<double> readNumber(std::wstring_view text) {
    std::optional<double> value = takeNumber(text);
    if (!value || text.empty()) return value;
    if (!takeChar(text, L'/')) return {};
    const std::optional<double> divisor = takeNumber(text);
    if (!divisor || !text.empty() || *divisor == 0.0) return {};
    return *value / *divisor;
}

std::optional<long> readInteger(std::wstring_view text) {
    if (text.find_first_not_of(L"+-0123456789") != text.npos) return {};
    const std::optional<double> value = readNumber(text);
    if (!value || std::fabs(*value) > 2147483647.0) return {};
    return static_cast<long>(*value);
}

std::optional<double> readAngle(std::wstring_view text, int units) {
    takeChar(text, L'<');
    std::wstring_view rest = text;
    std::optional<double> value = takeNumber(rest);
    if (!value) return {};
    if (rest.empty()) return *value * radiansPerUnit(units);
    if (takeChar(rest, L'r')) return rest.empty() ? value : std::nullopt;
    if (takeChar(rest, L'g'))
        return rest.empty() ? std::optional(*value * kPi / 200.0) : std::nullopt;
    if (rest.starts_with(L'/')) {
        value = readNumber(text);
        return value ? std::optional(*value * radiansPerUnit(units)) : std::nullopt;
    }
    if (!takeChar(rest, L'd') && !takeChar(rest, L'°')) return {};
    double degrees = std::fabs(*value);
    double part = 1.0 / 60.0;
    for (const wchar_t mark : {L'\'', L'"'}) {
        if (rest.empty()) break;
        const std::optional<double> number = takeNumber(rest);
        if (!number || *number < 0.0 || !takeChar(rest, mark)) return {};
        degrees += *number * part;
        part /= 60.0;
    }
    if (!rest.empty()) return {};
    return (std::signbit(*value) ? -degrees : degrees) * kPi / 180.0;
}

double directionOf(double typedAngle, const InputFrame& frame) {
    return frame.angleBase + (frame.clockwise ? -typedAngle : typedAngle);
}

TypedPoint readPoint(std::wstring_view text, const InputFrame& frame) {
    TypedPoint result;
    text = trim(text);
    if (text.empty()) return result;
    if (text.front() == L'<') {
        const std::optional<double> angle = takeAngle(text, frame);
        if (angle) result = {TypedPoint::Kind::Direction, {}, *angle};
        return result;
    }
    const bool relative = takeChar(text, L'@');
    if (relative && text.empty())
        return {TypedPoint::Kind::Point, frame.ucs * frame.lastPoint, 0.0};
    const bool absolute = !relative && takeChar(text, L'#');
    const bool world = takeChar(text, L'*');
    const Coordinates typed = readCoordinates(text, frame);
    if (!typed.valid) return result;
    if (typed.plainNumber) {
        if (relative || absolute || world) return result;
        return {TypedPoint::Kind::Distance, {}, typed.at.x};
    }
    result.kind = TypedPoint::Kind::Point;
    result.raised = typed.at.z != 0.0;
    const AcGePoint3d last = frame.ucs * frame.lastPoint;
    if (world) {
        result.world = relative ? last + typed.at.asVector() : typed.at;
    } else {
        result.world = relative ? last + frame.ucs * typed.at.asVector() : frame.ucs * typed.at;
    }
    return result;
}

namespace {

/// True when `typed` stands for `word`: it is a beginning of it that holds every capital, or just
/// the capitals.
bool fits(std::wstring_view typed, std::wstring_view word) {
    if (typed.empty() || word.empty()) return false;
    std::wstring capitals;
    std::size_t lastCapital = 0;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (!isUpper(word[i])) continue;
        capitals += word[i];
        lastCapital = i;
    }
    if (!capitals.empty() && equalNoCase(typed, capitals)) return true;
    const std::size_t shortest = capitals.empty() ? word.size() : lastCapital + 1;
    return typed.size() >= shortest && typed.size() <= word.size() &&
           equalNoCase(typed, word.substr(0, typed.size()));
}

/// A whole word before one that the text only begins: "ME" is not "Meio" where both are options.
template <class WordOf>
const Keyword* match(std::wstring_view text, std::span<const Keyword> keywords, WordOf wordOf) {
    for (const Keyword& k : keywords)
        if (!text.empty() && equalNoCase(text, wordOf(k))) return &k;
    for (const Keyword& k : keywords)
        if (fits(text, wordOf(k))) return &k;
    return nullptr;
}

const Keyword* matchExactly(std::wstring_view text, std::span<const Keyword> keywords) {
    const bool global = !text.empty() && text.front() == L'_';
    if (global) text.remove_prefix(1);
    const auto localOf = [](const Keyword& k) -> std::wstring_view { return k.local; };
    const auto globalOf = [](const Keyword& k) -> std::wstring_view {
        return k.global.empty() ? k.local : k.global;
    };
    const Keyword* const found = global ? nullptr : match(text, keywords, localOf);
    return found != nullptr ? found : match(text, keywords, globalOf);
}

}  // namespace

const Keyword* matchKeyword(std::wstring_view text, std::span<const Keyword> keywords) {
    if (const Keyword* const found = matchExactly(text, keywords)) return found;
    // Most of what is no keyword is a number or a point.
    const wchar_t first = text.empty() ? L'0' : foldCase(text.front());
    if (first < L'a') return nullptr;
    std::vector<Keyword> plain;
    for (const Keyword& k : keywords)
        plain.push_back({withoutAccents(k.local), withoutAccents(k.global)});
    const Keyword* const found = matchExactly(withoutAccents(text), plain);
    return found != nullptr ? &keywords[static_cast<std::size_t>(found - plain.data())] : nullptr;
}

std::vector<Keyword> readKeywordList(std::wstring_view list) {
    std::vector<Keyword> result;
    bool globals = false;
    std::size_t at = 0;
    while (!(list = trim(list)).empty()) {
        const std::size_t blank = std::min(list.find(L' '), list.size());
        std::wstring word(list.substr(0, blank));
        list.remove_prefix(blank);
        if (!globals && word.front() == L'_') {
            globals = true;
            word.erase(0, 1);
            if (word.empty()) continue;
        }
        if (!globals || at >= result.size()) {
            result.push_back({word, word});
            at = globals ? result.size() : 0;
        } else {
            result[at++].global = word;
        }
    }
    return result;
}

std::wstring upperCase(std::wstring_view text) {
    std::wstring result(text);
    for (wchar_t& c : result) {
        const bool latin = c >= 0xE0 && c <= 0xFE && c != 0xF7;
        if ((c >= L'a' && c <= L'z') || latin) c -= 32;
    }
    return result;
}

Adesk::UInt64 readHandent(std::wstring_view text) {
    const std::size_t open = text.find(L'"');
    const std::size_t close = text.rfind(L'"');
    if (open == text.npos || close <= open + 1) return 0;
    std::wstring before = foldCase(text.substr(0, open));
    std::erase(before, L' ');
    if (!equalNoCase(before, L"(handent") || trim(text.substr(close + 1)) != L")") return 0;
    Adesk::UInt64 handle = 0;
    const std::wstring_view digits = text.substr(open + 1, close - open - 1);
    if (digits.size() > 16) return 0;
    for (const wchar_t c : digits) {
        const std::wstring_view all = L"0123456789abcdef";
        const std::size_t value = all.find(foldCase(c));
        if (value == all.npos) return 0;
        handle = handle * 16 + value;
    }
    return handle;
}

}  // namespace prancheta
