// SPDX-License-Identifier: MIT
// The calls by which drawing commands enter pieces in the material list.
#include <algorithm>
#include <cwchar>
#include <memory>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "zp/matlist/lista.h"
#include "zp/matlist/zpmarca.h"
#include "zp/matlist/zpmatlist.h"
#include "zp/objects/vigia.h"

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
int g_ultimaLista = 0;

const wchar_t* ouVazio(const wchar_t* texto) { return texto != nullptr ? texto : L""; }

/// Which of several lists; 0 when the user declined.
int perguntaLista(const std::vector<zp::lista::Lista>& listas) {
    const auto existe = [&](int n) {
        return std::any_of(listas.begin(), listas.end(),
                           [n](const auto& l) { return l.numero == n; });
    };
    const int ultima = existe(g_ultimaLista) ? g_ultimaLista : listas.back().numero;
    const std::wstring mensagem = L"\nLista de material <" + std::to_wstring(ultima) + L">: ";
    for (;;) {
        acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
        int numero = 0;
        const int status = acedGetInt(mensagem.c_str(), &numero);
        if (status == RTNONE) return ultima;
        if (status != RTNORM) return 0;
        if (existe(numero)) return numero;
        acutPrintf(L"\nNão há lista de material com este número.");
    }
}

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

void Linha::AddObjId(const AcDbSoftPointerId& id) {
    if (!id.isNull()) ids.push_back(id);
}

int ZpArxConnectLista(int& lista, AcDbObjectId& listaId, int& estado, const wchar_t* grupo,
                      CCountMarca&, int& tipo) {
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
    lista = doGrupo.size() == 1 ? doGrupo.front().numero : perguntaLista(doGrupo);
    if (lista == 0) return 0;
    const auto escolhida =
        std::find_if(doGrupo.begin(), doGrupo.end(),
                     [&](const zp::lista::Lista& l) { return l.numero == lista; });
    listaId = escolhida->id;
    g_ultimaLista = lista;
    return 1;
}

int ZpArxOpenLista(int, AcDbObjectId& listaId, int estado, const wchar_t*, int tipo,
                   CCountMarca& contador, AcGePoint3d& ponto) {
    std::optional<zp::lista::Cabecalho> cabecalho = zp::lista::leCabecalho(listaId);
    if (!cabecalho) return 0;
    if (estado == 1) {
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

void ZpArxAddMarca(AcGePoint3d ponta, AcGePoint3d texto, const wchar_t* marca,
                   AcDbObjectId& marcaId) {
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
