// SPDX-License-Identifier: MIT
// Links: learning and placing.
#include "zp/objects/links.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <utility>

#include "acutads.h"
#include "dbdim.h"
#include "zp/buffer_chain.h"
#include "zp/objects/barra_data.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"

namespace zp {
namespace {

/// Chains of followers longer than this are a ring.
constexpr int kMaxDepth = 8;

bool atEnd(const Peca& p, double x) { return cortes::onEnd(p, {x, 0.0, 0.0}); }

LearntPoint learnt(const Peca& p, const AcGePoint3d& point, bool toEnd) {
    LearntPoint a;
    a.offset = p.frame().toLocal(point);
    a.atEnd = toEnd || cortes::onEnd(p, a.offset);
    if (a.atEnd) a.offset.x -= p.comprimento;
    return a;
}

AcGePoint3d place(const Peca& p, const LearntPoint& a) {
    return p.frame().toWorld(a.offset.x + (a.atEnd ? p.comprimento : 0.0), a.offset.y, a.offset.z);
}

/// Largest x of a piece's picture in the frame of another one.
double rightEdge(const Peca& p, const ZpObject& other) {
    AcGePoint3d f[4];
    other.GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
    double largest = -1e300;
    for (const AcGePoint3d& point : f) largest = std::max(largest, p.frame().toLocal(point).x);
    return largest;
}

/// How far the picture of a plate goes from its start: in one attitude the measure of its size.
double reach(const Peca& chapa) {
    const secao::Bounds c = chapa.picture();
    return std::hypot(c.x1, c.y1);
}

void learnCota(const Peca& p, const AcDbAlignedDimension& cota, Link& l) {
    l.points[0] = learnt(p, cota.xLine1Point(), false);
    l.points[1] = learnt(p, cota.xLine2Point(), false);
    const LearntPoint from = l.points[0];
    const LearntPoint to = l.points[1];
    const bool ofEnd = from.atEnd && to.atEnd;
    l.points[2] = learnt(p, cota.dimLinePoint(), ofEnd);
    l.count = 3;
    if (cota.isUsingDefaultTextPosition()) return;
    l.points[3] = learnt(p, cota.textPosition(), ofEnd);
    l.count = 4;
}

void learnPeca(const Peca& p, const ZpObject& object, Link& l) {
    const Peca& other = Access::of(object);
    const LearntPoint start = learnt(p, other.start, atEnd(p, rightEdge(p, object)));
    l.points[0] = start;
    l.count = 1;
    if (other.chapa()) {
        l.points[1] = {start.offset + AcGeVector3d(reach(other), 0.0, 0.0), start.atEnd};
        l.count = 2;
    }
    const double relative = other.angle - p.angle;
    l.angle = angleOf(direction(p.mirrored ? -relative : relative));
    l.mirrored = other.mirrored != p.mirrored;
}

void learnIn(const Peca& p, const AcDbEntity& entity, Link& l) {
    if (const auto* object = ZpObject::cast(&entity))
        learnPeca(p, *object, l);
    else if (const auto* cota = AcDbAlignedDimension::cast(&entity))
        learnCota(p, *cota, l);
}

bool near(const AcGePoint3d& a, const AcGePoint3d& b) {
    const double size = std::max({1.0, std::abs(a.x), std::abs(a.y), std::abs(a.z)});
    return a.distanceTo(b) <= 1e-10 * size;
}

enum class Put { There, Moved, Held };

/// Moved when the entity is ready for it.
Put openToPut(AcDbEntity& entity, const Following& following) {
    if (edit::onLockedLayer(entity) && following.stays(entity.objectId())) return Put::There;
    return entity.upgradeOpen() == Acad::eOk ? Put::Moved : Put::Held;
}

/// Opens for write only what really moves, so that nothing unchanged enters the undo step.
Put putCota(const Peca& p, const Link& l, AcDbAlignedDimension& cota, const Following& following) {
    const AcGePoint3d target[4] = {place(p, l.points[0]), place(p, l.points[1]),
                                   place(p, l.points[2]), place(p, l.points[3])};
    const bool withText = l.count == 4 && !cota.isUsingDefaultTextPosition();
    if (near(target[0], cota.xLine1Point()) && near(target[1], cota.xLine2Point()) &&
        near(target[2], cota.dimLinePoint()) && (!withText || near(target[3], cota.textPosition())))
        return Put::There;
    if (const Put how = openToPut(cota, following); how != Put::Moved) return how;
    (void)cota.setXLine1Point(target[0]);  // open for write: cannot fail
    (void)cota.setXLine2Point(target[1]);
    (void)cota.setDimLinePoint(target[2]);
    if (withText) (void)cota.setTextPosition(target[3]);
    return Put::Moved;
}

/// How many times as large a plate is to be as it is; 1 where nobody knows.
double growth(const Link& l, const ZpObject& object) {
    if (l.count < 2 || !Access::of(object).chapa()) return 1.0;
    const double is = reach(Access::of(object));
    const AcGeVector3d learnt =
        std::as_const(l.points)[1].offset - std::as_const(l.points)[0].offset;
    const double k = is > 0.0 ? learnt.length() / is : 0.0;
    return k > 0.0 && std::isfinite(k) && std::abs(k - 1.0) > 1e-9 ? k : 1.0;
}

Put putPeca(const Peca& p, const Link& l, ZpObject& object, const Following& following) {
    Peca& other = Access::of(object);
    const AcGePoint3d start = place(p, l.points[0]);
    const double angle = angleOf(direction(p.angle + (p.mirrored ? -l.angle : l.angle)));
    const bool mirrored = p.mirrored != l.mirrored;
    const AcGeVector3d deviation = direction(angle) - direction(other.angle);
    const double k = growth(l, object);
    if (near(start, other.start) && deviation.length() <= 1e-12 && mirrored == other.mirrored &&
        k == 1.0)
        return Put::There;
    if (const Put how = openToPut(object, following); how != Put::Moved) return how;
    object.assertWriteEnabled();
    if (k != 1.0) other.scale(k);
    other.start = start;
    other.angle = angle;
    other.mirrored = mirrored;
    object.recordGraphicsModified();
    return Put::Moved;
}

Put putEntity(const Peca& p, const Link& l, AcDbEntity& entity, const Following& following) {
    if (auto* object = ZpObject::cast(&entity)) return putPeca(p, l, *object, following);
    auto* cota = AcDbAlignedDimension::cast(&entity);
    return cota != nullptr ? putCota(p, l, *cota, following) : Put::There;
}

AcDbObjectId idFromText(AcDbDatabase* drawing, const ACHAR* text) {
    AcDbObjectId id;
    if (drawing != nullptr && text != nullptr)
        (void)drawing->getAcDbObjectId(
            id, false, AcDbHandle(std::wcstoull(text, nullptr, 16)));  // null: unknown
    return id;
}

void writeOwners(AcDbEntity& entity, const std::vector<AcDbObjectId>& owners) {
    if (entity.database() == nullptr || !registerApplication(*entity.database(), kLinkApplication))
        return;
    const BufferChain list(acutBuildList(AcDb::kDxfRegAppName, kLinkApplication, RTNONE));
    resbuf* last = list.get();
    for (const AcDbObjectId& id : owners) {
        ACHAR text[17];
        id.handle().getIntoAsciiBuffer(text);
        last->rbnext = acutBuildList(AcDb::kDxfXdHandle, text, RTNONE);
        last = last->rbnext;
    }
    (void)entity.setXData(list.get());  // registered name, few handles
}

}  // namespace

std::vector<AcDbObjectId> ownersOf(const AcDbEntity& entity) {
    std::vector<AcDbObjectId> owners;
    if (const auto* object = ZpObject::cast(&entity)) {
        for (const Link& l : Access::of(*object).linked())
            if (l.role == Link::Role::Owner) owners.push_back(l.id);
        return owners;
    }
    const BufferChain list(entity.xData(kLinkApplication));
    for (const resbuf* r = list.get(); r != nullptr; r = r->rbnext) {
        if (r->restype != AcDb::kDxfXdHandle) continue;
        const AcDbObjectId id = idFromText(entity.database(), r->resval.rstring);
        if (!id.isNull()) owners.push_back(id);
    }
    return owners;
}

void removeOwner(AcDbEntity& entity, AcDbObjectId owner) {
    if (auto* object = ZpObject::cast(&entity)) {
        if (Access::of(*object).link(owner) == nullptr) return;
        object->assertWriteEnabled();
        Access::of(*object).untie(owner);
        return;
    }
    std::vector<AcDbObjectId> owners = ownersOf(entity);
    if (std::erase(owners, owner) > 0) writeOwners(entity, owners);
}

void addOwner(AcDbEntity& entity, AcDbObjectId owner) {
    std::vector<AcDbObjectId> owners = ownersOf(entity);
    if (std::find(owners.begin(), owners.end(), owner) != owners.end()) return;
    if (auto* object = ZpObject::cast(&entity)) {
        object->assertWriteEnabled();
        Link l;
        l.id = AcDbSoftPointerId(owner);
        l.role = Link::Role::Owner;
        Access::of(*object).add(l);
        return;
    }
    owners.push_back(owner);
    writeOwners(entity, owners);
}

Acad::ErrorStatus tie(ZpObject& peca, const AcDbObjectId& other, Link::Role role) {
    if (other.isNull()) return Acad::eNullObjectId;
    if (peca.database() == nullptr) return Acad::eNoDatabase;
    if (other == peca.objectId()) return Acad::eInvalidInput;
    Peca& p = Access::of(peca);
    if (p.link(other) != nullptr) return Acad::eOk;
    AcDbEntity* opened = nullptr;
    const Acad::ErrorStatus es = acdbOpenAcDbEntity(opened, other, AcDb::kForWrite);
    if (es != Acad::eOk) return es;
    if (role == Link::Role::Follows && !opened->isKindOf(ZpObject::desc())) {
        (void)opened->close();
        return Acad::eNotThatKindOfClass;
    }
    Link l;
    l.id = AcDbSoftPointerId(other);
    l.role = opened->isKindOf(ZpObject::desc()) ? Link::Role::Follows : Link::Role::Cota;
    learnIn(p, *opened, l);
    addOwner(*opened, peca.objectId());
    (void)opened->close();
    peca.assertWriteEnabled();
    p.add(l);
    return Acad::eOk;
}

void learn(ZpObject& peca, const AcDbEntity& entity) {
    Peca& p = Access::of(peca);
    if (p.link(entity.objectId()) == nullptr) return;
    peca.assertWriteEnabled();
    learnIn(p, entity, *p.link(entity.objectId()));
}

bool strayed(const ZpObject& peca, const AcDbEntity& entity) {
    const Peca& p = Access::of(peca);
    const auto l = std::ranges::find(p.linked(), entity.objectId(), &Link::id);
    if (l == p.linked().end() || l->count == 0) return false;
    if (const auto* object = ZpObject::cast(&entity))
        return !near(place(p, l->points[0]), Access::of(*object).start);
    const auto* cota = AcDbAlignedDimension::cast(&entity);
    return cota != nullptr && !(near(place(p, l->points[0]), cota->xLine1Point()) &&
                                near(place(p, l->points[1]), cota->xLine2Point()));
}

namespace {

void putLink(const ZpObject& peca, const Link& l, const Following& following, int depth) {
    if (l.role == Link::Role::Owner || l.count == 0) return;
    AcDbEntity* other = nullptr;
    const Acad::ErrorStatus es = acdbOpenAcDbEntity(other, l.id, AcDb::kForRead);
    if (es != Acad::eOk) {
        if (es == Acad::eWasOpenForWrite || es == Acad::eAtMaxReaders)
            following.held(peca.objectId());
        return;
    }
    // A copy that another program made names what is tied to its original.
    const std::vector<AcDbObjectId> owners = ownersOf(*other);
    const bool itsOwn = std::find(owners.begin(), owners.end(), peca.objectId()) != owners.end();
    const Put how = itsOwn ? putEntity(Access::of(peca), l, *other, following) : Put::There;
    if (how == Put::Held) following.held(peca.objectId());
    const auto* object = ZpObject::cast(other);
    if (object != nullptr && how == Put::Moved) putLinked(*object, following, depth + 1);
    (void)other->close();
}

}  // namespace

void putLinked(const ZpObject& peca, const Following& following, int depth) {
    if (depth > kMaxDepth) return;
    for (const Link& l : Access::of(peca).linked()) putLink(peca, l, following, depth);
}

void putBack(const ZpObject& peca, AcDbObjectId linked, const Following& following) {
    for (const Link& l : Access::of(peca).linked())
        if (l.id == linked) putLink(peca, l, following, 0);
}

int chapasBeyondBarra(const ZpObject& peca) {
    const Peca& p = Access::of(peca);
    if (p.inSecao()) return 0;
    int outside = 0;
    for (const Link& l : p.linked()) {
        if (l.role != Link::Role::Follows) continue;
        const AcDbObjectPointer<ZpObject> other(l.id, AcDb::kForRead);
        if (other.object() == nullptr) continue;
        if (rightEdge(p, *other.object()) > p.comprimento * (1.0 + 1e-6)) ++outside;
    }
    return outside;
}

}  // namespace zp
