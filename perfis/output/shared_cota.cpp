// SPDX-License-Identifier: MIT
// The only value that the commands of the module share.
#include "perfis/output/shared_cota.h"

namespace perfis {

int& sharedCotaFlag() {
    static int flag = 0;
    return flag;
}

}  // namespace perfis
