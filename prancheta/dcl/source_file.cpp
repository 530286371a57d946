// SPDX-License-Identifier: MIT
// Lookup and decoding of dialog files.
#include "prancheta/dcl/source_file.h"

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"

namespace prancheta::dcl {
namespace fs = std::filesystem;
namespace {

constexpr std::uintmax_t kLargestFile = 16U << 20U;
constexpr std::string_view kMark = "\xEF\xBB\xBF";

}  // namespace

fs::path findSource(std::string_view name, const fs::path& folder) {
    std::error_code error;
    fs::path path = resolvePath(name);
    if (!path.has_extension() && !fs::is_regular_file(path, error))
        path = resolvePath(std::string(name) + ".dcl");
    if (folder.empty() || path.is_absolute() || fs::is_regular_file(path, error)) return path;
    const fs::path beside = findSource((folder / path).string());
    return fs::is_regular_file(beside, error) ? beside : path;
}

Result<std::string> readSource(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status))
        return Error{"não encontrei o arquivo da caixa de diálogo: confira a pasta e o nome",
                     path.string()};
    if (!fs::is_regular_file(status)) return Error{"não é um arquivo", path.string()};
    if (fs::file_size(path, error) > kLargestFile)
        return Error{"o arquivo é grande demais para uma caixa de diálogo", path.string()};
    Result<std::string> bytes = readFile(path);
    if (!bytes) return bytes.error();
    std::string text = std::move(*bytes);
    if (text.starts_with(kMark)) text.erase(0, kMark.size());
    return isValidUtf8(text) ? text : utf8FromLatin(text);
}

SourceStamp stampOf(const fs::path& path) { return {path, fileStampOf(path)}; }

}  // namespace prancheta::dcl
