// SPDX-License-Identifier: MIT
// What a person does in the window, from the first key to the closed window.
#include <sys/wait.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QLockFile>
#include <QTabBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <fstream>
#include <set>

#include "dbents.h"
#include "prancheta/base/file.h"
#include "prancheta/desktop/shell/help_window.h"
#include "prancheta/desktop/shell/menu_file.h"
#include "prancheta/editor/command_stack.h"
#include "tests/desktop/dialogs_hands.h"
#include "tests/desktop/shell_story.h"

namespace shell {
namespace {

namespace fs = std::filesystem;
using prancheta::desktop::HelpWindow;

TEST_F(Window, DrawsWithKeysAndMouse) {
    Story story;
    AcGePoint3d start, end;
    story.type("l ").click(40, 60).click(190, 210).type("\n");
    story.when([&] { return story.idle(); },
               [&] {
                   ASSERT_EQ(story.entities(), 1u);
                   const AcDbObjectPointer<AcDbLine> line(story.entity(0), AcDb::kForRead);
                   ASSERT_NE(line.object(), nullptr);
                   start = line->startPoint();
                   end = line->endPoint();
                   QTest::keyClick(&story.edit(), Qt::Key_Z, Qt::ControlModifier);
               });
    story.when([&] { return story.idle() && story.entities() == 0; },
               [&] { story.press("c\n100,50\n25\n"); });
    // Enter repeats the last command; several pasted answers go in one after the other.
    story.when([&] { return story.idle() && story.entities() == 1; }, [&] { story.press("\n"); });
    story.when([&] { return !story.idle(); },
               [&] { story.edit().pasteText("200,50\n30\nl 0,0 9,9\n\n"); });
    story.when([&] { return story.idle() && story.entities() == 3; }, [] {});
    ASSERT_TRUE(story.run());
    // A click hits within the pixel.
    const double pixel = story.editor().screen().pixelSize();
    EXPECT_NEAR(start.x, 40, pixel);
    EXPECT_NEAR(start.y, 60, pixel);
    EXPECT_NEAR(end.x, 190, pixel);
    EXPECT_NEAR(end.y, 210, pixel);
}

TEST_F(Window, KeysFromAnywhereReachTheCommandLine) {
    Story story;
    story.then([&] {
        story.canvas().setFocus();
        QTest::keyClick(&story.canvas(), 'l');
        EXPECT_EQ(story.edit().text(), "l");
        QTest::keyClick(&story.edit(), Qt::Key_Escape);
        EXPECT_EQ(story.edit().text(), "");
    });
    // Blanks belong to a text, and end anything else.
    story.type("text 10,10 5 0 duas palavras\n");
    story.when([&] { return story.entities() == 1; },
               [&] {
                   const AcDbObjectPointer<AcDbText> text(story.entity(0), AcDb::kForRead);
                   ASSERT_NE(text.object(), nullptr);
                   EXPECT_STREQ(text->textStringConst(), L"duas palavras");
               });
    // Tab goes through the names that begin with what was typed; Enter runs the one shown.
    story.type("\x1b").type("circu\t\n");
    story.when([&] { return story.editor().runner().activeName() == L"CIRCLE"; }, [] {});
    story.type("\x1bli\t").then([&] { EXPECT_NE(story.edit().text(), "LIMMAX"); });
    story.type("\x1bosm\t").then([&] {
        EXPECT_EQ(story.edit().text(), "OSMODE");
        EXPECT_EQ(story.window().focusWidget(), &story.edit());
        QTest::keyClick(&story.edit(), Qt::Key_Escape);
    });
    // An option is clicked, an aid is switched by its key and shows on its button.
    story.type("\x1b").type("pl 0,0 50,0 ");
    story.when(
        [&] { return story.window().ui().request() != nullptr; },
        [&] { emit story.window().commandLine().findChild<QLabel*>()->linkActivated("_Close"); });
    story.then([&] {
        QTest::keyClick(&story.edit(), Qt::Key_F8);
        EXPECT_EQ(story.editor().variables().number(L"ORTHOMODE"), 1);
        const auto shown = [&](const char* name) {
            return story.window().findChild<QAbstractButton*>(name)->isChecked();
        };
        EXPECT_TRUE(shown("ORTO"));
        EXPECT_FALSE(shown("POLAR")) << "one of the two";
        const bool tracked = shown("RASTREIO");
        for (const Qt::Key key : {Qt::Key_F10, Qt::Key_F11}) QTest::keyClick(&story.edit(), key);
        EXPECT_TRUE(shown("POLAR"));
        EXPECT_FALSE(shown("ORTO"));
        EXPECT_EQ(story.editor().variables().number(L"ORTHOMODE"), 0);
        EXPECT_NE(shown("RASTREIO"), tracked);
    });
    // A length, Tab, an angle: beside the cursor and on the command line.
    story.type("\x1b").type("l 10,10 50\t90\n\n");
    story.when([&] { return story.idle() && story.entities() == 3; },
               [&] {
                   const AcDbObjectPointer<AcDbLine> line(story.entity(2), AcDb::kForRead);
                   ASSERT_NE(line.object(), nullptr);
                   EXPECT_TRUE(line->endPoint().isEqualTo(AcGePoint3d(10, 60, 0)));
                   QTest::keyClick(&story.edit(), Qt::Key_F12);
                   EXPECT_EQ(story.editor().variables().number(L"DYNMODE"), -3);
               });
    EXPECT_TRUE(story.run());
}

TEST_F(Window, TabsShowTheSheetsOfTheDrawing) {
    Story story;
    const auto tabs = [&] { return story.window().findChild<QTabBar*>("layouts"); };
    story.type("layout _n\nDetalhe um\n");
    story.when([&] { return story.idle() && tabs()->count() == 3; },
               [&] {
                   EXPECT_EQ(tabs()->tabText(0), "Modelo");
                   EXPECT_EQ(tabs()->tabText(2), "Detalhe um");
                   QTest::mouseClick(tabs(), Qt::LeftButton, Qt::NoModifier,
                                     tabs()->tabRect(2).center());
               });
    story.when([&] { return story.idle() && story.editor().spaces().onSheet(); },
               [&] {
                   EXPECT_EQ(tabs()->currentIndex(), 2);
                   EXPECT_EQ(story.editor().variables().text(L"CTAB"), L"Detalhe um");
               });
    // Undo takes the sheet that is shown away: the model is shown again.
    story.type("u\n");
    story.when([&] { return story.idle() && tabs()->count() == 2; },
               [&] { EXPECT_EQ(tabs()->currentIndex(), 0); });
    ASSERT_TRUE(story.run());
}

TEST_F(Window, SavesAndOpensAgain) {
    const fs::path file = folder() / "placa base.dxf";
    Story story;
    story.type("filedia 0 ").type("c 50,50 25 ");
    story.when([&] { return story.idle() && story.entities() == 1; },
               [&] {
                   EXPECT_TRUE(story.window().isWindowModified());
                   story.press("_saveas ");
               });
    story.when([&] { return !story.idle(); },
               [&] { story.press(QString::fromStdString(file.string()) + "\n"); });
    story.when([&] { return story.idle() && fs::exists(file); },
               [&] {
                   EXPECT_FALSE(story.window().isWindowModified());
                   EXPECT_TRUE(story.window().windowTitle().startsWith("placa base.dxf"));
                   EXPECT_FALSE(fs::exists(folder() / "placa base.bak"));
                   story.press("c 90,50 25 ");
               });
    story.when([&] { return story.idle() && story.entities() == 2; },
               [&] { QTest::keyClick(&story.edit(), Qt::Key_S, Qt::ControlModifier); });
    story.when([&] { return story.idle() && !story.window().isWindowModified(); },
               [&] {
                   // The former drawing is kept.
                   ASSERT_TRUE(story.editor().file().open(folder() / "placa base.bak"));
                   EXPECT_EQ(story.entities(), 1u);
                   ASSERT_TRUE(story.window().files().open(file));
                   EXPECT_EQ(story.entities(), 2u);
                   EXPECT_EQ(story.window().files().recent().value(0).toStdString(), file.string());
               });
    EXPECT_TRUE(story.run());
    EXPECT_FALSE(fs::exists(recoveries())) << "nothing was due";
}

TEST_F(Window, ClosingAsksAboutUnsavedWork) {
    const fs::path file = folder() / "fica.dxf";
    Story story;
    // In the middle of a command that drew nothing yet: it is given up first.
    story.type("c 50,50 25 l 0,0 ").then([&] { story.window().close(); });
    story.choose("salvarAlteracoes", "Cancelar");
    story.when([&] { return story.idle(); },
               [&] {
                   EXPECT_TRUE(story.window().isVisible());
                   EXPECT_EQ(story.entities(), 1u);
                   ASSERT_TRUE(story.editor().file().save(file));
                   std::ofstream(file) << "de outro programa";
                   story.press("c 90,50 25 ");
               });
    story.when([&] { return story.entities() == 2; }, [&] { story.window().close(); });
    story.choose("salvarAlteracoes", "Salvar");
    story.choose("arquivoMudado", "Cancelar");
    story.when([&] { return story.idle(); }, [&] { story.press("_qsave "); });
    story.choose("arquivoMudado", "Sobrescrever");
    story.when([&] { return story.idle() && !story.window().isWindowModified(); },
               [&] { story.window().close(); });
    ASSERT_TRUE(story.run());
    EXPECT_TRUE(story.closedItself());
    ASSERT_TRUE(story.editor().file().open(file));
    EXPECT_EQ(story.entities(), 2u);
}

/// A lock as a process leaves it that was killed.
void lockByDeadProcess(const fs::path& file) {
    const pid_t child = fork();
    if (child == 0) {
        QLockFile lock(QString::fromStdString(file.string()));
        lock.setStaleLockTime(0);
        _exit(lock.tryLock(0) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
}

std::vector<fs::path> withEnding(const fs::path& folder, const char* ending) {
    std::vector<fs::path> files;
    std::error_code none;  // the folder is made with the first copy
    for (const auto& entry : fs::directory_iterator(folder, none))
        if (entry.path().extension() == ending) files.push_back(entry.path());
    return files;
}

TEST_F(Window, RecoversAfterACrash) {
    const fs::path drawing = folder() / "galpão.dxf";
    const fs::path kept = folder() / "kept";
    {
        Story story;
        story.afterSavedCircle(drawing, [&] { story.press("c 90,50 25 "); });
        // A copy comes by itself, in the middle of a command, once nothing changed for a while.
        story.when([&] { return story.entities() == 2; },
                   [&] {
                       story.application().recovery().setRest(20);
                       story.press("l 0,0 10,0 ");
                   });
        story.when([&] { return !withEnding(recoveries(), ".dxf").empty(); },
                   [&] {
                       EXPECT_FALSE(story.idle());
                       // A living window's copy is nobody else's.
                       const prancheta::desktop::Recovery other(recoveries(), nullptr);
                       EXPECT_TRUE(other.leftCopies().empty());
                       fs::copy(recoveries(), kept);
                   });
        ASSERT_TRUE(story.run());
    }
    EXPECT_TRUE(fs::is_empty(recoveries())) << "a clean end leaves no copy";

    for (const auto& file : fs::directory_iterator(kept)) {
        const fs::path back = recoveries() / file.path().filename();
        if (back.extension() == ".lock")
            lockByDeadProcess(back);
        else
            fs::copy(file, back);
    }
    // A window that died before its first copy was whole.
    lockByDeadProcess(recoveries() / "morta.lock");
    std::ofstream(recoveries() / "morta.nome") << drawing.string();
    // Another program changes the drawing before it is taken up again.
    std::ofstream(drawing, std::ios::app) << "\n";
    Story story;
    story.when([] { return Story::boxOf("recuperar") != nullptr; },
               [] {
                   const QString told = Story::boxOf("recuperar")->informativeText();
                   EXPECT_TRUE(told.endsWith("CÍRCULO, CÍRCULO, LINHA.")) << told.toStdString();
               });
    story.choose("recuperar", "Recuperar");
    story.when([&] { return story.idle(); },
               [&] {
                   EXPECT_EQ(story.entities(), 3u);
                   EXPECT_FALSE(fs::exists(recoveries() / "morta.nome"));
                   EXPECT_FALSE(fs::exists(recoveries() / "morta.lock"));
                   EXPECT_EQ(story.editor().file().name(), drawing);
                   EXPECT_TRUE(story.window().isWindowModified());
                   EXPECT_TRUE(story.editor().file().changedOutside());
                   ASSERT_TRUE(story.editor().file().save());
               });
    ASSERT_TRUE(story.run());
    ASSERT_TRUE(story.editor().file().open(drawing));
    EXPECT_EQ(story.entities(), 3u);
}

TEST_F(Window, WorkOutlivesTheSystemsWishToEnd) {
    const ApplicationOptions options = withModules(folder());
    // In the middle of a command, before the question about unsaved work, inside a module's dialog.
    for (const char* const keys : {"l 0,0 ", "_new ", "perfilu "}) {
        {
            Story story(options);
            story.type("c 50,50 25 ");
            story.when([&] { return story.idle() && story.entities() == 1; },
                       [&] {
                           QTimer::singleShot(100, &story.window(),
                                              [&] { story.application().end(); });
                           story.press(keys);
                       });
            EXPECT_TRUE(story.run()) << keys;
            EXPECT_TRUE(story.closedItself()) << keys;
            EXPECT_EQ(story.entities(), 1u) << keys;
        }
        EXPECT_EQ(prancheta::desktop::Recovery(recoveries(), nullptr).leftCopies().size(), 1u)
            << keys;
        fs::remove_all(recoveries());
    }
}

TEST_F(Window, DrawsAProfileFromItsDialog) {
    Story story(withModules(folder()));
    story.then([&] { story.window().entry("_pudobrado")->trigger(); });
    const auto dialog = [] { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); };
    story.when([&] { return dialog() != nullptr; },
               [&] {
                   QTest::keyClick(dialog()->focusWidget(), Qt::Key_F1);
                   auto* const help = dialog()->findChild<HelpWindow*>();
                   ASSERT_NE(help, nullptr);
                   const QTextCursor at = help->findChild<QTextBrowser*>()->textCursor();
                   EXPECT_EQ(at.block().text(), "O comando perfilu");
                   help->hide();
                   dialogtest::pick(*dialog(), "lista", 3);
                   dialogtest::retype(*dialog(), "h", "51");
                   dialogtest::press(*dialog(), "addtolist");
                   dialogtest::press(*dialog(), "accept");
               });
    // A row that was added is kept before the point: nothing that ends the program now loses it.
    story.when([&] { return story.window().ui().request() != nullptr; },
               [&] {
                   const auto list = prancheta::readFile(folder() / "instalacao" / "Perfis" /
                                                         "Listas" / "pu.lst");
                   ASSERT_TRUE(list);
                   EXPECT_NE(list->find("51\t25\t2.25\n"), std::string::npos);
               });
    // F1 inside it shows its chapter, however often.
    story.when([&] { return story.window().ui().request() != nullptr; },
               [&] {
                   for (int i = 0; i < 2; ++i) {
                       story.window().entry("manual")->trigger();
                       auto* const help = story.window().findChild<HelpWindow*>();
                       auto* const text = help->findChild<QTextBrowser*>();
                       EXPECT_EQ(text->textCursor().block().text(), "O comando perfilu");
                       help->hide();
                   }
               });
    story.click(100, 100).type("0 ");
    story.when([&] { return story.idle(); },
               [&] {
                   ASSERT_EQ(story.entities(), 1u);
                   const AcDbObjectPointer<AcDbEntity> piece(story.entity(0), AcDb::kForRead);
                   EXPECT_STREQ(piece->isA()->name(), L"ZpUDobrado");
                   // The turn that follows the placing is a step of its own.
                   story.window().entry("desfazer")->trigger();
               });
    story.when([&] { return story.idle(); }, [&] { story.window().entry("desfazer")->trigger(); });
    story.when([&] { return story.idle() && story.entities() == 0; }, [] {});
    EXPECT_TRUE(story.run());
}

/// A person's strokes at the keyboard and clicks, counted.
class Strokes {
public:
    explicit Strokes(Story& story) : m_story(story) {}
    int count() const { return m_count; }
    /// Where the keyboard is: in the dialog, else on the command line.
    void keys(const char* letters) {
        for (const char* key = letters; *key != 0; ++key, ++m_count) {
            QWidget* const place = dialog() != nullptr ? dialog()->focusWidget() : &m_story.edit();
            if (*key == '\n')
                QTest::keyClick(place, Qt::Key_Return);
            else
                QTest::keyClick(place, *key);
        }
    }
    void alt(char letter) {
        ++m_count;
        QTest::keyClick(dialog(), letter, Qt::AltModifier);
    }
    void point(double x, double y) {
        ++m_count;
        QTest::mouseClick(&m_story.canvas(), Qt::LeftButton, {}, m_story.pixel(x, y));
    }
    static QDialog* dialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }
    template <class Widget>
    static const Widget* tile(const char* key) {
        return dialog() != nullptr ? dialog()->findChild<const Widget*>(key) : nullptr;
    }
    /// Letters reach a window that has the keyboard.
    static bool usable(const char* key) {
        const auto* const widget = tile<QWidget>(key);
        return widget != nullptr && widget->isEnabled() && dialog()->isActiveWindow();
    }

private:
    Story& m_story;
    int m_count = 0;
};

/// U 200x75x3 of 3 m, four of them, with dimensions, mark and row, and then once more.
TEST_F(Window, TheMainJobTakesFewStrokes) {
    Story story(withModules(folder()));
    Strokes hand(story);
    const auto asked = [&] {
        return Strokes::dialog() == nullptr && !story.idle() &&
               story.window().ui().request() != nullptr;
    };
    const auto turned = [&] { return asked() && story.window().ui().request()->rotating; };
    const auto shows = [](const char* key, const char* text) {
        const auto* const edit = Strokes::tile<QLineEdit>(key);
        return edit != nullptr && edit->text() == text;
    };
    int first = 0;
    story.then([&] { hand.keys("pfu "); });
    story.when([] { return Strokes::usable("lista"); },
               [&] {
                   hand.keys("200x75x3\n");
                   hand.alt('s');
               });
    story.when([] { return Strokes::usable("OutraVista"); }, [&] { hand.alt('o'); });
    story.when([] { return Strokes::usable("l"); },
               [&] {
                   hand.keys("3000");
                   hand.alt('g');
               });
    story.when([] { return Strokes::usable("num_pecas"); },
               [&] {
                   hand.alt('n');
                   hand.keys("4\n");
               });
    story.when([] { return Strokes::usable("OutraVista"); }, [&] { hand.alt('t'); });
    story.when([] { return Strokes::tile<QAbstractButton>("dimensionar")->isChecked(); },
               [&] { hand.keys("\n"); });
    story.when(asked, [&] { hand.point(0, 0); });
    story.when(turned, [&] { hand.keys("\n"); });
    story.when([&] { return story.idle() && story.entities() == 4; },
               [&] {
                   first = hand.count();
                   EXPECT_LE(first, 27);
                   hand.keys("\n");  // the command again, with its last values
               });
    story.when([] { return Strokes::usable("ultima"); }, [&] { hand.alt('l'); });
    story.when([&] { return shows("h", "200"); }, [&] { hand.keys("\n"); });
    story.when(asked, [&] { hand.point(0, 30); });
    story.when(turned, [&] { hand.keys("\n"); });
    story.when([&] { return story.idle() && story.entities() == 8; },
               [&] { EXPECT_LE(hand.count() - first, 5); });
    EXPECT_TRUE(story.run()) << "a piece, two dimensions and a mark each";
}

/// Commands of the menus as they are typed, without what is answered after them.
void gatherCommands(const std::vector<prancheta::desktop::MenuItem>& items, QStringList& out) {
    for (const auto& item : items) {
        if (!item.command.isEmpty()) out += item.command.section(' ', 0, 0);
        gatherCommands(item.items, out);
    }
}

TEST_F(Window, MenusKnowEveryProfileCommandAndNoOther) {
    const ApplicationOptions options = withModules(folder());
    Story story(options);
    const auto menus =
        prancheta::desktop::readMenus(options.installation / "Prancheta" / "menus.json");
    ASSERT_TRUE(menus) << menus.error().message();
    QStringList commands;
    gatherCommands(menus->menus, commands);
    const prancheta::CommandStack& stack = story.editor().commands();
    std::set<std::wstring> profiles;
    for (const QString& command : commands) {
        const auto* const found = stack.find(prancheta::TypedName(command.toStdWString()));
        ASSERT_NE(found, nullptr) << command.toStdString();
        if (found->group != prancheta::kBuiltInGroup) profiles.insert(found->global);
    }
    // Thirty profiles and their search, the list's six, steel, sheet of the section, flat strip and
    // catalogues, and blocks that become pieces again.
    EXPECT_EQ(profiles.size(), 47u);
    QStringList shown;
    for (const auto& bar : menus->toolbars)
        for (const auto& item : bar.items) {
            if (!item.entry.isEmpty()) shown += item.entry;
            if (!item.family) continue;
            for (const QString& entry : item.family->entries) shown += entry;
        }
    for (const QString& entry : shown) {
        ASSERT_NE(story.window().entry(entry), nullptr) << entry.toStdString();
        EXPECT_FALSE(story.window().entry(entry)->icon().isNull()) << entry.toStdString();
    }
}

TEST_F(Window, TellsWhatIsWrongWithAMenuFile) {
    const struct {
        const char* text;
        const char* told;
    } kCases[] = {
        {"{\n  \"menus\": [\n    { \"titulo\": \"A\", }\n", ":3:"},
        {R"({"menus": [{"titulo": "A", "comando": "x", "acao": "y"}]})", "só entre"},
        {R"({"menus": [{"titulo": "A", "comado": "x"}]})", "comado"},
        {R"({"menus": [{"titulo": "&A", "comando": "x"}, {"titulo": "B&a", "comando": "y"}]})",
         "letra a"},
        {R"({"menus": [{"titulo": "A", "comando": "x"}], "barras": [{"titulo": "B", "itens": ["z"]}]})",
         "\"z\""},
        {R"({"menus": [{"titulo": "A", "comando": "x"}], "inicio": ["Tubos"]})", "Tubos"},
        {R"({"menus": [{"titulo": "A", "comando": "x"}], "barras": [{"titulo": "B", "itens": [{"campo": "c"}]}]})",
         "espessura"},
    };
    for (const auto& wrong : kCases) {
        std::ofstream(folder() / "menus.json") << wrong.text;
        const auto read = prancheta::desktop::readMenus(folder() / "menus.json");
        ASSERT_FALSE(read) << wrong.text;
        EXPECT_NE(read.error().message().find(wrong.told), std::string::npos)
            << read.error().message();
    }
}

}  // namespace
}  // namespace shell
