// SPDX-License-Identifier: MIT
// CONFERIR, and the findings as hosts ask for them.
#include "acutads.h"
#include "rxdict.h"
#include "zp/matlist/check.h"

namespace zp::matlist {
namespace {

class Check : public protocol::DrawingCheck {
public:
    const ACHAR* command() const override { return kCheckCommand; }
    void check(AcDbDatabase& drawing, protocol::FindingVisitor& visitor) const override {
        for (const Finding& f : matlist::check(drawing))
            visitor.finding({f.severity, f.marca.c_str(), f.text.c_str(), f.remedy.c_str(), f.place,
                             f.objects});
    }
};

/// Prints each finding, and how many there were at its end.
class Printer : public protocol::FindingVisitor {
public:
    void finding(const protocol::Finding& finding) override {
        m_tally.count(finding);
        acutPrintf(L"\n%ls", protocol::lineOf(finding).c_str());
    }
    void end() const { acutPrintf(L"\n%ls\n", m_tally.summary().c_str()); }

private:
    protocol::Tally m_tally;
};

Check g_check;  // kept by pointer in the registry

}  // namespace

void checkCommand() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    Printer printer;
    g_check.check(*drawing, printer);
    printer.end();
}

void installCheck() { acrxSysRegistry()->atPut(protocol::kDrawingCheckKey, &g_check); }

void uninstallCheck() { acrxSysRegistry()->remove(protocol::kDrawingCheckKey); }

}  // namespace zp::matlist
