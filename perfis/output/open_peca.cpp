// SPDX-License-Identifier: MIT
// Puts a new piece in the drawing.
#include "perfis/output/open_peca.h"

#include "adscodes.h"
#include "perfis/entities/zpfuncoes.h"

namespace perfis {

void prepare(ZpObject& piece, int barType) {
    wchar_t standard[] = L"PERFIL";
    // A piece whose layer cannot be had stays on the current one.
    (void)piece.setLayer(ZpLayerToUsr(standard), Adesk::kTrue, false);
    (void)piece.settipoBarra(static_cast<ZpObject::TipoBarra>(barType));
}

OpenPeca::OpenPeca(std::unique_ptr<ZpObject> piece) {
    if (append(piece.get(), m_id) != RTNORM) {
        m_id.setNull();
        return;
    }
    m_piece = piece.release();
}

void OpenPeca::close() {
    if (m_piece == nullptr) return;
    (void)m_piece->close();
    m_piece = nullptr;
}

}  // namespace perfis
