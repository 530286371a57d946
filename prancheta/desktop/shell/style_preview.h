// SPDX-License-Identifier: MIT
// A sample text or dimension in a style that is being edited.
#pragma once

#include <QWidget>

#include "prancheta/desktop/shell/style_dialog.h"

namespace prancheta::desktop {

class StylePreview : public QWidget {
public:
    StylePreview(StyleDialog::Kind kind, QWidget* parent);
    void show(const StyleDraft& draft);
    QSize sizeHint() const override { return {320, 240}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    StyleDialog::Kind m_kind;
    StyleDraft m_draft;
};

}  // namespace prancheta::desktop
