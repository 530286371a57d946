// SPDX-License-Identifier: MIT
// Loading: the file, its sections, and what is done when all is read.
#include <algorithm>

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/binary.h"
#include "prancheta/dxf/kept_handles.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/dxf/mending.h"
#include "prancheta/dxf/piece_copy.h"
#include "prancheta/entities/register.h"

namespace prancheta::dxf {
namespace {

bool isName(std::string_view value, std::string_view name) {
    value = trim(value);
    return value.size() == name.size() &&
           std::equal(value.begin(), value.end(), name.begin(), [](char a, char b) {
               return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b;
           });
}

/// Where a fault stands: line of a text file, byte of a binary one.
Error errorOf(const Fault& fault, std::string_view text, const std::vector<std::size_t>* offsets,
              const std::filesystem::path& path) {
    const char* const at = fault.at != nullptr ? fault.at : text.data() + text.size();
    const auto lines = std::count(text.data(), at, '\n');
    Error error{fault.text, path.string(), 0, 0};
    if (offsets == nullptr) {
        error.line = static_cast<int>(lines) + 1;
    } else if (!offsets->empty()) {
        const std::size_t tag = std::min(static_cast<std::size_t>(lines) / 2, offsets->size() - 1);
        error.text += " (byte " + std::to_string((*offsets)[tag]) + ")";
    }
    return error;
}

}  // namespace

Loader::Loader(AcDbDatabase& database, std::string_view text, const MappedFile* file,
               LoadReport& report)
    : LoadNames(database, Charset::Windows1252),
      m_database(database),
      m_core(database.core()),
      m_text(text),
      m_file(file),
      m_givenBack(text.data()),
      m_report(report),
      m_reader(text) {}

bool Loader::bad(const char* at, std::string text) {
    if (!m_fault) m_fault = Fault{std::move(text), at};
    return false;
}

/// Lines are counted on from the last finding, because findings mostly come in the order of the
/// file.
void Loader::note(std::string text, const char* at, Adesk::UInt64 handle) {
    int line = 0;
    if (at != nullptr) {
        if (m_countedTo == nullptr || at < m_countedTo) {
            m_countedTo = m_text.data();
            m_linesCounted = 1;
        }
        m_linesCounted += static_cast<int>(std::count(m_countedTo, at, '\n'));
        m_countedTo = at;
        line = m_linesCounted;
    }
    m_report.findings.push_back({std::move(text), line, handle});
}

void Loader::doneUpTo(const char* at) {
    constexpr std::ptrdiff_t kStep = 1 << 20;
    if (m_file == nullptr || at - m_givenBack < kStep) return;
    m_file->giveBack({m_givenBack, static_cast<std::size_t>(at - m_givenBack)});
    m_givenBack = at;
}

/// Next record of a section; at its end false without a fault.
bool Loader::nextIn(TagReader& reader, Record& record, const char* section, const char* end) {
    doneUpTo(m_reader.position());
    if (!reader.next(record)) {
        if (reader.fault()) return bad(reader.fault()->at, reader.fault()->text);
        return bad(nullptr, std::string("o arquivo está truncado: falta o fim (") + end +
                                ") da seção " + section);
    }
    if (record.type == "EOF")
        return bad(record.at, std::string("falta o fim (") + end + ") da seção " + section);
    return record.type != end;
}

bool Loader::run() {
    m_core.undo().setRecording(false);
    for (;;) {
        const bool more = m_reader.next(m_record);
        if (!more && m_reader.fault()) return bad(m_reader.fault()->at, m_reader.fault()->text);
        if (!more) return bad(nullptr, "o arquivo está truncado: falta o grupo final EOF");
        if (m_record.type == "EOF") break;
        if (!isName(m_record.type, "SECTION"))
            return bad(m_record.at, "esperado SECTION, encontrado \"" +
                                        toUtf8(toWide(m_record.type.substr(0, 40))) + "\"");
        if (!readSection()) return false;
    }
    return complete();
}

bool Loader::readSection() {
    if (m_record.tags.empty() || m_record.tags[0].code != 2)
        return bad(m_record.at, "uma seção não tem nome");
    const std::string_view name = trim(m_record.tags[0].value);
    if (isName(name, "HEADER")) return readHeader();
    if (!m_hasSeed) reserveAllHandles();
    if (isName(name, "CLASSES")) return readClasses();
    if (isName(name, "TABLES")) return readTables();
    makeRequired();
    if (isName(name, "BLOCKS")) return readBlocks();
    if (isName(name, "ENTITIES")) return readEntities();
    if (isName(name, "OBJECTS")) return readObjects();
    return keepSection(name);
}

bool Loader::readClasses() {
    RawTags& kept = m_core.foreign().classes;
    while (nextIn(m_reader, m_record, "CLASSES", "ENDSEC")) {
        kept.push_back({0, decode(m_record.type, charset())});
        if (!appendRaw(kept, m_record.tags, charset(), m_fault)) return false;
    }
    return !m_fault;
}

bool Loader::keepSection(std::string_view name) {
    RawTags kept{{2, decode(name, charset())}};
    Tags rest(m_record.tags.begin() + 1, m_record.tags.end());
    if (!appendRaw(kept, rest, charset(), m_fault)) return false;
    while (nextIn(m_reader, m_record, "desconhecida", "ENDSEC")) {
        kept.push_back({0, decode(m_record.type, charset())});
        if (!appendRaw(kept, m_record.tags, charset(), m_fault)) return false;
    }
    m_core.foreign().sections.push_back(std::move(kept));
    return !m_fault;
}

AcDbObjectId Loader::resolve(Kind kind, const std::wstring& name) {
    if (kind == kBlock) return makeBlock(block(name));
    if (name.empty()) return kind == kLayer ? LoadNames::find(kLayer, "0") : AcDbObjectId();
    const AcDbObjectId tables[] = {m_database.layerTableId(), m_database.linetypeTableId(),
                                   m_database.textStyleTableId(), m_database.dimStyleTableId()};
    auto& table = static_cast<AcDbSymbolTable&>(*static_cast<AcDbStub*>(tables[kind])->object);
    if (const AcDbObjectId id = ObjectAccess::lookup(table, name); !id.isNull()) return id;
    if (kind == kLayer && equalNoCase(name, kCopyLayer))
        if (const ObjectExtra* const extra = ObjectAccess::extra(table);
            extra != nullptr && !extra->foreign.empty())
            return makeCopyLayer();
    constexpr const char* kWhat[] = {"a camada", "o tipo de linha", "o estilo de texto",
                                     "o estilo de cota"};
    note(std::string(kWhat[kind]) + " \"" + toUtf8(name) + "\" não tem registro; foi criado um",
         nullptr, 0);
    std::unique_ptr<AcDbSymbolTableRecord> record;
    switch (kind) {
        case kLayer: {
            auto layer = std::make_unique<AcDbLayerTableRecord>();
            if (const AcDbObjectId continuous = m_database.continuousLinetype();
                !continuous.isNull())
                (void)layer->setLinetypeObjectId(continuous);
            record = std::move(layer);
            break;
        }
        case kLinetype:
            if (const AcDbObjectId known = m_core.ensureLinetype(name); !known.isNull()) {
                m_automatic.insert(known);
                return known;
            }
            record = std::make_unique<AcDbLinetypeTableRecord>();
            break;
        case kTextStyle:
            record = std::make_unique<AcDbTextStyleTableRecord>();
            break;
        default:
            record = std::make_unique<AcDbDimStyleTableRecord>();
            break;
    }
    ObjectAccess::setName(*record, name);
    AcDbSymbolTableRecord* const added = record.release();
    if (!ObjectAccess::addRecord(table, added)) {
        delete added;
        return {};
    }
    added->close();
    m_automatic.insert(added->objectId());
    return added->objectId();
}

Adesk::UInt64 Loader::claim(Adesk::UInt64 handle, const char* at) {
    if (handle == 0) return 0;
    AcDbStub* const stub = m_core.find(handle);
    if (stub == nullptr || stub->object == nullptr) return handle;
    if (m_automatic.contains(stub)) {
        (void)m_core.changeHandle(AcDbObjectId(stub), m_core.nextHandle());
        return handle;
    }
    noteRepeated(at, handle);
    return 0;
}

void Loader::noteRepeated(const char* at, Adesk::UInt64 handle) {
    note("identificador repetido no arquivo; o objeto recebeu outro", at, handle);
}

/// Records that every drawing has; what the file lacked gets a handle that gives way to the file's.
void Loader::makeRequired() {
    if (m_requiredMade) return;
    m_requiredMade = true;
    const StubPool& stubs = ObjectAccess::stubs(m_core);
    const std::size_t before = stubs.size();
    m_core.addRequiredRecords();
    for (std::size_t i = before; i < stubs.size(); ++i) m_automatic.insert(&stubs[i]);
}

/// A file that does not say which handles are free: all that it uses are looked at.
void Loader::reserveAllHandles() {
    m_hasSeed = true;
    TagReader reader(m_text);
    Tag tag;
    std::uint64_t handle = 0;
    while (reader.next(tag))
        if ((tag.code == 5 || tag.code == 105) && parseHandle(tag.value, handle))
            m_core.reserveHandle(handle);
}

bool Loader::complete() {
    makeRequired();
    if (!readWantedBlocks()) return false;
    if (!takeExtensionDictionaries()) return false;
    linkReactors();
    linkLeaders();
    if (!keepObjects()) return false;
    std::vector<Adesk::UInt64> parts;
    forEachKeptPart(m_core, [&](Adesk::UInt64 handle) {
        if (handle != 0) parts.push_back(handle);
    });
    for (const Adesk::UInt64 handle : parts) m_core.reserveHandle(handle);
    forEachKeptRecord(m_core, [&](Adesk::UInt64 handle) { m_core.reserveHandle(handle); });
    // To a record that is kept group by group an object gives way; a part gets another handle when
    // it is written.
    for (const Adesk::UInt64 handle : parts) (void)claim(handle, nullptr);
    forEachKeptRecord(m_core, [&](Adesk::UInt64 handle) {
        const auto object = m_objectsByHandle.find(handle);
        if (claim(handle, object != m_objectsByHandle.end() ? object->second->at : nullptr) == 0)
            (void)m_core.changeHandle(AcDbObjectId(m_core.find(handle)), m_core.nextHandle());
    });
    m_core.assignMissingHandles();
    takeArrows();
    keepFiledDimensions();
    applyVariables();
    for (const LaterMove& move : m_moved) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenObject(entity, move.entity->objectId(), AcDb::kForWrite) != Acad::eOk) continue;
        if (entity->transformBy(move.matrix) != Acad::eOk)
            note("a peça foi mudada por outro programa e não pôde acompanhar a mudança", nullptr,
                 entity->objectId().handle().value());
        entity->close();
    }
    noteNesting();
    m_core.foreign().acadVersion = m_version;
    m_core.undo().clear();
    m_core.undo().setRecording(true);
    return true;
}

namespace {

/// The text of a file, also of a binary one.
struct FileText {
    std::shared_ptr<const MappedFile> file;
    std::string_view text;
    BinaryText binary;
    bool isBinaryFile = false;
};

Result<FileText> textOf(const std::filesystem::path& path, Damage damage) {
    auto file = MappedFile::open(path);
    if (!file) return file.error();
    FileText read;
    read.file = *file;
    read.text = read.file->bytes();
    read.isBinaryFile = isBinary(read.text);
    if (!read.isBinaryFile) return read;
    auto converted = textOfBinary(read.text, damage);
    if (!converted) {
        Error error = converted.error();
        error.file = path.string();
        return error;
    }
    read.binary = std::move(*converted);
    return read;
}

}  // namespace

namespace {

/// Reads into a drawing that has nothing yet.
Result<void> loadInto(AcDbDatabase& database, const FileText& file,
                      const std::filesystem::path& path, LoadReport& report) {
    const std::string_view text = file.isBinaryFile ? file.binary.text : file.text;
    Loader loader(database, text, file.isBinaryFile ? nullptr : file.file.get(), report);
    const bool whole = loader.run();
    if (file.file->changed())
        return Error{"outro programa mudou o arquivo enquanto ele era lido; abra-o outra vez",
                     path.string(), 0, 0};
    if (!whole)
        return errorOf(*loader.fault(), text, file.isBinaryFile ? &file.binary.offsets : nullptr,
                       path);
    return {};
}

}  // namespace

Result<std::unique_ptr<AcDbDatabase>> load(const std::filesystem::path& path, LoadReport* report) {
    registerEntityClasses();
    const Result<FileText> file = textOf(path, Damage::IsAnError);
    if (!file) return file.error();
    LoadReport unread;
    auto database = std::make_unique<AcDbDatabase>(false, true);
    if (const Result<void> loaded =
            loadInto(*database, *file, path, report != nullptr ? *report : unread);
        !loaded)
        return loaded.error();
    return database;
}

namespace {

/// A binary file has no lines.
void tellByte(Finding& finding, const std::vector<std::size_t>& offsets) {
    if (finding.line > 0 && !offsets.empty()) {
        const std::size_t group = static_cast<std::size_t>(finding.line - 1) / 2;
        finding.text +=
            " (byte " + std::to_string(offsets[std::min(group, offsets.size() - 1)]) + ")";
    }
    finding.line = 0;
}

}  // namespace

Result<std::unique_ptr<AcDbDatabase>> recover(const std::filesystem::path& path,
                                              LoadReport& report) {
    // What only the reading finds, once the rest is mended: damage, not another kind of file.
    constexpr int kMostAttempts = 50;
    registerEntityClasses();
    const Result<FileText> file = textOf(path, Damage::PassedOver);
    if (!file) return file.error();
    Mended mended = mend(file->isBinaryFile ? file->binary.text : file->text);
    if (mended.origins.empty())
        return Error{"o arquivo não tem nada que possa ser lido como desenho", path.string(), 0, 0};
    for (int attempt = 0;; ++attempt) {
        LoadReport findings;
        auto database = std::make_unique<AcDbDatabase>(false, true);
        Loader loader(*database, mended.text, nullptr, findings);
        if (loader.run()) {
            for (Finding& finding : findings.findings)
                finding.line = mended.formerLine(finding.line);
            std::vector<Finding>& all = report.findings;
            const std::size_t first = all.size();
            all.insert(all.end(), mended.losses.begin(), mended.losses.end());
            all.insert(all.end(), findings.findings.begin(), findings.findings.end());
            if (file->isBinaryFile)
                std::for_each(all.begin() + static_cast<std::ptrdiff_t>(first), all.end(),
                              [&](Finding& finding) { tellByte(finding, file->binary.offsets); });
            return database;
        }
        Error error = errorOf(*loader.fault(), mended.text, nullptr, path);
        if (attempt < kMostAttempts && mended.leaveOut(error.line, error.text)) continue;
        error.line = mended.formerLine(error.line);
        return error;
    }
}

}  // namespace prancheta::dxf

Acad::ErrorStatus AcDbDatabase::dxfIn(const ACHAR* dxfFilename, const ACHAR*) {
    using namespace prancheta;
    if (dxfFilename == nullptr) return Acad::eInvalidInput;
    AcDbDatabase* const working = acdbHostApplicationServices()->workingDatabase();
    const std::filesystem::path path = pathFromUtf8(toUtf8(dxfFilename));
    registerEntityClasses();
    const Result<dxf::FileText> file = dxf::textOf(path, dxf::Damage::IsAnError);
    dxf::LoadReport unread;
    const bool whole = file && dxf::loadInto(*this, *file, path, unread);
    acdbHostApplicationServices()->setWorkingDatabase(working);
    return !file ? Acad::eFilerError : whole ? Acad::eOk : Acad::eBadDxfSequence;
}
