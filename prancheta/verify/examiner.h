// SPDX-License-Identifier: MIT
// What the checks of the second reading share: the census, the record at hand, the remarks.
#pragma once

#include "prancheta/verify/census.h"
#include "prancheta/verify/verify.h"

namespace prancheta::verify {

class Examiner {
public:
    Examiner(std::string_view text, Verdict& verdict);

    /// The whole second reading.
    void run();

    const Census& census() const { return m_census; }
    const Walker& walker() const { return m_walker; }
    /// Handle of the table whose records are being read.
    std::uint64_t tableHandle() const { return m_tableHandle; }
    /// False when something of this kind and name was there before.
    bool define(std::string_view kind, std::string_view name);
    /// The block that is open (or the drawing, "") refers to another block.
    void refersTo(std::string_view block);
    /// Entries of the root dictionary, told by the check of objects.
    void rootEntry(std::string_view name) { m_rootEntries.emplace(name); }
    bool isFirstObject() const { return m_objects == 1; }

    /// Remarks about the record at hand; the line is that of `at` (a place in the file's text).
    void error(std::string text, const char* at);
    void warning(std::string text, const char* at);
    /// An error at the record's beginning.
    void error(std::string text) { error(std::move(text), m_record.at); }

private:
    void add(Severity severity, std::string text, const char* at);
    int lineOf(const char* at);
    void examineRecord();
    void examineSections();
    void examineFrames();
    void examineSequence();
    void examineHeader();
    void examineHandle();
    void finish();
    void requireNames();
    void requireBlocks();
    void findCycles();

    std::string_view m_text;
    Verdict& m_verdict;
    Census m_census;
    Walker m_walker;
    dxf::Record m_record;
    std::unordered_set<std::uint64_t> m_seen;   ///< handles
    std::unordered_set<std::string> m_defined;  ///< kind and name
    std::unordered_map<std::string, std::unordered_set<std::string>> m_references;  ///< by block
    std::unordered_set<std::string> m_rootEntries;
    std::unordered_set<int> m_sections;  ///< places seen
    std::uint64_t m_tableHandle = 0;
    std::size_t m_objects = 0;
    bool m_inSection = false;
    bool m_inTable = false;
    bool m_inBlock = false;
    std::string_view m_parts;  ///< records that have to follow, up to SEQEND; empty for none
    bool m_ended = false;
    const char* m_countedTo;
    int m_line = 1;
};

/// Values by their codes, braces, extended data: of any record.
void examineGroups(Examiner& examiner, const dxf::Record& record);
/// A record of TABLES.
void examineTableRecord(Examiner& examiner, const dxf::Record& record);
/// An entity, in ENTITIES or in a block.
void examineEntity(Examiner& examiner, const dxf::Record& record);
/// A record of OBJECTS.
void examineObject(Examiner& examiner, const dxf::Record& record);

/// A value as text for a message.
std::string shown(std::string_view value);

}  // namespace prancheta::verify
