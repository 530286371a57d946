// SPDX-License-Identifier: MIT
// Modules: loading, messages, unloading.
#include "prancheta/editor/modules.h"

#include <algorithm>
#include <new>

#include "prancheta/base/file.h"
#include "prancheta/base/library.h"
#include "prancheta/base/memory.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/register.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/editor.h"

namespace prancheta {

// In the order of loading: what others build on comes first.
const std::vector<std::wstring> kDefaultModules = {L"ZpObjects18.arx", L"ZpGBarraApp18.arx",
                                                   L"trelica18.arx", L"ZP__MaterialList18.arx",
                                                   L"ZpPerfis18.arx"};

namespace {

std::wstring fileNameOf(const std::filesystem::path& path) {
    return toWide(path.filename().string());
}

/// Name without folder, and without extension when it is `.arx`.
std::wstring key(std::wstring_view name) {
    const std::size_t slash = name.find_last_of(L"/\\");
    if (slash != name.npos) name.remove_prefix(slash + 1);
    std::wstring folded = foldCase(name);
    if (folded.ends_with(L".arx")) folded.resize(folded.size() - 4);
    return folded;
}

Error moduleError(const std::filesystem::path& file, std::string text) {
    return Error{std::move(text), file.string()};
}

}  // namespace

ModuleTable::~ModuleTable() { unloadAll(); }

Module* ModuleTable::find(std::wstring_view name) {
    for (const auto& m : m_modules)
        if (key(m->name) == key(name)) return m.get();
    return nullptr;
}

Module* ModuleTable::find(const void* applicationId) {
    for (const auto& m : m_modules)
        if (m.get() == applicationId) return m.get();
    return nullptr;
}

bool ModuleTable::initialising() const {
    return std::any_of(m_modules.begin(), m_modules.end(), [](const auto& m) { return m->busy; });
}

AcRx::AppRetCode ModuleTable::send(Module& module, AcRx::AppMsgCode message) {
    const bool before =
        std::exchange(module.busy, message != AcRx::kSaveMsg && message != AcRx::kPreQuitMsg);
    AcRx::AppRetCode answer = AcRx::kRetError;
    try {
        // A drawing that a module knows in part only would be listed in part.
        answer = insist([&] { return module.entry(message, &module); });
    } catch (const std::bad_alloc&) {
        m_editor.complain(L"Memória insuficiente: o módulo " + module.name +
                          L" não foi avisado de tudo pelo programa.");
    } catch (...) {
        m_editor.complain(L"O módulo " + module.name +
                          L" falhou ao receber uma mensagem do programa.");
    }
    module.busy = before;
    return answer;
}

void ModuleTable::broadcast(AcRx::AppMsgCode message) {
    std::vector<Module*> all;
    all.reserve(m_modules.size());
    for (const auto& m : m_modules) all.push_back(m.get());
    const bool aboutDrawing =
        message == AcRx::kLoadDwgMsg || message == AcRx::kUnloadDwgMsg || message == AcRx::kSaveMsg;
    for (Module* m : all) {
        if (find(m) == nullptr || !m->started) continue;
        if (send(*m, message) == AcRx::kRetError && aboutDrawing) dismiss(*m, message);
    }
}

/// Takes out a module that refused a message, which tells it enough about the drawing it leaves.
void ModuleTable::dismiss(Module& module, AcRx::AppMsgCode refused) {
    const std::wstring reason = module.busy ? L"o módulo está sendo iniciado." : useOf(module);
    if (!reason.empty()) {
        m_editor.complain(L"O módulo " + module.name +
                          L" pediu para ser descarregado, mas não pode: " + reason);
        return;
    }
    const std::wstring name = module.name;
    if (refused == AcRx::kSaveMsg) (void)send(module, AcRx::kUnloadDwgMsg);
    (void)send(module, AcRx::kUnloadAppMsg);
    remove(module);
    m_editor.complain(L"O módulo " + name + L" pediu para ser descarregado, e foi.");
}

std::filesystem::path ModuleTable::locate(const std::filesystem::path& path) const {
    std::error_code ignored;
    const std::filesystem::path here = resolvePath(path.string());
    if (std::filesystem::exists(here, ignored)) return std::filesystem::absolute(here, ignored);
    for (const char* extension : {"", ".arx"}) {
        std::filesystem::path beside = resolvePath((m_folder / path).string() + extension);
        if (!m_folder.empty() && std::filesystem::exists(beside, ignored)) return beside;
    }
    return path;
}

Result<void> ModuleTable::load(const std::filesystem::path& path) {
    const std::filesystem::path file = locate(path);
    const std::wstring name = key(fileNameOf(file));
    if (find(name) != nullptr ||
        std::find(m_loading.begin(), m_loading.end(), name) != m_loading.end())
        return {};
    m_loading.push_back(name);
    Result<void> result = loadFile(file);
    m_loading.pop_back();
    return result;
}

Result<void> ModuleTable::loadFile(const std::filesystem::path& file) {
    std::string reason;
    void* const handle = openLibrary(file, reason);
    if (handle == nullptr) return moduleError(file, "o módulo não pôde ser carregado: " + reason);
    auto module = std::make_unique<Module>();
    module->path = file;
    module->name = fileNameOf(file);
    module->handle = handle;
    for (const std::filesystem::path& needed : neededModules(handle)) {
        module->needs.push_back(fileNameOf(needed));
        Result<void> loaded = load(needed);
        if (!loaded) {
            closeLibrary(handle);
            return loaded;
        }
    }
    module->entry = reinterpret_cast<decltype(module->entry)>(symbolOf(handle, "acrxEntryPoint"));
    if (module->entry == nullptr) {
        closeLibrary(handle);
        return moduleError(file, "o arquivo não é um módulo: falta a função acrxEntryPoint.");
    }
    module->base = libraryOf(reinterpret_cast<const void*>(module->entry));
    // The number is each release's own convention; it is noted, never a reason to refuse.
    if (void* version = symbolOf(handle, "acrxGetApiVersion"))
        module->apiVersion = reinterpret_cast<int (*)()>(version)();
    m_modules.push_back(std::move(module));
    return initialise(*m_modules.back());
}

Result<void> ModuleTable::initialise(Module& module) {
    const std::size_t before = allClasses().size();
    const std::filesystem::path file = module.path;
    bool accepted = send(module, AcRx::kInitAppMsg) != AcRx::kRetError;
    for (std::size_t i = before; i < allClasses().size(); ++i)
        module.classes.push_back(allClasses()[i]);
    module.started = true;
    if (accepted) {
        accepted = send(module, AcRx::kLoadDwgMsg) != AcRx::kRetError;
        if (accepted) return {};
        (void)send(module, AcRx::kUnloadAppMsg);
    }
    remove(module);
    return moduleError(file, "o módulo recusou a carga.");
}

std::wstring ModuleTable::reasonToStay(const Module& module) const {
    if (module.locked) return L"o módulo não permite ser descarregado.";
    if (module.busy) return L"o módulo está sendo iniciado.";
    return useOf(module);
}

/// Why it cannot do without the module now; empty when it can.
std::wstring ModuleTable::useOf(const Module& module) const {
    const auto belongs = [&](const void* code) { return libraryOf(code) == module.base; };
    if (m_editor.runner().runsCodeOf(belongs))
        return L"um comando do módulo está em execução; termine-o antes.";
    for (const auto& other : m_modules) {
        const bool needs =
            std::any_of(other->needs.begin(), other->needs.end(),
                        [&](const std::wstring& name) { return key(name) == key(module.name); });
        if (needs) return L"o módulo " + other->name + L" depende dele; descarregue-o antes.";
    }
    const AcDbDatabase* const copied = m_editor.clipboard().drawing().get();
    for (const AcRxClass* c : module.classes) {
        if (copied != nullptr && copied->core().hasObjectsOf(c))
            return L"a área de transferência tem objetos do tipo " + std::wstring(c->name()) +
                   L", que o módulo define. Copie outra coisa antes.";
        if (!m_editor.database().core().hasObjectsOf(c)) continue;
        return L"o desenho (ou o que ainda pode ser desfeito) tem objetos do tipo " +
               std::wstring(c->name()) + L", que o módulo define. Salve e feche o desenho antes.";
    }
    return {};
}

Result<void> ModuleTable::unload(std::wstring_view name) {
    Module* module = find(name);
    if (module == nullptr) return Error{"O módulo " + toUtf8(name) + " não está carregado."};
    if (const std::wstring reason = reasonToStay(*module); !reason.empty())
        return moduleError(module->path.filename(), toUtf8(reason));
    (void)send(*module, AcRx::kUnloadDwgMsg);
    if (send(*module, AcRx::kUnloadAppMsg) == AcRx::kRetError)
        return moduleError(module->path.filename(), "o módulo recusou ser descarregado.");
    remove(*module);
    return {};
}

/// Nothing of the host may point into the module afterwards, whatever the module forgot to take
/// back.
void ModuleTable::remove(Module& module) {
    const void* base = module.base;
    void* handle = module.handle;
    m_editor.commands().removeFunctions([&](AcRxFunctionPtr function) {
        return libraryOf(reinterpret_cast<const void*>(function)) == base;
    });
    // Nobody would be there to be told.
    const auto its = [base](const auto* reactor) {
        return libraryOf(*reinterpret_cast<const void* const*>(reactor)) == base;  // virtual table
    };
    m_editor.programs().reactors().removeIf(its);
    m_editor.programs().documentReactors().removeIf(its);
    std::erase_if(m_editor.database().core().reactors(), its);
    for (auto c = module.classes.rbegin(); c != module.classes.rend(); ++c) {
        const std::vector<AcRxClass*>& known = allClasses();
        if (std::find(known.begin(), known.end(), *c) != known.end()) deleteAcRxClass(*c);
    }
    std::erase_if(m_modules, [&](const auto& m) { return m.get() == &module; });
    closeLibrary(handle);
}

void ModuleTable::unloadAll() {
    while (!m_modules.empty()) {
        Module& last = *m_modules.back();
        (void)send(last, AcRx::kUnloadAppMsg);
        remove(last);
    }
}

namespace {

ModuleTable* table() {
    Editor* editor = Editor::current();
    return editor != nullptr ? &editor->modules() : nullptr;
}

Module* moduleOf(const void* applicationId) {
    return table() != nullptr ? table()->find(applicationId) : nullptr;
}

bool report(const Result<void>& result, bool tell) {
    if (!result && tell) Editor::current()->print(toWide(result.error().message()) + L"\n");
    return result.ok();
}

}  // namespace
}  // namespace prancheta

bool acrxUnlockApplication(void* appId) {
    prancheta::Module* module = prancheta::moduleOf(appId);
    if (module != nullptr) module->locked = false;
    return module != nullptr;
}

bool acrxLockApplication(void* appId) {
    prancheta::Module* module = prancheta::moduleOf(appId);
    if (module != nullptr) module->locked = true;
    return module != nullptr;
}

bool acrxRegisterAppMDIAware(void* appId) {
    prancheta::Module* module = prancheta::moduleOf(appId);
    if (module != nullptr) module->mdiAware = true;
    return module != nullptr;
}

bool acrxAppIsLoaded(const ACHAR* fileName) {
    return fileName != nullptr && prancheta::table() != nullptr &&
           prancheta::table()->find(std::wstring_view(fileName)) != nullptr;
}

bool acrxLoadModule(const ACHAR* fileName, bool printit, bool) {
    if (fileName == nullptr || prancheta::table() == nullptr) return false;
    return prancheta::report(
        prancheta::table()->load(prancheta::pathFromUtf8(prancheta::toUtf8(fileName))), printit);
}

bool acrxUnloadModule(const ACHAR* fileName, bool) {
    if (fileName == nullptr || prancheta::table() == nullptr) return false;
    return prancheta::report(prancheta::table()->unload(fileName), true);
}
