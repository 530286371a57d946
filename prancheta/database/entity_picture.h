// SPDX-License-Identifier: MIT
// What an entity draws, recorded.
#pragma once

#include <functional>

#include "dbmain.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Traits that the entity's own properties give.
PictureTraits traitsOf(const AcDbEntity& entity);
/// The colour of the traits, by index or true.
void giveColor(AcDbEntity& entity, const PictureTraits& traits);

/// Appends what the entity draws in world coordinates, with its own properties where it sets none.
void recordPicture(AcDbEntity& entity, Picture& picture, AcGiRegenType type = kAcGiStandardDisplay,
                   bool dragging = false);

/// While it lives, what is asked of the entity and answered from its picture (snap points) takes
/// this one instead of recording it once a question. Both outlive it; scopes may nest.
class PictureAtHand {
public:
    PictureAtHand(const AcDbEntity& entity, const Picture& picture);
    ~PictureAtHand();
    PictureAtHand(const PictureAtHand&) = delete;
    PictureAtHand& operator=(const PictureAtHand&) = delete;

    /// Null when there is none for this entity.
    static const Picture* of(const AcDbEntity& entity);

private:
    const AcDbEntity* m_entity;
    const Picture* m_picture;
    const PictureAtHand* m_outer;
};

/// Makes new entities, owned by the caller, of a picture; set by the room that knows lines and
/// arcs. The default explode of every entity goes through it.
extern std::function<void(const Picture&, AcDbVoidPtrArray&)> pictureExploder;

}  // namespace prancheta
