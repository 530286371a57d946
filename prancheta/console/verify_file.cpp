// SPDX-License-Identifier: MIT
// Prints the verdict on a file.
#include "prancheta/console/verify_file.h"

#include <iostream>

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/console/options.h"
#include "prancheta/console/working.h"
#include "prancheta/verify/verify.h"

namespace prancheta::console {
namespace {

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

int verifyFile(const std::string& path) {
    const auto verdict = [&] {
        const Working working("examinando " + path);
        return verify::examine(resolvePath(path));
    }();
    if (!verdict) {
        std::cerr << "prancheta-console: " << harmless(verdict.error().message()) << std::endl;
        return kFileError;
    }
    for (const verify::Remark& remark : verdict->remarks) {
        const bool isError = remark.severity == verify::Severity::Error;
        std::cout << harmless(path + (isError ? ": erro: " : ": aviso: ") + remark.message())
                  << "\n";
    }
    const std::size_t told = verdict->errors + verdict->warnings;
    if (told > verdict->remarks.size())
        std::cout << "... e mais " << told - verdict->remarks.size() << "\n";
    std::cout << path << ": " << counted(verdict->records, "registro", "registros") << ", "
              << counted(verdict->errors, "erro", "erros") << ", "
              << counted(verdict->warnings, "aviso", "avisos") << std::endl;
    return verdict->errors == 0 ? kDone : kScriptError;
}

}  // namespace prancheta::console
