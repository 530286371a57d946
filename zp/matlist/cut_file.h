// SPDX-License-Identifier: MIT
// A DXF file of the oldest version that every cutting machine reads: outlines, lines and texts
// alone, in mm, nothing below or above z = 0.
#pragma once

#include <initializer_list>
#include <string>

namespace zp::matlist {

class CutFile {
public:
    struct Layer {
        const wchar_t* name;
        int colour;
    };
    explicit CutFile(std::initializer_list<Layer> layers);
    void line(const wchar_t* layer, double x0, double y0, double x1, double y1);
    /// One closed outline, counter-clockwise from its lower left corner.
    void rectangle(const wchar_t* layer, double x, double y, double width, double height);
    /// From the left end of its base line on.
    void text(const wchar_t* layer, double x, double y, double height, const std::wstring& text);
    /// The bytes so far; of a new file those by which each of its kind begins.
    const std::string& begun() const { return m_bytes; }
    /// All bytes of the file.
    std::string done() &&;

private:
    void group(int code, const std::string& value);
    void number(int code, double value);
    void point(int code, double x, double y);
    void entity(const char* type, const wchar_t* layer);
    std::string m_bytes;
};

}  // namespace zp::matlist
