// SPDX-License-Identifier: MIT
// AUDIT: the drawing as its file would be, held against what strict readers ask.
#include <filesystem>
#include <random>

#include "prancheta/base/text.h"
#include "prancheta/editor/commands/audit_repairs.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/editor.h"
#include "prancheta/verify/verify.h"

namespace prancheta::commands {

namespace {

/// A file beside nobody's, which goes when this does.
class PassingFile {
public:
    PassingFile()
        : m_path(std::filesystem::temp_directory_path() /
                 ("prancheta-" + std::to_string(std::random_device()()) + ".dxf")) {}
    ~PassingFile() {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

}  // namespace

Result<verify::Verdict> examineDrawing(const CommandContext& context) {
    const PassingFile file;
    const Result<void> saved = context.editor().file().saveCopy(file.path());
    if (!saved) return saved.error();
    return verify::examine(file.path());
}

namespace {

void tellRemarks(const CommandContext& context, const verify::Verdict& verdict) {
    for (verify::Remark remark : verdict.remarks) {
        remark.line = 0;  // of a file that nobody sees
        const bool isError = remark.severity == verify::Severity::Error;
        say(context, (isError ? L"Erro: " : L"Aviso: ") + toWide(remark.message()));
    }
    const std::size_t told = verdict.errors + verdict.warnings;
    if (told > verdict.remarks.size())
        say(context, L"... e mais " + std::to_wstring(told - verdict.remarks.size()));
}

std::wstring sumOf(const verify::Verdict& verdict) {
    return counted(verdict.records, L"registro", L"registros") + L", " +
           counted(verdict.errors, L"erro", L"erros") + L", " +
           counted(verdict.warnings, L"aviso", L"avisos") + L".";
}

}  // namespace

CommandTask audit(CommandContext context) {
    const InputValue yes =
        co_await askYesNo(context, L"\nCorrigir os erros encontrados?", Choice::No);
    if (yes.status == RTCAN) co_return CommandEnd::Cancelled;
    const bool repairs = yes.number != 0.0;
    Result<verify::Verdict> verdict = examineDrawing(context);
    const bool wrong = verdict && verdict->errors + verdict->warnings > 0;
    if (wrong) tellRemarks(context, *verdict);
    if (wrong && repairs) {
        const std::size_t count = repairKept(context);
        say(context, counted(count, L"correção.", L"correções."));
        if (count > 0) verdict = examineDrawing(context);
    }
    if (!verdict) {
        context.editor().complain(toWide(verdict.error().message()));
        co_return CommandEnd::Failed;
    }
    say(context, (wrong && repairs ? L"Restam: " : L"Examinados: ") + sumOf(*verdict));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
