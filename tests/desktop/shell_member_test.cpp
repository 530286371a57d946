// SPDX-License-Identifier: MIT
// A laced member from the first click to the reopened file: the window against the console.
#include <QCheckBox>
#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QProcess>
#include <QTableView>
#include <QTreeView>

#include <fstream>
#include <iterator>

#include "prancheta/desktop/panels/plan_bars.h"
#include "tests/desktop/dialogs_hands.h"
#include "tests/desktop/shell_story.h"

namespace shell {
namespace {

namespace fs = std::filesystem;
using dialogtest::pick;
using dialogtest::press;
using dialogtest::retype;

std::string contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Of a plotted file what comes after its title.
std::string drawingIn(const std::string& svg) {
    const std::size_t after = svg.find("</title>");
    EXPECT_NE(after, svg.npos);
    return svg.substr(std::min(after, svg.size()));
}

class Member : public Window {
protected:
    /// Runs the console in the test's folder on a fresh installation folder.
    void console(const QStringList& arguments) {
        const fs::path installation = folder() / "instalacao_do_console";
        if (!fs::exists(installation))
            fs::copy(fs::path(HOUSE_BINARY_DIR) / "instalacao", installation,
                     fs::copy_options::recursive);
        QProcess program;
        program.setWorkingDirectory(QString::fromStdString(folder().string()));
        program.start(QString::fromStdString(HOUSE_BINARY_DIR) + "/bin/prancheta-console",
                      QStringList{"--instalacao", "instalacao_do_console"} + arguments);
        ASSERT_TRUE(program.waitForFinished(60000));
        ASSERT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
    }
    /// Pieces, plates, dimensions, marks, layers and material list of a saved drawing, without what
    /// tells of the session.
    std::string stateOf(const QString& drawing) {
        std::ofstream(folder() / "nada.txt") << ";\n";
        console({drawing, "-r", "nada.txt", "--estado", "estado.json"});
        const std::string text = contents(folder() / "estado.json");
        const std::size_t drawn = text.find("\"camadas\"");
        EXPECT_NE(drawn, text.npos);
        return text.substr(std::min(drawn, text.size()));
    }
};

/// Script of the console: drawn, edited by dialog, lengthened and shortened again, plotted, saved.
/// The panel keeps the number of plates of a member that grows; in the dialog it is said.
constexpr const char* kScript = R"(cantdteel
lista=12
a=10
vista0=0
OutraVista
l=1000
gerar_matlist=1
num_pecas=2
accept
dimensionar=1
travejar
altura=60
largura=10
n_partes=8
accept
accept
100,200
90
EDITAPERFIL
125.4,700
travejar
altura=50
n_partes=4
accept
accept
_SAVEAS
console.dxf
EDITAPERFIL
125.4,700
OutraVista
l=1200
accept
travejar
n_partes=4
accept
accept
_SAVEAS
console-longo.dxf
_U
_SAVEAS
console-voltou.dxf
_-PLOT
console.svg
A4
Portrait
Extents
1:10
N
)";

class Hands {
public:
    explicit Hands(Story& story) : m_story(story) {}

    static QDialog* open(const char* name) {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        return dialog != nullptr && dialog->objectName() == name ? dialog : nullptr;
    }
    /// From the event loop, not from the story's clock: a dialog may open another, in which the
    /// story goes on.
    void at(const char* dialog, std::function<void(QDialog&)> act) {
        m_story.when([dialog] { return open(dialog) != nullptr; },
                     [dialog, act = std::move(act)] {
                         QTimer::singleShot(0, open(dialog), [dialog, act] { act(*open(dialog)); });
                     });
    }
    /// A check box answers to its mark and its text only.
    static void toggle(QDialog& dialog, const char* key) {
        QWidget& box = dialogtest::tile(dialog, key);
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    }
    void whenIdle(std::function<void()> act) {
        m_story.when([this] { return m_story.idle(); }, std::move(act));
    }
    void whenAsked(prancheta::InputKind kind, std::function<void()> act) {
        m_story.when(
            [this, kind] {
                const auto* request = m_story.window().ui().request();
                return request != nullptr && request->kind == kind;
            },
            std::move(act));
    }
    void click(double x, double y) {
        const QPoint at = m_story.pixel(x, y);
        QTest::mouseMove(&m_story.canvas(), at);
        QTest::mouseClick(&m_story.canvas(), Qt::LeftButton, {}, at);
    }
    void doubleClick(double x, double y) {
        QTest::mouseDClick(&m_story.canvas(), Qt::LeftButton, {}, m_story.pixel(x, y));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        // Without a window manager nobody makes it so again when a dialog has closed.
        QApplication::setActiveWindow(&m_story.window());
        QTest::keyClick(&m_story.edit(), key, modifiers);
    }
    void setProperty(const char* label, const char* text) {
        auto* const view = m_story.window().findChild<QTreeView*>("propriedades");
        ASSERT_NE(view, nullptr);
        const QModelIndexList found = view->model()->match(
            view->model()->index(0, 0), Qt::DisplayRole, QString::fromUtf8(label), 1,
            Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << label;
        const QModelIndex cell = found.front().siblingAtColumn(1);
        view->scrollTo(cell);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(cell).center());
        auto* const edit = view->viewport()->findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr) << label;
        edit->selectAll();
        QTest::keyClicks(edit, QString::fromUtf8(text));
        QTest::keyClick(edit, Qt::Key_Return);
    }

private:
    Story& m_story;
};

void drawMember(Story& story, Hands& hands) {
    story.then([&] { story.window().entry("_pcanttelam")->trigger(); });
    hands.at("p2la_lam_geracao", [](QDialog& dialog) {
        pick(dialog, "lista", 12);
        retype(dialog, "a", "10");
        Hands::toggle(dialog, "vista0");
        press(dialog, "OutraVista");
    });
    hands.at("vistas_geracao", [](QDialog& dialog) {
        retype(dialog, "l", "1000");
        Hands::toggle(dialog, "gerar_matlist");
        retype(dialog, "num_pecas", "2");
        press(dialog, "accept");
    });
    hands.at("p2la_lam_geracao", [](QDialog& dialog) {
        Hands::toggle(dialog, "dimensionar");
        press(dialog, "travejar");
    });
    hands.at("zp_travejam", [](QDialog& dialog) {
        retype(dialog, "altura", "60");
        retype(dialog, "largura", "10");
        retype(dialog, "n_partes", "8");
        press(dialog, "accept");
    });
    hands.at("p2la_lam_geracao", [](QDialog& dialog) { press(dialog, "accept"); });
    // The snap grid makes a click near (100, 200) that very point; ortho makes the angle 90.
    hands.whenAsked(prancheta::InputKind::Point, [&] {
        hands.key(Qt::Key_F9);
        EXPECT_EQ(story.editor().variables().number(L"SNAPMODE"), 1);
        hands.click(102.0, 198.0);
    });
    hands.whenAsked(prancheta::InputKind::Angle, [&] {
        hands.key(Qt::Key_F9);
        hands.key(Qt::Key_F8);
        EXPECT_EQ(story.editor().variables().number(L"ORTHOMODE"), 1);
        hands.click(104.0, 270.0);
    });
    hands.whenIdle([&] {
        hands.key(Qt::Key_F8);
        QTest::mouseDClick(&story.canvas(), Qt::MiddleButton, {}, QPoint(200, 200));
    });
}

void editByDialog(Story& story, Hands& hands) {
    // Near enough for the pick box to tell the pieces apart, however small the window is.
    hands.whenIdle([&] { story.press("_zoom _c 112,1200 200\n"); });
    // The upper end of the member, at y = 1200 from x = 87.3 to 125.4, away from dimensions.
    hands.whenIdle([&] { hands.doubleClick(112.0, 1200.0); });
    hands.at("p2la_lam_geracao", [](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QLineEdit&>(dialogtest::tile(dialog, "a")).text(), "10");
        press(dialog, "travejar");
    });
    hands.at("zp_travejam", [](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QLineEdit&>(dialogtest::tile(dialog, "altura")).text(), "60");
        retype(dialog, "altura", "50");
        retype(dialog, "n_partes", "4");
        press(dialog, "accept");
    });
    hands.at("p2la_lam_geracao", [](QDialog& dialog) { press(dialog, "accept"); });
}

TEST_F(Member, IsTheSameByHandAndByScript) {
    std::ofstream(folder() / "roteiro.txt") << kScript;
    // As the window's new drawing.
    console({"--modelo", "instalacao_do_console/modelo.dxf", "-r", "roteiro.txt"});
    const auto path = [this](const char* name) {
        return QString::fromStdString((folder() / name).string());
    };
    Story story(withModules(folder()));
    Hands hands(story);
    const auto saveAs = [&](const char* name) {
        hands.whenIdle([&, name] { story.press("_saveas " + path(name) + "\n"); });
        hands.whenIdle([&] { EXPECT_FALSE(story.window().isWindowModified()); });
    };
    story.type("filedia 0 ");
    drawMember(story, hands);
    editByDialog(story, hands);
    saveAs("janela.dxf");
    // By the panel; one step back takes piece, plates, dimensions and list along.
    hands.whenIdle([&] { hands.click(112.0, 1200.0); });
    hands.whenIdle([&] { hands.setProperty("Comprimento (L)", "1200"); });
    // A panel hands an edit over when its editor has closed.
    story.when([&] { return story.window().isWindowModified(); }, [] {});
    saveAs("janela-longo.dxf");
    hands.whenIdle([&] { hands.key(Qt::Key_Z, Qt::ControlModifier); });
    saveAs("janela-voltou.dxf");
    hands.whenIdle([&] {
        story.press("_-plot " + path("janela.svg") + "\nA4\nPortrait\nExtents\n1:10\nN\n");
    });
    hands.whenIdle([&] { story.press("_open " + path("janela-longo.dxf") + "\n"); });
    saveAs("janela-aberto.dxf");
    ASSERT_TRUE(story.run());

    const std::string drawn = stateOf("console.dxf");
    EXPECT_NE(drawn.find("ZpCantTEELaminada"), drawn.npos);
    EXPECT_EQ(stateOf("janela.dxf"), drawn);
    const std::string longer = stateOf("console-longo.dxf");
    EXPECT_NE(longer.find("\"comprimento\": 1200.0"), longer.npos);
    EXPECT_EQ(stateOf("janela-longo.dxf"), longer);
    EXPECT_EQ(stateOf("janela-aberto.dxf"), longer);
    EXPECT_EQ(stateOf("console-voltou.dxf"), drawn);
    EXPECT_EQ(stateOf("janela-voltou.dxf"), drawn);
    const std::string plotted = drawingIn(contents(folder() / "janela.svg"));
    EXPECT_NE(plotted.find("<path"), plotted.npos);
    EXPECT_EQ(plotted, drawingIn(contents(folder() / "console.svg")));
}

/// A U 200x75x3 of 1990 that counts seven times.
constexpr const char* kListed = R"(perfilu
h=200
b=75
t=3.00
vista0=0
OutraVista
l=1990
gerar_matlist=1
num_pecas=7
accept
accept
0,0
0
)";

TEST_F(Member, AnEditInThePanelMayAsk) {
    std::ofstream(folder() / "lista.txt") << kListed << "_COPY\n500,0\n\n0,0\n0,1000\n\n";
    console({"-r", "lista.txt", "-o", "lista.dxf"});
    ApplicationOptions options = withModules(folder());
    options.drawing = folder() / "lista.dxf";
    Story story(options);
    Hands hands(story);
    hands.whenIdle([&] { story.press("_zoom _e\n"); });
    hands.whenIdle([&] { hands.click(500.0, 0.0); });
    hands.whenIdle([&] { hands.setProperty("Comprimento (L)", "1250,5"); });
    hands.whenAsked(prancheta::InputKind::Keyword, [&] {
        ASSERT_EQ(QApplication::focusWidget(), &story.edit());
        QTest::keyClicks(&story.edit(), "Todas");
        QTest::keyClick(&story.edit(), Qt::Key_Return);
    });
    // The command line goes on as if nothing had come between.
    hands.whenIdle([&] { QTest::keyClicks(QApplication::focusWidget(), "_qsave "); });
    hands.whenIdle([&] { EXPECT_FALSE(story.window().isWindowModified()); });
    ASSERT_TRUE(story.run());
    const std::string state = stateOf("lista.dxf");
    const std::size_t first = state.find("\"comprimento\": 1250.5");
    ASSERT_NE(first, state.npos);
    EXPECT_NE(state.find("\"comprimento\": 1250.5", first + 1), state.npos);
}

TEST_F(Member, ItsRowIsEditedAndItsBarsAreSeenInTheWindow) {
    std::ofstream(folder() / "lista.txt") << kListed;
    console({"-r", "lista.txt", "-o", "lista.dxf"});
    ApplicationOptions options = withModules(folder());
    options.drawing = folder() / "lista.dxf";
    Story story(options);
    QTableView* view = nullptr;
    const auto count = [&] { return view->model()->index(0, 0).data().toString().toStdString(); };
    const auto type = [&](Qt::Key key, const char* value) {
        QTest::keyClick(view, key);
        auto* const cell = view->viewport()->findChild<QLineEdit*>();
        ASSERT_NE(cell, nullptr) << "the key went elsewhere";
        cell->setText(value);
        QTest::keyClick(cell, Qt::Key_Return);
    };
    story.then([&] {
        view = story.window().findChild<QTableView*>("lista_material");
        story.window().entry("material")->trigger();
        QApplication::setActiveWindow(&story.window());
        EXPECT_EQ(count(), "7");
    });
    story.click(900, 100).then([&] {
        EXPECT_EQ(view->selectionModel()->selectedRows().size(), 1) << "of the picked piece";
        view->setFocus();
        view->selectionModel()->setCurrentIndex(view->model()->index(0, 0),
                                                QItemSelectionModel::NoUpdate);
        type(Qt::Key_F2, "4");
    });
    story.when([&] { return count() == "4"; }, [&] { type(Qt::Key_Return, "6"); });
    const auto asksPoint = [&] {
        const auto* const request = story.window().ui().request();
        return request != nullptr && request->kind == prancheta::InputKind::Point;
    };
    const auto* const plan = story.window().findChild<QDockWidget*>("plano");
    EXPECT_TRUE(plan->isHidden()) << "nobody asked for it";
    story.when([&] { return count() == "6"; }, [&] { story.press("PLANOCORTE\n6000\n3\n0\n"); });
    std::size_t before = 0;
    story.when(asksPoint, [&] {
        EXPECT_TRUE(plan->isVisible());
        const auto& products = plan->findChild<prancheta::desktop::PlanBars*>()->products();
        ASSERT_EQ(products.size(), 1u);
        EXPECT_EQ(products[0].line.toStdString(),
                  "U 200x75x3: 2 barras de 6000, aproveitamento 99,5 %, mínimo teórico 2.");
        ASSERT_EQ(products[0].bars.size(), 1u);
        EXPECT_EQ(products[0].bars[0].cuts.size(), 3u);
        before = story.entities();
        QTest::mouseClick(plan->findChild<QPushButton*>("desenhar"), Qt::LeftButton);
    });
    story.when(asksPoint, [&] { story.press("0,-500 "); });
    story.when([&] { return story.idle() && story.entities() > before; }, [] {});
    EXPECT_TRUE(story.run());
}

}  // namespace
}  // namespace shell
