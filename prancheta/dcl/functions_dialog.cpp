// SPDX-License-Identifier: MIT
// Dialog functions: loading files, opening, running and ending dialogs.
#include <algorithm>

#include "acutads.h"
#include "adsdlg.h"
#include "prancheta/base/event.h"
#include "prancheta/base/library.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/dcl/library_cache.h"
#include "prancheta/dcl/session.h"
#include "prancheta/dcl/source_file.h"

using namespace prancheta;
using namespace prancheta::dcl;

namespace {

constexpr std::size_t kToldFindings = 20;
constexpr int kFailedLoad = -1;

void tell(const std::string& text) { acutPrintf(L"\n%ls", toWide(text).c_str()); }

void tellFindings(const Library& library) {
    const std::size_t told = std::min(library.findings.size(), kToldFindings);
    for (std::size_t i = 0; i < told; ++i) tell(library.findings[i].error.message());
    if (const std::size_t more = library.findings.size() - told; more > 0)
        tell("... e mais " + std::to_string(more) + " no mesmo arquivo");
}

/// Dialogs of the installation; the environment tells the modules the same folder. Empty for none.
std::filesystem::path installedDialogs() {
    const std::string folder = environment("ZPFORJA2010");
    return folder.empty() ? std::filesystem::path() : pathFromUtf8(folder) / "Perfis";
}

/// The definition of a dialog, or null.
DefinitionPtr dialogNamed(const LoadedFile& file, const std::string& name) {
    if (file.library == nullptr) return nullptr;
    const auto it = file.library->definitions.find(name);
    if (it == file.library->definitions.end() || it->second->kind != TileKind::Dialog)
        return nullptr;
    return it->second;
}

/// Nothing and no name for an identifier that was never given or is unloaded.
LoadedFile fileWith(int id) {
    if (id == kFailedLoad) return session().lastFailure;
    const auto it = session().loaded.find(id);
    return it != session().loaded.end() ? it->second : LoadedFile{};
}

OpenDialog* openDialog(const LoadedFile& file, const std::string& name, CLIENTFUNC fallback) {
    if (session().open.size() >= kDeepestNestedDialog) return nullptr;
    const DefinitionPtr definition = dialogNamed(file, name);
    if (definition == nullptr) return nullptr;
    return &session().push(definition, name, file.name, fallback);
}

}  // namespace

int ads_load_dialog(const ACHAR* file, int* dcl_id) {
    if (file == nullptr || dcl_id == nullptr) return RTERROR;
    const std::filesystem::path path = findSource(toUtf8(file), installedDialogs());
    LoadedFile entry{nullptr, path.filename().string()};
    Result<LoadedLibrary> loaded = loadLibrary(path);
    if (!loaded) {
        tell(loaded.error().message());
        session().lastFailure = std::move(entry);
        *dcl_id = kFailedLoad;
        return RTERROR;
    }
    if (loaded->fresh) tellFindings(*loaded->library);
    entry.library = loaded->library;
    *dcl_id = ++session().lastId;
    session().loaded.emplace(*dcl_id, std::move(entry));
    return RTNORM;
}

int ads_unload_dialog(int dcl_id) {
    session().loaded.erase(dcl_id);
    return RTNORM;
}

int ads_new_dialog(const ACHAR* name, int dcl_id, CLIENTFUNC deflt, ads_hdlg* dialog) {
    if (name == nullptr || dialog == nullptr) return RTERROR;
    *dialog = nullptr;
    const LoadedFile file = fileWith(dcl_id);
    const std::string dialogName = toUtf8(name);
    const OpenDialog* opened = openDialog(file, dialogName, deflt);
    if (opened != nullptr) *dialog = opened->handle();
    const int result = opened != nullptr ? RTNORM : RTERROR;
    if (recording())
        record({"dialogo",
                {{"nome", {dialogName}},
                 {"arquivo", {file.name}},
                 {"resultado", {static_cast<long long>(result)}}}});
    return result;
}

int ads_start_dialog(ads_hdlg handle, int* status) {
    if (status != nullptr) *status = DLGCANCEL;
    Session& s = session();
    const std::shared_ptr<OpenDialog> dialog = s.frontmost();
    if (dialog == nullptr || dialog->handle() != handle || dialog->started()) return RTERROR;
    if (!s.runner) {
        s.close(*dialog);
        return RTERROR;
    }
    dialog->start();
    // All dialogs may have been ended in the meantime.
    const DialogRunner runner = s.runner;
    if (!dialog->finished()) runner(*dialog);
    if (!dialog->finished()) dialog->abandon();
    s.close(*dialog);
    if (status != nullptr) *status = dialog->status();
    return RTNORM;
}

int ads_done_dialog(ads_hdlg handle, int status) {
    OpenDialog* dialog = session().dialog(handle);
    if (dialog == nullptr) return RTERROR;
    if (dialog->done(status)) return RTNORM;
    if (dialog->started()) return RTERROR;
    session().close(*dialog);
    return RTNORM;
}

int ads_term_dialog() {
    for (const auto& dialog : session().open) dialog->terminate();
    session().discardUnstarted();
    return RTNORM;
}
