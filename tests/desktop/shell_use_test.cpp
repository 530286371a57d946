// SPDX-License-Identifier: MIT
// Menus, tool windows and files as they are used between and inside commands.
#include <QComboBox>
#include <QDockWidget>
#include <QDropEvent>
#include <QLockFile>
#include <QMimeData>
#include <QSettings>

#include "prancheta/desktop/shell/plot_dialog.h"
#include "tests/desktop/shell_story.h"

namespace shell {
namespace {

namespace fs = std::filesystem;
using prancheta::InputKind;

void drop(prancheta::desktop::MainWindow& window, const fs::path& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent event({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
}

TEST_F(Window, TakesADroppedDrawingInTheMiddleOfACommand) {
    const fs::path file = folder() / "viga.dxf";
    Story story;
    story.type("c 50,50 25 ");
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] {
                   ASSERT_TRUE(story.editor().saveDocument(file));
                   ASSERT_TRUE(story.editor().newDocument());
                   story.press("l 0,0 ");
               });
    story.when([&] { return !story.idle() && story.window().ui().request() != nullptr; },
               [&] { drop(story.window(), file); });
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] { EXPECT_EQ(story.editor().fileName(), file); });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, WarnsOfADrawingThatIsOpenElsewhere) {
    const fs::path file = folder() / "viga.dxf";
    fs::path mark;
    {
        Story story;
        story.type("c 50,50 25 ");
        story.when([&] { return story.idle() && story.entities() == 1; },
                   [&] {
                       ASSERT_TRUE(story.editor().saveDocument(file));
                       story.press("z e ");
                   });
        story.when([&] { return story.idle() && fs::exists(folder() / "prancheta" / "abertos"); },
                   [&] { mark = *fs::directory_iterator(folder() / "prancheta" / "abertos"); });
        ASSERT_TRUE(story.run());
    }
    ASSERT_FALSE(fs::exists(mark)) << "a window that is gone marks nothing";
    QLockFile other(QString::fromStdString(mark.string()));
    ASSERT_TRUE(other.tryLock(0));
    ApplicationOptions options;
    options.drawing = file;
    Story story(options);
    story.choose("abertoEmOutra", "OK");
    story.when([&] { return story.idle(); }, [&] { EXPECT_EQ(story.entities(), 1u); });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, ToolTipsSayWhatToType) {
    Story story(withModules(folder()));
    const auto tip = [&](const char* entry) { return story.window().entry(entry)->toolTip(); };
    EXPECT_TRUE(tip("_LINE").endsWith("LINHA (L)")) << tip("_LINE").toStdString();
    EXPECT_TRUE(tip("'_ZOOM _E").endsWith("ZOOM (Z)")) << tip("'_ZOOM _E").toStdString();
    EXPECT_TRUE(tip("_pudobrado").endsWith("PERFILU")) << tip("_pudobrado").toStdString();
    EXPECT_TRUE(tip("_QSAVE").startsWith("Salvar (Ctrl+S)")) << tip("_QSAVE").toStdString();
}

TEST_F(Window, ArrangementOutlivesATypedQuit) {
    const auto panel = [](Story& story) {
        return story.window().findChild<QDockWidget*>("material");
    };
    {
        Story story;
        story.then([&] { panel(story)->close(); }).type("sair ");
        ASSERT_TRUE(story.run());
        EXPECT_TRUE(story.closedItself());
    }
    Story story;
    story.then([&] { EXPECT_TRUE(panel(story)->isHidden()); });
    EXPECT_TRUE(story.run());
    QSettings().clear();
}

TEST_F(Window, PlotPointsAtItsWindow) {
    using prancheta::desktop::PlotDialog;
    Story story;
    const auto dialog = [] { return qobject_cast<PlotDialog*>(QApplication::activeModalWidget()); };
    std::optional<prancheta::Box2d> area;
    story.type("c 50,50 25 ");
    story.when([&] { return story.idle(); }, [&] { story.press("plotar "); });
    story.when([&] { return dialog() != nullptr; },
               [&] {
                   for (QComboBox* const box : dialog()->findChildren<QComboBox*>()) {
                       const int row = box->findText("Janela...");
                       if (row < 0) continue;
                       box->setCurrentIndex(row);
                       emit box->activated(row);
                   }
               });
    story.when(
        [&] {
            const auto* const request = story.window().ui().request();
            return request != nullptr && request->kind == InputKind::Point;
        },
        [&] { story.press("80,70\n"); });
    story.when(
        [&] {
            const auto* const request = story.window().ui().request();
            return request != nullptr && request->kind == InputKind::Corner;
        },
        [&] { story.press("20,10\n"); });
    story.when([&] { return dialog() != nullptr; },
               [&] {
                   area = dialog()->settings().area;
                   dialog()->reject();
               });
    story.when([&] { return story.idle(); }, [] {});
    ASSERT_TRUE(story.run());
    ASSERT_TRUE(area);
    EXPECT_EQ(area->left, 20);
    EXPECT_EQ(area->bottom, 10);
    EXPECT_EQ(area->right, 80);
    EXPECT_EQ(area->top, 70);
}

}  // namespace
}  // namespace shell
