// SPDX-License-Identifier: MIT
// Layer, colour, linetype and line weight in a toolbar: of what is selected, else of what is drawn
// next.
#pragma once

#include <QComboBox>
#include <QToolButton>

#include <string>
#include <vector>

#include "prancheta/desktop/panels/property_rows.h"
#include "prancheta/desktop/panels/watch.h"
#include "prancheta/desktop/shell/scale_button.h"

namespace prancheta::desktop {

class ObjectFields : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// The widget of one of kToolbarFields; each at most once.
    QWidget* make(const QString& field, QWidget* parent);
    /// Null before the editor goes.
    void setEditor(Editor* editor);
    /// The drawing or the selection may have changed; cheap when they have not.
    void refresh();

signals:
    /// The drawing was changed.
    void changed();
    /// Text for the command line's log.
    void messageWanted(const QString& text);
    void scaleWanted(const QString& command);

private:
    QComboBox* makeChoices(const QString& key, const QString& name, int letters, QWidget* parent);
    void show(QComboBox* box, const PropertyRow& row);
    void chooseColor();
    void change(const std::wstring& key, const std::wstring& input);

    Editor* m_editor = nullptr;
    Watch m_watch{Watch::Selection::Counts};
    QComboBox* m_layer = nullptr;
    QComboBox* m_linetype = nullptr;
    QComboBox* m_weight = nullptr;
    QToolButton* m_color = nullptr;
    ScaleButton* m_scale = nullptr;
    int m_shownColor = -1;  ///< -1: the selected objects differ
};

}  // namespace prancheta::desktop
