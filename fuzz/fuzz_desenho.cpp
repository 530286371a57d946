// SPDX-License-Identifier: MIT
// Any bytes as a drawing that a host with its modules opens: everything in it is drawn, listed and
// examined, and what is saved can be opened again.
#include "fuzz/live_host.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/drawing_file.h"

using namespace prancheta;

namespace {

void drawAll(Editor& editor) {
    DisplayList& list = editor.display();
    const Box2d all = list.extents();
    for (const DisplayList::Item& item : list.find(all)) (void)list.picture(item.id);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::LiveHost host;
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    DrawingFile& drawing = host.editor().file();
    if (drawing.open(file.path())) {
        drawAll(host.editor());
        const auto saved = host.folder() / "a.dxf";
        fuzz::expect(drawing.saveCopy(saved).ok(), "what was opened cannot be saved");
        host.run(
            "_list\n_all\n\nCONFERIR\n_N\n_explode\n_all\n\n_u\n_move\n_all\n\n0,0\n1,2\n_u\n");
        const auto again = drawing.open(saved);
        fuzz::expect(again.ok(), again ? "" : again.error().message().c_str());
    } else {
        dxf::LoadReport losses;
        if (drawing.openDamaged(file.path(), losses)) drawAll(host.editor());
    }
    host.startAnew();
    return 0;
}
