// SPDX-License-Identifier: MIT
// Changes of pieces in the drawing.
#include "zp/objects/edit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "dbsymtb.h"
#include "zp/objects/cortes.h"
#include "zp/objects/links.h"
#include "zp/objects/member.h"
#include "zp/objects/picture_map.h"
#include "zp/objects/published.h"
#include "zp/objects/watch.h"

namespace zp::edit {
namespace {

/// How near two points are to be one, mm.
constexpr double kSamePoint = 1e-6;
/// How near two values are to be one, over their size.
constexpr double kSameValue = 1e-9;

VistaMaker g_vistaMaker = nullptr;

std::vector<Listener*>& listeners() {
    static std::vector<Listener*> all;
    return all;
}

std::vector<AcDbObjectId> linkedOf(const ZpObject& peca, Link::Role role) {
    std::vector<AcDbObjectId> ids;
    for (const Link& l : Access::of(peca).linked())
        if (l.role == role && !l.id.isNull() && !l.id.isErased()) ids.push_back(l.id);
    return ids;
}

AcGeVector3d whole(const Peca& p, const LearntPoint& a) {
    AcGeVector3d v = a.offset;
    if (a.atEnd) v.x += p.comprimento;
    return v;
}

bool same(const AcGeVector3d& a, const AcGePoint3d& b) {
    return (a - b.asVector()).length() <= kSamePoint;
}

/// The entry whose measured points are those of the link.
const ChangedCota* foreseenFor(const Peca& p, const Link& l,
                               std::span<const ChangedCota> foreseenOnes) {
    const auto found = std::ranges::find_if(foreseenOnes, [&](const ChangedCota& c) {
        return same(whole(p, l.points[0]), c.before.from) &&
               same(whole(p, l.points[1]), c.before.to);
    });
    return found != foreseenOnes.end() ? &*found : nullptr;
}

LearntPoint learntAt(const Peca& p, const AcGePoint3d& point) {
    LearntPoint a{point.asVector(), false};
    a.atEnd = cortes::onEnd(p, a.offset);
    if (a.atEnd) a.offset.x -= p.comprimento;
    return a;
}

bool isChapa(AcDbObjectId id) {
    const AcRxClass* const kind = id.objectClass();
    return kind != nullptr && kind->isDerivedFrom(ZpChapa::desc());
}

/// A point at an end of the piece when the end gets another cut: what is where the picture ends, or
/// beyond, goes with that, what is on the edge of the end stays on it.
void carryEnd(const Peca& before, const Peca& after, const LearntPoint& was, LearntPoint& is) {
    const std::size_t end = was.atEnd ? cortes::kEnd : cortes::kStart;
    const double sign = was.atEnd ? 1.0 : -1.0;
    const double out = sign * was.offset.x;
    const double last = cortes::furthest(before, end);
    if (out >= last - kSamePoint)
        is.offset.x = sign * (out - last + cortes::furthest(after, end));
    else if (std::abs(out - cortes::edgeAt(before, end, was.offset.y)) <= kSamePoint)
        is.offset.x = sign * cortes::edgeAt(after, end, is.offset.y);
}

/// Where a point at an end of the piece is, along the axis.
bool atStart(const Peca& p, const LearntPoint& point) {
    if (point.atEnd) return false;
    const double x = point.offset.x;
    return x <= kSamePoint ||
           std::abs(x + cortes::edgeAt(p, cortes::kStart, point.offset.y)) <= kSamePoint ||
           std::abs(x - cortes::longestFibre(p, point.offset.y).from) <= kSamePoint;
}

/// True for a dimension from end to end that measures what is bought: the longest fibre, or the
/// picture's length.
bool measuresAll(const Peca& p, const Link& l) {
    const LearntPoint from = l.points[0];
    const LearntPoint to = l.points[1];
    if (!atStart(p, from) || !to.atEnd || std::abs(from.offset.y - to.offset.y) > kSamePoint)
        return false;
    const double length = p.comprimento + to.offset.x - from.offset.x;
    const double picture = p.picture().x1 - p.picture().x0;
    return std::abs(length - cortes::longest(p)) <= kSamePoint ||
           std::abs(length - picture) <= kSamePoint;
}

void measureAll(const Peca& after, Link& l) {
    LearntPoint from = l.points[0];
    LearntPoint to = l.points[1];
    const secao::Bounds box = after.picture();
    const bool above = 2.0 * std::as_const(l.points)[2].offset.y > box.y0 + box.y1;
    const cortes::Fibre fibre = cortes::longestFibre(after, above ? box.y1 : box.y0);
    from.offset = {fibre.from, fibre.w, from.offset.z};
    to.offset = {fibre.to - after.comprimento, fibre.w, to.offset.z};
    l.points[0] = from;
    l.points[1] = to;
}

/// Cuts, or a section whose fibres they leave longer or shorter.
bool endsDiffer(const Peca& before, const Peca& after) {
    const auto differs = [&](std::size_t end) {
        return std::abs(cortes::furthest(before, end) - cortes::furthest(after, end)) > kSamePoint;
    };
    return before.cortes != after.cortes || differs(cortes::kStart) || differs(cortes::kEnd);
}

/// A dimension of all the piece goes with its longest fibre, one of an end with the cut of that;
/// others do where they stood on a cut.
void carryEnds(const Peca& before, const Peca& after, const Link& was, Link& l) {
    if (before.inSecao() || after.inSecao() || l.count < 2 || !endsDiffer(before, after)) return;
    if (l.count >= 3 && measuresAll(before, was)) return measureAll(after, l);
    const bool ofEnd = [&] {
        const LearntPoint from = was.points[0];
        const LearntPoint to = was.points[1];
        return (from.atEnd || atStart(before, from)) && (to.atEnd || atStart(before, to));
    }();
    for (std::size_t i = 0; i < l.count; ++i) {
        LearntPoint point = l.points[i];
        const std::size_t end = point.atEnd ? cortes::kEnd : cortes::kStart;
        if (ofEnd || before.cortes[end] != Corte())
            carryEnd(before, after, std::as_const(was.points)[i], point);
        l.points[i] = point;
    }
}

/// What a link of `before` says once the piece is `after`. Plates stand where a rule or the user
/// put them.
void carry(const Peca& before, const Peca& after, const PictureMap& pictureMap,
           std::span<const ChangedCota> foreseenOnes, Link& l) {
    if (l.role == Link::Role::Owner || isChapa(l.id)) return;
    const ChangedCota* foreseen =
        l.role == Link::Role::Cota && l.count >= 3 ? foreseenFor(before, l, foreseenOnes) : nullptr;
    const bool lineOfRule =
        foreseen != nullptr && same(whole(before, l.points[2]), foreseen->before.line);
    const Link was = l;
    for (std::size_t i = 0; i < l.count; ++i) l.points[i] = pictureMap.carry(l.points[i]);
    if (l.role == Link::Role::Cota) carryEnds(before, after, was, l);
    if (foreseen == nullptr) return;
    l.points[0] = learntAt(after, foreseen->after.from);
    l.points[1] = learntAt(after, foreseen->after.to);
    if (lineOfRule) l.points[2] = learntAt(after, foreseen->after.line);
}

}  // namespace

void copyValues(const Peca& from, Peca& target) {
    target.form = from.form;
    target.vista = from.vista;
    target.count = from.count;
    target.tipoBarra = from.tipoBarra;
    target.series = from.series;
    target.comprimento = from.comprimento;
    target.cortes = from.cortes;
    target.given = from.given;
    target.actual = from.actual;
    target.commercial = from.commercial;
    target.cachedSecao.reset();
    target.barraStale = true;
}

std::unique_ptr<ZpObject> copyOf(const ZpObject& peca) {
    std::unique_ptr<ZpObject> copy(ZpObject::cast(peca.isA()->create()));
    if (!copy) return nullptr;
    const Peca& p = Access::of(peca);
    Peca& same = Access::of(*copy);
    copyValues(p, same);
    same.start = p.start;
    same.angle = p.angle;
    same.mirrored = p.mirrored;
    member::set(*copy, member::of(peca));
    return copy;
}

Former formerOf(const ZpObject& peca) {
    const Peca& p = Access::of(peca);
    return {valuesOf(peca), p.comprimento, p.start, p.angle, p.cortes, member::of(peca).lacing};
}

secao::Kind kindOf(const ZpObject& peca) { return Access::of(peca).kind; }

secao::RoleValues valuesOf(const ZpObject& peca) { return Access::of(peca).roles(); }

bool fromTwoPoints(const ZpObject& peca) { return Access::of(peca).form == 2; }

std::vector<AcDbObjectId> cotasOf(const ZpObject& peca) { return linkedOf(peca, Link::Role::Cota); }

std::vector<AcDbObjectId> chapasOf(const ZpObject& peca) {
    std::vector<AcDbObjectId> ids = linkedOf(peca, Link::Role::Follows);
    std::erase_if(ids, [](AcDbObjectId id) { return !isChapa(id); });
    return ids;
}

void learnChapas(ZpObject& peca) {
    for (const AcDbObjectId& id : chapasOf(peca)) {
        const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForRead);
        if (chapa.object() != nullptr) learn(peca, *chapa.object());
    }
}

AcDbObjectId ownerOf(const ZpObject& peca) {
    const std::vector<AcDbObjectId> owners = linkedOf(peca, Link::Role::Owner);
    return owners.empty() ? AcDbObjectId() : owners.front();
}

bool isChapaOf(AcDbObjectId id, AcDbObjectId peca) {
    if (!isChapa(id)) return false;
    const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForRead);
    return chapa.object() != nullptr && ownerOf(*chapa.object()) == peca;
}

bool onLockedLayer(const AcDbEntity& entity) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity.layerId(), AcDb::kForRead);
    return layer.object() != nullptr && layer->isLocked();
}

bool onLockedLayer(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    return entity.object() != nullptr && onLockedLayer(*entity.object());
}

void keepOwnValues(const ZpObject& peca, const ZpObject& rule, ZpObject& fresh) {
    using enum secao::Role;
    const secao::RoleValues has = valuesOf(peca);
    const secao::RoleValues would = valuesOf(rule);
    Peca& p = Access::of(fresh);
    const secao::Roles* const roles = p.order();
    for (std::size_t i = 0; roles != nullptr && i < p.count; ++i) {
        const secao::Role role = (*roles)[i];
        const bool external = role == L || role == Giro || role == Type || role == M || role == A;
        const double tolerance = kSameValue * std::abs(would[role]);
        if (external || !(std::abs(has[role] - would[role]) > tolerance)) continue;
        p.given[i] = p.actual[i] = has[role];
        published::follow(p, role);
    }
    p.cachedSecao.reset();
}

secao::Bounds boxIn(const Frame& frame, const ZpObject& peca) {
    secao::Bounds box;
    for (const AcGePoint3d& point : facesOf(peca).f) {
        const AcGeVector3d local = frame.toLocal(point);
        box.include(local.x, local.y);
    }
    return box;
}

bool sameShape(const secao::RoleValues& a, const secao::RoleValues& b) {
    using enum secao::Role;
    constexpr std::array kOthers{L, Giro, M, A, Vao, VaoV};
    for (std::size_t i = 0; i < a.v.size(); ++i)
        if (std::abs(a.v[i] - b.v[i]) > kSamePoint &&
            std::ranges::find(kOthers, static_cast<secao::Role>(i)) == kOthers.end())
            return false;
    return true;
}

void carryCotas(Peca& p, const Peca& after) {
    if (!p.links) return;
    for (Link& l : *p.links)
        if (l.role == Link::Role::Cota) carryEnds(p, after, Link(l), l);
}

Faces facesOf(const ZpObject& peca) {
    Faces faces;
    peca.GetLimitPointsOfFaces(faces.f[0], faces.f[1], faces.f[2], faces.f[3]);
    return faces;
}

Faces cornersOf(const ZpObject& peca) {
    const Peca& p = Access::of(peca);
    Faces faces = facesOf(peca);
    if (p.inSecao() || !cortes::oblique(p)) return faces;
    const auto corners = cortes::corners(p);
    for (std::size_t i = 0; i < corners.size(); ++i)
        faces.f[i] = p.frame().toWorld(corners[i].x, corners[i].y);
    return faces;
}

Edit::Edit(AcDbObjectId peca)
    : m_id(peca),
      m_status(onLockedLayer(peca) ? Acad::eOnLockedLayer
                                   : acdbOpenObject(m_peca, peca, AcDb::kForWrite)) {
    if (m_status != Acad::eOk) {
        m_peca = nullptr;
        return;
    }
    m_before = formerOf(*m_peca);
    for (const AcDbObjectId& id : chapasOf(*m_peca)) {
        const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForRead);
        if (chapa.object() == nullptr) continue;
        m_chapas.push_back(id);
        m_chapasBefore.push_back(formerOf(*chapa.object()));
    }
    m_peca->assertWriteEnabled();
    Peca& p = Access::of(*m_peca);
    m_angle = std::exchange(p.angle, 0.0);
    m_mirrored = std::exchange(p.mirrored, false);
}

Edit::~Edit() { close(); }

void Edit::close() {
    if (m_peca == nullptr) return;
    Peca& p = Access::of(*m_peca);
    p.angle = m_angle;
    p.mirrored = m_mirrored;
    m_peca->recordGraphicsModified();
    (void)m_peca->close();
    m_peca = nullptr;
}

Acad::ErrorStatus Edit::remake(const ZpObject& model, std::span<const ChangedCota> cotas) {
    Peca& p = Access::of(*m_peca);
    const Peca& fresh = Access::of(model);
    if (fresh.kind != p.kind) return Acad::eNotThatKindOfClass;
    if (p.links) {
        const PictureMap pictureMap(p, fresh);
        for (Link& l : *p.links) carry(p, fresh, pictureMap, cotas, l);
    }
    const bool otherForm = fresh.form != p.form;
    copyValues(fresh, p);
    if (otherForm) p.points = {p.start, p.end()};
    return Acad::eOk;
}

bool Edit::remakeChapa(AcDbObjectId id, const ZpChapa& model) {
    const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForWrite);
    if (chapa.object() == nullptr) return false;
    chapa->assertWriteEnabled();
    Peca& p = Access::of(*chapa.object());
    const Peca& fresh = Access::of(model);
    const std::uint8_t role = p.tipoBarra;
    copyValues(fresh, p);
    p.tipoBarra = role;
    p.points = fresh.points;
    p.start = fresh.start;
    p.angle = fresh.angle;
    p.mirrored = fresh.mirrored;
    chapa->recordGraphicsModified();
    learn(*m_peca, *chapa.object());
    return true;
}

void Edit::eraseLinked(AcDbObjectId linked) {
    if (onLockedLayer(linked)) {
        watch::stays(linked);
        return;
    }
    AcDbEntity* entity = nullptr;
    if (acdbOpenAcDbEntity(entity, linked, AcDb::kForWrite) != Acad::eOk) return;
    (void)entity->erase();  // open for write and alive
    (void)entity->close();
    Access::of(*m_peca).untie(linked);
}

void Edit::finish() {
    if (m_peca == nullptr) return;
    close();
    {
        const AcDbObjectPointer<ZpObject> peca(m_id, AcDb::kForRead);
        // What cannot be opened now follows at the end of the command, where the user is told of
        // what does not.
        if (peca.object() != nullptr)
            putLinked(*peca.object(), {[](AcDbObjectId) {}, [](AcDbObjectId) { return true; }});
    }
    notify(m_id, m_before);
    for (std::size_t i = 0; i < m_chapas.size(); ++i)
        if (!m_chapas[i].isErased()) notify(m_chapas[i], m_chapasBefore[i]);
}

void notify(AcDbObjectId peca, const Former& before) {
    // A listener may take itself away.
    const std::vector<Listener*> all = listeners();
    for (Listener* listener : all) listener->edited(peca, before);
}

void notifyChangedAlone(const std::vector<Change>& changes) {
    const std::vector<Listener*> all = listeners();
    for (Listener* listener : all) listener->changedAlone(changes);
}

std::wstring refusalOf(const ZpObject& peca, const ZpObject& model) {
    if (std::wstring reason = cortes::fault(Access::of(model)); !reason.empty()) return reason;
    for (Listener* listener : listeners())
        if (std::wstring reason = listener->refusal(peca, model); !reason.empty()) return reason;
    return {};
}

std::optional<std::vector<AcDbObjectId>> alikeOf(const ZpObject& peca, const ZpObject& model) {
    std::vector<AcDbObjectId> all;
    for (Listener* listener : listeners()) {
        const auto some = listener->alike(peca, model);
        if (!some) return {};
        all.insert(all.end(), some->begin(), some->end());
    }
    return all;
}

void setVistaMaker(VistaMaker maker) { g_vistaMaker = maker; }

VistaMaker vistaMaker() { return g_vistaMaker; }

void addListener(Listener* listener) { listeners().push_back(listener); }

void removeListener(Listener* listener) { std::erase(listeners(), listener); }

}  // namespace zp::edit
