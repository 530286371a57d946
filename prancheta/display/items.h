// SPDX-License-Identifier: MIT
// The items behind a display list: what the drawing's reactor noted, brought up to date.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "dbapserv.h"
#include "prancheta/display/change_log.h"
#include "prancheta/display/id_table.h"
#include "prancheta/display/picture_cache.h"
#include "prancheta/display/spatial_index.h"

namespace prancheta {

/// An item's number is the entity's place in its space, which never changes: erased entities keep
/// theirs, so undo finds it again.
class DisplayItems : public AcDbDatabaseReactor {
public:
    using Number = std::uint32_t;
    static constexpr Number kNone = IdTable::kNone;

    /// With an `annotations` above 0 only the annotations of the space, so many times as large; all
    /// else draws nothing.
    DisplayItems(AcDbDatabase& database, AcDbObjectId space, double annotations = 0.0);
    ~DisplayItems() override;

    /// Brings everything up to date; nothing while a query is going on.
    void update();
    void invalidate();

    Number find(AcDbObjectId id) const;
    AcDbObjectId id(Number item) const { return m_items[item].id; }
    AcDbObjectId layer(Number item) const { return m_layers[m_items[item].layer].id; }
    Box2d box(Number item) const { return m_index.box(item); }
    /// Greater numbers are drawn later.
    std::uint32_t order(Number item) const { return item < m_order.size() ? m_order[item] : item; }
    /// Without lines that have no end.
    Box2d finiteBox(Number item) const {
        const auto at = m_finite.find(item);
        return at == m_finite.end() ? box(item) : at->second;
    }
    bool displayed(Number item) const {
        return m_items[item].visible && !m_layers[m_items[item].layer].hidden;
    }
    /// Of the items that a list of annotations has; of any other list none.
    bool replaces(Number item) const { return item < m_items.size() && m_items[item].replaces; }
    AcDbDatabase& database() const { return m_database; }
    AcDbObjectId space() const { return m_wanted; }
    const SpatialIndex& index() const { return m_index; }
    const ChangeLog& changes() const { return m_changes; }
    Box2d extents();
    std::size_t size();
    AcDbObjectId last() const;
    const Picture& picture(AcDbObjectId id);

    /// Keeps update() from changing the index under a query.
    class Visiting {
    public:
        explicit Visiting(DisplayItems& items) : m_items(items) { ++m_items.m_visiting; }
        ~Visiting() { --m_items.m_visiting; }
        Visiting(const Visiting&) = delete;
        Visiting& operator=(const Visiting&) = delete;

    private:
        DisplayItems& m_items;
    };

    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override { note(object); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* object) override { note(object); }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* object) override { note(object); }
    void objectModified(const AcDbDatabase*, const AcDbObject* object) override { note(object); }
    void objectErased(const AcDbDatabase*, const AcDbObject* object, Adesk::Boolean) override {
        note(object);
    }

private:
    struct Item {
        AcDbObjectId id;
        std::uint32_t layer = 0;
        bool visible = false;   ///< neither erased nor invisible, and could be read
        bool waiting = false;   ///< open for write when it was looked at
        bool replaces = false;  ///< an annotation of a list of these
    };
    /// What of a layer is seen.
    struct Layer {
        AcDbObjectId id;
        AcDbObjectId linetype;
        int color = 7;
        std::optional<Rgb> trueColor;
        int lineWeight = 0;
        bool hidden = false;
        bool operator==(const Layer&) const = default;
    };

    AcDbObjectId wantedSpace() const {
        return m_wanted.isNull() ? m_database.currentSpaceId() : m_wanted;
    }
    void note(const AcDbObject* object);
    void noteRecord(const AcDbObject* object);
    void noteOrder(AcDbObjectId block);
    void build();
    void addNewItems();
    void updateOrder();
    void refresh(Number item);
    bool recordInto(Picture& picture, AcDbEntity& entity);
    void refreshWaiting();
    void refreshUsersOf(AcDbStub* block);
    void noteUse(AcDbStub* block, Number item);
    void updateLayers();
    static void updateLayer(Layer& layer);
    std::uint32_t layerNumber(AcDbObjectId id);
    void count();

    AcDbDatabase& m_database;
    AcDbObjectId m_wanted;  ///< null: the current one
    double m_annotations;   ///< factor of annotations; 0: all is shown as it is
    AcDbObjectId m_space;
    std::vector<Item> m_items;
    std::vector<std::uint32_t> m_order;  ///< empty: as they stand in the space
    IdTable m_numbers;
    SpatialIndex m_index;
    std::unordered_map<Number, Box2d> m_finite;  ///< of items that have lines without an end
    PictureCache m_pictures;
    ChangeLog m_changes;
    std::vector<Layer> m_layers;
    std::unordered_map<AcDbStub*, std::uint32_t> m_layerNumbers;
    /// Items that show a block, directly or inside another; null for those that miss one.
    struct Users {
        std::vector<Number> items;  ///< may repeat
        std::size_t compactAt = 32;
    };
    std::unordered_map<AcDbStub*, Users> m_users;
    std::unordered_set<Number> m_mixed;  ///< items that draw on other layers than their own
    std::size_t m_ordered = 0;  ///< items from here on have greater handles than all before them
    AcDbHandle m_greatest;

    // What the reactor noted.
    bool m_stale = true;
    bool m_layersChanged = false;
    bool m_looksChanged = false;
    bool m_orderChanged = false;
    std::vector<AcDbObjectId> m_touched;
    std::unordered_set<AcDbStub*> m_blocks;

    // Sums over the displayed items.
    Box2d m_extents;
    std::size_t m_size = 0;
    bool m_counted = false;

    Picture m_scratch;
    int m_visiting = 0;
};

}  // namespace prancheta
