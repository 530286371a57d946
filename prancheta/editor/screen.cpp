// SPDX-License-Identifier: MIT
// The drawing area.
#include "prancheta/editor/screen.h"

#include <algorithm>

#include "prancheta/editor/user_interface.h"

namespace prancheta {

constexpr std::size_t kFormerViews = 10;

void Screen::show(const View& view, Change change) {
    if (change == Change::Step) m_former.push_back(m_view);
    if (m_former.size() > kFormerViews) m_former.erase(m_former.begin());
    m_view = view;
    m_chosen = true;
    if (onChanged) onChanged();
    m_ui.refresh();
}

bool Screen::back() {
    if (m_former.empty()) return false;
    m_view = m_former.back();
    m_former.pop_back();
    m_chosen = true;
    if (onChanged) onChanged();
    m_ui.refresh();
    return true;
}

void Screen::begin(const View& view) {
    m_former.clear();
    m_view = view;
}

void Screen::start(const View& view) {
    m_former.clear();
    m_view = view;
    m_chosen = false;
}

void Screen::resize(double width, double height) {
    m_width = std::max(width, 1.0);
    m_height = std::max(height, 1.0);
}

}  // namespace prancheta
