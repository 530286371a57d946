// SPDX-License-Identifier: MIT
// Runs the command of the module that draws tables.
#include "prancheta/console/pieces_job.h"

#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/editor/editor.h"
#include "protocol/pieces.h"

namespace prancheta::console {

Result<void> drawPieces(Editor& editor, const std::string& file, bool partial) {
    auto* const table =
        static_cast<protocol::PieceTable*>(acrxSysRegistry()->at(protocol::kPieceTableKey));
    if (table == nullptr)
        return Error{
            "nenhum módulo carregado sabe desenhar uma tabela de peças; não use "
            "--sem-modulos com --pecas"};
    std::error_code error;
    if (!std::filesystem::is_regular_file(pathFromUtf8(file), error))
        return Error{"o arquivo não existe ou não pode ser lido", file};
    table->take(toWide(file).c_str(), partial);
    (void)editor.runner().start(std::wstring(L"_") + table->command());
    return {};
}

}  // namespace prancheta::console
