// SPDX-License-Identifier: MIT
// Layers by name, and their properties as typed.
#include "prancheta/editor/commands/layers.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_set>

#include "prancheta/base/text.h"
#include "prancheta/base/wildcard.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

struct NamedColor {
    const wchar_t* local;
    const wchar_t* global;
};
/// Colours 1 to 7.
constexpr NamedColor kColors[] = {
    {L"vermelho", L"red"}, {L"amarelo", L"yellow"},  {L"verde", L"green"},  {L"ciano", L"cyan"},
    {L"azul", L"blue"},    {L"magenta", L"magenta"}, {L"branco", L"white"},
};

/// Hundredths of a millimetre.
constexpr int kWeights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                            53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

/// Come into the drawing when they are first asked for.
constexpr const wchar_t* kStandardLinetypes[] = {L"HIDDEN", L"CENTER", L"DASHED", L"PHANTOM"};

std::optional<int> readColor(std::wstring_view text) {
    text = trim(text);
    if (text.starts_with(L'_')) text.remove_prefix(1);
    for (int i = 0; i < 7; ++i)
        if (equalNoCase(text, kColors[i].local) || equalNoCase(text, kColors[i].global))
            return i + 1;
    double number = 0.0;
    if (!parseNumber(text, number) || number != std::trunc(number)) return std::nullopt;
    if (std::abs(number) < 1.0 || std::abs(number) > 255.0) return std::nullopt;
    return static_cast<int>(number);
}

std::optional<AcDb::LineWeight> readWeight(std::wstring_view text) {
    double millimetres = 0.0;
    if (!parseNumber(trim(text), millimetres) || millimetres < 0.0 || millimetres > 2.11)
        return std::nullopt;
    int nearest = 0;
    for (const int weight : kWeights)
        if (std::abs(weight - millimetres * 100.0) < std::abs(nearest - millimetres * 100.0))
            nearest = weight;
    return static_cast<AcDb::LineWeight>(nearest);
}

std::optional<bool> readPlot(std::wstring_view text) {
    text = trim(text);
    if (equalNoCase(text, L"p") || equalNoCase(text, L"plotar") || equalNoCase(text, L"_plot") ||
        equalNoCase(text, L"_p"))
        return true;
    if (equalNoCase(text, L"n") || equalNoCase(text, L"não") || equalNoCase(text, L"_no") ||
        equalNoCase(text, L"_n"))
        return false;
    return std::nullopt;
}

/// A standard one as the standard spells it.
std::wstring linetypeName(std::wstring_view typed) {
    typed = trim(typed);
    for (const wchar_t* standard : kStandardLinetypes)
        if (equalNoCase(typed, standard)) return standard;
    return std::wstring(typed);
}

std::wstring nameOf(const AcDbSymbolTableRecord& record) {
    const ACHAR* name = nullptr;
    return record.getName(name) == Acad::eOk ? name : L"";
}

std::wstring stateText(const AcDbLayerTableRecord& layer) {
    std::wstring text = layer.isOff() ? L"desligada" : L"ligada";
    if (layer.isFrozen()) text += L", congelada";
    if (layer.isLocked()) text += L", bloqueada";
    if (!layer.isPlottable()) text += L", não plotada";
    return text;
}

std::wstring colorText(int color) {
    const std::wstring number = std::to_wstring(color);
    const std::wstring name = colorName(color);
    return name == number ? number : number + L" (" + name + L")";
}

/// Calls `visit` for every record of a table that is not erased.
template <class Table, class Visit>
void forEachRecord(AcDbDatabase& database, Visit visit) {
    Table* table = nullptr;
    if (database.getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return;
    AcDbSymbolTableIterator* raw = nullptr;
    const bool iterates = table->newIterator(raw) == Acad::eOk;
    const std::unique_ptr<AcDbSymbolTableIterator> iterator(raw);
    (void)table->close();
    for (; iterates && !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getRecordId(id) == Acad::eOk) visit(id);
    }
}

void addLayersOf(AcDbObjectId block, std::unordered_set<Adesk::LongPtr>& used) {
    AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    AcDbBlockTableRecordIterator* raw = nullptr;
    if (record.openStatus() != Acad::eOk || record->newIterator(raw) != Acad::eOk) return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(raw);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getEntityId(id) != Acad::eOk) continue;
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.object() != nullptr) used.insert(entity->layerId().asOldId());
    }
}

}  // namespace

std::wstring colorName(int color) {
    return color >= 1 && color <= 7 ? kColors[color - 1].local : std::to_wstring(color);
}

std::span<const int> lineWeights() { return kWeights; }

std::wstring layerName(const AcDbLayerTableRecord& layer) { return nameOf(layer); }

std::wstring layerName(AcDbObjectId id) {
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    return layer.openStatus() == Acad::eOk ? nameOf(*layer.object()) : L"";
}

AcDbObjectId layerNamed(const CommandContext& context, const std::wstring& name) {
    AcDbLayerTable* table = nullptr;
    AcDbObjectId id;
    if (context.database().getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return id;
    if (table->getAt(std::wstring(trim(name)).c_str(), id) != Acad::eOk) id.setNull();
    (void)table->close();
    return id;
}

Ids layersNamed(const CommandContext& context, const std::wstring& list) {
    const std::vector<std::wstring> patterns = splitList(list);
    std::vector<bool> used(patterns.size(), false);
    Ids found;
    for (const AcDbObjectId id : allLayers(context)) {
        const std::wstring name = layerName(id);
        bool wanted = false;
        for (std::size_t i = 0; i < patterns.size(); ++i) {
            if (!fitsWildcards(name, patterns[i])) continue;
            used[i] = true;
            wanted = true;
        }
        if (wanted) found.push_back(id);
    }
    for (std::size_t i = 0; i < patterns.size(); ++i)
        if (!used[i])
            context.editor().complain(L"Nenhuma camada corresponde a \"" + patterns[i] + L"\".",
                                      Complaint::Refused);
    return found;
}

AcDbObjectId makeLayer(const CommandContext& context, const std::wstring& name) {
    const std::wstring wanted(trim(name));
    auto record = std::make_unique<AcDbLayerTableRecord>();
    AcDbLayerTable* table = nullptr;
    AcDbObjectId id;
    if (record->setName(wanted.c_str()) != Acad::eOk) {
        context.editor().complain(L"O nome de camada \"" + wanted + L"\" é inválido.",
                                  Complaint::Refused);
        return id;
    }
    if (context.database().getSymbolTable(table, AcDb::kForWrite) != Acad::eOk) return id;
    if (table->has(wanted.c_str())) {
        say(context, L"A camada \"" + wanted + L"\" já existe.");
    } else {
        (void)record->setLinetypeObjectId(context.database().continuousLinetype());
        if (table->add(id, record.get()) == Acad::eOk) (void)record.release()->close();
    }
    (void)table->close();
    return id;
}

void listLayers(const CommandContext& context, const std::wstring& patterns) {
    say(context, L"Nome da camada       Estado                     Cor            Tipo de linha");
    for (const AcDbObjectId id : allLayers(context)) {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        if (layer.openStatus() != Acad::eOk) continue;
        const std::wstring name = nameOf(*layer.object());
        if (!fitsWildcards(name, patterns)) continue;
        AcDbObjectPointer<AcDbLinetypeTableRecord> linetype(layer->linetypeObjectId(),
                                                            AcDb::kForRead);
        std::wstring line = L"\"" + name + L"\" ";
        const auto column = [&line](std::size_t width) {
            line.resize(std::max(line.size(), width), L' ');
        };
        column(21);
        line += stateText(*layer.object()) + L" ";
        column(48);
        const auto rgb = ObjectAccess::trueColor(*layer.object());
        line += (rgb ? rgbText(*rgb) : colorText(layer->colorIndex())) + L" ";
        column(63);
        if (linetype.openStatus() == Acad::eOk) line += nameOf(*linetype.object());
        say(context, line);
    }
    say(context, L"Camada atual:  \"" + layerName(context.database().clayer()) + L"\"");
}

Ids allLayers(const CommandContext& context) {
    Ids ids;
    forEachRecord<AcDbLayerTable>(context.database(), [&](AcDbObjectId id) { ids.push_back(id); });
    return ids;
}

bool renameLayer(const CommandContext& context, AcDbObjectId layer, const std::wstring& name) {
    if (layer == context.database().layerZero()) {
        context.editor().complain(L"A camada \"0\" não pode ser renomeada.", Complaint::Refused);
        return false;
    }
    AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
    if (record.openStatus() == Acad::eOk && record->setName(name.c_str()) == Acad::eOk) return true;
    context.editor().complain(L"A camada não pode ter o nome \"" + name + L"\".",
                              Complaint::Refused);
    return false;
}

bool makeLayerCurrent(const CommandContext& context, AcDbObjectId layer) {
    if (context.database().setClayer(layer) == Acad::eOk) return true;
    context.editor().complain(L"Uma camada congelada não pode ser a atual.", Complaint::Refused);
    return false;
}

bool freezeLayer(const CommandContext& context, AcDbLayerTableRecord& layer) {
    if (layer.objectId() != context.database().clayer())
        return layer.setIsFrozen(true) == Acad::eOk;
    say(context,
        L"Não é possível congelar a camada \"" + layerName(layer) + L"\". Ela é a camada ATUAL.");
    return false;
}

std::size_t eraseLayers(const CommandContext& context, const Ids& layers) {
    std::unordered_set<Adesk::LongPtr> used;
    forEachRecord<AcDbBlockTable>(context.database(),
                                  [&](AcDbObjectId block) { addLayersOf(block, used); });
    std::size_t erased = 0;
    for (const AcDbObjectId id : layers) {
        const wchar_t* why = nullptr;
        const std::wstring name = layerName(id);
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        if (id == context.database().layerZero()) {
            why = L"todo desenho tem esta camada";
        } else if (id == context.database().clayer()) {
            why = L"ela é a camada ATUAL";
        } else if (used.contains(id.asOldId())) {
            why = L"há objetos nela, no desenho ou em blocos";
        } else if (layer.openStatus() != Acad::eOk || layer->erase() != Acad::eOk) {
            why = L"ela está em uso";
        }
        if (why == nullptr)
            ++erased;
        else
            say(context, L"A camada \"" + name + L"\" não foi excluída: " + why + L".");
    }
    return erased;
}

std::vector<std::wstring> linetypeChoices(const CommandContext& context) {
    std::vector<std::wstring> names;
    forEachRecord<AcDbLinetypeTable>(context.database(), [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbLinetypeTableRecord> record(id, AcDb::kForRead);
        if (record.object() == nullptr || id == context.database().byLayerLinetype() ||
            id == context.database().byBlockLinetype())
            return;
        names.push_back(nameOf(*record.object()));
    });
    for (const wchar_t* standard : kStandardLinetypes) {
        const bool there = std::any_of(names.begin(), names.end(), [&](const std::wstring& name) {
            return equalNoCase(name, standard);
        });
        if (!there) names.push_back(standard);
    }
    return names;
}

bool colorUnderstood(const CommandContext&, const std::wstring& text) {
    return readColor(text).has_value() || readRgb(text).has_value();
}

bool applyColor(const CommandContext&, AcDbLayerTableRecord& layer, const std::wstring& text) {
    if (const auto rgb = readRgb(text)) {
        if (layer.setColorIndex(static_cast<Adesk::UInt16>(nearestIndex(*rgb))) != Acad::eOk)
            return false;
        ObjectAccess::setTrueColor(layer, *rgb);
        return true;
    }
    const int color = readColor(text).value_or(0);
    return layer.setColorIndex(static_cast<Adesk::UInt16>(std::abs(color))) == Acad::eOk &&
           layer.setIsOff(color < 0) == Acad::eOk;
}

bool linetypeUnderstood(const CommandContext& context, const std::wstring& text) {
    const std::wstring name = linetypeName(text);
    for (const wchar_t* standard : kStandardLinetypes)
        if (name == standard) return true;
    AcDbLinetypeTable* table = nullptr;
    if (context.database().getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return false;
    const bool there = table->has(name.c_str());
    (void)table->close();
    return there;
}

bool applyLinetype(const CommandContext& context, AcDbLayerTableRecord& layer,
                   const std::wstring& text) {
    const AcDbObjectId id = context.database().core().ensureLinetype(linetypeName(text));
    return layer.setLinetypeObjectId(id) == Acad::eOk;
}

bool weightUnderstood(const CommandContext&, const std::wstring& text) {
    return readWeight(text).has_value();
}

bool applyWeight(const CommandContext&, AcDbLayerTableRecord& layer, const std::wstring& text) {
    const std::optional<AcDb::LineWeight> weight = readWeight(text);
    return weight && layer.setLineWeight(*weight) == Acad::eOk;
}

bool plotUnderstood(const CommandContext&, const std::wstring& text) {
    return readPlot(text).has_value();
}

bool applyPlot(const CommandContext&, AcDbLayerTableRecord& layer, const std::wstring& text) {
    return layer.setIsPlottable(readPlot(text).value_or(true)) == Acad::eOk;
}

}  // namespace prancheta::commands
