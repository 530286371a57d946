// SPDX-License-Identifier: MIT
// Puts a new piece in the drawing.
#include "perfis/output/open_peca.h"

#include "adscodes.h"
#include "perfis/entities/zpfuncoes.h"

namespace perfis {

void prepare(ZpObject& peca, int tipoBarra) {
    wchar_t standard[] = L"PERFIL";
    // A piece whose layer cannot be had stays on the current one.
    (void)peca.setLayer(ZpLayerToUsr(standard), Adesk::kTrue, false);
    (void)peca.settipoBarra(static_cast<ZpObject::TipoBarra>(tipoBarra));
}

OpenPeca::OpenPeca(std::unique_ptr<ZpObject> peca) {
    if (append(peca.get(), m_id) != RTNORM) {
        m_id.setNull();
        return;
    }
    m_peca = peca.release();
}

void OpenPeca::close() {
    if (m_peca == nullptr) return;
    (void)m_peca->close();
    m_peca = nullptr;
}

}  // namespace perfis
