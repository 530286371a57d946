// SPDX-License-Identifier: MIT
// The same work by script and by hand gives the same events and the same drawing.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTest>

#include <fstream>

#include "dialogs_hands.h"
#include "prancheta/base/event.h"
#include "prancheta/base/text.h"
#include "prancheta/console/console_ui.h"
#include "prancheta/desktop/dialogs/run_dialog.h"

using namespace prancheta;
using namespace dialogtest;

namespace {

using Events = std::vector<std::string>;

std::string text(const EventValue& value) {
    struct Writer {
        std::string operator()(std::monostate) const { return "null"; }
        std::string operator()(bool b) const { return b ? "true" : "false"; }
        std::string operator()(long long n) const { return std::to_string(n); }
        std::string operator()(double d) const { return numberText(d); }
        std::string operator()(const std::string& s) const { return '"' + s + '"'; }
        std::string operator()(const EventPoint& p) const {
            return numberText(p.x) + "," + numberText(p.y) + "," + numberText(p.z);
        }
        std::string operator()(const EventList& list) const {
            std::string out;
            for (const EventValue& item : list) out += text(item) + ";";
            return out;
        }
    };
    return std::visit(Writer{}, value.data);
}

/// Every event while it lives.
class Recorder {
public:
    Recorder() {
        setEventSink([this](const Event& event) {
            std::string line = event.kind;
            for (const auto& [name, value] : event.fields)
                line += std::string(" ") + name + "=" + text(value);
            events.push_back(std::move(line));
        });
    }
    ~Recorder() { setEventSink(nullptr); }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    Events events;
};

/// Commands remember their values: each run has a host and modules of its own.
Events byScript(const std::string& script) {
    const QTemporaryDir folder;
    const std::string file = folder.path().toStdString() + "/roteiro.txt";
    std::ofstream(file) << script;
    auto opened = console::Script::open(file);
    EXPECT_TRUE(opened);
    console::ConsoleUi ui(*opened);
    Recorder recorder;
    Host host(ui, hostOn(folder.path().toStdString() + "/instalacao"));
    EXPECT_TRUE(host.start());
    host.editor().run();
    EXPECT_FALSE(ui.failed());
    return recorder.events;
}

Events byHand(std::deque<std::wstring> lines, const Hand& hand) {
    const QTemporaryDir folder;
    QMainWindow window;
    window.resize(1200, 800);
    window.show();
    desktop::announceMetrics(window);
    HandUi ui(window);
    ui.lines = std::move(lines);
    ui.hand = hand;
    Recorder recorder;
    Host host(ui, hostOn(folder.path().toStdString() + "/instalacao"));
    EXPECT_TRUE(host.start());
    host.editor().run();
    EXPECT_TRUE(ui.leftOpen.empty());
    return recorder.events;
}

std::string typedIn(QDialog& dialog, const char* key) {
    return dynamic_cast<QLineEdit&>(tile(dialog, key)).text().toStdString();
}

QImage picture(QDialog& dialog, const char* key) { return tile(dialog, key).grab().toImage(); }

/// A profile U with a view, as somebody draws it.
void drawByHand(QDialog& dialog, int round) {
    if (dialog.objectName() == "pu_geracao" && round == 0) {
        const QImage before = picture(dialog, "showall");
        pick(dialog, "lista", 2);
        EXPECT_EQ(typedIn(dialog, "h"), "50") << "third row of the shipped list: 50 25 2.00";
        EXPECT_EQ(typedIn(dialog, "t"), "2.00");
        retype(dialog, "h", "250");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QTest::mouseClick(&tile(dialog, "visualizar"), Qt::LeftButton, {}, QPoint(8, 8));
        EXPECT_NE(picture(dialog, "showall"), before) << "the insertion point is shown";
        QTest::mouseClick(&tile(dialog, "vista0"), Qt::LeftButton, {}, QPoint(8, 8));
        press(dialog, "OutraVista");
    } else if (dialog.objectName() == "vistas_geracao") {
        const QImage before = picture(dialog, "PreviewVista");
        press(dialog, "fig2");
        EXPECT_NE(picture(dialog, "PreviewVista"), before) << "another view";
        retype(dialog, "insertionP", "12");
        retype(dialog, "l", "1000");
        press(dialog, "accept");
    } else {
        EXPECT_EQ(typedIn(dialog, "h"), "250") << "kept while the views dialog was open";
        QTest::keyClick(&tile(dialog, "lista"), Qt::Key_Return);
    }
}

}  // namespace

TEST(DialogSame, AProfileByScriptAndByHand) {
    const Events script = byScript(
        "perfilu\nlista=2\nh=250\nvisualizar=1\nvista0=0\nOutraVista\nfig2\ninsertionP=12\nl=1000\n"
        "accept\naccept\n0,0\n0\n");
    int round = 0;
    const Events hand =
        byHand({L"perfilu", L"0,0", L"0"}, [&](QDialog& dialog) { drawByHand(dialog, round++); });
    ASSERT_GT(script.size(), 50U);
    EXPECT_EQ(hand.size(), script.size());
    for (std::size_t i = 0; i < std::min(hand.size(), script.size()); ++i)
        ASSERT_EQ(hand[i], script[i]) << "event " << i;
}
