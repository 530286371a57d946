// SPDX-License-Identifier: MIT
// Mending in one pass over the lines: groups are read until one makes no sense; the reader takes
// hold again at the next line 0 that is followed by a type. Records then go through the frames of
// the format (section, table, block, sequence of parts), which are opened and closed where the
// file does not.
#include "prancheta/dxf/mending.h"

#include <algorithm>
#include <optional>
#include <set>

#include "prancheta/base/text.h"
#include "prancheta/dxf/damaged_groups.h"
#include "prancheta/dxf/damaged_records.h"
#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {
namespace {

bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool isRecordOfTable(std::string_view type) {
    return isOneOf(type, {"VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE",
                          "BLOCK_RECORD"});
}

bool isSection(std::string_view name) {
    return isOneOf(name, {"", "HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"});
}

/// Its loss would take with it what it frames: only its bad groups are left out.
bool isFrame(std::string_view type) {
    return isOneOf(
        type, {"SECTION", "ENDSEC", "TABLE", "ENDTAB", "BLOCK", "ENDBLK", "SEQEND", "DICTIONARY"});
}

constexpr std::string_view kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

class Mender {
public:
    explicit Mender(std::string_view text) : m_records(text) {}

    Mended run() {
        while (m_records.next(m_record)) {
            take();
        }
        if (!m_ended) tell("o arquivo está truncado: falta o grupo final EOF", m_records.line());
        closeSection(m_records.line());
        put("0\nEOF\n");
        return std::move(m_mended);
    }

private:
    void take() {
        if (m_ended) return;
        if (m_record.type == "EOF") {
            m_ended = true;
            return;
        }
        cleanGroups();
        if (m_record.type == "SECTION") return beginSection();
        if (m_record.type == "ENDSEC") {
            if (m_section.empty()) return lose("fim de seção sem começo");
            return closeSection(m_record.line);
        }
        if (m_section == "CLASSES" && m_record.type != "CLASS" && !belongsElsewhere())
            return lose("fora do lugar");
        if (m_section == "HEADER" || (m_section == "CLASSES" && m_record.type != "CLASS") ||
            (!isSection(m_section) && belongsElsewhere()))
            closeSection(m_record.line);
        if (m_section.empty() && isOneOf(m_record.type, {"ENDTAB", "ENDBLK", "SEQEND"}))
            return lose("fora do lugar");
        if (m_section.empty()) openSection(sectionOf(m_record.type));
        if (m_section == "TABLES") return takeOfTables();
        if (m_section == "BLOCKS") return takeOfBlocks();
        if (m_section == "ENTITIES") return takeEntity();
        if (m_section == "OBJECTS") return takeObject();
        write();
    }

    /// One without a handle is an object that nothing can name; the first is the dictionary of all.
    void takeObject() {
        const bool named =
            std::ranges::find(m_record.groups, 5, &DamagedGroup::code) != m_record.groups.end();
        if (!named && m_rootTaken) return lose("falta o identificador");
        m_rootTaken = true;
        write();
    }

    /// Leaves out what does not suit its code; the whole record unless it is a frame.
    void cleanGroups() {
        // Without the end of the file nobody knows whether there was more of it.
        if (m_record.last && m_record.broken.empty() && !isFrame(m_record.type)) {
            m_record.broken = "o arquivo termina no meio do registro";
            m_record.brokenAt = m_records.line();
        }
        if (!m_record.broken.empty() && !isFrame(m_record.type)) return;
        const bool isHeader = m_record.type == "SECTION";
        const TellGroup told = [this](std::string text, int line) { tell(std::move(text), line); };
        if (isHeader) nameVariables();
        if (isHeader) dropRepeatedVariables(m_record, m_variables, told);
        tidyMarkers(m_record, told);
        tidyExtendedData(m_record, told);
        tidyApplicationGroups(m_record, told);
        tellHalfPoints();
        std::string why;
        const auto isBad = [&](const DamagedGroup& group) {
            const bool isName = group.code == 5 && m_record.type == "DIMSTYLE";
            return !isName && !checkValue({group.code, group.value}, why);
        };
        for (std::size_t i = 0; i < m_record.groups.size(); ++i) {
            if (!isBad(m_record.groups[i])) continue;
            if (!isFrame(m_record.type)) {
                m_record.broken = why;
                m_record.brokenAt = m_record.groups[i].line;
                return;
            }
            tell(m_record.type + ": " + why, m_record.groups[i].line);
            i = leaveOut(i, isHeader);
        }
    }

    /// Variables that have lost the sign before their name.
    void nameVariables() {
        for (DamagedGroup& group : m_record.groups) {
            const std::string_view name = trim(group.value);
            if (group.code != 9 || name.starts_with('$')) continue;
            const std::size_t letter = name.find_first_of(kCapitals);
            if (letter == std::string_view::npos) continue;  // it has no value that anybody reads
            m_record.kept.push_back("$" + std::string(name.substr(letter)));
            tell("HEADER: variável sem $ no nome; foi lida como " + m_record.kept.back(),
                 group.line);
            group.value = m_record.kept.back();
            m_record.changed = true;
        }
    }

    /// Points of which only x is there: y is read as 0.
    void tellHalfPoints() {
        const auto& groups = m_record.groups;
        if (m_record.type != "LAYOUT" && entityTypeNamed(m_record.type) == nullptr) return;
        for (std::size_t i = 0; i < groups.size(); ++i) {
            const int code = groups[i].code;
            if (code == 101) return;  // what comes behind belongs to another object
            if (code < 10 || code > 18) continue;
            if (i + 1 < groups.size() && groups[i + 1].code == code + 10) continue;
            tell(m_record.type + ": falta a coordenada y (grupo " + std::to_string(code + 10) +
                     ") de um ponto; vale 0",
                 groups[i].line);
        }
    }

    /// A group, or the variable that it belongs to; returns the place before the next one.
    std::size_t leaveOut(std::size_t i, bool isHeader) {
        auto& groups = m_record.groups;
        std::size_t first = i;
        std::size_t end = i + 1;
        while (isHeader && first > 0 && groups[first].code != 9) --first;
        while (isHeader && end < groups.size() && groups[end].code != 9) ++end;
        if (isHeader && groups[first].code != 9) first = i;
        groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(first),
                     groups.begin() + static_cast<std::ptrdiff_t>(end));
        m_record.changed = true;
        return first - 1;  // wraps at the first group, and the loop's step wraps it back
    }

    std::string_view nameOf() const {
        for (const DamagedGroup& group : m_record.groups)
            if (group.code == 2) return trim(group.value);
        return {};
    }

    /// The section that it stands in has lost its end.
    bool belongsElsewhere() const {
        return isFrame(m_record.type) || sectionOf(m_record.type) != "ENTITIES" ||
               entityTypeNamed(m_record.type) != nullptr;
    }

    static std::string_view sectionOf(std::string_view type) {
        if (type == "CLASS") return "CLASSES";
        if (type == "TABLE" || isRecordOfTable(type)) return "TABLES";
        if (type == "BLOCK" || type == "ENDBLK") return "BLOCKS";
        if (isOneOf(type, {"DICTIONARY", "XRECORD", "LAYOUT", "GROUP", "MLINESTYLE",
                           "ACDBPLACEHOLDER", "ACDBDICTIONARYWDFLT", "DICTIONARYVAR",
                           "SORTENTSTABLE", "PLOTSETTINGS", "MATERIAL", "SCALE", "VISUALSTYLE"}))
            return "OBJECTS";
        return "ENTITIES";
    }

    void beginSection() {
        closeSection(m_record.line);
        const bool named = !m_record.groups.empty() && m_record.groups.front().code == 2;
        // Without its name it begins with what comes next.
        if (!named) return lose("uma seção não tem nome");
        m_section = trim(m_record.groups.front().value);
        write();
    }

    void openSection(std::string_view name) {
        m_section = name;
        tell("registro fora de seção; foi aberta a seção " + m_section, m_record.line);
        put("0\nSECTION\n2\n" + m_section + "\n");
    }

    void closeSection(int line) {
        if (m_section.empty()) return;
        closeInner(line);
        const bool said = m_record.type == "ENDSEC" && m_record.line == line;
        if (!said) tell("falta o fim (ENDSEC) da seção " + m_section, line);
        put("0\nENDSEC\n");
        m_section.clear();
    }

    /// The sequence, block or table that is open.
    void closeInner(int line) {
        endParts(line);
        if (m_inBlock) tell("um bloco não termina (ENDBLK)", line);
        if (m_inBlock) put("0\nENDBLK\n8\n0\n");
        if (!m_table.empty()) tell("falta o fim (ENDTAB) da tabela " + m_table, line);
        if (!m_table.empty()) put("0\nENDTAB\n");
        m_inBlock = false;
        m_table.clear();
    }

    void endParts(int line) {
        if (m_parts) tell("falta o fim (SEQEND) dos vértices ou atributos", line);
        if (m_parts) put("0\nSEQEND\n8\n0\n");
        m_parts = m_passesParts = false;
    }

    void takeOfTables() {
        if (m_record.type == "TABLE") {
            closeInner(m_record.line);
            if (!isRecordOfTable(nameOf())) return lose("uma tabela não tem nome conhecido");
            m_table = nameOf();
            return write();
        }
        if (m_record.type == "ENDTAB") {
            if (m_table.empty()) return lose("fim de tabela sem começo");
            m_table.clear();
            return write();
        }
        if (m_table.empty() && isRecordOfTable(m_record.type)) {
            m_table = m_record.type;
            put("0\nTABLE\n2\n" + m_table + "\n70\n0\n");
        }
        if (m_record.type != m_table && isRecordOfTable(m_table)) return lose("fora do lugar");
        if (m_record.type == "STYLE" && nameOf().empty() && !isShapeFile())
            return lose("um estilo de texto não tem nome");
        write();
    }

    /// Those have no names.
    bool isShapeFile() const {
        return std::any_of(m_record.groups.begin(), m_record.groups.end(), [](const auto& group) {
            long long flags = 0;
            return group.code == 70 && parseInteger(group.value, flags) && (flags & 1) != 0;
        });
    }

    void takeOfBlocks() {
        if (m_record.type == "BLOCK") {
            closeInner(m_record.line);
            if (nameOf().empty()) return lose("um bloco não tem nome");
            m_inBlock = true;
            return write();
        }
        if (!m_inBlock) return lose("fora de um bloco");
        if (m_record.type != "ENDBLK") return takeEntity();
        endParts(m_record.line);
        m_inBlock = false;
        write();
    }

    void takeEntity() {
        const std::string& type = m_record.type;
        const bool isPart = isOneOf(type, {"VERTEX", "ATTRIB", "SEQEND"});
        if (isPart && !m_parts) {
            // Parts of what was lost have been told with it.
            if (!m_passesParts) lose("fora do lugar");
            m_passesParts = m_passesParts && type != "SEQEND";
            return;
        }
        if (!isPart) endParts(m_record.line);
        const bool begins = hasParts();
        const bool kept = m_record.broken.empty();
        write();
        if (isPart) m_parts = type != "SEQEND";
        if (isPart) return;
        m_parts = begins && kept;
        m_passesParts = begins && !kept;
    }

    bool hasParts() const {
        if (m_record.type == "POLYLINE") return true;
        if (m_record.type != "INSERT") return false;
        return std::any_of(m_record.groups.begin(), m_record.groups.end(), [](const auto& group) {
            long long value = 0;
            return group.code == 66 && parseInteger(group.value, value) && value != 0;
        });
    }

    void lose(std::string_view why) {
        tell(m_record.type + ": " + std::string(why) + "; foi deixado de fora",
             m_record.broken.empty() ? m_record.line : m_record.brokenAt);
    }
    void tell(std::string text, int line) { m_mended.losses.push_back({std::move(text), line, 0}); }

    void put(std::string_view text) {
        m_mended.text += text;
        m_lines += static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    }

    /// The record as it stands, unless it is broken.
    void write() {
        if (!m_record.broken.empty() && !isFrame(m_record.type)) return lose(m_record.broken);
        if (!m_record.broken.empty())
            tell(m_record.type + ": " + m_record.broken, m_record.brokenAt);
        m_mended.origins.push_back({m_lines + 2, m_record.line, m_mended.text.size()});
        if (!m_record.changed && m_record.broken.empty()) {
            put(m_record.text);
            if (m_record.text.back() != '\n') put("\n");
            return;
        }
        put("0\n" + m_record.type + "\n");
        for (const DamagedGroup& group : m_record.groups)
            put(std::to_string(group.code) + "\n" + std::string(group.value) + "\n");
    }

    DamagedRecords m_records;
    DamagedRecord m_record;
    Mended m_mended;
    int m_lines = 0;
    std::set<std::string> m_variables;  ///< told so far
    std::string m_section;              ///< that is open; empty for none
    std::string m_table;
    bool m_inBlock = false;
    bool m_rootTaken = false;
    bool m_parts = false;        ///< vertices or attributes follow, up to SEQEND
    bool m_passesParts = false;  ///< those of an entity that was left out
    bool m_ended = false;
};

}  // namespace

int Mended::formerLine(int line) const {
    const auto after =
        std::upper_bound(origins.begin(), origins.end(), line,
                         [](int wanted, const MendedLine& origin) { return wanted < origin.line; });
    if (line == 0 || after == origins.begin()) return line;
    return std::prev(after)->former + line - std::prev(after)->line;
}

bool Mended::leaveOut(int line, const std::string& why) {
    const auto after =
        std::upper_bound(origins.begin(), origins.end(), line,
                         [](int wanted, const MendedLine& origin) { return wanted < origin.line; });
    if (after == origins.begin()) return false;
    const auto record = std::prev(after);
    // What the mending added behind it, an end of something, stays.
    DamagedRecords records(std::string_view(text).substr(record->at));
    DamagedRecord taken;
    if (!records.next(taken) || isFrame(taken.type)) return false;
    losses.push_back({taken.type + ": " + why + "; foi deixado de fora", formerLine(line), 0});
    const auto lines = static_cast<int>(std::count(taken.text.begin(), taken.text.end(), '\n'));
    const std::size_t size = taken.text.size();
    text.erase(record->at, size);
    for (auto each = origins.erase(record); each != origins.end(); ++each) {
        each->line -= lines;
        each->at -= size;
    }
    return true;
}

Mended mend(std::string_view text) { return Mender(text).run(); }

}  // namespace prancheta::dxf
