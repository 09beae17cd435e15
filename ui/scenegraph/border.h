#pragma once

#include "../foundation/export.h"

#include <QtGui/QColor>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class BorderPrivate;

/*!
    A frame along the inside of the item's own bounds, solid or dashed.

    The dashes begin at the top-left corner and run clockwise. Each of the other three corners is
    painted or left out as a whole. Nothing is drawn inside of the frame.

    QML: \c UiBorder.
*/
class TAMBERUI_EXPORT Border : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(int borderWidth READ borderWidth WRITE setBorderWidth NOTIFY borderWidthChanged)
    Q_PROPERTY(int dashWidth READ dashWidth WRITE setDashWidth NOTIFY dashWidthChanged)
    Q_PROPERTY(int gapWidth READ gapWidth WRITE setGapWidth NOTIFY gapWidthChanged)
    Q_PROPERTY(BorderStyle style READ style WRITE setStyle NOTIFY styleChanged)

public:
    explicit Border(QQuickItem *parent = nullptr);
    ~Border() override;

    /// Black by default.
    QColor color() const;
    void setColor(const QColor &color);

    /// In pixels of the item, 2 by default. Values below 1 are stored as 1. Where the item is
    /// smaller than two border widths the frame overlaps itself.
    int borderWidth() const;
    void setBorderWidth(int width);

    /// Length of a dash along the border in pixels of the item, 8 by default. Values below 1 are
    /// stored as 1. A solid border has no use for it.
    int dashWidth() const;
    void setDashWidth(int width);

    /// Length of the gap between two dashes, 4 by default; otherwise like dashWidth.
    int gapWidth() const;
    void setGapWidth(int width);

    // QML passes any number.
    enum BorderStyle : int { Solid = 0, Dashed = 1 };
    Q_ENUM(BorderStyle)

    /// Dashed by default. A border of any other style than the two is not drawn.
    BorderStyle style() const;
    void setStyle(BorderStyle style);

Q_SIGNALS:
    void colorChanged();
    void borderWidthChanged();
    void dashWidthChanged();
    void gapWidthChanged();
    void styleChanged();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    friend class BorderPrivate;
    const std::unique_ptr<BorderPrivate> d;
};

} // namespace ta::ui
