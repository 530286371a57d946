// SPDX-License-Identifier: MIT
// First reading of a file: its handles, its names, the order of its sections.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "prancheta/dxf/encoding.h"
#include "prancheta/dxf/tag_reader.h"

namespace prancheta::verify {

enum class Place { Outside, Header, Classes, Tables, Blocks, Entities, Objects, Other };

/// Walks through the records of a file and tells where each one stands.
class Walker {
public:
    explicit Walker(std::string_view text) : m_reader(text) {}
    /// False at the end or at a fault.
    bool next(dxf::Record& record);
    const std::optional<dxf::Fault>& fault() const { return m_reader.fault(); }

    Place place = Place::Outside;
    std::string_view table;  ///< name of the table that is open, "" between tables
    std::string_view block;  ///< name of the block that is open, "" between blocks

private:
    dxf::TagReader m_reader;
};

/// First value of a code, "" when there is none.
std::string_view valueOf(const dxf::Record& record, int code);
/// Handle of a record: group 5, of a dimension style 105. 0 when it has none or a bad one.
std::uint64_t handleOf(const dxf::Record& record);
/// Owner (330 outside braces); 0 when it has none.
std::uint64_t ownerOf(const dxf::Record& record);
std::uint64_t handleValue(std::string_view text);

/// A name as names are compared: decoded, case folded.
std::string nameKey(std::string_view raw, dxf::Charset charset);

struct Census {
    struct Object {
        std::string_view type;
        std::uint64_t owner = 0;
    };
    enum Names { kLayers, kLinetypes, kStyles, kDimStyles, kApplications, kBlocks, kNameKinds };

    std::string version = "AC1009";
    std::unique_ptr<const CodePage> page;  ///< of an older release, where the system knows it
    dxf::Charset charset = dxf::Charset::Windows1252;
    bool modern = false;  ///< AC1015 or later: handles, owners and subclass markers are required
    std::uint64_t seed = 0;
    std::uint64_t largest = 0;
    std::unordered_map<std::uint64_t, Object> objects;
    std::unordered_set<std::string> names[kNameKinds];
    std::unordered_map<std::string, std::uint64_t> blockRecords;
    std::uint64_t modelSpace = 0;                   ///< its block record
    std::unordered_set<std::uint64_t> paperSpaces;  ///< block records of all layouts

    bool knows(Names kind, std::string_view raw) const {
        return names[kind].contains(nameKey(raw, charset));
    }
};

Census takeCensus(std::string_view text);

}  // namespace prancheta::verify
