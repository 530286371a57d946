// SPDX-License-Identifier: MIT
// What a module finds wrong with the job that a drawing shows.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include <span>
#include <string>

#include "dbapserv.h"

namespace protocol {

/// A front end stops at a fault; a hint is only told.
enum class Severity { Fault, Hint };

/// Texts in Portuguese, whole sentences; all of it is good during the visit only.
struct Finding {
    Severity severity;
    const ACHAR* mark;                      ///< of the member; empty when it has none
    const ACHAR* text;                      ///< what is wrong
    const ACHAR* remedy;                    ///< what to do
    AcGePoint3d place;                      ///< where to look, world coordinates
    std::span<const AcDbObjectId> objects;  ///< the one that it is told of first; never empty
};

class FindingVisitor {
public:
    virtual ~FindingVisitor() = default;
    virtual void finding(const Finding& finding) = 0;
};

/// Object of the system registry under kDrawingCheckKey.
class DrawingCheck : public AcRxObject {
public:
    /// Global name of the command that prints the findings.
    virtual const ACHAR* command() const = 0;
    /// All findings, faults first; changes nothing.
    virtual void check(AcDbDatabase& drawing, FindingVisitor& visitor) const = 0;
};
inline constexpr const ACHAR* kDrawingCheckKey = L"ZP_DRAWING_CHECK";

/// "aviso: [2F, 31] P1: O quê. O que fazer.", as every command and program prints it.
inline std::wstring lineOf(const Finding& finding) {
    std::wstring handles;
    for (const AcDbObjectId& id : finding.objects) {
        ACHAR text[17];
        id.handle().getIntoAsciiBuffer(text);
        handles += (handles.empty() ? L"" : L", ") + std::wstring(text);
    }
    const std::wstring mark = *finding.mark != L'\0' ? finding.mark : L"(sem marca)";
    return (finding.severity == Severity::Hint ? L"aviso: [" : L"[") + handles + L"] " + mark +
           L": " + finding.text + L" " + finding.remedy;
}

/// How many there were, and the line below all of them.
class Tally {
public:
    void count(const Finding& finding) { count(finding.severity); }
    void count(Severity severity) { ++(severity == Severity::Fault ? m_faults : m_hints); }
    std::size_t faults() const { return m_faults; }
    std::wstring summary() const {
        const auto counted = [](std::size_t n, const wchar_t* one, const wchar_t* many) {
            return std::to_wstring(n) + (n == 1 ? one : many);
        };
        const std::wstring hints = counted(m_hints, L" aviso", L" avisos");
        if (m_faults == 0)
            return L"Nenhuma falha encontrada" + (m_hints > 0 ? L"; " + hints : L"") + L".";
        return counted(m_faults, L" falha", L" falhas") + (m_hints > 0 ? L", " + hints : L"") +
               L".";
    }

private:
    std::size_t m_faults = 0;
    std::size_t m_hints = 0;
};

}  // namespace protocol
