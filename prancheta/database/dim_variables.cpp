// SPDX-License-Identifier: MIT
// The variables of dimension styles.
#include "prancheta/database/dim_variables.h"

namespace prancheta {
namespace {

using V = AcDbDimStyleValues;

constexpr DimVariable real(const wchar_t* name, int group, double V::*member) {
    return {name, group, member};
}
constexpr DimVariable integer(const wchar_t* name, int group, Adesk::Int16 V::*member) {
    return {name, group, nullptr, member};
}
constexpr DimVariable block(const wchar_t* name, int group, AcDbObjectId V::*member) {
    return {name, group, nullptr, nullptr, nullptr, member};
}

constexpr DimVariable kVariables[] = {
    integer(L"DIMADEC", 179, &V::dimadec), real(L"DIMASZ", 41, &V::dimasz),
    block(L"DIMBLK", 342, &V::dimblk),     block(L"DIMBLK1", 343, &V::dimblk1),
    block(L"DIMBLK2", 344, &V::dimblk2),   integer(L"DIMCLRD", 176, &V::dimclrd),
    integer(L"DIMCLRE", 177, &V::dimclre), integer(L"DIMCLRT", 178, &V::dimclrt),
    integer(L"DIMDEC", 271, &V::dimdec),   real(L"DIMDLI", 43, &V::dimdli),
    integer(L"DIMDSEP", 278, &V::dimdsep), real(L"DIMEXE", 44, &V::dimexe),
    real(L"DIMEXO", 42, &V::dimexo),       real(L"DIMGAP", 147, &V::dimgap),
    real(L"DIMLFAC", 144, &V::dimlfac),    {L"DIMPOST", 3, nullptr, nullptr, &V::dimpost},
    real(L"DIMRND", 45, &V::dimrnd),       integer(L"DIMSAH", 173, &V::dimsah),
    real(L"DIMSCALE", 40, &V::dimscale),   integer(L"DIMSE1", 75, &V::dimse1),
    integer(L"DIMSE2", 76, &V::dimse2),    integer(L"DIMTAD", 77, &V::dimtad),
    integer(L"DIMTIH", 73, &V::dimtih),    integer(L"DIMTIX", 174, &V::dimtix),
    integer(L"DIMTOH", 74, &V::dimtoh),    real(L"DIMTSZ", 142, &V::dimtsz),
    real(L"DIMTXT", 140, &V::dimtxt),      integer(L"DIMZIN", 78, &V::dimzin),
};

template <class Key, class Of>
const DimVariable* find(const Key& key, Of of) {
    for (const DimVariable& variable : kVariables)
        if (of(variable) == key) return &variable;
    return nullptr;
}

}  // namespace

std::span<const DimVariable> dimVariables() { return kVariables; }

const DimVariable* dimVariable(std::wstring_view name) {
    return find(name, [](const DimVariable& v) { return std::wstring_view(v.name); });
}

const DimVariable* dimVariable(int group) {
    return find(group, [](const DimVariable& v) { return v.group; });
}

}  // namespace prancheta
