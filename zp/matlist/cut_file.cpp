// SPDX-License-Identifier: MIT
// The groups of files for cutting machines.
#include "zp/matlist/cut_file.h"

#include "texts/encoding.h"
#include "texts/number.h"

namespace zp::matlist {
namespace {

/// As every reader of these files knows a character, whatever its code page.
std::string escaped(wchar_t c) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text = "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        text += kDigits[static_cast<std::size_t>(c) >> shift & 15U];
    return text;
}

}  // namespace

CutFile::CutFile(std::initializer_list<Layer> layers)
    : m_bytes(
          "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLTYPE\n70\n1\n0\nLTYPE\n2\nCONTINUOUS\n70\n0\n3\n\n"
          "72\n65\n73\n0\n40\n0\n0\nENDTAB\n0\nTABLE\n2\nLAYER\n") {
    group(70, std::to_string(layers.size()));
    for (const Layer& layer : layers) {
        group(0, "LAYER");
        group(2, texts::encodeUtf8(layer.name));
        group(70, "0");
        group(62, std::to_string(layer.colour));
        group(6, "CONTINUOUS");
    }
    m_bytes += "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
}

void CutFile::line(const wchar_t* layer, double x0, double y0, double x1, double y1) {
    entity("LINE", layer);
    point(10, x0, y0);
    point(11, x1, y1);
}

void CutFile::rectangle(const wchar_t* layer, double x, double y, double width, double height) {
    entity("POLYLINE", layer);
    group(66, "1");
    point(10, 0.0, 0.0);
    group(70, "1");
    for (const auto& [u, v] : {std::pair(0.0, 0.0), {width, 0.0}, {width, height}, {0.0, height}}) {
        entity("VERTEX", layer);
        point(10, x + u, y + v);
    }
    entity("SEQEND", layer);
}

void CutFile::text(const wchar_t* layer, double x, double y, double height,
                   const std::wstring& text) {
    entity("TEXT", layer);
    point(10, x, y);
    number(40, height);
    std::string plain;
    for (const wchar_t c : text)
        plain += c >= 32 && c < 128 ? std::string(1, static_cast<char>(c)) : escaped(c);
    group(1, plain);
}

std::string CutFile::done() && { return std::move(m_bytes) + "0\nENDSEC\n0\nEOF\n"; }

void CutFile::group(int code, const std::string& value) {
    m_bytes += std::to_string(code) + '\n' + value + '\n';
}

void CutFile::number(int code, double value) {
    group(code, texts::encodeUtf8(texts::withPoint(value, 6)));
}

void CutFile::point(int code, double x, double y) {
    number(code, x);
    number(code + 10, y);
    number(code + 20, 0.0);
}

void CutFile::entity(const char* type, const wchar_t* layer) {
    group(0, type);
    group(8, texts::encodeUtf8(layer));
}

}  // namespace zp::matlist
