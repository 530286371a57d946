// SPDX-License-Identifier: MIT
// Layers by name, and their properties as typed.
#pragma once

#include <string>

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
/// Null, after saying why, for a name that is taken or not allowed.
AcDbObjectId makeLayer(const CommandContext& context, const std::wstring& name);
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
