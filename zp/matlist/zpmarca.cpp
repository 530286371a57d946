// SPDX-License-Identifier: MIT
// Marks: picture, filing, editing.
#include "zp/matlist/zpmarca.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "acutads.h"
#include "acutmem.h"
#include "dbents.h"
#include "perfis/entities/zpobject.h"

ACRX_DXF_DEFINE_MEMBERS(ZpMarca, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, ZPMARCA,
                        "ZP__MaterialList18|Lista de material")

namespace {

/// Version 1 knows no piece.
constexpr Adesk::Int16 kMarcaVersion = 2;
/// Advance of an average character and distance of the text from the leader, over the text's
/// height.
constexpr double kAdvance = 0.9;
constexpr double kGap = 0.4;

}  // namespace

struct ZpMarca::Picture {
    std::array<AcGePoint3d, 2> leader;
    std::array<AcGePoint3d, 3> arrow;
    bool hasArrow = false;
    AcGePoint3d text;  ///< left end of the baseline
    double textLargura = 0.0;
};

ZpMarca::Picture ZpMarca::picture() const {
    Picture f;
    f.leader = {m_tip, m_textAt};
    f.textLargura = kAdvance * m_altura * static_cast<double>(m_marca.size());
    const double x = m_textAt.x >= m_tip.x ? m_textAt.x + kGap * m_altura
                                           : m_textAt.x - kGap * m_altura - f.textLargura;
    f.text = {x, m_textAt.y - 0.5 * m_altura, m_textAt.z};
    AcGeVector3d u = m_textAt - m_tip;
    const double comprimento = u.length();
    f.hasArrow = comprimento > m_altura;
    if (!f.hasArrow) return f;
    u = u / comprimento;
    const AcGeVector3d side(-u.y, u.x, 0.0);
    const AcGePoint3d base = m_tip + u * m_altura;
    f.arrow = {m_tip, base + side * (m_altura / 6.0), base - side * (m_altura / 6.0)};
    return f;
}

AcDbObjectId ZpMarca::peca() const {
    assertReadEnabled();
    if (m_peca.isNull()) return {};
    const AcRxClass* kind = m_peca.objectClass();
    if (kind == nullptr || !kind->isDerivedFrom(ZpObject::desc())) return {};
    return m_peca;
}

bool ZpMarca::pecaErased() const {
    assertReadEnabled();
    return m_hasPeca && (m_peca.isNull() || m_peca.isErased());
}

void ZpMarca::setMarca(std::wstring marca) {
    assertWriteEnabled();
    m_marca = std::move(marca);
    recordGraphicsModified();
}

void ZpMarca::place(const AcGePoint3d& tip, const AcGePoint3d& textAt, std::wstring marca,
                    double altura) {
    setMarca(std::move(marca));
    m_tip = tip;
    m_textAt = textAt;
    m_altura = altura;
    m_hasPeca = false;
    m_peca = {};
}

void ZpMarca::resize(double altura) {
    assertWriteEnabled();
    m_textAt = m_tip + (m_textAt - m_tip) * (altura / m_altura);
    m_altura = altura;
    recordGraphicsModified();
}

void ZpMarca::moveBy(const AcGeVector3d& tipStep, const AcGeVector3d& textStep) {
    assertWriteEnabled();
    m_tip += tipStep;
    m_textAt += textStep;
    recordGraphicsModified();
}

void ZpMarca::setPeca(const AcDbObjectId& peca) {
    assertWriteEnabled();
    m_peca = AcDbSoftPointerId(peca);
    m_hasPeca = !peca.isNull();
}

Adesk::Boolean ZpMarca::subWorldDraw(AcGiWorldDraw* draw) {
    assertReadEnabled();
    const Picture f = picture();
    AcGiWorldGeometry& g = draw->geometry();
    if (g.polyline(2, f.leader.data())) return Adesk::kTrue;
    if (f.hasArrow) {
        draw->subEntityTraits().setFillType(kAcGiFillAlways);
        if (g.polygon(3, f.arrow.data())) return Adesk::kTrue;
    }
    g.text(f.text, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, m_altura, 1.0, 0.0, m_marca.c_str());
    return Adesk::kTrue;
}

Acad::ErrorStatus ZpMarca::subGetGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    const Picture f = picture();
    for (const AcGePoint3d& p : f.leader) extents.addPoint(p);
    extents.addPoint(f.text);
    extents.addPoint(f.text + AcGeVector3d(f.textLargura, m_altura, 0.0));
    return Acad::eOk;
}

Acad::ErrorStatus ZpMarca::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    m_tip.transformBy(m);
    m_textAt.transformBy(m);
    m_altura *= m.scale();
    xDataTransformBy(m);
    recordGraphicsModified();
    return Acad::eOk;
}

Acad::ErrorStatus ZpMarca::subExplode(AcDbVoidPtrArray& set) const {
    assertReadEnabled();
    const Picture f = picture();
    std::vector<std::unique_ptr<AcDbEntity>> parts;
    parts.push_back(std::make_unique<AcDbLine>(f.leader[0], f.leader[1]));
    if (f.hasArrow)
        parts.push_back(
            std::make_unique<AcDbSolid>(f.arrow[0], f.arrow[1], f.arrow[2], f.arrow[2]));
    parts.push_back(
        std::make_unique<AcDbText>(f.text, m_marca.c_str(), AcDbObjectId::kNull, m_altura));
    for (std::unique_ptr<AcDbEntity>& part : parts) {
        (void)part->setPropertiesFrom(this);  // a new object takes any properties
        set.append(part.release());
    }
    return Acad::eOk;
}

void ZpMarca::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    acutPrintf(L"\n%20ls: %ls", L"marca", m_marca.c_str());
    acutPrintf(L"\n%20ls: X=%.4f  Y=%.4f", L"ponta", m_tip.x, m_tip.y);
    acutPrintf(L"\n%20ls: X=%.4f  Y=%.4f\n", L"texto em", m_textAt.x, m_textAt.y);
}

Acad::ErrorStatus ZpMarca::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker,
                                             const AcGePoint3d&, const AcGePoint3d&,
                                             const AcGeMatrix3d&, AcGePoint3dArray& points,
                                             AcDbIntArray&) const {
    assertReadEnabled();
    if (mode == AcDb::kOsModeEnd) {
        points.append(m_tip);
        points.append(m_textAt);
    }
    if (mode == AcDb::kOsModeMid) points.append(m_tip + (m_textAt - m_tip) * 0.5);
    if (mode == AcDb::kOsModeIns) points.append(m_textAt);
    return Acad::eOk;
}

Acad::ErrorStatus ZpMarca::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                            AcDbIntArray&) const {
    assertReadEnabled();
    points.append(m_tip);
    points.append(m_textAt);
    return Acad::eOk;
}

Acad::ErrorStatus ZpMarca::subMoveGripPointsAt(const AcDbIntArray& indices,
                                               const AcGeVector3d& offset) {
    if (indices.isEmpty()) return Acad::eOk;
    assertWriteEnabled();
    if (indices.contains(0)) m_tip += offset;
    if (indices.contains(1)) m_textAt += offset;
    recordGraphicsModified();
    return Acad::eOk;
}

Acad::ErrorStatus ZpMarca::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kMarcaVersion);
    filer->writePoint3d(m_tip);
    filer->writePoint3d(m_textAt);
    filer->writeString(m_marca.c_str());
    filer->writeDouble(m_altura);
    filer->writeInt16(m_hasPeca ? 1 : 0);
    filer->writeSoftPointerId(m_peca);
    return filer->filerStatus();
}

Acad::ErrorStatus ZpMarca::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk) return es;
    Adesk::Int16 version = 0;
    filer->readInt16(&version);
    if (version < 1 || version > kMarcaVersion) {
        if (filer->filerStatus() == Acad::eOk) filer->setFilerStatus(Acad::eInvalidInput);
        return filer->filerStatus();
    }
    filer->readPoint3d(&m_tip);
    filer->readPoint3d(&m_textAt);
    ACHAR* text = nullptr;
    if (filer->readString(&text) == Acad::eOk && text != nullptr) m_marca = text;
    acutDelString(text);
    filer->readDouble(&m_altura);
    Adesk::Int16 hasPeca = 0;
    m_peca = {};
    if (version > 1) {
        filer->readInt16(&hasPeca);
        filer->readSoftPointerId(&m_peca);
    }
    m_hasPeca = hasPeca != 0;
    return filer->filerStatus();
}

Acad::ErrorStatus ZpMarca::dxfOutFields(AcDbDxfFiler* filer) const {
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeString(AcDb::kDxfSubclass, isA()->name());
    filer->writeInt16(AcDb::kDxfInt16, kMarcaVersion);
    filer->writePoint3d(AcDb::kDxfXCoord, m_tip);
    filer->writePoint3d(AcDb::kDxfXCoord + 1, m_textAt);
    filer->writeString(AcDb::kDxfText, m_marca.c_str());
    filer->writeDouble(AcDb::kDxfReal, m_altura);
    filer->writeInt16(AcDb::kDxfInt16, m_hasPeca ? 1 : 0);
    if (m_hasPeca) filer->writeObjectId(AcDb::kDxfSoftPointerId, m_peca);
    return filer->filerStatus();
}

Acad::ErrorStatus ZpMarca::dxfInFields(AcDbDxfFiler* filer) {
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk) return es;
    if (!filer->atSubclassData(isA()->name()))
        return filer->setError(Acad::eBadDxfSequence, L"ZpMarca: falta o registro da marca.");
    resbuf r{};
    if (filer->readItem(&r) != Acad::eOk || r.restype != AcDb::kDxfInt16)
        return filer->setError(Acad::eInvalidInput, L"ZpMarca: registro danificado.");
    if (r.resval.rint > kMarcaVersion)
        return filer->setError(Acad::eNotImplementedYet,
                               L"ZpMarca: registro da versão %d; este módulo lê até a versão %d.",
                               static_cast<int>(r.resval.rint), static_cast<int>(kMarcaVersion));
    const int version = r.resval.rint;
    const auto point = [&](int code, AcGePoint3d& p) {
        if (filer->readItem(&r) != Acad::eOk || r.restype != code) return false;
        p.set(r.resval.rpoint[0], r.resval.rpoint[1], r.resval.rpoint[2]);
        return true;
    };
    bool good = point(AcDb::kDxfXCoord, m_tip) && point(AcDb::kDxfXCoord + 1, m_textAt);
    good = good && filer->readItem(&r) == Acad::eOk && r.restype == AcDb::kDxfText;
    if (good) {
        m_marca = r.resval.rstring;
        acutDelString(r.resval.rstring);
    }
    good = good && filer->readItem(&r) == Acad::eOk && r.restype == AcDb::kDxfReal &&
           r.resval.rreal > 0.0 && r.resval.rreal <= 1e9;
    if (!good) return filer->setError(Acad::eInvalidInput, L"ZpMarca: registro danificado.");
    m_altura = r.resval.rreal;
    m_hasPeca = false;
    m_peca = {};
    if (version < 2) return filer->filerStatus();
    if (filer->readItem(&r) != Acad::eOk || r.restype != AcDb::kDxfInt16)
        return filer->setError(Acad::eInvalidInput, L"ZpMarca: registro danificado.");
    m_hasPeca = r.resval.rint != 0;
    // A piece that the drawing does not have was erased before it was saved.
    AcDbObjectId id;
    if (m_hasPeca && filer->readItem(&r) == Acad::eOk && r.restype == AcDb::kDxfSoftPointerId &&
        acdbGetObjectId(id, r.resval.rlname) == Acad::eOk)
        m_peca = AcDbSoftPointerId(id);
    return filer->filerStatus();
}
