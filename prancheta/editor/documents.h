// SPDX-License-Identifier: MIT
// The editor as modules see it: reactors, the one document, its manager.
#pragma once

#include <memory>

#include "acdocman.h"
#include "aced.h"

namespace prancheta {

class Editor;

namespace dxf {
struct LoadReport;
}

std::unique_ptr<AcEditor> makeAcEditor(Editor& editor);
std::unique_ptr<AcApDocument> makeDocument(Editor& editor);
std::unique_ptr<AcApDocManager> makeDocumentManager(Editor& editor);

/// Writes to the command line what was repaired while a drawing was read.
void printFindings(Editor& editor, const dxf::LoadReport& report);

}  // namespace prancheta
