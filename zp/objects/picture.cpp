// SPDX-License-Identifier: MIT
// Strokes of a piece's picture, and the linetypes that they need.
#include "zp/objects/picture.h"

#include "dbsymtb.h"

namespace zp {
namespace {

Traco linha(const Quadro& q, double x0, double y0, double x1, double y1,
            TipoDeLinha tipo = TipoDeLinha::Propria) {
    return {{q.paraFora(x0, y0), q.paraFora(x1, y1)}, {}, 0.0, tipo};
}

Traco contorno(const secao::Contorno& c, const Quadro& q, bool espelhado) {
    Traco t;
    if (c.circulo) {
        const secao::Segmento& s = c.segmentos.front();
        t.pontos.push_back(q.paraFora(s.centro.x, s.centro.y));
        t.raio = s.raio;
        return t;
    }
    for (const secao::Segmento& s : c.segmentos) {
        t.pontos.push_back(q.paraFora(s.a.x, s.a.y));
        t.bulges.push_back(espelhado ? -s.bulge() : s.bulge());
    }
    return t;
}

Traco retangulo(const secao::Caixa& c, const Quadro& q) {
    return {{q.paraFora(c.x0, c.y0), q.paraFora(c.x1, c.y0), q.paraFora(c.x1, c.y1),
             q.paraFora(c.x0, c.y1)},
            {0.0, 0.0, 0.0, 0.0},
            0.0,
            TipoDeLinha::Propria};
}

std::vector<Traco> longitudinal(const Peca& p, const Quadro& q) {
    std::vector<Traco> tracos;
    const secao::Vista& v = p.secao().vista(p.vista);
    const double L = p.comprimento;
    for (const bool visivel : {true, false}) {
        for (const secao::Nivel& n : v.niveis)
            if (n.visivel == visivel)
                tracos.push_back(linha(q, 0.0, n.w, L, n.w,
                                       visivel ? TipoDeLinha::Propria : TipoDeLinha::Oculta));
        if (!visivel) break;
        for (const double x : {0.0, L})
            for (const auto& [w0, w1] : v.trechos) tracos.push_back(linha(q, x, w0, x, w1));
    }
    if (v.eixo) tracos.push_back(linha(q, 0.0, 0.0, L, 0.0, TipoDeLinha::Eixo));
    return tracos;
}

struct Padrao {
    const ACHAR* nome;
    const ACHAR* desenho;
    std::vector<double> tracos;
};

void carrega(AcDbLinetypeTable& tabela, const Padrao& padrao) {
    if (tabela.has(padrao.nome)) return;
    auto registro = std::make_unique<AcDbLinetypeTableRecord>();
    (void)registro->setName(padrao.nome);  // a constant, valid name
    (void)registro->setComments(padrao.desenho);
    (void)registro->setNumDashes(static_cast<int>(padrao.tracos.size()));
    for (std::size_t i = 0; i < padrao.tracos.size(); ++i)
        (void)registro->setDashLengthAt(static_cast<int>(i), padrao.tracos[i]);
    if (tabela.add(registro.get()) == Acad::eOk) (void)registro.release()->close();
}

}  // namespace

std::vector<Traco> figuraDe(const Peca& peca) {
    const Quadro q = peca.quadroDaFigura();
    if (peca.chapa()) return {retangulo(peca.figura(), q)};
    if (!peca.emSecao()) return longitudinal(peca, q);
    std::vector<Traco> tracos;
    for (const secao::Contorno& c : peca.secao().contornos())
        tracos.push_back(contorno(c, q, peca.espelhada));
    return tracos;
}

const ACHAR* nomeDaLinha(TipoDeLinha linha) {
    switch (linha) {
        case TipoDeLinha::Oculta:
            return L"HIDDEN";
        case TipoDeLinha::Eixo:
            return L"CENTER";
        case TipoDeLinha::Propria:
            break;
    }
    return nullptr;
}

AcDbObjectId idDaLinha(AcDbDatabase* desenho, TipoDeLinha linha) {
    AcDbObjectId id;
    const ACHAR* nome = nomeDaLinha(linha);
    if (desenho == nullptr || nome == nullptr) return id;
    const AcDbObjectPointer<AcDbLinetypeTable> tabela(desenho->linetypeTableId(), AcDb::kForRead);
    if (tabela.object() != nullptr) (void)tabela->getAt(nome, id);  // stays null when it is missing
    return id;
}

void carregaLinhas(AcDbDatabase& desenho) {
    if (!idDaLinha(&desenho, TipoDeLinha::Oculta).isNull() &&
        !idDaLinha(&desenho, TipoDeLinha::Eixo).isNull())
        return;
    const AcDbObjectPointer<AcDbLinetypeTable> tabela(desenho.linetypeTableId(), AcDb::kForWrite);
    if (tabela.object() == nullptr) return;
    carrega(*tabela.object(), {L"HIDDEN", L"Hidden __ __ __ __ __ __ __ __", {6.35, -3.175}});
    carrega(*tabela.object(),
            {L"CENTER", L"Center ____ _ ____ _ ____ _", {31.75, -6.35, 6.35, -6.35}});
}

}  // namespace zp
