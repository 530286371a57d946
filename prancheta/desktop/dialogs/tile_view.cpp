// SPDX-License-Identifier: MIT
// Makers of the widgets, a table by kind of tile.
#include "prancheta/desktop/dialogs/tile_view.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <array>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/tile_value.h"
#include "prancheta/desktop/dialogs/image_tile.h"
#include "prancheta/desktop/dialogs/list_tiles.h"
#include "prancheta/desktop/dialogs/settings.h"
#include "prancheta/desktop/dialogs/text_tile.h"

namespace prancheta::desktop {
namespace {

using dcl::Box;
using dcl::Tile;
using dcl::TileKind;

/// Label left of the input part of an edit box or popup, or above the rows of a list.
QLabel* makeLabel(TileHost& host, const Tile& tile, const Box& box, QWidget* buddy) {
    if (dcl::labelText(tile).empty()) return nullptr;
    auto* label = new QLabel(mnemonicLabel(tile), &host.face());
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(buddy);
    const QRect whole = toRect(box.frame);
    const QRect part = toRect(box.part);
    if (tile.kind == TileKind::ListBox)
        label->setGeometry(whole.x(), whole.y(), whole.width(), part.y() - whole.y());
    else
        label->setGeometry(whole.x(), whole.y(), part.x() - whole.x(), whole.height());
    return label;
}

TileView makeBox(TileHost& host, Tile& tile, const Box& box) {
    const bool titled = !tile.attribute("label").empty();
    if (!dcl::isBoxed(tile.kind) && !titled) return {};
    auto* group = new QGroupBox(mnemonicLabel(tile), &host.face());
    group->setGeometry(toRect(box.frame));
    return {group, nullptr, {}};
}

/// The keyboard's place is seen on every button, however the style marks it.
class FocusedButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent* event) override {
        constexpr double kRing = 2.0;
        constexpr double kRound = 3.0;
        QPushButton::paintEvent(event);
        if (!hasFocus()) return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), kRing));
        const double inside = kRing / 2 + 1;
        painter.drawRoundedRect(QRectF(rect()).adjusted(inside, inside, -inside, -inside), kRound,
                                kRound);
    }
};

TileView makeButton(TileHost& host, Tile& tile, const Box& box) {
    auto* button = new FocusedButton(mnemonicLabel(tile), &host.face());
    button->setGeometry(toRect(box.frame));
    // The button with the keyboard is the one that Enter presses, and looks like it.
    button->setAutoDefault(true);
    button->setDefault(dcl::flagAttribute(tile, "is_default"));
    QObject::connect(button, &QPushButton::clicked, button, [&host, &tile] {
        host.act(tile, [&] { return host.dialog().press(tile.key); });
    });
    return {button, nullptr, {}};
}

TileView makeEditBox(TileHost& host, Tile& tile, const Box& box) {
    constexpr int kMostCharacters = 256;
    constexpr double kUsualLimit = 132;
    auto* edit = new QLineEdit(&host.face());
    edit->setGeometry(toRect(box.part));
    const double limit = dcl::numberAttribute(tile, "edit_limit", kUsualLimit);
    edit->setMaxLength(std::clamp(static_cast<int>(limit), 0, kMostCharacters));
    if (const std::wstring mask = toWide(tile.attribute("password_char")); !mask.empty()) {
        edit->setEchoMode(QLineEdit::Password);
        edit->setStyleSheet(
            QStringLiteral("lineedit-password-character: %1").arg(static_cast<int>(mask.front())));
    }
    QObject::connect(edit, &QLineEdit::textEdited, edit, [&host, &tile](const QString& text) {
        host.act(tile, [&] { return host.dialog().edit(tile.key, text.toStdString()); });
    });
    const auto show = [edit, &tile] {
        const QString text = QString::fromStdWString(tile.value);
        if (edit->text() != text) edit->setText(text);
    };
    return {edit, makeLabel(host, tile, box, edit), show};
}

TileView makeToggle(TileHost& host, Tile& tile, const Box& box) {
    auto* toggle = new QCheckBox(mnemonicLabel(tile), &host.face());
    toggle->setGeometry(toRect(box.frame));
    QObject::connect(toggle, &QCheckBox::clicked, toggle, [&host, &tile](bool on) {
        host.act(tile, [&] { return host.dialog().type(tile.key, on ? "1" : "0"); });
    });
    return {toggle, nullptr, [toggle, &tile] { toggle->setChecked(tile.value == L"1"); }};
}

/// Buttons of one cluster exclude each other; the group belongs to the first of them.
QButtonGroup* groupFor(TileHost& host, const Tile& button) {
    const QString name = QStringLiteral("cluster%1").arg(reinterpret_cast<quintptr>(button.parent));
    if (auto* group = host.face().findChild<QButtonGroup*>(name)) return group;
    auto* group = new QButtonGroup(&host.face());
    group->setObjectName(name);
    return group;
}

/// A cluster is one stop: the button that is on, or the first one.
bool isTabStop(const Tile& button) {
    const Tile& cluster = *button.parent;
    if (cluster.attribute("is_tab_stop") == "false") return false;
    const Tile* stop = nullptr;
    for (const auto& child : cluster.children) {
        if (child->kind != TileKind::RadioButton) continue;
        if (stop == nullptr || child->value == L"1") stop = child.get();
    }
    return stop == &button;
}

TileView makeRadioButton(TileHost& host, Tile& tile, const Box& box) {
    auto* button = new QRadioButton(mnemonicLabel(tile), &host.face());
    button->setGeometry(toRect(box.frame));
    QButtonGroup* const group = groupFor(host, tile);
    group->addButton(button);
    QObject::connect(button, &QRadioButton::clicked, button, [&host, &tile] {
        host.act(tile, [&] { return host.dialog().press(tile.key); });
    });
    const auto show = [button, group, &tile] {
        // An exclusive group never lets go of its last button.
        const bool on = tile.value == L"1";
        if (!on) group->setExclusive(false);
        button->setChecked(on);
        group->setExclusive(true);
        button->setFocusPolicy(isTabStop(tile) ? Qt::StrongFocus : Qt::ClickFocus);
    };
    return {button, nullptr, show};
}

TileView makeSlider(TileHost& host, Tile& tile, const Box& box) {
    constexpr int kSmallSteps = 100;
    constexpr int kBigSteps = 10;
    const bool upright = tile.attribute("layout") == "vertical";
    auto* slider = new QSlider(upright ? Qt::Vertical : Qt::Horizontal, &host.face());
    slider->setGeometry(toRect(box.frame));
    const dcl::SliderRange range = dcl::sliderRange(tile);
    slider->setRange(range.low, range.high);
    slider->setInvertedAppearance(range.start != range.low);
    const int length = range.high - range.low;
    const auto step = [&](const char* name, int usual) {
        return std::max(1, static_cast<int>(dcl::numberAttribute(tile, name, usual)));
    };
    slider->setSingleStep(step("small_increment", length / kSmallSteps));
    slider->setPageStep(step("big_increment", length / kBigSteps));
    const auto chosen = [&host, &tile, slider] {
        host.act(tile,
                 [&] { return host.dialog().type(tile.key, std::to_string(slider->value())); });
    };
    QObject::connect(slider, &QSlider::valueChanged, slider, [&host, &tile, slider, chosen] {
        if (!slider->isSliderDown()) return chosen();
        host.act(tile,
                 [&] { return host.dialog().drag(tile.key, std::to_string(slider->value())); });
    });
    QObject::connect(slider, &QSlider::sliderReleased, slider, chosen);
    const auto show = [slider, &tile] {
        const QSignalBlocker quiet(slider);
        double number = 0;
        if (parseNumber(std::wstring_view(tile.value), number))
            slider->setValue(static_cast<int>(number));
    };
    return {slider, nullptr, show};
}

TileView makeText(TileHost& host, Tile& tile, const Box& box) {
    const std::string columns = tile.attribute("columns_of");
    const Tile* const list = columns.empty() ? nullptr : host.dialog().find(columns);
    auto* text = new TextTile(tile, host.dialog().metrics(), list, &host.face());
    text->setGeometry(toRect(box.frame));
    return {text, nullptr, [text] { text->showTile(); }};
}

TileView makeImage(TileHost& host, Tile& tile, const Box& box) {
    auto* image = new ImageTile(host, tile);
    image->setGeometry(toRect(box.frame));
    return {image, nullptr, [image] { image->update(); }};
}

TileView makeListBox(TileHost& host, Tile& tile, const Box& box) {
    auto* list = new ListBox(host, tile);
    list->setGeometry(toRect(box.part));
    return {list, makeLabel(host, tile, box, list), [list] { list->showTile(); }};
}

TileView makePopupList(TileHost& host, Tile& tile, const Box& box) {
    auto* popup = new PopupBox(host, tile);
    popup->setGeometry(toRect(box.part));
    return {popup, makeLabel(host, tile, box, popup), [popup] { popup->showTile(); }};
}

TileView makeNothing(TileHost&, Tile&, const Box&) { return {}; }

using Maker = TileView (*)(TileHost&, Tile&, const Box&);

struct Entry {
    TileKind kind;
    Maker make;
};

// In the order of TileKind.
constexpr std::array kMakers{
    Entry{TileKind::Dialog, makeNothing},
    Entry{TileKind::Row, makeBox},
    Entry{TileKind::Column, makeBox},
    Entry{TileKind::BoxedRow, makeBox},
    Entry{TileKind::BoxedColumn, makeBox},
    Entry{TileKind::RadioRow, makeBox},
    Entry{TileKind::RadioColumn, makeBox},
    Entry{TileKind::BoxedRadioRow, makeBox},
    Entry{TileKind::BoxedRadioColumn, makeBox},
    Entry{TileKind::Concatenation, makeBox},
    Entry{TileKind::Paragraph, makeBox},
    Entry{TileKind::Button, makeButton},
    Entry{TileKind::EditBox, makeEditBox},
    Entry{TileKind::ListBox, makeListBox},
    Entry{TileKind::PopupList, makePopupList},
    Entry{TileKind::RadioButton, makeRadioButton},
    Entry{TileKind::Toggle, makeToggle},
    Entry{TileKind::Slider, makeSlider},
    Entry{TileKind::ImageButton, makeImage},
    Entry{TileKind::Image, makeImage},
    Entry{TileKind::Text, makeText},
    Entry{TileKind::TextPart, makeText},
    Entry{TileKind::Spacer, makeNothing},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < kMakers.size(); ++i)
        if (static_cast<std::size_t>(kMakers[i].kind) != i) return false;
    return true;
}
static_assert(inOrder() && static_cast<std::size_t>(TileKind::Spacer) + 1 == kMakers.size());

}  // namespace

TileView makeTileView(TileHost& host, Tile& tile, const Box& box) {
    TileView view = kMakers[static_cast<std::size_t>(tile.kind)].make(host, tile, box);
    if (view.widget == nullptr) return view;
    if (!tile.key.empty()) view.widget->setObjectName(QString::fromStdString(tile.key));
    if (const std::string name = tile.attribute("description"); !name.empty())
        view.widget->setAccessibleName(QString::fromStdString(name));
    if (tile.attribute("is_tab_stop") == "false")
        view.widget->setFocusPolicy(view.widget->focusPolicy() & Qt::ClickFocus ? Qt::ClickFocus
                                                                                : Qt::NoFocus);
    return view;
}

QString mnemonicLabel(const Tile& tile) {
    QString label = QString::fromStdString(tile.attribute("label"));
    const QString letter = QString::fromStdString(tile.attribute("mnemonic"));
    if (letter.isEmpty() || label.contains(QLatin1Char('&'))) return label;
    const qsizetype at = label.indexOf(letter, 0, Qt::CaseInsensitive);
    if (at >= 0) label.insert(at, QLatin1Char('&'));
    return label;
}

QRect toRect(const dcl::Rect& rect) {
    return {static_cast<int>(rect.x), static_cast<int>(rect.y), static_cast<int>(rect.width),
            static_cast<int>(rect.height)};
}

}  // namespace prancheta::desktop
