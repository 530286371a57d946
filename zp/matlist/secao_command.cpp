// SPDX-License-Identifier: MIT
// TABELASECAO.
#include "zp/matlist/secao_command.h"

#include <algorithm>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "texts/number.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/draughtsman.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao_rows.h"
#include "zp/objects/strip_rules.h"

namespace zp::matlist {
namespace {

/// Room for the drawn section, its axes included, in heights of the texts.
constexpr double kRoom = 40.0;
/// How far axes reach beyond the section, in heights of the texts.
constexpr double kBeyond = 2.0;

struct Table {
    std::wstring title;
    std::vector<zp::SecaoRow> rows;
    std::shared_ptr<const secao::Secao> secao;
};

std::optional<Table> tableOf(AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() == nullptr) return {};
    const zp::Peca& p = Access::of(*peca.object());
    Table table{p.designacao(), zp::secaoRows(*peca.object(), texts::withComma), {}};
    std::erase_if(table.rows, [](const zp::SecaoRow& row) { return row.fromOrigin; });
    if (p.secao().invalid()) table.rows.push_back({L"", L"Valores", zp::kInvalidSecao});
    table.secao = p.cachedSecao;
    return table;
}

/// Its upper right corner.
AcGePoint3d drawRows(Draughtsman& d, const Table& table, const AcGePoint3d& corner, double h) {
    std::size_t label = 0;
    std::size_t value = 0;
    for (const zp::SecaoRow& row : table.rows) {
        label = std::max(label, std::wstring_view(row.label).size());
        value = std::max(value, row.value.size());
    }
    const double middle = corner.x + widthOf(label, h);
    const double right =
        std::max(middle + widthOf(value, h), corner.x + widthOf(table.title.size(), h));
    const auto y = [&](std::size_t n) { return corner.y - 2.0 * h * static_cast<double>(n); };
    const std::size_t last = table.rows.size() + 1;
    for (std::size_t n = 0; n <= last; ++n)
        d.line({corner.x, y(n), corner.z}, {right, y(n), corner.z});
    for (const double edge : {corner.x, middle, right})
        d.line({edge, y(edge == middle ? 1 : 0), corner.z}, {edge, y(last), corner.z});
    d.text({0.5 * (corner.x + right), y(1) + 0.5 * h, corner.z}, table.title, h, Align::Middle);
    for (std::size_t n = 0; n < table.rows.size(); ++n) {
        d.text({corner.x + 0.8 * h, y(n + 2) + 0.5 * h, corner.z}, table.rows[n].label, h,
               Align::Left);
        d.text({right - 0.8 * h, y(n + 2) + 0.5 * h, corner.z}, table.rows[n].value, h,
               Align::Right);
    }
    return {right, corner.y, corner.z};
}

/// To the right of and below the corner.
void drawSecao(Draughtsman& d, const secao::Secao& secao, const AcGePoint3d& corner, double h) {
    const secao::Sheet& sheet = secao.sheet();
    secao::Bounds box = secao.bounds();
    const bool centre = sheet.x0 && sheet.y0;
    if (centre) box.include(sheet.p.xg + *sheet.x0, sheet.p.yg + *sheet.y0);
    if (!(box.side() > 0.0)) return;
    const double beyond = kBeyond * h;
    const double factor = (kRoom * h - 4.0 * beyond) / box.side();
    const AcGePoint3d at(corner.x + 2.0 * beyond - factor * box.x0,
                         corner.y - 2.0 * beyond - factor * box.y1, corner.z);
    for (const secao::Outline& outline : secao.outlines()) d.outline(outline, at, factor);
    const AcGePoint3d g(at.x + factor * sheet.p.xg, at.y + factor * sheet.p.yg, at.z);
    const double left = at.x + factor * box.x0 - beyond;
    const double right = at.x + factor * box.x1 + beyond;
    const double low = at.y + factor * box.y0 - beyond;
    const double top = at.y + factor * box.y1 + beyond;
    d.line({left, g.y, g.z}, {right, g.y, g.z});
    d.line({g.x, low, g.z}, {g.x, top, g.z});
    d.text({right + 0.3 * h, g.y - 0.5 * h, g.z}, L"x", h, Align::Left);
    d.text({g.x, top + 0.3 * h, g.z}, L"y", h, Align::Middle);
    if (!centre) return;
    const AcGePoint3d ct(g.x + factor * *sheet.x0, g.y + factor * *sheet.y0, g.z);
    d.circle(ct, 0.5 * h);
    d.text({ct.x + 0.8 * h, ct.y + 0.3 * h, ct.z}, L"CT", h, Align::Left);
}

}  // namespace

void secaoTableCommand() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    const AcDbObjectId bar = askBar(*drawing);
    if (bar.isNull()) return;
    const std::optional<Table> table = tableOf(bar);
    AcGePoint3d corner;
    if (!table || getWCSpoint(corner, L"\nCanto superior esquerdo da tabela: ") != RTNORM) return;
    for (const std::wstring& fault : zp::stripFaults()) acutPrintf(L"\n%ls", fault.c_str());
    const double h = 2.5 * GetScale();
    Draughtsman d(AcDbObjectId::kNull, ZpLayerToUsr(L"LISTA"));
    const AcGePoint3d end = drawRows(d, *table, corner, h);
    drawSecao(d, *table->secao, end, h);
}

}  // namespace zp::matlist
