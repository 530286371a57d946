// SPDX-License-Identifier: MIT
// Files that the command of the material list writes.
#include "prancheta/desktop/panels/list_file.h"

#include <QFileDialog>
#include <QFileInfo>

namespace prancheta::desktop {
namespace {

/// Longest file name that the command takes.
constexpr qsizetype kLongestName = 131;

}  // namespace

QString listFileName(const QString& chosen, const QString& end, const QString& extension) {
    QString stem = chosen;
    QString dot = u'.' + extension;
    if (chosen.endsWith(dot, Qt::CaseInsensitive)) {
        dot = chosen.right(dot.size());
        stem.chop(dot.size());
    }
    return stem.endsWith(end, Qt::CaseInsensitive) ? stem + dot : stem + end + dot;
}

void writeListFile(Panel& panel, const MaterialSchema& schema, const MaterialSchema::Format& format,
                   const ListFile& file) {
    const QString dot = u'.' + format.extension;
    const QString chosen =
        QFileDialog::getSaveFileName(&panel, file.title, file.name + dot,
                                     QStringLiteral("Planilha %1 (*%2)").arg(format.name, dot));
    if (chosen.isEmpty()) return;
    const QString name = listFileName(chosen, file.end, format.extension);
    if (name.size() > kLongestName) {
        emit panel.messageWanted(
            QStringLiteral("O caminho passa de 131 caracteres; escolha uma pasta mais curta: ") +
            name);
        return;
    }
    QString line = schema.command + QStringLiteral(" _") + format.word;
    if (file.list > 0) line += QStringLiteral("\n%1").arg(file.list);
    line += u'\n' + name;
    // Only a name that the window showed was confirmed there.
    if (name == chosen && QFileInfo::exists(name)) line += QStringLiteral("\n_Yes");
    emit panel.commandWanted(line);
}

}  // namespace prancheta::desktop
