// SPDX-License-Identifier: MIT
// Reads the viewport table that came with the file.
#include "prancheta/editor/saved_view.h"

#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"

namespace prancheta {
namespace {

constexpr double kMargin = 1.05;

/// Groups of one record of the table VPORT.
struct Viewport {
    std::wstring name;
    double x = 0.0, y = 0.0;  ///< centre, from the target
    double targetX = 0.0, targetY = 0.0;
    double height = 0.0, aspect = 1.0;
    double directionX = 0.0, directionY = 0.0, directionZ = 1.0;
    double twist = 0.0;

    bool usable() const {
        const bool plan = directionX == 0.0 && directionY == 0.0 && directionZ > 0.0;
        return plan && twist == 0.0 && height > 0.0 && aspect > 0.0 && std::isfinite(height);
    }
};

struct NumberGroup {
    int code;
    double Viewport::*member;
};

constexpr NumberGroup kNumbers[] = {
    {12, &Viewport::x},          {22, &Viewport::y},          {17, &Viewport::targetX},
    {27, &Viewport::targetY},    {40, &Viewport::height},     {41, &Viewport::aspect},
    {16, &Viewport::directionX}, {26, &Viewport::directionY}, {36, &Viewport::directionZ},
    {51, &Viewport::twist},
};

template <class Tags>
std::optional<Viewport> activeViewport(const Tags& tags) {
    std::optional<Viewport> present;
    const auto active = [&] { return present && equalNoCase(present->name, L"*Active"); };
    for (const auto& tag : tags) {
        if (tag.code == 0) {
            if (active()) return present;
            present = trim(std::string_view(tag.value)) == "VPORT" ? std::optional(Viewport())
                                                                   : std::nullopt;
        }
        if (!present) continue;
        if (tag.code == 2) present->name = toWide(trim(std::string_view(tag.value)));
        for (const NumberGroup& group : kNumbers)
            if (group.code == tag.code)
                (void)parseNumber(trim(std::string_view(tag.value)), *present.*group.member);
    }
    return active() ? present : std::nullopt;
}

/// The whole box, whatever the proportions of the screen.
View viewOf(const Box2d& box, const Editor& editor) {
    View view;
    const double aspect = editor.screen().width() / editor.screen().height();
    view.centre = {(box.left + box.right) / 2, (box.bottom + box.top) / 2, 0.0};
    view.height = std::max(box.height(), box.width() / aspect);
    return view;
}

}  // namespace

View openingView(const Editor& editor) {
    const Box2d extents = editor.display().extents();
    for (const auto& [name, tags] : editor.database().core().foreign().tables) {
        if (name != "VPORT") continue;
        const std::optional<Viewport> saved = activeViewport(tags);
        if (!saved || !saved->usable()) continue;
        const double x = saved->x + saved->targetX;
        const double y = saved->y + saved->targetY;
        const double side = saved->height * saved->aspect / 2;
        const Box2d shown{x - side, y - saved->height / 2, x + side, y + saved->height / 2};
        if (extents.empty() || shown.meets(extents)) return viewOf(shown, editor);
    }
    if (extents.empty()) return View();
    View view = viewOf(extents, editor);
    view.height = view.height > 0.0 ? view.height * kMargin : View().height;
    return view;
}

}  // namespace prancheta
