// SPDX-License-Identifier: MIT
// What the tests of drawing files share: files, groups, and a class of pieces as a module would
// bring it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <algorithm>
#include <set>

#include "acutads.h"
#include "dbents.h"
#include "prancheta/dxf/document.h"

namespace dxftest {

/// Folder of its own, removed at the end.
class Folder {
public:
    Folder();
    ~Folder();
    std::filesystem::path operator/(const char* name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

struct Group {
    int code;
    std::string value;
    bool operator==(const Group&) const = default;
};
using Groups = std::vector<Group>;
std::ostream& operator<<(std::ostream& out, const Group& group);

/// Groups from text such as "0 LINE|8 0|10 1.5", one blank between code and value.
Groups groups(const std::string& text);
/// File text of groups.
std::string fileText(const Groups& groups);
/// Groups of file text.
Groups groupsOf(const std::string& text);
/// Entities of section ENTITIES wrapped in the shortest file of a release.
std::string fileWith(const std::string& entities, const char* version = "AC1015",
                     const std::string& otherSections = "");
/// First record of this type with a group `code` of this value (code -1: any).
Groups record(const Groups& all, const std::string& type, int code = -1,
              const std::string& value = "");
std::size_t countOf(const Groups& all, const std::string& type);
std::string valueOf(const Groups& record, int code);

std::string read(const std::filesystem::path& path);
void write(const std::filesystem::path& path, const std::string& bytes);

std::unique_ptr<AcDbDatabase> loadText(const std::string& text,
                                       prancheta::dxf::LoadReport* report = nullptr);
std::string saved(AcDbDatabase& database, prancheta::dxf::SaveOptions options = {});
/// Text in, load, save: groups out.
Groups passed(const std::string& text, prancheta::dxf::SaveOptions options = {});

/// Entities of model space, open for read.
std::vector<AcDbEntity*> modelSpace(AcDbDatabase& database);
AcDbObjectId append(AcDbDatabase& database, AcDbEntity* entity);

/// A bar with a section picture: rectangle, dashed line, red axis; links to others.
class Bar : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(Bar);

    AcGePoint3d start;
    double angle = 0.0;
    double length = 1000.0;
    double height = 100.0;
    bool mirrored = false;
    Adesk::Int16 kind = 3;
    Adesk::Int32 count = 70000;
    std::wstring mark;
    std::vector<double> values;
    AcDbObjectId link;

    void getEcs(AcGeMatrix3d& ecs) const override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    /// All members, bit by bit.
    bool sameState(const Bar& other) const;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m) override;
};

/// Registers Bar while it lives, as a loaded module does.
class BarModule {
public:
    BarModule();
    ~BarModule();
};

}  // namespace dxftest
