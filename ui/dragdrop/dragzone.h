#pragma once

#include "dragzoneattachedobject.h"
#include "imouseeventproxy.h"
#include "mimedata.h"

#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class DragZonePrivate;

/*!
    Makes the items inside it things that can be dragged to other places and to other applications.

    A drag begins when the left button is pressed on an item inside the zone and the pointer then
    goes 25 logical pixels or more (horizontally and vertically added up). It carries what
    \l mimeData makes of itself at that moment, and the platform's drag and drop takes over: other
    items of the window, other windows and other processes may take it, as a copy, a move or a link.

    An item made from \l dragDelegate follows the pointer while that is over the zone's window. Its
    root knows more through the attached properties; see DragZoneAttachedObject.

    A click is left to the item it hits, and so is a drag as long as that item keeps the mouse to
    itself (\c keepMouseGrab, as a DragHandle does). A control that takes the mouse events of the
    items inside it can hand them on through proxyMouseEvent(). Of zones inside each other, one
    drags.

    A drag ends with the drop, with Escape, and where something goes that it cannot do without: the
    zone's window is hidden or destroyed, or its QObject parent, its payload, its delegate or its
    QML engine is. In each case dragActiveChanged() and dragEnded() come once. While it lasts the
    zone has no QObject parent, so that it lives until the end; where the parent is gone then, the
    zone goes as well. One that is deleted outright in the middle of a drag cancels it without these
    signals.

    QML: \c UiDragZone.
*/
class TAMBERUI_EXPORT DragZone
    : public QQuickItem
    , public IMouseEventProxy
{
    Q_OBJECT
    Q_INTERFACES(ta::ui::IMouseEventProxy)
    Q_PROPERTY(QQmlComponent *dragDelegate READ dragDelegate WRITE setDragDelegate NOTIFY
                   dragDelegateChanged)
    Q_PROPERTY(ta::ui::MimeData *mimeData READ mimeData WRITE setMimeData NOTIFY mimeDataChanged)
    Q_PROPERTY(bool dragEnabled READ isDragEnabled WRITE setDragEnabled NOTIFY dragEnabledChanged)
    Q_PROPERTY(bool dragActive READ isDragActive NOTIFY dragActiveChanged)

public:
    explicit DragZone(QQuickItem *parent = nullptr);
    ~DragZone() override;

    /// The component of the item that follows the pointer, made anew for each drag. Not owned; null
    /// by default. A component that cannot be created, or whose root is no item, shows nothing.
    QQmlComponent *dragDelegate() const;
    void setDragDelegate(QQmlComponent *component);

    /// What a drag carries. Not owned; null by default. Without it, or while it is not valid, no
    /// drag begins.
    MimeData *mimeData() const;
    void setMimeData(MimeData *mimeData);

    /// Whether the zone reacts to the mouse at all; true by default. A drag in progress goes on.
    bool isDragEnabled() const;
    void setDragEnabled(bool enabled);

    /// Whether something is being dragged: from the move that begins the drag to its end.
    bool isDragActive() const;

    bool eventFilter(QObject *watched, QEvent *event) override;
    bool proxyMouseEvent(QMouseEvent *event) override;

    static DragZoneAttachedObject *qmlAttachedProperties(QObject *object);

Q_SIGNALS:
    void dragEnabledChanged();
    void dragActiveChanged();
    void dragDelegateChanged();
    void mimeDataChanged();
    /// The left button, and no other, was pressed on an item inside the zone.
    void mousePressed();
    /// A button was released that went down on an item inside the zone; not after a drag, which has
    /// taken the mouse from that item.
    void mouseReleased();
    /// The pointer has gone far enough; the platform's drag begins right afterwards.
    void dragStarted();
    /// The drag is over, be it with a drop or without.
    void dragEnded();

protected:
    bool childMouseEventFilter(QQuickItem *item, QEvent *event) override;
    bool event(QEvent *event) override;

private Q_SLOTS:
    void doDrag();

private:
    friend class DragZonePrivate;
    const std::unique_ptr<DragZonePrivate> d;
};

} // namespace ta::ui

QML_DECLARE_TYPEINFO(ta::ui::DragZone, QML_HAS_ATTACHED_PROPERTIES)
