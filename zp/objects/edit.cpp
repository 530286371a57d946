// SPDX-License-Identifier: MIT
// Changes of pieces in the drawing.
#include "zp/objects/edit.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zp/objects/links.h"
#include "zp/objects/picture_map.h"

namespace zp::edicao {
namespace {

/// How near two points are to be one, mm.
constexpr double kMesmoPonto = 1e-6;
/// How near two values are to be one, over their size.
constexpr double kMesmoValor = 1e-9;

std::vector<Ouvinte*>& ouvintes() {
    static std::vector<Ouvinte*> todos;
    return todos;
}

void avisa(AcDbObjectId peca, const Faces& antes) {
    // A listener may take itself away.
    const std::vector<Ouvinte*> todos = ouvintes();
    for (Ouvinte* ouvinte : todos) ouvinte->editada(peca, antes);
}

std::vector<AcDbObjectId> ligadasDe(const ZpObject& peca, Ligacao::Papel papel) {
    std::vector<AcDbObjectId> ids;
    for (const Ligacao& l : Acesso::de(peca).ligadas())
        if (l.papel == papel && !l.id.isNull() && !l.id.isErased()) ids.push_back(l.id);
    return ids;
}

AcGeVector3d inteiro(const Peca& p, const PontoAprendido& a) {
    AcGeVector3d v = a.desvio;
    if (a.noFim) v.x += p.comprimento;
    return v;
}

bool mesmo(const AcGeVector3d& a, const AcGePoint3d& b) {
    return (a - b.asVector()).length() <= kMesmoPonto;
}

/// The entry whose measured points are those of the link.
const CotaMudada* previstaPara(const Peca& p, const Ligacao& l,
                               std::span<const CotaMudada> previstas) {
    const auto achada = std::ranges::find_if(previstas, [&](const CotaMudada& c) {
        return mesmo(inteiro(p, l.pontos[0]), c.antes.de) &&
               mesmo(inteiro(p, l.pontos[1]), c.antes.ate);
    });
    return achada != previstas.end() ? &*achada : nullptr;
}

PontoAprendido aprendidoEm(const Peca& p, const AcGePoint3d& ponto) {
    PontoAprendido a{ponto.asVector(), false};
    a.noFim = !p.emSecao() && p.comprimento > 0.0 &&
              std::abs(a.desvio.x - p.comprimento) <= kMesmoPonto * p.comprimento;
    if (a.noFim) a.desvio.x -= p.comprimento;
    return a;
}

/// What a link of `antes` says once the piece is `depois`.
void leva(const Peca& antes, const Peca& depois, const Mapa& mapa,
          std::span<const CotaMudada> previstas, Ligacao& l) {
    if (l.papel == Ligacao::Papel::Dona) return;
    const CotaMudada* prevista = l.papel == Ligacao::Papel::Cota && l.quantos >= 3
                                     ? previstaPara(antes, l, previstas)
                                     : nullptr;
    const bool linhaDaRegra =
        prevista != nullptr && mesmo(inteiro(antes, l.pontos[2]), prevista->antes.linha);
    for (std::size_t i = 0; i < l.quantos; ++i) l.pontos[i] = mapa.leva(l.pontos[i]);
    if (prevista == nullptr) return;
    l.pontos[0] = aprendidoEm(depois, prevista->depois.de);
    l.pontos[1] = aprendidoEm(depois, prevista->depois.ate);
    if (linhaDaRegra) l.pontos[2] = aprendidoEm(depois, prevista->depois.linha);
}

}  // namespace

void copiaValores(const Peca& de, Peca& para) {
    para.forma = de.forma;
    para.vista = de.vista;
    para.quantos = de.quantos;
    para.tipoBarra = de.tipoBarra;
    para.subtipo = de.subtipo;
    para.comprimento = de.comprimento;
    para.dados = de.dados;
    para.atuais = de.atuais;
    para.secaoGuardada.reset();
    para.barraVelha = true;
}

secao::Classe classeDe(const ZpObject& peca) { return Acesso::de(peca).classe; }

secao::Dados valoresDe(const ZpObject& peca) { return Acesso::de(peca).papeis(); }

bool deDoisPontos(const ZpObject& peca) { return Acesso::de(peca).forma == 2; }

std::vector<AcDbObjectId> cotasDe(const ZpObject& peca) {
    return ligadasDe(peca, Ligacao::Papel::Cota);
}

std::vector<AcDbObjectId> chapasDe(const ZpObject& peca) {
    std::vector<AcDbObjectId> ids = ligadasDe(peca, Ligacao::Papel::Segue);
    std::erase_if(ids, [](AcDbObjectId id) {
        const AcRxClass* classe = id.objectClass();
        return classe == nullptr || !classe->isDerivedFrom(ZpChapa::desc());
    });
    return ids;
}

AcDbObjectId donaDe(const ZpObject& peca) {
    const std::vector<AcDbObjectId> donas = ligadasDe(peca, Ligacao::Papel::Dona);
    return donas.empty() ? AcDbObjectId() : donas.front();
}

void mantem(const ZpObject& peca, const ZpObject& regra, ZpObject& nova) {
    using enum secao::Papel;
    const secao::Dados tem = valoresDe(peca);
    const secao::Dados teria = valoresDe(regra);
    Peca& p = Acesso::de(nova);
    const secao::Papeis* const papeis = p.ordem();
    for (std::size_t i = 0; papeis != nullptr && i < p.quantos; ++i) {
        const secao::Papel papel = (*papeis)[i];
        const bool deFora =
            papel == L || papel == Giro || papel == Tipo || papel == M || papel == A;
        const double folga = kMesmoValor * std::abs(teria[papel]);
        if (!deFora && std::abs(tem[papel] - teria[papel]) > folga)
            p.dados[i] = p.atuais[i] = tem[papel];
    }
    p.secaoGuardada.reset();
}

Faces facesDe(const ZpObject& peca) {
    Faces faces;
    peca.GetLimitPointsOfFaces(faces.f[0], faces.f[1], faces.f[2], faces.f[3]);
    return faces;
}

Edicao::Edicao(AcDbObjectId peca)
    : m_id(peca), m_status(acdbOpenObject(m_peca, peca, AcDb::kForWrite)) {
    if (m_status != Acad::eOk) {
        m_peca = nullptr;
        return;
    }
    m_faces = facesDe(*m_peca);
    for (const AcDbObjectId& id : chapasDe(*m_peca)) {
        const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForRead);
        if (chapa.object() == nullptr) continue;
        m_chapas.push_back(id);
        m_facesDasChapas.push_back(facesDe(*chapa.object()));
    }
    m_peca->assertWriteEnabled();
    Peca& p = Acesso::de(*m_peca);
    m_angulo = std::exchange(p.angulo, 0.0);
    m_espelhada = std::exchange(p.espelhada, false);
}

Edicao::~Edicao() { fecha(); }

void Edicao::fecha() {
    if (m_peca == nullptr) return;
    Peca& p = Acesso::de(*m_peca);
    p.angulo = m_angulo;
    p.espelhada = m_espelhada;
    m_peca->recordGraphicsModified();
    (void)m_peca->close();
    m_peca = nullptr;
}

Acad::ErrorStatus Edicao::refaz(const ZpObject& modelo, std::span<const CotaMudada> cotas) {
    Peca& p = Acesso::de(*m_peca);
    const Peca& nova = Acesso::de(modelo);
    if (nova.classe != p.classe) return Acad::eNotThatKindOfClass;
    if (p.ligacoes) {
        const Mapa mapa(p, nova);
        for (Ligacao& l : *p.ligacoes) leva(p, nova, mapa, cotas, l);
    }
    const bool outraForma = nova.forma != p.forma;
    copiaValores(nova, p);
    if (outraForma) p.pontos = {p.inicio, p.fim()};
    return Acad::eOk;
}

bool Edicao::refazChapa(AcDbObjectId id, const ZpChapa& modelo) {
    const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForWrite);
    if (chapa.object() == nullptr) return false;
    chapa->assertWriteEnabled();
    Peca& p = Acesso::de(*chapa.object());
    const Peca& nova = Acesso::de(modelo);
    const std::uint8_t papel = p.tipoBarra;
    copiaValores(nova, p);
    p.tipoBarra = papel;
    p.pontos = nova.pontos;
    p.inicio = nova.inicio;
    p.angulo = nova.angulo;
    p.espelhada = nova.espelhada;
    chapa->recordGraphicsModified();
    aprende(*m_peca, *chapa.object());
    return true;
}

void Edicao::apaga(AcDbObjectId ligada) {
    AcDbEntity* entidade = nullptr;
    if (acdbOpenAcDbEntity(entidade, ligada, AcDb::kForWrite) != Acad::eOk) return;
    (void)entidade->erase();  // open for write and alive
    (void)entidade->close();
    Acesso::de(*m_peca).desliga(ligada);
}

void Edicao::termina() {
    if (m_peca == nullptr) return;
    fecha();
    {
        const AcDbObjectPointer<ZpObject> peca(m_id, AcDb::kForRead);
        // What cannot be opened now follows at the end of the command.
        if (peca.object() != nullptr) coloca(*peca.object(), [](AcDbObjectId) {});
    }
    avisa(m_id, m_faces);
    for (std::size_t i = 0; i < m_chapas.size(); ++i)
        if (!m_chapas[i].isErased()) avisa(m_chapas[i], m_facesDasChapas[i]);
}

std::wstring recusaDe(const ZpObject& peca, const ZpObject& modelo) {
    for (Ouvinte* ouvinte : ouvintes())
        if (std::wstring motivo = ouvinte->recusa(peca, modelo); !motivo.empty()) return motivo;
    return {};
}

void ouve(Ouvinte* ouvinte) { ouvintes().push_back(ouvinte); }

void deixa(Ouvinte* ouvinte) { std::erase(ouvintes(), ouvinte); }

}  // namespace zp::edicao
