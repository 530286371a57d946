// SPDX-License-Identifier: MIT
// The panel that a new window shows: recent drawings, the scale, the families with their pictures.
#pragma once

#include <QAction>
#include <QVBoxLayout>

#include "prancheta/desktop/panels/panels.h"
#include "prancheta/desktop/shell/scale_button.h"

namespace prancheta::desktop {

class StartPage : public Panel {
    Q_OBJECT
public:
    StartPage();
    void setEditor(Editor* editor) override;
    void refresh() override;
    /// Last ones first.
    void setRecent(const QStringList& files);
    /// Buttons with the pictures of the actions, under a title of their own.
    void addFamily(const QString& title, const QList<QAction*>& actions);

protected:
    void changeEvent(QEvent* event) override;

signals:
    void fileWanted(const QString& file);

private:
    QVBoxLayout* m_column;
    QVBoxLayout* m_files;
    ScaleButton* m_scale;
};

}  // namespace prancheta::desktop
