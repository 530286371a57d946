// SPDX-License-Identifier: MIT
// Colours, dashes and line weights of primitives.
#include "prancheta/display/appearance.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>

#include "dbsymtb.h"
#include "prancheta/database/object_access.h"

namespace prancheta {
namespace {

constexpr int kWhite = 7;
constexpr double kDefaultLineWeight = 0.25;

struct TraitsHash {
    std::size_t operator()(const PictureTraits& traits) const {
        std::size_t hash = std::hash<Adesk::LongPtr>()(traits.layer.asOldId());
        const auto mix = [&hash](std::size_t part) { hash = hash * 1000003u ^ part; };
        mix(std::hash<Adesk::LongPtr>()(traits.linetype.asOldId()));
        mix(std::hash<double>()(traits.linetypeScale));
        mix(traits.color);
        mix(static_cast<std::size_t>(traits.trueColor ? numberOf(*traits.trueColor) : -1));
        mix(static_cast<std::size_t>(traits.lineWeight));
        return hash;
    }
};

/// Pen down and up in turn, down first: neighbours of one sign joined, the pattern shifted so that
/// it begins with a dash and ends with a gap. Empty for a pattern that never lifts the pen.
std::vector<double> inTurn(const AcDbLinetypeTableRecord& linetype, double scale) {
    std::vector<double> pattern;
    bool down = false;
    for (int i = 0; i < linetype.numDashes(); ++i) {
        const double length = linetype.dashLengthAt(i);
        const bool isDown = !(length < 0.0);
        if (!pattern.empty() && isDown == down)
            pattern.back() += std::abs(length) * scale;
        else
            pattern.push_back(std::abs(length) * scale);
        down = isDown;
    }
    if (pattern.size() < 2) return {};
    const bool startsDown = !(linetype.dashLengthAt(0) < 0.0);
    if (pattern.size() % 2 != 0) {
        // Both ends are alike: they meet when the pattern repeats.
        pattern.front() += pattern.back();
        pattern.pop_back();
    }
    if (!startsDown) std::rotate(pattern.begin(), pattern.begin() + 1, pattern.end());
    return pattern;
}

}  // namespace

/// A layer or linetype that changes is seen by the next look-up.
struct AppearanceTable::Impl : public AcDbDatabaseReactor {
    Impl(AcDbDatabase& of, double dashes) : database(of), dashScale(dashes) {
        database.addReactor(this);
    }
    ~Impl() override { database.removeReactor(this); }

    void objectModified(const AcDbDatabase*, const AcDbObject* object) override {
        if (object->isKindOf(AcDbLayerTableRecord::desc()) ||
            object->isKindOf(AcDbLinetypeTableRecord::desc()))
            stale = true;
    }

    struct Layer {
        std::wstring name;
        int color = kWhite;
        std::optional<Rgb> trueColor;
        AcDbObjectId linetype;
        double lineWeight = kDefaultLineWeight;
    };

    Layer layerOf(AcDbObjectId id) const {
        Layer layer;
        const AcDbObjectPointer<AcDbLayerTableRecord> record(
            id.isNull() ? database.layerZero() : id, AcDb::kForRead);
        if (record.openStatus() != Acad::eOk) return layer;
        const ACHAR* name = nullptr;
        if (record->getName(name) == Acad::eOk) layer.name = name;
        layer.color = record->colorIndex();
        layer.trueColor = ObjectAccess::trueColor(*record.object());
        layer.linetype = record->linetypeObjectId();
        if (record->lineWeight() >= 0)
            layer.lineWeight = static_cast<int>(record->lineWeight()) / 100.0;
        return layer;
    }

    static void resolveColor(const PictureTraits& traits, const Layer& layer, Appearance& look) {
        const bool byLayer = !traits.trueColor && traits.color == 256;
        if (const std::optional<Rgb>& rgb = byLayer ? layer.trueColor : traits.trueColor) {
            look.color = *rgb;
            look.colorIndex = nearestIndex(*rgb);
            return;
        }
        // What stands outside blocks has no block to take its colour from: white.
        const int color = byLayer ? layer.color : traits.color;
        look.color = paletteColor(color);
        look.colorIndex = color;
        look.followsGround = color == kWhite || color == 0;
    }

    Appearance resolve(const PictureTraits& traits) const {
        Appearance look;
        const Layer layer = layerOf(traits.layer);
        look.layer = layer.name;
        resolveColor(traits, layer, look);
        if (traits.lineWeight >= 0)
            look.lineWeight = static_cast<int>(traits.lineWeight) / 100.0;
        else if (traits.lineWeight == AcDb::kLnWtByLayer)
            look.lineWeight = layer.lineWeight;
        const bool byLayer =
            traits.linetype.isNull() || traits.linetype == database.byLayerLinetype();
        const AcDbObjectPointer<AcDbLinetypeTableRecord> linetype(
            byLayer ? layer.linetype : traits.linetype, AcDb::kForRead);
        if (linetype.openStatus() == Acad::eOk)
            look.dashes =
                inTurn(*linetype.object(), database.ltscale() * traits.linetypeScale * dashScale);
        for (const double length : look.dashes) look.dashPeriod += length;
        if (!(look.dashPeriod > 0.0)) look.dashes.clear();
        return look;
    }

    AcDbDatabase& database;
    double dashScale;
    std::unordered_map<PictureTraits, Appearance, TraitsHash> known;
    bool stale = false;
};

AppearanceTable::AppearanceTable(AcDbDatabase& database, double dashScale)
    : m_impl(std::make_unique<Impl>(database, dashScale)) {}
AppearanceTable::~AppearanceTable() = default;

const Appearance& AppearanceTable::of(const PictureTraits& traits) {
    if (m_impl->stale) invalidate();
    PictureTraits key = traits;
    key.marker = -1;
    const auto at = m_impl->known.find(key);
    if (at != m_impl->known.end()) return at->second;
    return m_impl->known.emplace(key, m_impl->resolve(key)).first->second;
}

void AppearanceTable::setDashScale(double scale) {
    if (scale == m_impl->dashScale) return;
    m_impl->dashScale = scale;
    invalidate();
}

void AppearanceTable::invalidate() {
    m_impl->known.clear();
    m_impl->stale = false;
}

}  // namespace prancheta
