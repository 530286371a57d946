// SPDX-License-Identifier: MIT
// prancheta: the window.
#include <QApplication>
#include <QCommandLineParser>

#include "prancheta/desktop/shell/application.h"

int main(int argc, char** argv) {
    using namespace prancheta::desktop;
    QApplication app(argc, argv);
    QApplication::setOrganizationName("prancheta");
    QApplication::setApplicationName("prancheta");
    QApplication::setApplicationDisplayName("Prancheta");
    QApplication::setApplicationVersion(PRANCHETA_VERSION);
    QApplication::setDesktopFileName("prancheta");
    // The editor's loop ends the program, not the last window.
    QApplication::setQuitOnLastWindowClosed(false);

    QCommandLineParser parser;
    parser.setApplicationDescription("Prancheta: perfis de aço em desenho.");
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption installation(
        "instalacao", "Pasta de instalação; vale mais que a variável ZPFORJA2010.", "PASTA");
    parser.addOption(installation);
    parser.addPositionalArgument("desenho.dxf", "Desenho a abrir.", "[desenho.dxf]");
    parser.process(app);

    ApplicationOptions options;
    options.installation = toPath(parser.value(installation));
    if (!parser.positionalArguments().isEmpty())
        options.drawing = toPath(parser.positionalArguments().constFirst());
    Application(options).run();
    return 0;
}
