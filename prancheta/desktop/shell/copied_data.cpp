// SPDX-License-Identifier: MIT
// What the window offers to other programs, and takes from them.
#include "prancheta/desktop/shell/copied_data.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>

#include "prancheta/desktop/shell/drawing_files.h"
#include "prancheta/plot/image.h"

namespace prancheta::desktop {
namespace {

/// A drawing's file as text.
constexpr auto kDxf = "image/vnd.dxf";
/// "x y z", world coordinates, between windows of this program.
constexpr auto kBase = "application/x-prancheta-base";
constexpr auto kImage = "application/x-qt-image";
constexpr int kImagePixels = 1600;

const QMimeData* offered() { return QGuiApplication::clipboard()->mimeData(); }

std::optional<AcGePoint3d> baseOf(const QMimeData& data) {
    const QList<QByteArray> numbers = data.data(kBase).split(' ');
    if (numbers.size() != 3) return {};
    return AcGePoint3d(numbers[0].toDouble(), numbers[1].toDouble(), numbers[2].toDouble());
}

}  // namespace

CopiedData::CopiedData(const Clipboard& clipboard)
    : m_drawing(clipboard.drawing()), m_base(clipboard.base()) {}

QStringList CopiedData::formats() const {
    if (m_drawing.expired()) return {};
    return {kDxf, kBase, kImage};
}

QVariant CopiedData::retrieveData(const QString& format, QMetaType) const {
    const std::shared_ptr<AcDbDatabase> drawing = m_drawing.lock();
    if (!drawing) return {};
    if (format == kImage) return imageOf(*drawing, kImagePixels);
    if (format == kBase) {
        QByteArray text;
        for (const double v : {m_base.x, m_base.y, m_base.z})
            text += (text.isEmpty() ? "" : " ") + QByteArray::number(v, 'g', 17);
        return text;
    }
    const QTemporaryDir folder;
    Clipboard clipboard;
    clipboard.take(drawing, m_base);
    QFile file(folder.filePath("objetos.dxf"));
    if (format != kDxf || !clipboard.write(toPath(file.fileName())) ||
        !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

bool drawingIsOffered() {
    const QMimeData* const data = offered();
    return data != nullptr && data->hasFormat(kDxf);
}

Result<void> takeOfferedDrawing(Editor& editor, Clipboard& into) {
    const QMimeData* const data = offered();
    if (qobject_cast<const CopiedData*>(data) != nullptr || !drawingIsOffered()) return {};
    const QTemporaryDir folder;
    QFile file(folder.filePath("objetos.dxf"));
    const QByteArray text = data->data(kDxf);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return Error{
            "Não foi possível guardar o que outro programa copiou; libere espaço em disco."};
    file.close();
    Result<std::unique_ptr<AcDbDatabase>> drawing =
        readDrawing(editor, toPath(file.fileName()), nullptr);
    if (!drawing) return drawing.error();
    into.take(std::move(*drawing), baseOf(*data));
    return {};
}

}  // namespace prancheta::desktop
