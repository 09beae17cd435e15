#pragma once

#include "../foundation/export.h"

#include <QtQuick/QQuickItem>

namespace ta::ui {

/*!
    Keeps input over a popup from reaching what lies below it.

    The background covers its parent item exactly (where that arranges its children, it has no size
    of its own, lest it be arranged with them), below the parent's other children, and accepts every
    mouse, wheel, touch and hover event that none of those took. A press on it moves the active
    focus into the popup. It draws nothing.
*/
class TAMBERUI_EXPORT PopupBackground : public QQuickItem
{
    Q_OBJECT

public:
    /// \a parent is the popup's root item; it must not be null.
    explicit PopupBackground(QQuickItem *parent);
    ~PopupBackground() override;

    /// Whether \a point lies over the parent item.
    bool contains(const QPointF &point) const override;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void touchEvent(QTouchEvent *event) override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverMoveEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;

private Q_SLOTS:
    void updateWidth();
    void updateHeight();
};

} // namespace ta::ui
