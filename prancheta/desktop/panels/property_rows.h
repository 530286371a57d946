// SPDX-License-Identifier: MIT
// Properties of entities as rows: what they share, their geometry, what their module tells.
#pragma once

#include <string>
#include <vector>

#include "prancheta/base/result.h"
#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

struct PropertyRow {
    enum class Kind { Show, Text, Choice, Color };

    Kind kind = Kind::Show;
    std::wstring key;    ///< stable; keys of modules begin with kModuleKey
    std::wstring label;  ///< as the user reads it
    std::wstring group;  ///< title above it
    std::wstring value;  ///< as shown, without the unit
    /// What an editor starts with: more digits than shown, or the index of a choice or a colour.
    std::wstring input;
    std::wstring unit;
    std::vector<std::wstring> choices;
    bool number = false;  ///< with a decimal comma in `value` and `input`
    bool varies = false;  ///< several entities, not all with this value
};

inline constexpr wchar_t kModuleKey = L'#';
inline constexpr const wchar_t* kVaries = L"*VARIA*";

/// Rows that all the entities have, values that differ marked. Erased entities are left out. Of
/// more than a few thousand entities only the rows that every entity has. O(entities).
std::vector<PropertyRow> propertyRows(Editor& editor, const std::vector<AcDbObjectId>& ids);

/// Layer, colour, linetype and line weight (keys "camada", "cor", "tipo_linha", "espessura") of the
/// entities, values that differ marked; of no entities, what the next one that is drawn gets.
/// O(entities), however many.
std::vector<PropertyRow> generalRows(Editor& editor, const std::vector<AcDbObjectId>& ids);

/// Gives what is drawn from now on one of the values of generalRows(), as one step of undo; an
/// error, and no change, when it is refused.
Result<void> changeCurrent(Editor& editor, const std::wstring& key, const std::wstring& input);

/// Gives all the entities a value, as one step of undo: `input` is what PropertyRow::input would
/// hold. Entities on locked layers stay as they are; an error when nothing is left, or when the
/// value is refused by one of them; nothing changed then.
Result<void> changeProperty(Editor& editor, const std::vector<AcDbObjectId>& ids,
                            const std::wstring& key, const std::wstring& input);

}  // namespace prancheta::desktop
