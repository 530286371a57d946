// SPDX-License-Identifier: MIT
// Paragraphs of text in files.
#include "prancheta/dxf/mtext_type.h"

#include "dbmtext.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

constexpr Field kMText[] = {marker("AcDbMText"),
                            {10, Point, 0},
                            {40, Real, 0},
                            {41, Real, 1},
                            {42, Ignored},
                            {43, Ignored},
                            optionalField(46, Real, 4, 0.0),
                            {71, Integer, 0, false, 1.0},
                            {72, Integer, 1, false, 1.0},
                            {3, TextPart},
                            {1, LongText, 0},
                            {7, TextStyle, 0},
                            {11, Point, 1},
                            // The direction says the same, and is what is written.
                            optionalField(50, Degrees, 2, 0.0),
                            optionalField(73, Integer, 2, 1.0),
                            optionalField(44, Real, 3, 1.0),
                            {210, Normal},
                            {101, Nested, 3}};

bool suitsParagraphs(const Values& v, const Tags&) {
    const bool attached = v.integers[0] >= 1 && v.integers[0] <= 9;
    const bool spaced = v.integers[2] >= 1 && v.integers[2] <= 2;
    const bool inColumns = v.integers[3] != 0;
    return attached && spaced && !inColumns && v.reals[0] > 0.0 && v.reals[1] >= 0.0 &&
           v.reals[3] >= 0.25 && v.reals[3] <= 4.0;
}

std::unique_ptr<AcDbEntity> makeParagraphs(const Values& v) {
    auto text = std::make_unique<AcDbMText>();
    (void)text->setLocation(v.points[0]);
    (void)text->setNormal(v.normal);
    if (text->setDirection(v.points[1].asVector()) != Acad::eOk)
        (void)text->setRotation(v.reals[2]);
    (void)text->setTextHeight(v.reals[0]);
    (void)text->setWidth(v.reals[1]);
    (void)text->setDefinedHeight(v.reals[4]);
    (void)text->setAttachment(static_cast<AcDbMText::AttachmentPoint>(v.integers[0]));
    (void)text->setFlowDirection(static_cast<int>(v.integers[1]));
    (void)text->setLineSpacingStyle(static_cast<int>(v.integers[2]));
    (void)text->setLineSpacingFactor(v.reals[3]);
    (void)text->setTextStyle(v.ids[0]);
    (void)text->setContents(v.texts[0].c_str());
    return text;
}

void takeParagraphs(const AcDbEntity& entity, Values& v) {
    const auto& text = static_cast<const AcDbMText&>(entity);
    v.points[0] = text.location();
    v.points[1] = AcGePoint3d::kOrigin + text.direction();
    v.normal = text.normal();
    v.reals[0] = text.textHeight();
    v.reals[1] = text.width();
    v.reals[2] = 0.0;
    v.reals[3] = text.lineSpacingFactor();
    v.reals[4] = text.definedHeight();
    v.integers[0] = text.attachment();
    v.integers[1] = text.flowDirection();
    v.integers[2] = text.lineSpacingStyle();
    v.ids[0] = text.textStyle();
    v.texts[0] = text.contentsConst();
}

}  // namespace

EntityType mtextType() {
    return {"MTEXT", &AcDbMText::desc, kMText, suitsParagraphs, makeParagraphs, takeParagraphs};
}

}  // namespace prancheta::dxf
