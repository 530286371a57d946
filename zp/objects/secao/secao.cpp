// SPDX-License-Identifier: MIT
// Section from values, and the cache that makes equal sections one.
#include "zp/objects/secao/secao.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <unordered_map>

#include "zp/objects/secao/assembly.h"

namespace zp::secao {
namespace {

using enum Papel;

/// kg per metre of one mm2 of steel.
constexpr double kAcoKgMetro = 7850e-6;
/// Sections kept for reuse; a catalogue has some hundred.
constexpr std::size_t kCacheMaximo = 4096;

void vira(std::vector<Laco>& lacos, double r) {
    if (r == 0.0 || !std::isfinite(r)) return;
    for (Laco& laco : lacos) {
        if (std::abs(r - std::numbers::pi) < 1e-9)
            meiaVolta(laco);
        else
            gira(laco, r);
    }
}

double positivo(double v) { return std::isfinite(v) && v > 0.0 ? v : 0.0; }

struct Chave {
    std::array<std::uint64_t, kMaxValores + 1> v{};
    bool operator==(const Chave&) const = default;
};

struct Espalha {
    std::size_t operator()(const Chave& c) const {
        std::uint64_t h = 0xcbf29ce484222325u;
        for (const std::uint64_t x : c.v) h = (h ^ x ^ (x >> 29)) * 0x9e3779b97f4a7c15u;
        return static_cast<std::size_t>(h ^ (h >> 32));
    }
};

/// Class, form and the values that shape the section, bit by bit.
Chave chaveDe(Classe classe, const Papeis& papeis, int pontos, std::span<const double> valores) {
    Chave c;
    c.v[0] = static_cast<std::uint64_t>(classe) | static_cast<std::uint64_t>(pontos) << 8 |
             valores.size() << 16;
    for (std::size_t i = 0; i < valores.size(); ++i)
        if (papeis[i] != L && papeis[i] != Zero)
            std::memcpy(&c.v[i + 1], &valores[i], sizeof(double));
    return c;
}

}  // namespace

Secao::Secao(Classe classe, const Dados& d) {
    const Descricao& linha = descricao(classe);
    Montagem m = linha.monta(d);
    m_invalida = m.invalida;
    m_torcao = m.torcao;
    vira(m.lacos, d[Giro]);
    for (const Laco& laco : m.lacos) {
        m_contornos.push_back(tracado(laco));
        m_caixa.inclui(m_contornos.back().caixa);
    }
    m_propriedades = secao::propriedades(m_contornos);
    m_perimetroPintura = m.contornoExterno;
    if (m_perimetroPintura == 0.0)
        for (const Contorno& c : m_contornos)
            if (!c.furo)
                for (const Segmento& s : c.segmentos) m_perimetroPintura += s.comprimento();

    const bool redonda = classe == Classe::Tubo || classe == Classe::BarraRedonda;
    const bool perfilI = classe == Classe::ISoldado || classe == Classe::ILaminadoUSA;
    if (linha.composicao != Composicao::Uma) {
        m_altura = m_caixa.altura();
        m_largura = m_caixa.largura();
    } else {
        m_altura = redonda ? d[D] : d[H];
        m_largura = redonda ? d[D] : std::max({d[B1], d[Bc], d[Bb]});
        if (classe == Classe::BNLaminado) m_largura = d[H];
    }
    m_espessura = perfilI ? d[Tw] : d[T];
    if (classe == Classe::BarraRedonda) m_espessura = d[D];
    if (classe == Classe::Tubo) m_espessura = 0.5 * (d[D] - d[Dint]);
    const double dada = positivo(d[A]) * (linha.composicao == Composicao::DuasEmCm2 ? 100.0 : 1.0);
    m_area = dada > 0.0 ? dada : m_propriedades.area;
    m_kgMetro = positivo(d[M]) > 0.0 ? d[M] : m_propriedades.area * kAcoKgMetro;
}

const Vista& Secao::vista(int vista) const {
    std::unique_ptr<Vista>& v = m_vistas[static_cast<std::size_t>(std::clamp(vista, 1, 4) - 1)];
    if (!v) v = std::make_unique<Vista>(vistaLongitudinal(m_contornos, std::clamp(vista, 1, 4)));
    return *v;
}

std::shared_ptr<const Secao> secaoDe(Classe classe, int pontos, std::span<const double> valores) {
    static std::unordered_map<Chave, std::shared_ptr<const Secao>, Espalha> cache;
    const Papeis* papeis = papeisDe(classe, pontos, static_cast<int>(valores.size()));
    if (papeis == nullptr) return std::make_shared<Secao>(Classe::Nenhuma, Dados{});
    const Chave chave = chaveDe(classe, *papeis, pontos, valores);
    if (const auto achada = cache.find(chave); achada != cache.end()) return achada->second;
    if (cache.size() >= kCacheMaximo) cache.clear();
    auto nova = std::make_shared<const Secao>(classe, dadosDe(classe, pontos, valores));
    cache.emplace(chave, nova);
    return nova;
}

}  // namespace zp::secao
