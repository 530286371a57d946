// SPDX-License-Identifier: MIT
// CATALOGOS, and the findings as hosts ask for them.
#pragma once

#include "adesk.h"

namespace perfis {

/// Global and local name.
inline constexpr const ACHAR* kCatalogueCommand = L"CATALOGOS";
/// Prints what is wrong with the lists and side tables of the installation.
void catalogueCommand();

/// Answers a host that asks for the findings of a folder; takes the answer away.
void installCatalogueExaminer();
void removeCatalogueExaminer();

}  // namespace perfis
