// SPDX-License-Identifier: MIT
// Second reading: sections, handles, and what must be in every file.
#include "prancheta/verify/examiner.h"

#include <algorithm>

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/dxf/binary.h"

namespace prancheta::verify {
namespace {

struct Required {
    Census::Names kind;
    const char* name;  ///< as nameKey() gives it
    const char* what;
};

constexpr Required kRequired[] = {
    {Census::kLayers, "0", "a camada 0"},
    {Census::kLinetypes, "byblock", "o tipo de linha ByBlock"},
    {Census::kLinetypes, "bylayer", "o tipo de linha ByLayer"},
    {Census::kLinetypes, "continuous", "o tipo de linha Continuous"},
    {Census::kStyles, "standard", "o estilo de texto Standard"},
    {Census::kDimStyles, "standard", "o estilo de cota Standard"},
    {Census::kApplications, "acad", "o aplicativo ACAD (tabela APPID)"},
};

struct RequiredSection {
    Place place;
    const char* name;
};

constexpr RequiredSection kSections[] = {
    {Place::Header, "HEADER"},     {Place::Tables, "TABLES"},   {Place::Blocks, "BLOCKS"},
    {Place::Entities, "ENTITIES"}, {Place::Objects, "OBJECTS"},
};

bool isFrame(std::string_view type) {
    return type == "SECTION" || type == "ENDSEC" || type == "ENDTAB" || type == "EOF";
}

}  // namespace

std::string Remark::message() const {
    std::string out;
    if (line > 0) out += "linha " + std::to_string(line) + ": ";
    if (!type.empty())
        out += type + (handle != 0 ? " " + dxf::handleText(handle) : std::string()) + ": ";
    return out + text;
}

std::string shown(std::string_view value) {
    return "\"" + toUtf8(toWide(trim(value).substr(0, 60))) + "\"";
}

Examiner::Examiner(std::string_view text, Verdict& verdict)
    : m_text(text),
      m_verdict(verdict),
      m_census(takeCensus(text)),
      m_walker(text),
      m_countedTo(text.data()) {}

/// Lines are counted on from the last remark: remarks mostly come in the order of the file.
int Examiner::lineOf(const char* at) {
    if (at == nullptr) return 0;
    if (at < m_countedTo) {
        m_countedTo = m_text.data();
        m_line = 1;
    }
    m_line += static_cast<int>(std::count(m_countedTo, at, '\n'));
    m_countedTo = at;
    return m_line;
}

void Examiner::add(Severity severity, std::string text, const char* at) {
    ++(severity == Severity::Error ? m_verdict.errors : m_verdict.warnings);
    if (m_verdict.remarks.size() >= kMostRemarks) return;
    Remark remark{severity, std::move(text), {}, 0, lineOf(at)};
    if (at != nullptr && !isFrame(m_record.type)) {
        remark.type = std::string(m_record.type);
        remark.handle = handleOf(m_record);
    }
    m_verdict.remarks.push_back(std::move(remark));
}

void Examiner::error(std::string text, const char* at) {
    add(Severity::Error, std::move(text), at);
}

void Examiner::warning(std::string text, const char* at) {
    add(Severity::Warning, std::move(text), at);
}

bool Examiner::define(std::string_view kind, std::string_view name) {
    return m_defined.insert(std::string(kind) + "\n" + nameKey(name, m_census.charset)).second;
}

void Examiner::refersTo(std::string_view block) {
    if (m_walker.block.empty()) return;
    m_references[nameKey(m_walker.block, m_census.charset)].insert(
        nameKey(block, m_census.charset));
}

void Examiner::run() {
    while (!m_ended && m_walker.next(m_record)) {
        ++m_verdict.records;
        examineSections();
        examineFrames();
        if (m_walker.place == Place::Blocks || m_walker.place == Place::Entities) examineSequence();
        if (m_record.type == "SECTION" && m_walker.place == Place::Header) examineHeader();
        if (m_inSection && !isFrame(m_record.type)) examineRecord();
    }
    if (m_ended && (m_walker.next(m_record) || m_walker.fault())) {
        error("há dados depois do grupo final EOF");
    } else if (m_walker.fault()) {
        m_record = {};
        const char* const at = m_walker.fault()->at;
        error(m_walker.fault()->text, at != nullptr ? at : m_text.data() + m_text.size());
    } else if (!m_ended) {
        m_record = {};
        error("falta o grupo final EOF", m_text.data() + m_text.size());
    }
    finish();
}

void Examiner::examineSections() {
    if (m_record.type == "SECTION") {
        if (m_inSection) error("uma seção começa dentro de outra: falta ENDSEC");
        m_inSection = true;
        const auto place = static_cast<int>(m_walker.place);
        const bool known = m_walker.place != Place::Other;
        if (known && m_sections.contains(place)) error("a seção aparece duas vezes");
        const bool late = std::any_of(m_sections.begin(), m_sections.end(),
                                      [&](int seen) { return seen > place; });
        if (known && late)
            error("a seção " + shown(valueOf(m_record, 2)) + " está fora da ordem usual");
        if (known) m_sections.insert(place);
    } else if (m_record.type == "ENDSEC") {
        if (!m_inSection) error("ENDSEC sem seção");
        m_inSection = false;
    } else if (m_record.type == "EOF") {
        if (m_inSection) error("o arquivo termina dentro de uma seção: falta ENDSEC");
        m_ended = true;
    } else if (!m_inSection) {
        error("registro fora de qualquer seção");
    }
}

/// Tables and blocks begin and end in their own sections, one after the other.
void Examiner::examineFrames() {
    struct Frame {
        std::string_view begin;
        std::string_view end;
        Place place;
        bool* open;
        const char* what;
    };
    const Frame frames[] = {{"TABLE", "ENDTAB", Place::Tables, &m_inTable, "uma tabela"},
                            {"BLOCK", "ENDBLK", Place::Blocks, &m_inBlock, "um bloco"}};
    const bool between = m_record.type == "SECTION" || m_record.type == "ENDSEC";
    for (const Frame& frame : frames) {
        const bool begins = m_record.type == frame.begin;
        const bool ends = m_record.type == frame.end;
        if ((begins || between) && *frame.open)
            error(std::string(frame.what) + " não termina: falta " + std::string(frame.end));
        if (begins || between) *frame.open = begins;
        if ((begins || ends) && m_walker.place != frame.place)
            error(std::string(m_record.type) + " fora da sua seção");
        else if (ends && !*frame.open)
            error(std::string(frame.end) + " sem começo");
        if (ends) *frame.open = false;
    }
}

/// Old polylines and references with attributes go on up to SEQEND.
void Examiner::examineSequence() {
    const std::string_view type = m_record.type;
    const bool isPart = type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
    if (!m_parts.empty() && type != m_parts && type != "SEQEND") {
        error("falta SEQEND depois dos vértices ou atributos");
        m_parts = {};
    } else if (isPart && m_parts.empty()) {
        error(std::string(type) + " não pertence a nenhuma entidade");
    }
    long long follows = 0;
    (void)dxf::parseInteger(valueOf(m_record, 66), follows);  // a bad value was told already
    if (type == "SEQEND") m_parts = {};
    if (type == "POLYLINE") m_parts = "VERTEX";
    if (type == "INSERT" && follows != 0) m_parts = "ATTRIB";
}

void Examiner::examineHeader() {
    std::string_view variable;
    std::size_t count = 0;
    for (const dxf::Tag& tag : m_record.tags) {
        std::string why;
        if (tag.code == 9) {
            variable = trim(tag.value);
            if (++count == 1 && variable != "$ACADVER")
                warning("$ACADVER deve ser a primeira variável", tag.value.data());
            if (!define("HEADER", variable))
                error("a variável " + shown(variable) + " aparece duas vezes", tag.value.data());
        } else if (!dxf::checkValue(tag, why)) {
            error(std::string(variable) + ": " + why, tag.value.data());
        }
        if (variable == "$HANDSEED" && tag.code == 5 && m_census.seed <= m_census.largest)
            error("$HANDSEED (" + dxf::handleText(m_census.seed) +
                      ") deve ser maior que o maior handle (" + dxf::handleText(m_census.largest) +
                      ")",
                  tag.value.data());
        if (variable == "$CLAYER" && tag.code == 8 && !m_census.knows(Census::kLayers, tag.value))
            error("$CLAYER: a camada " + shown(tag.value) + " não existe", tag.value.data());
    }
    if (m_census.modern && m_census.seed == 0) error("falta a variável $HANDSEED");
}

void Examiner::examineHandle() {
    if (!m_census.modern || m_record.type == "CLASS") return;
    const std::uint64_t handle = handleOf(m_record);
    if (handle == 0)
        error("falta o handle");
    else if (!m_seen.insert(handle).second)
        error("o handle já é de outro objeto");
}

void Examiner::examineRecord() {
    if (m_walker.place == Place::Classes) {
        if (m_record.type != "CLASS") error("registro fora do lugar na seção CLASSES");
        return examineGroups(*this, m_record);
    }
    examineHandle();
    examineGroups(*this, m_record);
    switch (m_walker.place) {
        case Place::Tables:
            if (m_record.type == "TABLE") m_tableHandle = handleOf(m_record);
            return examineTableRecord(*this, m_record);
        case Place::Blocks:
        case Place::Entities:
            return examineEntity(*this, m_record);
        case Place::Objects:
            ++m_objects;
            return examineObject(*this, m_record);
        default:
            return;
    }
}

void Examiner::finish() {
    m_record = {};
    if (!m_census.modern) return findCycles();
    for (const RequiredSection& section : kSections)
        if (!m_sections.contains(static_cast<int>(section.place)))
            error(std::string("falta a seção ") + section.name, nullptr);
    requireNames();
    requireBlocks();
    findCycles();
    if (m_sections.contains(static_cast<int>(Place::Objects)) &&
        !m_rootEntries.contains("ACAD_GROUP"))
        error("o dicionário principal não tem a entrada ACAD_GROUP", nullptr);
}

void Examiner::requireNames() {
    for (const Required& required : kRequired)
        if (!m_census.names[required.kind].contains(required.name))
            error(std::string("falta ") + required.what, nullptr);
}

void Examiner::requireBlocks() {
    const auto& blocks = m_census.names[Census::kBlocks];
    for (const char* const space : {"*model_space", "*paper_space"})
        if (!blocks.contains(space) || !m_census.blockRecords.contains(space))
            error(std::string("falta o bloco ou o registro de bloco ") + space, nullptr);
    for (const auto& [name, handle] : m_census.blockRecords)
        if (!blocks.contains(name))
            error("o registro de bloco \"" + name + "\" não tem bloco na seção BLOCKS", nullptr);
}

/// Depth first, without recursion: a file may nest blocks as deep as it likes.
void Examiner::findCycles() {
    enum class State { Open, Done };
    struct Visit {
        std::string block;
        bool leaves = false;
    };
    std::unordered_map<std::string, State> states;
    std::vector<Visit> stack;
    stack.reserve(m_references.size());
    for (const auto& entry : m_references) stack.push_back({entry.first});
    while (!stack.empty()) {
        const Visit visit = std::move(stack.back());
        stack.pop_back();
        if (visit.leaves) {
            states[visit.block] = State::Done;
            continue;
        }
        const auto [state, isNew] = states.try_emplace(visit.block, State::Open);
        if (!isNew) continue;
        stack.push_back({visit.block, true});
        const auto references = m_references.find(visit.block);
        if (references == m_references.end()) continue;
        for (const std::string& next : references->second) {
            const auto known = states.find(next);
            if (known != states.end() && known->second == State::Open)
                error("o bloco \"" + next + "\" contém a si mesmo", nullptr);
            else
                stack.push_back({next});
        }
    }
}

Result<Verdict> examine(const std::filesystem::path& path) {
    const auto file = MappedFile::open(path);
    if (!file) return file.error();
    Verdict verdict;
    if (dxf::isBinary((*file)->bytes())) {
        const auto text = dxf::textOfBinary((*file)->bytes());
        if (!text) return Error{text.error().text, path.string(), 0, 0};
        Examiner(text->text, verdict).run();
    } else {
        Examiner((*file)->bytes(), verdict).run();
    }
    if ((*file)->changed())
        return Error{"outro programa mudou o arquivo enquanto ele era lido; examine-o outra vez",
                     path.string(), 0, 0};
    return verdict;
}

}  // namespace prancheta::verify
