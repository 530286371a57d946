// SPDX-License-Identifier: MIT
// One group of a DXF file and the kinds of values that group codes have.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace prancheta::dxf {

/// Group code and the value's bytes as they stand in the file, without the line end. The view lives
/// as long as the file's mapping.
struct Tag {
    int code = 0;
    std::string_view value;
};
using Tags = std::vector<Tag>;

enum class ValueKind : std::uint8_t { Text, Real, Int16, Int32, Int64, Bool, Handle, Binary };

/// Kind of value that a group code has; Text for codes that are not known.
ValueKind kindOf(int code);

/// What keeps a file from being read: the place is a byte of the file's text, null = the end.
struct Fault {
    std::string text;
    const char* at = nullptr;
};

/// Values as numbers. Leading and trailing blanks are allowed, "nan" and "inf" are not; false
/// leaves the number alone. Whole numbers may be written as reals ("1.0"). An empty handle is null,
/// as other programs write it.
bool parseReal(std::string_view text, double& value);
bool parseInteger(std::string_view text, long long& value);
bool parseHandle(std::string_view text, std::uint64_t& value);

/// Hexadecimal digits as files have them, "0" for none.
std::string handleText(std::uint64_t handle);

/// True when the value suits its code; otherwise `why` says what is wrong, in Portuguese.
bool checkValue(const Tag& tag, std::string& why);
/// Why a value was not taken where it stands, in Portuguese, though it may suit its code: a text
/// among handles. Never empty.
std::string complaintAbout(const Tag& tag);

}  // namespace prancheta::dxf
