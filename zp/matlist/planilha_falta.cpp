// SPDX-License-Identifier: MIT
// Workbooks in a build without the library that writes them.
#include "zp/matlist/tabela.h"

namespace zp::lista {

bool sabeXlsx() { return false; }

bool gravaXlsx(const std::filesystem::path&, const std::vector<Linha>&) { return false; }

}  // namespace zp::lista
