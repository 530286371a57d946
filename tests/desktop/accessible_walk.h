// SPDX-License-Identifier: MIT
// What a screen reader meets in a window: everything that can be worked, and what is shown there.
#pragma once

#include <QAccessible>
#include <QWidget>

#include <string>
#include <vector>

namespace accessible {

/// Roles that a person works with or is told about by name.
inline bool needsName(const QAccessibleInterface& part) {
    switch (part.role()) {
        case QAccessible::Button:
        case QAccessible::ButtonDropDown:
        case QAccessible::ButtonMenu:
        case QAccessible::Canvas:
        case QAccessible::CheckBox:
        case QAccessible::ColorChooser:
        case QAccessible::ComboBox:
        case QAccessible::EditableText:
        case QAccessible::Graphic:
        case QAccessible::List:
        case QAccessible::MenuItem:
        case QAccessible::PageTab:
        case QAccessible::RadioButton:
        case QAccessible::Slider:
        case QAccessible::SpinBox:
        case QAccessible::Table:
        case QAccessible::Tree:
            return true;
        default:
            break;
    }
    // A widget of our own that takes the keyboard, and nobody said what it is. One that hands it
    // on, as pages to their tabs, is none.
    const auto* const widget = qobject_cast<const QWidget*>(part.object());
    return part.role() == QAccessible::Client && widget != nullptr &&
           widget->focusPolicy() != Qt::NoFocus && widget->focusProxy() == nullptr;
}

struct Walk {
    int named = 0;
    std::vector<std::string> unnamed;  ///< class, object name and the parent's, for the report
};

inline void walk(QAccessibleInterface* part, Walk& out) {
    if (part == nullptr || part->state().invisible) return;
    const QObject* const object = part->object();
    // The field of a spin box or an editable popup is the box's own.
    const bool ofBox =
        object != nullptr && object->parent() != nullptr &&
        (object->parent()->inherits("QAbstractSpinBox") || object->parent()->inherits("QComboBox"));
    if (ofBox) return;
    if (needsName(*part) && object != nullptr) {
        if (!part->text(QAccessible::Name).trimmed().isEmpty() &&
            part->role() != QAccessible::Client) {
            ++out.named;
        } else {
            const QObject* const parent = object->parent();
            out.unnamed.push_back(std::string(object->metaObject()->className()) + " \"" +
                                  object->objectName().toStdString() + "\" em " +
                                  (parent != nullptr ? parent->metaObject()->className() : "-"));
        }
    }
    for (int i = 0; i < part->childCount(); ++i) walk(part->child(i), out);
}

/// The window must be shown.
inline Walk walkOf(QWidget& window) {
    Walk out;
    walk(QAccessible::queryAccessibleInterface(&window), out);
    return out;
}

}  // namespace accessible
