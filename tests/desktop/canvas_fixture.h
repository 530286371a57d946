// SPDX-License-Identifier: MIT
// A draughtsman before the drawing area: what he does, one act after the other, answers the editor.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

#include <deque>
#include <functional>

#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/database/database_core.h"
#include "prancheta/desktop/canvas/canvas.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/register.h"

namespace canvastest {

using namespace prancheta;
using desktop::Canvas;

/// Serves the editor's questions with acts on the canvas; when there are none left the input ends.
class Hand : public UserInterface {
public:
    using Act = std::function<void()>;

    void print(std::wstring_view text) override { output += text; }
    void alert(std::wstring_view text) override { ADD_FAILURE() << "alert " << text.size(); }
    void runDialog(dcl::Dialog&) override { ADD_FAILURE() << "no dialog expected"; }
    void complain(std::wstring_view text, Complaint) override { output += text; }
    void refresh() override {
        if (canvas != nullptr) canvas->refresh();
    }
    RawInput ask(const InputRequest& request) override {
        prompts.push_back(request.prompt);
        std::optional<RawInput> answer;
        const auto connection =
            QObject::connect(canvas, &Canvas::answered, [&](const RawInput& input) {
                answer = input;
                canvas->setRequest(nullptr);
            });
        const auto commands =
            QObject::connect(canvas, &Canvas::commandWanted, [&](const QString& line) {
                RawInput input;
                input.kind = RawInput::Kind::Text;
                input.text = line.toStdWString();
                answer = input;
                canvas->setRequest(nullptr);
            });
        canvas->setRequest(&request);
        QCoreApplication::processEvents();
        while (!answer && !acts.empty()) {
            const Act act = std::move(acts.front());
            acts.pop_front();
            act();
            if (typed) answer = std::exchange(typed, {});
            QCoreApplication::processEvents();
        }
        canvas->setRequest(nullptr);
        QObject::disconnect(connection);
        QObject::disconnect(commands);
        return answer.value_or(RawInput());
    }

    Canvas* canvas = nullptr;
    std::deque<Act> acts;
    std::optional<RawInput> typed;
    std::wstring output;
    std::vector<std::wstring> prompts;
};

/// A canvas of 800 x 600 pixels; at first one pixel is one drawing unit and the origin stands at
/// its lower left corner.
class CanvasTest : public testing::Test {
protected:
    CanvasTest() {
        registerEntityClasses();
        editor = std::make_unique<Editor>(hand, builtInCommands());
        hand.canvas = &canvas;
        canvas.resize(800, 600);
        canvas.show();
        canvas.setEditor(editor.get());
        look(400.0, 300.0, 600.0);
    }
    ~CanvasTest() override {
        canvas.setEditor(nullptr);
        hand.canvas = nullptr;
    }

    void look(double x, double y, double height) {
        editor->screen().show({AcGePoint3d(x, y, 0.0), height});
    }
    AcDbObjectId line(double x1, double y1, double x2, double y2) {
        return add(new AcDbLine(AcGePoint3d(x1, y1, 0.0), AcGePoint3d(x2, y2, 0.0)));
    }
    AcDbObjectId add(AcDbEntity* entity) {
        AcDbDatabase& database = editor->database();
        AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
        entity->setDatabaseDefaults(&database);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        canvas.refresh();
        return id;
    }
    QPoint pixel(double x, double y) const {
        const View& view = editor->screen().view();
        const double unit = view.height / canvas.height();
        return QPointF(400.0 + (x - view.centre.x) / unit, 300.0 - (y - view.centre.y) / unit)
            .toPoint();
    }
    AcGePoint3d world(QPointF at) const {
        const View& view = editor->screen().view();
        const double unit = view.height / canvas.height();
        return {view.centre.x + (at.x() - 400.0) * unit, view.centre.y + (300.0 - at.y()) * unit,
                0.0};
    }

    /// Without the screen's own cursor, which would go on moving.
    void mouse(QEvent::Type type, QPoint at, Qt::KeyboardModifiers keys = Qt::NoModifier,
               Qt::MouseButton button = Qt::NoButton) {
        QMouseEvent event(type, at, canvas.mapToGlobal(at), button, button, keys);
        QApplication::sendEvent(&canvas, &event);
    }

    // --- Acts; run() does them -------------------------------------------------------------------
    void type(const wchar_t* text) {
        hand.acts.push_back([this, text] {
            hand.typed.emplace();
            hand.typed->kind = RawInput::Kind::Text;
            hand.typed->text = text;
            hand.typed->pointer = canvas.pointer();
        });
    }
    void moveTo(double x, double y) {
        hand.acts.push_back([this, x, y] { mouse(QEvent::MouseMove, pixel(x, y)); });
    }
    void click(double x, double y, Qt::KeyboardModifiers keys = Qt::NoModifier,
               Qt::MouseButton button = Qt::LeftButton) {
        hand.acts.push_back([this, x, y, keys, button] {
            const QPoint at = pixel(x, y);
            mouse(QEvent::MouseMove, at, keys);
            mouse(QEvent::MouseButtonPress, at, keys, button);
            mouse(QEvent::MouseButtonRelease, at, keys, button);
        });
    }
    void drag(double x1, double y1, double x2, double y2,
              Qt::KeyboardModifiers keys = Qt::NoModifier,
              Qt::MouseButton button = Qt::LeftButton) {
        hand.acts.push_back([this, from = pixel(x1, y1), to = pixel(x2, y2), keys, button] {
            mouse(QEvent::MouseMove, from, keys);
            mouse(QEvent::MouseButtonPress, from, keys, button);
            mouse(QEvent::MouseMove, from + (to - from) / 2, keys);
            mouse(QEvent::MouseMove, to, keys);
            mouse(QEvent::MouseButtonRelease, to, keys, button);
        });
    }
    void wheel(QPointF at, int notches) {
        hand.acts.push_back([this, at, notches] {
            QWheelEvent event(at, canvas.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&canvas, &event);
        });
    }
    void press(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        hand.acts.push_back([this, key, keys] { QTest::keyClick(&canvas, key, keys); });
    }
    void then(Hand::Act act) { hand.acts.push_back(std::move(act)); }
    void run() { editor->run(); }

    /// The area as painted, once it is complete; the mouse is taken away.
    QImage shown(Canvas& of) {
        while (!of.complete()) QCoreApplication::processEvents();
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&of, &leave);
        return of.grab().toImage();
    }
    QImage shown() { return shown(canvas); }

    bool said(std::wstring_view text) const { return hand.output.find(text) != std::wstring::npos; }
    std::vector<AcDbObjectId> entities() const { return editor->database().core().modelSpace(); }

    Hand hand;
    std::unique_ptr<Editor> editor;
    Canvas canvas;
};

inline void expectLine(AcDbObjectId id, double x1, double y1, double x2, double y2) {
    const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForRead);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_TRUE(line->startPoint().isEqualTo(AcGePoint3d(x1, y1, 0.0)));
    EXPECT_TRUE(line->endPoint().isEqualTo(AcGePoint3d(x2, y2, 0.0)));
}

}  // namespace canvastest
