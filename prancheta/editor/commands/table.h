// SPDX-License-Identifier: MIT
// The built-in commands.
#pragma once

#include <span>

#include "prancheta/editor/command.h"

namespace prancheta {

/// All of them, in the order in which HELP lists them. Lives as long as the program.
std::span<const BuiltInCommand> builtInCommands();

/// One function per command, in the source of its global name in lower case or of its family.
namespace commands {

CommandTask layout(CommandContext context);
CommandTask folha(CommandContext context);
CommandTask mspace(CommandContext context);
CommandTask mview(CommandContext context);
CommandTask pspace(CommandContext context);
CommandTask vplayer(CommandContext context);
CommandTask align(CommandContext context);
CommandTask arc(CommandContext context);
CommandTask area(CommandContext context);
CommandTask array(CommandContext context);
CommandTask arx(CommandContext context);
CommandTask attdef(CommandContext context);
CommandTask attedit(CommandContext context);
CommandTask audit(CommandContext context);
CommandTask block(CommandContext context);
CommandTask breakObject(CommandContext context);
CommandTask chamfer(CommandContext context);
CommandTask circle(CommandContext context);
CommandTask copy(CommandContext context);
CommandTask copybase(CommandContext context);
CommandTask copyclip(CommandContext context);
CommandTask cutclip(CommandContext context);
CommandTask ddedit(CommandContext context);
CommandTask delay(CommandContext context);
CommandTask detalhe(CommandContext context);
CommandTask dimaligned(CommandContext context);
CommandTask dimangular(CommandContext context);
CommandTask dimbaseline(CommandContext context);
CommandTask dimcontinue(CommandContext context);
CommandTask dimdiameter(CommandContext context);
CommandTask dimedit(CommandContext context);
CommandTask dimlinear(CommandContext context);
CommandTask dimradius(CommandContext context);
CommandTask dimstyle(CommandContext context);
CommandTask dimstyleInWindow(CommandContext context);
CommandTask escaladesenho(CommandContext context);
CommandTask dimtedit(CommandContext context);
CommandTask dist(CommandContext context);
CommandTask ellipse(CommandContext context);
CommandTask divide(CommandContext context);
CommandTask draworder(CommandContext context);
CommandTask editaperfil(CommandContext context);
CommandTask erase(CommandContext context);
CommandTask explode(CommandContext context);
CommandTask extendObjects(CommandContext context);
CommandTask fillet(CommandContext context);
CommandTask find(CommandContext context);
CommandTask grips(CommandContext context);
CommandTask hatch(CommandContext context);
CommandTask help(CommandContext context);
CommandTask insert(CommandContext context);
CommandTask join(CommandContext context);
CommandTask layer(CommandContext context);
CommandTask layerInWindow(CommandContext context);
CommandTask lengthen(CommandContext context);
CommandTask leader(CommandContext context);
CommandTask layerp(CommandContext context);
CommandTask layfrz(CommandContext context);
CommandTask layiso(CommandContext context);
CommandTask laylck(CommandContext context);
CommandTask laymcur(CommandContext context);
CommandTask layoff(CommandContext context);
CommandTask layuniso(CommandContext context);
CommandTask line(CommandContext context);
CommandTask list(CommandContext context);
CommandTask matchprop(CommandContext context);
CommandTask measure(CommandContext context);
CommandTask mirror(CommandContext context);
CommandTask move(CommandContext context);
CommandTask mredo(CommandContext context);
CommandTask mtext(CommandContext context);
CommandTask newDrawing(CommandContext context);
CommandTask offsetCurve(CommandContext context);
CommandTask oops(CommandContext context);
CommandTask open(CommandContext context);
CommandTask pan(CommandContext context);
CommandTask pasteclip(CommandContext context);
CommandTask pedit(CommandContext context);
CommandTask pline(CommandContext context);
CommandTask plot(CommandContext context);
CommandTask plotInWindow(CommandContext context);
CommandTask point(CommandContext context);
CommandTask polygon(CommandContext context);
CommandTask properties(CommandContext context);
CommandTask purge(CommandContext context);
CommandTask ligarpecas(CommandContext context);
CommandTask qsave(CommandContext context);
CommandTask qselect(CommandContext context);
CommandTask quit(CommandContext context);
CommandTask recover(CommandContext context);
CommandTask rectang(CommandContext context);
CommandTask ray(CommandContext context);
CommandTask redo(CommandContext context);
CommandTask redraw(CommandContext context);
CommandTask regen(CommandContext context);
CommandTask resume(CommandContext context);
CommandTask revcloud(CommandContext context);
CommandTask rotate(CommandContext context);
CommandTask rscript(CommandContext context);
CommandTask save(CommandContext context);
CommandTask saveas(CommandContext context);
CommandTask scale(CommandContext context);
CommandTask script(CommandContext context);
CommandTask setvar(CommandContext context);
CommandTask solda(CommandContext context);
CommandTask stretch(CommandContext context);
CommandTask style(CommandContext context);
CommandTask styleInWindow(CommandContext context);
CommandTask text(CommandContext context);
CommandTask trimObjects(CommandContext context);
CommandTask u(CommandContext context);
CommandTask ucs(CommandContext context);
CommandTask undo(CommandContext context);
CommandTask wblock(CommandContext context);
CommandTask xline(CommandContext context);
CommandTask zoom(CommandContext context);

}  // namespace commands
}  // namespace prancheta
