#pragma once

#include "../foundation/export.h"

#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class DragHandlePrivate;

/*!
    A small item that tells how far the pointer has been dragged since it was pressed, for moving
    what lies beside it: a splitter, the edge of a panel, the border of a column.

    It shows a resize cursor, and keeps it wherever the pointer goes during a drag. Nothing takes
    the mouse from it: it works inside a flickable or a drag zone. It moves nothing by itself and
    draws nothing. The platform's drag and drop has no part in it.

    A drag ends with the release of the left button, and also when the handle is disabled, hidden or
    taken out of its window. A handle that is destroyed gives the application's cursor back without
    a signal.

    QML: \c UiDragHandle.
*/
class TAMBERUI_EXPORT DragHandle : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(DragDirection direction READ direction WRITE setDirection NOTIFY directionChanged)

public:
    /// The way in which the handle is dragged.
    enum DragDirection : int { Horizontal = 0, Vertical = 1 };
    Q_ENUM(DragDirection)

    explicit DragHandle(QQuickItem *parent = nullptr);
    ~DragHandle() override;

    /// Horizontal by default. A change sets the cursor to the one for the new direction; a drag in
    /// progress keeps the direction it began with.
    DragDirection direction() const;
    void setDirection(DragDirection direction);

Q_SIGNALS:
    void directionChanged();
    void dragBegin();
    /// The way from the press to where the pointer is now, in whole logical pixels of the screen;
    /// to the right and downwards are positive.
    void dragUpdate(double offset);
    void dragEnd();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void releaseResources() override;

private:
    friend class DragHandlePrivate;
    const std::unique_ptr<DragHandlePrivate> d;
};

} // namespace ta::ui
