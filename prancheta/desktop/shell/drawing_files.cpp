// SPDX-License-Identifier: MIT
// File windows, unsaved work, recent files.
#include "prancheta/desktop/shell/drawing_files.h"
#include "prancheta/desktop/shell/options.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

#include "prancheta/editor/drawing_file.h"

namespace prancheta::desktop {
namespace {

constexpr auto kRecentKey = "arquivos/recentes";
constexpr auto kFolderKey = "arquivos/pasta";
constexpr qsizetype kMostRecent = 9;
constexpr auto kFilter = "Desenhos DXF (*.dxf *.DXF);;Todos os arquivos (*)";

}  // namespace

QString toQString(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

std::filesystem::path toPath(const QString& text) { return text.toStdString(); }

QString folderOf(const std::filesystem::path& drawing) {
    if (!drawing.empty()) return toQString(drawing.parent_path());
    const QString chosen = WindowOptions::load().drawingFolder;
    if (!chosen.isEmpty() && QFileInfo(chosen).isDir()) return chosen;
    QString last = QSettings().value(kFolderKey).toString();
    if (QFileInfo(last).isDir()) return last;
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

DrawingFiles::DrawingFiles(QWidget& window) : QObject(&window), m_window(window) {}

std::filesystem::path DrawingFiles::choose(const FileQuestion& question) {
    const QString folder = folderOf(m_editor->file().name());
    const bool saving = question.purpose == FileQuestion::Purpose::Save;
    QFileDialog dialog(&m_window, saving ? "Salvar desenho" : "Abrir desenho", folder, kFilter);
    QStringList formats;
    for (const FileFormat& format : question.formats)
        formats << QString::fromWCharArray(format.title) + " (*.dxf *.DXF)";
    if (!formats.isEmpty()) {
        dialog.setNameFilters(formats);
        // A copy is not to take the drawing's own name.
        QObject::connect(&dialog, &QFileDialog::filterSelected, [&](const QString& filter) {
            QString name = QFileInfo(dialog.selectedFiles().value(0)).completeBaseName();
            QString mark;
            for (const FileFormat& format : question.formats) {
                const QString known = QString::fromWCharArray(format.mark);
                if (name.endsWith(known)) name.chop(known.size());
                if (filter.startsWith(QString::fromWCharArray(format.title))) mark = known;
            }
            dialog.selectFile(name + mark + ".dxf");
        });
    }
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix("dxf");
    if (!question.suggestion.empty()) {
        dialog.setDirectory(toQString(question.suggestion.parent_path()));
        dialog.selectFile(toQString(question.suggestion.filename()));
    } else if (saving) {
        dialog.selectFile("Desenho1.dxf");
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    QSettings().setValue(kFolderKey, dialog.directory().absolutePath());
    if (question.format != nullptr)
        *question.format = static_cast<std::size_t>(
            std::max<qsizetype>(0, formats.indexOf(dialog.selectedNameFilter())));
    return toPath(dialog.selectedFiles().constFirst());
}

void DrawingFiles::fail(const QString& what, const Error& error) {
    QMessageBox::warning(&m_window, "Prancheta",
                         what + "\n\n" + QString::fromStdString(error.message()));
}

ChangedFile DrawingFiles::replaceChanged() {
    QMessageBox box(QMessageBox::Warning, "Prancheta",
                    toQString(m_editor->file().name().filename()) +
                        " foi mudado por outro programa desde que foi aberto. Salvar substitui o "
                        "que o outro gravou.",
                    QMessageBox::NoButton, &m_window);
    box.setObjectName("arquivoMudado");
    const QPushButton* const replace = box.addButton("&Sobrescrever", QMessageBox::DestructiveRole);
    const QPushButton* const other =
        box.addButton("Salvar com &outro nome", QMessageBox::AcceptRole);
    box.setEscapeButton(box.addButton("&Cancelar", QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == replace) return ChangedFile::Replace;
    return box.clickedButton() == other ? ChangedFile::SaveElsewhere : ChangedFile::Keep;
}

bool DrawingFiles::save() {
    std::filesystem::path target = m_editor->file().name();
    if (m_editor->file().changedOutside()) {
        const ChangedFile what = replaceChanged();
        if (what == ChangedFile::Keep) return false;
        if (what == ChangedFile::SaveElsewhere)
            target = choose({FileQuestion::Purpose::Save, target});
        if (target.empty()) return false;
    }
    if (target.empty()) target = choose({FileQuestion::Purpose::Save, {}});
    if (target.empty()) return false;
    const Result<void> saved = m_editor->file().save(target);
    if (saved) {
        remember();
        return true;
    }
    fail("O desenho não foi salvo; ele continua aberto.", saved.error());
    return false;
}

bool DrawingFiles::mayLeave() {
    if (m_editor == nullptr || !m_editor->file().modified()) return true;
    const std::filesystem::path file = m_editor->file().name();
    const QString name = file.empty() ? "Desenho1.dxf" : toQString(file.filename());
    QMessageBox box(QMessageBox::Question, "Prancheta",
                    "Salvar as alterações feitas em " + name + "?", QMessageBox::NoButton,
                    &m_window);
    box.setObjectName("salvarAlteracoes");
    const QPushButton* const keep = box.addButton("&Salvar", QMessageBox::AcceptRole);
    const QPushButton* const drop = box.addButton("&Não salvar", QMessageBox::DestructiveRole);
    box.addButton("&Cancelar", QMessageBox::RejectRole);
    box.exec();
    if (box.clickedButton() == keep) return save();
    return box.clickedButton() == drop;
}

bool DrawingFiles::open(const std::filesystem::path& path) {
    if (!mayLeave()) return false;
    dxf::LoadReport findings;
    const Result<void> opened = m_editor->file().open(path, &findings);
    if (opened) {
        printFindings(*m_editor, findings);
        remember();
        return true;
    }
    fail("O desenho não foi aberto; o atual continua.", opened.error());
    return false;
}

QStringList DrawingFiles::recent() const {
    QStringList files = QSettings().value(kRecentKey).toStringList();
    files.removeIf([](const QString& file) { return !QFileInfo::exists(file); });
    return files;
}

/// Both may work on: who saves last is asked, the file is replaced as a whole, and the former one
/// stays as .bak.
void DrawingFiles::mark() {
    const std::filesystem::path file = m_editor->file().name();
    if (file == m_marked) return;
    m_marked = file;
    m_mark.reset();
    if (file.empty()) return;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                           "/prancheta/abertos";
    QDir().mkpath(folder);
    const QByteArray name =
        QCryptographicHash::hash(toQString(file).toUtf8(), QCryptographicHash::Sha1).toHex();
    m_mark = std::make_unique<QLockFile>(folder + "/" + name + ".lock");
    // However long a window lives; one that died marks nothing.
    m_mark->setStaleLockTime(0);
    if (m_mark->tryLock(0) || m_mark->error() != QLockFile::LockFailedError) return;
    auto* const box = new QMessageBox(
        QMessageBox::Warning, "Prancheta",
        toQString(file.filename()) +
            " já está aberto em outra janela. Quem salvar depois da outra será perguntado."
            " Só um dos dois trabalhos pode ficar neste arquivo.",
        QMessageBox::Ok, &m_window);
    box->setObjectName("abertoEmOutra");
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void DrawingFiles::remember() {
    if (m_editor == nullptr) return;
    mark();
    if (m_editor->file().name().empty()) return;
    const QString file = toQString(m_editor->file().name());
    QSettings settings;
    QStringList files = settings.value(kRecentKey).toStringList();
    if (!files.isEmpty() && files.constFirst() == file) return;
    files.removeAll(file);
    files.prepend(file);
    settings.setValue(kRecentKey, QStringList(files.mid(0, kMostRecent)));
    emit recentChanged();
}

QString DrawingFiles::title() const {
    const bool unnamed = m_editor == nullptr || m_editor->file().name().empty();
    const QString name = unnamed ? "Desenho1.dxf" : toQString(m_editor->file().name().filename());
    return name + "[*] — Prancheta";
}

}  // namespace prancheta::desktop
