// SPDX-License-Identifier: MIT
// What a dialog file says: its definitions, flattened, and what was noticed about them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "prancheta/base/file_stamp.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/dcl/lexer.h"

namespace prancheta::dcl {

enum class ValueKind { Text, Integer, Real, Word };

/// Value of an attribute; every value reaches programs as text.
struct Value {
    ValueKind kind = ValueKind::Text;
    std::string text;
    Place at;
};

struct Definition;

/// Child of a definition and where it is named. An instance written in place has a definition of
/// its own without a name.
struct Child {
    std::shared_ptr<const Definition> definition;
    Place at;
};

using Attributes = std::map<std::string, std::shared_ptr<const Value>, std::less<>>;

/// A named definition or an instance written in place. Attributes and children of its parents are
/// merged into it, so it stands for itself.
struct Definition {
    std::string name;
    Place at;
    std::optional<TileKind> kind;  ///< empty when no parent is known: such a tile is left out
    Attributes attributes;
    std::vector<std::string> own;  ///< attributes that it gives itself, in their order
    std::vector<Child> children;
    std::size_t tiles = 1;  ///< in its whole tree, itself included
    int depth = 1;          ///< levels of its tree

    const Value* attribute(std::string_view attributeName) const;
};

using DefinitionPtr = std::shared_ptr<const Definition>;

/// Weight of a finding; the number is the audit level from which on it is told.
enum class Severity { Error = 1, Warning = 2, Hint = 3 };

struct Finding {
    Severity severity;
    Error error;
};

/// A file as it was when it was read.
struct SourceStamp {
    std::filesystem::path path;
    std::optional<FileStamp> file;  ///< empty when it could not be read
    bool operator==(const SourceStamp&) const = default;
};

/// One loaded file with all that it includes.
struct Library {
    std::unordered_map<std::string, DefinitionPtr> definitions;  ///< by name; the last one counts
    std::vector<DefinitionPtr> inOrder;
    std::vector<Finding> findings;
    std::vector<SourceStamp> files;  ///< the file itself first
    int auditLevel = 1;
};

}  // namespace prancheta::dcl
