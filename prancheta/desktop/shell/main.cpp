// SPDX-License-Identifier: MIT
// prancheta: the window.
#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <new>
#include <optional>
#include <string_view>

#include "prancheta/base/library.h"
#include "prancheta/desktop/shell/application.h"
#include "prancheta/editor/editor.h"

namespace {

using namespace prancheta::desktop;

/// Exit codes, as those of prancheta-console.
constexpr int kWrongOption = 2;
constexpr int kNoScreen = 3;
constexpr int kEndedBySignal = 128;  // and the signal's number

constexpr auto kHelp =
    "Prancheta: perfis de aço em desenho.\n"
    "Uso: prancheta [opções] [desenho.dxf]\n"
    "\n"
    "Opções:\n"
    "  -h, --ajuda          mostra esta ajuda\n"
    "  -v, --versao         mostra a versão\n"
    "  --instalacao PASTA   pasta de instalação (no lugar de ZPFORJA2010)\n"
    "\n"
    "Para trabalhar sem janela: prancheta-console --ajuda\n";

/// What is answered without a screen; nothing when the window is wanted.
std::optional<int> answeredAtOnce(int argc, char** argv) {
    bool screen = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "-h" || word == "--ajuda" || word == "--help")
            return std::fputs(kHelp, stdout) < 0;
        if (word == "-v" || word == "--versao" || word == "--version")
            return std::puts("prancheta " PRANCHETA_VERSION) < 0;
        screen = screen || word == "-platform";
    }
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    screen = screen || !qEnvironmentVariableIsEmpty("DISPLAY") ||
             !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!screen) {
        std::fputs(
            "prancheta: não há tela (DISPLAY e WAYLAND_DISPLAY estão vazias). Abra uma sessão "
            "gráfica, ou use prancheta-console.\n",
            stderr);
        return kNoScreen;
    }
#endif
    return {};
}

/// Empty when the words make sense.
QString readWords(const QStringList& words, ApplicationOptions& options) {
    const QCommandLineOption installation("instalacao", {}, "PASTA");
    QCommandLineParser parser;
    parser.addOption(installation);
    const bool read = parser.parse(words);
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) return "opção desconhecida: " + unknown.constFirst();
    if (!read) return "falta a pasta depois de --instalacao";
    const QStringList drawings = parser.positionalArguments();
    if (drawings.size() > 1) return "uma janela mostra um só desenho";
    if (!drawings.isEmpty()) options.drawing = toPath(drawings.constFirst());
    options.installation = toPath(parser.value(installation));
    return {};
}

/// What one event wanted is given up when memory runs out, not the program with the drawing.
class PatientApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::bad_alloc&) {
            if (prancheta::Editor* const editor = prancheta::Editor::current())
                editor->complain(
                    L"Memória insuficiente: salve o desenho e feche outros programas.");
            return false;
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (const auto exitCode = answeredAtOnce(argc, argv)) return *exitCode;
    const PatientApplication app(argc, argv);
    QApplication::setOrganizationName("prancheta");
    QApplication::setApplicationName("prancheta");
    QApplication::setApplicationVersion(PRANCHETA_VERSION);
    QApplication::setDesktopFileName("prancheta");
    // The editor's loop ends the program, not the last window.
    QApplication::setQuitOnLastWindowClosed(false);

    ApplicationOptions options;
    const QString wrong = readWords(QApplication::arguments(), options);
    if (!wrong.isEmpty()) {
        std::fputs(("prancheta: " + wrong + "\nVeja prancheta --ajuda.\n").toUtf8(), stderr);
        return kWrongOption;
    }
    prancheta::catchEndWishes();
    Application(options).run();
    return prancheta::endWish() == 0 ? 0 : kEndedBySignal + prancheta::endWish();
}
