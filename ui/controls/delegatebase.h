#pragma once

#include "../foundation/export.h"

#include <QtGui/QColor>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class DelegateBasePrivate;

/*!
    The base of a delegate of a list or grid: hover and press of the left mouse button, clicks, and
    a background of one colour.

    The background fills the item and belongs to the same draw call as those of other delegates with
    the same colour. Everything else of the look is the host's, which follows \l hovered,
    \l pressed and the two flags that only the host sets.

    QML: \c UiDelegateBase of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT DelegateBase : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged)
    Q_PROPERTY(bool pressed READ isPressed NOTIFY pressedChanged)
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)
    Q_PROPERTY(bool defocused READ isDefocused WRITE setDefocused NOTIFY defocusedChanged)
    Q_PROPERTY(QColor __color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit DelegateBase(QQuickItem *parent = nullptr);
    ~DelegateBase() override;

    /// Whether the pointer is over the delegate.
    bool isHovered() const;

    /// Whether the left button is held and the pointer is inside. Not to be confused with the
    /// signal.
    bool isPressed() const;

    /// For the host's styling: for instance the current or a selected entry. False by default.
    bool isActive() const;
    void setActive(bool active);

    /// For the host's styling: for instance an entry of a view without the focus. False by default.
    bool isDefocused() const;
    void setDefocused(bool defocused);

    /// The colour of the background; transparent white by default.
    QColor color() const;
    void setColor(const QColor &color);

Q_SIGNALS:
    /// Every press of the left button.
    void pressed(Qt::KeyboardModifiers modifiers);
    /// A release inside, at \a position in the delegate; both of a double click are clicks, too.
    void clicked(const QPointF &position, Qt::KeyboardModifiers modifiers);
    void doubleClicked(const QPointF &position, Qt::KeyboardModifiers modifiers);
    void hoveredChanged();
    void pressedChanged();
    void activeChanged();
    void defocusedChanged();
    void colorChanged();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void releaseResources() override;
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    friend class DelegateBasePrivate;
    const std::unique_ptr<DelegateBasePrivate> d;
};

} // namespace ta::ui
