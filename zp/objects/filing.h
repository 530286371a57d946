// SPDX-License-Identifier: MIT
// A piece's record: one order of fields for both filers.
#pragma once

#include "zp/objects/peca.h"

namespace zp {

/// Written first; a reader refuses what is newer.
inline constexpr Adesk::Int16 kVersaoDaPeca = 1;

class EscritorDwg {
public:
    explicit EscritorDwg(AcDbDwgFiler& filer) : m_filer(filer) {}
    void inteiro(int v) { m_filer.writeInt16(static_cast<Adesk::Int16>(v)); }
    void real(double v) { m_filer.writeDouble(v); }
    void ponto(const AcGePoint3d& p) { m_filer.writePoint3d(p); }
    void id(const AcDbSoftPointerId& i) { m_filer.writeSoftPointerId(i); }

private:
    AcDbDwgFiler& m_filer;
};

class LeitorDwg {
public:
    explicit LeitorDwg(AcDbDwgFiler& filer) : m_filer(filer) {}
    bool inteiro(int& v);
    bool real(double& v) { return m_filer.readDouble(&v) == Acad::eOk; }
    bool ponto(AcGePoint3d& p) { return m_filer.readPoint3d(&p) == Acad::eOk; }
    bool id(AcDbSoftPointerId& i) { return m_filer.readSoftPointerId(&i) == Acad::eOk; }

private:
    AcDbDwgFiler& m_filer;
};

/// 70 whole numbers, 40 reals, 10 points, 330 references.
class EscritorDxf {
public:
    explicit EscritorDxf(AcDbDxfFiler& filer) : m_filer(filer) {}
    void inteiro(int v) { m_filer.writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(v)); }
    void real(double v) { m_filer.writeDouble(AcDb::kDxfReal, v); }
    void ponto(const AcGePoint3d& p) { m_filer.writePoint3d(AcDb::kDxfXCoord, p); }
    void id(const AcDbSoftPointerId& i) { m_filer.writeObjectId(AcDb::kDxfSoftPointerId, i); }

private:
    AcDbDxfFiler& m_filer;
};

class LeitorDxf {
public:
    explicit LeitorDxf(AcDbDxfFiler& filer) : m_filer(filer) {}
    bool inteiro(int& v);
    bool real(double& v);
    bool ponto(AcGePoint3d& p);
    bool id(AcDbSoftPointerId& i);

private:
    bool item(int codigo, resbuf& valor);
    AcDbDxfFiler& m_filer;
};

enum class Leitura { Boa, Nova, Ruim };

/// What was read of a record; the piece itself is untouched until it is complete.
template <class Leitor>
Leitura lePeca(Leitor& leitor, Peca& peca, int& versao);

template <class Escritor>
void gravaPeca(Escritor& escritor, const Peca& peca);

}  // namespace zp
