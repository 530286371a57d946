// SPDX-License-Identifier: MIT
// Which sizes of drawn pieces stand in the catalogues of their commands.
#pragma once

namespace perfis {

/// The check of a drawing asks our catalogues from now on; no longer.
void installCatalogueCheck();
void removeCatalogueCheck();

}  // namespace perfis
