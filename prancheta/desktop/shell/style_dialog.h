// SPDX-License-Identifier: MIT
// Styles of texts and of dimensions, with a picture of what they make.
#pragma once

#include <QDialog>

#include <functional>
#include <vector>

#include "dbsymtb.h"

class QFormLayout;
class QListWidget;
class QWidget;

namespace prancheta::desktop {

class StylePreview;

/// One style as it is in the dialog; of the two kinds of values one is in use.
struct StyleDraft {
    std::wstring name;
    AcDbObjectId id;  ///< null: a new one
    bool changed = false;
    std::wstring font = L"txt";
    double height = 0.0;  ///< 0: each text has its own
    double widthFactor = 1.0;
    double oblique = 0.0;  ///< degrees
    AcDbDimStyleValues dimension;
};

class StyleDialog : public QDialog {
    Q_OBJECT
public:
    enum class Kind { Text, Dimension };
    /// The database must outlive the dialog.
    StyleDialog(AcDbDatabase& database, Kind kind, QWidget* parent);

    /// A copy of the selected style under this name is selected; false when the name cannot be that
    /// of a new style.
    bool addStyle(const std::wstring& name);

public slots:
    /// Writes what was changed into the drawing, whose current style is the selected one then; the
    /// drawing's scale stays. The caller has an undo group open.
    void accept() override;

private:
    struct Field;
    void readStyles();
    void addFields(QFormLayout* form);
    void addNumber(QFormLayout* form, const Field& field);
    void addFont(QFormLayout* form);
    void askName();
    void select(int row);
    void edited();
    StyleDraft& current();
    bool write(StyleDraft& draft);

    AcDbDatabase& m_database;
    Kind m_kind;
    QListWidget* m_names;
    StylePreview* m_preview;
    std::vector<StyleDraft> m_drafts;
    std::vector<std::function<void(const StyleDraft&)>> m_show;  ///< into the fields
    bool m_showing = false;
};

}  // namespace prancheta::desktop
