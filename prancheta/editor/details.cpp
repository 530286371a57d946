// SPDX-License-Identifier: MIT
// Details as the drawing keeps them.
#include "prancheta/editor/details.h"

#include <algorithm>
#include <cmath>

#include "acutads.h"
#include "dbdict.h"
#include "dbents.h"
#include "dbxrecrd.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/value_list.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/entities/plane_curve.h"

namespace prancheta {

namespace {

constexpr const ACHAR* kEntry = L"PRANCHETA_DETALHES";

// Groups of a record.
constexpr int kState = 70;
constexpr int kScale = 40;
constexpr int kDrawnFor = 41;
struct BoxGroup {
    int lower;
    int upper;
    Box2d Detail::*box;
};
constexpr BoxGroup kBoxes[] = {{10, 11, &Detail::region},
                               {12, 13, &Detail::frame},
                               {14, 15, &Detail::letterAt},
                               {16, 17, &Detail::labelAt}};
struct Part {
    int group;
    AcDbObjectId Detail::*id;
};
constexpr Part kParts[] = {{330, &Detail::outline}, {331, &Detail::mark},  {332, &Detail::head},
                           {333, &Detail::block},   {334, &Detail::label}, {335, &Detail::border}};

AcDbObjectId folderOf(const AcDbDatabase& database) {
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(),
                                                 AcDb::kForRead);
    if (root.openStatus() == Acad::eOk) (void)root->getAt(kEntry, id);  // null: none yet
    return id;
}

AcDbObjectId makeFolder(AcDbDatabase& database) {
    AcDbObjectId id = folderOf(database);
    if (!id.isNull()) return id;
    const AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(),
                                                 AcDb::kForWrite);
    auto folder = std::make_unique<AcDbDictionary>();
    if (root.openStatus() == Acad::eOk && root->setAt(kEntry, folder.get(), id) == Acad::eOk)
        (void)folder.release()->close();
    return id;
}

Detail read(const std::wstring& letter, const resbuf* item) {
    Detail detail;
    detail.letter = letter;
    for (; item != nullptr; item = item->rbnext) {
        if (item->restype == kState)
            detail.state = static_cast<Detail::State>(std::clamp<int>(item->resval.rint, 0, 2));
        if (item->restype == kScale && item->resval.rreal > 0.0) detail.scale = item->resval.rreal;
        if (item->restype == kDrawnFor) detail.drawnFor = item->resval.rreal;
        for (const BoxGroup& each : kBoxes)
            if (item->restype == each.lower || item->restype == each.upper)
                (detail.*each.box).add(item->resval.rpoint[0], item->resval.rpoint[1]);
        for (const Part& part : kParts)
            if (part.group == item->restype)
                (void)acdbGetObjectId(detail.*part.id, item->resval.rlname);  // else null
    }
    return detail;
}

ListOwner write(const Detail& detail) {
    ListBuilder list;
    const auto add = [&list](int group, auto set) {
        resbuf* const item = acutNewRb(group);
        set(item->resval);
        list.add(item);
    };
    add(kState, [&](auto& v) { v.rint = static_cast<short>(detail.state); });
    add(kScale, [&](auto& v) { v.rreal = detail.scale; });
    add(kDrawnFor, [&](auto& v) { v.rreal = detail.drawnFor; });
    for (const BoxGroup& each : kBoxes) {
        const Box2d& box = detail.*each.box;
        if (box.empty()) continue;
        add(each.lower, [&](auto& v) { v.rpoint[0] = box.left, v.rpoint[1] = box.bottom; });
        add(each.upper, [&](auto& v) { v.rpoint[0] = box.right, v.rpoint[1] = box.top; });
    }
    for (const Part& part : kParts)
        if (const AcDbObjectId id = detail.*part.id; !id.isNull())
            add(part.group, [&](auto& v) { (void)acdbGetAdsName(v.rlname, id); });
    return ListOwner(list.release());
}

bool stands(AcDbObjectId id) { return id.isResident() && !id.isErased(); }

}  // namespace

std::vector<Detail> detailsOf(const AcDbDatabase& database) {
    std::vector<Detail> details;
    const AcDbObjectPointer<AcDbDictionary> folder(folderOf(database), AcDb::kForRead);
    if (folder.openStatus() != Acad::eOk) return details;
    const std::unique_ptr<AcDbDictionaryIterator> i(folder->newIterator());
    for (; i && !i->done(); i->next()) {
        const AcDbObjectPointer<AcDbXrecord> record(i->objectId(), AcDb::kForRead);
        if (record.openStatus() == Acad::eOk)
            details.push_back(read(i->name(), ObjectAccess::list(*record.object())));
    }
    std::ranges::sort(details, {},
                      [](const Detail& d) { return std::pair(d.letter.size(), d.letter); });
    return details;
}

bool keepDetail(AcDbDatabase& database, const Detail& detail) {
    const AcDbObjectPointer<AcDbDictionary> folder(makeFolder(database), AcDb::kForWrite);
    if (folder.openStatus() != Acad::eOk) return false;
    const ListOwner list = write(detail);
    AcDbObjectId id;
    if (folder->getAt(detail.letter.c_str(), id) == Acad::eOk) {
        const AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForWrite);
        return record.openStatus() == Acad::eOk && record->setFromRbChain(*list) == Acad::eOk;
    }
    auto record = std::make_unique<AcDbXrecord>();
    if (record->setFromRbChain(*list) != Acad::eOk ||
        folder->setAt(detail.letter.c_str(), record.get(), id) != Acad::eOk)
        return false;
    (void)record.release()->close();
    return true;
}

Detail detailShownBy(const AcDbDatabase& database, AcDbObjectId entity) {
    AcDbObjectId block;
    if (const AcDbObjectPointer<AcDbBlockReference> insertion(entity, AcDb::kForRead);
        insertion.openStatus() == Acad::eOk)
        block = insertion->blockTableRecord();
    for (const Detail& detail : detailsOf(database)) {
        if (!block.isNull() && block == detail.block) return detail;
        for (const Part& part : kParts)
            if (detail.*part.id == entity) return detail;
    }
    return {};
}

AcDbObjectId insertionOf(const AcDbDatabase& database, AcDbObjectId block, AcDbObjectId but) {
    for (const AcDbObjectId id : database.core().modelSpace()) {
        const AcDbObjectPointer<AcDbBlockReference> insertion(id, AcDb::kForRead);
        if (id != but && insertion.openStatus() == Acad::eOk &&
            insertion->blockTableRecord() == block)
            return id;
    }
    return {};
}

std::vector<AcDbObjectId> withLabels(const AcDbDatabase& database, std::vector<AcDbObjectId> ids) {
    for (const Detail& detail : detailsOf(database))
        if (stands(detail.label) && std::ranges::find(ids, detail.head) != ids.end() &&
            std::ranges::find(ids, detail.label) == ids.end())
            ids.push_back(detail.label);
    return ids;
}

AcDbObjectId recordOf(const AcDbDatabase& database, const Detail& detail) {
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbDictionary> folder(folderOf(database), AcDb::kForRead);
    if (folder.openStatus() == Acad::eOk) (void)folder->getAt(detail.letter.c_str(), id);
    return id;
}

void releaseDetail(AcDbDatabase& database, AcDbObjectId insertion) {
    Detail detail = detailShownBy(database, insertion);
    if (detail.head != insertion || detail.onSheet() ||
        !insertionOf(database, detail.block, insertion).isNull())
        return;
    detail.state = Detail::State::Parts;
    (void)keepDetail(database, detail);  // its record is there
}

double lengthFactorBetween(Editor& editor, const AcGePoint3d& a, const AcGePoint3d& b) {
    AcDbDatabase& database = editor.database();
    for (const Detail& detail : detailsOf(database)) {
        if (detail.onSheet() || !(detail.drawnFor > 0.0)) continue;
        const double factor = detail.drawnFor / detail.scale;
        const double x = detail.region.width() * factor / 2.0;
        const double y = detail.region.height() * factor / 2.0;
        const Box2d area = Box2d{-x, -y, x, y}.grown(1e-6 * std::max(x, y));
        for (const DisplayList::Item& item : editor.display().find({a.x, a.y, a.x, a.y})) {
            const AcDbObjectPointer<AcDbBlockReference> shown(item.id, AcDb::kForRead);
            if (shown.openStatus() != Acad::eOk || shown->blockTableRecord() != detail.block)
                continue;
            const AcGeMatrix3d inside = shown->blockTransform().inverse();
            const AcGePoint3d p = inside * a;
            const AcGePoint3d q = inside * b;
            if (area.contains(p.x, p.y) && area.contains(q.x, q.y)) return inside.scale() / factor;
        }
    }
    return 0.0;
}

bool isLetterInUse(const AcDbDatabase& database, const std::wstring& letter) {
    return std::ranges::any_of(detailsOf(database), [&](const Detail& detail) {
        return equalNoCase(detail.letter, letter) &&
               (detail.state == Detail::State::Parts || stands(detail.head));
    });
}

std::wstring freeLetter(const AcDbDatabase& database) {
    constexpr std::size_t kLetters = 26;
    for (std::size_t n = 0;; ++n) {
        std::wstring letter;
        for (std::size_t rest = n + 1; rest > 0; rest = (rest - 1) / kLetters)
            letter.insert(letter.begin(), static_cast<wchar_t>(L'A' + (rest - 1) % kLetters));
        if (!isLetterInUse(database, letter)) return letter;
    }
}

std::wstring detailLabel(const std::wstring& letter, double scale) {
    return L"DETALHE " + letter + L" - ESC. " + paperScaleText(scale);
}

AcGePoint3d letterPlace(const Box2d& region, bool round, double height) {
    const double gap = height / 2.0;
    if (!round) return {region.right + gap, region.top - height, 0.0};
    const double arm = (region.width() / 2.0 + gap) * std::sqrt(0.5);
    return {(region.left + region.right) / 2.0 + arm, (region.bottom + region.top) / 2.0 + arm,
            0.0};
}

std::unique_ptr<AcDbText> detailLabelText(const AcDbDatabase& database, const std::wstring& words,
                                          const AcGePoint3d& top, double unit) {
    constexpr int kCentred = 1;
    constexpr int kTop = 3;
    auto text = std::make_unique<AcDbText>(
        top, words.c_str(), database.core().current(DatabaseCore::kTextStyle), kDetailText * unit);
    (void)text->setHorizontalMode(kCentred);  // not resident
    (void)text->setVerticalMode(kTop);
    (void)text->setAlignmentPoint(top);
    return text;
}

Curve detailBorder(const AcDbEntity& outline) {
    const std::optional<Curve> curve = planeCurve(outline);
    if (!curve || !curve->closed()) return {};
    const bool round = curve->segments().size() == 1 && curve->segments().front().isCircular();
    if (round) return *curve;
    const Box2d& box = curve->box();
    if (!(box.width() > 0.0) || !(box.height() > 0.0)) return {};
    const Vec2 corners[] = {
        {box.left, box.bottom}, {box.right, box.bottom}, {box.right, box.top}, {box.left, box.top}};
    std::vector<Segment> sides;
    for (std::size_t i = 0; i < 4; ++i) sides.push_back(straight(corners[i], corners[(i + 1) % 4]));
    return {std::move(sides), true};
}

}  // namespace prancheta
