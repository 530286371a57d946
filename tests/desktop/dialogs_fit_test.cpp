// SPDX-License-Identifier: MIT
// The dialogs of the product as widgets: nothing is cut, nothing stands over anything else.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>

#include <regex>

#include "accessible_walk.h"
#include "adsdlg.h"
#include "dialogs_hands.h"
#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/desktop/dialogs/dialog_window.h"
#include "prancheta/desktop/dialogs/run_dialog.h"
#include "prancheta/desktop/dialogs/text_tile.h"

using namespace prancheta;

namespace {

std::string nameOf(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString();
}

/// What the widget needs by its own reckoning; a button in a row may do without its wide margins.
QSize needOf(const QWidget& widget) {
    const QSize hint = widget.sizeHint();
    if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
        constexpr int kBorder = 4;
        return {button->fontMetrics().horizontalAdvance(button->text().remove('&')) + 2 * kBorder,
                hint.height()};
    }
    if (qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
        qobject_cast<const QLabel*>(&widget) != nullptr)
        return hint;
    if (qobject_cast<const QLineEdit*>(&widget) != nullptr ||
        qobject_cast<const QComboBox*>(&widget) != nullptr)
        return {0, hint.height()};
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return {group->minimumSizeHint().width(), 0};
    if (const auto* text = qobject_cast<const desktop::TextTile*>(&widget))
        return {text->fontMetrics().horizontalAdvance(text->text()), text->fontMetrics().height()};
    return {};
}

std::vector<const QWidget*> widgetsOf(const QDialog& dialog) {
    std::vector<const QWidget*> widgets;
    const auto* face = dialog.findChild<QWidget*>("face");
    for (const QWidget* widget : face->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        widgets.push_back(widget);
    return widgets;
}

void checkWindow(const QDialog& dialog) {
    const auto widgets = widgetsOf(dialog);
    ASSERT_GE(widgets.size(), 4U);
    for (std::size_t i = 0; i < widgets.size(); ++i) {
        const QWidget& widget = *widgets[i];
        const QSize need = needOf(widget);
        EXPECT_GE(widget.width(), need.width()) << nameOf(widget);
        EXPECT_GE(widget.height(), need.height()) << nameOf(widget);
        EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << nameOf(widget);
        if (qobject_cast<const QGroupBox*>(&widget) != nullptr) continue;
        for (std::size_t j = i + 1; j < widgets.size(); ++j) {
            if (qobject_cast<const QGroupBox*>(widgets[j]) != nullptr) continue;
            EXPECT_FALSE(widget.geometry().intersects(widgets[j]->geometry()))
                << nameOf(widget) << " e " << nameOf(*widgets[j]);
        }
    }
}

/// Contents of a box begin below its title.
void checkBoxes(const QDialog& dialog) {
    const auto widgets = widgetsOf(dialog);
    for (const QWidget* box : widgets) {
        const auto* group = qobject_cast<const QGroupBox*>(box);
        if (group == nullptr) continue;
        const QRect title(group->geometry().topLeft(),
                          QSize(group->width(), group->fontMetrics().height()));
        for (const QWidget* widget : widgets) {
            if (widget == box) continue;
            EXPECT_FALSE(widget->geometry().intersects(title)) << nameOf(*widget);
        }
    }
}

}  // namespace

class DialogFit : public testing::TestWithParam<std::tuple<const char*, double>> {};

TEST_P(DialogFit, NothingIsCut) {
    const auto [file, points] = GetParam();
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSizeF(points);
    QApplication::setFont(font);
    {
        QMainWindow window;
        desktop::announceMetrics(window);
        const std::filesystem::path path =
            std::filesystem::path(HOUSE_SOURCE_DIR) / "instalacao/Perfis" / file;
        const std::string text = readFile(path).value();
        const std::filesystem::path docs = std::filesystem::path(HOUSE_SOURCE_DIR) / "docs";
        const std::string manual = readFile(docs / "manual.md").value();
        int id = 0;
        ASSERT_EQ(ads_load_dialog(path.wstring().c_str(), &id), RTNORM);
        const std::regex definition("(\\w+)\\s*:\\s*dialog\\s*\\{");
        for (std::sregex_iterator it(text.begin(), text.end(), definition), end; it != end; ++it) {
            SCOPED_TRACE((*it)[1]);
            std::smatch picture;
            const std::regex shown("\\((imagens/\\w+-" + (*it)[1].str() + "\\.png)\\)");
            ASSERT_TRUE(std::regex_search(manual, picture, shown)) << "the manual shows it";
            EXPECT_TRUE(std::filesystem::exists(docs / picture[1].str()));
            ads_hdlg handle = nullptr;
            ASSERT_EQ(ads_new_dialog(toWide((*it)[1].str()).c_str(), id, NULLCB, &handle), RTNORM);
            dcl::setDialogRunner([&](dcl::Dialog& dialog) {
                desktop::DialogWindow shown(dialog, &window);
                checkWindow(shown);
                shown.show();
                const accessible::Walk walk = accessible::walkOf(shown);
                EXPECT_EQ(walk.unnamed, std::vector<std::string>());
                EXPECT_GE(walk.named, 6);
                checkBoxes(shown);
                if (points <= 9.0) {
                    const QWidget& face = *shown.findChild<QWidget*>("face");
                    EXPECT_LE(face.width(), 1366);
                    EXPECT_LE(face.height(), 768 - 64) << "less its title and a panel";
                }
                dialog.abandon();
            });
            int status = 0;
            (void)ads_start_dialog(handle, &status);
        }
        (void)ads_unload_dialog(id);
    }
    dcl::setDialogRunner({});
    QApplication::setFont(before);
}

INSTANTIATE_TEST_SUITE_P(FilesAndFonts, DialogFit,
                         testing::Combine(testing::Values("perfis.dcl", "vistas.dcl",
                                                          "travejam.dcl"),
                                          testing::Values(9.0, 11.0, 14.0)));
