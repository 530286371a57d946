// SPDX-License-Identifier: MIT
// Frames and pictures' boxes of pieces.
#include "zp/objects/peca.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zp {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kQuaseZero = 1e-12;

double semPo(double v) {
    if (std::abs(v) < kQuaseZero) return 0.0;
    if (std::abs(v - 1.0) < kQuaseZero) return 1.0;
    return std::abs(v + 1.0) < kQuaseZero ? -1.0 : v;
}

bool igual(double a, double b) { return std::abs(a - b) < 1e-9; }

/// How a plate lies in its picture.
enum class Atitude { DeCanto, Deitada, CantoNaSecao };

Atitude atitude(const Peca& p) {
    const double r1 = p.atuais[3];
    const double r2 = p.atuais[4];
    if (p.vista == 4 && igual(r1, 0.0) && igual(r2, -0.5 * kPi)) return Atitude::Deitada;
    if (p.vista == 4 && igual(r1, 0.0) && igual(r2, 0.0)) return Atitude::CantoNaSecao;
    return Atitude::DeCanto;
}

/// Turn of a plate's picture about its origin; 0 for the attitudes that the members use.
double giroDaChapa(const Peca& p) {
    if (!p.chapa() || atitude(p) != Atitude::DeCanto) return 0.0;
    const auto conhecido = [](double r) { return igual(r, 0.0) || igual(r, -0.5 * kPi); };
    if (p.vista == 0 && conhecido(p.atuais[3]) && conhecido(p.atuais[4])) return 0.0;
    const double giro = p.atuais[3] + p.atuais[4];
    return std::isfinite(giro) ? giro : 0.0;
}

secao::Caixa figuraDaChapa(const Peca& p) {
    const double d1 = p.atuais[0];
    const double d2 = p.atuais[1];
    const double d3 = p.comprimento;
    secao::Caixa c;
    switch (atitude(p)) {
        case Atitude::DeCanto:
            c.inclui(0.0, -0.5 * d2);
            c.inclui(d1, 0.5 * d2);
            break;
        case Atitude::Deitada:
            c.inclui(0.0, -d3);
            c.inclui(d1, 0.0);
            break;
        case Atitude::CantoNaSecao:
            c.inclui(0.0, 0.0);
            c.inclui(d3, d2);
            break;
    }
    return c;
}

Quadro quadroCom(const AcGePoint3d& origem, double angulo, bool espelhado) {
    const AcGeVector3d x = direcao(angulo);
    const double s = espelhado ? -1.0 : 1.0;
    return {origem, x, {-s * x.y, s * x.x, 0.0}};
}

}  // namespace

AcGeVector3d direcao(double angulo) {
    return {semPo(std::cos(angulo)), semPo(std::sin(angulo)), 0.0};
}

double anguloDe(const AcGeVector3d& v) {
    double a = std::atan2(v.y, v.x);
    const double quartos = std::round(a / (0.5 * kPi));
    if (std::abs(a - quartos * 0.5 * kPi) < kQuaseZero) a = quartos * 0.5 * kPi;
    if (a < 0.0) a += 2.0 * kPi;
    return a >= 2.0 * kPi ? 0.0 : a;
}

AcGePoint3d Quadro::paraFora(double px, double py, double pz) const {
    return {origem.x + px * x.x + py * y.x, origem.y + px * x.y + py * y.y, origem.z + pz};
}

AcGeVector3d Quadro::paraDentro(const AcGePoint3d& p) const {
    const AcGeVector3d v = p - origem;
    return {v.dotProduct(x), v.dotProduct(y), v.z};
}

const secao::Secao& Peca::secao() const {
    if (!secaoGuardada) secaoGuardada = secao::secaoDe(classe, forma, valores());
    return *secaoGuardada;
}

Quadro Peca::quadro() const { return quadroCom(inicio, angulo, espelhada); }

Quadro Peca::quadroDaFigura() const {
    const double giro = giroDaChapa(*this);
    return quadroCom(inicio, angulo + (espelhada ? -giro : giro), espelhada);
}

AcGePoint3d Peca::fim() const {
    return emSecao() ? inicio : inicio + direcao(angulo) * comprimento;
}

secao::Caixa Peca::figura() const {
    if (chapa()) return figuraDaChapa(*this);
    if (emSecao()) return secao().caixa();
    const secao::Vista& v = secao().vista(vista);
    return {0.0, v.wMin, comprimento, v.wMax};
}

// Nearly all pieces have a handful of links: until then no room is kept for more.
void Peca::acrescenta(const Ligacao& l) {
    constexpr std::size_t kPoucas = 8;
    if (!ligacoes) ligacoes = std::make_unique<std::vector<Ligacao>>();
    if (ligacoes->size() < kPoucas) ligacoes->reserve(ligacoes->size() + 1);
    ligacoes->push_back(l);
}

void Peca::insere(std::ptrdiff_t lugar, const Ligacao& l) {
    acrescenta(l);
    const auto fim = ligacoes->end() - 1;
    std::rotate(std::min(ligacoes->begin() + lugar, fim), fim, ligacoes->end());
}

std::span<const Ligacao> Peca::ligadas() const {
    return ligacoes ? std::span<const Ligacao>(*ligacoes) : std::span<const Ligacao>();
}

Ligacao* Peca::ligacao(AcDbObjectId id) {
    if (!ligacoes) return nullptr;
    for (Ligacao& l : *ligacoes)
        if (l.id == id) return &l;
    return nullptr;
}

void Peca::desliga(AcDbObjectId id) {
    if (!ligacoes) return;
    std::erase_if(*ligacoes, [&](const Ligacao& l) { return l.id == id; });
    if (ligacoes->empty()) ligacoes.reset();
}

}  // namespace zp
