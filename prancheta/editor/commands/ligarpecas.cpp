// SPDX-License-Identifier: MIT
// LIGARPECAS: what another program made ordinary blocks of becomes pieces again, from the copy of
// their data in the blocks.
#include <array>
#include <cmath>
#include <memory>
#include <tuple>

#include "dbents.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/lost_pieces.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/record_users.h"
#include "prancheta/graphics/same_drawn.h"
#include "protocol/attach.h"
#include "protocol/copies.h"
#include "rxdict.h"

namespace prancheta::commands {

namespace {

/// What became of references.
enum class Fate { Piece, Mark, Edited, Deformed, Locked, Unknown };
constexpr std::size_t kFates = 6;

/// In the frame of the block; null for a class that is not there, or a text that it cannot read.
std::unique_ptr<AcDbEntity> madeOf(const dxf::PieceCopy& copy) {
    AcRxClass* const kind = AcRxClass::cast(acrxClassDictionary->at(copy.className.c_str()));
    if (kind == nullptr || !kind->isDerivedFrom(AcDbEntity::desc())) return nullptr;
    AcRxObject* const made = kind->create();
    std::unique_ptr<AcDbEntity> entity(AcDbEntity::cast(made));
    if (entity == nullptr) {
        delete made;
        return nullptr;
    }
    const auto* const copies =
        protocol::extensionOf<protocol::EntityCopy>(*entity, protocol::kEntityCopyClass);
    return copies != nullptr && copies->read(*entity, copy.text) ? std::move(entity) : nullptr;
}

/// The block still shows what its copy says.
bool isAsDrawn(const LostPieces::Block& block, AcDbEntity& piece) {
    Picture shown;
    const AcDbStub* const stub = block.record;
    for (const AcDbObjectId id :
         ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object))) {
        const AcDbStub* const entity = id;
        if (!id.isErased() && id != block.copy.text)
            recordPicture(static_cast<AcDbEntity&>(*entity->object), shown);
    }
    Picture own;
    recordPicture(piece, own);
    return sameDrawn(own, shown);
}

/// Fate of a block's references as far as the block tells it.
Fate fateOf(const LostPieces::Block& block) {
    const std::unique_ptr<AcDbEntity> piece = madeOf(block.copy.copy);
    if (piece == nullptr) return Fate::Unknown;
    if (!isAsDrawn(block, *piece)) return Fate::Edited;
    return block.isPiece ? Fate::Piece : Fate::Mark;
}

/// A piece has one place, and nothing else of a reference.
bool isPlain(const AcDbBlockReference& reference) {
    return reference.isA() == AcDbBlockReference::desc() && reference.parts() == nullptr;
}

/// Of a flat piece: the factor of z, which programs of the plane leave at 1, goes along with the
/// others.
AcGeMatrix3d placeOf(const AcDbBlockReference& reference) {
    const AcGeVector3d factors = reference.scaleFactors();
    AcGeMatrix3d upright;
    upright.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis,
                           AcGeVector3d::kZAxis * std::abs(factors.x / factors.z));
    return reference.blockTransform() * upright;
}

/// The piece in place of the reference, which goes; null, and the reference stays, where no piece
/// can stand as it does.
AcDbObjectId put(std::unique_ptr<AcDbEntity> piece, AcDbObjectId at) {
    const AcDbObjectPointer<AcDbBlockReference> reference(at, AcDb::kForWrite);
    if (reference.openStatus() != Acad::eOk || !isPlain(*reference.object())) return {};
    const AcGeMatrix3d place = placeOf(*reference.object());
    if (piece->setPropertiesFrom(reference.object()) != Acad::eOk ||
        (!place.isEqualTo(AcGeMatrix3d::kIdentity) && piece->transformBy(place) != Acad::eOk))
        return {};
    const AcDbObjectPointer<AcDbBlockTableRecord> owner(reference->ownerId(), AcDb::kForWrite);
    AcDbObjectId id;
    if (owner.openStatus() != Acad::eOk || owner->appendAcDbEntity(id, piece.get()) != Acad::eOk)
        return {};
    (void)piece.release()->close();  // the drawing has it now
    (void)reference->erase();        // open for write
    return id;
}

class Reviver {
public:
    explicit Reviver(const CommandContext& context)
        : m_context(context), m_lost(lostPieces(context.database())) {}

    bool nothing() const { return m_lost.uses.empty(); }

    void run() {
        for (const LostPieces::Block& block : m_lost.blocks) m_fates.push_back(fateOf(block));
        for (const LostPieces::Use& use : m_lost.uses)
            ++m_counts[static_cast<std::size_t>(revive(use))];
        eraseBlocks();
        const auto* const revival =
            static_cast<const protocol::Revival*>(acrxSysRegistry()->at(protocol::kRevivalKey));
        if (revival != nullptr && !m_revived.empty())
            m_untied = revival->tie(m_context.database(), m_revived);
    }

    void tell() const {
        std::wstring line = counted(count(Fate::Piece), L"peça ligada", L"peças ligadas");
        if (count(Fate::Mark) > 0) line += L", " + counted(count(Fate::Mark), L"marca", L"marcas");
        const std::tuple<Fate, const wchar_t*, const wchar_t*> kept[] = {
            {Fate::Edited, L"ficou bloco: seu desenho foi mudado",
             L"ficaram blocos: seu desenho foi mudado"},
            {Fate::Deformed, L"ficou bloco: foi deformada ou repetida",
             L"ficaram blocos: foram deformadas ou repetidas"},
            {Fate::Locked, L"ficou bloco: a camada está bloqueada",
             L"ficaram blocos: a camada está bloqueada"},
            {Fate::Unknown, L"ficou bloco: o módulo não a conhece",
             L"ficaram blocos: o módulo não as conhece"}};
        for (const auto& [fate, one, many] : kept)
            if (count(fate) > 0) line += L"; " + counted(count(fate), one, many);
        say(m_context, line + L".");
        if (!m_untied.empty()) say(m_context, m_untied);
    }

private:
    std::size_t count(Fate fate) const { return m_counts[static_cast<std::size_t>(fate)]; }

    Fate revive(const LostPieces::Use& use) {
        const Fate fate = m_fates[use.block];
        if (fate != Fate::Piece && fate != Fate::Mark) return fate;
        if (onLockedLayer(use.reference)) return Fate::Locked;
        const dxf::PieceCopy& copy = m_lost.blocks[use.block].copy.copy;
        const AcDbObjectId id = put(madeOf(copy), use.reference);
        if (id.isNull()) return Fate::Deformed;
        m_revived.push_back({id, copy.text});
        return fate;
    }

    /// Those that nothing refers to any more.
    void eraseBlocks() {
        if (m_revived.empty()) return;
        const RecordUsers users(m_context.database());
        for (const LostPieces::Block& block : m_lost.blocks) {
            if (!users.isUnused(block.record)) continue;
            const AcDbObjectPointer<AcDbBlockTableRecord> record(block.record, AcDb::kForWrite);
            if (record.openStatus() == Acad::eOk) (void)record->erase();  // unused, so it may go
        }
    }

    CommandContext m_context;
    LostPieces m_lost;
    std::vector<Fate> m_fates;  ///< by block
    std::array<std::size_t, kFates> m_counts{};
    std::vector<protocol::Revived> m_revived;
    std::wstring m_untied;
};

}  // namespace

CommandTask ligarpecas(CommandContext context) {
    Reviver reviver(context);
    if (reviver.nothing()) {
        say(context, L"Nenhum bloco do desenho guarda os dados de uma peça: não há o que ligar.");
        co_return CommandEnd::Done;
    }
    reviver.run();
    reviver.tell();
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
