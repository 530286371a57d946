// SPDX-License-Identifier: MIT
// Geometry of the built-in classes, as named values that can be read and set.
#pragma once

#include <span>
#include <string>

#include "dbmain.h"

namespace prancheta::desktop {

/// How a value is shown and read.
enum class FieldKind {
    Length,    ///< drawing units
    Positive,  ///< drawing units, above 0
    Angle,     ///< radians, shown in degrees
    Number,
    Area,
    Text,
    YesNo,
    TextStyle,  ///< name
    DimStyle,   ///< name
};

struct FieldValue {
    double number = 0.0;  ///< 0 or 1 for YesNo
    std::wstring text;
};

struct Field {
    const wchar_t* key;
    const wchar_t* label;
    FieldKind kind;
    FieldValue (*get)(const AcDbEntity&);
    /// Null for a value that is only shown. The entity is open for write.
    Acad::ErrorStatus (*set)(AcDbEntity&, const FieldValue&);
};

struct ClassFields {
    AcRxClass* (*desc)();
    const wchar_t* type;  ///< as the user calls it
    std::span<const Field> fields;
};

/// Null for a class that has no table.
const ClassFields* fieldsOf(const AcDbEntity& entity);

}  // namespace prancheta::desktop
