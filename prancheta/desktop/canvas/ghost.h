// SPDX-License-Identifier: MIT
// What the answer that the pointer stands for would draw.
#pragma once

#include <QPainter>

#include "prancheta/desktop/canvas/sources.h"
#include "prancheta/desktop/canvas/viewport.h"

namespace prancheta::desktop {

class Ghost {
public:
    /// Looks at the entities that are to be moved or turned; once a request.
    void prepare(Editor& editor, const InputRequest& request);
    void clear();
    /// `pointer` is world, after snap and ortho; `shift` tells whether that key is held.
    void paint(QPainter& painter, Editor& editor, const InputRequest& request,
               const AcGePoint3d& pointer, bool shift, const Viewport& viewport, const Look& look);

private:
    Picture m_selection;  ///< boxes when it would be too much
};

}  // namespace prancheta::desktop
