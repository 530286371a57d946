// SPDX-License-Identifier: MIT
// Prints the findings of a module.
#include "prancheta/console/catalogue_job.h"

#include <iostream>

#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/console/module_answer.h"
#include "prancheta/console/options.h"
#include "protocol/catalogues.h"

namespace prancheta::console {
namespace {

class CataloguePrinter : public protocol::CatalogueVisitor {
public:
    void finding(const protocol::CatalogueFinding& finding) override {
        tally.count(finding.severity);
        std::cout << harmless(toUtf8(protocol::lineOf(finding))) << "\n";
    }
    protocol::Tally tally;
};

}  // namespace

int checkCatalogues(const std::string& folder) {
    const auto* const check = moduleAnswer<protocol::CatalogueCheck>(
        protocol::kCatalogueCheckKey, "conferir catálogos", "--catalogos");
    if (check == nullptr) return kFileError;
    CataloguePrinter printer;
    if (const ACHAR* const why = check->check(toWide(folder).c_str(), printer)) {
        std::cerr << "prancheta-console: " << harmless(folder) << ": " << toUtf8(why) << "\n";
        return kFileError;
    }
    std::cout << toUtf8(printer.tally.summary()) << std::endl;
    return printer.tally.faults() > 0 ? kScriptError : kDone;
}

}  // namespace prancheta::console
