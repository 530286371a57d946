// SPDX-License-Identifier: MIT
// What the tests of drawing files share.
#include "support.h"

#include <unistd.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <ostream>
#include <sstream>

#include "acutads.h"
#include "acutmem.h"
#include "dbsymtb.h"
#include "prancheta/database/database_core.h"
#include "prancheta/entities/register.h"

// The command line is another room's.
int acutPrintf(const ACHAR*, ...) { return RTNORM; }

namespace dxftest {

Folder::Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "dxf-XXXXXX").string();
    m_path = ::mkdtemp(name.data());
}
Folder::~Folder() { std::filesystem::remove_all(m_path); }

std::ostream& operator<<(std::ostream& out, const Group& group) {
    return out << group.code << " " << group.value;
}

Groups groups(const std::string& text) {
    Groups out;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, '|');) {
        const std::size_t blank = part.find(' ');
        out.push_back({std::stoi(part), blank == std::string::npos ? "" : part.substr(blank + 1)});
    }
    return out;
}

std::string fileText(const Groups& all) {
    std::string out;
    for (const Group& group : all) out += std::to_string(group.code) + "\n" + group.value + "\n";
    return out;
}

Groups groupsOf(const std::string& text) {
    Groups out;
    std::istringstream in(text);
    std::string code;
    std::string value;
    while (std::getline(in, code) && std::getline(in, value))
        out.push_back({std::stoi(code), value});
    return out;
}

std::string fileWith(const std::string& entities, const char* version, const std::string& other) {
    Groups all = groups(std::string("0 SECTION|2 HEADER|9 $ACADVER|1 ") + version + "|0 ENDSEC");
    for (const std::string& part :
         {other, "0 SECTION|2 ENTITIES|" + entities + "|0 ENDSEC|0 EOF"}) {
        if (part.empty()) continue;
        const Groups more = groups(part);
        all.insert(all.end(), more.begin(), more.end());
    }
    return fileText(all);
}

Groups record(const Groups& all, const std::string& type, int code, const std::string& value) {
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!(all[i] == Group{0, type})) continue;
        Groups found{all[i]};
        bool match = code == -1;
        for (std::size_t k = i + 1; k < all.size() && all[k].code != 0; ++k) {
            found.push_back(all[k]);
            match = match || all[k] == Group{code, value};
        }
        if (match) return found;
    }
    return {};
}

std::size_t countOf(const Groups& all, const std::string& type) {
    std::size_t count = 0;
    for (const Group& group : all) count += group == Group{0, type} ? 1 : 0;
    return count;
}

std::string valueOf(const Groups& record, int code) {
    for (const Group& group : record)
        if (group.code == code) return group.value;
    return "(sem o grupo)";
}

std::string read(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
void write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::unique_ptr<AcDbDatabase> loadText(const std::string& text,
                                       prancheta::dxf::LoadReport* report) {
    const Folder folder;
    write(folder / "a.dxf", text);
    auto loaded = prancheta::dxf::load(folder / "a.dxf", report);
    EXPECT_TRUE(loaded.ok()) << (loaded.ok() ? "" : loaded.error().message());
    return loaded.ok() ? std::move(*loaded) : nullptr;
}

std::string saved(AcDbDatabase& database, prancheta::dxf::SaveOptions options) {
    const Folder folder;
    const auto done = prancheta::dxf::save(database, folder / "a.dxf", options);
    EXPECT_TRUE(done.ok()) << (done.ok() ? "" : done.error().message());
    return read(folder / "a.dxf");
}

Groups passed(const std::string& text, prancheta::dxf::SaveOptions options) {
    const auto database = loadText(text);
    return database != nullptr ? groupsOf(saved(*database, options)) : Groups();
}

std::vector<AcDbEntity*> modelSpace(AcDbDatabase& database) {
    std::vector<AcDbEntity*> out;
    for (const AcDbObjectId id : database.core().modelSpace()) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk) continue;
        out.push_back(entity);
        entity->close();
    }
    return out;
}

AcDbObjectId append(AcDbDatabase& database, AcDbEntity* entity) {
    AcDbObjectId id;
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.core().modelSpaceId(), AcDb::kForWrite);
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

// --- Bar -----------------------------------------------------------------------------------------

ACRX_DXF_DEFINE_MEMBERS(Bar, AcDbEntity, 0, 0, 0, BAR, "Teste")

void Bar::getEcs(AcGeMatrix3d& ecs) const {
    ecs = AcGeMatrix3d::translation(start.asVector()) *
          AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis);
    if (mirrored) ecs = ecs * AcGeMatrix3d::mirroring(AcGePoint3d::kOrigin, AcGeVector3d::kYAxis);
}

Acad::ErrorStatus Bar::dxfOutFields(AcDbDxfFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeItem(100, L"Bar");
    filer->writeItem(70, kind);
    filer->writeItem(90, count);
    filer->writeItem(290, mirrored);
    filer->writeItem(10, start);
    filer->writeItem(40, angle);
    filer->writeItem(40, length);
    filer->writeItem(40, height);
    filer->writeItem(1, mark.c_str());
    filer->writeItem(330, link);
    for (const double value : values) filer->writeItem(41, value);
    return filer->filerStatus();
}

Acad::ErrorStatus Bar::dxfInFields(AcDbDxfFiler* filer) {
    const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk) return es;
    if (!filer->atSubclassData(L"Bar")) return Acad::eBadDxfSequence;
    double* const reals[] = {&angle, &length, &height};
    std::size_t nextReal = 0;
    while (!filer->atEOF()) {
        resbuf item{};
        if (filer->readItem(&item) != Acad::eOk) return filer->filerStatus();
        switch (item.restype) {
            case 70:
                kind = item.resval.rint;
                break;
            case 90:
                count = item.resval.rlong;
                break;
            case 290:
                mirrored = item.resval.rint != 0;
                break;
            case 10:
                start.set(item.resval.rpoint[0], item.resval.rpoint[1], item.resval.rpoint[2]);
                break;
            case 40:
                if (nextReal < 3) *reals[nextReal++] = item.resval.rreal;
                break;
            case 41:
                values.push_back(item.resval.rreal);
                break;
            case 1:
                mark = item.resval.rstring;
                acutDelString(item.resval.rstring);
                break;
            case 330:
                (void)acdbGetObjectId(link, item.resval.rlname);
                break;
            default:
                return Acad::eBadDxfSequence;
        }
    }
    return kind < 0 ? Acad::eInvalidInput : filer->filerStatus();
}

bool Bar::sameState(const Bar& other) const {
    const double mine[] = {start.x, start.y, start.z, angle, length, height};
    const double theirs[] = {other.start.x, other.start.y, other.start.z,
                             other.angle,   other.length,  other.height};
    return std::memcmp(mine, theirs, sizeof mine) == 0 && mirrored == other.mirrored &&
           kind == other.kind && count == other.count && mark == other.mark &&
           values.size() == other.values.size() &&
           std::memcmp(values.data(), other.values.data(), values.size() * sizeof(double)) == 0;
}

Adesk::Boolean Bar::subWorldDraw(AcGiWorldDraw* draw) {
    AcGeMatrix3d ecs;
    getEcs(ecs);
    draw->geometry().pushModelTransform(ecs);
    const AcGePoint3d corners[] = {{0, 0, 0}, {length, 0, 0}, {length, height, 0}, {0, height, 0}};
    const double bulges[] = {0, 0, 0, 0};
    draw->geometry().pline(4, corners, bulges, true);
    const AcGePoint3d dashed[] = {{0, height / 4, 0}, {length, height / 4, 0}};
    draw->subEntityTraits().setLineType(
        database() != nullptr ? database()->core().ensureLinetype(L"HIDDEN") : AcDbObjectId());
    draw->geometry().polyline(2, dashed);
    const AcGePoint3d axis[] = {{0, height / 2, 0}, {length, height / 2, 0}};
    draw->subEntityTraits().setColor(1);
    draw->geometry().polyline(2, axis);
    draw->geometry().popModelTransform();
    return Adesk::kTrue;
}

Acad::ErrorStatus Bar::subTransformBy(const AcGeMatrix3d& m) {
    const Acad::ErrorStatus es = AcDbEntity::subTransformBy(m);
    if (es != Acad::eOk) return es;
    start.transformBy(m);
    const AcGeVector3d along = m * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
    angle = std::atan2(along.y, along.x);
    length *= along.length();
    height *= along.length();
    if (m.det() < 0.0) mirrored = !mirrored;
    return Acad::eOk;
}

BarModule::BarModule() {
    prancheta::registerEntityClasses();
    Bar::rxInit();
    acrxBuildClassHierarchy();
}
BarModule::~BarModule() { deleteAcRxClass(Bar::desc()); }

}  // namespace dxftest
