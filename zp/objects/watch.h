// SPDX-License-Identifier: MIT
// Watches drawings and commands, so that what is tied to a piece goes with it once per command.
#pragma once

#include <string>

#include "dbapserv.h"

namespace zp::edit {
struct Former;
}

namespace zp::watch {

/// Starts and stops listening to the editor's commands.
void start();
void stop();

/// Something tied to a piece does not follow or go with it, because its layer is locked: the user
/// is told of all that do not, once, at the end of the command.
void stays(AcDbObjectId linked);

/// An end of a piece is about to be moved; `before` is what the piece was. At the end of the
/// command those that listen to edits hear of it.
void movesEnd(AcDbObjectId peca, const edit::Former& before);
/// A piece changed with all that is tied to it, which `before` was, without a question whom that is
/// meant for: at the end of the command those that listen hear of that alone.
void changes(AcDbObjectId peca, const edit::Former& before);
/// A piece gets k times as large; `before` is its designation. Sizes of steel do not change in
/// silence: at the end of the command the user is told.
void scales(AcDbObjectId peca, const std::wstring& before);
/// An end of a piece may not be moved: what is tied to it stays with it, and at the end of the
/// command the user is told why.
void refused(AcDbObjectId peca, const std::wstring& reason);

/// Starts and stops watching a drawing; watching twice is watching once. A drawing that goes away
/// is forgotten by itself.
void observe(AcDbDatabase* drawing);
void leave(AcDbDatabase* drawing);

/// A drawing that is not watched yet is being read: until confere, or the end of a command, nothing
/// follows, since what is tied to a piece may have been moved with it and not be in its place yet.
void observeReading(AcDbDatabase* drawing);

/// After a drawing was read: drops the links that their other side does not know, then what is tied
/// to a piece that was moved in the file follows it.
void check(AcDbDatabase* drawing);

}  // namespace zp::watch
