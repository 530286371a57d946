// SPDX-License-Identifier: MIT
// Rows by piece, and rows that follow a changed piece.
#include "zp/matlist/follow.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_map>
#include <utility>

#include "dbapserv.h"
#include "texts/number.h"
#include "zp/matlist/lists.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/edit.h"

namespace zp::lista {
namespace {

/// How near the tip of a mark is to a corner to stand on it, mm.
constexpr double kNaPonta = 1e-6;
/// How near two values are to be one, over their size.
constexpr double kMesmoValor = 1e-9;

/// Rows of one list by mark and by piece. Rows behind the last one known are read when asked for; a
/// last one that is gone, or another number of entries than those read, means that rows were taken
/// out or came back: all are read again.
struct Index {
    AcDbObjectId lista;
    RowRecord ultimo;
    std::size_t entries = 0;  ///< of the list when it was read
    std::unordered_map<Adesk::LongPtr, AcDbObjectId> registros;
};
std::vector<Index> g_indices;

void enter(Index& indice, const RowRecord& lido) {
    indice.ultimo = lido;
    const AcDbObjectId registro = lido.id;
    const std::optional<Linha> linha = rowAt(registro);
    if (!linha) return;
    for (const AcDbSoftPointerId& id : linha->ids) {
        indice.registros[id.asOldId()] = registro;
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        if (marca.object() != nullptr && !marca->peca().isNull())
            indice.registros[marca->peca().asOldId()] = registro;
    }
}

void update(Index& indice) {
    const std::size_t antes = std::exchange(indice.entries, entryCount(indice.lista));
    const RowRecord ultimo = indice.ultimo;
    const bool vale = !ultimo.id.isNull() && !ultimo.id.isErased() &&
                      recordNumbered(indice.lista, ultimo.numero) == ultimo.id;
    std::size_t novas = 0;
    for (int numero = ultimo.numero + 1; vale; ++numero, ++novas) {
        const AcDbObjectId id = recordNumbered(indice.lista, numero);
        if (id.isNull()) break;
        enter(indice, {numero, id});
    }
    if (vale && antes + novas == indice.entries) return;
    indice.registros.clear();
    indice.ultimo = {};
    for (const RowRecord& lido : registros(indice.lista)) enter(indice, lido);
}

/// The mark of a row that stands for the piece, or that is the id itself; null when the row tells
/// of something else by now.
AcDbObjectId marcaIn(AcDbObjectId registro, AcDbObjectId marcaOrPeca) {
    const std::optional<Linha> linha = registro.isErased() ? std::nullopt : rowAt(registro);
    if (!linha) return {};
    for (const AcDbSoftPointerId& id : linha->ids) {
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        if (marca.object() == nullptr) continue;
        if (id == marcaOrPeca || marca->peca() == marcaOrPeca) return id;
    }
    return {};
}

struct Found {
    AcDbObjectId registro;
    AcDbObjectId marca;
};

Found findInIndex(AcDbObjectId id) {
    for (const Index& indice : g_indices) {
        const auto achada = indice.registros.find(id.asOldId());
        if (achada == indice.registros.end()) continue;
        const AcDbObjectId marca = marcaIn(achada->second, id);
        if (!marca.isNull()) return {achada->second, marca};
    }
    return {};
}

Index& indexOf(AcDbObjectId lista) {
    for (Index& indice : g_indices)
        if (indice.lista == lista) return indice;
    return g_indices.emplace_back(Index{lista, {}, 0, {}});
}

Found locate(AcDbObjectId id) {
    if (id.isNull() || id.database() == nullptr) return {};
    if (const Found achada = findInIndex(id); !achada.registro.isNull()) return achada;
    for (const Lista& lista : listas(*id.database())) update(indexOf(lista.id));
    return findInIndex(id);
}

/// Whole mm, as when the plate entered the list.
std::wstring millimetres(double valor) { return std::to_wstring(texts::realToInt(valor)); }

/// What the list says of a piece.
void describe(const ZpObject& peca, Linha& linha) {
    if (peca.isKindOf(ZpChapa::desc())) {
        linha.dimensoes = millimetres(peca.getLargura()) + L"x" + millimetres(peca.getEspessura());
    } else {
        wchar_t texto[kZpTextoMax] = {};
        (void)peca.getPerfil(texto);  // the buffer is there
        linha.descricao = texto;
        (void)peca.getDimensoes(texto);
        linha.dimensoes = texto;
    }
    linha.comprimento = peca.getComprimentoReal();
    linha.pesoUnitario = peca.getPeso();
    linha.pesoTotal = linha.pesoUnitario * linha.quantidade;
    linha.areaPintura = peca.getAreaPintura() * linha.quantidade;
}

void carryMarca(AcDbObjectId id, const edicao::Faces& antes, const edicao::Faces& depois) {
    const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
    if (marca.object() == nullptr) return;
    for (int canto = 0; canto < 4; ++canto) {
        if (marca->ponta().distanceTo(antes.f[canto]) > kNaPonta) continue;
        const AcGeVector3d passo = depois.f[canto] - antes.f[canto];
        if (passo.length() > 0.0 && marca->upgradeOpen() == Acad::eOk)
            (void)marca->transformBy(AcGeMatrix3d::translation(passo));  // a motion is taken
        return;
    }
}

bool differs(double a, double b) { return std::abs(a - b) > kMesmoValor * std::abs(b); }

class Follower : public edicao::Ouvinte {
public:
    void editada(AcDbObjectId id, const edicao::Faces& antes) override {
        const Found achada = locate(id);
        if (achada.registro.isNull()) return;
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        std::optional<Linha> linha = rowAt(achada.registro);
        if (peca.object() == nullptr || !linha) return;
        describe(*peca.object(), *linha);
        (void)rewrite(achada.registro, *linha);  // what cannot be written stays as it was
        carryMarca(achada.marca, antes, edicao::facesDe(*peca.object()));
    }
};

Follower g_follower;  // kept by pointer in the entity library

}  // namespace

void startFollowing() { edicao::ouve(&g_follower); }

void stopFollowing() { edicao::deixa(&g_follower); }

AcDbObjectId recordOf(AcDbObjectId marcaOrPeca) { return locate(marcaOrPeca).registro; }

void describeAgain(AcDbObjectId lista) {
    for (const RowRecord& registro : registros(lista)) {
        std::optional<Linha> linha = rowAt(registro.id);
        if (!linha) continue;
        AcDbObjectId id;
        for (const AcDbSoftPointerId& marcaId : linha->ids) {
            const AcDbObjectPointer<ZpMarca> marca(marcaId, AcDb::kForRead);
            if (marca.object() != nullptr && id.isNull()) id = marca->peca();
        }
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        Linha nova = *linha;
        describe(*peca.object(), nova);
        const bool outra = differs(nova.comprimento, linha->comprimento) ||
                           differs(nova.pesoUnitario, linha->pesoUnitario);
        if (outra) (void)rewrite(registro.id, nova);
    }
}

void forgetRows() { g_indices.clear(); }

int quantidadeListada(AcDbObjectId peca) {
    const std::optional<Linha> linha = rowAt(locate(peca).registro);
    return linha ? linha->quantidade : 0;
}

bool mudaListada(AcDbObjectId antes, AcDbObjectId peca, int quantidade) {
    const Found achada = locate(antes);
    std::optional<Linha> linha = rowAt(achada.registro);
    const AcDbObjectPointer<ZpObject> aberta(peca, AcDb::kForRead);
    if (!linha || aberta.object() == nullptr) return false;
    if (antes != peca && !amarra(achada.marca, peca)) return false;
    linha->quantidade = quantidade;
    describe(*aberta.object(), *linha);
    return rewrite(achada.registro, *linha);
}

bool amarra(AcDbObjectId marca, AcDbObjectId peca) {
    if (marca.isNull() || peca.isNull()) return false;
    const AcDbObjectPointer<ZpMarca> aberta(marca, AcDb::kForWrite);
    if (aberta.object() == nullptr) return false;
    if (aberta->peca() == peca) return true;
    aberta->setPeca(peca);
    for (Index& indice : g_indices)
        if (const auto linha = indice.registros.find(marca.asOldId());
            linha != indice.registros.end())
            indice.registros[peca.asOldId()] = linha->second;
    return true;
}

void retiraListada(AcDbObjectId peca) {
    const AcDbObjectPointer<ZpMarca> marca(locate(peca).marca, AcDb::kForWrite);
    if (marca.object() != nullptr) (void)marca->erase();  // open for write and alive
}

}  // namespace zp::lista
