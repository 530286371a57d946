// SPDX-License-Identifier: MIT
// A host asks for the axis of a piece, moves its ends, takes a part out of it.
#include "zp/objects/lengths.h"

#include "acutmem.h"
#include "protocol/attach.h"
#include "protocol/length.h"
#include "zp/objects/cortes.h"
#include "zp/objects/ends.h"
#include "zp/objects/member.h"

namespace zp::lengths {
namespace {

/// A piece that is to change, or why it cannot be opened.
class Opened {
public:
    explicit Opened(AcDbObjectId id) : m_peca(id, AcDb::kForWrite) {
        if (m_peca.openStatus() != Acad::eOk)
            reason = L"A peça não pode ser alterada agora.";
        else if (edit::onLockedLayer(peca()))
            reason = edit::kLocked;
    }
    ZpObject& peca() { return *m_peca.object(); }

    std::wstring reason;

private:
    AcDbObjectPointer<ZpObject> m_peca;
};

std::wstring setEnds(AcDbObjectId id, double start, double end) {
    Opened opened(id);
    if (!opened.reason.empty()) return opened.reason;
    const Peca& p = Access::of(opened.peca());
    if (!(start < end)) return L"Não sobraria nada da peça.";
    const ends::Ends fresh = ends::between(p, start, end);
    std::wstring reason = ends::refusal(opened.peca(), fresh);
    if (reason.empty()) ends::move(opened.peca(), fresh);
    return reason;
}

/// The piece and its plates once more, in their places; the piece's id.
AcDbObjectId copyWithChapas(AcDbObjectId id) {
    AcDbObjectIdArray originals;
    originals.append(id);
    AcDbObjectId owner;
    {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) return {};
        owner = peca->ownerId();
        for (const AcDbObjectId& chapa : edit::chapasOf(*peca.object())) originals.append(chapa);
    }
    AcDbObjectIdArray copies;
    return id.database()->deepCloneObjects(originals, owner, copies) == Acad::eOk ? copies[0]
                                                                                  : AcDbObjectId();
}

std::wstring takeOut(AcDbObjectId id, double from, double to, AcDbObjectId& rest) {
    ends::Ends first;
    ends::Ends second;
    {
        Opened opened(id);
        if (!opened.reason.empty()) return opened.reason;
        const Peca& p = Access::of(opened.peca());
        if (const ACHAR* const reason = ends::whyNone(p)) return reason;
        // The other part would be steel that nobody counts.
        if (p.member != nullptr && member::of(opened.peca()).count == 0)
            return L"Uma vista não se parte: parta a peça que ela mostra.";
        if (!(from > 0.0 && from <= to && to < p.comprimento))
            return L"Não sobraria nada de um lado do corte.";
        first = ends::between(p, 0.0, from);
        second = ends::between(p, to, p.comprimento);
        first.cortes[cortes::kEnd] = second.cortes[cortes::kStart] = {};
        for (const ends::Ends& part : {first, second})
            if (std::wstring reason = ends::refusal(opened.peca(), part); !reason.empty())
                return reason;
    }
    rest = copyWithChapas(id);
    if (rest.isNull()) return L"A peça não pode ser copiada.";
    Opened other(rest);
    if (other.reason.empty()) ends::move(other.peca(), second);
    Opened kept(id);
    if (kept.reason.empty()) ends::move(kept.peca(), first);
    return other.reason + kept.reason;
}

/// True when there is nothing to say.
bool answered(const std::wstring& reason, ACHAR*& message) {
    if (!reason.empty()) (void)acutNewString(reason.c_str(), message);
    return reason.empty();
}

class Lengths : public protocol::EntityLength {
public:
    const ACHAR* axis(const AcDbEntity& entity, AcGePoint3d& start,
                      AcGePoint3d& end) const override {
        const auto* peca = ZpObject::cast(&entity);
        if (peca == nullptr) return L"Só peças têm comprimento a aparar.";
        const Peca& p = Access::of(*peca);
        if (const ACHAR* const reason = ends::whyNone(p)) return reason;
        start = p.start;
        end = p.end();
        return nullptr;
    }
    bool takesAlong(const AcDbEntity& entity, AcDbObjectId other) const override {
        return edit::isChapaOf(other, entity.objectId());
    }
    bool setEnds(AcDbObjectId entity, double start, double end, ACHAR*& message) const override {
        return answered(lengths::setEnds(entity, start, end), message);
    }
    bool takeOut(AcDbObjectId entity, double from, double to, AcDbObjectId& rest,
                 ACHAR*& message) const override {
        return answered(lengths::takeOut(entity, from, to, rest), message);
    }
};

Lengths g_lengths;  // kept by pointer in the class

}  // namespace

void install() { protocol::attach(ZpObject::desc(), protocol::kEntityLengthClass, g_lengths); }

void uninstall() {
    protocol::detach(ZpObject::desc(), protocol::kEntityLengthClass);
    protocol::retire(protocol::kEntityLengthClass);
}

}  // namespace zp::lengths
