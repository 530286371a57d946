// SPDX-License-Identifier: MIT
// prancheta-console: the host without a window, driven by a script.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <new>

#include "prancheta/base/file.h"
#include "prancheta/base/library.h"
#include "prancheta/base/memory.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/console/catalogue_job.h"
#include "prancheta/console/check_job.h"
#include "prancheta/console/compare_job.h"
#include "prancheta/console/console_ui.h"
#include "prancheta/console/cut_files_job.h"
#include "prancheta/console/event_log.h"
#include "prancheta/console/options.h"
#include "prancheta/console/pieces_job.h"
#include "prancheta/console/plot_job.h"
#include "prancheta/console/script.h"
#include "prancheta/console/state.h"
#include "prancheta/console/verify_file.h"
#include "prancheta/console/working.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/host.h"
#include "prancheta/editor/installation.h"
#include "prancheta/editor/modules.h"

namespace prancheta::console {
namespace {

/// Reports a failure on standard error; the worst one decides the exit code.
class Outcome {
public:
    bool check(const Result<void>& result, int code) {
        if (result) return true;
        std::cerr << "prancheta-console: " << harmless(result.error().message()) << std::endl;
        m_code = std::max(m_code, code);
        return false;
    }
    /// The rest of the script was not run.
    void ended(int signal, const Script& script) {
        m_signal = signal;
        std::cerr << script.name() << ":" << script.line()
                  << ": o programa foi encerrado pelo sinal " << signal
                  << "; o resto do roteiro não foi executado" << std::endl;
    }
    void worsen(int code) { m_code = std::max(m_code, code); }
    int code(bool scriptFailed) const {
        if (m_code != kDone) return m_code;
        if (m_signal != 0) return kEndedBySignal + m_signal;
        return scriptFailed ? kScriptError : kDone;
    }

private:
    int m_code = kDone;
    int m_signal = 0;
};

HostOptions hostOptions(const Options& options, Outcome& outcome) {
    HostOptions out;
    out.programFolder = Host::programFolder();
    out.installation = pathFromUtf8(options.installation);
    if (out.installation.empty() && Host::installationFolder().empty()) {
        if (auto folder = usableInstallation(out.programFolder)) {
            out.installation = *folder;
        } else {
            outcome.check(folder.error(), kFileError);
        }
    }
    out.installationOverrides = !options.installation.empty();
    out.loadDefaultModules = options.defaultModules;
    return out;
}

bool prepare(Host& host, const Options& options, Outcome& outcome) {
    outcome.check(host.start(), kFileError);
    ModuleTable& modules = host.editor().modules();
    for (const std::string& module : options.modules) {
        modules.trust(pathFromUtf8(module));
        outcome.check(modules.load(pathFromUtf8(module)), kFileError);
    }
    if (!options.otherModules) modules.barOthers();
    if (!options.model.empty())
        (void)host.editor().variables().set(L"MODELO", toWide(options.model));  // a text
    if (options.drawing.empty())
        return options.model.empty() || outcome.check(host.editor().file().makeNew(), kFileError);
    dxf::LoadReport findings;
    const Result<void> opened = [&] {
        const Working working("abrindo " + options.drawing);
        return host.editor().file().open(pathFromUtf8(options.drawing), &findings);
    }();
    if (opened) printFindings(host.editor(), findings);
    return outcome.check(opened, kFileError);
}

Result<void> saveDrawing(Editor& editor, const Options& options) {
    const std::filesystem::path file = pathFromUtf8(options.save);
    const Working working("salvando " + options.save);
    dxf::SaveOptions how;
    if (options.format == "r12") how.version = dxf::Version::R12;
    if (options.format == "2000") how.version = dxf::Version::R2000;
    if (options.format == "2018") how.version = dxf::Version::R2018;
    std::string lost;
    const Result<void> saved = options.format == "modelo"
                                   ? editor.file().saveModel(file, &lost)
                                   : editor.file().saveCopy(file, how, &lost);
    if (saved && !options.format.empty() && !lost.empty())
        editor.print(L"\nAviso: " + toWide(lost) + L".\n");
    return saved;
}

Result<void> checkInstallation(const Options& options) {
    std::error_code ignored;
    const std::filesystem::path folder = resolvePath(options.installation);
    if (options.installation.empty() || std::filesystem::is_directory(folder, ignored)) return {};
    return Error{"a pasta de instalação não existe ou não é uma pasta", options.installation};
}

Result<void> runScript(Editor& editor) {
    editor.run();
    return {};
}

int run(const Options& options) {
    ignoreBrokenPipes();
    Outcome outcome;
    if (!outcome.check(checkInstallation(options), kFileError)) return outcome.code(false);
    auto script = Script::open(options.script);
    if (!script) {
        outcome.check(script.error(), kFileError);
        return outcome.code(false);
    }
    EventLog log(*script);
    if (!options.log.empty() && !outcome.check(log.open(pathFromUtf8(options.log)), kFileError))
        return outcome.code(false);

    ConsoleUi ui(*script, options.transcript ? Transcript::Shown : Transcript::None);
    Host host(ui, hostOptions(options, outcome));
    const bool prepared = prepare(host, options, outcome);
    if (!options.catalogues.empty())
        return prepared ? std::max(outcome.code(false), checkCatalogues(options.catalogues))
                        : outcome.code(false);
    if (!options.compare.empty())
        return prepared ? std::max(outcome.code(false),
                                   compareJob(host.editor(), options.compare.front(),
                                              *formOf(options.format)))
                        : outcome.code(false);
    if (!options.check.empty())
        return prepared ? std::max(outcome.code(false), checkJob(host.editor().database()))
                        : outcome.code(false);
    if (!options.otherDrawings.empty()) {
        if (prepared) outcome.check(plotDrawings(host.editor(), options), kFileError);
        return outcome.code(false);
    }
    if (prepared) {
        // Until here the key ends the program: nothing is begun that it could spoil.
        if (script->interactive()) catchInterrupts();
        catchEndWishes();
        const bool drawn =
            options.pieces.empty() ||
            outcome.check(drawPieces(host.editor(), options.pieces, options.somePieces),
                          kFileError);
        if (drawn && (options.pieces.empty() || !ui.failed()))
            outcome.check(withinMemory([&] { return runScript(host.editor()); }), kScriptError);
        if (endWish() != 0) outcome.ended(endWish(), *script);
        // Whatever the script did, the drawing is not lost with it.
        const auto leave = [&](auto&& work) { outcome.check(withinMemory(work), kFileError); };
        if (!options.save.empty()) leave([&] { return saveDrawing(host.editor(), options); });
        if (!options.state.empty())
            leave([&] { return writeState(host.editor(), pathFromUtf8(options.state)); });
        if (!options.cutFiles.empty())
            outcome.worsen(cutFilesJob(host.editor().database(), options.cutFiles, options.forced));
        leave([&]() -> Result<void> {
            plotDrawing(host.editor(), options, [&](const Error& error) {
                outcome.check(Result<void>(error), kFileError);
            });
            return {};
        });
    }
    std::cout.flush();
    outcome.check(log.close(), kFileError);
    return outcome.code(ui.failed());
}

}  // namespace
}  // namespace prancheta::console

int main(int argc, char** argv) {
    using namespace prancheta::console;
    prancheta::useUtf8Terminal();
    int exitCode = kDone;
    try {
        const auto options = readOptions(argc, argv, exitCode);
        if (!options) return exitCode;
        return options->verify.empty() ? run(*options) : verifyFile(options->verify);
    } catch (const std::bad_alloc&) {
        std::fputs("prancheta-console: memória insuficiente\n", stderr);
        return kFileError;
    }
}
