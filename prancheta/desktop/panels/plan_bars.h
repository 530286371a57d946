// SPDX-License-Identifier: MIT
// Bars of cutting plans, drawn to scale one below the other.
#pragma once

#include <QAbstractScrollArea>

#include <vector>

namespace prancheta::desktop {

/// Lengths in mm.
struct PlanCut {
    QString marca;
    double at = 0.0;  ///< from the bar's left end
    double length = 0.0;
};
struct PlanBar {
    double length = 0.0;
    int count = 1;  ///< cut alike
    bool leftOver = false;
    double rest = 0.0;
    double utilisation = 0.0;  ///< 0 to 1
    QString words;             ///< all cuts
    std::vector<PlanCut> cuts;
};
/// The bars of one product below the lines that tell of it.
struct PlanProduct {
    QString line;
    QStringList notes;  ///< of what fits no bar
    std::vector<PlanBar> bars;
};

/// The longest bar is as wide as the view. Paints what is in sight; the tip of a piece tells its
/// mark and length, that of a bar all its cuts.
class PlanBars : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit PlanBars(QWidget* parent = nullptr);

    void setProducts(std::vector<PlanProduct> products);
    const std::vector<PlanProduct>& products() const { return m_products; }
    /// Where the bar is drawn, in the viewport.
    QRectF rectOf(std::size_t product, std::size_t bar) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    /// A line of text or a bar.
    struct Item {
        const QString* text = nullptr;
        const PlanBar* bar = nullptr;
        bool note = false;
        int top = 0;  ///< below the first one's
        int height = 0;
    };
    void layOut();
    int room() const;
    QRectF rectOf(const Item& item) const;
    std::vector<Item>::const_iterator itemAt(int y) const;
    void paintText(QPainter& painter, const Item& item) const;
    void paintBar(QPainter& painter, const Item& item) const;
    QString tipAt(const QPoint& at) const;

    std::vector<PlanProduct> m_products;
    std::vector<Item> m_items;
    double m_longest = 1.0;
};

}  // namespace prancheta::desktop
