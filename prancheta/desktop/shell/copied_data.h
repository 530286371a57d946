// SPDX-License-Identifier: MIT
// What the window offers to other programs when the user copies.
#pragma once

#include <QMimeData>

#include <memory>

#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// The clipboard's objects as DXF text and as an image, each made when somebody asks for it. It
/// does not keep them alive: once the clipboard holds others, or is gone, there is nothing.
class CopiedData : public QMimeData {
    Q_OBJECT
public:
    explicit CopiedData(const Clipboard& clipboard);

    QStringList formats() const override;
    bool hasFormat(const QString& format) const override { return formats().contains(format); }

protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override;

private:
    std::weak_ptr<AcDbDatabase> m_drawing;
    AcGePoint3d m_base;
};

/// True when the system's clipboard has a drawing, from here or from elsewhere.
bool drawingIsOffered();
/// Puts the drawing that another window or program offers into the editor's clipboard; what cannot
/// be read is an error and changes nothing. Nothing happens when there is none.
Result<void> takeOfferedDrawing(Editor& editor, Clipboard& into);

}  // namespace prancheta::desktop
