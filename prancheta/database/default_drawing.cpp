// SPDX-License-Identifier: MIT
// What a new drawing holds, and what it gets on demand.
#include <iterator>

#include "prancheta/base/text.h"
#include "prancheta/database/names.h"
#include "prancheta/database/object_access.h"

namespace prancheta {
namespace {

struct Pattern {
    const wchar_t* name;
    const wchar_t* comment;
    std::vector<double> dashes;  // millimetres
};

const Pattern* standardPattern(std::wstring_view name) {
    static const Pattern kPatterns[] = {
        {L"HIDDEN", L"Oculta __ __ __ __ __ __ __", {6.35, -3.175}},
        {L"CENTER", L"Centro ____ _ ____ _ ____ _", {31.75, -6.35, 6.35, -6.35}},
        {L"DASHED", L"Tracejada __ __ __ __ __ __", {12.7, -6.35}},
        {L"PHANTOM", L"Fantasma ______ __ __ ______", {31.75, -6.35, 6.35, -6.35, 6.35, -6.35}},
    };
    for (const Pattern& pattern : kPatterns)
        if (equalNoCase(pattern.name, name)) return &pattern;
    return nullptr;
}

AcDbSymbolTable& table(AcDbObjectId id) {
    return static_cast<AcDbSymbolTable&>(*static_cast<AcDbStub*>(id)->object);
}

/// Makes a record, fills it, adds it and closes it. The name is not in the table yet.
template <class Record, class Fill>
AcDbObjectId addRecord(AcDbObjectId tableId, std::wstring_view name, Fill&& fill) {
    auto record = std::make_unique<Record>();
    ObjectAccess::setName(*record, std::wstring(name));
    fill(*record);
    Record* added = record.release();
    (void)ObjectAccess::addRecord(table(tableId), added);
    added->close();
    return added->objectId();
}
template <class Record>
AcDbObjectId addRecord(AcDbObjectId tableId, std::wstring_view name) {
    return addRecord<Record>(tableId, name, [](Record&) {});
}

}  // namespace

DatabaseCore::DatabaseCore(AcDbDatabase& database) : m_database(database), m_undo(database) {}

// Recording starts when the drawing stands. Without the default drawing the tables leave all
// handles to the file that is to be read.
void DatabaseCore::build(bool buildDefaultDrawing) {
    m_undo.setRecording(false);
    linkVariables();
    AcDbObject* const tables[] = {new AcDbBlockTable,    new AcDbLayerTable,
                                  new AcDbLinetypeTable, new AcDbTextStyleTable,
                                  new AcDbDimStyleTable, new AcDbRegAppTable};
    for (std::size_t i = 0; i < std::size(tables); ++i) {
        (void)makeResident(*tables[i], {});
        m_tables[i] = tables[i]->objectId();
        tables[i]->close();
    }
    auto* root = new AcDbDictionary;
    (void)makeResident(*root, {});
    m_rootDictionary = root->objectId();
    root->close();
    m_modelSpace = addRecord<AcDbBlockTableRecord>(m_tables[kBlocks], ACDB_MODEL_SPACE);
    (void)addRecord<AcDbBlockTableRecord>(m_tables[kBlocks], ACDB_PAPER_SPACE);
    if (buildDefaultDrawing) {
        addRequiredRecords();
    } else {
        for (std::size_t i = 0; i < m_stubs.size(); ++i) m_stubs[i].handle = 0;
        m_byHandle = {};
        m_nextHandle = 1;
    }
    m_undo.setRecording(true);
}

void DatabaseCore::addRequiredRecords() {
    for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"}) (void)ensureLinetype(name);
    (void)ensureLayer(L"0");
    (void)ensureRegApp(L"ACAD");
    AcDbObjectId text = ObjectAccess::lookup(table(m_tables[kTextStyles]), L"Standard");
    if (text.isNull())
        text = addRecord<AcDbTextStyleTableRecord>(m_tables[kTextStyles], L"Standard");
    AcDbObjectId dimension = ObjectAccess::lookup(table(m_tables[kDimStyles]), L"Standard");
    if (dimension.isNull())
        dimension = addRecord<AcDbDimStyleTableRecord>(
            m_tables[kDimStyles], L"Standard",
            [&](AcDbDimStyleTableRecord& style) { (void)style.setDimtxsty(text); });
    const std::pair<Current, AcDbObjectId> wanted[] = {{kLayer, m_database.layerZero()},
                                                       {kLinetype, m_database.byLayerLinetype()},
                                                       {kTextStyle, text},
                                                       {kDimStyle, dimension}};
    for (const auto& [which, id] : wanted)
        if (m_current[which].isNull()) m_current[which] = id;
    showCurrent();
}

AcDbObjectId DatabaseCore::ensureLayer(std::wstring_view name, Adesk::UInt16 color) {
    const AcDbObjectId known = ObjectAccess::lookup(table(m_tables[kLayers]), name);
    if (!known.isNull() || !isValidName(name, false)) return known;
    const AcDbObjectId continuous = ensureLinetype(L"Continuous");
    return addRecord<AcDbLayerTableRecord>(
        m_tables[kLayers], name, [&](AcDbLayerTableRecord& layer) {
            (void)layer.setColorIndex(color);  // a colour out of range leaves the default
            (void)layer.setLinetypeObjectId(continuous);
        });
}

AcDbObjectId DatabaseCore::ensureLinetype(std::wstring_view name) {
    const AcDbObjectId known = ObjectAccess::lookup(table(m_tables[kLinetypes]), name);
    if (!known.isNull() || !isValidName(name, false)) return known;
    return addRecord<AcDbLinetypeTableRecord>(m_tables[kLinetypes], name,
                                              [&](AcDbLinetypeTableRecord& linetype) {
                                                  const Pattern* pattern = standardPattern(name);
                                                  if (pattern == nullptr) return;
                                                  (void)linetype.setComments(pattern->comment);
                                                  ObjectAccess::dashes(linetype) = pattern->dashes;
                                              });
}

AcDbObjectId DatabaseCore::ensureRegApp(std::wstring_view name) {
    const AcDbObjectId known = ObjectAccess::lookup(table(m_tables[kRegApps]), name);
    if (!known.isNull() || !isValidName(name, false)) return known;
    return addRecord<AcDbRegAppTableRecord>(m_tables[kRegApps], name);
}

}  // namespace prancheta
