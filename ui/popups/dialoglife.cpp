#include "dialog_p.h"

#include "destroylater_p.h"
#include "focusitem_p.h"
#include "popupstack.h"

#include "foundation/createobject.h"

#include <QtQml/QQmlEngine>
#include <QtQml/QQmlError>
#include <QtQml/qqml.h>

#include <utility>

// How a dialog opens and closes.

namespace ta::ui {

SharedComponent DialogPrivate::m_sharedHostComponent("qrc:/ui/components/UiDialogHost.qml");
SharedComponent DialogPrivate::m_sharedHeaderComponent("qrc:/ui/components/UiDialogHeader.qml");
SharedComponent DialogPrivate::m_sharedFooterComponent("qrc:/ui/components/UiDialogFooter.qml");
QVector<DialogPrivate *> DialogPrivate::s_shown;
int DialogPrivate::s_creations = 0;
QVector<QPointer<Dialog>> DialogPrivate::s_waiting;

namespace {

constexpr qreal kHostZ = 65635; // as the layers of popups: what opens later lies above

const QQuickItem *nearestItem(const QObject *object)
{
    for (const QObject *parent = object->parent(); parent; parent = parent->parent()) {
        if (const auto *item = qobject_cast<const QQuickItem *>(parent))
            return item;
    }
    return nullptr;
}

// The content item of the window of the nearest item above \a object.
QQuickItem *findHostParent(const QObject *object)
{
    const QQuickItem *item = nearestItem(object);
    return item && item->window() ? item->window()->contentItem() : nullptr;
}

void printErrors(const QQmlComponent &component)
{
    const QList<QQmlError> errors = component.errors();
    for (const QQmlError &error : errors)
        qCritical("%s", qPrintable(error.toString()));
}

} // namespace

// --- Opening ------------------------------------------------------------------------------------

// Any code may run where items are made, get the focus or change their size: it may destroy the
// dialog, close it, or close it and show it again.
void DialogPrivate::open()
{
    if (!hostParent)
        hostParent = findHostParent(q);
    // A dialog that is still on the stack was shown by a handler of its own close; it remembers.
    if (!onStack)
        previousFocusItem = focusItem(window());

    const QPointer<Dialog> guard(q);
    const QPointer<QQuickItem> created = createHost();
    if (!guard)
        return;
    if (!created) {
        restoreFocus(); // the content may have had it before it failed
        return;
    }
    const auto isOver = [&] { return !guard || !created || host != created; };
    host = created;
    contentScope = host->findChild<QQuickItem *>(QStringLiteral("_ta_dialogContent"));
    watch();
    if (!takeFocus())
        return;
    content = host->findChild<QQuickItem *>(QStringLiteral("_ta_dialogItem"));
    if (content)
        Q_EMIT q->contentChanged();
    if (isOver())
        return;
    joinStack();
    // The key that opened it may be down still: held for long, or released in the default button,
    // it would answer what nobody has read.
    heldBefore = new HeldKeyFilter(q);
    updateDialogSize();
    if (!isOver())
        Q_EMIT q->opened();
}

// Returns whether the dialog is as it was after that.
bool DialogPrivate::takeFocus()
{
    const QPointer<Dialog> guard(q);
    const QPointer<QQuickItem> shown = host;
    const QPointer<QQuickItem> previous = previousFocusItem;
    const HostUse use(this);
    if (contentScope)
        contentScope->forceActiveFocus();
    if (guard && shown && host == shown)
        return true;
    // A handler closed it and so gave the focus back, in the middle of moving it here.
    if (previous && !(guard && host))
        previous->forceActiveFocus();
    return false;
}

// Returns null where there is no host in the end, and says why.
QQuickItem *DialogPrivate::createHost()
{
    QQmlComponent *component = m_sharedHostComponent.get(hostComponent, q);
    if (!component) {
        qCritical("A dialog cannot be shown without its QML engine");
        return nullptr;
    }
    if (!component->isReady()) {
        printErrors(*component);
        return nullptr;
    }
    const ComponentReference reference = hostComponent; // the dialog may be destroyed on the way
    const QPointer<Dialog> guard(q);
    const bool hadParent = hostParent;
    hostLevel = loopLevel();
    ++locks;
    ++s_creations;
    const QPointer<QObject> created = createObject(
        component,
        [this](QObject *object) {
            object->setParent(q);
            if (auto *item = qobject_cast<QQuickItem *>(object)) {
                item->setParentItem(hostParent);
                item->setZ(kHostZ);
            }
            object->setProperty("dialog", QVariant::fromValue(q));
            QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
        },
        qmlContext(q));
    --s_creations;
    if (!guard)
        return nullptr;
    --locks;
    if (hadParent && !hostParent) { // the content destroyed the window
        delete created;
        return nullptr;
    }
    if (!created) {
        qCritical("The items of a dialog cannot be made");
        printErrors(*component);
    }
    return qobject_cast<QQuickItem *>(created);
}

// What may happen to a dialog from outside while it is shown. One that is below the top of the
// stack sees no events, so it follows its window by signals.
void DialogPrivate::watch()
{
    s_shown.append(this);
    connections.append(QObject::connect(host, &QObject::destroyed, q, [this] { rejectLost(); }));
    for (const auto &button : qAsConst(buttons))
        watchButton(button);
    if (hostParent) {
        watchWindow();
    } else if (const QQuickItem *item = nearestItem(q)) {
        // Queued: what is entering a window has its focus there last.
        connections.append(QObject::connect(
            item, &QQuickItem::windowChanged, q, [this] { enterWindow(); }, Qt::QueuedConnection));
    }
}

void DialogPrivate::watchWindow()
{
    QQuickWindow *parentWindow = window();
    if (!parentWindow)
        return;
    const auto follow = [this] {
        if (autoSize)
            updateDialogSize();
    };
    connections.append(
        QObject::connect(hostParent, &QObject::destroyed, q, [this] { rejectLost(); }));
    connections.append(QObject::connect(parentWindow, &QWindow::widthChanged, q, follow));
    connections.append(QObject::connect(parentWindow, &QWindow::heightChanged, q, follow));
}

// It was shown before its item was in a window, as where a component is completed: nobody could see
// what keeps all input away.
void DialogPrivate::enterWindow()
{
    if (!host || hostParent)
        return;
    hostParent = findHostParent(q);
    if (!hostParent)
        return;
    previousFocusItem = focusItem(window());
    watchWindow();
    const QPointer<Dialog> guard(q);
    const QPointer<QQuickItem> entering = host;
    const HostUse use(this);
    host->setParentItem(hostParent);
    if (guard && entering && host == entering && takeFocus())
        updateDialogSize();
}

// The footer takes a button that is destroyed off the screen.
void DialogPrivate::watchButton(const DialogButton *button)
{
    if (button) {
        connections.append(QObject::connect(button, &QObject::destroyed, q,
                                            [this] { Q_EMIT q->buttonsChanged(); }));
    }
}

void DialogPrivate::updateDialogSize()
{
    if (!contentScope)
        return;
    qreal newWidth = width;
    qreal newHeight = height;
    if (autoSize) {
        const QQuickWindow *hostWindow = host ? host->window() : nullptr;
        if (!hostWindow)
            return;
        newWidth = qMax(0.0, hostWindow->width() - 2.0 * autoSizeMargins.x());
        newHeight = qMax(0.0, hostWindow->height() - 2.0 * autoSizeMargins.y());
    }
    const QPointer<Dialog> guard(q);
    const QPointer<QQuickItem> scope = contentScope;
    const HostUse use(this);
    const auto applies = [&](qreal size) { return guard && scope && (autoSize || size > 0); };
    if (applies(newWidth))
        scope->setWidth(newWidth);
    if (applies(newHeight))
        scope->setHeight(newHeight);
}

// One of the properties that the size depends on has changed, which \a changed tells.
void DialogPrivate::resized(void (Dialog::*changed)())
{
    const QPointer<Dialog> guard(q);
    updateDialogSize();
    if (guard)
        Q_EMIT(q->*changed)();
}

// --- Closing ------------------------------------------------------------------------------------

// What is being pressed in there must not become a click any more.
void DialogPrivate::endPress(const QQuickItem *closing)
{
    QQuickItem *grabber = closing->window() ? closing->window()->mouseGrabberItem() : nullptr;
    wasPressed = isInside(closing, grabber);
    if (wasPressed)
        grabber->ungrabMouse();
}

// Lets the host fade; it destroys itself at the end of that.
void DialogPrivate::discard()
{
    if (!qmlEngine(host)) { // gone: nothing fades any more
        discardImmediate();
        return;
    }
    const QPointer<QQuickItem> closing = host;
    const QPointer<Dialog> guard(q);
    host.clear();
    ++locks;
    QQmlEngine::setObjectOwnership(closing, QQmlEngine::JavaScriptOwnership);
    QMetaObject::invokeMethod(closing, "discard");
    if (closing)
        endPress(closing);
    if (!guard)
        return;
    --locks;
    close(closing);
}

void DialogPrivate::discardImmediate()
{
    const QPointer<QQuickItem> closing = host;
    const QPointer<Dialog> guard(q);
    host.clear();
    ++locks;
    endPress(closing);
    if (closing)
        closing->setParentItem(nullptr);
    if (closing && qmlEngine(closing))
        QMetaObject::invokeMethod(closing, "clear");
    if (closing)
        closing->deleteLater();
    if (!guard)
        return;
    --locks;
    close(closing);
}

// There is no host any more.
void DialogPrivate::forget()
{
    close(nullptr);
}

void DialogPrivate::close(const QQuickItem *closing)
{
    for (const QMetaObject::Connection &connection : qAsConst(connections))
        QObject::disconnect(connection);
    connections.clear();
    delete heldBefore;
    s_shown.removeOne(this);
    bequeathFocus(closing, previousFocusItem);
    contentScope.clear();
    content.clear();

    const QPointer<Dialog> guard(q);
    Q_EMIT q->contentChanged();
    if (!guard || host) // shown again: it is on the stack and remembers the focus as before
        return;
    leaveStack();
    // A dialog below must not be left without the focus: none of its keys would work.
    const auto *top = qobject_cast<Dialog *>(PopupStack::top());
    if (!previousFocusItem && top && top->d->window() == window() && top->d->contentScope
        && !top->d->contentScope->hasActiveFocus())
        previousFocusItem = top->d->contentScope;
    restoreFocus();
}

// Closes and gives the \a answer.
void DialogPrivate::end(void (DialogPrivate::*leave)(), const std::function<void()> &answer)
{
    const QPointer<Dialog> guard(q);
    const HostUse use(this);
    (this->*leave)();
    if (guard)
        answer();
}

// What is left of the dialog's items dies with the dialog, unless one of them is in the middle of
// an event: a button whose click brought the answer that destroys the dialog, for instance.
void DialogPrivate::releaseHosts()
{
    const auto hosts = q->findChildren<QQuickItem *>(QString(), Qt::FindDirectChildrenOnly);
    for (QQuickItem *item : hosts) {
        const QQuickItem *grabber = item->window() ? item->window()->mouseGrabberItem() : nullptr;
        if (uses > 0 || locks > 1 || wasPressed || (grabber && item->isAncestorOf(grabber))) {
            item->setParent(qmlEngine(item)); // for the case that the application ends before
            item->setOpacity(0);
            destroyLater(item, hostLevel, 0);
        }
    }
}

// Its window or its host was destroyed.
void DialogPrivate::rejectLost()
{
    const auto answer = [this] { Q_EMIT q->rejected(); };
    if (host)
        end(&DialogPrivate::discardImmediate, answer);
    else
        end(&DialogPrivate::forget, answer);
}

void DialogPrivate::joinStack()
{
    leaveStack();
    onStack = true;
    PopupStack::push(q);
}

void DialogPrivate::leaveStack()
{
    if (std::exchange(onStack, false))
        PopupStack::pop(q);
}

void DialogPrivate::bequeathFocus(const QQuickItem *closing, QPointer<QQuickItem> &focusItem)
{
    for (DialogPrivate *other : qAsConst(s_shown)) {
        if (isInside(closing, other->previousFocusItem))
            other->previousFocusItem = std::exchange(focusItem, nullptr);
    }
}

void DialogPrivate::restoreFocus()
{
    QQuickItem *item = std::exchange(previousFocusItem, nullptr);
    const int key = std::exchange(heldKey, 0);
    if (!item)
        return;
    // The key that closed the dialog is still down: released in the button that opened it, it would
    // open it again.
    if (key)
        HeldKeyFilter::swallowRest(key);
    item->forceActiveFocus();
}

} // namespace ta::ui
