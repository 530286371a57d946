// SPDX-License-Identifier: MIT
// Definitions of attributes, and attributes.
#include <algorithm>
#include <cwctype>

#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/text_layout.h"

using namespace prancheta;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbAttributeText, AcDbText)
ACRX_DXF_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbAttributeText, 0, 0, 0, ATTDEF, "Prancheta")
ACRX_DXF_DEFINE_MEMBERS(AcDbAttribute, AcDbAttributeText, 0, 0, 0, ATTRIB, "Prancheta")

AcDbAttributeText::AcDbAttributeText(const AcGePoint3d& position, const ACHAR* text,
                                     const ACHAR* tag, AcDbObjectId style)
    : AcDbText(position, text, style), m_tag(tag != nullptr ? tag : L"") {}

Acad::ErrorStatus AcDbAttributeText::setTag(const ACHAR* tag) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    const std::wstring name = tag != nullptr ? tag : L"";
    if (name.empty() || std::any_of(name.begin(), name.end(), [](wchar_t c) {
            return std::iswspace(static_cast<std::wint_t>(c)) != 0;
        }))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_tag = name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeText::setModes(int modes) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if ((modes & ~(kInvisible | kConstant | kVerifiable | kPreset)) != 0)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_modes = static_cast<Adesk::Int16>(modes);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeText::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbText::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeString(m_tag.c_str());
    return filer->writeInt16(m_modes);
}

Acad::ErrorStatus AcDbAttributeText::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbText::dwgInFields(filer);
    if (es == Acad::eOk) es = readText(filer, m_tag);
    if (es != Acad::eOk) return es;
    return filer->readInt16(&m_modes);
}

void AcDbAttributeText::subList() const {
    AcDbText::subList();
    listText(L"etiqueta:", m_tag);
}

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text,
                                                 const ACHAR* tag, const ACHAR* prompt,
                                                 AcDbObjectId style)
    : AcDbAttributeText(position, text, tag, style), m_prompt(prompt != nullptr ? prompt : L"") {}

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (prompt == nullptr) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_prompt = prompt;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeDefinition::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbAttributeText::dwgOutFields(filer);
    return es != Acad::eOk ? es : filer->writeString(m_prompt.c_str());
}

Acad::ErrorStatus AcDbAttributeDefinition::dwgInFields(AcDbDwgFiler* filer) {
    const Acad::ErrorStatus es = AcDbAttributeText::dwgInFields(filer);
    return es != Acad::eOk ? es : readText(filer, m_prompt);
}

Adesk::Boolean AcDbAttributeDefinition::subWorldDraw(AcGiWorldDraw* draw) {
    return textLike(*this, tagConst())->worldDraw(draw);
}

void AcDbAttributeDefinition::subList() const {
    AcDbAttributeText::subList();
    listText(L"pergunta:", m_prompt);
}

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                             AcDbObjectId style)
    : AcDbAttributeText(position, text, tag, style) {}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& blockTransform) {
    if (definition == nullptr) return Acad::eNullObjectPointer;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (const Acad::ErrorStatus es = setTag(definition->tagConst()); es != Acad::eOk) return es;
    (void)setModes(definition->modes());  // a definition has no others
    (void)setPropertiesFrom(definition);
    takeText(*this, *definition, definition->textStringConst());
    if (const Acad::ErrorStatus es = transformBy(blockTransform); es != Acad::eOk) return es;
    if (blockTransform.isUniScaledOrtho()) return Acad::eOk;
    // A text keeps its size where it is stretched; an attribute is as high as its block.
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    blockTransform.getCoordSystem(origin, x, y, z);
    (void)setWidthFactor(widthFactor() * x.length() / y.length());
    return setHeight(height() * y.length());
}

Adesk::Boolean AcDbAttribute::subWorldDraw(AcGiWorldDraw* draw) {
    return isInvisible() ? Adesk::kTrue : AcDbText::subWorldDraw(draw);
}

namespace prancheta {

void takeText(AcDbText& to, const AcDbText& from, const ACHAR* words) {
    // None of these can refuse: the values are another text's.
    (void)to.setTextStyle(from.textStyle());
    (void)to.setHeight(from.height());
    (void)to.setRotation(from.rotation());
    (void)to.setWidthFactor(from.widthFactor());
    (void)to.setOblique(from.oblique());
    (void)to.setNormal(from.normal());
    (void)to.mirrorInX(from.isMirroredInX());
    (void)to.mirrorInY(from.isMirroredInY());
    (void)to.setHorizontalMode(from.horizontalMode());
    (void)to.setVerticalMode(from.verticalMode());
    (void)to.setTextString(words);
    (void)to.setPosition(from.position());
    if (from.horizontalMode() != 0 || from.verticalMode() != 0)
        (void)to.setAlignmentPoint(from.alignmentPoint());
}

std::unique_ptr<AcDbText> textLike(const AcDbText& text, const ACHAR* words) {
    auto made = std::make_unique<AcDbText>();
    (void)made->setPropertiesFrom(&text);
    takeText(*made, text, words);
    return made;
}

}  // namespace prancheta
