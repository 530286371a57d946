// SPDX-License-Identifier: MIT
// Marks in what the toolkit's writers of files make, for what they cannot write themselves.
#pragma once

#include <QPainter>
#include <string>
#include <unordered_map>
#include <vector>

namespace prancheta {

/// A mark is a line that begins at x = kMark, where nobody draws, its kind as y; two more points
/// carry its values, a frame's outline follows them. svg_file.h and pdf_file.h put what is meant in
/// its place.
enum class Mark { FrameBegin, FrameEnd, LayerBegin, LayerEnd };
inline constexpr int kMark = -123456;

/// With a pen of its own for each kind: the writer of SVG begins a new group before and behind it.
void drawMark(QPainter& painter, Mark kind, const QPointF& first = {}, const QPointF& second = {},
              const QPolygonF& outline = {});

/// Layers of a file by number, and where what lies on each begins and ends.
class LayerMarks {
public:
    /// In order of appearance; case as it was first seen.
    std::size_t numberOf(const std::wstring& name);
    const std::vector<std::wstring>& names() const { return m_names; }

    /// What is drawn from now on lies on the layer; nothing is marked while that is so already.
    void begin(QPainter& painter, std::size_t number);
    void end(QPainter& painter);

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::unordered_map<std::wstring, std::size_t> m_numbers;
    std::vector<std::wstring> m_names;
    std::size_t m_open = kNone;
};

}  // namespace prancheta
