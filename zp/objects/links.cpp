// SPDX-License-Identifier: MIT
// Links: learning and placing.
#include "zp/objects/links.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "acutads.h"
#include "dbdim.h"
#include "zp/buffer_chain.h"
#include "zp/objects/barra_data.h"

namespace zp {
namespace {

/// Chains of followers longer than this are a ring.
constexpr int kFundoMaximo = 8;

bool noFim(const Peca& p, double x) {
    return !p.emSecao() && !p.chapa() && p.comprimento > 0.0 &&
           std::abs(x - p.comprimento) <= 1e-6 * p.comprimento;
}

PontoAprendido aprendido(const Peca& p, const AcGePoint3d& ponto, bool ateOFim) {
    PontoAprendido a;
    a.desvio = p.quadro().paraDentro(ponto);
    a.noFim = ateOFim || noFim(p, a.desvio.x);
    if (a.noFim) a.desvio.x -= p.comprimento;
    return a;
}

AcGePoint3d lugar(const Peca& p, const PontoAprendido& a) {
    return p.quadro().paraFora(a.desvio.x + (a.noFim ? p.comprimento : 0.0), a.desvio.y,
                               a.desvio.z);
}

/// Largest x of a piece's picture in the frame of another one.
double bordaDireita(const Peca& p, const ZpObject& outra) {
    AcGePoint3d f[4];
    outra.GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
    double maior = -1e300;
    for (const AcGePoint3d& ponto : f) maior = std::max(maior, p.quadro().paraDentro(ponto).x);
    return maior;
}

void aprendeCota(const Peca& p, const AcDbAlignedDimension& cota, Ligacao& l) {
    l.pontos[0] = aprendido(p, cota.xLine1Point(), false);
    l.pontos[1] = aprendido(p, cota.xLine2Point(), false);
    l.pontos[2] = aprendido(p, cota.dimLinePoint(), false);
    l.quantos = 3;
    if (cota.isUsingDefaultTextPosition()) return;
    l.pontos[3] = aprendido(p, cota.textPosition(), false);
    l.quantos = 4;
}

void aprendePeca(const Peca& p, const ZpObject& objeto, Ligacao& l) {
    const Peca& outra = Acesso::de(objeto);
    l.pontos[0] = aprendido(p, outra.inicio, noFim(p, bordaDireita(p, objeto)));
    l.quantos = 1;
    const double relativo = outra.angulo - p.angulo;
    l.angulo = anguloDe(direcao(p.espelhada ? -relativo : relativo));
    l.espelhada = outra.espelhada != p.espelhada;
}

void aprendeEm(const Peca& p, const AcDbEntity& entidade, Ligacao& l) {
    if (const auto* objeto = ZpObject::cast(&entidade))
        aprendePeca(p, *objeto, l);
    else if (const auto* cota = AcDbAlignedDimension::cast(&entidade))
        aprendeCota(p, *cota, l);
}

bool perto(const AcGePoint3d& a, const AcGePoint3d& b) {
    const double tamanho = std::max({1.0, std::abs(a.x), std::abs(a.y), std::abs(a.z)});
    return a.distanceTo(b) <= 1e-10 * tamanho;
}

enum class Colocada { Ja, Mudou, Presa };

/// Opens for write only what really moves, so that nothing unchanged enters the undo step.
Colocada colocaCota(const Peca& p, const Ligacao& l, AcDbAlignedDimension& cota) {
    const AcGePoint3d alvo[4] = {lugar(p, l.pontos[0]), lugar(p, l.pontos[1]),
                                 lugar(p, l.pontos[2]), lugar(p, l.pontos[3])};
    const bool comTexto = l.quantos == 4 && !cota.isUsingDefaultTextPosition();
    if (perto(alvo[0], cota.xLine1Point()) && perto(alvo[1], cota.xLine2Point()) &&
        perto(alvo[2], cota.dimLinePoint()) && (!comTexto || perto(alvo[3], cota.textPosition())))
        return Colocada::Ja;
    if (cota.upgradeOpen() != Acad::eOk) return Colocada::Presa;
    (void)cota.setXLine1Point(alvo[0]);  // open for write: cannot fail
    (void)cota.setXLine2Point(alvo[1]);
    (void)cota.setDimLinePoint(alvo[2]);
    if (comTexto) (void)cota.setTextPosition(alvo[3]);
    return Colocada::Mudou;
}

Colocada colocaPeca(const Peca& p, const Ligacao& l, ZpObject& objeto) {
    Peca& outra = Acesso::de(objeto);
    const AcGePoint3d inicio = lugar(p, l.pontos[0]);
    const double angulo = anguloDe(direcao(p.angulo + (p.espelhada ? -l.angulo : l.angulo)));
    const bool espelhada = p.espelhada != l.espelhada;
    const AcGeVector3d desvia = direcao(angulo) - direcao(outra.angulo);
    if (perto(inicio, outra.inicio) && desvia.length() <= 1e-12 && espelhada == outra.espelhada)
        return Colocada::Ja;
    if (objeto.upgradeOpen() != Acad::eOk) return Colocada::Presa;
    objeto.assertWriteEnabled();
    outra.inicio = inicio;
    outra.angulo = angulo;
    outra.espelhada = espelhada;
    objeto.recordGraphicsModified();
    return Colocada::Mudou;
}

Colocada colocaEntidade(const Peca& p, const Ligacao& l, AcDbEntity& entidade) {
    if (auto* objeto = ZpObject::cast(&entidade)) return colocaPeca(p, l, *objeto);
    auto* cota = AcDbAlignedDimension::cast(&entidade);
    return cota != nullptr ? colocaCota(p, l, *cota) : Colocada::Ja;
}

AcDbObjectId idDoTexto(AcDbDatabase* desenho, const ACHAR* texto) {
    AcDbObjectId id;
    if (desenho != nullptr && texto != nullptr)
        (void)desenho->getAcDbObjectId(
            id, false, AcDbHandle(std::wcstoull(texto, nullptr, 16)));  // null: unknown
    return id;
}

void gravaDonas(AcDbEntity& entidade, const std::vector<AcDbObjectId>& donas) {
    if (entidade.database() == nullptr || !registraAplicacao(*entidade.database(), kAplicacaoLiga))
        return;
    const Corrente lista(acutBuildList(AcDb::kDxfRegAppName, kAplicacaoLiga, RTNONE));
    resbuf* ultimo = lista.get();
    for (const AcDbObjectId& id : donas) {
        ACHAR texto[17];
        id.handle().getIntoAsciiBuffer(texto);
        ultimo->rbnext = acutBuildList(AcDb::kDxfXdHandle, texto, RTNONE);
        ultimo = ultimo->rbnext;
    }
    (void)entidade.setXData(lista.get());  // registered name, few handles
}

}  // namespace

std::vector<AcDbObjectId> donasDe(const AcDbEntity& entidade) {
    std::vector<AcDbObjectId> donas;
    if (const auto* objeto = ZpObject::cast(&entidade)) {
        for (const Ligacao& l : Acesso::de(*objeto).ligadas())
            if (l.papel == Ligacao::Papel::Dona) donas.push_back(l.id);
        return donas;
    }
    const Corrente lista(entidade.xData(kAplicacaoLiga));
    for (const resbuf* r = lista.get(); r != nullptr; r = r->rbnext) {
        if (r->restype != AcDb::kDxfXdHandle) continue;
        const AcDbObjectId id = idDoTexto(entidade.database(), r->resval.rstring);
        if (!id.isNull()) donas.push_back(id);
    }
    return donas;
}

void esqueceDona(AcDbEntity& entidade, AcDbObjectId dona) {
    if (auto* objeto = ZpObject::cast(&entidade)) {
        if (Acesso::de(*objeto).ligacao(dona) == nullptr) return;
        objeto->assertWriteEnabled();
        Acesso::de(*objeto).desliga(dona);
        return;
    }
    std::vector<AcDbObjectId> donas = donasDe(entidade);
    if (std::erase(donas, dona) > 0) gravaDonas(entidade, donas);
}

void lembraDona(AcDbEntity& entidade, AcDbObjectId dona) {
    std::vector<AcDbObjectId> donas = donasDe(entidade);
    if (std::find(donas.begin(), donas.end(), dona) != donas.end()) return;
    if (auto* objeto = ZpObject::cast(&entidade)) {
        objeto->assertWriteEnabled();
        Ligacao l;
        l.id = AcDbSoftPointerId(dona);
        l.papel = Ligacao::Papel::Dona;
        Acesso::de(*objeto).acrescenta(l);
        return;
    }
    donas.push_back(dona);
    gravaDonas(entidade, donas);
}

Acad::ErrorStatus liga(ZpObject& peca, const AcDbObjectId& outra, Ligacao::Papel papel) {
    if (outra.isNull()) return Acad::eNullObjectId;
    if (peca.database() == nullptr) return Acad::eNoDatabase;
    if (outra == peca.objectId()) return Acad::eInvalidInput;
    Peca& p = Acesso::de(peca);
    if (p.ligacao(outra) != nullptr) return Acad::eOk;
    AcDbEntity* aberta = nullptr;
    const Acad::ErrorStatus es = acdbOpenAcDbEntity(aberta, outra, AcDb::kForWrite);
    if (es != Acad::eOk) return es;
    if (papel == Ligacao::Papel::Segue && !aberta->isKindOf(ZpObject::desc())) {
        (void)aberta->close();
        return Acad::eNotThatKindOfClass;
    }
    Ligacao l;
    l.id = AcDbSoftPointerId(outra);
    l.papel = aberta->isKindOf(ZpObject::desc()) ? Ligacao::Papel::Segue : Ligacao::Papel::Cota;
    aprendeEm(p, *aberta, l);
    lembraDona(*aberta, peca.objectId());
    (void)aberta->close();
    peca.assertWriteEnabled();
    p.acrescenta(l);
    return Acad::eOk;
}

void aprende(ZpObject& peca, const AcDbEntity& entidade) {
    Peca& p = Acesso::de(peca);
    if (p.ligacao(entidade.objectId()) == nullptr) return;
    peca.assertWriteEnabled();
    aprendeEm(p, entidade, *p.ligacao(entidade.objectId()));
}

void coloca(const ZpObject& peca, const std::function<void(AcDbObjectId)>& presa, int fundo) {
    if (fundo > kFundoMaximo) return;
    const Peca& p = Acesso::de(peca);
    for (const Ligacao& l : p.ligadas()) {
        if (l.papel == Ligacao::Papel::Dona || l.quantos == 0) continue;
        AcDbEntity* outra = nullptr;
        const Acad::ErrorStatus es = acdbOpenAcDbEntity(outra, l.id, AcDb::kForRead);
        if (es != Acad::eOk) {
            if (es == Acad::eWasOpenForWrite || es == Acad::eAtMaxReaders) presa(peca.objectId());
            continue;
        }
        // A copy that another program made names what is tied to its original.
        const std::vector<AcDbObjectId> donas = donasDe(*outra);
        const bool sua = std::find(donas.begin(), donas.end(), peca.objectId()) != donas.end();
        const Colocada como = sua ? colocaEntidade(p, l, *outra) : Colocada::Ja;
        if (como == Colocada::Presa) presa(peca.objectId());
        const auto* objeto = ZpObject::cast(outra);
        if (objeto != nullptr && como == Colocada::Mudou) coloca(*objeto, presa, fundo + 1);
        (void)outra->close();
    }
}

int chapasForaDaBarra(const ZpObject& peca) {
    const Peca& p = Acesso::de(peca);
    if (p.emSecao()) return 0;
    int fora = 0;
    for (const Ligacao& l : p.ligadas()) {
        if (l.papel != Ligacao::Papel::Segue) continue;
        const AcDbObjectPointer<ZpObject> outra(l.id, AcDb::kForRead);
        if (outra.object() == nullptr) continue;
        if (bordaDireita(p, *outra.object()) > p.comprimento * (1.0 + 1e-6)) ++fora;
    }
    return fora;
}

}  // namespace zp
