// SPDX-License-Identifier: MIT
// Reading a size from left to right.
#include "perfis/catalogues/size_text.h"

#include <algorithm>
#include <utility>

#include "texts/letters.h"
#include "texts/number.h"

namespace perfis {
namespace {

using Unit = SizeNumber::Unit;

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool isLetter(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') ||
           (c >= L'\u00C0' && c <= L'\u024F' && c != L'\u00D7' && c != L'\u00F7');
}

/// Stand between numbers and words, as other signs do not.
constexpr std::wstring_view kSeparators =
    L" \t\r\n\u00A0*-\u2013/.,;:()[]+='\"\u2019\u201C\u201D\u2032\u2033\u00D7";

constexpr std::wstring_view kUnits[] = {L"pol", L"mm", L"kg", L"m"};

/// Fractions and the sign of a diameter that are one character, in those of any keyboard.
std::wstring inPlainLetters(std::wstring_view text) {
    static constexpr std::pair<wchar_t, std::wstring_view> kPlain[] = {
        {L'\u00BD', L"1/2"},    {L'\u00BC', L"1/4"},    {L'\u00BE', L"3/4"},    {L'\u215B', L"1/8"},
        {L'\u215C', L"3/8"},    {L'\u215D', L"5/8"},    {L'\u215E', L"7/8"},    {L'\u2044', L"/"},
        {L'\u2300', L"\u00D8"}, {L'\u03A6', L"\u00D8"}, {L'\u03C6', L"\u00D8"},
    };
    std::wstring plain;
    for (const wchar_t c : text) {
        const auto* const sign =
            std::ranges::find(kPlain, c, &std::pair<wchar_t, std::wstring_view>::first);
        if (sign == std::end(kPlain)) {
            plain += c;
            continue;
        }
        if (sign->second.size() == 3 && !plain.empty() && isDigit(plain.back())) plain += L' ';
        plain += sign->second;
    }
    return plain;
}

class SizeReader {
public:
    explicit SizeReader(std::wstring_view text) : m_text(inPlainLetters(text)) {}

    SizeText read() {
        while (m_at < m_text.size()) {
            if (startsNumber())
                readNumber();
            else if (isLetter(m_text[m_at]))
                readWord(m_at);
            else
                readSign();
        }
        const bool inches = std::ranges::any_of(
            m_out.numbers, [](const SizeNumber& n) { return n.unit == Unit::kInches; });
        if (inches)
            for (SizeNumber& n : m_out.numbers)
                if (n.unit == Unit::kMm) n.unit = Unit::kEither;
        return std::move(m_out);
    }

private:
    wchar_t at(std::size_t i) const { return i < m_text.size() ? m_text[i] : L'\0'; }
    static bool isSign(wchar_t c) { return c == L'.' || c == L','; }

    bool startsNumber() const {
        return isDigit(at(m_at)) || (isSign(at(m_at)) && isDigit(at(m_at + 1)));
    }
    std::size_t digitsFrom(std::size_t i) const {
        while (isDigit(at(i))) ++i;
        return i;
    }
    double whole(std::size_t begin, std::size_t end) const {
        return texts::toReal(m_text.substr(begin, end - begin), texts::DecimalSign::kPoint);
    }
    std::wstring lettersFrom(std::size_t begin) const {
        std::size_t end = begin;
        while (isLetter(at(end))) ++end;
        return texts::lower(m_text.substr(begin, end - begin));
    }

    void addWord(std::wstring word) {
        m_behindPair = word.front() == L'2';
        m_out.words.push_back(std::move(word));
    }
    void readWord(std::size_t begin) {
        std::wstring word = m_text.substr(begin, m_at - begin) + lettersFrom(m_at);
        m_at = begin + word.size();
        if (at(m_at) == L'=') return;
        if (word == L"pol") return markInches();
        const bool between = word == L"de" || (word == L"x" && !m_behindPair);
        if (!between && std::ranges::find(kUnits, word) == std::end(kUnits))
            addWord(std::move(word));
    }
    /// What is no separator is a word that no row has, so that it is told.
    void readSign() {
        const std::wstring two = m_text.substr(m_at, 2);
        const bool form = two == L"[]" || two == L"][";
        const std::wstring sign = form ? two : two.substr(0, 1);
        m_at += sign.size();
        if (form || (sign == L"+" && m_behindPair) ||
            kSeparators.find(sign.front()) == std::wstring_view::npos)
            addWord(sign);
    }
    void markInches() {
        if (!m_out.numbers.empty()) m_out.numbers.back().unit = Unit::kInches;
    }

    void readNumber() {
        const std::size_t begin = m_at;
        const std::wstring behind = lettersFrom(begin + 1);
        const bool piecesOfOne = at(begin) == L'2' && !behind.empty() && behind.front() != L'x' &&
                                 std::ranges::find(kUnits, behind) == std::end(kUnits);
        if (piecesOfOne) {
            ++m_at;
            return readWord(begin);
        }
        m_behindPair = false;
        SizeNumber number;
        const std::size_t end = digitsFrom(begin);
        m_at = isSign(at(end)) && isDigit(at(end + 1)) ? digitsFrom(end + 1) : end;
        if (!readFraction(begin, end, number)) {
            number.digits = m_text.substr(begin, m_at - begin);
            std::ranges::replace(number.digits, L',', L'.');
            number.value = texts::toReal(number.digits, texts::DecimalSign::kPoint);
        }
        number.typed = m_text.substr(begin, m_at - begin);
        m_out.numbers.push_back(number);
        const bool twoPrimes = at(m_at) == L'\'' && at(m_at + 1) == L'\'';
        for (const wchar_t mark : {L'"', L'\u2033', L'\u201D'})
            if (at(m_at) == mark || twoPrimes) markInches();
    }

    /// "3/4", and "1 1/2", "1.1/2", "1-1/2" behind the digits before `end`. Nobody writes
    /// millimetres so.
    bool readFraction(std::size_t begin, std::size_t end, SizeNumber& number) {
        std::size_t top = begin;
        if (at(end) != L'/' && at(end) != L'\0') top = end + 1;
        const std::size_t slash = digitsFrom(top);
        if (slash == top || at(slash) != L'/' || !isDigit(at(slash + 1))) return false;
        if (top != begin && at(end) != L' ' && at(end) != L'-' && !isSign(at(end))) return false;
        const std::size_t last = digitsFrom(slash + 1);
        const double divisor = whole(slash + 1, last);
        if (divisor == 0.0) return false;
        number.value = whole(top, slash) / divisor + (top != begin ? whole(begin, end) : 0.0);
        number.unit = Unit::kInches;
        m_at = last;
        return true;
    }

    std::wstring m_text;
    std::size_t m_at = 0;
    bool m_behindPair = false;  ///< the last thing was a word as "2l"
    SizeText m_out;
};

}  // namespace

SizeText readSize(std::wstring_view text) { return SizeReader(text).read(); }

}  // namespace perfis
