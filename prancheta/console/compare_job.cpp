// SPDX-License-Identifier: MIT
// Prints what a module tells.
#include "prancheta/console/compare_job.h"

#include <iostream>
#include <optional>

#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/console/module_answer.h"
#include "prancheta/console/options.h"
#include "prancheta/console/working.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/editor.h"

namespace prancheta::console {
namespace {

/// Line by line: what would steer a terminal is taken out of names, line ends stay.
void printLines(const std::string& text) {
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        std::string line = text.substr(from, end - from);
        const bool spreadsheet = line.ends_with('\r');
        if (spreadsheet) line.pop_back();
        std::cout << harmless(line) << (spreadsheet ? "\r\n" : "\n");
        from = end + 1;
    }
    std::cout.flush();
}

}  // namespace

int compareJob(Editor& editor, const std::string& earlier, protocol::ComparisonForm form) {
    const auto* const comparison = moduleAnswer<protocol::DrawingComparison>(
        protocol::kDrawingComparisonKey, "comparar desenhos", "--compara");
    if (comparison == nullptr) return kFileError;
    std::optional<Working> working("abrindo " + earlier);
    const auto before = readDrawing(editor, pathFromUtf8(earlier), nullptr);
    working.reset();
    if (!before) {
        std::cerr << "prancheta-console: " << harmless(before.error().message()) << std::endl;
        return kFileError;
    }
    std::wstring told;
    working.emplace("comparando");
    const bool differs = comparison->compare(**before, editor.database(), form, told);
    working.reset();
    printLines(toUtf8(told));
    return differs ? kScriptError : kDone;
}

}  // namespace prancheta::console
