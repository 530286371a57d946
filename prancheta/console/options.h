// SPDX-License-Identifier: MIT
// The command line of prancheta-console.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "protocol/comparison.h"

namespace prancheta::console {

/// Files to be written, empty: none; what the user called `-` has the name of standardOutput().
struct Options {
    std::string drawing;
    /// Plotted behind it into one PDF, without any script.
    std::vector<std::string> otherDrawings;
    std::string model;  ///< from which the empty drawing and those of NEW start
    std::string script = "-";
    std::string save;
    std::string format;  ///< of that: "r12", "2000", "2018", "modelo"; empty: the drawing's own; of
                         ///< a comparison what formOf() knows
    std::string log;
    std::string state;
    std::string layout;  ///< plotted instead of the model; "todos" for all that hold something
    std::string installation;
    bool layers = true;   ///< PDF and SVG have the drawing's
    bool footer = false;  ///< file, date and scale on each sheet
    /// Files to plot to, in the order of PlotFormat; empty: none.
    std::array<std::string, 3> plots;
    std::string verify;                ///< DXF file to be examined instead of running a script
    std::string check;                 ///< drawing whose job is to be checked instead
    std::vector<std::string> compare;  ///< earlier and later drawing, to be compared instead
    std::string catalogues;            ///< folder of catalogues to be examined instead
    std::string pieces;                ///< table of pieces to be drawn before the script
    bool somePieces = false;           ///< rows of it that are wrong are left out
    std::string cutFiles;              ///< folder, or one .dxf file, for what is cut from sheets
    bool forced = false;               ///< written whatever a check finds in those pieces
    std::vector<std::string> modules;
    bool defaultModules = true;
    bool otherModules = true;  ///< a script may load others than those
    bool transcript = true;
};

/// What the program ends with.
enum ExitCode : int {
    kDone = 0,
    kScriptError = 1,
    kUsage = 2,
    kFileError = 3,
    kEndedBySignal = 128,  ///< and the signal's number
};

/// Of a comparison, what --formato names: texto, also when it names nothing, csv, json; nothing for
/// another name.
std::optional<protocol::ComparisonForm> formOf(const std::string& name);

/// Reads the arguments. When the program is to end at once (help, version, wrong usage), the exit
/// code is in `exitCode` and the answer is empty.
std::optional<Options> readOptions(int argc, char** argv, int& exitCode);

}  // namespace prancheta::console
