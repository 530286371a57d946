// SPDX-License-Identifier: MIT
// Frames of the drawing area with many pieces: what one movement of the mouse costs until it is
// seen.
#include <QApplication>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <vector>

#include "bench/silent.h"
#include "perfis/entities/zpentidades.h"
#include "prancheta/database/database_core.h"
#include "prancheta/desktop/canvas/canvas.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/modules.h"
#include "prancheta/entities/register.h"

namespace {

using prancheta::desktop::Canvas;
using Clock = std::chrono::steady_clock;

constexpr int kColumns = 400;
constexpr double kRight = std::numbers::pi / 2;

/// The canvas follows.
class Watched : public Silent {
public:
    void refresh() override {
        if (canvas != nullptr) canvas->refresh();
    }
    Canvas* canvas = nullptr;
};

/// Lipped U members in rows, every third one inclined.
void fill(int pieces) {
    for (int i = 0; i < pieces; ++i) {
        const AcGePoint3d at(1200.0 * (i % kColumns), 1080.0 * (i / kColumns), 0.0);
        const AcGePoint3d to(at.x + 1000.0, at.y + (i % 3 == 0 ? 300.0 : 0.0), 0.0);
        auto* const piece = new ZpUDobrado(at, to, ZpObject::kVistaDireita, 200, 75, 75, 2.65, 2.65,
                                           kRight, kRight, 0, 20);
        piece->setDatabaseDefaults();
        AcDbObjectId id;
        (void)append(piece, id);
        if (id.isNull()) std::abort();
        (void)piece->close();
    }
}

double milliseconds(Clock::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

/// Counts what was really painted.
class Paints : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

/// Does it `count` times, each until it was painted; a turn of refining counts with it.
template <class Move>
void measure(Canvas& canvas, const char* name, int count, Move move) {
    std::vector<double> frames;
    Paints paints;
    canvas.installEventFilter(&paints);
    for (int i = 0; i < count; ++i) {
        const auto start = Clock::now();
        move(i);
        const int before = paints.count;
        canvas.update();
        while (paints.count == before) QCoreApplication::processEvents();
        frames.push_back(milliseconds(Clock::now() - start));
        QCoreApplication::processEvents();
    }
    const auto refined = Clock::now();
    while (!canvas.complete()) QCoreApplication::processEvents();
    const double rest = milliseconds(Clock::now() - refined);
    std::sort(frames.begin(), frames.end());
    const auto at = [&](double part) {
        return frames[static_cast<std::size_t>(part * static_cast<double>(frames.size() - 1))];
    };
    std::printf(
        "%-28s median %6.2f ms   95%% %6.2f ms   worst %6.2f ms   complete after %7.1f ms\n", name,
        at(0.5), at(0.95), frames.back(), rest);
}

void mouse(Canvas& canvas, QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::NoButton) {
    QMouseEvent event(type, at, canvas.mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
}

void wheel(Canvas& canvas, QPointF at, int notches) {
    QWheelEvent event(at, canvas.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&canvas, &event);
}

void pan(Canvas& canvas, const char* name) {
    mouse(canvas, QEvent::MouseButtonPress, {960, 540}, Qt::MiddleButton);
    measure(canvas, name, 60, [&](int i) {
        // Away and back.
        const double way = i < 30 ? i : 60 - i;
        mouse(canvas, QEvent::MouseMove, {960.0 - 9.0 * way, 540.0 + 5.0 * way}, Qt::MiddleButton);
    });
    mouse(canvas, QEvent::MouseButtonRelease, {960, 540}, Qt::MiddleButton);
}

void run(Canvas& canvas, prancheta::Editor& editor) {
    while (!canvas.complete()) QCoreApplication::processEvents();
    prancheta::InputRequest request;
    request.kind = prancheta::InputKind::Command;
    canvas.setRequest(&request);
    mouse(canvas, QEvent::MouseButtonDblClick, {960, 540}, Qt::MiddleButton);
    measure(canvas, "all of it", 1, [](int) {});
    pan(canvas, "pan, all of it");
    measure(canvas, "wheel in", 30, [&](int) { wheel(canvas, {700, 400}, 1); });
    pan(canvas, "pan, near");
    measure(canvas, "wheel out", 30, [&](int) { wheel(canvas, {700, 400}, -1); });
    const auto sweep = [&](int i) {
        mouse(canvas, QEvent::MouseMove, {200.0 + 23.0 * i, 300.0 + 7.0 * i});
    };
    measure(canvas, "hover, all of it", 60, sweep);
    editor.selection().select(editor.database().core().modelSpace());
    measure(canvas, "select everything", 1, [&](int) { canvas.refresh(); });
    measure(canvas, "wheel, all selected", 20, [&](int i) {
        wheel(canvas, {700, 400}, i < 10 ? 1 : -1);
    });
    editor.selection().clear();
    prancheta::InputRequest point;
    point.kind = prancheta::InputKind::Point;
    point.base = editor.screen().view().centre;
    canvas.setRequest(&point);
    measure(canvas, "rubber band and snaps", 60, sweep);
    wheel(canvas, {700, 400}, 25);
    measure(canvas, "rubber band, near", 60, sweep);
    canvas.setRequest(nullptr);
    if (const QString file = qEnvironmentVariable("CANVAS_BENCH_IMAGE"); !file.isEmpty())
        canvas.grab().save(file);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const int pieces = argc > 1 ? std::atoi(argv[1]) : 100000;
    prancheta::registerEntityClasses();
    Watched ui;
    prancheta::Editor editor(ui, prancheta::builtInCommands());
    if (!editor.modules().load(HOUSE_BINARY_DIR "/bin/ZpObjects18.arx")) return 1;
    editor.database().core().undo().begin(L"bench");
    fill(pieces);
    editor.database().core().undo().end();
    Canvas canvas;
    ui.canvas = &canvas;
    canvas.resize(1920, 1080);
    canvas.show();
    canvas.setEditor(&editor);
    std::printf("%zu pieces, %d x %d pixels\n", editor.display().size(), canvas.width(),
                canvas.height());
    run(canvas, editor);
    ui.canvas = nullptr;
    canvas.setEditor(nullptr);
    return 0;
}
