// SPDX-License-Identifier: MIT
// Sections HEADER and CLASSES.
#include "prancheta/base/text.h"
#include "prancheta/dxf/header_variables.h"
#include "prancheta/dxf/saver.h"

namespace prancheta::dxf {
namespace {

struct ClassRow {
    const char* dxfName;
    const char* className;
};
constexpr std::string_view kWipeouts = "WIPEOUTVARIABLES";
constexpr ClassRow kClasses[] = {{"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"},
                                 {"ACDBPLACEHOLDER", "AcDbPlaceHolder"},
                                 {"LAYOUT", "AcDbLayout"},
                                 {"SORTENTSTABLE", "AcDbSortentsTable"},
                                 {"WIPEOUTVARIABLES", "AcDbWipeoutVariables"}};

bool declares(const RawTags& classes, std::string_view dxfName) {
    for (const RawTag& tag : classes)
        if (tag.code == 1 && tag.value == dxfName) return true;
    return false;
}

}  // namespace

void Saver::writeHeader() {
    section("HEADER");
    m_out.text(9, "$ACADVER");
    m_out.text(1, m_version);
    m_out.text(9, "$DWGCODEPAGE");
    m_out.text(3, codePage());
    m_out.text(9, "$HANDSEED");
    m_out.handle(5, m_seed);
    m_out.text(9, "$EXTMIN");
    m_out.point(10, m_extents.isEmpty() ? AcGePoint3d(1e20, 1e20, 1e20) : m_extents.minPoint());
    m_out.text(9, "$EXTMAX");
    m_out.point(10, m_extents.isEmpty() ? AcGePoint3d(-1e20, -1e20, -1e20) : m_extents.maxPoint());
    for (const HeaderVariable& variable : headerVariables()) writeVariable(variable);
    for (const auto& [name, tags] : m_core.foreign().header) {
        if (isUnknownTo(m_version, name) || name == kCodePage) continue;
        m_out.text(9, name);
        m_out.raw(tags);
    }
    m_out.text(0, "ENDSEC");
}

/// That of the opened file when its bytes are written as they were read.
std::string Saver::codePage() const {
    for (const auto& [name, tags] : m_core.foreign().header)
        if (name == kCodePage && charsetOf(m_version) == Charset::Windows1252)
            return tags.front().value;
    return "ANSI_1252";
}

void Saver::writeVariable(const HeaderVariable& variable) {
    const std::string_view name = variable.name;
    const VariableInfo* const info = m_core.variables().find(toWide(name.substr(1)));
    if (info == nullptr) return;
    m_out.text(9, name);
    if (const auto* integer = std::get_if<short>(&info->value)) {
        m_out.integer(variable.code, *integer);
    } else if (const auto* real = std::get_if<double>(&info->value)) {
        m_out.real(variable.code, variable.code == 50 ? degreesOf(*real) : *real);
    } else if (const auto* point = std::get_if<AcGePoint3d>(&info->value)) {
        if (variable.hasHeight)
            m_out.point(variable.code, *point);
        else
            m_out.point2d(variable.code, point->x, point->y);
    } else if (variable.code == 62) {
        m_out.integer(62, colorIndex(std::get<std::wstring>(info->value)));
    } else {
        m_out.meaning(variable.code, std::get<std::wstring>(info->value));
    }
}

void Saver::writeClasses() {
    section("CLASSES");
    const RawTags& kept = m_core.foreign().classes;
    const bool counted = m_version >= "AC1018";
    for (std::size_t i = 0; i < kept.size(); ++i) {
        if (kept[i].code == 91 && !counted) continue;
        m_out.raw(kept[i].code, kept[i].value);
        const bool hasCount = i + 1 < kept.size() && kept[i + 1].code == 91;
        if (kept[i].code == 90 && counted && !hasCount) m_out.integer(91, 0);
    }
    for (const ClassRow& row : kClasses) {
        if (declares(kept, row.dxfName)) continue;
        if (row.dxfName == kWipeouts && m_standard.wipeouts == 0) continue;
        m_out.text(0, "CLASS");
        m_out.text(1, row.dxfName);
        m_out.text(2, row.className);
        m_out.text(3, "ObjectDBX Classes");
        m_out.integer(90, 0);
        if (counted) m_out.integer(91, 0);
        m_out.integer(280, 0);
        m_out.integer(281, 0);
    }
    m_out.text(0, "ENDSEC");
}

}  // namespace prancheta::dxf
