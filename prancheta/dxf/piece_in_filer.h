// SPDX-License-Identifier: MIT
// Gives a parametric piece the fields of its record.
#pragma once

#include "dbfiler.h"
#include "prancheta/dxf/load_names.h"
#include "prancheta/dxf/piece_record.h"

namespace prancheta::dxf {

/// Gives an object the fields that it wrote.
class PieceInFiler : public AcDbDxfFiler {
public:
    PieceInFiler(const PieceRecord& record, LoadNames& names) : m_record(record), m_names(names) {}

    Acad::ErrorStatus filerStatus() const override { return m_status; }
    void resetFilerStatus() override { m_status = Acad::eOk; }
    Acad::ErrorStatus setError(Acad::ErrorStatus es, const ACHAR* text, ...) override;
    Acad::ErrorStatus writeString(int, const ACHAR*) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeDouble(int, double) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writePoint3d(int, const AcGePoint3d&) override {
        return Acad::eNotApplicable;
    }
    Acad::ErrorStatus writeInt16(int, Adesk::Int16) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeInt32(int, Adesk::Int32) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeBool(int, bool) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeObjectId(int, const AcDbObjectId&) override {
        return Acad::eNotApplicable;
    }
    Acad::ErrorStatus readItem(resbuf* value) override;
    void pushBackItem() override;
    bool atSubclassData(const ACHAR* name) override;
    bool atEOF() override { return m_code >= m_record.codes.size(); }

    /// What the object said about the error; may be empty.
    const std::wstring& message() const { return m_message; }

private:
    std::wstring textAt(std::size_t value, int parts) const;

    const PieceRecord& m_record;
    LoadNames& m_names;
    std::size_t m_code = 0;
    std::size_t m_value = 0;
    std::size_t m_lastCode = 0;
    std::size_t m_lastValue = 0;
    Acad::ErrorStatus m_status = Acad::eOk;
    std::wstring m_message;
};

}  // namespace prancheta::dxf
