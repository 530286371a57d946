// SPDX-License-Identifier: MIT
// Writes groups as text or binary.
#pragma once

#include <string>
#include <string_view>

#include "gepnt3d.h"
#include "prancheta/base/file.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dxf/document.h"
#include "prancheta/dxf/encoding.h"

namespace prancheta::dxf {

/// Text form: LF line ends and group codes without padding, which every reader takes and which make
/// a file a fifth smaller. Reals are the shortest text that reads back to the same number, with
/// ".0" when whole; what is not finite is written as 0.0.
class TagWriter {
public:
    TagWriter(AtomicFile& file, Form form, Charset charset);
    TagWriter(const TagWriter&) = delete;
    TagWriter& operator=(const TagWriter&) = delete;

    /// Value of UTF-8, written as it stands but for line ends.
    void text(int code, std::string_view utf8);
    /// A text as it is meant, see encodeText().
    void meaning(int code, std::wstring_view text);
    void marker(const char* name) { text(100, name); }
    /// All digits that the number needs.
    void real(int code, double value);
    void integer(int code, long long value);
    void handle(int code, Adesk::UInt64 value);
    /// code, code + 10, code + 20.
    void point(int code, const AcGePoint3d& p);
    /// Groups `code` and `code` + 10.
    void point2d(int code, double x, double y);
    /// A group of some file; its value is of the code's kind.
    void raw(int code, std::string_view utf8);
    void raw(const RawTags& tags, std::size_t first = 0, std::size_t last = std::string::npos);
    void raw(const PackedTags& tags);

    /// Hands the rest to the file.
    void flush();

private:
    void begin(int code);
    void end();
    void bytes(const void* data, std::size_t size);
    void binaryNumber(int code, long long integer, double real);
    void binaryChunk(std::string_view hex);

    AtomicFile& m_file;
    Form m_form;
    Charset m_charset;
    std::string m_buffer;
};

}  // namespace prancheta::dxf
