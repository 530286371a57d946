// SPDX-License-Identifier: MIT
// What LIST prints of a piece.
#include <numbers>
#include <string>
#include <utility>

#include "acedads.h"
#include "acutads.h"
#include "geassign.h"
#include "perfis/entities/zpobject.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/objects/cortes.h"
#include "zp/objects/links.h"
#include "zp/objects/member.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao_rows.h"

using texts::withComma;
using zp::Link;
using zp::Peca;

namespace {

constexpr const wchar_t* kVistas[] = {L"seção", L"vista superior", L"vista inferior",
                                      L"vista direita", L"vista esquerda"};

void line(const std::wstring& name, const std::wstring& value) {
    acutPrintf(L"\n%37ls: %ls", name.c_str(), value.c_str());
}

/// In the user's coordinates.
std::wstring point(const AcGePoint3d& world) {
    const resbuf from{nullptr, RTSHORT, {.rint = 0}};
    const resbuf to{nullptr, RTSHORT, {.rint = 1}};
    AcGePoint3d p = world;
    (void)acedTrans(asDblArray(world), &from, &to, 0, asDblArray(p));  // refused, the world's
    return L"X=" + withComma(p.x, 4) + L"  Y=" + withComma(p.y, 4) + L"  Z=" + withComma(p.z, 4);
}

std::wstring handles(const Peca& p, bool cotas) {
    std::wstring text;
    for (const Link& l : p.linked()) {
        if ((l.role == Link::Role::Cota) != cotas) continue;
        ACHAR handle[17];
        l.id.handle().getIntoAsciiBuffer(handle);
        text += (text.empty() ? L"" : L", ") + std::wstring(handle);
    }
    return text.empty() ? L"nenhuma" : text;
}

/// The mass stands above.
void listSecao(const ZpObject& peca, const Peca& p) {
    for (const zp::SecaoRow& row : zp::secaoRows(peca, withComma))
        if (row.key != std::wstring_view(L"kg_m"))
            line(texts::lower(std::wstring(row.label, 1)) + (row.label + 1), row.value);
    if (p.secao().invalid()) line(L"valores", zp::kInvalidSecao);
}

/// Nothing where both ends are square.
void listCortes(const Peca& p) {
    if (!zp::cortes::oblique(p)) return;
    line(L"comprimento no eixo", withComma(p.comprimento, 4) + L" mm");
    if (!p.inSecao())
        for (const auto& [name, end] : {std::pair(L"corte no início", zp::cortes::kStart),
                                        std::pair(L"corte no fim", zp::cortes::kEnd)})
            line(name, withComma(zp::cortes::degreesOf(p, end), 4) + L" graus");
    line(L"peso líquido", withComma(zp::cortes::netMass(p), 3) + L" kg");
}

}  // namespace

void ZpObject::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    const Peca& p = *m_peca;
    line(L"designação", p.designacao());
    line(L"perfil", p.perfil() + L" " + p.dimensoes());
    line(L"início", point(p.start));
    line(L"comprimento", withComma(getComprimentoReal(), 4) + L" mm");
    listCortes(p);
    line(L"ângulo", withComma(p.angle * 180.0 / std::numbers::pi, 4) + L" graus" +
                        (p.mirrored ? L", espelhada" : L""));
    line(L"vista", kVistas[p.vista]);
    line(L"função", zp::member::roleName(*this));
    line(L"peso", withComma(getPeso(), 3) + L" kg (" + withComma(getLinearWeight(), 3) + L" kg/m)");
    line(L"área de pintura", withComma(getAreaPintura(), 4) + L" m2");
    if (!p.chapa()) listSecao(*this, p);
    line(L"cotas", handles(p, true));
    line(L"peças ligadas", handles(p, false));
    if (const int outside = zp::chapasBeyondBarra(*this); outside > 0)
        line(L"chapas fora da barra", std::to_wstring(outside));
    acutPrintf(L"\n");
}
