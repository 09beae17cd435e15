#pragma once

#include "popupanchor.h"

#include <QtCore/QPointer>

class QQmlEngine;

namespace ta::ui {

class PopupAnchorPrivate
{
public:
    explicit PopupAnchorPrivate(PopupAnchor *q) : q(q) {}

    bool canCreate() const { return q->window() && q->isComponentComplete(); }
    void createLayer();
    void createPopupItem();
    void adopt(QQuickItem *item);
    void popupItemDestroyed();
    void releasePopupItem();

    void resume();
    void follow();
    void present();
    void dismiss();
    void joinStack();
    void leaveStack();
    void rememberFocus();
    void returnFocus();
    void setPopupEnabled(bool enabled);

    bool press(const QPointF &screenPosition);
    bool wheel(const QPointF &screenPosition) const;
    bool key(int key);
    bool tab(bool forward) const;
    bool isInsidePopup(const QQuickItem *item) const;

    PopupAnchor *const q;
    bool popupVisible = false;
    bool persistent = false;
    bool autoLayout = false;
    bool preventAutoScroll = true;
    QPointer<QQuickItem> popupLayer; // owned by the anchor
    QPointer<QQmlComponent> popup;
    QPointer<QQuickItem> popupItem; // owned by the anchor until it is released
    QPointer<QQmlEngine> itemEngine; // of popupItem
    int itemLevel = 1; // when it was made, see destroyLater()
    QPointer<QQuickItem> triggerItem;
    PopupAnchor::PopupCreationPolicy popupCreationPolicy = PopupAnchor::OnDemandCreation;
    int distanceTop = 0;
    int distanceBottom = 0;
    int distanceLeft = 0;
    int distanceRight = 0;

    bool creationPending = false; // asked for while canCreate() was false
    bool creating = false;
    bool onStack = false;
    QSize windowSize; // when the popup was shown
    QPointer<QQuickItem> previousFocusItem; // as that of a dialog
    int visibilityChanges = 0;
    int placements = 0;
    QMetaObject::Connection frameConnection;
    QMetaObject::Connection windowConnection;
    QMetaObject::Connection itemConnection;
};

} // namespace ta::ui
