// SPDX-License-Identifier: MIT
// Layers by name, and their properties as typed.
#include "prancheta/editor/commands/layers.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"

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

Ids allLayers(const CommandContext& context) {
    Ids ids;
    AcDbLayerTable* table = nullptr;
    if (context.database().getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return ids;
    AcDbSymbolTableIterator* raw = nullptr;
    if (table->newIterator(raw) == Acad::eOk) {
        const std::unique_ptr<AcDbSymbolTableIterator> iterator(raw);
        for (; !iterator->done(); iterator->step()) {
            AcDbObjectId id;
            if (iterator->getRecordId(id) == Acad::eOk) ids.push_back(id);
        }
    }
    (void)table->close();
    return ids;
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
    std::wstring text = std::to_wstring(color);
    if (color >= 1 && color <= 7) text += std::wstring(L" (") + kColors[color - 1].local + L")";
    return text;
}

}  // namespace

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
            if (!matches(name, patterns[i])) continue;
            used[i] = true;
            wanted = true;
        }
        if (wanted) found.push_back(id);
    }
    for (std::size_t i = 0; i < patterns.size(); ++i)
        if (!used[i]) say(context, L"Nenhuma camada corresponde a \"" + patterns[i] + L"\".");
    return found;
}

AcDbObjectId makeLayer(const CommandContext& context, const std::wstring& name) {
    const std::wstring wanted(trim(name));
    auto record = std::make_unique<AcDbLayerTableRecord>();
    AcDbLayerTable* table = nullptr;
    AcDbObjectId id;
    if (record->setName(wanted.c_str()) != Acad::eOk) {
        say(context, L"O nome de camada \"" + wanted + L"\" é inválido.");
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
        if (!matches(name, patterns)) continue;
        AcDbObjectPointer<AcDbLinetypeTableRecord> linetype(layer->linetypeObjectId(),
                                                            AcDb::kForRead);
        std::wstring line = L"\"" + name + L"\" ";
        const auto column = [&line](std::size_t width) {
            line.resize(std::max(line.size(), width), L' ');
        };
        column(21);
        line += stateText(*layer.object()) + L" ";
        column(48);
        line += colorText(layer->colorIndex()) + L" ";
        column(63);
        if (linetype.openStatus() == Acad::eOk) line += nameOf(*linetype.object());
        say(context, line);
    }
    say(context, L"Camada atual:  \"" + layerName(context.database().clayer()) + L"\"");
}

bool colorUnderstood(const CommandContext&, const std::wstring& text) {
    return readColor(text).has_value();
}

bool applyColor(const CommandContext&, AcDbLayerTableRecord& layer, const std::wstring& text) {
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
