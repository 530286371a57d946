// SPDX-License-Identifier: MIT
// Files replaced, and why files cannot be read or written, for the user.
#include "prancheta/base/file.h"

#include <cerrno>
#include <cstring>

namespace prancheta {
namespace {

constexpr std::size_t kBuffer = 1U << 20;
constexpr const char* kNotWritten = "não foi possível gravar o arquivo";

}  // namespace

std::filesystem::path standardOutput() { return files::standardOutput(); }

bool isStandardOutput(const std::filesystem::path& path) { return files::isStandardOutput(path); }

AtomicFile::AtomicFile(std::filesystem::path target) : m_file(std::move(target)) {}

// Here, because who uses this class has no files::Replacement.
AtomicFile::~AtomicFile() = default;

void AtomicFile::keepFormer(std::filesystem::path backup) { m_file.keepFormer(std::move(backup)); }

Error AtomicFile::failed(const std::string& what, int error) const {
    return {what + ": " + errnoText(error), m_file.target().string(), 0, 0};
}

Result<void> AtomicFile::open() {
    m_buffer.reserve(kBuffer);
    const int error = m_file.open();
    if (error == 0) return {};
    std::error_code unknown;
    const bool there = std::filesystem::exists(m_file.target(), unknown);
    return failed(there ? kNotWritten : "não foi possível gravar na pasta do arquivo", error);
}

void AtomicFile::write(std::string_view bytes) {
    m_buffer.append(bytes);
    if (m_buffer.size() < kBuffer) return;
    if (m_errno == 0) m_errno = m_file.write(m_buffer);
    m_buffer.clear();
}

Result<void> AtomicFile::commit() {
    if (m_errno == 0) m_errno = m_file.write(m_buffer);
    // What takes bytes as they come (a pipe) has no former contents.
    const bool direct = m_file.place() == m_file.target();
    if (m_errno == 0) m_errno = m_file.commit();
    if (m_errno == 0) return {};
    if (direct) return failed(kNotWritten, m_errno);
    if (!m_file.copyLeft().empty())
        return failed(std::string(kNotWritten) + "; o conteúdo novo está inteiro em " +
                          m_file.copyLeft().string(),
                      m_errno);
    return failed(std::string(kNotWritten) + "; o arquivo anterior foi mantido", m_errno);
}

std::string errnoText(int error) {
    switch (error) {
        case ENOENT:
            return "o arquivo ou a pasta não existe";
        case EACCES:
        case EPERM:
            return "permissão negada";
        case ENOSPC:
            return "não há espaço no disco";
#ifdef EDQUOT
        case EDQUOT:
            return "a cota de disco terminou";
#endif
        case EROFS:
            return "o disco é somente para leitura";
        case ENXIO:
            return "ninguém lê do outro lado";
        case EPIPE:
            return "quem lia deixou de ler";
        case EISDIR:
            return "é uma pasta, não um arquivo";
        case ENOTDIR:
            return "uma parte do caminho não é uma pasta";
        case ENAMETOOLONG:
            return "o nome é longo demais";
        case EMFILE:
        case ENFILE:
            return "há arquivos demais abertos";
        case EIO:
            return "erro de leitura ou gravação no disco";
        default:
            return std::string("erro do sistema: ") + std::strerror(error);
    }
}

}  // namespace prancheta
