// SPDX-License-Identifier: MIT
// Pieces: construction, placement, queries.
#include "perfis/entities/zpobject.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <utility>

#include "zp/objects/barra_data.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/links.h"
#include "zp/objects/peca.h"
#include "zp/objects/picture.h"
#include "zp/objects/published.h"
#include "zp/objects/watch.h"

using zp::Link;
using zp::Peca;
using zp::secao::Bounds;
using zp::secao::Role;

ACRX_NO_CONS_DEFINE_MEMBERS(ZpObject, AcDbEntity)

namespace {

double validComprimento(double v) { return std::isfinite(v) && v > 0.0 ? v : 0.0; }

void fillIn(Peca& p, ZpObject::ZpVistas vista, std::initializer_list<double> values) {
    p.vista = static_cast<std::uint8_t>(std::clamp(static_cast<int>(vista), 0, 4));
    p.count = static_cast<std::uint8_t>(std::min<std::size_t>(values.size(), p.given.size()));
    std::copy_n(values.begin(), p.count, p.given.begin());
    p.actual = p.given;
}

Acad::ErrorStatus copyText(const std::wstring& from, ACHAR* target) {
    if (target == nullptr) return Acad::eInvalidInput;
    std::wcsncpy(target, from.c_str(), kZpTextMax - 1);
    target[kZpTextMax - 1] = L'\0';
    return Acad::eOk;
}

/// kg per mm3 of steel.
constexpr double kSteel = 7850e-9;

}  // namespace

ZpObject::ZpObject(int kind) : m_peca(std::make_unique<Peca>()) {
    m_peca->kind = static_cast<zp::secao::Kind>(kind);
    // A new object is about to be read; until then it has the class's first constructor with zeros.
    const auto& d = zp::secao::description(m_peca->kind);
    const int one = zp::secao::count(d.onePoint[0]);
    m_peca->form = one > 0 ? 1 : 2;
    m_peca->count = static_cast<std::uint8_t>(one > 0 ? one : zp::secao::count(d.twoPoints[0]));
}

ZpObject::ZpObject(int kind, const AcGePoint3d& point, ZpVistas vista,
                   std::initializer_list<double> values)
    : m_peca(std::make_unique<Peca>()) {
    Peca& p = *m_peca;
    p.kind = static_cast<zp::secao::Kind>(kind);
    p.form = 1;
    fillIn(p, vista, values);
    p.points[0] = p.start = point;
    p.comprimento = validComprimento(p.roles()[p.chapa() ? Role::D3 : Role::L]);
    zp::published::take(p);
}

ZpObject::ZpObject(int kind, const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista,
                   std::initializer_list<double> values)
    : m_peca(std::make_unique<Peca>()) {
    Peca& p = *m_peca;
    p.kind = static_cast<zp::secao::Kind>(kind);
    p.form = 2;
    fillIn(p, vista, values);
    p.points = {start, end};
    p.start = start;
    const AcGeVector3d axis(end.x - start.x, end.y - start.y, 0.0);
    p.comprimento = validComprimento(axis.length());
    if (p.comprimento > 0.0) p.angle = zp::angleOf(axis);
    zp::published::take(p);
}

ZpObject::~ZpObject() = default;

Acad::ErrorStatus ZpObject::settipoBarra(TipoBarra type) {
    const int value = type;  // may be none of the enumeration's
    if (value < 0 || value > 255) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_peca->tipoBarra = static_cast<std::uint8_t>(value);
    m_peca->barraStale = true;
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::tipoBarra(TipoBarra& type) const {
    assertReadEnabled();
    type = static_cast<TipoBarra>(m_peca->tipoBarra);
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::LinkDim(const AcDbObjectId& cota) {
    return zp::tie(*this, cota, Link::Role::Cota);
}

Acad::ErrorStatus ZpObject::LinkPos(const AcDbObjectId& peca) {
    return zp::tie(*this, peca, Link::Role::Follows);
}

void ZpObject::GetLimitPointsOfFaces(AcGePoint3d& f0, AcGePoint3d& f1, AcGePoint3d& f2,
                                     AcGePoint3d& f3) const {
    assertReadEnabled();
    const Bounds c = m_peca->picture();
    const zp::Frame q = m_peca->pictureFrame();
    f0 = q.toWorld(c.x0, c.y1);
    f1 = q.toWorld(c.x0, c.y0);
    f2 = q.toWorld(c.x1, c.y1);
    f3 = q.toWorld(c.x1, c.y0);
}

Acad::ErrorStatus ZpObject::StartPoint(AcGePoint3d& point) const {
    assertReadEnabled();
    point = m_peca->start;
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::EndPoint(AcGePoint3d& point) const {
    assertReadEnabled();
    point = m_peca->end();
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::AngleVista(double& angle) const {
    assertReadEnabled();
    angle = m_peca->angle;
    return Acad::eOk;
}

ZpObject::ZpVistas ZpObject::vista() const {
    assertReadEnabled();
    return static_cast<ZpVistas>(m_peca->vista);
}

Acad::ErrorStatus ZpObject::AlteraComprimento(double comprimento) {
    if (!std::isfinite(comprimento) || comprimento <= 0.0) return Acad::eInvalidInput;
    const double axis = comprimento - (zp::cortes::longest(*m_peca) - m_peca->comprimento);
    const double before = std::exchange(m_peca->comprimento, axis);
    const bool possible = axis > 0.0 && zp::cortes::fault(*m_peca).empty();
    m_peca->comprimento = before;
    if (!possible) return Acad::eInvalidInput;
    assertWriteEnabled();
    zp::watch::changes(objectId(), zp::edit::formerOf(*this));
    m_peca->comprimento = axis;
    m_peca->barraStale = true;
    recordGraphicsModified();
    return Acad::eOk;
}

double ZpObject::getAltura() const {
    assertReadEnabled();
    return m_peca->chapa() ? m_peca->comprimento : m_peca->secao().altura();
}

double ZpObject::getLargura() const {
    assertReadEnabled();
    return m_peca->chapa() ? m_peca->actual[0] : m_peca->secao().largura();
}

double ZpObject::getEspessura() const {
    assertReadEnabled();
    return m_peca->chapa() ? m_peca->actual[1] : m_peca->secao().espessura();
}

double ZpObject::getArea() const {
    assertReadEnabled();
    return m_peca->chapa() ? m_peca->actual[0] * m_peca->comprimento : m_peca->secao().area();
}

double ZpObject::getPerimetro() const {
    assertReadEnabled();
    return m_peca->chapa() ? 2.0 * (m_peca->actual[0] + m_peca->comprimento)
                           : m_peca->secao().properties().perimetro;
}

double ZpObject::getAreaPintura() const {
    assertReadEnabled();
    const Peca& p = *m_peca;
    if (!p.chapa()) return p.secao().perimetroPintura() * zp::cortes::longest(p) * 1e-6;
    const double d1 = p.actual[0];
    const double d2 = p.actual[1];
    return 2.0 * (d1 * d2 + d1 * p.comprimento + d2 * p.comprimento) * 1e-6;
}

double ZpObject::getPeso() const {
    assertReadEnabled();
    const Peca& p = *m_peca;
    if (p.chapa()) return p.actual[0] * p.actual[1] * p.comprimento * kSteel;
    return p.kgMetro() * zp::cortes::longest(p) * 1e-3;
}

double ZpObject::getLinearWeight() const {
    assertReadEnabled();
    const Peca& p = *m_peca;
    return p.chapa() ? p.actual[0] * p.actual[1] * kSteel * 1e3 : p.kgMetro();
}

double ZpObject::getComprimento() const { return getComprimentoReal(); }

double ZpObject::getComprimentoReal() const {
    assertReadEnabled();
    return zp::cortes::longest(*m_peca);
}

Acad::ErrorStatus ZpObject::getPerfil(ACHAR* text) const {
    assertReadEnabled();
    return copyText(m_peca->perfil(), text);
}

Acad::ErrorStatus ZpObject::getDimensoes(ACHAR* text) const {
    assertReadEnabled();
    return copyText(m_peca->dimensoes(), text);
}

Acad::ErrorStatus ZpObject::readValue(int role, double& value) const {
    assertReadEnabled();
    const double* const stored = std::as_const(*m_peca).value(static_cast<Role>(role));
    if (stored == nullptr) return Acad::eNotApplicable;
    value = *stored;
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::writeValue(int role, double value) {
    if (!std::isfinite(value)) return Acad::eInvalidInput;
    double* const stored = m_peca->value(static_cast<Role>(role));
    if (stored == nullptr) return Acad::eNotApplicable;
    assertWriteEnabled();
    *stored = value;
    m_peca->cachedSecao.reset();
    zp::published::follow(*m_peca, static_cast<Role>(role));
    m_peca->barraStale = true;
    recordGraphicsModified();
    return Acad::eOk;
}

void ZpObject::getEcs(AcGeMatrix3d& ecs) const {
    assertReadEnabled();
    const zp::Frame q = m_peca->frame();
    ecs.setCoordSystem(q.origin, q.x, q.y, AcGeVector3d::kZAxis);
}

/// What the bar is must stand in the drawing before anybody else can open the piece, so it is
/// written as the access that changed it ends.
Acad::ErrorStatus ZpObject::subClose() {
    if (isWriteEnabled() && database() != nullptr && !isErased() && !isUndoing()) {
        if (isNewObject()) zp::loadLinetypes(*database());
        if (isNewObject() || m_peca->barraStale) zp::writeBarra(*this);
        m_peca->barraStale = false;
    }
    return AcDbEntity::subClose();
}
