// SPDX-License-Identifier: MIT
// Pieces: construction, placement, queries.
#include "perfis/entities/zpobject.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "zp/objects/barra_data.h"
#include "zp/objects/links.h"
#include "zp/objects/peca.h"
#include "zp/objects/picture.h"

using zp::Ligacao;
using zp::Peca;
using zp::secao::Caixa;
using zp::secao::Papel;

ACRX_NO_CONS_DEFINE_MEMBERS(ZpObject, AcDbEntity)

namespace {

double comprimentoValido(double v) { return std::isfinite(v) && v > 0.0 ? v : 0.0; }

void preenche(Peca& p, ZpObject::ZpVistas vista, std::initializer_list<double> valores) {
    p.vista = static_cast<std::uint8_t>(std::clamp(static_cast<int>(vista), 0, 4));
    p.quantos = static_cast<std::uint8_t>(std::min<std::size_t>(valores.size(), p.dados.size()));
    std::copy_n(valores.begin(), p.quantos, p.dados.begin());
    p.atuais = p.dados;
}

Acad::ErrorStatus copiaTexto(const std::wstring& de, ACHAR* para) {
    if (para == nullptr) return Acad::eInvalidInput;
    std::wcsncpy(para, de.c_str(), kZpTextoMax - 1);
    para[kZpTextoMax - 1] = L'\0';
    return Acad::eOk;
}

/// kg per mm3 of steel.
constexpr double kAco = 7850e-9;

}  // namespace

ZpObject::ZpObject(int classe) : m_peca(std::make_unique<Peca>()) {
    m_peca->classe = static_cast<zp::secao::Classe>(classe);
    // A new object is about to be read; until then it has the class's first constructor with zeros.
    const auto& d = zp::secao::descricao(m_peca->classe);
    const int um = zp::secao::quantos(d.umPonto[0]);
    m_peca->forma = um > 0 ? 1 : 2;
    m_peca->quantos = static_cast<std::uint8_t>(um > 0 ? um : zp::secao::quantos(d.doisPontos[0]));
}

ZpObject::ZpObject(int classe, const AcGePoint3d& ponto, ZpVistas vista,
                   std::initializer_list<double> valores)
    : m_peca(std::make_unique<Peca>()) {
    Peca& p = *m_peca;
    p.classe = static_cast<zp::secao::Classe>(classe);
    p.forma = 1;
    preenche(p, vista, valores);
    p.pontos[0] = p.inicio = ponto;
    p.comprimento = comprimentoValido(p.papeis()[p.chapa() ? Papel::D3 : Papel::L]);
}

ZpObject::ZpObject(int classe, const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                   std::initializer_list<double> valores)
    : m_peca(std::make_unique<Peca>()) {
    Peca& p = *m_peca;
    p.classe = static_cast<zp::secao::Classe>(classe);
    p.forma = 2;
    preenche(p, vista, valores);
    p.pontos = {inicio, fim};
    p.inicio = inicio;
    const AcGeVector3d eixo(fim.x - inicio.x, fim.y - inicio.y, 0.0);
    p.comprimento = comprimentoValido(eixo.length());
    if (p.comprimento > 0.0) p.angulo = zp::anguloDe(eixo);
}

ZpObject::~ZpObject() = default;

Acad::ErrorStatus ZpObject::settipoBarra(TipoBarra tipo) {
    const int valor = tipo;  // may be none of the enumeration's
    if (valor < 0 || valor > 255) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_peca->tipoBarra = static_cast<std::uint8_t>(valor);
    m_peca->barraVelha = true;
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::tipoBarra(TipoBarra& tipo) const {
    assertReadEnabled();
    tipo = static_cast<TipoBarra>(m_peca->tipoBarra);
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::LinkDim(const AcDbObjectId& cota) {
    return zp::liga(*this, cota, Ligacao::Papel::Cota);
}

Acad::ErrorStatus ZpObject::LinkPos(const AcDbObjectId& peca) {
    return zp::liga(*this, peca, Ligacao::Papel::Segue);
}

void ZpObject::GetLimitPointsOfFaces(AcGePoint3d& f0, AcGePoint3d& f1, AcGePoint3d& f2,
                                     AcGePoint3d& f3) const {
    assertReadEnabled();
    const Caixa c = m_peca->figura();
    const zp::Quadro q = m_peca->quadroDaFigura();
    f0 = q.paraFora(c.x0, c.y1);
    f1 = q.paraFora(c.x0, c.y0);
    f2 = q.paraFora(c.x1, c.y1);
    f3 = q.paraFora(c.x1, c.y0);
}

Acad::ErrorStatus ZpObject::StartPoint(AcGePoint3d& ponto) const {
    assertReadEnabled();
    ponto = m_peca->inicio;
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::EndPoint(AcGePoint3d& ponto) const {
    assertReadEnabled();
    ponto = m_peca->fim();
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::AngleVista(double& angulo) const {
    assertReadEnabled();
    angulo = m_peca->angulo;
    return Acad::eOk;
}

ZpObject::ZpVistas ZpObject::vista() const {
    assertReadEnabled();
    return static_cast<ZpVistas>(m_peca->vista);
}

Acad::ErrorStatus ZpObject::AlteraComprimento(double comprimento) {
    if (!std::isfinite(comprimento) || comprimento <= 0.0) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_peca->comprimento = comprimento;
    m_peca->barraVelha = true;
    recordGraphicsModified();
    return Acad::eOk;
}

double ZpObject::getAltura() const {
    assertReadEnabled();
    return m_peca->chapa() ? m_peca->comprimento : m_peca->secao().altura();
}

double ZpObject::getLargura() const {
    assertReadEnabled();
    return m_peca->chapa() ? m_peca->atuais[0] : m_peca->secao().largura();
}

double ZpObject::getEspessura() const {
    assertReadEnabled();
    return m_peca->chapa() ? m_peca->atuais[1] : m_peca->secao().espessura();
}

double ZpObject::getArea() const {
    assertReadEnabled();
    return m_peca->chapa() ? m_peca->atuais[0] * m_peca->comprimento : m_peca->secao().area();
}

double ZpObject::getPerimetro() const {
    assertReadEnabled();
    return m_peca->chapa() ? 2.0 * (m_peca->atuais[0] + m_peca->comprimento)
                           : m_peca->secao().propriedades().perimetro;
}

double ZpObject::getAreaPintura() const {
    assertReadEnabled();
    const Peca& p = *m_peca;
    if (!p.chapa()) return p.secao().perimetroPintura() * p.comprimento * 1e-6;
    const double d1 = p.atuais[0];
    const double d2 = p.atuais[1];
    return 2.0 * (d1 * d2 + d1 * p.comprimento + d2 * p.comprimento) * 1e-6;
}

double ZpObject::getPeso() const {
    assertReadEnabled();
    const Peca& p = *m_peca;
    if (p.chapa()) return p.atuais[0] * p.atuais[1] * p.comprimento * kAco;
    return p.secao().kgMetro() * p.comprimento * 1e-3;
}

double ZpObject::getLinearWeight() const {
    assertReadEnabled();
    const Peca& p = *m_peca;
    return p.chapa() ? p.atuais[0] * p.atuais[1] * kAco * 1e3 : p.secao().kgMetro();
}

double ZpObject::getComprimento() const { return getComprimentoReal(); }

double ZpObject::getComprimentoReal() const {
    assertReadEnabled();
    return m_peca->comprimento;
}

Acad::ErrorStatus ZpObject::getPerfil(ACHAR* texto) const {
    assertReadEnabled();
    return copiaTexto(zp::secao::textoPerfil(m_peca->classe, m_peca->papeis(), m_peca->subtipo),
                      texto);
}

Acad::ErrorStatus ZpObject::getDimensoes(ACHAR* texto) const {
    assertReadEnabled();
    return copiaTexto(zp::secao::textoDimensoes(m_peca->classe, m_peca->papeis(), m_peca->subtipo),
                      texto);
}

Acad::ErrorStatus ZpObject::leValor(int papel, double& valor) const {
    assertReadEnabled();
    const double* const guardado = std::as_const(*m_peca).valor(static_cast<Papel>(papel));
    if (guardado == nullptr) return Acad::eNotApplicable;
    valor = *guardado;
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::gravaValor(int papel, double valor) {
    if (!std::isfinite(valor)) return Acad::eInvalidInput;
    double* const guardado = m_peca->valor(static_cast<Papel>(papel));
    if (guardado == nullptr) return Acad::eNotApplicable;
    assertWriteEnabled();
    *guardado = valor;
    m_peca->secaoGuardada.reset();
    m_peca->barraVelha = true;
    recordGraphicsModified();
    return Acad::eOk;
}

void ZpObject::getEcs(AcGeMatrix3d& ecs) const {
    assertReadEnabled();
    const zp::Quadro q = m_peca->quadro();
    ecs.setCoordSystem(q.origem, q.x, q.y, AcGeVector3d::kZAxis);
}

/// What the bar is must stand in the drawing before anybody else can open the piece, so it is
/// written as the access that changed it ends.
Acad::ErrorStatus ZpObject::subClose() {
    if (isWriteEnabled() && database() != nullptr && !isErased() && !isUndoing()) {
        if (isNewObject()) zp::carregaLinhas(*database());
        if (isNewObject() || m_peca->barraVelha) zp::gravaBarra(*this);
        m_peca->barraVelha = false;
    }
    return AcDbEntity::subClose();
}
