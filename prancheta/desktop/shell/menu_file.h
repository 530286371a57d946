// SPDX-License-Identifier: MIT
// Menus and toolbars as data: the file menus.json of the installation folder.
#pragma once

#include <QString>

#include <filesystem>
#include <optional>
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

/// Several entries behind one button, which shows the one that was used last.
struct Family {
    QString title;
    std::vector<QString> entries;  ///< commands and actions of the menus
};

/// One place of a toolbar. At most one of the three is there; none: a separator.
struct ToolbarItem {
    QString entry;  ///< command or action of the menus
    QString field;  ///< one of kToolbarFields
    std::optional<Family> family;
};

/// What the window shows of the drawing in a toolbar, to be set there.
inline constexpr const char* kToolbarFields[] = {"camada", "cor", "tipo-de-linha", "espessura",
                                                 "escala"};

struct Toolbar {
    QString title;
    bool left = false;  ///< stands beside the drawing area instead of above it
    bool newRow = false;
    std::vector<ToolbarItem> items;
};

struct MenuFile {
    std::vector<MenuItem> menus;
    std::vector<Toolbar> toolbars;
    std::vector<Family> start;  ///< families that the start page shows
};

/// Checks names of keys, mnemonics that occur twice in a menu, and toolbars against the menus. A
/// family without items of its own has those of the submenu of its title.
Result<MenuFile> readMenus(const std::filesystem::path& file);

}  // namespace prancheta::desktop
