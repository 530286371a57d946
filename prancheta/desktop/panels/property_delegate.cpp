// SPDX-License-Identifier: MIT
// Editors of the values in the property table.
#include "prancheta/desktop/panels/property_delegate.h"

#include <QColorDialog>
#include <QComboBox>
#include <QLineEdit>

#include "prancheta/desktop/panels/color_popup.h"
#include "prancheta/desktop/panels/icons.h"
#include "prancheta/desktop/panels/text.h"

namespace prancheta::desktop {
namespace {

constexpr int kRowHeight = 24;
/// Item of the colour box that opens the whole palette.
constexpr int kOther = -1;
constexpr int kAnyTrue = -2;

}  // namespace

QWidget* PropertyDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                        const QModelIndex& index) const {
    const PropertyRow* row = rowAt(index);
    if (row == nullptr || row->kind == PropertyRow::Kind::Show) return nullptr;
    if (row->kind == PropertyRow::Kind::Choice) return choiceEditor(parent, *row);
    if (row->kind == PropertyRow::Kind::Color) return colorEditor(parent, *row);
    auto* edit = new QLineEdit(parent);
    edit->setFrame(false);
    return edit;
}

/// What each item stands for is its data: the index for a module, the text otherwise.
QWidget* PropertyDelegate::choiceEditor(QWidget* parent, const PropertyRow& row) const {
    auto* box = new QComboBox(parent);
    const bool byIndex = row.key.front() == kModuleKey;
    for (std::size_t i = 0; i < row.choices.size(); ++i) {
        const QString choice = qt(row.choices[i]);
        box->addItem(choice, byIndex ? QString::number(i) : choice);
    }
    auto* self = const_cast<PropertyDelegate*>(this);
    connect(box, &QComboBox::activated, self, [self, box] {
        emit self->commitData(box);
        emit self->closeEditor(box);
    });
    return box;
}

namespace {

void chooseTrueColor(PropertyDelegate& delegate, QWidget* window, const PropertyRow& row,
                     int current) {
    auto* dialog = new QColorDialog(swatchColor(current), window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QColorDialog::colorSelected, &delegate,
                     [&delegate, row](const QColor& color) {
                         const int rgb = static_cast<int>(color.rgb() & 0xFFFFFF);
                         delegate.onCommit(row, std::to_wstring(kTrueColors + rgb));
                     });
    dialog->open();
}

}  // namespace

QWidget* PropertyDelegate::colorEditor(QWidget* parent, const PropertyRow& row) const {
    auto* box = new QComboBox(parent);
    const QColor ink = parent->palette().color(QPalette::Text);
    const auto add = [&](int color) {
        box->addItem(swatchIcon(color, ink), colorText(color), QString::number(color));
    };
    for (const int color : {256, 0, 1, 2, 3, 4, 5, 6, 7}) add(color);
    const int current = row.varies ? 256 : qt(row.input).toInt();
    if (current > 7 && current != 256) add(current);
    box->addItem(QStringLiteral("Outra cor…"), kOther);
    box->addItem(QStringLiteral("Cor verdadeira…"), kAnyTrue);
    auto* self = const_cast<PropertyDelegate*>(this);
    connect(box, &QComboBox::activated, self, [self, box, copy = row, current] {
        if (box->currentData().toInt() == kAnyTrue) {
            QWidget* const window = box->window();
            emit self->closeEditor(box, QAbstractItemDelegate::RevertModelCache);
            return chooseTrueColor(*self, window, copy, current);
        }
        if (box->currentData().toInt() != kOther) {
            emit self->commitData(box);
            emit self->closeEditor(box);
            return;
        }
        auto* popup = new ColorPopup(current < kTrueColors ? current : -1, ColorPopup::Logical::Yes,
                                     box->window());
        connect(popup, &ColorPopup::chosen, self,
                [self, copy](int color) { self->onCommit(copy, std::to_wstring(color)); });
        const QPoint below = box->mapToGlobal(QPoint(0, box->height()));
        emit self->closeEditor(box, QAbstractItemDelegate::RevertModelCache);
        popup->showAt(below);
    });
    return box;
}

void PropertyDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const PropertyRow* row = rowAt(index);
    if (row == nullptr) return;
    if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
        edit->setText(row->number ? shownNumber(qt(row->input)) : qt(row->input));
        edit->selectAll();
    } else if (auto* box = qobject_cast<QComboBox*>(editor)) {
        box->setCurrentIndex(row->varies ? -1 : box->findData(qt(row->input)));
    }
}

void PropertyDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                    const QModelIndex& index) const {
    const PropertyRow* row = rowAt(index);
    if (row == nullptr) return;
    std::wstring input;
    if (const auto* edit = qobject_cast<QLineEdit*>(editor)) {
        // An editor that was opened on different values and left untouched says nothing.
        if (row->varies && !edit->isModified()) return;
        input = edit->text().toStdWString();
    } else if (const auto* box = qobject_cast<QComboBox*>(editor)) {
        const int chosen = box->currentData().toInt();
        if (box->currentIndex() < 0 || chosen == kOther || chosen == kAnyTrue) return;
        input = box->currentData().toString().toStdWString();
    }
    if (!row->varies && input == row->input) return;
    const PropertyRow copy = *row;  // the rows are made anew while the value is set
    onCommit(copy, input);
}

QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    return {QStyledItemDelegate::sizeHint(option, index).width(), kRowHeight};
}

}  // namespace prancheta::desktop
