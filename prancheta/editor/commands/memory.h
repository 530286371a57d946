// SPDX-License-Identifier: MIT
// What built-in commands remember from one run to the next.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "dbid.h"
#include "gevec3d.h"
#include "prancheta/editor/command.h"
#include "prancheta/editor/plotter.h"

namespace prancheta::commands {

struct LayerState {
    AcDbObjectId layer;
    bool off = false;
    bool frozen = false;
    bool locked = false;
};

/// Defaults that prompts offer. Lengths in drawing units, angles in radians.
struct Memory {
    double rotation = 0.0;
    double referenceAngle = 0.0;
    double newAngle = 0.0;
    double scale = 1.0;
    double referenceLength = 1.0;
    double newLength = 1.0;
    double circleRadius = 0.0;  ///< 0: none yet
    double textRotation = 0.0;
    double cloudArc = 0.0;  ///< 0: none yet
    AcDbObjectId lastText;  ///< last one of TEXT; null before
    double plineStartWidth = 0.0;
    double plineEndWidth = 0.0;
    double polygonSides = 4.0;
    bool polygonAround = false;  ///< circumscribed
    double chamferFirst = 0.0;   ///< of RECTANG
    double chamferSecond = 0.0;
    double rectangleRadius = 0.0;
    double rectangleLineWidth = 0.0;
    double rectangleTurn = 0.0;
    double rectangleArea = 100.0;
    double rectangleLength = 10.0;
    double rectangleWidth = 10.0;
    unsigned int matched = ~0u;              ///< bits of what COPIARPROP copies
    std::vector<LayerState> layersIsolated;  ///< as they were before LAYISO; empty: nothing to undo
    std::vector<LayerState> layersBefore;    ///< as they were before layers were last picked
    double detailScale = 5.0;                ///< drawing units per mm of paper
    bool copyOnce = false;
    AcGeVector3d displacement;
    PlotSettings plot;             ///< the area is asked for anew
    std::filesystem::path script;  ///< last one of SCRIPT
    std::wstring variable;         ///< last one of SETVAR
};

/// The editor's own.
Memory& memory(const CommandContext& context);

}  // namespace prancheta::commands
