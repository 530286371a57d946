// SPDX-License-Identifier: MIT
// What LIST prints of a piece.
#include <numbers>
#include <string>

#include "acutads.h"
#include "perfis/entities/zpobject.h"
#include "texts/number.h"
#include "zp/objects/links.h"
#include "zp/objects/peca.h"

using texts::withComma;
using zp::Ligacao;
using zp::Peca;

namespace {

constexpr const wchar_t* kVistas[] = {L"seção", L"vista superior", L"vista inferior",
                                      L"vista direita", L"vista esquerda"};
constexpr const wchar_t* kFuncoes[] = {
    L"barra", L"montante", L"diagonal", L"banzo inferior", L"banzo superior",
    L"viga",  L"pilar",    L"barra",    L"barra",          L"terça"};

void linha(const std::wstring& nome, const std::wstring& valor) {
    acutPrintf(L"\n%20ls: %ls", nome.c_str(), valor.c_str());
}

std::wstring ponto(const AcGePoint3d& p) {
    return L"X=" + withComma(p.x, 4) + L"  Y=" + withComma(p.y, 4) + L"  Z=" + withComma(p.z, 4);
}

std::wstring handles(const Peca& p, bool cotas) {
    std::wstring texto;
    for (const Ligacao& l : p.ligadas()) {
        if ((l.papel == Ligacao::Papel::Cota) != cotas) continue;
        ACHAR handle[17];
        l.id.handle().getIntoAsciiBuffer(handle);
        texto += (texto.empty() ? L"" : L", ") + std::wstring(handle);
    }
    return texto.empty() ? L"nenhuma" : texto;
}

void listaSecao(const Peca& p) {
    const zp::secao::Propriedades& s = p.secao().propriedades();
    linha(L"área (A)", withComma(s.area, 2) + L" mm2");
    linha(L"Ix, Iy", withComma(s.ix, 0) + L"; " + withComma(s.iy, 0) + L" mm4");
    linha(L"xg, yg", withComma(s.xg, 3) + L"; " + withComma(s.yg, 3) + L" mm");
    linha(L"It", withComma(p.secao().torcao(), 0) + L" mm4");
    if (p.secao().invalida()) linha(L"valores", L"seção inválida: desenhada pela caixa");
}

}  // namespace

void ZpObject::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    const Peca& p = *m_peca;
    ACHAR perfil[kZpTextoMax];
    ACHAR dimensoes[kZpTextoMax];
    (void)getPerfil(perfil);  // the buffers are there
    (void)getDimensoes(dimensoes);
    linha(L"perfil", std::wstring(perfil) + L" " + dimensoes);
    linha(L"início", ponto(p.inicio));
    linha(L"comprimento", withComma(p.comprimento, 4) + L" mm");
    linha(L"ângulo", withComma(p.angulo * 180.0 / std::numbers::pi, 4) + L" graus" +
                         (p.espelhada ? L", espelhada" : L""));
    linha(L"vista", kVistas[p.vista]);
    linha(L"função", p.tipoBarra < std::size(kFuncoes) ? kFuncoes[p.tipoBarra] : kFuncoes[0]);
    linha(L"peso",
          withComma(getPeso(), 3) + L" kg (" + withComma(getLinearWeight(), 3) + L" kg/m)");
    linha(L"área de pintura", withComma(getAreaPintura(), 4) + L" m2");
    if (!p.chapa()) listaSecao(p);
    linha(L"cotas", handles(p, true));
    linha(L"peças ligadas", handles(p, false));
    if (const int fora = zp::chapasForaDaBarra(*this); fora > 0)
        linha(L"chapas fora da barra", std::to_wstring(fora));
    acutPrintf(L"\n");
}
