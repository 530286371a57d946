// SPDX-License-Identifier: MIT
// Has a module write the files.
#include "prancheta/console/cut_files_job.h"

#include <iostream>

#include "prancheta/base/text.h"
#include "prancheta/console/module_answer.h"
#include "prancheta/console/options.h"
#include "protocol/cut_files.h"

namespace prancheta::console {

int cutFilesJob(AcDbDatabase& drawing, const std::string& destination, bool forced) {
    const auto* const files = moduleAnswer<protocol::CutFiles>(
        protocol::kCutFilesKey, "gravar chapas para corte", "--chapas");
    if (files == nullptr) return kFileError;
    std::wstring told;
    const protocol::CutFilesOutcome outcome =
        files->write(drawing, toWide(destination).c_str(), forced, told);
    const std::string line = harmless(toUtf8(told));
    if (outcome == protocol::CutFilesOutcome::Written) {
        std::cout << line << std::endl;
        return kDone;
    }
    std::cerr << "prancheta-console: " << line << std::endl;
    return outcome == protocol::CutFilesOutcome::Refused ? kScriptError : kFileError;
}

}  // namespace prancheta::console
