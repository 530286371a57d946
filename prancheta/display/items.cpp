// SPDX-License-Identifier: MIT
// The items behind a display list. Cost of bringing them up to date: what changed; O(n log n) once
// for the first query and after invalidate().
#include "prancheta/display/items.h"

#include <algorithm>
#include <utility>

#include "dbsymtb.h"
#include "prancheta/database/draw_order.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/object_access.h"
#include "prancheta/display/annotations.h"
#include "prancheta/display/visible_part.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/viewports.h"

namespace prancheta {
namespace {

constexpr std::size_t kPictureBytes = 160u << 20;

const AcDbBlockTableRecord* blockOf(AcDbObjectId id) {
    const AcDbStub* stub = id;
    return stub != nullptr ? AcDbBlockTableRecord::cast(stub->object) : nullptr;
}

bool onBorder(const Box2d& box, const Box2d& whole) {
    return box.left <= whole.left || box.right >= whole.right || box.bottom <= whole.bottom ||
           box.top >= whole.top;
}

}  // namespace

DisplayItems::DisplayItems(AcDbDatabase& database, AcDbObjectId space, double annotations)
    : m_database(database), m_wanted(space), m_annotations(annotations), m_pictures(kPictureBytes) {
    m_database.addReactor(this);
}
DisplayItems::~DisplayItems() { m_database.removeReactor(this); }

// --- What the reactor notes ----------------------------------------------------------------------

void DisplayItems::note(const AcDbObject* object) {
    if (m_stale) return;
    if (!object->isKindOf(AcDbEntity::desc())) return noteRecord(object);
    if (object->ownerId() != m_space) m_blocks.insert(object->ownerId());
    // One that was moved elsewhere may have been here.
    if (object->ownerId() != m_space && find(object->objectId()) == kNone) return;
    if (!m_touched.empty() && m_touched.back() == object->objectId()) return;
    m_touched.push_back(object->objectId());
    if (m_touched.size() <= m_items.size() + 4096) return;
    // Nobody looks: building anew is cheaper than following without end.
    m_stale = true;
    m_touched = std::vector<AcDbObjectId>();
}

void DisplayItems::noteRecord(const AcDbObject* object) {
    if (object->isKindOf(AcDbLayerTableRecord::desc())) {
        m_layersChanged = true;
    } else if (object->isKindOf(AcDbLinetypeTableRecord::desc())) {
        m_looksChanged = true;
    } else if (object->isKindOf(AcDbTextStyleTableRecord::desc()) ||
               object->isKindOf(AcDbDimStyleTableRecord::desc())) {
        m_stale = true;
    } else if (object->isKindOf(AcDbBlockTableRecord::desc()) && object->objectId() != m_space) {
        m_blocks.insert(object->objectId());
        m_blocks.insert(nullptr);  // its name may be the one that was missing
    } else if (const auto* const order = DrawOrderTable::cast(object)) {
        noteOrder(blockOf(*order));
    }
}

void DisplayItems::noteOrder(AcDbObjectId block) {
    if (block == m_space)
        m_orderChanged = true;
    else
        m_blocks.insert(block);
}

void DisplayItems::invalidate() { m_stale = true; }

// --- Bringing up to date -------------------------------------------------------------------------

void DisplayItems::update() {
    if (m_visiting > 0) return;
    if (m_space != wantedSpace()) m_stale = true;
    if (m_stale) {
        build();
    } else {
        if (m_layersChanged) updateLayers();
        if (m_looksChanged || m_orderChanged) m_changes.addEverywhere();
        if (!m_touched.empty()) {
            addNewItems();
            refreshWaiting();
        }
        for (AcDbStub* block : std::exchange(m_blocks, {})) refreshUsersOf(block);
        if (m_orderChanged) updateOrder();
    }
    m_layersChanged = m_looksChanged = m_orderChanged = false;
    m_changes.commit();
}

void DisplayItems::build() {
    m_space = wantedSpace();
    m_items.clear();
    m_numbers.clear();
    m_index.clear();
    m_pictures.clear();
    m_layers.clear();
    m_layerNumbers.clear();
    m_users.clear();
    m_mixed.clear();
    m_touched.clear();
    m_blocks.clear();
    m_ordered = 0;
    m_greatest = AcDbHandle();
    m_counted = false;
    m_stale = false;
    if (const AcDbBlockTableRecord* space = blockOf(m_space)) {
        m_items.reserve(ObjectAccess::entities(*space).size());
        m_index.reserve(ObjectAccess::entities(*space).size());
        addNewItems();
        for (Number item = 0; item < m_items.size(); ++item) refresh(item);
    }
    updateOrder();
    m_changes.addEverywhere();
}

/// Those that come later are on top, and need no place.
void DisplayItems::updateOrder() {
    m_order.clear();
    const AcDbBlockTableRecord* const space = blockOf(m_space);
    if (space == nullptr || !hasDrawOrder(*space)) return;
    addNewItems();
    m_order.resize(m_items.size());
    std::uint32_t next = 0;
    for (const AcDbObjectId id : drawOrder(*space)) m_order[find(id)] = next++;
}

void DisplayItems::addNewItems() {
    const AcDbBlockTableRecord* space = blockOf(m_space);
    if (space == nullptr) return;
    const std::vector<AcDbObjectId>& all = ObjectAccess::entities(*space);
    if (m_items.capacity() < all.size()) m_items.reserve(all.size() + all.size() / 4);
    const auto idAt = [this](Number item) { return m_items[item].id; };
    while (m_items.size() < all.size()) {
        const AcDbObjectId id = all[m_items.size()];
        if (id.handle() < m_greatest) m_ordered = m_items.size() + 1;
        m_greatest = std::max(m_greatest, id.handle());
        m_items.push_back({id, layerNumber(AcDbObjectId())});
        m_numbers.add(id, static_cast<Number>(m_items.size() - 1), idAt);
    }
}

/// Those that are open for write wait for the next time.
void DisplayItems::refreshWaiting() {
    std::vector<AcDbObjectId> touched = std::exchange(m_touched, {});
    std::sort(touched.begin(), touched.end());
    touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
    for (const AcDbObjectId& id : touched)
        if (const Number item = find(id); item != kNone) refresh(item);
}

void DisplayItems::refreshUsersOf(AcDbStub* block) {
    const auto at = m_users.find(block);
    if (at == m_users.end()) return;
    std::vector<Number> items = std::move(at->second.items);
    m_users.erase(at);
    std::sort(items.begin(), items.end());
    items.erase(std::unique(items.begin(), items.end()), items.end());
    for (const Number item : items) refresh(item);
}

void DisplayItems::noteUse(AcDbStub* block, Number item) {
    Users& users = m_users[block];
    if (!users.items.empty() && users.items.back() == item) return;
    users.items.push_back(item);
    if (users.items.size() < users.compactAt) return;
    std::sort(users.items.begin(), users.items.end());
    users.items.erase(std::unique(users.items.begin(), users.items.end()), users.items.end());
    users.compactAt = users.items.size() * 2 + 32;
}

void DisplayItems::refresh(Number number) {
    Item& item = m_items[number];
    const Box2d former = displayed(number) ? box(number) : Box2d();
    const Box2d formerFinite = displayed(number) ? finiteBox(number) : Box2d();
    m_pictures.erase(number);
    item.visible = item.waiting = false;
    Box2d now;
    Box2d finite;
    const AcDbObjectPointer<AcDbEntity> entity(item.id, AcDb::kForRead);
    if (entity.openStatus() == Acad::eOk && entity->ownerId() == m_space) {
        item.visible = entity->visibility() == AcDb::kVisible && !isSheetsOwn(item.id);
        item.layer = layerNumber(entity->layerId());
        item.replaces = m_annotations > 0.0 && isAnnotation(*entity.object());
        const BlocksDrawn drawn;
        if (recordInto(m_scratch, *entity.object())) m_mixed.insert(number);
        for (AcDbStub* block : drawn.blocks) noteUse(block, number);
        now = boxOf(m_scratch.reach());
        finite = boxOf(m_scratch.extents());
    } else if (entity.openStatus() == Acad::eWasOpenForWrite) {
        item.waiting = true;
        m_touched.push_back(item.id);
    }
    m_index.set(number, now);
    m_finite.erase(number);
    if (now.width() != finite.width() || now.height() != finite.height())
        m_finite.emplace(number, finite);
    if (!displayed(number)) now = finite = Box2d();
    if (former.empty() && now.empty()) return;
    m_changes.add(former);
    m_changes.add(now);
    if (!m_counted) return;
    if (!former.empty()) --m_size;
    if (!now.empty()) ++m_size;
    // The last item of a border takes the border with it.
    if (!formerFinite.empty() && onBorder(formerFinite, m_extents)) m_counted = false;
    m_extents.add(finite);
}

/// Without what blocks draw on hidden layers; what is on the entity's own layer shows or hides with
/// the item. True when other layers are drawn on.
bool DisplayItems::recordInto(Picture& picture, AcDbEntity& entity) {
    picture.clear();
    if (m_annotations == 0.0)
        recordPicture(entity, picture);
    else if (isAnnotation(entity))
        recordAnnotation(entity, picture, m_annotations);
    const AcDbObjectId own = entity.layerId();
    const std::vector<PictureTraits>& traits = picture.allTraits();
    bool mixed = false;
    std::vector<bool> hidden;
    for (std::size_t i = 0; i < traits.size(); ++i) {
        if (traits[i].layer == own) continue;
        mixed = true;
        if (!m_layers[layerNumber(traits[i].layer)].hidden) continue;
        hidden.resize(traits.size());
        hidden[i] = true;
    }
    if (!hidden.empty()) picture = visiblePart(picture, hidden);
    return mixed;
}

DisplayItems::Number DisplayItems::find(AcDbObjectId id) const {
    return m_numbers.find(id, [this](Number item) { return m_items[item].id; });
}

// --- Layers --------------------------------------------------------------------------------------

std::uint32_t DisplayItems::layerNumber(AcDbObjectId id) {
    const auto [at, isNew] =
        m_layerNumbers.try_emplace(id, static_cast<std::uint32_t>(m_layers.size()));
    if (isNew) {
        m_layers.emplace_back().id = id;
        updateLayer(m_layers.back());
    }
    return at->second;
}

void DisplayItems::updateLayer(Layer& layer) {
    // Read as it stands, also while a dialog holds it open for write.
    const AcDbStub* stub = layer.id;
    const auto* record = stub != nullptr ? AcDbLayerTableRecord::cast(stub->object) : nullptr;
    if (record == nullptr) return;
    layer.linetype = record->linetypeObjectId();
    layer.color = record->colorIndex();
    layer.trueColor = ObjectAccess::trueColor(*record);
    layer.lineWeight = static_cast<int>(record->lineWeight());
    layer.hidden = !stub->erased && (record->isOff() || record->isFrozen());
}

void DisplayItems::updateLayers() {
    bool someHidden = false;
    for (Layer& layer : m_layers) {
        const Layer former = layer;
        updateLayer(layer);
        if (layer == former) continue;
        m_changes.addEverywhere();
        someHidden = someHidden || layer.hidden != former.hidden;
    }
    if (!someHidden) return;
    m_counted = false;
    for (const Number item : std::exchange(m_mixed, {})) refresh(item);
}

// --- Answers -------------------------------------------------------------------------------------

void DisplayItems::count() {
    if (m_counted) return;
    m_counted = true;
    m_extents = Box2d();
    m_size = 0;
    for (Number item = 0; item < m_items.size(); ++item) {
        if (!displayed(item)) continue;
        m_extents.add(finiteBox(item));
        if (!box(item).empty()) ++m_size;
    }
}

Box2d DisplayItems::extents() {
    count();
    return m_extents;
}

std::size_t DisplayItems::size() {
    count();
    return m_size;
}

// Entities are appended with rising handles; only files bring others.
AcDbObjectId DisplayItems::last() const {
    std::size_t item = m_items.size();
    const auto counts = [this](std::size_t at) {
        return m_items[at].waiting || displayed(static_cast<Number>(at));
    };
    while (item > m_ordered)
        if (counts(--item)) return m_items[item].id;
    AcDbObjectId best;
    while (item-- > 0)
        if (counts(item) && (best.isNull() || best.handle() < m_items[item].id.handle()))
            best = m_items[item].id;
    return best;
}

const Picture& DisplayItems::picture(AcDbObjectId id) {
    const Number item = find(id);
    if (item != kNone)
        if (const Picture* kept = m_pictures.find(item)) return *kept;
    m_scratch.clear();
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return m_scratch;
    (void)recordInto(m_scratch, *entity.object());  // known to be mixed since refresh()
    // A copy takes no more room than it needs.
    return item != kNone ? m_pictures.put(item, m_scratch) : m_scratch;
}

}  // namespace prancheta
