// SPDX-License-Identifier: MIT
// LAYISO, LAYUNISO, LAYOFF, LAYFRZ, LAYLCK, LAYMCUR, LAYERP: layers by picking what stands on them.
#include <algorithm>

#include "prancheta/editor/commands/layers.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

std::vector<LayerState> statesNow(const CommandContext& context) {
    std::vector<LayerState> states;
    for (const AcDbObjectId& id : allLayers(context)) {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        if (layer.openStatus() == Acad::eOk)
            states.push_back({id, layer->isOff(), layer->isFrozen(), layer->isLocked()});
    }
    return states;
}

/// What differs goes back; layers that are gone, or current and to be frozen, stay.
CommandEnd restore(const CommandContext& context, std::vector<LayerState>& kept,
                   const wchar_t* whenEmpty) {
    if (kept.empty()) {
        say(context, whenEmpty);
        return CommandEnd::Done;
    }
    const std::vector<LayerState> states = std::exchange(kept, {});
    for (const LayerState& state : states) {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(state.layer, AcDb::kForWrite);
        if (layer.openStatus() != Acad::eOk) continue;
        if (layer->isOff() != state.off) (void)layer->setIsOff(state.off);
        if (layer->isLocked() != state.locked) (void)layer->setIsLocked(state.locked);
        // The current layer refuses to be frozen and stays as it is.
        if (layer->isFrozen() != state.frozen) (void)layer->setIsFrozen(state.frozen);
    }
    say(context, L"As camadas voltaram ao estado anterior.");
    return CommandEnd::Done;
}

/// Layers of what the user selects, each once; empty when nothing was.
Task<Ids> askLayers(CommandContext context, std::wstring prompt) {
    SelectOptions options;
    options.prompt = prompt;
    options.dropLocked = false;
    const Selection chosen = co_await selectObjects(context, options);
    Ids layers;
    for (const AcDbObjectId& id : chosen.ids) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() == Acad::eOk) layers.push_back(entity->layerId());
    }
    std::sort(layers.begin(), layers.end());
    layers.erase(std::unique(layers.begin(), layers.end()), layers.end());
    co_return layers;
}

/// Changes each of the layers; the state before it is kept for LAYERP.
template <class Apply>
CommandEnd change(const CommandContext& context, const Ids& layers, const wchar_t* one,
                  const wchar_t* many, Apply apply) {
    if (layers.empty()) return CommandEnd::Done;
    memory(context).layersBefore = statesNow(context);
    std::size_t changed = 0;
    for (const AcDbObjectId& id : layers) {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        if (layer.openStatus() == Acad::eOk && apply(*layer.object())) ++changed;
    }
    say(context, counted(changed, one, many));
    return CommandEnd::Done;
}

AcDbObjectId currentLayer(const CommandContext& context) {
    return layerNamed(context, context.editor().variables().text(L"CLAYER"));
}

}  // namespace

CommandTask layiso(CommandContext context) {
    const Ids shown = co_await askLayers(context, L"\nSelecione objetos das camadas a isolar: ");
    if (shown.empty()) co_return CommandEnd::Done;
    if (!std::binary_search(shown.begin(), shown.end(), currentLayer(context)) &&
        !makeLayerCurrent(context, shown.front()))
        co_return CommandEnd::Failed;
    Ids others = allLayers(context);
    std::erase_if(others, [&](const AcDbObjectId& id) {
        return std::binary_search(shown.begin(), shown.end(), id);
    });
    const std::vector<LayerState> before = statesNow(context);
    const CommandEnd end = change(context, others, L"camada desligada.", L"camadas desligadas.",
                                  [](AcDbLayerTableRecord& layer) {
                                      return !layer.isOff() && layer.setIsOff(true) == Acad::eOk;
                                  });
    memory(context).layersIsolated = before;
    co_return end;
}

CommandTask layuniso(CommandContext context) {
    co_return restore(context, memory(context).layersIsolated,
                      L"Nenhuma camada foi isolada: não há o que desfazer.");
}

CommandTask layerp(CommandContext context) {
    co_return restore(context, memory(context).layersBefore,
                      L"Não há um estado anterior das camadas.");
}

CommandTask layoff(CommandContext context) {
    const Ids layers = co_await askLayers(context, L"\nSelecione objetos das camadas a desligar: ");
    const AcDbObjectId current = currentLayer(context);
    co_return change(context, layers, L"camada desligada.", L"camadas desligadas.",
                     [&](AcDbLayerTableRecord& layer) {
                         if (layer.objectId() != current) return layer.setIsOff(true) == Acad::eOk;
                         say(context, L"A camada atual fica ligada: torne antes outra a atual.");
                         return false;
                     });
}

CommandTask layfrz(CommandContext context) {
    const Ids layers = co_await askLayers(context, L"\nSelecione objetos das camadas a congelar: ");
    co_return change(context, layers, L"camada congelada.", L"camadas congeladas.",
                     [&](AcDbLayerTableRecord& layer) { return freezeLayer(context, layer); });
}

CommandTask laylck(CommandContext context) {
    const Ids layers = co_await askLayers(context, L"\nSelecione objetos das camadas a bloquear: ");
    co_return change(
        context, layers, L"camada bloqueada.", L"camadas bloqueadas.",
        [](AcDbLayerTableRecord& layer) { return layer.setIsLocked(true) == Acad::eOk; });
}

CommandTask laymcur(CommandContext context) {
    SelectOptions options;
    options.prompt = L"\nSelecione o objeto cuja camada será a atual: ";
    options.dropLocked = false;
    options.single = true;
    const Selection chosen = co_await selectObjects(context, options);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    AcDbObjectId layer;
    {
        const AcDbObjectPointer<AcDbEntity> entity(chosen.ids.front(), AcDb::kForRead);
        if (entity.openStatus() == Acad::eOk) layer = entity->layerId();
    }
    if (layer.isNull() || !makeLayerCurrent(context, layer)) co_return CommandEnd::Failed;
    say(context, L"A camada atual é " + layerName(layer) + L".");
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
