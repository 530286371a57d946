// SPDX-License-Identifier: MIT
// From where the mouse stands to the point that is meant.
#include "prancheta/desktop/canvas/aim.h"

#include <algorithm>
#include <cmath>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/snap_modes.h"

namespace prancheta::desktop {
namespace {

constexpr int kAllModes = kSnapsOff - 1;

/// On the nearer one of the directions of ORTHO from the base.
AcGePoint3d onOrtho(const Editor& editor, const AcGePoint3d& base, const AcGePoint3d& world) {
    const AcGeVector3d v = editor.ucs().inverse() * (world - base);
    return base + editor.ucs() * alongNearerAxis(v, editor.variables().real(L"SNAPANG"));
}

/// The nearest point of the snap grid; a spacing of 0 leaves its direction free.
AcGePoint3d onSnapGrid(const Editor& editor, const AcGePoint3d& world) {
    const AcGePoint3d spacing = editor.database().core().variables().point(L"SNAPUNIT");
    const auto rounded = [](double value, double step) {
        return step > 0.0 ? std::round(value / step) * step : value;
    };
    AcGePoint3d p = editor.ucs().inverse() * world;
    p.x = rounded(p.x, spacing.x);
    p.y = rounded(p.y, spacing.y);
    return editor.ucs() * p;
}

int modesOf(const Editor& editor, const InputRequest& request) {
    if (request.snapModes) return *request.snapModes;
    const int running = editor.database().core().variables().number(L"OSMODE");
    return (running & kSnapsOff) != 0 ? 0 : running & kAllModes;
}

}  // namespace

bool asksForPoint(const InputRequest& request) {
    switch (request.kind) {
        case InputKind::Point:
        case InputKind::Corner:
        case InputKind::Distance:
        case InputKind::Angle:
        case InputKind::Drag:
            return true;
        default:
            return false;
    }
}

const wchar_t* snapName(int mode) {
    for (const SnapMode& known : kSnapModes)
        if (known.bit == mode) return known.local;
    return L"";
}

void Aim::take(Editor& editor, const InputRequest* request, const AcGePoint3d& world, bool shift) {
    m_catches.clear();
    m_chosen = 0;
    m_onGrid = false;
    m_lines.clear();
    m_point = world;
    if (request == nullptr || !asksForPoint(*request)) return;
    const int modes = modesOf(editor, *request);
    const SnapReach reach = request->snapModes ? SnapReach::Shown : SnapReach::Aperture;
    if (modes != 0) m_catches = snapHits(editor, world, modes, reach, request->base);
    if (!m_catches.empty()) {
        m_point = m_catches.front().point;
        return;
    }
    const SystemVariables& variables = editor.database().core().variables();
    m_onGrid = variables.number(L"SNAPMODE") != 0;
    if (m_onGrid) m_point = onSnapGrid(editor, world);
    const bool ortho = (variables.number(L"ORTHOMODE") != 0) != shift;
    if (ortho && request->orthoAllowed && request->base) {
        m_point = onOrtho(editor, *request->base, m_point);
    } else if (auto held = m_tracking.hold(editor, world, request->base, modes)) {
        m_onGrid = false;
        m_point = held->point;
        m_lines = std::move(held->lines);
    }
}

bool Aim::rest(Editor& editor, const InputRequest& request, const AcGePoint3d& world) {
    const int modes = modesOf(editor, request);
    const bool tracks = (modes & (kExtensionSnap | kParallelSnap)) != 0 ||
                        (editor.variables().number(L"AUTOSNAP") & kObjectTracking) != 0;
    return asksForPoint(request) && tracks && m_tracking.rest(editor, world, modes);
}

void Aim::forget() {
    m_tracking.clear();
    m_lines.clear();
}

void Aim::cycle() {
    if (m_catches.size() < 2) return;
    m_chosen = (m_chosen + 1) % m_catches.size();
    m_point = m_catches[m_chosen].point;
}

const SnapHit* Aim::caught() const { return m_catches.empty() ? nullptr : &m_catches[m_chosen]; }

}  // namespace prancheta::desktop
