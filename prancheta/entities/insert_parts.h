// SPDX-License-Identifier: MIT
// What belongs to a block reference: its attributes, and where they come from.
#pragma once

#include <memory>
#include <vector>

#include "dbents.h"
#include "prancheta/database/object_extra.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

struct InsertPart {
    /// An AcDbAttribute, or a ForeignEntity for one that says more than that class holds (several
    /// lines).
    std::unique_ptr<AcDbEntity> entity;
    Adesk::UInt64 handle = 0;  ///< in the file; 0: it gets one there
};

struct InsertParts {
    std::vector<InsertPart> list;
    RawTags end;  ///< record SEQEND of an opened file, from its group 0
};

/// The attributes of a reference in their order, without those that are foreign.
std::vector<const AcDbAttribute*> attributesOf(const AcDbBlockReference& reference);
/// The same, to be changed; the reference is open for write.
std::vector<AcDbAttribute*> attributesForChange(AcDbBlockReference& reference);
/// What a block asks for or holds as constant, in its order. O(entities of the block).
std::vector<AcDbObjectId> attributeDefinitions(AcDbObjectId block);
/// Gives a reference, whose place is final, an attribute for each definition that is not constant,
/// with the value that it offers.
void appendOffered(AcDbBlockReference& reference);

/// From the block's coordinates to the world's, once for each insertion of an array.
std::vector<AcGeMatrix3d> placesOf(const AcDbBlockReference& reference);

/// The attributes to a filer and back. Only undo keeps their handles: a copy gets others.
Acad::ErrorStatus writeParts(AcDbDwgFiler& filer, const InsertParts* parts);
Acad::ErrorStatus readParts(AcDbDwgFiler& filer, std::unique_ptr<InsertParts>& parts);
/// Moved copies; the first refusal where one cannot follow.
Acad::ErrorStatus movedParts(const InsertParts& parts, const AcGeMatrix3d& by, InsertParts& moved);
/// What they draw in the world, with the reference's properties where they say so.
Picture partsPicture(const InsertParts& parts, const PictureTraits& reference,
                     const AcDbDatabase* database);

/// Everything of a text but its words and its common properties.
void takeText(AcDbText& to, const AcDbText& from, const ACHAR* words);
/// A plain text, not resident, that stands and looks like this one.
std::unique_ptr<AcDbText> textLike(const AcDbText& text, const ACHAR* words);

}  // namespace prancheta
