// SPDX-License-Identifier: MIT
// Options of the window as they are kept.
#include "prancheta/desktop/shell/options.h"

#include <QSettings>

#include <algorithm>

namespace prancheta::desktop {
namespace {

/// Where each option is kept. A number outside of its range counts as the nearest one inside.
struct NumberKey {
    const char* key;
    int WindowOptions::*member;
    int least;
    int most;
};
constexpr NumberKey kNumbers[] = {
    {"opcoes/cursor_por_cento", &WindowOptions::crosshair, 1, 100},
    {"opcoes/caixa_de_escolha", &WindowOptions::pickBox, 0, 50},
    {"opcoes/tamanho_das_alcas", &WindowOptions::gripSize, 1, 25},
    {"opcoes/snaps", &WindowOptions::snaps, 0, 32767},
    {"opcoes/recuperacao_minutos", &WindowOptions::recoveryMinutes, 0, 600},
};

struct TextKey {
    const char* key;
    QString WindowOptions::*member;
};
constexpr TextKey kTexts[] = {
    {"opcoes/fonte", &WindowOptions::font},
    {"opcoes/fonte_do_comando", &WindowOptions::commandFont},
    {"opcoes/modelo", &WindowOptions::templateFile},
    {"opcoes/pasta_dos_desenhos", &WindowOptions::drawingFolder},
};

struct SwitchKey {
    const char* key;
    bool WindowOptions::*member;
};
constexpr SwitchKey kSwitches[] = {
    {"opcoes/fundo_escuro", &WindowOptions::darkGround},
    {"opcoes/ponto_decimal", &WindowOptions::decimalPoint},
    {"opcoes/alcas", &WindowOptions::grips},
};

struct ColorKey {
    const char* key;
    QColor WindowOptions::*member;
    QColor Palette::*replaced;
};
constexpr ColorKey kColors[] = {
    {"opcoes/cor_do_fundo", &WindowOptions::ground, &Palette::ground},
    {"opcoes/cor_do_cursor", &WindowOptions::cursor, &Palette::cursor},
    {"opcoes/cor_dos_snaps", &WindowOptions::snap, &Palette::snap},
};

constexpr auto kTheme = "opcoes/tema";
constexpr const char* kThemeNames[] = {"sistema", "claro", "escuro", "contraste"};

}  // namespace

WindowOptions WindowOptions::load() {
    const QSettings settings;
    WindowOptions out;
    for (const NumberKey& n : kNumbers)
        out.*n.member = std::clamp(settings.value(n.key, out.*n.member).toInt(), n.least, n.most);
    for (const TextKey& t : kTexts) out.*t.member = settings.value(t.key).toString();
    for (const SwitchKey& s : kSwitches)
        out.*s.member = settings.value(s.key, out.*s.member).toBool();
    for (const ColorKey& c : kColors) out.*c.member = QColor(settings.value(c.key).toString());
    const QString theme = settings.value(kTheme).toString();
    for (std::size_t i = 0; i < std::size(kThemeNames); ++i)
        if (theme == kThemeNames[i]) out.theme = static_cast<Theme>(i);
    return out;
}

void WindowOptions::save() const {
    QSettings settings;
    for (const NumberKey& n : kNumbers) settings.setValue(n.key, this->*n.member);
    for (const TextKey& t : kTexts) settings.setValue(t.key, this->*t.member);
    for (const SwitchKey& s : kSwitches) settings.setValue(s.key, this->*s.member);
    for (const ColorKey& c : kColors) {
        const QColor& color = this->*c.member;
        settings.setValue(c.key, color.isValid() ? color.name() : QString());
    }
    settings.setValue(kTheme, kThemeNames[static_cast<int>(theme)]);
}

Palette WindowOptions::colors() const {
    Palette out = theme == Theme::Contrast ? contrastPalette()
                  : darkGround             ? darkPalette()
                                           : lightPalette();
    // What is drawn on it has to be seen on a ground of the user's own.
    if (ground.isValid() && (ground.lightness() < 128) != out.dark)
        out = out.dark ? lightPalette() : darkPalette();
    for (const ColorKey& c : kColors)
        if ((this->*c.member).isValid()) out.*c.replaced = this->*c.member;
    return out;
}

}  // namespace prancheta::desktop
