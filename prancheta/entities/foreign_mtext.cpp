// SPDX-License-Identifier: MIT
// Draws paragraphs of text that have no class here.
#include <algorithm>

#include "dbmtext.h"
#include "prancheta/base/text.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta {

AcGeVector3d paragraphDirection(const RawTags& tags) {
    const AcGeVector3d given = findPoint(tags, 11).asVector();
    if (!given.isZeroLength()) return given.normal();
    return directionInPlane(findNumber(tags, 50, 0.0) * kPi / 180.0, AcGeVector3d::kZAxis);
}

void drawMtext(const RawTags& all, const ForeignEntity& entity, AcGiWorldDraw& draw) {
    const RawTags tags(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(knownLength(all)));
    std::wstring contents;
    for (const RawTag& tag : tags)
        if (tag.code == 3 || tag.code == 1) contents += toWide(tag.value);
    AcDbMText text;
    // What refuses a value keeps its usual one.
    (void)text.setPropertiesFrom(&entity);
    (void)text.setLocation(findPoint(tags, 10));
    (void)text.setNormal(planeNormal(tags));
    (void)text.setDirection(paragraphDirection(tags));
    (void)text.setTextHeight(findNumber(tags, 40, 2.5));
    (void)text.setWidth(findNumber(tags, 41, 0.0));
    (void)text.setLineSpacingFactor(findNumber(tags, 44, 1.0));
    (void)text.setAttachment(
        static_cast<AcDbMText::AttachmentPoint>(std::clamp(findWhole(tags, 71, 1), 1, 9)));
    (void)text.setContents(contents.c_str());
    (void)text.worldDraw(&draw);
}

}  // namespace prancheta
