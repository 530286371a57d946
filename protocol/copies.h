// SPDX-License-Identifier: MIT
// How a module's entity is told by a short text, from which any host makes it again where another
// program took its record away.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include <span>
#include <string>

#include "dbapserv.h"

namespace protocol {

/// Protocol extension of an entity class, attached with AcRxClass::addX under the class named
/// kEntityCopyClass.
class EntityCopy : public AcRxObject {
public:
    /// What the entity is, as it stands in its own frame (getEcs) and whatever it is tied to, in
    /// printable ASCII without quotation of the host's; entities that differ in their place only
    /// have one text. The entity is open for read.
    virtual std::wstring textOf(const AcDbEntity& entity) const = 0;
    /// A new entity of the class, in no drawing, becomes what the text says, its frame the world's.
    /// False for a text that is none of the class, or of a newer module.
    virtual bool read(AcDbEntity& entity, const std::wstring& text) const = 0;
    /// False for what only belongs to a piece, as its mark does.
    virtual bool isPiece() const { return true; }
};
inline constexpr const ACHAR* kEntityCopyClass = L"ZpEntityCopy";

/// An entity that was made of its text, and that text.
struct Revived {
    AcDbObjectId id;
    std::wstring text;
};

/// Object of the system registry under kRevivalKey: ties what was made of texts to each other and
/// to the lists, as far as places and texts tell how it was.
class Revival : public AcRxObject {
public:
    /// All stand in their places, closed; the host has an undo group open. A sentence for the user
    /// about what could not be tied; empty when there is nothing to say.
    virtual std::wstring tie(AcDbDatabase& drawing, std::span<const Revived> revived) const = 0;
};
inline constexpr const ACHAR* kRevivalKey = L"ZP_REVIVAL";

}  // namespace protocol
