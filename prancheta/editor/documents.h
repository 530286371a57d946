// SPDX-License-Identifier: MIT
// The editor as modules see it: reactors, the one document, its manager.
#pragma once

#include <memory>

#include "acdocman.h"
#include "aced.h"

namespace prancheta {

class Editor;

std::unique_ptr<AcEditor> makeAcEditor(Editor& editor);
std::unique_ptr<AcApDocument> makeDocument(Editor& editor);
std::unique_ptr<AcApDocManager> makeDocumentManager(Editor& editor);

}  // namespace prancheta
