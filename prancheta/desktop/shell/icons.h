// SPDX-License-Identifier: MIT
// Icons: small drawings of the window's own, and the sections of the slide libraries.
#pragma once

#include <QIcon>
#include <QPalette>

#include <filesystem>

namespace prancheta::desktop {

/// A drawing of the resources in the palette's text colour; null icon for an unknown name.
QIcon drawnIcon(const QString& name, const QPalette& palette);

/// The slide `library(slide)` of the folder in the palette's text colour; null icon when it is not
/// there.
QIcon slideIcon(const std::filesystem::path& folder, const QString& reference,
                const QPalette& palette);

}  // namespace prancheta::desktop
