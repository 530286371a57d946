// SPDX-License-Identifier: MIT
// Edges of a longitudinal view. A sweep over heights w: at each candidate edge the front surface
// just below and just above it tells whether the edge is seen.
#include "zp/objects/secao/levels.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace zp::secao {
namespace {

constexpr double kNada = -std::numeric_limits<double>::infinity();

/// Point of the view: w up in the drawing, p towards the viewer.
struct PontoVista {
    double w = 0.0;
    double p = 0.0;
};

struct Candidato {
    double w;
    double p;
};

class Observador {
public:
    explicit Observador(int vista) : m_vista(vista) {}

    PontoVista ve(Ponto q) const {
        switch (m_vista) {
            case 1:
                return {-q.x, q.y};
            case 2:
                return {-q.x, -q.y};
            case 3:
                return {q.y, q.x};
            default:
                return {q.y, -q.x};
        }
    }
    /// Angle of the section plane at which w is largest on a circle.
    double anguloDoAlto() const { return m_vista <= 2 ? std::numbers::pi : 0.5 * std::numbers::pi; }

private:
    int m_vista;
};

/// True when the direction `angulo` lies on the arc, its ends included within `folga` radians.
bool contem(const Segmento& s, double angulo, double folga) {
    constexpr double kVolta = 2.0 * std::numbers::pi;
    const double sinal = s.varre > 0.0 ? 1.0 : -1.0;
    double d = std::fmod(sinal * (angulo - s.inicio), kVolta);
    if (d < -folga) d += kVolta;
    if (d > kVolta - folga) d -= kVolta;
    return d >= -folga && d <= std::abs(s.varre) + folga;
}

/// Direction of travel at an end of a segment.
double direcao(const Segmento& s, bool noFim) {
    if (!s.arco()) return std::atan2(s.b.y - s.a.y, s.b.x - s.a.x);
    const double raio = s.inicio + (noFim ? s.varre : 0.0);
    return raio + (s.varre > 0.0 ? 0.5 : -0.5) * std::numbers::pi;
}

void candidatosDoContorno(const Contorno& c, const Observador& o, double caixa,
                          std::vector<Candidato>& lista) {
    const auto inclui = [&](PontoVista q) { lista.push_back({q.w, q.p}); };
    const std::size_t n = c.segmentos.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Segmento& s = c.segmentos[i];
        const double giro = std::remainder(
            direcao(c.segmentos[(i + 1) % n], false) - direcao(s, true), 2.0 * std::numbers::pi);
        if (std::abs(giro) > 1e-3) inclui(o.ve(s.b));
        if (!s.arco()) {
            const PontoVista a = o.ve(s.a);
            const PontoVista b = o.ve(s.b);
            if (std::abs(a.w - b.w) <= 1e-9 * caixa) lista.push_back({a.w, std::max(a.p, b.p)});
            continue;
        }
        for (const double meia : {0.0, std::numbers::pi}) {
            const double angulo = o.anguloDoAlto() + meia;
            // At an end the neighbour decides: a face seen edge-on is an edge of its own. Only the
            // two halves of a circle have none.
            if (!contem(s, angulo, c.circulo ? 1e-9 : -1e-9)) continue;
            inclui(o.ve(
                {s.centro.x + s.raio * std::cos(angulo), s.centro.y + s.raio * std::sin(angulo)}));
        }
    }
    for (const CantoDePonta& ponta : c.pontas) {
        const Segmento& s = c.segmentos[ponta.arco];
        if (!contem(s, o.anguloDoAlto(), 1e-6) &&
            !contem(s, o.anguloDoAlto() + std::numbers::pi, 1e-6))
            inclui(o.ve(ponta.canto));
    }
}

/// Largest p of steel on the line of sight at height w.
double frente(const std::vector<Contorno>& contornos, const Observador& o, double w) {
    double maior = kNada;
    for (const Contorno& c : contornos)
        for (const Segmento& s : c.segmentos) {
            const PontoVista a = o.ve(s.a);
            const PontoVista b = o.ve(s.b);
            if (!s.arco()) {
                if ((a.w - w) * (b.w - w) <= 0.0 && a.w != b.w)
                    maior = std::max(maior, a.p + (b.p - a.p) * (w - a.w) / (b.w - a.w));
                continue;
            }
            const PontoVista centro = o.ve(s.centro);
            const double altura = w - centro.w;
            if (std::abs(altura) > s.raio) continue;
            const double meia = std::acos(altura / s.raio);
            for (const double angulo : {o.anguloDoAlto() + meia, o.anguloDoAlto() - meia})
                if (contem(s, angulo, 1e-12))
                    maior = std::max(maior, o.ve({s.centro.x + s.raio * std::cos(angulo),
                                                  s.centro.y + s.raio * std::sin(angulo)})
                                                .p);
        }
    return maior;
}

bool visivel(const std::vector<Contorno>& contornos, const Observador& o, const Candidato& c,
             double caixa) {
    const double e = 1e-7 * caixa;
    const double abaixo = frente(contornos, o, c.w - e);
    const double acima = frente(contornos, o, c.w + e);
    if (abaixo == kNada || acima == kNada) return true;
    const double folga = 1e-4 * caixa;
    return std::abs(abaixo - acima) > folga || c.p >= std::max(abaixo, acima) - folga;
}

void juntaTrechos(Vista& v, double caixa) {
    std::sort(v.trechos.begin(), v.trechos.end());
    std::vector<std::pair<double, double>> juntos;
    for (const auto& t : v.trechos) {
        if (!juntos.empty() && t.first <= juntos.back().second + 1e-9 * caixa)
            juntos.back().second = std::max(juntos.back().second, t.second);
        else
            juntos.push_back(t);
    }
    v.trechos = std::move(juntos);
}

}  // namespace

Vista vistaLongitudinal(const std::vector<Contorno>& contornos, int vista) {
    Vista v;
    const Observador o(vista);
    Caixa caixa;
    for (const Contorno& c : contornos) {
        caixa.inclui(c.caixa);
        if (c.furo || c.caixa.vazia()) continue;
        const double w0 = o.ve({c.caixa.x0, c.caixa.y0}).w;
        const double w1 = o.ve({c.caixa.x1, c.caixa.y1}).w;
        v.trechos.push_back(std::minmax(w0, w1));
    }
    if (v.trechos.empty()) return v;
    const double lado = caixa.lado();
    juntaTrechos(v, lado);
    v.wMin = v.trechos.front().first;
    v.wMax = v.trechos.back().second;

    std::vector<Candidato> lista;
    for (const Contorno& c : contornos) candidatosDoContorno(c, o, lado, lista);
    std::sort(lista.begin(), lista.end(),
              [](const Candidato& a, const Candidato& b) { return a.w < b.w; });
    for (const Candidato& c : lista) {
        const bool mesma = !v.niveis.empty() && c.w - v.niveis.back().w <= 1e-9 * lado;
        if (!mesma) v.niveis.push_back({c.w, false});
        if (!v.niveis.back().visivel) v.niveis.back().visivel = visivel(contornos, o, c, lado);
    }
    v.eixo = v.wMin < 0.0 && v.wMax > 0.0 &&
             std::none_of(v.niveis.begin(), v.niveis.end(),
                          [&](const Nivel& n) { return std::abs(n.w) <= 1e-6 * lado; });
    return v;
}

}  // namespace zp::secao
