// SPDX-License-Identifier: MIT
// Variables that stand for something in the drawing: current layer, styles, dimension values.
#include <cmath>
#include <iterator>

#include "prancheta/base/text.h"
#include "prancheta/database/dim_variables.h"
#include "prancheta/database/object_access.h"
#include "prancheta/graphics/palette.h"

namespace prancheta {
namespace {

struct NamedVariable {
    const wchar_t* name;
    DatabaseCore::Current which;
    DatabaseCore::TableIndex table;
    const char* unknown;
};
const NamedVariable kNamed[] = {
    {L"CLAYER", DatabaseCore::kLayer, DatabaseCore::kLayers, "não existe a camada "},
    {L"CELTYPE", DatabaseCore::kLinetype, DatabaseCore::kLinetypes, "não existe o tipo de linha "},
    {L"TEXTSTYLE", DatabaseCore::kTextStyle, DatabaseCore::kTextStyles,
     "não existe o estilo de texto "},
    {L"DIMSTYLE", DatabaseCore::kDimStyle, DatabaseCore::kDimStyles,
     "não existe o estilo de cota "},
};

constexpr const wchar_t* kStyleText = L"DIMTXSTY";

template <class Entry, std::size_t n>
const Entry* findEntry(const Entry (&table)[n], std::wstring_view name) {
    for (const Entry& entry : table)
        if (name == entry.name) return &entry;
    return nullptr;
}

/// DIMSCALE is the drawing's too, and arrow blocks are no variables here.
const DimVariable* styleVariable(std::wstring_view name) {
    const DimVariable* const found = dimVariable(name);
    const bool other = found == nullptr || found->block != nullptr || name == L"DIMSCALE";
    return other ? nullptr : found;
}

bool livesInStyle(std::wstring_view name) {
    return styleVariable(name) != nullptr || name == kStyleText;
}

constexpr const wchar_t* kScale = L"DIMSCALE";
constexpr const wchar_t* kTextSize = L"TEXTSIZE";
constexpr double kUsualText = 2.5;  ///< on paper, mm
constexpr const wchar_t* kPatternScale = L"HPSCALE";

constexpr std::wstring_view kRgb = L"RGB:";

/// With RGB: before its shares, or without.
std::optional<Rgb> trueColorNamed(std::wstring_view text) {
    const bool named = equalNoCase(text.substr(0, kRgb.size()), kRgb);
    return readRgb(named ? text.substr(kRgb.size()) : text);
}

/// Canonical form of a colour's name; empty when it is none.
std::wstring colorName(const std::wstring& text) {
    if (equalNoCase(text, L"BYLAYER") || equalNoCase(text, L"PORCAMADA")) return L"BYLAYER";
    if (equalNoCase(text, L"BYBLOCK") || equalNoCase(text, L"PORBLOCO")) return L"BYBLOCK";
    if (const auto color = trueColorNamed(text)) return std::wstring(kRgb) + rgbText(*color);
    double number = 0.0;
    if (!parseNumber(std::wstring_view(text), number)) return {};
    if (number < 1.0 || number > 255.0 || number != std::floor(number)) return {};
    return std::to_wstring(static_cast<int>(number));
}

Error refusal(const VariableInfo& info, const std::string& why) {
    return {toUtf8(info.name) + ": " + why, {}, 0, 0};
}

}  // namespace

// A value that lives in the dimension style is recorded with the style, not a second time by name.
void DatabaseCore::linkVariables() {
    m_variables.setDrawingHooks({[this](const VariableInfo& info, const VariableValue& value) {
                                     return checkVariable(info, value);
                                 },
                                 [this](const VariableInfo& info) {
                                     if (info.name == kScale) m_textFollows = textFollows();
                                     if (!livesInStyle(info.name)) m_undo.recordVariable(info.name);
                                 },
                                 [this](VariableInfo& info) { variableChanged(info); }});
}

Result<void> DatabaseCore::checkVariable(const VariableInfo& info,
                                         const VariableValue& value) const {
    const auto* text = std::get_if<std::wstring>(&value);
    if (const NamedVariable* named = findEntry(kNamed, info.name)) {
        const AcDbObjectId id = ObjectAccess::lookup(m_tables[named->table], *text);
        if (id.isNull()) return refusal(info, named->unknown + ("\"" + toUtf8(*text) + "\"."));
        if (named->which != kLayer) return {};
        const AcDbStub* stub = id;
        if (static_cast<const AcDbLayerTableRecord*>(stub->object)->isFrozen())
            return refusal(info, "a camada \"" + toUtf8(*text) + "\" está congelada.");
        return {};
    }
    if (info.name == L"CECOLOR" && colorName(*text).empty())
        return refusal(info, "use BYLAYER, BYBLOCK, um número de 1 a 255 ou vermelho,verde,azul.");
    if (!livesInStyle(info.name)) return {};
    if (info.name == kStyleText && ObjectAccess::lookup(m_tables[kTextStyles], *text).isNull())
        return refusal(info, "não existe o estilo de texto \"" + toUtf8(*text) + "\".");
    const AcDbStub* style = m_current[kDimStyle];
    if (style != nullptr && (style->writer || style->readers > 0))
        return refusal(info, "o estilo de cota está em uso.");
    return {};
}

std::optional<Rgb> DatabaseCore::currentTrueColor() const {
    return trueColorNamed(m_variables.text(L"CECOLOR"));
}

/// True while the height offered for texts is the usual one at the drawing's scale.
bool DatabaseCore::textFollows() const {
    const double usual = kUsualText * m_variables.real(kScale);
    return std::abs(m_variables.real(kTextSize) - usual) <= 1e-9 * usual;
}

void DatabaseCore::variableChanged(VariableInfo& info) {
    if (info.name == kScale && m_textFollows && !m_undo.undoing()) {
        const double scale = std::get<double>(info.value);
        if (!(scale > 0.0)) return;
        // Patterns look alike on paper until they get a scale of their own.
        const double former = m_variables.real(kTextSize) / kUsualText;
        if (std::abs(m_variables.real(kPatternScale) - former) <= 1e-9 * former)
            m_variables.force(kPatternScale, scale);
        m_variables.force(kTextSize, kUsualText * scale);
        return;
    }
    if (const NamedVariable* named = findEntry(kNamed, info.name)) {
        const AcDbObjectId id =
            ObjectAccess::lookup(m_tables[named->table], std::get<std::wstring>(info.value));
        if (!id.isNull()) m_current[named->which] = id;
        info.value = ObjectAccess::recordName(m_current[named->which]);
        const AcDbStub* stub = m_current[named->which];
        if (named->which != kDimStyle || stub == nullptr) return;
        showDimStyle();
        if (!m_undo.undoing())
            m_variables.force(
                L"DIMSCALE",
                static_cast<const AcDbDimStyleTableRecord*>(stub->object)->values().dimscale);
        return;
    }
    if (info.name == L"CECOLOR") {
        const std::wstring name = colorName(std::get<std::wstring>(info.value));
        info.value = name.empty() ? L"BYLAYER" : name;
    }
    if (!livesInStyle(info.name)) return;
    AcDbDimStyleTableRecord* style = nullptr;
    if (acdbOpenObject(style, m_current[kDimStyle], AcDb::kForWrite) != Acad::eOk)
        return showDimStyle();
    AcDbDimStyleValues values = style->values();
    if (const DimVariable* const variable = styleVariable(info.name)) {
        if (variable->real != nullptr) values.*variable->real = std::get<double>(info.value);
        if (variable->integer != nullptr) values.*variable->integer = std::get<short>(info.value);
        if (variable->text != nullptr) values.*variable->text = std::get<std::wstring>(info.value);
    }
    if (info.name == kStyleText)
        (void)style->setDimtxsty(
            ObjectAccess::lookup(m_tables[kTextStyles], std::get<std::wstring>(info.value)));
    else
        (void)style->setValues(values);
    style->close();
}

void DatabaseCore::showCurrent() {
    for (const NamedVariable& named : kNamed)
        m_variables.mirror(named.name, ObjectAccess::recordName(m_current[named.which]));
    showDimStyle();
}

void DatabaseCore::showDimStyle() {
    const AcDbStub* stub = m_current[kDimStyle];
    if (stub == nullptr) return;
    const auto& style = static_cast<const AcDbDimStyleTableRecord&>(*stub->object);
    const AcDbDimStyleValues& values = style.values();
    for (const DimVariable& variable : dimVariables()) {
        if (styleVariable(variable.name) == nullptr) continue;
        if (variable.real != nullptr) m_variables.mirror(variable.name, values.*variable.real);
        if (variable.integer != nullptr)
            m_variables.mirror(variable.name, static_cast<short>(values.*variable.integer));
        if (variable.text != nullptr) m_variables.mirror(variable.name, values.*variable.text);
    }
    m_variables.mirror(kStyleText, ObjectAccess::recordName(style.dimtxsty()));
}

void DatabaseCore::recordChanged(const AcDbObject& record) {
    for (AcDbObjectId id : m_current)
        if (id == record.objectId()) return showCurrent();
    const AcDbStub* style = m_current[kDimStyle];
    if (style != nullptr &&
        record.objectId() == static_cast<AcDbDimStyleTableRecord*>(style->object)->dimtxsty())
        showDimStyle();
}

}  // namespace prancheta
