// SPDX-License-Identifier: MIT
// Finds the references whose blocks hold the copy of a piece.
#include "prancheta/editor/lost_pieces.h"

#include <unordered_map>

#include "dbents.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/piece_record.h"
#include "protocol/attach.h"
#include "protocol/copies.h"
#include "rxdict.h"

namespace prancheta {
namespace {

/// What a class that nobody has loaded would be is taken for a piece.
bool isPieceClass(const std::wstring& name) {
    const AcRxClass* const found = AcRxClass::cast(acrxClassDictionary->at(name.c_str()));
    const AcRxClass* const kind = protocol::classOf(protocol::kEntityCopyClass);
    const auto* const copies = found == nullptr || kind == nullptr
                                   ? nullptr
                                   : static_cast<const protocol::EntityCopy*>(found->getX(kind));
    return copies == nullptr || copies->isPiece();
}

/// It came with the data: nothing was taken away, the module that knows them is not there.
bool hasRecord(const AcDbBlockReference& reference) {
    const ObjectExtra* const extra = ObjectAccess::extra(reference);
    if (extra == nullptr) return false;
    for (const RawTagView& tag : extra->xdata)
        if (tag.code == 1001 && tag.value == dxf::kPieceApplication) return true;
    return false;
}

template <class Visit>
void forEachBlock(const AcDbDatabase& database, Visit&& visit) {
    const AcDbStub* const table = database.blockTableId();
    for (const AcDbObjectId id :
         ObjectAccess::records(static_cast<const AcDbSymbolTable&>(*table->object))) {
        const AcDbStub* const stub = id;
        if (!id.isErased()) visit(id, static_cast<const AcDbBlockTableRecord&>(*stub->object));
    }
}

}  // namespace

LostPieces lostPieces(const AcDbDatabase& database) {
    LostPieces lost;
    std::unordered_map<const AcDbStub*, std::size_t> places;
    forEachBlock(database, [&](AcDbObjectId id, const AcDbBlockTableRecord& block) {
        std::optional<dxf::BlockCopy> copy = dxf::copyOfBlock(block);
        if (!copy) return;
        places.emplace(id, lost.blocks.size());
        const bool isPiece = isPieceClass(copy->copy.className);
        lost.blocks.push_back({id, std::move(*copy), isPiece});
    });
    if (lost.blocks.empty()) return lost;
    forEachBlock(database, [&](AcDbObjectId, const AcDbBlockTableRecord& block) {
        for (const AcDbObjectId id : ObjectAccess::entities(block)) {
            const AcDbStub* const stub = id;
            if (id.isErased() || !id.objectClass()->isDerivedFrom(AcDbBlockReference::desc()))
                continue;
            const auto& reference = static_cast<const AcDbBlockReference&>(*stub->object);
            const AcDbStub* const named = reference.blockTableRecord();
            if (const auto at = places.find(named); at != places.end() && !hasRecord(reference))
                lost.uses.push_back({id, at->second});
        }
    });
    return lost;
}

std::wstring lostPiecesLine(const AcDbDatabase& database) {
    const LostPieces lost = lostPieces(database);
    std::size_t count = 0;
    for (const LostPieces::Use& use : lost.uses) count += lost.blocks[use.block].isPiece ? 1 : 0;
    if (count == 0) return {};
    return std::to_wstring(count) +
           (count == 1 ? L" peça virou bloco comum" : L" peças viraram blocos comuns") +
           L" (o outro programa retirou os dados). LIGARPECAS " +
           (count == 1 ? L"a torna peça" : L"as torna peças") + L" outra vez.";
}

}  // namespace prancheta
