// SPDX-License-Identifier: MIT
// Lines of text to pieces that can be drawn, and drawn pieces to lines of text.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "perfis/pecas/designation.h"
#include "perfis/pecas/line.h"

namespace perfis {

/// A piece that its command accepts and has not drawn yet.
struct ReadyPeca {
    const PerfilCommand* command = nullptr;
    std::unique_ptr<PerfilRun> run;
    std::wstring marca;  ///< that was asked for
    bool counts = true;  ///< false for a further view of the member with that mark
};

/// What the command's dialogs would refuse, or what the line lacks, as a whole sentence; empty when
/// `ready` can be drawn. Marks are not looked at.
std::wstring makeReady(const PecaLine& line, Designations& designations, ReadyPeca& ready);
std::wstring makeReady(const std::wstring& text, Designations& designations, ReadyPeca& ready);

/// Why the piece may not have its mark, which belongs to another member, or to none that it could
/// be a further view of; empty when it may.
std::wstring marcaFault(const ReadyPeca& ready, AcDbDatabase& drawing);

/// The line by which a drawn piece is drawn again. Empty for pieces that no command draws.
std::wstring lineOf(AcDbObjectId peca, Designations& designations);

}  // namespace perfis
