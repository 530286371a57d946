// SPDX-License-Identifier: MIT
// List files come from old machines and must go back as they came: encoding, mark, line ends.
#include "perfis/catalogues/list_text.h"

#include <algorithm>
#include <array>
#include <optional>

#include "texts/encoding.h"

namespace perfis {
namespace {

constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

/// Whether UTF-16 is big-endian that has no mark: most characters are ASCII, with their null byte
/// all on one side. Nothing for other texts.
std::optional<bool> unmarkedUtf16(std::string_view bytes) {
    std::array<std::size_t, 2> nulls{};
    for (std::size_t i = 0; i < bytes.size(); ++i) nulls[i % 2] += bytes[i] == '\0' ? 1 : 0;
    const std::size_t most = std::max(nulls[0], nulls[1]);
    if (most <= bytes.size() / 4 || std::min(nulls[0], nulls[1]) > 0) return {};
    return nulls[0] > 0;
}

std::wstring decode(std::string_view bytes, ListFormat& format) {
    if (bytes.starts_with(kUtf16LittleMark) || bytes.starts_with(kUtf16BigMark)) {
        const bool big = bytes.starts_with(kUtf16BigMark);
        format.encoding = big ? Encoding::kUtf16Big : Encoding::kUtf16Little;
        format.mark = true;
        return texts::decodeUtf16(bytes.substr(2), big);
    }
    if (const std::optional<bool> big = unmarkedUtf16(bytes)) {
        format.encoding = *big ? Encoding::kUtf16Big : Encoding::kUtf16Little;
        return texts::decodeUtf16(bytes, *big);
    }
    const bool mark = bytes.starts_with(texts::kUtf8Mark);
    const std::string_view content = mark ? bytes.substr(texts::kUtf8Mark.size()) : bytes;
    format.mark = mark;
    if (std::optional<std::wstring> text = texts::decodeUtf8(content)) return std::move(*text);
    format.encoding = Encoding::kWindows1252;
    return texts::decodeWindows1252(content);
}

/// Line ends to single line feeds; the first one found says how the file ends its lines.
void translateLineEnds(std::wstring& text, ListFormat& format) {
    const std::size_t first = text.find(L'\n');
    if (first != std::wstring::npos) format.crLf = first > 0 && text[first - 1] == L'\r';
    std::size_t out = 0;
    for (const wchar_t c : text) {
        // More than one return stands there when an old program wrote through two translations.
        while (c == L'\n' && out > 0 && text[out - 1] == L'\r') --out;
        text[out++] = c;
    }
    text.resize(out);
    const bool lonely = text.find(L'\r') != std::wstring::npos;
    format.damaged = format.damaged || lonely || text.find(L'\0') != std::wstring::npos;
    if (lonely && first == std::wstring::npos) std::replace(text.begin(), text.end(), L'\r', L'\n');
}

std::wstring withCrLf(std::wstring_view text) {
    std::wstring result;
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), L'\n'));
    result.reserve(text.size() + lines);
    for (const wchar_t c : text) {
        if (c == L'\n') result += L'\r';
        result += c;
    }
    return result;
}

std::string encode(std::wstring_view text, const ListFormat& format) {
    switch (format.encoding) {
        case Encoding::kUtf16Little:
            return std::string(kUtf16LittleMark) + texts::encodeUtf16(text, false);
        case Encoding::kUtf16Big:
            return std::string(kUtf16BigMark) + texts::encodeUtf16(text, true);
        case Encoding::kWindows1252:
            if (const std::optional<std::string> bytes = texts::encodeWindows1252(text))
                return (format.mark ? std::string(texts::kUtf8Mark) : std::string()) + *bytes;
            break;
        case Encoding::kUtf8:
            break;
    }
    return (format.mark ? std::string(texts::kUtf8Mark) : std::string()) + texts::encodeUtf8(text);
}

std::string bytesOf(std::wstring_view text, const ListFormat& format) {
    return format.crLf ? encode(withCrLf(text), format) : encode(text, format);
}

bool isUtf16(Encoding encoding) {
    return encoding == Encoding::kUtf16Little || encoding == Encoding::kUtf16Big;
}

}  // namespace

std::shared_ptr<const ListText> readListText(std::wstring_view path) {
    struct Kept {
        std::wstring path;
        std::uint64_t version = 0;
        std::shared_ptr<const ListText> list;
    };
    static Kept kept;
    const std::uint64_t version = settledFileVersion(path);
    if (version != 0 && version == kept.version && path == kept.path) return kept.list;
    kept = {};
    const std::optional<std::string> bytes = readFile(path);
    if (!bytes) return nullptr;
    auto list = std::make_shared<ListText>();
    list->text = decode(*bytes, list->format);
    // Every byte of the other encodings has its character.
    list->format.damaged =
        isUtf16(list->format.encoding) && encode(list->text, list->format) != *bytes;
    translateLineEnds(list->text, list->format);
    if (version != 0) kept = {std::wstring(path), version, list};
    return list;
}

bool listHolds(std::wstring_view path, std::wstring_view text, const ListFormat& format) {
    return readFile(path) == bytesOf(text, format);
}

bool writeListText(std::wstring_view path, std::wstring_view text, const ListFormat& format) {
    if (format.damaged && !keepOldFile(path)) return false;
    return replaceFile(path, bytesOf(text, format));
}

bool LineReader::read(std::wstring& piece, std::size_t bufferSize) {
    if (m_rest.empty()) {
        m_atEnd = true;
        return false;
    }
    const std::size_t most = std::min(bufferSize - 1, m_rest.size());
    const std::size_t lineFeed = m_rest.substr(0, most).find(L'\n');
    const std::size_t length = lineFeed == std::wstring_view::npos ? most : lineFeed + 1;
    piece = m_rest.substr(0, length);
    m_rest.remove_prefix(length);
    m_atEnd = m_rest.empty() && lineFeed == std::wstring_view::npos && length < bufferSize - 1;
    return true;
}

void cutAtSeparator(std::wstring& text, std::wstring_view separators) {
    const std::size_t start = text.find_first_not_of(separators);
    if (start == std::wstring::npos) return;
    const std::size_t end = text.find_first_of(separators, start);
    if (end != std::wstring::npos) text.resize(end);
}

}  // namespace perfis
