// SPDX-License-Identifier: MIT
// Why files cannot be read or written, for the user.
#include "prancheta/base/file.h"

#include <cerrno>
#include <cstring>

namespace prancheta {

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
