// SPDX-License-Identifier: MIT
// The pairs of files of the welded series.
#include "perfis/catalogues/welded_series.h"

#include <array>

#include "perfis/catalogues/catalogue.h"
#include "perfis/catalogues/str_list.h"

namespace perfis {
namespace {

constexpr const wchar_t* kFavouriteHeader = L"  H        B          tf        tw";
constexpr const wchar_t* kSeriesHeader = L"  Tipo     H     Kg/m";

constexpr std::array<WeldedSource, kWeldedSourceCount> kSources = {{
    {L"rb_user", L"vi.lst", L"vi.lst", kFavouriteHeader},
    {L"rb_vs", L"vi_vs.lst", L"vs.lst", kSeriesHeader},
    {L"rb_cvs", L"vi_cvs.lst", L"cvs.lst", kSeriesHeader},
    {L"rb_cs", L"vi_cs.lst", L"cs.lst", kSeriesHeader},
}};

}  // namespace

const WeldedSource& weldedSource(int source) {
    return kSources.at(static_cast<std::size_t>(source));
}

std::vector<std::wstring> weldedRows(std::wstring_view path) {
    ZpStrList list;
    return list.read(path) == 0 ? std::vector<std::wstring>() : list.texts();
}

std::vector<std::wstring> weldedValues(std::wstring_view path, int index) {
    ZpStrList list;
    std::wstring row;
    if (list.read(path) == 0 || list.getAt(row, static_cast<unsigned>(index)) == 0) return {};
    return splitRow(row);
}

}  // namespace perfis
