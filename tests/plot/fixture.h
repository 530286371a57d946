// SPDX-License-Identifier: MIT
// Drawings plotted into a folder of their own, and ink looked for at places in millimetres.
#pragma once

#include <unistd.h>

#include <QImage>
#include <QPointF>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "prancheta/editor/plotter.h"
#include "tests/builtin/script_ui.h"

namespace plotting {

namespace fs = std::filesystem;
using prancheta::Box2d;
using prancheta::PlotFormat;
using prancheta::PlotSettings;

/// Ten dots a millimetre.
inline constexpr int kDots = 254;
inline constexpr double kPerMillimetre = 10.0;

/// A sheet on which the world point (x, y) stands 10 + x to the right of the left edge and 10 + y
/// above the lower one: A4 upright at 1:1, the window as large as the margins leave room for.
inline PlotSettings trueToSize() {
    PlotSettings settings;
    settings.area = Box2d{0.0, 0.0, 190.0, 277.0};
    settings.scale = 1.0;
    settings.dotsPerInch = kDots;
    return settings;
}

class Plotted : public builtin::Builtin {
protected:
    Plotted() {
        std::string name = (fs::temp_directory_path() / "prancheta-plot-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    ~Plotted() override { fs::remove_all(folder); }

    fs::path plot(const PlotSettings& settings, const char* name) {
        const fs::path file = folder / name;
        const auto machine = prancheta::plotter();
        EXPECT_TRUE(machine.ok()) << machine.error().message();
        if (!machine) return file;
        const auto done = (*machine)->plot(*editor, settings, *prancheta::plotFormatOf(file), file);
        EXPECT_TRUE(done.ok()) << done.error().message();
        return file;
    }
    std::string bytes(const fs::path& file) const {
        std::ifstream in(file, std::ios::binary);
        std::stringstream out;
        out << in.rdbuf();
        return out.str();
    }
    QImage picture(const PlotSettings& settings) {
        return QImage(QString::fromStdString(plot(settings, "folha.png").string()));
    }
    /// Output of a command; nothing when the program is not installed.
    static std::optional<std::string> output(const std::string& program, const std::string& rest) {
        if (std::system(("command -v " + program + " >/dev/null").c_str()) != 0) return {};
        FILE* pipe = ::popen((program + " " + rest).c_str(), "r");
        std::string text;
        char part[4096];
        for (std::size_t n = 0; (n = std::fread(part, 1, sizeof part, pipe)) > 0;)
            text.append(part, n);
        ::pclose(pipe);
        return text;
    }

    fs::path folder;
};

inline bool dark(const QImage& image, int column, int row) {
    return image.valid(column, row) && qGray(image.pixel(column, row)) < 128;
}

/// Dots of a world point on the sheet of trueToSize(): the middle of a dot is half a dot further.
inline int columnOf(double x) { return static_cast<int>(std::floor((10.0 + x) * kPerMillimetre)); }
inline int rowOf(double y) { return static_cast<int>(std::floor((287.0 - y) * kPerMillimetre)); }

/// Ink within half a millimetre of a world point.
inline bool inkAt(const QImage& image, double x, double y) {
    for (int row = rowOf(y) - 5; row <= rowOf(y) + 5; ++row)
        for (int column = columnOf(x) - 5; column <= columnOf(x) + 5; ++column)
            if (dark(image, column, row)) return true;
    return false;
}

/// Box of the ink within a world rectangle, world coordinates; empty when there is none.
inline Box2d inkWithin(const QImage& image, const Box2d& area) {
    Box2d box;
    for (int row = rowOf(area.top); row <= rowOf(area.bottom); ++row)
        for (int column = columnOf(area.left); column <= columnOf(area.right); ++column) {
            if (!dark(image, column, row)) continue;
            box.add(column / kPerMillimetre - 10.0, 287.0 - row / kPerMillimetre);
            box.add((column + 1) / kPerMillimetre - 10.0, 287.0 - (row + 1) / kPerMillimetre);
        }
    return box;
}

inline void expectBox(const Box2d& box, const Box2d& expected, double slack) {
    EXPECT_NEAR(box.left, expected.left, slack);
    EXPECT_NEAR(box.bottom, expected.bottom, slack);
    EXPECT_NEAR(box.right, expected.right, slack);
    EXPECT_NEAR(box.top, expected.top, slack);
}

}  // namespace plotting
