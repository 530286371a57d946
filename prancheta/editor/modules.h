// SPDX-License-Identifier: MIT
// Modules: shared objects that bring commands and classes into the host.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "prancheta/base/result.h"
#include "rxdefs.h"
#include "rxregsvc.h"

namespace prancheta {

class Editor;

/// A loaded module. Its address is the application id that the module is given.
struct Module {
    std::filesystem::path path;
    std::wstring name;           ///< file name
    void* handle = nullptr;      ///< the dynamic linker's
    const void* base = nullptr;  ///< where it is mapped
    AcRx::AppRetCode (*entry)(AcRx::AppMsgCode, void*) = nullptr;
    int apiVersion = 0;
    bool locked = true;
    bool mdiAware = false;
    bool busy = false;                ///< inside kInitAppMsg, kLoadDwgMsg or their counterparts
    bool started = false;             ///< kInitAppMsg is done
    std::vector<AcRxClass*> classes;  ///< those that it registered then
    std::vector<std::wstring> needs;  ///< other modules it is linked to
};

class ModuleTable {
public:
    explicit ModuleTable(Editor& editor) : m_editor(editor) {}
    ~ModuleTable();
    ModuleTable(const ModuleTable&) = delete;
    ModuleTable& operator=(const ModuleTable&) = delete;

    /// Loads a module and, before it, the modules it is linked to; sends kInitAppMsg and
    /// kLoadDwgMsg. A module that is loaded already is no error. A bare name is looked for in the
    /// program's folder, too.
    Result<void> load(const std::filesystem::path& path);
    /// Sends kUnloadDwgMsg and kUnloadAppMsg and takes the module out. Refused, with the reason,
    /// while it is locked, while one of its commands runs, while another module needs it, and while
    /// the drawing (what undo could bring back included) holds objects of its classes.
    Result<void> unload(std::wstring_view name);
    /// At the end of the program, after the drawing is gone: unloads all, whatever they answer.
    void unloadAll();

    /// Name without regard to case, with or without folder and extension.
    Module* find(std::wstring_view name);
    Module* find(const void* applicationId);
    const std::vector<std::unique_ptr<Module>>& all() const { return m_modules; }
    /// To every module in the order of loading. One that answers kRetError to a message about a
    /// drawing is unloaded, locked or not, unless it is in use.
    void broadcast(AcRx::AppMsgCode message);
    /// True while a module answers kInitAppMsg or kLoadDwgMsg.
    bool initialising() const;

    void setFolder(std::filesystem::path folder) { m_folder = std::move(folder); }

    /// What may become of a module that a script asks for. Free: it is loaded. Unknown: only when
    /// the user says so. Barred: it is refused, whoever asks by a command.
    enum class Trust { Free, Unknown, Barred };
    /// Free are what is loaded already, the program's folder, what was named by trust(), and the
    /// folders of the variable TRUSTEDPATHS.
    Trust trustOf(const std::filesystem::path& path);
    /// The user himself named this file when he started the program.
    void trust(const std::filesystem::path& path);
    /// Bars all but the default modules of the program's folder.
    void barOthers() { m_others = Others::Barred; }

private:
    enum class Others { Asked, Barred };

    Result<void> loadFile(const std::filesystem::path& file);
    Result<void> initialise(Module& module);
    std::filesystem::path locate(const std::filesystem::path& path) const;
    std::wstring reasonToStay(const Module& module) const;
    std::wstring useOf(const Module& module) const;
    void dismiss(Module& module, AcRx::AppMsgCode refused);
    void remove(Module& module);
    AcRx::AppRetCode send(Module& module, AcRx::AppMsgCode message);

    Editor& m_editor;
    std::filesystem::path m_folder;
    Others m_others = Others::Asked;
    std::vector<std::filesystem::path> m_trusted;  ///< files
    std::vector<std::unique_ptr<Module>> m_modules;
    std::vector<std::wstring> m_loading;
};

/// File names of the modules beside the program that are loaded at the start.
extern const std::vector<std::wstring> kDefaultModules;

}  // namespace prancheta
