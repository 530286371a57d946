// SPDX-License-Identifier: MIT
// Menus, tool windows and files as they are used between and inside commands.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QListWidget>
#include <QLockFile>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>

#include <cmath>
#include <fstream>

#include "dbents.h"
#include "prancheta/desktop/dialogs/settings.h"
#include "prancheta/desktop/shell/help_window.h"
#include "prancheta/desktop/shell/options_dialog.h"
#include "prancheta/desktop/shell/plot_dialog.h"
#include "prancheta/desktop/shell/style_dialog.h"
#include "prancheta/desktop/shell/theme.h"
#include "prancheta/entities/viewports.h"
#include "rxregsvc.h"
#include "tests/desktop/accessible_walk.h"
#include "tests/desktop/shell_story.h"

namespace shell {
namespace {

namespace fs = std::filesystem;
using prancheta::InputKind;
using prancheta::desktop::StyleDialog;

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
    story.afterSavedCircle(file, [&] {
        ASSERT_TRUE(story.editor().file().makeNew());
        story.press("l 0,0 ");
    });
    story.when([&] { return !story.idle() && story.window().ui().request() != nullptr; },
               [&] { drop(story.window(), file); });
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] { EXPECT_EQ(story.editor().file().name(), file); });
    // "Comando:" waits as before: a click selects.
    story.click(75, 50).then(
        [&] { EXPECT_EQ(story.editor().selection().ids(), std::vector{story.entity(0)}); });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, AbandonedWorkLeavesNoRecoveryCopy) {
    const fs::path file = folder() / "viga.dxf";
    Story story;
    story.afterSavedCircle(file, [&] { story.press("c 90,50 25 "); });
    story.when([&] { return story.idle() && story.entities() == 2; },
               [&] {
                   ASSERT_TRUE(story.application().recovery().write());
                   // From the event loop: it asks about unsaved work.
                   QTimer::singleShot(0, &story.window(), [&] { drop(story.window(), file); });
               });
    story.choose("salvarAlteracoes", "Não salvar");
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] { EXPECT_TRUE(fs::is_empty(recoveries())); });
    EXPECT_TRUE(story.run());
}

/// Runs a script, and acts once when the window looks at what the user does while `active` (global
/// name, empty: none) is the command and something is drawn.
void interrupt(Story& story, const fs::path& script, const std::wstring& active,
               std::function<void()> act) {
    auto* const timer = new QTimer(&story.window());
    QObject::connect(timer, &QTimer::timeout, [&story, timer, active, act] {
        const bool now =
            story.editor().typing().inScript() && story.editor().runner().activeName() == active;
        if (!now || story.entities() == 0 || !story.window().ui().passing()) return;
        timer->stop();
        act();
    });
    story.then([&story, timer, script] {
        timer->start(0);
        story.press("_script " + QString::fromStdString(script.string()) + "\n");
    });
}

TEST_F(Window, EscEndsAScriptThatWaits) {
    const fs::path file = folder() / "espera.scr";
    std::ofstream(file) << "_circle 50,50 25\n_delay 30000\n_circle 90,50 25\n";
    Story story;
    interrupt(story, file, L"DELAY", [&] { story.press("l 0,0 \x1b"); });
    story.when([&] { return story.idle() && story.entities() > 0; },
               [&] {
                   EXPECT_EQ(story.entities(), 1u) << "the rest of the script is kept";
                   story.press("_resume ");
               });
    story.when([&] { return story.idle() && story.entities() == 2; }, [] {});
    EXPECT_TRUE(story.run());
}

TEST_F(Window, EscEndsAScriptThatWorks) {
    constexpr std::size_t kPoints = 20000;
    const fs::path file = folder() / "longo.scr";
    std::ofstream out(file);
    for (std::size_t i = 0; i < kPoints; ++i) out << "_point " << i % 100 * 20 << "," << i << "\n";
    out.close();
    Story story;
    interrupt(story, file, L"", [&] { story.press("\x1b"); });
    story.when([&] { return story.idle() && story.entities() > 0; },
               [&] { EXPECT_LT(story.entities(), kPoints); });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, AsksBeforeAScriptLoadsAStrangeModule) {
    for (const bool allowed : {false, true}) {
        const fs::path module = folder() / (allowed ? "sim.arx" : "nao.arx");
        fs::copy_file(fs::path(HOUSE_BINARY_DIR) / "bin/sonda_base.arx", module);
        const fs::path file = folder() / "a.scr";
        std::ofstream(file) << "_arx _l " << module.string() << "\n_point 0,0\n";
        Story story;
        story.type("_script " + QString::fromStdString(file.string()) + "\n");
        story.choose("carregarModulo", allowed ? "Carregar" : "Não carregar");
        story.when([&] { return story.idle(); },
                   [&] {
                       EXPECT_EQ(acrxAppIsLoaded(module.wstring().c_str()), allowed);
                       EXPECT_EQ(story.entities(), allowed ? 1u : 0u);
                   });
        EXPECT_TRUE(story.run());
    }
}

TEST_F(Window, ShiftAndTheRightButtonOfferSnapsForOnePoint) {
    Story story;
    story.type("osmode 0 l 10,10 60,10 \x1bl ");
    story.when(
        [&] { return story.entities() == 1 && story.editor().runner().activeName() == L"LINE"; },
        [&] {
            QTimer::singleShot(0, &story.window(), [&] {
                auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                ASSERT_NE(menu, nullptr);
                for (QAction* const action : menu->actions())
                    if (action->text() == "Meio") menu->setActiveAction(action);
                QTest::keyClick(menu, Qt::Key_Return);
            });
            QTest::mouseClick(&story.canvas(), Qt::RightButton, Qt::ShiftModifier,
                              story.pixel(100, 100));
        });
    story.click(36, 10).type("36,50 ").type("\x1b");
    story.when([&] { return story.idle() && story.entities() == 2; },
               [&] {
                   const AcDbObjectPointer<AcDbLine> line(story.entity(1), AcDb::kForRead);
                   ASSERT_NE(line.object(), nullptr);
                   EXPECT_EQ(line->startPoint(), AcGePoint3d(35, 10, 0));
                   EXPECT_EQ(line->endPoint(), AcGePoint3d(36, 50, 0));
               });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, ClosesWhileAScriptWaits) {
    const fs::path file = folder() / "espera.scr";
    std::ofstream(file) << "_circle 50,50 25\n_delay 30000\n";
    Story story;
    interrupt(story, file, L"DELAY", [&] { story.window().close(); });
    story.choose("salvarAlteracoes", "Não salvar");
    EXPECT_TRUE(story.run());
    EXPECT_TRUE(story.closedItself());
}

TEST_F(Window, DelInThePanelOfLayersIsAboutLayers) {
    Story story;
    story.type("l 0,0 50,50 \n-layer _n Livre\n\n");
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] {
                   story.window().findChild<QDockWidget*>("camadas")->hide();
                   story.press("la ");
               });
    auto* const panel = story.window().findChild<QDockWidget*>("camadas");
    story.when([&] { return story.idle() && panel->isVisible(); },
               [&] {
                   auto* const view = panel->findChild<QTableView*>("camadas");
                   ASSERT_EQ(view->model()->rowCount(), 2);
                   story.editor().selection().select({story.entity(0)});
                   QApplication::setActiveWindow(&story.window());
                   view->setFocus();
                   view->selectRow(1);
                   // With the text that keyboards give it.
                   QTest::sendKeyEvent(QTest::Click, view, Qt::Key_Delete, "\x7f", Qt::NoModifier);
                   EXPECT_EQ(view->model()->rowCount(), 1);
               });
    story.when([&] { return story.idle(); }, [&] { EXPECT_EQ(story.entities(), 1u); });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, CopiesTheMaterialTableAndLinesOfTheLog) {
    Story story(withModules(folder()));
    story.then([&] {
        auto* const view = story.window().findChild<QTableView*>("lista_material");
        story.window().findChild<QDockWidget*>("material")->raise();
        QApplication::setActiveWindow(&story.window());
        view->setFocus();
        QApplication::clipboard()->setText("antes");
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Quant.\tMarca\t"));
        story.window().commandLine().print("\num\ndois\n");
        story.window().commandLine().findChild<QPlainTextEdit*>()->selectAll();
        EXPECT_TRUE(story.window().commandLine().selectedText().endsWith("um\ndois"));
    });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, CopiedObjectsGoThroughTheSystemsClipboard) {
    Story story;
    const auto control = [&](Qt::Key key) {
        QTest::keyClick(&story.edit(), key, Qt::ControlModifier);
    };
    story.type("c 50,50 25 ");
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] {
                   story.window().activateWindow();
                   story.edit().setFocus();
                   story.editor().selection().select({story.entity(0)});
                   control(Qt::Key_C);
               });
    story.when([&] { return story.idle() && !story.editor().clipboard().ids().empty(); },
               [&] {
                   const QMimeData* const data = QApplication::clipboard()->mimeData();
                   EXPECT_FALSE(QApplication::clipboard()->image().isNull());
                   EXPECT_TRUE(data->text().isEmpty());
                   const QByteArray dxf = data->data("image/vnd.dxf");
                   EXPECT_TRUE(dxf.contains("AC1015"));
                   // As another window would offer it, whose clipboard this one does not know.
                   auto* const offered = new QMimeData;
                   offered->setData("image/vnd.dxf", dxf);
                   QApplication::clipboard()->setMimeData(offered);
                   story.editor().clipboard() = {};
                   control(Qt::Key_V);
               });
    story.when([&] { return !story.idle() && story.window().ui().request() != nullptr; },
               [&] { story.press("0,0 "); });
    story.when([&] { return story.idle() && story.entities() == 2; },
               [&] {
                   // The lower left corner of the circle's box is the base.
                   AcDbExtents box;
                   const AcDbObjectPointer<AcDbEntity> pasted(story.entity(1), AcDb::kForRead);
                   EXPECT_EQ(pasted->getGeomExtents(box), Acad::eOk);
                   EXPECT_NEAR(box.minPoint().x, 0, 1e-9);
                   EXPECT_NEAR(box.maxPoint().y, 50, 1e-9);
               });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, OptionsAreAppliedAtOnceAndKept) {
    const auto variable = [](Story& story, const wchar_t* name) {
        return story.editor().variables().number(name);
    };
    QSettings().setValue("opcoes/recuperacao_minutos", 10000);  // somebody wrote it by hand
    {
        Story story(withModules(folder()));
        story.then([&] {
            EXPECT_EQ(variable(story, L"OSMODE"), 4135);
            // Its window stands inside of whoever opens it: not inside of this step.
            QTimer::singleShot(0, story.window().entry("opcoes"), &QAction::trigger);
        });
        const auto dialog = [] {
            return qobject_cast<prancheta::desktop::OptionsDialog*>(
                QApplication::activeModalWidget());
        };
        story.when([&] { return dialog() != nullptr; },
                   [&] {
                       auto& of = *dialog();
                       EXPECT_EQ(of.findChild<QSpinBox*>("minutos")->value(), 600);
                       of.findChild<QComboBox*>("tema")->setCurrentIndex(2);
                       of.findChild<QComboBox*>("fundo")->setCurrentIndex(1);
                       of.findChild<QSpinBox*>("caixa")->setValue(7);
                       of.findChild<QSpinBox*>("minutos")->setValue(0);
                       of.findChild<QCheckBox*>("snap_2")->setChecked(false);
                       of.findChild<QComboBox*>("numeros")->setCurrentIndex(1);
                       of.accept();
                   });
        story.when([&] { return story.idle(); },
                   [&] {
                       EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 128);
                       EXPECT_GT(prancheta::desktop::dialogSettings().ground.lightness(), 128);
                       EXPECT_EQ(variable(story, L"PICKBOX"), 7);
                       EXPECT_EQ(variable(story, L"OSMODE"), 4133);
                       EXPECT_EQ(QLocale().decimalPoint(), ".");
                   });
        EXPECT_TRUE(story.run());
    }
    Story story;
    story.then([&] {
        EXPECT_EQ(variable(story, L"OSMODE"), 4133);
        EXPECT_EQ(variable(story, L"PICKBOX"), 7);
        EXPECT_EQ(prancheta::desktop::WindowOptions::load().recoveryMinutes, 0);
        // Esc where there is nothing to cancel says nothing, however often.
        const QString before = story.window().commandLine().document()->toPlainText();
        story.press("\x1b\x1b\x1b");
        EXPECT_EQ(story.window().commandLine().document()->toPlainText(), before);
    });
    EXPECT_TRUE(story.run());
    QSettings().clear();
    prancheta::desktop::applyTheme(prancheta::desktop::Theme::System);
}

/// How much two colours differ for reading, 1 to 21 (WCAG 2.1, contrast ratio).
double contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double c) {
            return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const auto [low, high] = std::minmax(luminance(a), luminance(b));
    return (high + 0.05) / (low + 0.05);
}

TEST(Theme, WhatIsReadStandsOutFromItsGround) {
    using prancheta::desktop::Theme;
    const struct {
        Theme theme;
        double text, disabled;
    } themes[] = {{Theme::Light, 4.5, 3.0}, {Theme::Dark, 4.5, 3.0}, {Theme::Contrast, 7.0, 4.5}};
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window}, {QPalette::Text, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button}, {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Link, QPalette::Base},         {QPalette::ToolTipText, QPalette::ToolTipBase}};
    for (const auto& [theme, text, disabled] : themes) {
        const QPalette palette = prancheta::desktop::paletteOf(theme);
        for (const auto& [front, ground] : pairs)
            EXPECT_GE(contrast(palette.color(front), palette.color(ground)), text)
                << static_cast<int>(theme) << ' ' << front;
        EXPECT_GE(contrast(palette.color(QPalette::Disabled, QPalette::Text),
                           palette.color(QPalette::Base)),
                  disabled);
    }
}

TEST_F(Window, TheScaleIsSetInTheStatusBarAndStylesInTheirDialogs) {
    Story story(withModules(folder()));
    const auto scale = [&] { return story.editor().variables().real(L"DIMSCALE"); };
    auto* const button = story.window().findChild<QToolButton*>("escala");
    ASSERT_NE(button, nullptr);
    story.then([&] {
        EXPECT_EQ(button->text(), "1:20");  // of the template
        emit button->menu()->aboutToShow();
        for (QAction* const action : button->menu()->actions())
            if (action->text() == "1:50") action->trigger();
    });
    story.when([&] { return story.idle() && scale() == 50; },
               [&] { EXPECT_EQ(button->text(), "1:50"); });
    const auto dialog = [](const char* name) {
        QWidget* const modal = QApplication::activeModalWidget();
        const bool its = modal != nullptr && modal->objectName() == name;
        return its ? qobject_cast<StyleDialog*>(modal) : nullptr;
    };
    story.type("estilocota\n");
    story.when([&] { return dialog("estilocota") != nullptr; },
               [&] {
                   StyleDialog& styles = *dialog("estilocota");
                   EXPECT_FALSE(styles.addStyle(L"standard"));
                   EXPECT_TRUE(styles.addStyle(L"Fina"));
                   QWidget* const sample = styles.findChild<QWidget*>("amostra");
                   const QImage before = sample->grab().toImage();
                   styles.findChild<QDoubleSpinBox*>("dimtxt")->setValue(5);
                   EXPECT_NE(sample->grab().toImage(), before);
                   styles.accept();
               });
    story.when([&] { return story.idle(); },
               [&] {
                   EXPECT_EQ(story.editor().variables().text(L"DIMSTYLE"), L"Fina");
                   EXPECT_EQ(story.editor().variables().real(L"DIMTXT"), 5);
                   EXPECT_EQ(scale(), 50);
               });
    story.type("u\nestilo\n");
    story.when([&] { return dialog("estilo") != nullptr; },
               [&] {
                   EXPECT_EQ(story.editor().variables().text(L"DIMSTYLE"), L"Standard");
                   EXPECT_EQ(story.editor().variables().real(L"DIMTXT"), 2.5);
                   dialog("estilo")->findChild<QDoubleSpinBox*>("inclinacao")->setValue(15);
                   dialog("estilo")->accept();
               });
    story.when([&] { return story.idle(); }, [] {});
    ASSERT_TRUE(story.run());
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(story.editor().database().textstyle(),
                                                            AcDb::kForRead);
    EXPECT_NEAR(style->obliquingAngle(), 0.2618, 1e-4);
}

TEST_F(Window, TheScaleOfAViewportStandsInTheStatusBar) {
    Story story;
    auto* const button = story.window().findChild<QToolButton*>("escala_janela");
    ASSERT_NE(button, nullptr);
    const auto viewport = [&] {
        return prancheta::viewportOf(story.editor().spaces().viewports().front());
    };
    const auto choose = [button](const QString& text) {
        emit button->menu()->aboutToShow();
        for (QAction* const action : button->menu()->actions())
            if (action->text().remove('&') == text) return action->trigger();
        ADD_FAILURE() << text.toStdString();
    };
    double former = 0;
    story.type("setvar\nctab\nLayout1\nmview\n10,10\n110,60\n");
    story.when([&] { return story.idle() && story.editor().spaces().viewports().size() == 1; },
               [&] {
                   EXPECT_TRUE(button->isHidden());
                   former = viewport()->customScale();
                   story.editor().selection().select({story.editor().spaces().viewports().front()});
                   emit story.canvas().selectionChanged();
                   EXPECT_FALSE(button->isHidden());
                   choose("1:10");
                   EXPECT_NEAR(viewport()->customScale(), 0.1, 1e-12);
                   EXPECT_EQ(button->text(), "Janela 1:10");
                   choose("Bloqueada");
                   EXPECT_EQ(button->text(), "Janela 1:10, bloqueada");
                   choose("1:50");  // cannot be chosen
                   EXPECT_NEAR(viewport()->customScale(), 0.1, 1e-12);
               });
    story.type("u\nmspace\n");  // drawn through, whatever is selected
    story.when([&] { return story.idle() && !story.editor().spaces().viewport().isNull(); },
               [&] {
                   EXPECT_EQ(button->text(), "Janela 1:10");
                   choose("1:2");
                   EXPECT_NEAR(viewport()->customScale(), 0.5, 1e-12);
               });
    story.type("pspace\nu\nu\n");
    story.when([&] { return story.idle() && viewport()->customScale() == former; },
               [&] { EXPECT_TRUE(button->isHidden()); });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, WarnsOfADrawingThatIsOpenElsewhere) {
    const fs::path file = folder() / "viga.dxf";
    fs::path mark;
    {
        Story story;
        story.afterSavedCircle(file, [&] { story.press("z e "); });
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

TEST_F(Window, WhatIsWorkedHasANameForWhoDoesNotSeeIt) {
    Story story(withModules(folder()));
    story.type("c 50,50 25 ");
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] {
                   story.editor().selection().select({story.entity(0)});
                   int named = 0;
                   for (QDockWidget* const dock : story.window().findChildren<QDockWidget*>()) {
                       dock->show();
                       dock->raise();
                       QApplication::processEvents();
                       const accessible::Walk walk = accessible::walkOf(story.window());
                       EXPECT_EQ(walk.unnamed, std::vector<std::string>())
                           << dock->objectName().toStdString();
                       named = walk.named;
                   }
                   EXPECT_GT(named, 50) << "toolbars, menus, tabs, the drawing area";
                   using prancheta::desktop::OptionsDialog;
                   QWidget* const over = &story.window();
                   OptionsDialog options(prancheta::desktop::WindowOptions(), over);
                   StyleDialog style(story.editor().database(), StyleDialog::Kind::Text, over);
                   prancheta::desktop::PlotDialog plot(story.editor(), over);
                   prancheta::desktop::HelpWindow help(HOUSE_SOURCE_DIR "/docs/manual.md", over);
                   for (QWidget* const window :
                        std::initializer_list<QWidget*>{&options, &style, &plot, &help}) {
                       window->show();
                       EXPECT_EQ(accessible::walkOf(*window).unnamed, std::vector<std::string>())
                           << window->windowTitle().toStdString();
                       window->hide();
                   }
               });
    EXPECT_TRUE(story.run());
    QSettings().clear();  // the arrangement with all panels
}

TEST_F(Window, ToolTipsSayWhatToType) {
    Story story(withModules(folder()));
    const auto tip = [&](const char* entry) { return story.window().entry(entry)->toolTip(); };
    EXPECT_TRUE(tip("_LINE").endsWith("LINHA (L)")) << tip("_LINE").toStdString();
    EXPECT_TRUE(tip("'_ZOOM _E").endsWith("ZOOM (Z)")) << tip("'_ZOOM _E").toStdString();
    EXPECT_TRUE(tip("_pudobrado").endsWith("PERFILU (PFU)")) << tip("_pudobrado").toStdString();
    EXPECT_TRUE(tip("_QSAVE").startsWith("Salvar (Ctrl+S)")) << tip("_QSAVE").toStdString();
}

TEST_F(Window, ArrangementOutlivesATypedQuit) {
    const auto panel = [](Story& story, const char* name) {
        return story.window().findChild<QDockWidget*>(name);
    };
    {
        Story story;
        story.then([&] {
            EXPECT_TRUE(panel(story, "inicio")->isVisible());
            const auto tab = [&](const char* name) {
                return story.window().findChild<QToolButton*>(name);
            };
            tab("aba_camadas")->click();
            EXPECT_TRUE(panel(story, "camadas")->isVisible());
            EXPECT_TRUE(panel(story, "inicio")->isHidden());
            tab("aba_camadas")->click();
            EXPECT_TRUE(panel(story, "camadas")->isHidden());
            tab("aba_material")->click();
        });
        story.type("sair ");
        ASSERT_TRUE(story.run());
        EXPECT_TRUE(story.closedItself());
    }
    Story story;
    story.then([&] {
        EXPECT_TRUE(panel(story, "inicio")->isHidden());
        EXPECT_TRUE(panel(story, "material")->isVisible());
    });
    EXPECT_TRUE(story.run());
    QSettings().clear();
}

TEST_F(Window, LeavesTheDrawingTwoThirdsOfASmallScreen) {
    const ApplicationOptions options = withModules(folder());
    const auto family = [](Story& story) {
        return story.window().findChild<QToolButton*>("familia_Tubos e barras")->defaultAction();
    };
    const QSize small(1366, 748);
    {
        Story story(options);
        story.then([&] {
            story.window().setWindowState(Qt::WindowNoState);
            story.window().resize(small);
        });
        story.when([&] { return story.window().size() == small; }, [] {});
        story.then([&] {
            const auto area = [](const QWidget& w) { return double(w.width()) * w.height(); };
            EXPECT_GE(area(story.canvas()) / area(story.window()), 0.65);
            EXPECT_EQ(family(story), story.window().entry("_perfilbox"));
            story.window().entry("_perfiltubo")->trigger();
        });
        story.when([] { return QApplication::activeModalWidget() != nullptr; },
                   [] { QApplication::activeModalWidget()->close(); });
        ASSERT_TRUE(story.run());
    }
    Story story(options);
    story.then([&] { EXPECT_EQ(family(story), story.window().entry("_perfiltubo")); });
    EXPECT_TRUE(story.run());
    QSettings().clear();
}

TEST_F(Window, FieldsSetWhatIsDrawnNextOrWhatIsSelected) {
    Story story(withModules(folder()));
    const auto choose = [&](const char* name, const char* text) {
        auto* const box = story.window().findChild<QComboBox*>(name);
        const int row = box->findText(text);
        ASSERT_GE(row, 0) << text;
        box->setCurrentIndex(row);
        emit box->activated(row);
        EXPECT_EQ(box->currentText(), text);
    };
    const auto line = [&](std::size_t i) {
        return AcDbObjectPointer<AcDbEntity>(story.entity(i), AcDb::kForRead);
    };
    story.type("-camada n Eixo\n\n").type("l 0,0 9,9 \n");
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] {
                   choose("campo_camada", "Eixo");
                   choose("campo_espessura", "0,50 mm");
                   choose("campo_tipo_linha", "PorBloco");
                   story.press("l 0,0 9,0 \n");
               });
    story.when([&] { return story.idle() && story.entities() == 2; },
               [&] {
                   EXPECT_STREQ(line(1)->layer(), L"Eixo");
                   EXPECT_EQ(line(1)->lineWeight(), AcDb::kLnWt050);
                   EXPECT_STREQ(line(1)->linetype(), L"ByBlock");
                   EXPECT_EQ(line(0)->lineWeight(), AcDb::kLnWtByLayer);
                   QTest::keyClick(&story.edit(), Qt::Key_A, Qt::ControlModifier);
                   auto* const layer = story.window().findChild<QComboBox*>("campo_camada");
                   EXPECT_EQ(layer->currentIndex(), -1) << "they differ";
                   choose("campo_camada", "0");
                   EXPECT_STREQ(line(1)->layer(), L"0");
                   EXPECT_EQ(story.editor().variables().text(L"CLAYER"), L"Eixo");
                   QTest::keyClick(&story.edit(), Qt::Key_Z, Qt::ControlModifier);
               });
    story.when([&] { return story.idle() && std::wstring(line(1)->layer()) == L"Eixo"; }, [] {});
    EXPECT_TRUE(story.run());
}

prancheta::desktop::PlotDialog* plotDialog() {
    return qobject_cast<prancheta::desktop::PlotDialog*>(QApplication::activeModalWidget());
}

/// Plots at "Comando:", up to the first corner, which `point` answers.
void pointAtPlotWindow(Story& story, std::function<void()> point) {
    story.when([&] { return story.idle(); }, [&] { story.press("plotar "); });
    story.when([] { return plotDialog() != nullptr; },
               [] {
                   for (QComboBox* const box : plotDialog()->findChildren<QComboBox*>()) {
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
        std::move(point));
}

TEST_F(Window, WhoLeavesWhilePlotPointsLeavesPlot) {
    const fs::path file = folder() / "viga.dxf";
    Story story;
    story.then([&] { ASSERT_TRUE(story.editor().file().save(file)); });
    pointAtPlotWindow(story, [&] { drop(story.window(), file); });
    pointAtPlotWindow(story, [&] { story.window().ui().runCommand("_LINE"); });
    story.when([&] { return story.editor().runner().activeName() == L"LINE"; },
               [&] { story.press("\x1b"); });
    pointAtPlotWindow(story, [&] { story.window().close(); });
    EXPECT_TRUE(story.run());
    EXPECT_TRUE(story.closedItself());
}

QComboBox* comboWith(const QWidget& window, const QString& item) {
    for (QComboBox* const box : window.findChildren<QComboBox*>())
        if (box->findText(item) >= 0) return box;
    return nullptr;
}

TEST_F(Window, PlotOfALayoutIsItsSheetAndSeveralArePagesOfAPdf) {
    Story story;
    story.type("_layout _s Layout1\n").type("c 50,50 25 ");
    story.when([&] { return story.idle() && story.editor().spaces().onSheet(); },
               [&] { story.press("plotar "); });
    story.when([] { return plotDialog() != nullptr; },
               [&] {
                   const auto& dialog = *plotDialog();
                   const AcDbObjectId sheet = story.editor().spaces().tab();
                   EXPECT_EQ(dialog.settings().space, sheet);
                   EXPECT_EQ(dialog.settings().scale, 1.0);
                   EXPECT_FALSE(comboWith(dialog, "Janela...")->isEnabled());
                   comboWith(dialog, "Modelo")->setCurrentIndex(0);
                   EXPECT_NE(dialog.settings().space, sheet);
                   auto* const layouts = dialog.findChild<QListWidget*>();
                   ASSERT_EQ(layouts->count(), 1);  // the one that holds something
                   QCheckBox* several = nullptr;
                   for (QCheckBox* const box : dialog.findChildren<QCheckBox*>())
                       if (box->text() == "&Várias folhas") several = box;
                   several->setChecked(true);
                   ASSERT_EQ(dialog.sheets().size(), 1u);
                   EXPECT_EQ(dialog.sheets()[0].space, sheet);
                   layouts->item(0)->setCheckState(Qt::Unchecked);
                   EXPECT_TRUE(dialog.sheets().empty());
                   comboWith(dialog, "SVG")->setCurrentText("SVG");
                   EXPECT_FALSE(several->isEnabled());
                   EXPECT_TRUE(several->toolTip().contains("PDF"));
                   EXPECT_EQ(dialog.sheets().size(), 1u);
                   plotDialog()->reject();
               });
    story.when([&] { return story.idle(); }, [] {});
    EXPECT_TRUE(story.run());
}

QFileDialog* fileDialog() { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()); }

TEST_F(Window, SavesInTheFormatThatIsChosen) {
    const fs::path file = folder() / "placa.dxf";
    const fs::path copy = folder() / "placa-r12.dxf";
    Story story;
    story.type("c 50,50 25 ");
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] {
                   ASSERT_TRUE(story.editor().file().save(file));
                   story.press("_saveas ");
               });
    story.when([] { return fileDialog() != nullptr; },
               [&] {
                   auto* const types = fileDialog()->findChild<QComboBox*>("fileTypeCombo");
                   ASSERT_EQ(types->count(), 4);
                   types->setCurrentIndex(2);
                   emit types->activated(2);
                   emit types->textActivated(types->currentText());
                   EXPECT_EQ(fileDialog()->selectedFiles().value(0).toStdString(), copy.string());
                   QMetaObject::invokeMethod(fileDialog(), "accept");
               });
    story.when([&] { return story.idle() && fs::exists(copy); },
               [&] { EXPECT_EQ(story.editor().file().name(), file); });
    EXPECT_TRUE(story.run());
    std::ifstream in(copy);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    EXPECT_NE(text.find("AC1009"), text.npos);
}

TEST_F(Window, PlotPointsAtItsWindow) {
    Story story;
    std::optional<prancheta::Box2d> area;
    story.type("c 50,50 25 ");
    pointAtPlotWindow(story, [&] { story.press("80,70\n"); });
    story.when(
        [&] {
            const auto* const request = story.window().ui().request();
            return request != nullptr && request->kind == InputKind::Corner;
        },
        [&] { story.press("20,10\n"); });
    story.when([&] { return plotDialog() != nullptr; },
               [&] {
                   area = plotDialog()->settings().area;
                   plotDialog()->reject();
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
