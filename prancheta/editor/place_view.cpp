// SPDX-License-Identifier: MIT
// Views of the place that is drawn in.
#include "prancheta/editor/place_view.h"

#include "prancheta/entities/viewports.h"

namespace prancheta {
namespace {

/// Null when the screen is what is looked through.
const AcDbViewport* frameHere(const Editor& editor) {
    const AcDbViewport* const viewport = viewportOf(editor.spaces().viewport());
    return viewport != nullptr && !viewport->isLocked() ? viewport : nullptr;
}

}  // namespace

View placeView(const Editor& editor) {
    const AcDbViewport* const frame = frameHere(editor);
    if (frame == nullptr) return editor.screen().view();
    return {frame->modelToSheet().inverse() * frame->centerPoint(), frame->viewHeight()};
}

double placeProportion(const Editor& editor) {
    const AcDbViewport* const frame = frameHere(editor);
    return frame != nullptr ? frame->height() / frame->width()
                            : editor.screen().height() / editor.screen().width();
}

void showInPlace(Editor& editor, const View& view) {
    const AcDbViewport* const frame = frameHere(editor);
    if (frame == nullptr) return editor.screen().show(view);
    const View sheet = editor.spaces().tabView();
    const double scale = frame->height() / view.height;
    editor.screen().show(
        {view.centre + (sheet.centre - frame->centerPoint()) / scale, sheet.height / scale});
}

}  // namespace prancheta
