// SPDX-License-Identifier: MIT
// A small entity of the tests' own: a square with a name and a partner.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "dbapserv.h"
#include "dbsymtb.h"

class Piece : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(Piece);
    Piece() = default;
    explicit Piece(double size, std::wstring name = L"") : m_size(size), m_name(std::move(name)) {}

    double size() const { return m_size; }
    void setSize(double size) {
        assertWriteEnabled();
        m_size = size;
    }
    const std::wstring& name() const { return m_name; }
    AcDbObjectId partner() const { return m_partner; }
    void setPartner(AcDbObjectId id) {
        assertWriteEnabled();
        m_partner = id;
    }

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
    void subViewportDraw(AcGiViewportDraw* draw) override;

private:
    double m_size = 1.0;
    std::wstring m_name;
    AcDbObjectId m_partner;
};

/// Appends to model space and closes.
AcDbObjectId append(AcDbDatabase& database, AcDbEntity* entity);

/// Size of a piece as it stands in the drawing; -1 when it is erased.
double sizeOf(AcDbObjectId id);

/// Opens for write, changes, closes.
void resize(AcDbObjectId id, double size);

/// Text printed by acutPrintf since the last call.
std::wstring takePrinted();

/// Notes what it is told: "+" appended, "-" unappended, "&" reappended, "m" modified, "e" erased,
/// "u" brought back; upper case while undoing.
class Witness : public AcDbDatabaseReactor {
public:
    explicit Witness(AcDbDatabase& database) : m_database(database) { database.addReactor(this); }
    ~Witness() override { m_database.removeReactor(this); }

    std::string taken() { return std::exchange(m_seen, {}); }

    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override { note(o, '+'); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* o) override { note(o, '-'); }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* o) override { note(o, '&'); }
    void objectModified(const AcDbDatabase*, const AcDbObject* o) override { note(o, 'm'); }
    void objectErased(const AcDbDatabase*, const AcDbObject* o, Adesk::Boolean erased) override {
        note(o, erased ? 'e' : 'u');
    }

private:
    void note(const AcDbObject* o, char what) {
        if (o->isUndoing() && what >= 'a') what = static_cast<char>(what - 'a' + 'A');
        m_seen += what;
    }
    AcDbDatabase& m_database;
    std::string m_seen;
};
