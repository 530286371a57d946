// SPDX-License-Identifier: MIT
// A piece's record as words, from its own frame, with the mark of its row behind it.
#include "zp/objects/copies.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

#include "protocol/attach.h"
#include "protocol/copies.h"
#include "zp/objects/filing.h"
#include "zp/objects/member.h"

namespace zp::copies {
namespace {

constexpr std::wstring_view kPlain =
    L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.,-/+()[]#*=:";
constexpr wchar_t kBlank = L'_';
constexpr wchar_t kCoded = L'~';
constexpr std::size_t kDigits = 6;
constexpr std::wstring_view kZero = L"0";
constexpr wchar_t kTimes = L'*';
/// Behind an angle of whole hundredths of a degree, whose radians nothing may round.
constexpr wchar_t kDegrees = L'd';
constexpr double kAngleStep = 100.0;
constexpr double kSameAngle = 1e-14;

/// The number of a letter.
std::wstring coded(wchar_t c) {
    std::wstring text;
    for (std::size_t i = kDigits; i > 0; --i)
        text += L"0123456789ABCDEF"[static_cast<unsigned>(c) >> 4 * (i - 1) & 15U];
    return text;
}

/// "0.1" as few digits as read back to the same.
std::wstring digits(double v) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, v).ptr;
    return {buffer, end};
}

template <class Number>
bool parse(std::wstring_view word, Number& v) {
    const std::string narrow(word.begin(), word.end());  // digits; anything else is refused below
    const char* const end = narrow.data() + narrow.size();
    const auto [at, error] = std::from_chars(narrow.data(), end, v);
    return error == std::errc() && at == end && !narrow.empty();
}

/// The piece at the origin along X, not mirrored, in no row and tied to nothing.
Peca standing(const Peca& p) {
    Peca own;
    own.kind = p.kind;
    own.form = p.form;
    own.vista = p.vista;
    own.count = p.count;
    own.tipoBarra = p.tipoBarra;
    own.series = p.series;
    own.comprimento = p.comprimento;
    own.cortes = p.cortes;
    own.points[1].set(p.comprimento, 0.0, 0.0);
    own.given = p.given;
    own.actual = p.actual;
    own.commercial = p.commercial;
    if (p.member) own.member = std::make_unique<Member>(*p.member);
    if (own.member) own.member->row = {};
    return own;
}

class Copies : public protocol::EntityCopy {
public:
    std::wstring textOf(const AcDbEntity& entity) const override {
        const auto* const peca = ZpObject::cast(&entity);
        if (peca == nullptr) return {};
        WordWriter words;
        TextWriter writer(words);
        writePeca(writer, standing(Access::of(*peca)));
        if (const std::wstring marca = member::marcaOf(*peca); !marca.empty()) words.text(marca);
        return words.words();
    }
    bool read(AcDbEntity& entity, const std::wstring& text) const override {
        auto* const peca = ZpObject::cast(&entity);
        if (peca == nullptr) return false;
        WordReader words(text);
        TextReader reader(words);
        Peca read;
        read.kind = Access::of(*peca).kind;
        int version = 0;
        if (readPeca(reader, read, version) != ReadResult::Good || !possibleMedidas(read))
            return false;
        peca->assertWriteEnabled();
        Access::of(*peca) = std::move(read);
        return true;
    }
};

Copies g_copies;  // kept by pointer in the class

}  // namespace

void WordWriter::add(std::wstring_view word) {
    if (word == kZero) {
        ++m_zeros;
        return;
    }
    (void)words();  // zeros come before it
    if (!m_words.empty()) m_words += L' ';
    m_words += word;
}

std::wstring WordWriter::words() {
    if (m_zeros > 0) {
        m_words += m_words.empty() ? L"0" : L" 0";
        if (m_zeros > 1) m_words += kTimes + std::to_wstring(m_zeros);
        m_zeros = 0;
    }
    return m_words;
}

void WordWriter::integer(int v) { add(std::to_wstring(v)); }

void WordWriter::real(double v) {
    constexpr double kStep = 1e8;
    const double degrees = std::nearbyint(v * 180.0 / std::numbers::pi * kAngleStep) / kAngleStep;
    if (degrees != 0.0 && std::abs(v - std::numbers::pi * (degrees / 180.0)) < kSameAngle)
        return add(digits(degrees) + kDegrees);
    // What is larger has no digits there.
    const double rounded = std::abs(v) > 1e7 ? v : std::nearbyint(v * kStep) / kStep;
    add(rounded == 0.0 ? std::wstring(kZero) : digits(rounded));
}

void WordWriter::text(std::wstring_view t) {
    std::wstring word = L"\"";
    for (const wchar_t c : t) {
        if (c == L' ')
            word += kBlank;
        else if (kPlain.find(c) != kPlain.npos)
            word += c;
        else
            word += kCoded + coded(c);
    }
    add(word);
}

std::wstring_view WordReader::next() {
    if (m_zeros > 0) {
        --m_zeros;
        return kZero;
    }
    const std::size_t blank = std::min(m_rest.find(L' '), m_rest.size());
    const std::wstring_view word = m_rest.substr(0, blank);
    m_rest.remove_prefix(std::min(blank + 1, m_rest.size()));
    int zeros = 0;
    if (!word.starts_with(L"0*") || !parse(word.substr(2), zeros)) return word;
    m_zeros = zeros - 1;
    return kZero;
}

bool WordReader::integer(int& v) { return parse(next(), v); }
bool WordReader::real(double& v) {
    std::wstring_view word = next();
    if (!word.ends_with(kDegrees)) return parse(word, v);
    word.remove_suffix(1);
    if (!parse(word, v)) return false;
    v = std::numbers::pi * (v / 180.0);
    return true;
}

bool WordReader::text(std::wstring& t) {
    std::wstring_view word = next();
    if (!word.starts_with(L'"')) return false;
    t.clear();
    for (word.remove_prefix(1); !word.empty(); word.remove_prefix(1)) {
        if (word.front() != kCoded) {
            t += word.front() == kBlank ? L' ' : word.front();
            continue;
        }
        const std::string code(word.begin() + 1, word.end());
        unsigned value = 0;
        if (code.size() < kDigits ||
            std::from_chars(code.data(), code.data() + kDigits, value, 16).ptr !=
                code.data() + kDigits)
            return false;
        t += static_cast<wchar_t>(value);
        word.remove_prefix(kDigits);
    }
    return true;
}

std::wstring marcaIn(std::wstring_view text) {
    // A record ends with a number.
    std::wstring marca;
    const std::size_t last = text.rfind(L' ');
    return last != text.npos && WordReader(text.substr(last + 1)).text(marca) ? marca
                                                                              : std::wstring();
}

void install() { protocol::attach(ZpObject::desc(), protocol::kEntityCopyClass, g_copies); }
void uninstall() {
    protocol::detach(ZpObject::desc(), protocol::kEntityCopyClass);
    protocol::retire(protocol::kEntityCopyClass);
}

}  // namespace zp::copies
