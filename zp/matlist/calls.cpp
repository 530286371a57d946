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
constexpr double kMarcaAltura = 2.5;

/// The list that is open for adding. The calls have no object of their own to keep it in.
struct Aberta {
    AcDbObjectId lista;
    int tipo = 1;
    CCountMarca* counter = nullptr;
};
Aberta g_opened;

const wchar_t* orEmpty(const wchar_t* texto) { return texto != nullptr ? texto : L""; }

}  // namespace

CCountMarca::~CCountMarca() {
    if (g_opened.counter == this) g_opened = {};
}

Linha::Linha(const wchar_t* givenMarca, int givenQuantidade, const wchar_t* givenDescricao,
             const wchar_t* givenDimensoes, const wchar_t* givenMaterial, double givenComprimento,
             double unitPeso, double total, double pintura, const wchar_t* givenObservacao)
    : marca(orEmpty(givenMarca)),
      quantidade(givenQuantidade),
      descricao(orEmpty(givenDescricao)),
      dimensoes(orEmpty(givenDimensoes)),
      material(orEmpty(givenMaterial)),
      comprimento(givenComprimento),
      pesoUnitario(unitPeso),
      pesoTotal(total),
      areaPintura(pintura),
      observacao(orEmpty(givenObservacao)) {}

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
    std::vector<zp::lista::Lista> ofGroup = zp::lista::listas(*desenho);
    std::erase_if(ofGroup, [&](const zp::lista::Lista& l) { return l.header.grupo != grupo; });
    if (ofGroup.empty()) {
        const auto nova = zp::lista::nova(*desenho, grupo);
        if (!nova) return 0;
        ofGroup.push_back(*nova);
        estado = 1;
    }
    const std::optional<zp::lista::Lista> escolhida = zp::lista::pergunta(ofGroup);
    if (!escolhida) return 0;
    lista = escolhida->numero;
    listaId = escolhida->id;
    return 1;
}

int ZpArxOpenLista(int, AcDbObjectId& listaId, int, wchar_t*, int tipo, CCountMarca& counter,
                   AcGePoint3d& ponto) {
    std::optional<zp::lista::Header> header = zp::lista::readHeader(listaId);
    if (!header) return 0;
    // One made by the user is as empty as one just made.
    if (zp::lista::hasNoRows(listaId) && !zp::lista::hasTable(*header)) {
        header->ponto = ponto;
        if (!zp::lista::writeHeader(listaId, *header)) return 0;
    }
    g_opened = {listaId, std::max(1, tipo), &counter};
    return 1;
}

int ZpArxGetNextMarca(wchar_t* marca) {
    if (marca == nullptr || g_opened.counter == nullptr) return 0;
    std::vector<int>& given = g_opened.counter->given;
    const int lowestFree = zp::lista::lowestFreeMarca(g_opened.lista, given);
    given.push_back(lowestFree);
    std::swprintf(marca, kZpMarcaMax, L"P%d", lowestFree);
    return 1;
}

void ZpArxAddMarca(AcGePoint3d ponta, AcGePoint3d texto, wchar_t* marca, AcDbObjectId& marcaId) {
    marcaId.setNull();
    if (marca == nullptr) return;
    const AcDbObjectId peca =
        zp::vigia::pecaMarcada(acdbHostApplicationServices()->workingDatabase(), ponta);
    auto entidade = std::make_unique<ZpMarca>(ponta, texto, marca, kMarcaAltura * GetScale(), peca);
    (void)entidade->setLayer(
        ZpLayerToUsr(L"MARCA"));  // a name that cannot be a layer leaves the current one
    if (append(entidade.get(), marcaId) == RTNORM)
        (void)entidade.release()->close();
    else
        marcaId.setNull();
}

int ZpArxAddToLista(Linha& linha) {
    if (g_opened.counter == nullptr) return 0;
    Linha all = linha;
    all.quantidade *= g_opened.tipo;
    all.pesoTotal *= g_opened.tipo;
    all.areaPintura *= g_opened.tipo;
    return zp::lista::acrescenta(g_opened.lista, all) ? 1 : 0;
}

void ZpArxCloseLista() { g_opened = {}; }
