// SPDX-License-Identifier: MIT
// Files that the command of the material list writes.
#pragma once

#include "prancheta/desktop/panels/material_rows.h"
#include "prancheta/desktop/panels/panels.h"

namespace prancheta::desktop {

struct ListFile {
    QString title;  ///< of the dialog
    QString name;   ///< proposed, without its extension
    QString end;    ///< that the name must have before its extension; may be empty
    int list = 0;   ///< its number; 0 when there is no need to say
};

/// The chosen name with this end and extension, which it may have in letters of either case.
QString listFileName(const QString& chosen, const QString& end, const QString& extension);

/// Asks for the file's name and lets the panel ask for the command that writes it; what is wrong
/// with the name is told by the panel. Nothing when the user declined.
void writeListFile(Panel& panel, const MaterialSchema& schema, const MaterialSchema::Format& format,
                   const ListFile& file);

}  // namespace prancheta::desktop
