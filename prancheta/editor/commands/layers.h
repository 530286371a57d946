// SPDX-License-Identifier: MIT
// Layers by name, and their properties as typed.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "dbsymtb.h"
#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

std::wstring layerName(const AcDbLayerTableRecord& layer);
/// Empty for an id that is no layer's.
std::wstring layerName(AcDbObjectId id);
/// Null when there is none.
AcDbObjectId layerNamed(const CommandContext& context, const std::wstring& name);
/// Of a list of names and patterns; says on the command line which ones fit no layer.
Ids layersNamed(const CommandContext& context, const std::wstring& list);
/// Of the whole drawing, in the order in which they were made.
Ids allLayers(const CommandContext& context);
/// Null, after saying why, for a name that is taken or not allowed.
AcDbObjectId makeLayer(const CommandContext& context, const std::wstring& name);

// These say on the command line why they did not and return false; nothing changed then.
bool renameLayer(const CommandContext& context, AcDbObjectId layer, const std::wstring& name);
bool makeLayerCurrent(const CommandContext& context, AcDbObjectId layer);
/// The current layer stays thawed.
bool freezeLayer(const CommandContext& context, AcDbLayerTableRecord& layer);
/// Erases those that no entity of any block uses; "0" and the current one stay. Says which ones
/// stay and why; how many went. O(entities).
std::size_t eraseLayers(const CommandContext& context, const Ids& layers);

/// Hundredths of a millimetre, ascending: every line weight that there is.
std::span<const int> lineWeights();
/// Linetypes that an entity or layer can be given: those of the drawing, and the standard ones that
/// come into it when first asked for. ByLayer and ByBlock are not among them.
std::vector<std::wstring> linetypeChoices(const CommandContext& context);
/// "vermelho" for 1, "30" for 30.
std::wstring colorName(int color);

/// Table of name, state, colour, linetype.
void listLayers(const CommandContext& context, const std::wstring& patterns);

// Properties as typed: a colour by name or number (a negative one also switches the layer off), a
// linetype by name, a line weight in millimetres (the nearest one there is counts), plotted or not.
bool colorUnderstood(const CommandContext& context, const std::wstring& text);
bool applyColor(const CommandContext& context, AcDbLayerTableRecord& layer,
                const std::wstring& text);
bool linetypeUnderstood(const CommandContext& context, const std::wstring& text);
bool applyLinetype(const CommandContext& context, AcDbLayerTableRecord& layer,
                   const std::wstring& text);
bool weightUnderstood(const CommandContext& context, const std::wstring& text);
bool applyWeight(const CommandContext& context, AcDbLayerTableRecord& layer,
                 const std::wstring& text);
bool plotUnderstood(const CommandContext& context, const std::wstring& text);
bool applyPlot(const CommandContext& context, AcDbLayerTableRecord& layer,
               const std::wstring& text);

}  // namespace prancheta::commands
