// SPDX-License-Identifier: MIT
// Developer's program: opens every dialog of the profile commands filled as a user meets it, and
// saves a picture of each.
//
//     fotografar-dialogos FOLDER
//
// Pictures are as large as QT_SCALE_FACTOR makes them; no screen is needed.
#include <QApplication>
#include <QListView>
#include <QPixmap>
#include <QTemporaryDir>

#include <cstdio>
#include <filesystem>
#include <set>

#include "dialogs_hands.h"
#include "prancheta/desktop/dialogs/run_dialog.h"
#include "prancheta/editor/command_stack.h"

namespace {

using namespace prancheta;
using namespace dialogtest;

constexpr const wchar_t* kGroup = L"ZPPERFIS";

/// Opens what a dialog opens, one after another, and then leaves.
class Photographer {
public:
    explicit Photographer(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    void startCommand(std::string name) {
        m_command = std::move(name);
        m_visited.clear();
    }
    void at(QDialog& dialog) {
        const std::string name = dialog.objectName().toStdString();
        const bool isMain = dialog.findChild<QWidget*>("OutraVista") != nullptr;
        if (isMain && m_visited.insert("row").second) choose(dialog);
        if (m_visited.insert(name).second) grab(dialog, name);
        if (isMain)
            for (const char* key : {"ButtonTipoBarra", "travejar", "OutraVista"})
                if (visit(dialog, key)) return;
        if (dialog.isVisible()) press(dialog, "cancel");
    }
    int pictures() const { return m_pictures; }

private:
    static void choose(QDialog& dialog) {
        auto* list = dialog.findChild<QListView*>("lista");
        constexpr int kRow = 3;
        if (list != nullptr && list->model()->rowCount() > kRow) pick(dialog, "lista", kRow);
    }
    /// True when the dialog is over: the command shows it anew.
    bool visit(QDialog& dialog, const char* key) {
        auto* button = dialog.findChild<QWidget*>(QString::fromLatin1(key));
        if (button == nullptr || !m_visited.insert(key).second) return false;
        if (key == std::string("OutraVista") && !button->isEnabled()) press(dialog, "vista0");
        press(dialog, key);
        return !dialog.isVisible();
    }
    void grab(QDialog& dialog, const std::string& name) {
        QApplication::processEvents();
        const std::string file = m_command + "-" + name + ".png";
        if (dialog.findChild<QWidget*>("face")->grab().save(
                QString::fromStdString((m_folder / file).string())))
            ++m_pictures;
        const QSize size = dialog.findChild<QWidget*>("face")->size();
        std::printf("%-60s %4d x %4d\n", file.c_str(), size.width(), size.height());
    }

    std::filesystem::path m_folder;
    std::string m_command;
    std::set<std::string> m_visited;
    int m_pictures = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const std::string word = argc == 2 ? argv[1] : "";
    if (word.empty() || word.starts_with('-')) {
        const bool asked = word == "--help" || word == "--ajuda" || word == "-h";
        std::fprintf(asked ? stdout : stderr, "usage: fotografar-dialogos FOLDER\n");
        return asked ? 0 : 2;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::filesystem::create_directories(word);
    QWidget window;
    window.resize(1200, 700);
    window.show();
    desktop::announceMetrics(window);

    QTemporaryDir installation;
    HandUi ui(window);
    Host host(ui, hostOn(installation.path().toStdString()));
    if (const auto started = host.start(); !started)
        std::fprintf(stderr, "%s\n", started.error().message().c_str());
    Photographer photographer(word);
    ui.hand = [&](QDialog& dialog) { photographer.at(dialog); };

    AcEdCommandIterator* commands = host.editor().commands().iterator();
    std::vector<std::wstring> names;
    for (; !commands->done(); commands->next()) {
        const AcEdCommand* command = commands->command();
        if (std::wstring(command->groupName()).starts_with(kGroup))
            names.emplace_back(command->localName());
    }
    delete commands;
    for (const std::wstring& name : names) {
        photographer.startCommand(QString::fromStdWString(name).toStdString());
        (void)host.editor().runner().start(name);
    }
    for (const std::string& name : ui.leftOpen) std::printf("left open: %s\n", name.c_str());
    std::printf("%d pictures\n", photographer.pictures());
    return photographer.pictures() > 0 ? 0 : 1;
}
