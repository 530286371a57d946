// SPDX-License-Identifier: MIT
// Points of an old picture in a new one, coordinate by coordinate.
#include "zp/objects/picture_map.h"

#include <algorithm>
#include <cmath>

namespace zp {
namespace {

/// How near a coordinate is to an edge to be on it, mm.
constexpr double kNaAresta = 1e-6;

}  // namespace

double Mapa::Eixo::leva(double c) const {
    if (c <= min0 + kNaAresta) return min1 + (c - min0);
    if (c >= max0 - kNaAresta) return max1 + (c - max0);
    std::pair<double, double> perto{min0, min1};
    double distancia = c - min0;
    for (const auto& marca : marcas) {
        const double d = std::abs(c - marca.first);
        if (d <= kNaAresta) return marca.second;
        if (d >= distancia) continue;
        distancia = d;
        perto = marca;
    }
    if (max0 - c < distancia) perto = {max0, max1};
    return perto.second + (c - perto.first);
}

Mapa::Mapa(const Peca& antes, const Peca& depois)
    : m_comprimento0(antes.comprimento),
      m_comprimento1(depois.comprimento),
      m_longitudinal1(!depois.emSecao() && !depois.chapa()),
      m_soEmAltura(m_longitudinal1 && !antes.emSecao() && !antes.chapa()) {
    const secao::Caixa a = antes.figura();
    const secao::Caixa d = depois.figura();
    m_x = {a.x0, a.x1, d.x0, d.x1, {}};
    m_y = {a.y0, a.y1, d.y0, d.y1, {}};
    if (!antes.chapa() && antes.emSecao() && depois.emSecao())
        marcaSecao(antes.secao(), depois.secao());
    if (m_soEmAltura)
        marcaVista(antes.secao().vista(antes.vista), depois.secao().vista(depois.vista));
    m_x.marcas.emplace_back(0.0, 0.0);
    m_y.marcas.emplace_back(0.0, 0.0);
    m_x.marcas.emplace_back(0.5 * (a.x0 + a.x1), 0.5 * (d.x0 + d.x1));
    m_y.marcas.emplace_back(0.5 * (a.y0 + a.y1), 0.5 * (d.y0 + d.y1));
}

/// Equal numbers of corners in the same order are the same corners.
void Mapa::marcaSecao(const secao::Secao& antes, const secao::Secao& depois) {
    const auto poe = [this](const secao::Ponto& a, const secao::Ponto& d) {
        m_x.marcas.emplace_back(a.x, d.x);
        m_y.marcas.emplace_back(a.y, d.y);
    };
    const auto& de = antes.contornos();
    const auto& para = depois.contornos();
    for (std::size_t i = 0; i < std::min(de.size(), para.size()); ++i) {
        if (de[i].segmentos.size() != para[i].segmentos.size()) continue;
        for (std::size_t k = 0; k < de[i].segmentos.size(); ++k)
            poe(de[i].segmentos[k].a, para[i].segmentos[k].a);
        for (std::size_t k = 0; k < std::min(de[i].pontas.size(), para[i].pontas.size()); ++k)
            poe(de[i].pontas[k].canto, para[i].pontas[k].canto);
    }
}

void Mapa::marcaVista(const secao::Vista& antes, const secao::Vista& depois) {
    if (antes.niveis.size() != depois.niveis.size()) return;
    for (std::size_t i = 0; i < antes.niveis.size(); ++i)
        m_y.marcas.emplace_back(antes.niveis[i].w, depois.niveis[i].w);
}

AcGeVector3d Mapa::leva(const AcGeVector3d& ponto) const {
    return {m_soEmAltura ? ponto.x : m_x.leva(ponto.x), m_y.leva(ponto.y), ponto.z};
}

PontoAprendido Mapa::leva(const PontoAprendido& ponto) const {
    if (m_soEmAltura) return {leva(ponto.desvio), ponto.noFim};
    AcGeVector3d inteiro = ponto.desvio;
    if (ponto.noFim) inteiro.x += m_comprimento0;
    PontoAprendido novo{leva(inteiro), false};
    novo.noFim =
        m_longitudinal1 && std::abs(novo.desvio.x - m_comprimento1) <= 1e-6 * m_comprimento1;
    if (novo.noFim) novo.desvio.x -= m_comprimento1;
    return novo;
}

}  // namespace zp
