// SPDX-License-Identifier: MIT
// Finished SVG files.
#include "prancheta/plot/svg_file.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "prancheta/base/text.h"
#include "prancheta/plot/marks.h"

namespace prancheta {
namespace {

constexpr std::size_t kNot = std::string::npos;
constexpr std::string_view kGroupEnd = "</g>";

/// A text between tags or quotation marks.
std::string xmlText(std::string_view utf8) {
    std::string out;
    for (const char c : harmless(utf8)) {
        if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (c == '&')
            out += "&amp;";
        else if (c == '"')
            out += "&quot;";
        else
            out.push_back(c);
    }
    return out;
}

std::string clipRegion(const std::string& name, const QRectF& clip) {
    std::string region = "<clipPath id=\"" + name + "\"><rect";
    const auto attribute = [&](const char* key, double value) {
        region += std::string(" ") + key + "=\"" + numberText(value) + "\"";
    };
    attribute("x", clip.x());
    attribute("y", clip.y());
    attribute("width", clip.width());
    attribute("height", clip.height());
    return region + "/></clipPath>\n";
}

/// What both regions have in common; the outline by its coordinates.
std::string clipOutline(const std::string& name, const std::string& within,
                        std::span<const double> outline) {
    std::string region =
        "<clipPath id=\"" + name + "\" clip-path=\"url(#" + within + ")\"><polygon points=\"";
    for (const double number : outline) region.append(numberText(number)).append(" ");
    region.back() = '"';
    return region + "/></clipPath>\n";
}

/// Numbers between commas and blanks.
std::vector<double> numbersOf(std::string_view text) {
    std::vector<double> numbers;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(", "), text.size());
        double number = 0.0;
        if (parseNumber(text.substr(0, end), number)) numbers.push_back(number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return numbers;
}

/// What was drawn since the last frame began or ended, gathered by layer.
class LayerGroups {
public:
    explicit LayerGroups(std::span<const std::wstring> names)
        : m_names(names), m_written(names.size()) {}

    /// Into the layer's last group, but for what is filled and for what lies over something filled:
    /// that keeps its place. O(layers).
    void add(std::size_t layer, std::string_view content) {
        if (layer >= m_names.size()) return;
        const bool fills = content.find("<g fill=\"#") != kNot;
        for (std::size_t i = m_groups.size(); i-- > 0;) {
            Group& group = m_groups[i];
            if (group.layer == layer) {
                group.content += content;
                group.fills = group.fills || fills;
                return;
            }
            if (fills || group.fills) break;
        }
        m_groups.push_back({layer, std::string(content), fills});
    }

    void writeTo(std::string& out) {
        for (const Group& group : m_groups) {
            const std::size_t times = ++m_written[group.layer];
            out += "<g id=\"camada" + std::to_string(group.layer + 1) +
                   (times > 1 ? "-" + std::to_string(times) : "") +
                   "\" inkscape:groupmode=\"layer\" inkscape:label=\"" +
                   xmlText(toUtf8(m_names[group.layer])) + "\">\n" + group.content + "</g>\n";
        }
        m_groups.clear();
    }

private:
    struct Group {
        std::size_t layer;
        std::string content;
        bool fills;
    };
    std::span<const std::wstring> m_names;
    std::vector<std::size_t> m_written;  ///< groups of each
    std::vector<Group> m_groups;
};

/// Replaces the group that holds each mark. O(bytes).
void replaceMarks(std::string& svg, std::span<const std::wstring> names) {
    const std::string beginning = "points=\"" + std::to_string(kMark) + ",";
    std::string out;
    LayerGroups layers(names);
    std::size_t done = 0;
    std::size_t layer = names.size();
    int frames = 0;
    for (std::size_t at = svg.find(beginning); at != kNot; at = svg.find(beginning, done)) {
        const std::size_t first = at + beginning.size();
        const std::vector<double> n =
            numbersOf(std::string_view(svg).substr(first, svg.find('"', first) - first));
        const std::size_t group = svg.rfind("<g ", at);
        const std::size_t end = svg.find(kGroupEnd, at);
        if (n.size() < 5 || group == kNot || end == kNot) return;
        const std::string_view before = std::string_view(svg).substr(done, group - done);
        const auto mark = static_cast<Mark>(static_cast<int>(n[0]));
        if (mark == Mark::LayerEnd) {
            layers.add(layer, before);
        } else if (mark == Mark::LayerBegin) {
            if (out.empty()) out += before;
            layer = static_cast<std::size_t>(n[1]);
        } else {
            layers.writeTo(out);
            out += before;
        }
        if (mark == Mark::FrameBegin) {
            std::string name = "janela" + std::to_string(++frames);
            out += clipRegion(name, QRectF(n[1], n[2], n[3], n[4]));
            if (n.size() > 5) {
                const std::string frame = std::exchange(name, name + "contorno");
                out += clipOutline(name, frame, std::span(n).subspan(5));
            }
            out += "<g clip-path=\"url(#" + name + ")\">\n";
        } else if (mark == Mark::FrameEnd) {
            out += "</g>\n";
        }
        done = end + kGroupEnd.size();
    }
    layers.writeTo(out);
    svg = out.append(svg, done);
}

}  // namespace

void finishSvg(std::string& svg, const QRectF& clip, std::string_view title,
               std::span<const std::wstring> layers) {
    replaceMarks(svg, layers);
    constexpr std::string_view kDefinitions = "</defs>";
    constexpr std::string_view kEnd = "</svg>";
    constexpr std::string_view kRoot = "<svg ";
    const std::size_t definitions = svg.find(kDefinitions);
    const std::size_t end = svg.rfind(kEnd);
    const std::size_t root = svg.find(kRoot);
    if (definitions == kNot || end == kNot || root == kNot) return;
    const std::size_t description = svg.find("<desc>");
    const std::size_t itsTitle = std::min(svg.find("<title>"), description);
    svg.insert(end, "</g>\n");
    svg.insert(definitions + kDefinitions.size(), "\n<g clip-path=\"url(#folha)\">");
    svg.insert(definitions, clipRegion("folha", clip));
    if (description < definitions)
        svg.replace(itsTitle, description - itsTitle, "<title>" + xmlText(title) + "</title>\n");
    if (!layers.empty())
        svg.insert(root + kRoot.size(),
                   "xmlns:inkscape=\"http://www.inkscape.org/namespaces/inkscape\" ");
}

}  // namespace prancheta
