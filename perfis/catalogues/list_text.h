// SPDX-License-Identifier: MIT
// A list file as text: decoding, line pieces as the C library cuts them, writing back in kind.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "perfis/base/portability.h"

namespace perfis {

enum class Encoding { kUtf8, kUtf16Little, kUtf16Big, kWindows1252 };

/// How a list file is written; noticed on reading and kept.
struct ListFormat {
    Encoding encoding = Encoding::kUtf8;
    bool mark = false;  ///< byte-order mark at the start
    bool crLf = kNativeLineEndIsCrLf;
    bool damaged = false;  ///< what was read is not all that stands there; never lost by writing
};

struct ListText {
    std::wstring text;  ///< line ends are single line feeds
    ListFormat format;
};

/// UTF-8 with or without mark, UTF-16 with mark, else Windows-1252. Null when the file cannot be
/// opened. The file read last is kept and read again when it has changed.
///
/// Damaged, and read as well as can be, are null characters, UTF-16 without a mark or cut short,
/// and carriage returns of their own: where there is no line feed they end the lines, as on the
/// oldest systems.
std::shared_ptr<const ListText> readListText(std::wstring_view path);

/// True when the file has just these bytes already.
bool listHolds(std::wstring_view path, std::wstring_view text, const ListFormat& format);

/// Replaces the file; false, and the old file stays, when that fails. A text that the code page
/// cannot hold is written as UTF-8. Of a damaged file a copy is kept beside it.
bool writeListText(std::wstring_view path, std::wstring_view text, const ListFormat& format);

/// Reads a text in pieces: up to and with a line feed, at most one character less than the buffer.
class LineReader {
public:
    explicit LineReader(std::wstring_view text) : m_rest(text) {}

    /// False, and `piece` is untouched, when nothing is left.
    bool read(std::wstring& piece, std::size_t bufferSize);
    /// True once a read has met the end of the text.
    bool atEnd() const { return m_atEnd; }

private:
    std::wstring_view m_rest;
    bool m_atEnd = false;
};

/// Splitting step of the C library, done in place: separators (one of these characters) at the
/// start stay, the first one after other characters ends the text.
void cutAtSeparator(std::wstring& text, std::wstring_view separators);

}  // namespace perfis
