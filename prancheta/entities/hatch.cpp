// SPDX-License-Identifier: MIT
// Hatch: values, filing, changes of place.
#include "dbhatch.h"

#include <algorithm>
#include <cmath>

#include "prancheta/database/object_access.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_motion.h"
#include "prancheta/entities/hatch_area.h"
#include "prancheta/entities/tag_list.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbHatch, AcDbEntity, 0, 0, 0, HATCH, "Prancheta")

namespace {

template <class T>
void writeList(AcDbDwgFiler* filer, const std::vector<T>& list) {
    static_assert(std::is_trivially_copyable_v<T>);
    filer->writeUInt32(static_cast<Adesk::UInt32>(list.size()));
    if (!list.empty())
        filer->writeBytes(list.data(), static_cast<Adesk::UInt32>(list.size() * sizeof(T)));
}

template <class T>
void readList(AcDbDwgFiler* filer, std::vector<T>& list) {
    Adesk::UInt32 count = 0;
    if (filer->readUInt32(&count) != Acad::eOk) return;
    list.resize(count);
    if (count > 0) filer->readBytes(list.data(), static_cast<Adesk::UInt32>(count * sizeof(T)));
}

void writeEdge(AcDbDwgFiler* filer, const HatchEdge& edge) {
    filer->writeInt16(edge.kind);
    for (const double v :
         {edge.a.x, edge.a.y, edge.b.x, edge.b.y, edge.radius, edge.start, edge.end})
        filer->writeDouble(v);
    filer->writeInt16(edge.degree);
    for (const bool v : {edge.clockwise, edge.rational, edge.periodic, edge.fitTold})
        filer->writeBool(v);
    writeList(filer, edge.knots);
    writeList(filer, edge.control);
    writeList(filer, edge.weights);
    writeList(filer, edge.fit);
    writeList(filer, edge.tangents);
}

void readEdge(AcDbDwgFiler* filer, HatchEdge& edge) {
    Adesk::Int16 kind = 0;
    filer->readInt16(&kind);
    edge.kind = static_cast<HatchEdge::Kind>(kind);
    for (double* v :
         {&edge.a.x, &edge.a.y, &edge.b.x, &edge.b.y, &edge.radius, &edge.start, &edge.end})
        filer->readDouble(v);
    filer->readInt16(&edge.degree);
    for (bool* v : {&edge.clockwise, &edge.rational, &edge.periodic, &edge.fitTold})
        filer->readBool(v);
    readList(filer, edge.knots);
    readList(filer, edge.control);
    readList(filer, edge.weights);
    readList(filer, edge.fit);
    readList(filer, edge.tangents);
}

void writeLoop(AcDbDwgFiler* filer, const HatchLoop& loop) {
    filer->writeInt32(loop.kind);
    filer->writeBool(loop.closed);
    writeList(filer, loop.vertices);
    filer->writeUInt32(static_cast<Adesk::UInt32>(loop.edges.size()));
    for (const HatchEdge& edge : loop.edges) writeEdge(filer, edge);
    filer->writeUInt32(static_cast<Adesk::UInt32>(loop.sources.size()));
    for (const AcDbObjectId id : loop.sources) filer->writeSoftPointerId(id);
}

void readLoop(AcDbDwgFiler* filer, HatchLoop& loop) {
    Adesk::UInt32 count = 0;
    filer->readInt32(&loop.kind);
    filer->readBool(&loop.closed);
    readList(filer, loop.vertices);
    filer->readUInt32(&count);
    loop.edges.resize(count);
    for (HatchEdge& edge : loop.edges) readEdge(filer, edge);
    filer->readUInt32(&count);
    loop.sources.clear();
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        AcDbSoftPointerId id;
        filer->readSoftPointerId(&id);
        if (!id.isNull()) loop.sources.push_back(id);
    }
}

/// From the plane of a hatch to where a similarity takes it.
class PlaneMap {
public:
    PlaneMap(const Motion& motion, double elevation) : m_motion(motion), m_elevation(elevation) {}

    void point(AcGePoint2d& p) const { coordinates(p.x, p.y); }
    void coordinates(double& x, double& y) const {
        const AcGePoint3d to = m_motion.matrix * AcGePoint3d(x, y, m_elevation);
        x = to.x;
        y = to.y;
    }
    void vector(AcGePoint2d& v) const {
        const AcGeVector3d to = m_motion.matrix * AcGeVector3d(v.x, v.y, 0.0);
        v = {to.x, to.y};
    }
    /// Keeps the very number where nothing is turned.
    double angle(double radians) const {
        if (m_motion.turn == 0.0 && !m_motion.mirrored) return radians;
        const double turn = m_motion.turn * kPi / 180.0;
        return positiveAngle(m_motion.mirrored ? turn - radians : radians + turn);
    }

    void edge(HatchEdge& e) const {
        point(e.a);
        if (e.kind == HatchEdge::kLine) point(e.b);
        if (e.kind == HatchEdge::kEllipse) vector(e.b);
        if (e.kind == HatchEdge::kArc) e.radius *= m_motion.scale;
        if (e.kind == HatchEdge::kArc && (m_motion.turn != 0.0 || m_motion.mirrored)) {
            // The angles count in the sense of the edge, which a mirror changes: the turn counts
            // against them then. Both go together, so that the sweep between them stays.
            const double turn = m_motion.turn * kPi / 180.0;
            const double sweep = e.end - e.start;
            e.start = positiveAngle(e.start + (e.clockwise != m_motion.mirrored ? -turn : turn));
            e.end = e.start + sweep;
        }
        if (m_motion.mirrored) e.clockwise = !e.clockwise;
        for (AcGePoint2d& p : e.control) point(p);
        for (AcGePoint2d& p : e.fit) point(p);
        for (AcGePoint2d& v : e.tangents) vector(v);
    }

    void family(HatchFamily& f) const {
        f.angle = angle(f.angle);
        const AcGePoint3d base = m_motion.matrix * AcGePoint3d(f.base.x, f.base.y, 0.0);
        f.base = {base.x, base.y};
        f.offset = m_motion.matrix * f.offset;
        for (double& dash : f.dashes) dash *= m_motion.scale;
    }

    void loop(HatchLoop& l) const {
        for (HatchVertex& v : l.vertices) {
            coordinates(v.x, v.y);
            if (m_motion.mirrored && v.bulge != 0.0) v.bulge = -v.bulge;
        }
        for (HatchEdge& e : l.edges) edge(e);
    }

private:
    const Motion& m_motion;
    double m_elevation;
};

/// The direction of a gradient is among the groups that are kept as they stand, radians.
void turnGradient(AcDbObject& hatch, const PlaneMap& map) {
    const ObjectExtra* const extra = ObjectAccess::extra(hatch);
    if (extra == nullptr || extra->foreign.empty()) return;
    std::vector<RawTag>& kept = ObjectAccess::makeExtra(hatch).foreign;
    for (RawTag& tag : kept)
        if (tag.code == 460) setNumber(tag, map.angle(tagNumber(tag)));
}

}  // namespace

Acad::ErrorStatus AcDbHatch::setElevation(double elevation) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_elevation = elevation;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setNormal(const AcGeVector3d& normal) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setHatchStyle(HatchStyle style) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_style = style;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setAssociative(bool associative) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_associative = associative;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPattern(int type, const std::wstring& name, double angle,
                                        double scale, bool doubled,
                                        std::vector<HatchFamily> families) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_patternType = static_cast<Adesk::Int16>(type);
    m_patternName = name;
    m_patternAngle = angle;
    m_patternScale = scale;
    m_patternDouble = doubled;
    m_families = std::move(families);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setSolidFill(bool solid) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_solid = solid;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPixelSize(double size) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_pixelSize = size;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setLoops(std::vector<HatchLoop> loops) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_loops = std::move(loops);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setSeeds(std::vector<AcGePoint2d> seeds) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_seeds = std::move(seeds);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getArea(double& area) const {
    const std::vector<HatchOutline> outlines = filledOutlines(*this);
    if (outlines.empty()) return Acad::eInvalidInput;
    area = areaBetween(outlines);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writeString(m_patternName.c_str());
    filer->writeVector3d(m_normal);
    for (const double v : {m_elevation, m_patternAngle, m_patternScale, m_pixelSize})
        filer->writeDouble(v);
    filer->writeInt16(m_style);
    filer->writeInt16(m_patternType);
    for (const bool v : {m_solid, m_associative, m_patternDouble}) filer->writeBool(v);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_families.size()));
    for (const HatchFamily& family : m_families) {
        filer->writeDouble(family.angle);
        filer->writePoint3d({family.base.x, family.base.y, 0.0});
        filer->writeVector3d(family.offset);
        writeList(filer, family.dashes);
    }
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_loops.size()));
    for (const HatchLoop& loop : m_loops) writeLoop(filer, loop);
    writeList(filer, m_seeds);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbHatch::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es == Acad::eOk) es = readText(filer, m_patternName);
    if (es != Acad::eOk) return es;
    filer->readVector3d(&m_normal);
    for (double* v : {&m_elevation, &m_patternAngle, &m_patternScale, &m_pixelSize})
        filer->readDouble(v);
    Adesk::Int16 style = 0;
    filer->readInt16(&style);
    m_style = static_cast<HatchStyle>(style);
    filer->readInt16(&m_patternType);
    for (bool* v : {&m_solid, &m_associative, &m_patternDouble}) filer->readBool(v);
    Adesk::UInt32 count = 0;
    filer->readUInt32(&count);
    m_families.assign(count, {});
    for (HatchFamily& family : m_families) {
        AcGePoint3d base;
        filer->readDouble(&family.angle);
        filer->readPoint3d(&base);
        family.base = {base.x, base.y};
        filer->readVector3d(&family.offset);
        readList(filer, family.dashes);
    }
    filer->readUInt32(&count);
    m_loops.assign(count, {});
    for (HatchLoop& loop : m_loops) readLoop(filer, loop);
    readList(filer, m_seeds);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbHatch::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    const Motion inPlane = motionInPlane(motionOf(m), m_normal);
    const PlaneMap map(inPlane, m_elevation);
    // As its first family of lines turns: who makes the lines anew from the pattern's name gets
    // those right even in a mirror.
    const double first = m_families.empty() ? m_patternAngle : m_families[0].angle;
    if (inPlane.turn != 0.0 || inPlane.mirrored)
        m_patternAngle = positiveAngle(m_patternAngle + map.angle(first) - first);
    m_patternScale *= inPlane.scale;
    for (HatchFamily& family : m_families) map.family(family);
    for (HatchLoop& loop : m_loops) map.loop(loop);
    for (AcGePoint2d& seed : m_seeds) map.point(seed);
    m_elevation = m_elevation * inPlane.scale + inPlane.matrix.entry[2][3];
    m_normal = mappedNormal(m, m_normal);
    turnGradient(*this, map);
    xDataTransformBy(m);
    return Acad::eOk;
}
