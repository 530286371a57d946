// SPDX-License-Identifier: MIT
// The host as a whole: run-time classes, editor, modules, in the order in which they come up and go
// down.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "prancheta/editor/editor.h"

namespace prancheta {

struct HostOptions {
    /// Installation folder for the modules (environment variable ZPFORJA2010).
    std::filesystem::path installation;
    /// True: the folder replaces what the environment says; false: it counts only when the variable
    /// is not set.
    bool installationOverrides = false;
    /// Folder in which the default modules are looked for, usually the program's own.
    std::filesystem::path programFolder;
    bool loadDefaultModules = true;
};

/// Made once by a front end and destroyed before it leaves main.
class Host {
public:
    Host(UserInterface& ui, HostOptions options);
    /// Tells the modules, closes the drawing, unloads the modules.
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    Editor& editor() { return *m_editor; }
    /// Loads the default modules. The first failure is given back, one that is missing included;
    /// the others are loaded all the same.
    Result<void> start();

    /// The folder that modules see as installation folder; empty when none is known.
    static std::filesystem::path installationFolder();
    /// Folder of the running program.
    static std::filesystem::path programFolder();

private:
    HostOptions m_options;
    std::unique_ptr<Editor> m_editor;
};

}  // namespace prancheta
