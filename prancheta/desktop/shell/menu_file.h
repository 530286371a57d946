// SPDX-License-Identifier: MIT
// Menus and toolbars as data: the file menus.json of the installation folder.
#pragma once

#include <QString>

#include <filesystem>
#include <vector>

#include "prancheta/base/result.h"

namespace prancheta::desktop {

/// One line of a menu. Just one of `command`, `action` and `items` is there; none: a separator.
struct MenuItem {
    QString title;    ///< with its mnemonic
    QString command;  ///< line for "Comando:"; with ' at its head it runs inside other commands
    QString action;   ///< something that the window itself does
    QString icon;     ///< name of a drawing of the window's own
    QString slide;    ///< `library(slide)` of the installation folder
    QString shortcut;
    QString tip;
    std::vector<MenuItem> items;  ///< of a submenu

    bool separator() const { return command.isEmpty() && action.isEmpty() && items.empty(); }
};

struct Toolbar {
    QString title;
    bool newRow = false;
    /// Commands and actions of the menus, empty for a separator.
    std::vector<QString> entries;
};

struct MenuFile {
    std::vector<MenuItem> menus;
    std::vector<Toolbar> toolbars;
};

/// Checks names of keys, mnemonics that occur twice in a menu, and toolbars against the menus.
Result<MenuFile> readMenus(const std::filesystem::path& file);

}  // namespace prancheta::desktop
