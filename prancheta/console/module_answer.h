// SPDX-License-Identifier: MIT
// What the console asks of a loaded module through the registry.
#pragma once

#include <iostream>

#include "rxdict.h"

namespace prancheta::console {

/// The module's object under a key; null, and the user is told, when no loaded module has one.
/// `able` is what it would know ("conferir um desenho"), `option` what asked for it.
template <class Answer>
const Answer* moduleAnswer(const ACHAR* key, const char* able, const char* option) {
    const auto* const answer = static_cast<const Answer*>(acrxSysRegistry()->at(key));
    if (answer == nullptr)
        std::cerr << "prancheta-console: nenhum módulo carregado sabe " << able
                  << "; não use --sem-modulos com " << option << "\n";
    return answer;
}

}  // namespace prancheta::console
