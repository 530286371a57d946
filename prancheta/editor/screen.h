// SPDX-License-Identifier: MIT
// The drawing area: its size, the view that it shows and those that it showed before.
#pragma once

#include <functional>
#include <vector>

#include "gepnt3d.h"

namespace prancheta {

class UserInterface;

/// What the window (or the page) shows: a plan view of the world's XY plane.
struct View {
    AcGePoint3d centre{210.0, 148.5, 0.0};
    double height = 297.0;  ///< drawing units
};

class Screen {
public:
    /// Changes of the view are shown by `ui`, which must outlive this.
    explicit Screen(UserInterface& ui) : m_ui(ui) {}

    const View& view() const { return m_view; }
    /// True when somebody chose the view since the drawing was opened: it is saved with it.
    bool chosen() const { return m_chosen; }
    /// Remembers the former view for back() (ten of them), but for one that goes on from the last
    /// change: the turns of a wheel are one step.
    enum class Change { Step, Continued };
    void show(const View& view, Change change = Change::Step);
    /// To the former view; false when there is none.
    bool back();
    /// The first view of a drawing: nothing was shown before it, nobody chose it.
    void start(const View& view = {});
    /// The first view of another place of the drawing: nothing was shown before it there.
    void begin(const View& view);
    /// Called when show() or back() gave another view, before it is shown.
    std::function<void()> onChanged;

    /// Size in pixels, told by the front end; at least 1.
    void resize(double width, double height);
    double width() const { return m_width; }
    double height() const { return m_height; }
    /// Drawing units of one pixel.
    double pixelSize() const { return m_view.height / m_height; }

private:
    UserInterface& m_ui;
    View m_view;
    bool m_chosen = false;
    std::vector<View> m_former;
    double m_width = 800.0;
    double m_height = 600.0;
};

}  // namespace prancheta
