// SPDX-License-Identifier: MIT
// Mouse and keyboard at every kind of tile: callbacks, their reasons and their order.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QRadioButton>
#include <QSlider>
#include <QTest>

#include "dialogs_form.h"
#include "prancheta/base/text.h"

using namespace dialogtest;

namespace {

using Calls = std::vector<std::string>;

constexpr std::string_view kForm = R"(d : dialog { label = "Teste";
  : list_box { key = "lista"; label = "&Lista"; list = "um\tA\ndois\tB\ntrês\tC"; tabs = "8"; allow_accept = true; }
  : row { : column {
      : edit_box { key = "h"; label = "&Altura"; edit_limit = 5; }
      : edit_box { key = "b"; label = "&Base"; allow_accept = true; }
      : edit_box { key = "senha"; password_char = "*"; } }
    : column {
      : toggle { key = "vista"; label = "&Vista"; }
      : popup_list { key = "ins"; label = "&Ponto"; list = "a\nb\nc"; }
      : slider { key = "sl"; min_value = 1; max_value = 9; small_increment = 1; big_increment = 1; } } }
  : radio_row { key = "tipo"; : radio_button { key = "r1"; label = "&1"; } : radio_button { key = "r2"; label = "&2"; }
                              : radio_button { key = "r3"; label = "&3"; } }
  : list_box { key = "varias"; list = "a\nb\nc"; multiple_select = true; }
  : image_button { key = "fig"; width = 10; height = 5; }
  : button { key = "fazer"; label = "&Fazer"; }
  errtile; ok_cancel; })";

/// Presses Alt and the letter where the keyboard is.
void mnemonic(QDialog& dialog, char letter) {
    QTest::keyClick(&dialog, letter, Qt::AltModifier);
    // A button that is pressed by its letter stays down for a moment.
    QTest::qWait(150);
}

void tabKey(QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab); }

std::string keyboard(const QDialog& dialog) {
    const QWidget* at = dialog.focusWidget();
    return at != nullptr ? at->objectName().toStdString() : "";
}

}  // namespace

TEST(DialogHands, AFieldIsLeftBeforeTheNextTileIsPressed) {
    Form form(kForm);
    form.listen({L"h", L"b", L"fazer", L"accept"});
    form.listen(L"accept", [](ads_callback_packet* packet) {
        Form::calls().push_back("accept");
        (void)ads_done_dialog(packet->dialog, DLGOK);
    });
    const int status = form.run([](QDialog& dialog) {
        retype(dialog, "h", "123456");  // one more than its limit
        press(dialog, "fazer");
        retype(dialog, "h", "7");
        tabKey(dialog);
        EXPECT_EQ(keyboard(dialog), "b");
        tabKey(dialog);  // nothing was typed: nothing was left
        retype(dialog, "b", "x");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(status, DLGOK);
    EXPECT_EQ(form.calls(), (Calls{"h 2 12345", "fazer 1 ", "h 2 7", "b 1 x", "accept"}));
}

TEST(DialogHands, EnterInAFieldWithoutAllowAcceptHandsOverToTheDefaultButton) {
    Form form(kForm);
    form.listen({L"h"});
    const int status = form.run([](QDialog& dialog) {
        retype(dialog, "h", "5");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(keyboard(dialog), "accept") << "the next Enter accepts";
        retype(dialog, "h", "6");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);  // what was typed is not left
    });
    EXPECT_EQ(status, DLGCANCEL);
    EXPECT_EQ(form.calls(), (Calls{"h 1 5"}));
}

TEST(DialogHands, RowsByMouseAndKeyboard) {
    Form form(kForm);
    form.listen({L"lista", L"varias", L"ins"});
    const int status = form.run([](QDialog& dialog) {
        pick(dialog, "lista", 1);
        pick(dialog, "lista", 1);  // a row that is selected can be picked again
        QTest::keyClick(&tile(dialog, "lista"), Qt::Key_Down);
        pick(dialog, "varias", 2);
        auto& several = dynamic_cast<QListView&>(tile(dialog, "varias"));
        QTest::mouseClick(several.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          several.visualRect(several.model()->index(0, 0)).center());
        tile(dialog, "ins").setFocus();
        QTest::keyClick(&tile(dialog, "ins"), Qt::Key_Down);
        QTest::keyClick(&tile(dialog, "ins"), Qt::Key_Return);  // the default button
    });
    EXPECT_EQ(status, DLGOK);
    EXPECT_EQ(form.calls(), (Calls{"lista 1 1", "lista 1 1", "lista 1 2", "varias 1 2",
                                   "varias 1 0 2", "ins 1 1"}));
}

TEST(DialogHands, DoubleClickOnARowAccepts) {
    Form form(kForm);
    form.listen({L"lista"});
    const int status = form.run([](QDialog& dialog) {
        auto& list = dynamic_cast<QListView&>(tile(dialog, "lista"));
        const QPoint row = list.visualRect(list.model()->index(2, 0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, row);
    });
    EXPECT_EQ(status, DLGOK);
    EXPECT_EQ(form.calls(), (Calls{"lista 1 2", "lista 4 2"}));
}

TEST(DialogHands, ChoicesSliderAndImage) {
    Form form(kForm);
    form.listen({L"vista", L"tipo", L"sl"});
    form.listen(L"fig", [](ads_callback_packet* packet) {
        Form::calls().push_back("fig " + std::to_string(packet->x) + "," +
                                std::to_string(packet->y));
    });
    form.run([&](QDialog& dialog) {
        auto& second = dynamic_cast<QRadioButton&>(tile(dialog, "r2"));
        QTest::mouseClick(&tile(dialog, "vista"), Qt::LeftButton, {}, QPoint(8, 8));
        QTest::mouseClick(&second, Qt::LeftButton, {}, QPoint(8, 8));
        QTest::keyClick(&second, Qt::Key_Right);
        EXPECT_EQ(keyboard(dialog), "r3");
        EXPECT_EQ(form.value(L"tipo"), "r3");
        (void)ads_set_tile(form.handle(), L"tipo", L"");
        EXPECT_FALSE(dynamic_cast<QRadioButton&>(tile(dialog, "r3")).isChecked());
        QTest::keyClick(&tile(dialog, "sl"), Qt::Key_Right);
        auto& slider = dynamic_cast<QSlider&>(tile(dialog, "sl"));
        slider.setSliderDown(true);
        slider.setSliderPosition(6);
        slider.setSliderDown(false);
        QTest::mouseClick(&tile(dialog, "fig"), Qt::LeftButton, {}, QPoint(3, 9));
        QTest::keyClick(&tile(dialog, "fig"), Qt::Key_Space);
        press(dialog, "cancel");
    });
    EXPECT_EQ(form.calls(), (Calls{"vista 1 1", "tipo 1 r2", "tipo 1 r3", "sl 1 2", "sl 3 6",
                                   "sl 1 6", "fig 3,9", "fig 0,0"}));
}

TEST(DialogHands, LettersMoveTheKeyboardOrPress) {
    Form form(kForm);
    form.listen({L"vista", L"fazer", L"tipo", L"h"});
    form.run([](QDialog& dialog) {
        mnemonic(dialog, 'a');
        EXPECT_EQ(keyboard(dialog), "h");
        QTest::keyClicks(dialog.focusWidget(), "9");
        mnemonic(dialog, 'p');
        EXPECT_EQ(keyboard(dialog), "ins");
        mnemonic(dialog, 'l');
        EXPECT_EQ(keyboard(dialog), "lista");
        mnemonic(dialog, 'v');
        mnemonic(dialog, 'f');
        mnemonic(dialog, '2');
        press(dialog, "cancel");
    });
    EXPECT_EQ(form.calls(), (Calls{"h 2 9", "vista 1 1", "fazer 1 ", "tipo 1 r2"}));
}

TEST(DialogHands, TabFollowsTheFileAndSkipsWhatIsDisabled) {
    Form form(kForm);
    (void)ads_mode_tile(form.handle(), L"b", MODE_DISABLE);
    (void)ads_set_tile(form.handle(), L"tipo", L"r2");
    form.run([](QDialog& dialog) {
        EXPECT_FALSE(tile(dialog, "b").isEnabled());
        Calls order;
        for (int i = 0; i < 12; ++i, tabKey(dialog)) order.push_back(keyboard(dialog));
        EXPECT_EQ(order, (Calls{"lista", "h", "senha", "vista", "ins", "sl", "r2", "varias", "fig",
                                "fazer", "accept", "cancel"}));
        EXPECT_EQ(keyboard(dialog), "lista") << "round";
        const auto& secret = dynamic_cast<QLineEdit&>(tile(dialog, "senha"));
        EXPECT_EQ(secret.echoMode(), QLineEdit::Password);
        press(dialog, "cancel");
    });
}

TEST(DialogHands, WhatIsTypedOverAListIsSearchedFor) {
    Form form(R"(d : dialog { initial_focus = "lista";
      : edit_box { key = "oculto"; value = "7"; is_hidden = true; allow_accept = true; }
      : edit_box { key = "busca"; reports_typing = true; }
      : list_box { key = "lista"; list = "um\ndois"; } ok_cancel; })");
    form.listen({L"busca", L"lista", L"oculto"});
    form.run([&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QWidget*>("oculto"), nullptr) << "reached by programs alone";
        EXPECT_EQ(form.value(L"oculto"), "7");
        EXPECT_EQ(keyboard(dialog), "lista");
        QTest::keyClicks(dialog.focusWidget(), "2");
        EXPECT_EQ(keyboard(dialog), "busca");
        QTest::keyClicks(dialog.focusWidget(), "x");
        press(dialog, "cancel");
    });
    EXPECT_EQ(form.calls(), (Calls{"busca 3 2", "busca 3 2x", "busca 2 2x"}));
}

TEST(DialogHands, ACallbackMovesTheKeyboardBack) {
    // What a program does about a field that makes no sense.
    Form form(kForm);
    form.listen({L"b"});
    form.listen(L"h", [](ads_callback_packet* packet) {
        Form::calls().push_back("h");
        (void)ads_set_tile(packet->dialog, L"error", L"Altura inválida.");
        (void)ads_mode_tile(packet->dialog, L"h", MODE_SETFOCUS);
        (void)ads_mode_tile(packet->dialog, L"h", MODE_SETSEL);
    });
    form.listen(L"accept", [](ads_callback_packet* packet) {
        (void)ads_mode_tile(packet->dialog, L"b", MODE_SETFOCUS);
        (void)ads_mode_tile(packet->dialog, L"b", MODE_SETSEL);
    });
    form.run([](QDialog& dialog) {
        retype(dialog, "h", "x");
        tabKey(dialog);
        EXPECT_EQ(keyboard(dialog), "h");
        EXPECT_EQ(dynamic_cast<QLineEdit&>(tile(dialog, "h")).selectedText(), "x");
        EXPECT_EQ(tile(dialog, "error").accessibleName(), "Altura inválida.");
        // Enter in a field that would accept, refused because of that very field.
        retype(dialog, "b", "y");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(keyboard(dialog), "b");
        EXPECT_EQ(dynamic_cast<QLineEdit&>(tile(dialog, "b")).selectedText(), "y");
        press(dialog, "cancel");
    });
    EXPECT_EQ(form.calls(), (Calls{"h", "b 1 y"}));
}

TEST(DialogHands, ClosingTheWindowIsEscape) {
    Form without("d : dialog { : button { key = \"x\"; label = \"X\"; } }");
    EXPECT_EQ(without.run([](QDialog& dialog) { dialog.close(); }), DLGCANCEL);

    Form form(kForm);
    form.listen(L"cancel", [](ads_callback_packet* packet) {
        Form::calls().push_back("cancel");
        if (Form::calls().size() == 2) (void)ads_done_dialog(packet->dialog, 7);
    });
    const int status = form.run([](QDialog& dialog) {
        dialog.close();
        EXPECT_TRUE(dialog.isVisible()) << "the program did not end it";
        dialog.close();
    });
    EXPECT_EQ(status, 7);
}

TEST(DialogHands, ANestedDialogStandsBeforeItsOuterOne) {
    Form outer(
        "d : dialog { : button { key = \"abrir\"; label = \"Abrir\"; } ok_cancel; }"
        "n : dialog { : edit_box { key = \"e\"; } ok_cancel; }");
    static const Form* form;
    static int inner;
    form = &outer;
    outer.listen(L"abrir", [](ads_callback_packet* packet) {
        inner = -99;
        (void)ads_start_dialog(form->open("n"), &inner);
        (void)ads_done_dialog(packet->dialog, 12);
    });
    const int status = outer.run([](QDialog& dialog) {
        if (dialog.objectName() == "n") {
            EXPECT_EQ(dialog.parentWidget()->objectName(), "d") << "before the one that opened it";
            press(dialog, "accept");
        } else {
            press(dialog, "abrir");
            EXPECT_FALSE(dialog.isVisible());
        }
    });
    EXPECT_EQ(inner, DLGOK);
    EXPECT_EQ(status, 12);
}

TEST(DialogHands, ADialogComesBackWhereItWas) {
    QPoint left;
    for (const int round : {0, 1}) {
        Form form("lugar : dialog { label = \"Lugar\"; ok_cancel; }", "lugar");
        form.run([&](QDialog& dialog) {
            if (round == 1)
                EXPECT_EQ(dialog.pos(), left);
            else
                dialog.move(dialog.pos() + QPoint(31, 17));
            left = dialog.pos();
            press(dialog, "accept");
        });
    }
}
