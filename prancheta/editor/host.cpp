// SPDX-License-Identifier: MIT
// The host as a whole.
#include "prancheta/editor/host.h"

#include <clocale>

#include "prancheta/base/file.h"
#include "prancheta/base/library.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/database/register.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/modules.h"
#include "prancheta/entities/register.h"

namespace prancheta {
namespace {

constexpr const char* kInstallationVariable = "ZPFORJA2010";

void setInstallation(const HostOptions& options) {
    if (options.installation.empty()) return;
    const std::filesystem::path folder = std::filesystem::absolute(options.installation);
    const bool known = !environment(kInstallationVariable).empty();
    if (!known || options.installationOverrides)
        setEnvironment(kInstallationVariable, folder.string());
}

/// Numbers have a decimal point whatever the user's locale; texts are UTF-8 in files and wide in
/// memory.
void setLocale() {
    std::setlocale(LC_NUMERIC, "C");
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) std::setlocale(LC_CTYPE, "");
}

}  // namespace

std::filesystem::path Host::installationFolder() {
    return pathFromUtf8(environment(kInstallationVariable));
}

std::filesystem::path Host::programFolder() { return folderOfProgram(); }

Host::Host(UserInterface& ui, HostOptions options) : m_options(std::move(options)) {
    setLocale();
    setInstallation(m_options);
    registerDatabaseClasses();
    registerEntityClasses();
    m_editor = std::make_unique<Editor>(ui, builtInCommands());
    dcl::setDialogRunner([&ui](dcl::Dialog& dialog) { ui.runDialog(dialog); });
    const std::filesystem::path folder = installationFolder();
    if (!folder.empty())
        (void)m_editor->aliases().load(
            resolvePath((folder / "Prancheta" / "atalhos.txt").string()));
    m_editor->modules().setFolder(m_options.programFolder);
}

Result<void> Host::start() {
    Result<void> first;
    if (!m_options.loadDefaultModules) return first;
    for (const std::wstring& name : kDefaultModules) {
        Result<void> loaded = m_editor->modules().load(m_options.programFolder / toUtf8(name));
        if (!loaded && first) first = std::move(loaded);
    }
    return first;
}

Host::~Host() {
    m_editor->modules().broadcast(AcRx::kPreQuitMsg);
    m_editor.reset();
    dcl::setDialogRunner({});
}

}  // namespace prancheta
