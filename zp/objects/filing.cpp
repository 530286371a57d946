// SPDX-License-Identifier: MIT
// A piece's record. Order: version, class, form, points, view, values, bar type, subtype, mirror
// flag, length, angle, start, changed values, links; from version 2 on what it is in the job, which
// version 3 may lack; from version 3 on what it keeps of its table, which version 4 may lack; from
// version 4 on the cuts of its ends.
#include "zp/objects/filing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "acutmem.h"
#include "zp/objects/cortes.h"
#include "zp/objects/editable_medidas.h"
#include "zp/objects/published.h"

namespace zp {
namespace {

constexpr int kMaxLinks = 10000;
/// mm, far beyond any piece; what is larger overflows in areas and masses.
constexpr double kLargestMedida = 1e9;

// Flags of a link in one number: kind, points in use, mirrored, which points belong to the end.
int flagsOf(const Link& l) {
    int flags = static_cast<int>(l.role) | l.count << 2 | (l.mirrored ? 1 << 5 : 0);
    for (std::size_t i = 0; i < l.points.size(); ++i)
        if (l.points[i].atEnd) flags |= 1 << (6 + i);
    return flags;
}

bool apply(int flags, Link& l) {
    if (flags < 0 || (flags & 3) > 2 || (flags >> 2 & 7) > static_cast<int>(l.points.size()))
        return false;
    l.role = static_cast<Link::Role>(flags & 3);
    l.count = static_cast<std::uint8_t>(flags >> 2 & 7);
    l.mirrored = (flags >> 5 & 1) != 0;
    for (std::size_t i = 0; i < l.points.size(); ++i)
        l.points.flagEnd(i, (flags >> (6 + i) & 1) != 0);
    return true;
}

template <class Reader>
bool readLinks(Reader& reader, Peca& p) {
    int n = 0;
    if (!reader.integer(n) || n < 0 || n > kMaxLinks) return false;
    for (; n > 0; --n) {
        Link l;
        int flags = 0;
        if (!reader.id(l.id) || !reader.integer(flags) || !apply(flags, l)) return false;
        for (std::size_t i = 0; i < l.count; ++i) {
            AcGePoint3d offset;
            if (!reader.point(offset)) return false;
            l.points[i] = {offset.asVector(), std::as_const(l.points)[i].atEnd};
        }
        if (l.role == Link::Role::Follows && !reader.real(l.angle)) return false;
        if (!l.id.isNull()) p.add(l);
    }
    return true;
}

/// More members than any job has.
constexpr double kMostMembers = 2147483647.0;

template <class Writer>
void writeMember(Writer& e, const Member& m) {
    e.integer(m.listed ? 1 : 0);
    e.id(m.row);
    e.real(m.count);
    e.text(m.grade);
    e.integer(m.lacing.n);
    if (m.lacing.n == 0) return;
    e.real(m.lacing.A);
    e.real(m.lacing.C);
    e.integer(m.lacing.planes);
    e.real(m.lacing.L1);
}

template <class Reader>
bool readLacing(Reader& reader, Lacing& lacing) {
    if (!reader.real(lacing.A) || !reader.real(lacing.C) || !reader.integer(lacing.planes) ||
        !reader.real(lacing.L1))
        return false;
    return std::ranges::all_of(std::array{lacing.A, lacing.C, lacing.L1},
                               [](double v) { return v >= 0.0 && v <= kLargestMedida; });
}

template <class Reader>
bool readMember(Reader& reader, Member& m) {
    int listed = 0;
    double count = 0.0;
    if (!reader.integer(listed) || !reader.id(m.row) || !reader.real(count) ||
        !reader.text(m.grade) || !reader.integer(m.lacing.n))
        return false;
    if (!(count >= 0.0 && count <= kMostMembers) || m.lacing.n < 0) return false;
    m.listed = listed != 0;
    m.count = static_cast<int>(count);
    return m.lacing.n == 0 || readLacing(reader, m.lacing);
}

/// Longest name that a table's row has, with room.
constexpr std::size_t kMostName = 120;

template <class Writer>
void writeCommercial(Writer& e, const Commercial& c) {
    e.text(c.name);
    for (const double v : {c.kgMetro, c.printed.root, c.printed.toe, c.printed.area}) e.real(v);
    e.integer(c.printed.otherMass ? 1 : 0);
}

template <class Reader>
bool readCommercial(Reader& reader, Commercial& c) {
    if (!reader.text(c.name) || c.name.size() > kMostName) return false;
    for (double* const v : {&c.kgMetro, &c.printed.root, &c.printed.toe, &c.printed.area})
        if (!reader.real(*v) || !(std::abs(*v) <= kLargestMedida)) return false;
    int otherMass = 0;
    if (!reader.integer(otherMass) || c.kgMetro < 0.0 || c.printed.area < 0.0) return false;
    c.printed.otherMass = otherMass != 0;
    return true;
}

template <class Reader>
bool readCortes(Reader& reader, Peca& p) {
    const double steepest = 1.000001 * std::tan(cortes::kSteepest);
    for (Corte& corte : p.cortes)
        for (double* const v : {&corte.x, &corte.y})
            if (!reader.real(*v) || !(std::abs(*v) <= steepest * std::numbers::sqrt2)) return false;
    return true;
}

/// What follows the links, in the order of the versions.
template <class Reader>
bool readSince(Reader& reader, int version, Peca& p) {
    int known = version > 1 ? 1 : 0;
    if (version > 2 && !reader.integer(known)) return false;
    if (known != 0) p.member = std::make_unique<Member>();
    if (p.member && !readMember(reader, *p.member)) return false;
    if (version < 3) return true;
    if (version > 3 && !reader.integer(known)) return false;
    Commercial commercial;
    if ((version == 3 || known != 0) && !readCommercial(reader, commercial)) return false;
    if (version == 3 || known != 0) p.commercial = published::shared(std::move(commercial));
    return version < 4 || readCortes(reader, p);
}

template <class Reader>
bool readChanged(Reader& reader, Peca& p) {
    p.actual = p.given;
    int n = 0;
    if (!reader.integer(n) || n < 0 || n > p.count) return false;
    for (; n > 0; --n) {
        int place = 0;
        double value = 0.0;
        if (!reader.integer(place) || !reader.real(value) || place < 0 || place >= p.count)
            return false;
        p.actual[static_cast<std::size_t>(place)] = value;
    }
    return true;
}

bool possibleValue(double v, secao::Role role) {
    using enum secao::Role;
    if (!(std::abs(v) <= kLargestMedida)) return false;
    // A command asks less of flanges of its own than a property sheet.
    if (role == L || role == Tc || role == Tb) return v >= 0.0;
    const auto medidas = sheets::medidas();
    const auto medida = std::ranges::find(medidas, role, &sheets::Medida::role);
    return medida == medidas.end() || sheets::outsideLimit(medida->limit, v) == nullptr;
}

bool fits(int v, int maximum) { return v >= 0 && v <= maximum; }

}  // namespace

bool possibleMedidas(const Peca& p) {
    const secao::Roles& roles = *p.order();
    for (std::size_t i = 0; i < p.count; ++i)
        if (!possibleValue(p.given[i], roles[i]) || !possibleValue(p.actual[i], roles[i]))
            return false;
    return p.comprimento <= kLargestMedida && cortes::fault(p).empty();
}

bool DwgReader::integer(int& v) {
    Adesk::Int16 small = 0;
    if (m_filer.readInt16(&small) != Acad::eOk) return false;
    v = small;
    return true;
}

bool DwgReader::text(std::wstring& t) {
    ACHAR* read = nullptr;
    if (m_filer.readString(&read) != Acad::eOk) return false;
    t = read != nullptr ? read : L"";
    acutDelString(read);
    return true;
}

bool DxfReader::item(int code, resbuf& value) {
    value = {};
    if (m_filer.readItem(&value) != Acad::eOk) return false;
    if (value.restype == code) return true;
    m_filer.pushBackItem();
    return false;
}

bool DxfReader::integer(int& v) {
    resbuf r;
    if (!item(AcDb::kDxfInt16, r)) return false;
    v = r.resval.rint;
    return true;
}

bool DxfReader::real(double& v) {
    resbuf r;
    if (!item(AcDb::kDxfReal, r)) return false;
    v = r.resval.rreal;
    return true;
}

bool DxfReader::point(AcGePoint3d& p) {
    resbuf r;
    if (!item(AcDb::kDxfXCoord, r)) return false;
    p.set(r.resval.rpoint[0], r.resval.rpoint[1], r.resval.rpoint[2]);
    return true;
}

bool DxfReader::id(AcDbSoftPointerId& i) {
    resbuf r;
    if (!item(AcDb::kDxfSoftPointerId, r)) return false;
    AcDbObjectId read;
    // A reference to an object that the drawing does not have is a link less, not a damaged piece.
    if (acdbGetObjectId(read, r.resval.rlname) == Acad::eOk) i = AcDbSoftPointerId(read);
    return true;
}

bool DxfReader::text(std::wstring& t) {
    resbuf r;
    if (!item(AcDb::kDxfText, r)) return false;
    t = r.resval.rstring != nullptr ? r.resval.rstring : L"";
    acutDelString(r.resval.rstring);
    return true;
}

template <class Writer>
void writePeca(Writer& e, const Peca& p) {
    const int version = cortes::oblique(p) ? kPecaVersion : p.commercial ? 3 : p.member ? 2 : 1;
    e.integer(version);
    e.integer(static_cast<int>(p.kind));
    e.integer(p.form);
    for (std::size_t i = 0; i < p.form; ++i) e.point(p.points[i]);
    e.integer(p.vista);
    e.integer(p.count);
    for (std::size_t i = 0; i < p.count; ++i) e.real(p.given[i]);
    e.integer(p.tipoBarra);
    e.integer(p.series);
    e.integer(p.mirrored ? 1 : 0);
    e.real(p.comprimento);
    e.real(p.angle);
    e.point(p.start);
    int changed = 0;
    for (std::size_t i = 0; i < p.count; ++i) changed += p.given[i] != p.actual[i] ? 1 : 0;
    e.integer(changed);
    for (std::size_t i = 0; i < p.count; ++i) {
        if (p.given[i] == p.actual[i]) continue;
        e.integer(static_cast<int>(i));
        e.real(p.actual[i]);
    }
    e.integer(static_cast<int>(p.linked().size()));
    for (const Link& l : p.linked()) {
        e.id(l.id);
        e.integer(flagsOf(l));
        for (std::size_t i = 0; i < l.count; ++i) {
            const AcGeVector3d d = l.points[i].offset;
            e.point({d.x, d.y, d.z});
        }
        if (l.role == Link::Role::Follows) e.real(l.angle);
    }
    if (version > 2) e.integer(p.member ? 1 : 0);
    if (p.member) writeMember(e, *p.member);
    if (version > 3) e.integer(p.commercial ? 1 : 0);
    if (p.commercial) writeCommercial(e, *p.commercial);
    if (version < 4) return;
    for (const Corte& corte : p.cortes)
        for (const double v : {corte.x, corte.y}) e.real(v);
}

template <class Reader>
ReadResult readPeca(Reader& reader, Peca& peca, int& version) {
    Peca p;
    int kind = 0;
    int form = 0;
    int vista = 0;
    int count = 0;
    if (!reader.integer(version) || version < 1) return ReadResult::Bad;
    if (version > kPecaVersion) return ReadResult::Newer;
    if (!reader.integer(kind) || kind != static_cast<int>(peca.kind)) return ReadResult::Bad;
    p.kind = peca.kind;
    if (!reader.integer(form) || form < 1 || form > 2) return ReadResult::Bad;
    p.form = static_cast<std::uint8_t>(form);
    for (std::size_t i = 0; i < p.form; ++i)
        if (!reader.point(p.points[i])) return ReadResult::Bad;
    if (!reader.integer(vista) || !fits(vista, 4) || !reader.integer(count)) return ReadResult::Bad;
    if (!fits(count, secao::kMaxValues) || secao::rolesOf(p.kind, form, count) == nullptr)
        return ReadResult::Bad;
    p.vista = static_cast<std::uint8_t>(vista);
    p.count = static_cast<std::uint8_t>(count);
    for (std::size_t i = 0; i < p.count; ++i)
        if (!reader.real(p.given[i])) return ReadResult::Bad;
    int type = 0;
    int series = 0;
    int mirrored = 0;
    if (!reader.integer(type) || !reader.integer(series) || !reader.integer(mirrored))
        return ReadResult::Bad;
    if (!fits(type, 255) || !fits(series, 255)) return ReadResult::Bad;
    p.tipoBarra = static_cast<std::uint8_t>(type);
    p.series = static_cast<std::uint8_t>(series);
    p.mirrored = mirrored != 0;
    if (!reader.real(p.comprimento) || !reader.real(p.angle) || !reader.point(p.start))
        return ReadResult::Bad;
    if (!std::isfinite(p.comprimento) || p.comprimento < 0.0 || !std::isfinite(p.angle))
        return ReadResult::Bad;
    if (!readChanged(reader, p) || !readLinks(reader, p)) return ReadResult::Bad;
    if (!readSince(reader, version, p)) return ReadResult::Bad;
    peca = std::move(p);
    return ReadResult::Good;
}

template void writePeca(DwgWriter&, const Peca&);
template void writePeca(DxfWriter&, const Peca&);
template void writePeca(TextWriter&, const Peca&);
template ReadResult readPeca(DwgReader&, Peca&, int&);
template ReadResult readPeca(DxfReader&, Peca&, int&);
template ReadResult readPeca(TextReader&, Peca&, int&);

}  // namespace zp

Acad::ErrorStatus ZpObject::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    zp::DwgWriter writer(*filer);
    zp::writePeca(writer, *m_peca);
    return filer->filerStatus();
}

Acad::ErrorStatus ZpObject::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk) return es;
    zp::DwgReader reader(*filer);
    int version = 0;
    if (zp::readPeca(reader, *m_peca, version) != zp::ReadResult::Good &&
        filer->filerStatus() == Acad::eOk)
        filer->setFilerStatus(Acad::eInvalidInput);
    return filer->filerStatus();
}

Acad::ErrorStatus ZpObject::dxfOutFields(AcDbDxfFiler* filer) const {
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeString(AcDb::kDxfSubclass, isA()->name());
    zp::DxfWriter writer(*filer);
    zp::writePeca(writer, *m_peca);
    return filer->filerStatus();
}

Acad::ErrorStatus ZpObject::dxfInFields(AcDbDxfFiler* filer) {
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk) return es;
    const ACHAR* name = isA()->name();
    if (!filer->atSubclassData(name))
        return filer->setError(Acad::eBadDxfSequence, L"%ls: falta o registro da peça.", name);
    zp::DxfReader reader(*filer);
    int version = 0;
    zp::Peca read;
    read.kind = m_peca->kind;
    switch (zp::readPeca(reader, read, version)) {
        case zp::ReadResult::Good:
            if (!zp::possibleMedidas(read)) break;
            *m_peca = std::move(read);
            return filer->filerStatus();
        case zp::ReadResult::Newer:
            return filer->setError(Acad::eNotImplementedYet,
                                   L"%ls: registro da versão %d; este módulo lê até a versão %d.",
                                   name, version, static_cast<int>(zp::kPecaVersion));
        case zp::ReadResult::Bad:
            break;
    }
    return filer->setError(Acad::eInvalidInput, L"%ls: registro danificado.", name);
}
