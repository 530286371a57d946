// SPDX-License-Identifier: MIT
// Popup in which a colour of the palette is clicked.
#pragma once

#include <QWidget>

namespace prancheta::desktop {

/// Shows the 255 colours, and ByLayer and ByBlock when they are wanted. Deletes itself when it
/// closes.
class ColorPopup : public QWidget {
    Q_OBJECT
public:
    enum class Logical { No, Yes };

    ColorPopup(int current, Logical logical, QWidget* parent);
    /// Shows it with its upper left corner there, global, or as near as the whole of it stays on
    /// the screen.
    void showAt(const QPoint& where);

signals:
    /// 1..255, 256 by layer, 0 by block.
    void chosen(int color);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    int colorAt(const QPoint& where) const;
    QRect cell(int color) const;
    QString caption() const;

    int m_current;
    int m_hovered = -1;
    bool m_logical;
};

}  // namespace prancheta::desktop
