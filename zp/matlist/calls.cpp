// SPDX-License-Identifier: MIT
// The calls by which drawing commands enter pieces in the material list.
#include <algorithm>
#include <cwchar>
#include <limits>
#include <memory>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpchapa.h"
#include "perfis/entities/zpfuncoes.h"
#include "texts/number.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/zpmarca.h"
#include "zp/matlist/zpmatlist.h"

namespace {

/// The list that is open for adding. The calls have no object of their own to keep it in.
struct OpenedList {
    AcDbObjectId list;
    int type = 1;
    CCountMarca* counter = nullptr;
};
OpenedList g_opened;

const wchar_t* orEmpty(const wchar_t* text) { return text != nullptr ? text : L""; }

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

void Linha::AddPeca(const AcDbObjectId& peca) {
    if (!peca.isNull()) pecas.push_back(peca);
}

int ZpArxConnectLista(int& list, AcDbObjectId& listId, int& state, wchar_t* group, CCountMarca&,
                      int& type) {
    type = std::max(1, type);
    list = 0;
    state = 0;
    listId.setNull();
    AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr || group == nullptr) return 0;
    std::vector<zp::matlist::MaterialList> ofGroup = zp::matlist::materialLists(*drawing);
    std::erase_if(ofGroup,
                  [&](const zp::matlist::MaterialList& l) { return l.header.group != group; });
    if (ofGroup.empty()) {
        const auto fresh = zp::matlist::newList(*drawing, group);
        if (!fresh) return 0;
        ofGroup.push_back(*fresh);
        state = 1;
    }
    const std::optional<zp::matlist::MaterialList> chosen = zp::matlist::askWhich(ofGroup);
    if (!chosen) return 0;
    list = chosen->number;
    listId = chosen->id;
    return 1;
}

int ZpArxOpenLista(int, AcDbObjectId& listId, int, wchar_t*, int type, CCountMarca& counter,
                   AcGePoint3d& point) {
    std::optional<zp::matlist::Header> header = zp::matlist::readHeader(listId);
    if (!header) return 0;
    // One made by the user is as empty as one just made.
    if (zp::matlist::hasNoRows(listId) && !zp::matlist::hasTable(*header)) {
        header->point = point;
        if (!zp::matlist::writeHeader(listId, *header)) return 0;
    }
    g_opened = {listId, std::max(1, type), &counter};
    return 1;
}

int ZpArxGetNextMarca(wchar_t* marca) {
    if (marca == nullptr || g_opened.counter == nullptr) return 0;
    std::vector<int>& given = g_opened.counter->given;
    const std::wstring free =
        zp::matlist::Book::of(*g_opened.list.database()).freeMarca(L"", given);
    given.push_back(texts::toInt(free.c_str() + 1));
    std::swprintf(marca, kZpMarcaMax, L"%ls", free.c_str());
    return 1;
}

void ZpArxAddMarca(AcGePoint3d tip, AcGePoint3d text, wchar_t* marca, AcDbObjectId& marcaId) {
    marcaId.setNull();
    if (marca == nullptr) return;
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    const zp::matlist::Book::OwnWork own(zp::matlist::Book::of(*drawing));
    auto entity = std::make_unique<ZpMarca>(tip, text, marca, kMarcaAltura * GetScale());
    (void)entity->setLayer(
        ZpLayerToUsr(L"MARCA"));  // a name that cannot be a layer leaves the current one
    if (append(entity.get(), marcaId) == RTNORM)
        (void)entity.release()->close();
    else
        marcaId.setNull();
}

int ZpArxAddToLista(Linha& row) {
    if (g_opened.counter == nullptr) return 0;
    const long long quantidade = static_cast<long long>(row.quantidade) * g_opened.type;
    if (quantidade < 0 || quantidade > std::numeric_limits<int>::max()) {
        acutPrintf(
            L"\n%ls: %lld peças não cabem na lista de material (até %d); a linha não entrou. "
            L"Diminua o número de peças.\n",
            row.marca.c_str(), quantidade, std::numeric_limits<int>::max());
        return 0;
    }
    // What the caller hands over is told by the caller.
    const zp::matlist::Book::OwnWork own(zp::matlist::Book::of(*g_opened.list.database()));
    Linha all = row;
    all.quantidade = static_cast<int>(quantidade);
    all.pesoTotal *= g_opened.type;
    all.areaPintura *= g_opened.type;
    all.tied = !row.pecas.empty();
    const AcDbObjectId record = zp::matlist::add(g_opened.list, all);
    if (record.isNull()) return 0;
    for (const AcDbSoftPointerId& marca : row.ids)
        if (!row.pecas.empty()) (void)zp::matlist::tieMarca(marca, row.pecas.front());
    for (const AcDbObjectId& peca : row.pecas)
        if (zp::matlist::isChapa(peca))
            (void)zp::matlist::enterChapas(peca, record);
        else
            (void)zp::matlist::enterRow(peca, record, g_opened.type);
    return 1;
}

void ZpArxCloseLista() { g_opened = {}; }
