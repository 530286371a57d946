// SPDX-License-Identifier: MIT
// A piece's record. Order: version, class, form, points, view, values, bar type, subtype, mirror
// flag, length, angle, start, changed values, links.
#include "zp/objects/filing.h"

#include <algorithm>
#include <cmath>

#include "zp/objects/editable_medidas.h"

namespace zp {
namespace {

constexpr int kMaxLigacoes = 10000;

// Flags of a link in one number: kind, points in use, mirrored, which points belong to the end.
int marcasDe(const Ligacao& l) {
    int marcas = static_cast<int>(l.papel) | l.quantos << 2 | (l.espelhada ? 1 << 5 : 0);
    for (std::size_t i = 0; i < l.pontos.size(); ++i)
        if (l.pontos[i].noFim) marcas |= 1 << (6 + i);
    return marcas;
}

bool aplica(int marcas, Ligacao& l) {
    if (marcas < 0 || (marcas & 3) > 2 || (marcas >> 2 & 7) > static_cast<int>(l.pontos.size()))
        return false;
    l.papel = static_cast<Ligacao::Papel>(marcas & 3);
    l.quantos = static_cast<std::uint8_t>(marcas >> 2 & 7);
    l.espelhada = (marcas >> 5 & 1) != 0;
    for (std::size_t i = 0; i < l.pontos.size(); ++i)
        l.pontos.marca(i, (marcas >> (6 + i) & 1) != 0);
    return true;
}

template <class Leitor>
bool leLigacoes(Leitor& leitor, Peca& p) {
    int n = 0;
    if (!leitor.inteiro(n) || n < 0 || n > kMaxLigacoes) return false;
    for (; n > 0; --n) {
        Ligacao l;
        int marcas = 0;
        if (!leitor.id(l.id) || !leitor.inteiro(marcas) || !aplica(marcas, l)) return false;
        for (std::size_t i = 0; i < l.quantos; ++i) {
            AcGePoint3d desvio;
            if (!leitor.ponto(desvio)) return false;
            l.pontos[i] = {desvio.asVector(), std::as_const(l.pontos)[i].noFim};
        }
        if (l.papel == Ligacao::Papel::Segue && !leitor.real(l.angulo)) return false;
        if (!l.id.isNull()) p.acrescenta(l);
    }
    return true;
}

template <class Leitor>
bool leMudados(Leitor& leitor, Peca& p) {
    p.atuais = p.dados;
    int n = 0;
    if (!leitor.inteiro(n) || n < 0 || n > p.quantos) return false;
    for (; n > 0; --n) {
        int lugar = 0;
        double valor = 0.0;
        if (!leitor.inteiro(lugar) || !leitor.real(valor) || lugar < 0 || lugar >= p.quantos)
            return false;
        p.atuais[static_cast<std::size_t>(lugar)] = valor;
    }
    return true;
}

/// mm, far beyond any piece; what is larger overflows in areas and masses.
constexpr double kMaiorMedida = 1e9;

bool valorPossivel(double v, secao::Papel papel) {
    using enum secao::Papel;
    if (!(std::abs(v) <= kMaiorMedida)) return false;
    // A command asks less of flanges of its own than a property sheet.
    if (papel == L || papel == Tc || papel == Tb) return v >= 0.0;
    const auto medidas = fichas::medidas();
    const auto medida = std::ranges::find(medidas, papel, &fichas::Medida::papel);
    return medida == medidas.end() || fichas::foraDoLimite(medida->limite, v) == nullptr;
}

/// False for values that no command and no property sheet give a piece.
bool medidasPossiveis(const Peca& p) {
    const secao::Papeis& papeis = *p.ordem();
    for (std::size_t i = 0; i < p.quantos; ++i)
        if (!valorPossivel(p.dados[i], papeis[i]) || !valorPossivel(p.atuais[i], papeis[i]))
            return false;
    return p.comprimento <= kMaiorMedida;
}

bool cabe(int v, int maximo) { return v >= 0 && v <= maximo; }

}  // namespace

bool LeitorDwg::inteiro(int& v) {
    Adesk::Int16 curto = 0;
    if (m_filer.readInt16(&curto) != Acad::eOk) return false;
    v = curto;
    return true;
}

bool LeitorDxf::item(int codigo, resbuf& valor) {
    valor = {};
    if (m_filer.readItem(&valor) != Acad::eOk) return false;
    if (valor.restype == codigo) return true;
    m_filer.pushBackItem();
    return false;
}

bool LeitorDxf::inteiro(int& v) {
    resbuf r;
    if (!item(AcDb::kDxfInt16, r)) return false;
    v = r.resval.rint;
    return true;
}

bool LeitorDxf::real(double& v) {
    resbuf r;
    if (!item(AcDb::kDxfReal, r)) return false;
    v = r.resval.rreal;
    return true;
}

bool LeitorDxf::ponto(AcGePoint3d& p) {
    resbuf r;
    if (!item(AcDb::kDxfXCoord, r)) return false;
    p.set(r.resval.rpoint[0], r.resval.rpoint[1], r.resval.rpoint[2]);
    return true;
}

bool LeitorDxf::id(AcDbSoftPointerId& i) {
    resbuf r;
    if (!item(AcDb::kDxfSoftPointerId, r)) return false;
    AcDbObjectId lido;
    // A reference to an object that the drawing does not have is a link less, not a damaged piece.
    if (acdbGetObjectId(lido, r.resval.rlname) == Acad::eOk) i = AcDbSoftPointerId(lido);
    return true;
}

template <class Escritor>
void gravaPeca(Escritor& e, const Peca& p) {
    e.inteiro(kVersaoDaPeca);
    e.inteiro(static_cast<int>(p.classe));
    e.inteiro(p.forma);
    for (std::size_t i = 0; i < p.forma; ++i) e.ponto(p.pontos[i]);
    e.inteiro(p.vista);
    e.inteiro(p.quantos);
    for (std::size_t i = 0; i < p.quantos; ++i) e.real(p.dados[i]);
    e.inteiro(p.tipoBarra);
    e.inteiro(p.subtipo);
    e.inteiro(p.espelhada ? 1 : 0);
    e.real(p.comprimento);
    e.real(p.angulo);
    e.ponto(p.inicio);
    int mudados = 0;
    for (std::size_t i = 0; i < p.quantos; ++i) mudados += p.dados[i] != p.atuais[i] ? 1 : 0;
    e.inteiro(mudados);
    for (std::size_t i = 0; i < p.quantos; ++i) {
        if (p.dados[i] == p.atuais[i]) continue;
        e.inteiro(static_cast<int>(i));
        e.real(p.atuais[i]);
    }
    e.inteiro(static_cast<int>(p.ligadas().size()));
    for (const Ligacao& l : p.ligadas()) {
        e.id(l.id);
        e.inteiro(marcasDe(l));
        for (std::size_t i = 0; i < l.quantos; ++i) {
            const AcGeVector3d d = l.pontos[i].desvio;
            e.ponto({d.x, d.y, d.z});
        }
        if (l.papel == Ligacao::Papel::Segue) e.real(l.angulo);
    }
}

template <class Leitor>
Leitura lePeca(Leitor& leitor, Peca& peca, int& versao) {
    Peca p;
    int classe = 0;
    int forma = 0;
    int vista = 0;
    int quantos = 0;
    if (!leitor.inteiro(versao) || versao < 1) return Leitura::Ruim;
    if (versao > kVersaoDaPeca) return Leitura::Nova;
    if (!leitor.inteiro(classe) || classe != static_cast<int>(peca.classe)) return Leitura::Ruim;
    p.classe = peca.classe;
    if (!leitor.inteiro(forma) || forma < 1 || forma > 2) return Leitura::Ruim;
    p.forma = static_cast<std::uint8_t>(forma);
    for (std::size_t i = 0; i < p.forma; ++i)
        if (!leitor.ponto(p.pontos[i])) return Leitura::Ruim;
    if (!leitor.inteiro(vista) || !cabe(vista, 4) || !leitor.inteiro(quantos)) return Leitura::Ruim;
    if (!cabe(quantos, secao::kMaxValores) || secao::papeisDe(p.classe, forma, quantos) == nullptr)
        return Leitura::Ruim;
    p.vista = static_cast<std::uint8_t>(vista);
    p.quantos = static_cast<std::uint8_t>(quantos);
    for (std::size_t i = 0; i < p.quantos; ++i)
        if (!leitor.real(p.dados[i])) return Leitura::Ruim;
    int tipo = 0;
    int subtipo = 0;
    int espelhada = 0;
    if (!leitor.inteiro(tipo) || !leitor.inteiro(subtipo) || !leitor.inteiro(espelhada))
        return Leitura::Ruim;
    if (!cabe(tipo, 255) || !cabe(subtipo, 255)) return Leitura::Ruim;
    p.tipoBarra = static_cast<std::uint8_t>(tipo);
    p.subtipo = static_cast<std::uint8_t>(subtipo);
    p.espelhada = espelhada != 0;
    if (!leitor.real(p.comprimento) || !leitor.real(p.angulo) || !leitor.ponto(p.inicio))
        return Leitura::Ruim;
    if (!std::isfinite(p.comprimento) || p.comprimento < 0.0 || !std::isfinite(p.angulo))
        return Leitura::Ruim;
    if (!leMudados(leitor, p) || !leLigacoes(leitor, p)) return Leitura::Ruim;
    peca = std::move(p);
    return Leitura::Boa;
}

template void gravaPeca(EscritorDwg&, const Peca&);
template void gravaPeca(EscritorDxf&, const Peca&);
template Leitura lePeca(LeitorDwg&, Peca&, int&);
template Leitura lePeca(LeitorDxf&, Peca&, int&);

}  // namespace zp

Acad::ErrorStatus ZpObject::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    zp::EscritorDwg escritor(*filer);
    zp::gravaPeca(escritor, *m_peca);
    return filer->filerStatus();
}

Acad::ErrorStatus ZpObject::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk) return es;
    zp::LeitorDwg leitor(*filer);
    int versao = 0;
    if (zp::lePeca(leitor, *m_peca, versao) != zp::Leitura::Boa &&
        filer->filerStatus() == Acad::eOk)
        filer->setFilerStatus(Acad::eInvalidInput);
    return filer->filerStatus();
}

Acad::ErrorStatus ZpObject::dxfOutFields(AcDbDxfFiler* filer) const {
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeString(AcDb::kDxfSubclass, isA()->name());
    zp::EscritorDxf escritor(*filer);
    zp::gravaPeca(escritor, *m_peca);
    return filer->filerStatus();
}

Acad::ErrorStatus ZpObject::dxfInFields(AcDbDxfFiler* filer) {
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk) return es;
    const ACHAR* nome = isA()->name();
    if (!filer->atSubclassData(nome))
        return filer->setError(Acad::eBadDxfSequence, L"%ls: falta o registro da peça.", nome);
    zp::LeitorDxf leitor(*filer);
    int versao = 0;
    zp::Peca lida;
    lida.classe = m_peca->classe;
    switch (zp::lePeca(leitor, lida, versao)) {
        case zp::Leitura::Boa:
            if (!zp::medidasPossiveis(lida)) break;
            *m_peca = std::move(lida);
            return filer->filerStatus();
        case zp::Leitura::Nova:
            return filer->setError(Acad::eNotImplementedYet,
                                   L"%ls: registro da versão %d; este módulo lê até a versão %d.",
                                   nome, versao, static_cast<int>(zp::kVersaoDaPeca));
        case zp::Leitura::Ruim:
            break;
    }
    return filer->setError(Acad::eInvalidInput, L"%ls: registro danificado.", nome);
}
