// SPDX-License-Identifier: MIT
// The calls by which drawing commands enter pieces in the material list.
#include <algorithm>
#include <cwchar>
#include <memory>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/zpmarca.h"
#include "zp/matlist/zpmatlist.h"
#include "zp/objects/watch.h"

namespace {

/// Text height of a mark at drawing scale 1.
constexpr double kAlturaDaMarca = 2.5;

/// The list that is open for adding. The calls have no object of their own to keep it in.
struct Aberta {
    AcDbObjectId lista;
    int tipo = 1;
    CCountMarca* contador = nullptr;
};
Aberta g_aberta;

const wchar_t* ouVazio(const wchar_t* texto) { return texto != nullptr ? texto : L""; }

}  // namespace

CCountMarca::~CCountMarca() {
    if (g_aberta.contador == this) g_aberta = {};
}

Linha::Linha(const wchar_t* marcaDada, int quantidadeDada, const wchar_t* descricaoDada,
             const wchar_t* dimensoesDadas, const wchar_t* materialDado, double comprimentoDado,
             double unitario, double total, double pintura, const wchar_t* observacaoDada)
    : marca(ouVazio(marcaDada)),
      quantidade(quantidadeDada),
      descricao(ouVazio(descricaoDada)),
      dimensoes(ouVazio(dimensoesDadas)),
      material(ouVazio(materialDado)),
      comprimento(comprimentoDado),
      pesoUnitario(unitario),
      pesoTotal(total),
      areaPintura(pintura),
      observacao(ouVazio(observacaoDada)) {}

Linha::~Linha() = default;

void Linha::AddObjId(AcDbSoftPointerId& id) {
    if (!id.isNull()) ids.push_back(id);
}

int ZpArxConnectLista(int& lista, AcDbObjectId& listaId, int& estado, wchar_t* grupo, CCountMarca&,
                      int& tipo) {
    tipo = std::max(1, tipo);
    lista = 0;
    estado = 0;
    listaId.setNull();
    AcDbDatabase* desenho = acdbHostApplicationServices()->workingDatabase();
    if (desenho == nullptr || grupo == nullptr) return 0;
    std::vector<zp::lista::Lista> doGrupo = zp::lista::listas(*desenho);
    std::erase_if(doGrupo, [&](const zp::lista::Lista& l) { return l.cabecalho.grupo != grupo; });
    if (doGrupo.empty()) {
        const auto nova = zp::lista::nova(*desenho, grupo);
        if (!nova) return 0;
        doGrupo.push_back(*nova);
        estado = 1;
    }
    const std::optional<zp::lista::Lista> escolhida = zp::lista::pergunta(doGrupo);
    if (!escolhida) return 0;
    lista = escolhida->numero;
    listaId = escolhida->id;
    return 1;
}

int ZpArxOpenLista(int, AcDbObjectId& listaId, int, wchar_t*, int tipo, CCountMarca& contador,
                   AcGePoint3d& ponto) {
    std::optional<zp::lista::Cabecalho> cabecalho = zp::lista::leCabecalho(listaId);
    if (!cabecalho) return 0;
    // One made by the user is as empty as one just made.
    if (zp::lista::semLinhas(listaId) && !zp::lista::temTabela(*cabecalho)) {
        cabecalho->ponto = ponto;
        if (!zp::lista::gravaCabecalho(listaId, *cabecalho)) return 0;
    }
    g_aberta = {listaId, std::max(1, tipo), &contador};
    return 1;
}

int ZpArxGetNextMarca(wchar_t* marca) {
    if (marca == nullptr || g_aberta.contador == nullptr) return 0;
    std::vector<int>& dadas = g_aberta.contador->dadas;
    const int livre = zp::lista::menorMarcaLivre(g_aberta.lista, dadas);
    dadas.push_back(livre);
    std::swprintf(marca, kZpMarcaMax, L"P%d", livre);
    return 1;
}

void ZpArxAddMarca(AcGePoint3d ponta, AcGePoint3d texto, wchar_t* marca, AcDbObjectId& marcaId) {
    marcaId.setNull();
    if (marca == nullptr) return;
    const AcDbObjectId peca =
        zp::vigia::pecaMarcada(acdbHostApplicationServices()->workingDatabase(), ponta);
    auto entidade =
        std::make_unique<ZpMarca>(ponta, texto, marca, kAlturaDaMarca * GetScale(), peca);
    (void)entidade->setLayer(
        ZpLayerToUsr(L"MARCA"));  // a name that cannot be a layer leaves the current one
    if (append(entidade.get(), marcaId) == RTNORM)
        (void)entidade.release()->close();
    else
        marcaId.setNull();
}

int ZpArxAddToLista(Linha& linha) {
    if (g_aberta.contador == nullptr) return 0;
    Linha todas = linha;
    todas.quantidade *= g_aberta.tipo;
    todas.pesoTotal *= g_aberta.tipo;
    todas.areaPintura *= g_aberta.tipo;
    return zp::lista::acrescenta(g_aberta.lista, todas) ? 1 : 0;
}

void ZpArxCloseLista() { g_aberta = {}; }
