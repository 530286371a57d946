// SPDX-License-Identifier: MIT
// Reading a size from left to right.
#include "perfis/catalogues/size_text.h"

#include <algorithm>

#include "texts/letters.h"
#include "texts/number.h"

namespace perfis {
namespace {

using Unit = SizeNumber::Unit;

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool isLetter(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c >= L'\u00C0';
}

class SizeReader {
public:
    explicit SizeReader(std::wstring_view text) : m_text(text) {}

    SizeText read() {
        while (m_at < m_text.size()) {
            if (startsNumber())
                readNumber();
            else if (isLetter(m_text[m_at]))
                readWord(m_at);
            else
                ++m_at;
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

    void readWord(std::size_t begin) {
        while (isLetter(at(m_at))) ++m_at;
        std::wstring word = texts::lower(m_text.substr(begin, m_at - begin));
        if (at(m_at) == L'=') return;
        if (word == L"pol") return markInches();
        for (const wchar_t* const none : {L"x", L"\u00D7", L"mm", L"kg", L"m", L"de"})
            if (word == none) return;
        m_out.words.push_back(std::move(word));
    }
    void markInches() {
        if (!m_out.numbers.empty()) m_out.numbers.back().unit = Unit::kInches;
    }

    void readNumber() {
        const std::size_t begin = m_at;
        const bool piecesOfOne = at(begin) == L'2' && isLetter(at(begin + 1)) &&
                                 at(begin + 1) != L'x' && at(begin + 1) != L'X';
        if (piecesOfOne) {
            ++m_at;
            return readWord(begin);
        }
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

    std::wstring_view m_text;
    std::size_t m_at = 0;
    SizeText m_out;
};

}  // namespace

SizeText readSize(std::wstring_view text) { return SizeReader(text).read(); }

}  // namespace perfis
