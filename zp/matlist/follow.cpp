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

namespace zp::matlist {
namespace {

/// How near the tip of a mark is to a corner to stand on it, mm.
constexpr double kAtTip = 1e-6;
/// How near two values are to be one, over their size.
constexpr double kSameValue = 1e-9;

/// Rows of one list by mark and by piece. Rows behind the last one known are read when asked for; a
/// last one that is gone, or another number of entries than those read, means that rows were taken
/// out or came back: all are read again.
struct Index {
    AcDbObjectId list;
    RowRecord last;
    std::size_t entries = 0;  ///< of the list when it was read
    std::unordered_map<Adesk::LongPtr, AcDbObjectId> records;
};
std::vector<Index> g_indices;

void enter(Index& index, const RowRecord& read) {
    index.last = read;
    const AcDbObjectId record = read.id;
    const std::optional<Linha> row = rowAt(record);
    if (!row) return;
    for (const AcDbSoftPointerId& id : row->ids) {
        index.records[id.asOldId()] = record;
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        if (marca.object() != nullptr && !marca->peca().isNull())
            index.records[marca->peca().asOldId()] = record;
    }
}

void update(Index& index) {
    const std::size_t before = std::exchange(index.entries, entryCount(index.list));
    const RowRecord last = index.last;
    const bool holds = !last.id.isNull() && !last.id.isErased() &&
                       recordNumbered(index.list, last.number) == last.id;
    std::size_t newOnes = 0;
    for (int number = last.number + 1; holds; ++number, ++newOnes) {
        const AcDbObjectId id = recordNumbered(index.list, number);
        if (id.isNull()) break;
        enter(index, {number, id});
    }
    if (holds && before + newOnes == index.entries) return;
    index.records.clear();
    index.last = {};
    for (const RowRecord& read : records(index.list)) enter(index, read);
}

/// The mark of a row that stands for the piece, or that is the id itself; null when the row tells
/// of something else by now.
AcDbObjectId marcaIn(AcDbObjectId record, AcDbObjectId marcaOrPeca) {
    const std::optional<Linha> row = record.isErased() ? std::nullopt : rowAt(record);
    if (!row) return {};
    for (const AcDbSoftPointerId& id : row->ids) {
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        if (marca.object() == nullptr) continue;
        if (id == marcaOrPeca || marca->peca() == marcaOrPeca) return id;
    }
    return {};
}

struct Found {
    AcDbObjectId record;
    AcDbObjectId marca;
};

Found findInIndex(AcDbObjectId id) {
    for (const Index& index : g_indices) {
        const auto found = index.records.find(id.asOldId());
        if (found == index.records.end()) continue;
        const AcDbObjectId marca = marcaIn(found->second, id);
        if (!marca.isNull()) return {found->second, marca};
    }
    return {};
}

Index& indexOf(AcDbObjectId list) {
    for (Index& index : g_indices)
        if (index.list == list) return index;
    return g_indices.emplace_back(Index{list, {}, 0, {}});
}

Found locate(AcDbObjectId id) {
    if (id.isNull() || id.database() == nullptr) return {};
    if (const Found found = findInIndex(id); !found.record.isNull()) return found;
    for (const MaterialList& list : materialLists(*id.database())) update(indexOf(list.id));
    return findInIndex(id);
}

/// Whole mm, as when the plate entered the list.
std::wstring millimetres(double value) { return std::to_wstring(texts::realToInt(value)); }

/// What the list says of a piece.
void describe(const ZpObject& peca, Linha& row) {
    if (peca.isKindOf(ZpChapa::desc())) {
        row.dimensoes = millimetres(peca.getLargura()) + L"x" + millimetres(peca.getEspessura());
    } else {
        wchar_t text[kZpTextMax] = {};
        (void)peca.getPerfil(text);  // the buffer is there
        row.descricao = text;
        (void)peca.getDimensoes(text);
        row.dimensoes = text;
    }
    row.comprimento = peca.getComprimentoReal();
    row.pesoUnitario = peca.getPeso();
    row.pesoTotal = row.pesoUnitario * row.quantidade;
    row.areaPintura = peca.getAreaPintura() * row.quantidade;
}

void carryMarca(AcDbObjectId id, const edit::Faces& before, const edit::Faces& after) {
    const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
    if (marca.object() == nullptr) return;
    for (int corner = 0; corner < 4; ++corner) {
        if (marca->tip().distanceTo(before.f[corner]) > kAtTip) continue;
        const AcGeVector3d step = after.f[corner] - before.f[corner];
        if (step.length() > 0.0 && marca->upgradeOpen() == Acad::eOk)
            (void)marca->transformBy(AcGeMatrix3d::translation(step));  // a motion is taken
        return;
    }
}

bool differs(double a, double b) { return std::abs(a - b) > kSameValue * std::abs(b); }

class Follower : public edit::Listener {
public:
    void edited(AcDbObjectId id, const edit::Faces& before) override {
        const Found found = locate(id);
        if (found.record.isNull()) return;
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        std::optional<Linha> row = rowAt(found.record);
        if (peca.object() == nullptr || !row) return;
        describe(*peca.object(), *row);
        (void)rewrite(found.record, *row);  // what cannot be written stays as it was
        carryMarca(found.marca, before, edit::facesOf(*peca.object()));
    }
};

Follower g_follower;  // kept by pointer in the entity library

}  // namespace

void startFollowing() { edit::addListener(&g_follower); }

void stopFollowing() { edit::removeListener(&g_follower); }

AcDbObjectId recordOf(AcDbObjectId marcaOrPeca) { return locate(marcaOrPeca).record; }

void describeAgain(AcDbObjectId list) {
    for (const RowRecord& record : records(list)) {
        std::optional<Linha> row = rowAt(record.id);
        if (!row) continue;
        AcDbObjectId id;
        for (const AcDbSoftPointerId& marcaId : row->ids) {
            const AcDbObjectPointer<ZpMarca> marca(marcaId, AcDb::kForRead);
            if (marca.object() != nullptr && id.isNull()) id = marca->peca();
        }
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        Linha fresh = *row;
        describe(*peca.object(), fresh);
        const bool other = differs(fresh.comprimento, row->comprimento) ||
                           differs(fresh.pesoUnitario, row->pesoUnitario);
        if (other) (void)rewrite(record.id, fresh);
    }
}

void forgetRows() { g_indices.clear(); }

int listedQuantidade(AcDbObjectId peca) {
    const std::optional<Linha> row = rowAt(locate(peca).record);
    return row ? row->quantidade : 0;
}

bool changeListed(AcDbObjectId before, AcDbObjectId peca, int quantidade) {
    const Found found = locate(before);
    std::optional<Linha> row = rowAt(found.record);
    const AcDbObjectPointer<ZpObject> opened(peca, AcDb::kForRead);
    if (!row || opened.object() == nullptr) return false;
    if (before != peca && !tieMarca(found.marca, peca)) return false;
    row->quantidade = quantidade;
    describe(*opened.object(), *row);
    return rewrite(found.record, *row);
}

bool tieMarca(AcDbObjectId marca, AcDbObjectId peca) {
    if (marca.isNull() || peca.isNull()) return false;
    const AcDbObjectPointer<ZpMarca> opened(marca, AcDb::kForWrite);
    if (opened.object() == nullptr) return false;
    if (opened->peca() == peca) return true;
    opened->setPeca(peca);
    for (Index& index : g_indices)
        if (const auto row = index.records.find(marca.asOldId()); row != index.records.end())
            index.records[peca.asOldId()] = row->second;
    return true;
}

void removeListed(AcDbObjectId peca) {
    const AcDbObjectPointer<ZpMarca> marca(locate(peca).marca, AcDb::kForWrite);
    if (marca.object() != nullptr) (void)marca->erase();  // open for write and alive
}

}  // namespace zp::matlist
