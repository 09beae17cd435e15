#include "buttonbase.h"

#include "pointerstate_p.h"

#include "foundation/mousegrab.h"

#include <QtQuick/QQuickWindow>

namespace ta::ui {

class ButtonBasePrivate : public PointerState<ButtonBase>
{
public:
    using PointerState::PointerState;

    void takeFocus();

    bool activeFocusOnPress = false;
    bool stealEditFocus = false;
    bool down = false;
    bool pressFromDoubleClick = false;
    bool interactive = true;
};

namespace {

bool isActivationKey(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
}

} // namespace

void ButtonBasePrivate::takeFocus()
{
    if (activeFocusOnPress) {
        q->forceActiveFocus();
        return;
    }
    if (!stealEditFocus || !q->window())
        return;
    // Only an item that edits text knows where its cursor is.
    QQuickItem *focusItem = q->window()->activeFocusItem();
    if (focusItem && focusItem->inputMethodQuery(Qt::ImCursorPosition).isValid())
        focusItem->setFocus(false);
}

ButtonBase::ButtonBase(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<ButtonBasePrivate>(this))
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(true);
}

ButtonBase::~ButtonBase() = default;

bool ButtonBase::hovered() const
{
    return d->hovered;
}

bool ButtonBase::pressed() const
{
    return d->pressed;
}

bool ButtonBase::isDown() const
{
    return d->down;
}

void ButtonBase::setDown(bool down)
{
    if (assign(d->down, down))
        Q_EMIT downChanged();
}

bool ButtonBase::activeFocusOnPress() const
{
    return d->activeFocusOnPress;
}

void ButtonBase::setActiveFocusOnPress(bool focus)
{
    if (assign(d->activeFocusOnPress, focus))
        Q_EMIT activeFocusOnPressChanged();
}

bool ButtonBase::stealEditFocus() const
{
    return d->stealEditFocus;
}

void ButtonBase::setStealEditFocus(bool steal)
{
    if (assign(d->stealEditFocus, steal))
        Q_EMIT stealEditFocusChanged();
}

bool ButtonBase::isInteractive() const
{
    return d->interactive;
}

void ButtonBase::setInteractive(bool interactive)
{
    d->interactive = interactive;
    if (!interactive)
        d->setHoveredAndPressed(false, false);
}

void ButtonBase::keyPressEvent(QKeyEvent *event)
{
    if (!d->interactive || !isActivationKey(event->key())) {
        event->ignore();
        return;
    }
    event->accept();
    d->setPressed(true);
}

// Every release clicks, even one whose press went to another item: the focus may have come here
// while the key was down.
void ButtonBase::keyReleaseEvent(QKeyEvent *event)
{
    if (!d->interactive || !isActivationKey(event->key())) {
        event->ignore();
        return;
    }
    event->accept();
    const QPointer<ButtonBase> guard(this);
    d->setPressed(false);
    if (guard)
        Q_EMIT clicked(event->modifiers());
}

void ButtonBase::mousePressEvent(QMouseEvent *event)
{
    if (!d->interactive)
        return;
    const QPointer<ButtonBase> guard(this);
    d->setPressed(true);
    if (guard) {
        d->pressFromDoubleClick = event->flags().testFlag(Qt::MouseEventCreatedDoubleClick);
        d->takeFocus();
    }
    event->accept(); // and so grab the mouse
}

void ButtonBase::mouseMoveEvent(QMouseEvent *event)
{
    if (!d->interactive)
        return;
    const bool inside = contains(event->localPos());
    d->setHoveredAndPressed(inside, inside);
    event->accept();
}

void ButtonBase::mouseReleaseEvent(QMouseEvent *event)
{
    if (!d->interactive)
        return;
    const QPointer<ButtonBase> guard(this);
    d->setPressed(false);
    event->accept();
    if (guard && contains(event->localPos()) && !d->pressFromDoubleClick)
        Q_EMIT clicked(event->modifiers());
}

void ButtonBase::mouseUngrabEvent()
{
    d->setPressed(false);
}

// The release of a key that is still down will go to whoever has the focus then. A button that
// loses it because it was disabled ends hover first.
void ButtonBase::focusOutEvent(QFocusEvent *event)
{
    QQuickItem::focusOutEvent(event);
    const bool isHeld = window() && window()->mouseGrabberItem() == this;
    if (isEnabled() && !isHeld)
        d->setPressed(false);
}

void ButtonBase::hoverEnterEvent(QHoverEvent *event)
{
    if (!d->interactive)
        return;
    d->setHovered(true);
    event->accept();
}

void ButtonBase::hoverLeaveEvent(QHoverEvent *event)
{
    if (!d->interactive)
        return;
    d->setHovered(false);
    event->accept();
}

void ButtonBase::releaseResources()
{
    endMouseGrab(this);
}

} // namespace ta::ui
