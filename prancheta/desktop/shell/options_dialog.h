// SPDX-License-Identifier: MIT
// The dialog of the window's options.
#pragma once

#include <QDialog>

#include <functional>
#include <vector>

#include "prancheta/desktop/shell/options.h"

class QFormLayout;

namespace prancheta::desktop {

class OptionsDialog : public QDialog {
    Q_OBJECT
public:
    OptionsDialog(const WindowOptions& options, QWidget* parent);
    WindowOptions options() const;

private:
    QWidget* appearancePage();
    QWidget* drawingPage();
    QWidget* filesPage();
    void addChoice(QFormLayout& form, const QString& label, const QString& name,
                   const QStringList& texts, int chosen,
                   std::function<void(WindowOptions&, int)> take);
    void addNumber(QFormLayout& form, const QString& label, const QString& name,
                   int WindowOptions::*member, int least, int most, const QString& unit,
                   const QString& atLeast = {});
    void addColor(QFormLayout& form, const QString& label, const QString& name,
                  QColor WindowOptions::*member);
    void addFont(QFormLayout& form, const QString& label, const QString& name,
                 QString WindowOptions::*member);
    enum class Path { File, Folder };
    void addPath(QFormLayout& form, const QString& label, const QString& name,
                 QString WindowOptions::*member, Path kind, const QString& usual);

    WindowOptions m_options;  ///< as they were
    /// Each takes what one field shows.
    std::vector<std::function<void(WindowOptions&)>> m_takers;
};

}  // namespace prancheta::desktop
