// SPDX-License-Identifier: MIT
// Prints the findings of a module.
#include "prancheta/console/check_job.h"

#include <iostream>

#include "prancheta/base/text.h"
#include "prancheta/console/module_answer.h"
#include "prancheta/console/options.h"
#include "prancheta/console/working.h"
#include "protocol/check.h"

namespace prancheta::console {
namespace {

class Printer : public protocol::FindingVisitor {
public:
    void finding(const protocol::Finding& finding) override {
        tally.count(finding);
        std::cout << harmless(toUtf8(protocol::lineOf(finding))) << "\n";
    }
    protocol::Tally tally;
};

}  // namespace

int checkJob(AcDbDatabase& drawing) {
    const auto* const check = moduleAnswer<protocol::DrawingCheck>(
        protocol::kDrawingCheckKey, "conferir um desenho", "--confere");
    if (check == nullptr) return kFileError;
    Printer printer;
    {
        const Working working("conferindo");
        check->check(drawing, printer);
    }
    std::cout << toUtf8(printer.tally.summary()) << std::endl;
    return printer.tally.faults() > 0 ? kScriptError : kDone;
}

}  // namespace prancheta::console
