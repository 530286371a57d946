// SPDX-License-Identifier: MIT
// Files on Windows.
#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>

#include "prancheta/base/file.h"
#include "prancheta/base/file_stamp.h"

namespace prancheta {
namespace fs = std::filesystem;
namespace {

Error fileError(const fs::path& path, const char* what, int error) {
    return {std::string(what) + ": " + errnoText(error), path.string(), 0, 0};
}

}  // namespace

Result<std::string> readFile(const fs::path& path) {
    std::error_code error;
    if (fs::is_directory(path, error))
        return fileError(path, "não foi possível ler o arquivo", EISDIR);
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) return fileError(path, "não foi possível abrir o arquivo", errno);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

struct MappedFile::Watch {};

MappedFile::MappedFile() = default;

// The bytes are our own.
bool MappedFile::changed() const { return false; }

// A mapped file could not be replaced while it is open: the bytes are copied.
Result<std::shared_ptr<const MappedFile>> MappedFile::open(const fs::path& path) {
    Result<std::string> bytes = readFile(path);
    if (!bytes) return bytes.error();
    std::shared_ptr<MappedFile> file(new MappedFile);
    char* const copy = new char[bytes->size() + 1];
    std::copy(bytes->begin(), bytes->end(), copy);
    file->m_data = copy;
    file->m_size = bytes->size();
    return std::shared_ptr<const MappedFile>(file);
}

// The system takes pages of a view by itself when memory is short.
void MappedFile::giveBack(std::string_view) const {}

MappedFile::~MappedFile() { delete[] m_data; }

std::optional<FileStamp> fileStampOf(const fs::path& path) {
    std::error_code error;
    FileStamp stamp;
    stamp.nanoseconds = fs::last_write_time(path, error).time_since_epoch().count();
    if (error) return std::nullopt;
    stamp.size = fs::file_size(path, error);
    if (error) return std::nullopt;
    return stamp;
}

}  // namespace prancheta
