// SPDX-License-Identifier: MIT
// Drawings as DXF files.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dbapserv.h"
#include "prancheta/base/result.h"

namespace prancheta::dxf {

/// R12: what the model shows, as lines, arcs, circles, polylines and texts, for machines and old
/// programs; pieces, blocks and dimensions do not come back from it.
enum class Version { Keep, R12, R2000, R2018 };
enum class Form { Ascii, Binary };

/// Plan view that the file is to open with.
struct ShownView {
    double x = 0.0;  ///< centre, world
    double y = 0.0;
    double height = 297.0;  ///< drawing units
    double aspect = 1.6;    ///< width over height
};

struct SaveOptions {
    Version version = Version::Keep;  ///< Keep: as the file was opened, R2000 at least
    Form form = Form::Ascii;
    /// Nothing: the view that the file came with, or of a new drawing its extents.
    std::optional<ShownView> view{};
    /// What is replaced stays as this file, once the new one is whole; empty: it goes.
    std::filesystem::path former{};
};

/// Something that was repaired or left out while reading; text in Portuguese.
struct Finding {
    std::string text;
    int line = 0;
    Adesk::UInt64 handle = 0;
};

struct LoadReport {
    std::vector<Finding> findings;
};

/// Reads R12 to R2018, text or binary. A damaged file is an error that says where; nothing
/// half-read is given back.
Result<std::unique_ptr<AcDbDatabase>> load(const std::filesystem::path& path,
                                           LoadReport* report = nullptr);

/// Reads a damaged file as far as it goes: what makes no sense is left out and told, with its line,
/// as a finding, of a binary file with its byte. An error for a file that cannot be read at all.
Result<std::unique_ptr<AcDbDatabase>> recover(const std::filesystem::path& path,
                                              LoadReport& report);

/// Replaces the file atomically. The same drawing gives the same bytes. `lost` gets a line about
/// what the release does not hold; empty when it holds all.
Result<void> save(AcDbDatabase& database, const std::filesystem::path& path,
                  const SaveOptions& options = {}, std::string* lost = nullptr);

}  // namespace prancheta::dxf
