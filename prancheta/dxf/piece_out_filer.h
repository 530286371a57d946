// SPDX-License-Identifier: MIT
// Takes the fields of a parametric piece and writes its record.
#pragma once

#include <functional>

#include "dbfiler.h"
#include "prancheta/dxf/piece_record.h"
#include "prancheta/dxf/tag_writer.h"

namespace prancheta::dxf {

/// What the fields of an object wrote.
class PieceOutFiler : public AcDbDxfFiler {
public:
    /// Forgets the fields; `className` is what a marker of that name is told by.
    void begin(const ACHAR* className);

    Acad::ErrorStatus filerStatus() const override { return m_status; }
    void resetFilerStatus() override { m_status = Acad::eOk; }
    Acad::ErrorStatus setError(Acad::ErrorStatus es, const ACHAR* text, ...) override;
    Acad::ErrorStatus writeString(int code, const ACHAR* text) override;
    Acad::ErrorStatus writeDouble(int code, double v) override;
    Acad::ErrorStatus writePoint3d(int code, const AcGePoint3d& p) override;
    Acad::ErrorStatus writeInt16(int code, Adesk::Int16 v) override;
    Acad::ErrorStatus writeInt32(int code, Adesk::Int32 v) override;
    Acad::ErrorStatus writeBool(int code, bool v) override;
    Acad::ErrorStatus writeObjectId(int code, const AcDbObjectId& id) override;
    Acad::ErrorStatus readItem(resbuf*) override { return Acad::eNotApplicable; }
    void pushBackItem() override {}
    bool atSubclassData(const ACHAR*) override { return false; }
    bool atEOF() override { return true; }

    /// Groups of the record from 1001 on, or those of an XRECORD without the head. Bytes as the
    /// limit on extended data counts them.
    std::size_t xdataBytes() const;
    void writeXdata(TagWriter& out, const PieceFrame& frame, bool fieldsApart) const;
    void writeXrecord(TagWriter& out) const;

    /// Handle that a reference is written with; 0 for objects that are gone.
    std::function<Adesk::UInt64(AcDbObjectId)> handleOf;

private:
    enum class Kind : std::uint8_t { OwnMarker, Text, Real, Point, Int16, Int32, Reference };
    struct Field {
        int code;
        Kind kind;
        std::uint32_t at;     ///< first number, or first character of the text
        std::uint32_t count;  ///< parts of a text
    };
    void add(int code, Kind kind, std::size_t at, std::size_t count = 1);
    std::string schema() const;
    void writeValue(TagWriter& out, const Field& field, bool apart) const;

    std::wstring m_className;
    Acad::ErrorStatus m_status = Acad::eOk;
    std::vector<Field> m_fields;
    std::vector<double> m_reals;
    std::vector<Adesk::UInt64> m_integers;
    std::vector<std::string> m_texts;
};

}  // namespace prancheta::dxf
