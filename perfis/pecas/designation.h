// SPDX-License-Identifier: MIT
// From the name of a size, "W 200 x 46,1", to the command that draws it and its numbers.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "perfis/commands/handlers.h"

namespace perfis {

/// What a designation means.
struct DesignatedSize {
    const PerfilCommand* command = nullptr;
    int source = 0;
    Medidas medidas;      ///< without the distance of two pieces
    bool listed = false;  ///< the size stands in a list
};

/// The lists of the commands by the names of their sizes, each read when it is first asked for.
class Designations {
public:
    Designations();
    ~Designations();

    /// The first that fits: of the commands whose list holds the size, else of all, cold-formed
    /// before rolled; of a pair whose form is not said the usual form. `only` stands for a command
    /// that was named. What is wrong, for the user; empty when `size` was found. Linear in the
    /// rows of the lists.
    std::wstring find(const std::wstring& designation, const PerfilCommand* only,
                      DesignatedSize& size);

    struct Row;

private:
    const std::vector<Row>& rowsOf(const PerfilCommand& command);

    std::map<const PerfilCommand*, std::vector<Row>> m_rows;
};

/// The command with this local or global name; null when there is none.
const PerfilCommand* commandCalled(const std::wstring& name);
/// "U 200x75x3": name and numbers of a size as find() takes them, with up to six decimals.
std::wstring typedName(const PerfilCommand& command, int source, const Medidas& medidas);
/// The gaps of a built-up that the user chooses; null where a command has none.
Medida vaoOf(const PerfilDescription& description, zp::secao::Role role);

}  // namespace perfis
