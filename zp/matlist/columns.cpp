// SPDX-License-Identifier: MIT
// The columns of a material list.
#include "zp/matlist/columns.h"

#include <algorithm>

#include "texts/letters.h"
#include "zp/matlist/formats.h"
#include "zp/matlist/lists.h"
#include "zp/objects/secao/single.h"

namespace zp::matlist {

// Key, title, name, unit, decimals, width, summed, usual, editable; field, decimals' kind.
const std::array<Column, kColumns> kColumnTable{{
    {{L"marca", L"Marca", L"Marca", L"", -1, 9, false}, &Linha::marca},
    {{L"quantidade", L"Quant.", L"Quantidade", L"", 0, 9, false, true, true}, &Linha::quantidade},
    {{L"descricao", L"Descrição", L"Descrição", L"", -1, 16, false}, &Linha::descricao},
    {{L"dimensoes", L"Dimensões", L"Dimensões", L"", -1, 24, false}, &Linha::dimensoes},
    {{L"material", L"Material", L"Material", L"", -1, 12, false, true, true}, &Linha::material},
    {{L"comprimento", L"Compr.", L"Comprimento", L"mm", 1, 13, false},
     &Linha::comprimento,
     Decimals::Needed},
    {{L"peso_unitario", L"Peso unit.", L"Peso unitário", L"kg", 2, 16, false},
     &Linha::pesoUnitario},
    {{L"peso_total", L"Peso total", L"Peso total", L"kg", 2, 17, true}, &Linha::pesoTotal},
    {{L"area_pintura", L"Pintura", L"Área de pintura", L"m²", 2, 14, true}, &Linha::areaPintura},
    {{L"observacao", L"Observação", L"Observação", L"", -1, 36, false, true, true},
     &Linha::observacao},
    {{L"designacao", L"Designação", L"Designação", L"", -1, 30, false, false}, &designationOf},
    {{L"origem_peso", L"Origem do peso", L"Origem do peso", L"", -1, 26, false, false},
     &massOriginOf},
    {{L"peso_liquido", L"Peso líquido", L"Peso líquido", L"kg", 2, 17, true, false}, &netMassOf},
}};

std::wstring designationOf(const Linha& row) {
    return secao::designacaoText(row.descricao, row.dimensoes, row.nome);
}

std::wstring massOriginOf(const Linha& row) { return row.origemPeso; }

double netMassOf(const Linha& row) { return row.pesoLiquido; }

Cell cellOf(const Linha& row, const Column& column) {
    if (column.field == Field(&Linha::observacao)) return observacaoOf(row);
    return std::visit(
        [&](auto field) -> Cell {
            if constexpr (!std::is_member_pointer_v<decltype(field)>)
                return field(row);
            else if constexpr (std::is_same_v<decltype(field), std::wstring Linha::*>)
                return row.*field;
            else
                return static_cast<double>(row.*field);
        },
        column.field);
}

std::wstring headingOf(const Column& column) {
    std::wstring heading = column.shown.title;
    for (wchar_t& c : heading)
        if ((c >= L'a' && c <= L'z') || (c >= L'à' && c <= L'þ'))
            c = static_cast<wchar_t>(c - 0x20);
    std::wstring unit = column.shown.unit;
    std::ranges::replace(unit, L'²', L'2');
    return unit.empty() ? heading : heading + L" (" + unit + L")";
}

const protocol::ListSchema& listSchema() {
    static const auto columns = [] {
        std::array<protocol::ListColumn, kColumns> shown;
        std::ranges::transform(kColumnTable, shown.begin(), &Column::shown);
        return shown;
    }();
    static const auto formats = [] {
        std::array<protocol::ListFormat, kFormats> shown;
        std::ranges::transform(kFormatTable, shown.begin(), &Format::shown);
        return shown;
    }();
    static constexpr std::array kShown{L"quantidade",  L"marca",      L"designacao",
                                       L"comprimento", L"peso_total", L"area_pintura",
                                       L"observacao",  L"material",   L"peso_unitario"};
    static const protocol::ListSchema schema{kListCommand, kDrawWord, columns, formats, kShown};
    return schema;
}

}  // namespace zp::matlist
