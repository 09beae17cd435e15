#include "dialog_p.h"

#include "heldkey_p.h"
#include "popupstack.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"

#include <QtQml/QQmlEngine>
#include <QtQml/QQmlError>
#include <QtQml/qqml.h>

#include <utility>

namespace ta::ui {

SharedComponent DialogPrivate::m_sharedHostComponent("qrc:/ui/components/UiDialogHost.qml");
SharedComponent DialogPrivate::m_sharedHeaderComponent("qrc:/ui/components/UiDialogHeader.qml");
SharedComponent DialogPrivate::m_sharedFooterComponent("qrc:/ui/components/UiDialogFooter.qml");
QVector<DialogPrivate *> DialogPrivate::s_shown;
int DialogPrivate::s_creations = 0;
QVector<QPointer<Dialog>> DialogPrivate::s_waiting;

namespace {

constexpr qreal kHostZ = 65635; // as the layers of popups: what opens later lies above

// The content item of the window of the nearest item above \a object.
QQuickItem *findHostParent(const QObject *object)
{
    for (const QObject *parent = object->parent(); parent; parent = parent->parent()) {
        if (const auto *item = qobject_cast<const QQuickItem *>(parent))
            return item->window() ? item->window()->contentItem() : nullptr;
    }
    return nullptr;
}

// The item of \a window that has the active focus. In a window that is not active none has: it is
// the one that gets it back with the window then.
QQuickItem *findFocusItem(const QQuickWindow *window)
{
    if (!window)
        return nullptr;
    if (QQuickItem *item = window->activeFocusItem())
        return item;
    QQuickItem *item = window->contentItem();
    while (item->isFocusScope() && item->scopedFocusItem())
        item = item->scopedFocusItem();
    return item == window->contentItem() ? nullptr : item;
}

void printErrors(const QQmlComponent &component)
{
    const QList<QQmlError> errors = component.errors();
    for (const QQmlError &error : errors)
        qCritical("%s", qPrintable(error.toString()));
}

DialogPrivate *listOwner(QQmlListProperty<DialogButton> *list)
{
    return static_cast<DialogPrivate *>(list->data);
}

void _ta_appendButton(QQmlListProperty<DialogButton> *list, DialogButton *button)
{
    DialogPrivate *d = listOwner(list);
    d->buttons.append(button);
    if (d->host)
        d->watchButton(button);
    Q_EMIT d->q->buttonsChanged();
}

int _ta_buttonCount(QQmlListProperty<DialogButton> *list)
{
    return listOwner(list)->buttons.count();
}

DialogButton *_ta_buttonAt(QQmlListProperty<DialogButton> *list, int index)
{
    return objectAt(listOwner(list)->buttons, index);
}

void _ta_clearButtons(QQmlListProperty<DialogButton> *list)
{
    DialogPrivate *d = listOwner(list);
    if (clearObjects(d->buttons))
        Q_EMIT d->q->buttonsChanged();
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
        previousFocusItem = findFocusItem(window());

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
    const QPointer<QQuickItem> previous = previousFocusItem;
    if (contentScope)
        contentScope->forceActiveFocus();
    if (isOver()) {
        // A handler closed it and so gave the focus back, in the middle of moving it here.
        if (previous && !(guard && host))
            previous->forceActiveFocus();
        return;
    }
    content = host->findChild<QQuickItem *>(QStringLiteral("_ta_dialogItem"));
    if (content)
        Q_EMIT q->contentChanged();
    if (isOver())
        return;
    joinStack();
    updateDialogSize();
    if (!isOver())
        Q_EMIT q->opened();
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
    if (QQuickWindow *parentWindow = window()) {
        const auto follow = [this] {
            if (autoSize)
                updateDialogSize();
        };
        connections.append(
            QObject::connect(hostParent, &QObject::destroyed, q, [this] { rejectLost(); }));
        connections.append(QObject::connect(parentWindow, &QWindow::widthChanged, q, follow));
        connections.append(QObject::connect(parentWindow, &QWindow::heightChanged, q, follow));
    }
    for (const auto &button : qAsConst(buttons))
        watchButton(button);
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
    closing->setParentItem(nullptr);
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
    s_shown.removeOne(this);
    bequeathFocus(closing);
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
    ++answers;
    (this->*leave)();
    if (guard)
        answer();
    if (guard)
        --answers;
}

// What is left of the dialog's items dies with the dialog, unless one of them is in the middle of
// an event: a button whose click brought the answer that destroys the dialog, for instance.
void DialogPrivate::releaseHosts()
{
    const auto hosts = q->findChildren<QQuickItem *>(QString(), Qt::FindDirectChildrenOnly);
    for (QQuickItem *item : hosts) {
        const QQuickItem *grabber = item->window() ? item->window()->mouseGrabberItem() : nullptr;
        if (answers > 0 || locks > 1 || (grabber && item->isAncestorOf(grabber))) {
            item->setParent(qmlEngine(item)); // for the case that the application ends before
            item->deleteLater();
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

// A dialog that was opened from this one and outlives it keeps the focus now, and gives it back
// later to the item that would get it here.
void DialogPrivate::bequeathFocus(const QQuickItem *closing)
{
    for (DialogPrivate *other : qAsConst(s_shown)) {
        if (closing && other->previousFocusItem
            && (closing == other->previousFocusItem
                || closing->isAncestorOf(other->previousFocusItem)))
            other->previousFocusItem = std::exchange(previousFocusItem, nullptr);
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

// --- The public class ---------------------------------------------------------------------------

Dialog::Dialog(QObject *parent) : QObject(parent), d(std::make_unique<DialogPrivate>(this)) {}

Dialog::~Dialog()
{
    ++d->locks;
    if (d->host)
        d->discard();
    d->leaveStack(); // a handler of the close itself may have destroyed the dialog
    d->restoreFocus();
    d->releaseHosts();
}

QString Dialog::label() const
{
    return d->label;
}

void Dialog::setLabel(const QString &label)
{
    if (assign(d->label, label))
        Q_EMIT labelChanged();
}

QString Dialog::instructionText() const
{
    return d->instructionText;
}

void Dialog::setInstructionText(const QString &text)
{
    if (assign(d->instructionText, text))
        Q_EMIT instructionTextChanged();
}

QVariant Dialog::result() const
{
    return d->result;
}

void Dialog::setResult(const QVariant &result)
{
    // Variants of different types may compare equal: 1 and "1" do.
    if (d->result.userType() == result.userType() && d->result == result)
        return;
    d->result = result;
    Q_EMIT resultChanged();
}

int Dialog::width() const
{
    return d->width;
}

void Dialog::setWidth(int width)
{
    if (assign(d->width, width))
        d->resized(&Dialog::widthChanged);
}

int Dialog::height() const
{
    return d->height;
}

void Dialog::setHeight(int height)
{
    if (assign(d->height, height))
        d->resized(&Dialog::heightChanged);
}

bool Dialog::autoSize() const
{
    return d->autoSize;
}

void Dialog::setAutoSize(bool autoSize)
{
    if (assign(d->autoSize, autoSize))
        d->resized(&Dialog::autoSizeChanged);
}

QPoint Dialog::autoSizeMargins() const
{
    return d->autoSizeMargins;
}

void Dialog::setAutoSizeMargins(const QPoint &margins)
{
    if (assign(d->autoSizeMargins, margins))
        d->resized(&Dialog::autoSizeMarginsChanged);
}

QQmlComponent *Dialog::headerDelegate() const
{
    return d->headerDelegate;
}

void Dialog::setHeaderDelegate(QQmlComponent *component)
{
    if (assign(d->headerDelegate, component))
        Q_EMIT headerDelegateChanged();
}

QQmlComponent *Dialog::contentDelegate() const
{
    return d->contentDelegate;
}

void Dialog::setContentDelegate(QQmlComponent *component)
{
    if (assign(d->contentDelegate, component))
        Q_EMIT contentDelegateChanged();
}

QQmlComponent *Dialog::footerDelegate() const
{
    return d->footerDelegate;
}

void Dialog::setFooterDelegate(QQmlComponent *component)
{
    if (assign(d->footerDelegate, component))
        Q_EMIT footerDelegateChanged();
}

QQmlComponent *Dialog::footerControls() const
{
    return d->footerControls;
}

void Dialog::setFooterControls(QQmlComponent *component)
{
    if (assign(d->footerControls, component))
        Q_EMIT footerControlsChanged();
}

QVariantMap Dialog::headerOptions() const
{
    return d->headerOptions;
}

void Dialog::setHeaderOptions(const QVariantMap &options)
{
    d->headerOptions = options;
}

QVariantMap Dialog::contentOptions() const
{
    return d->contentOptions;
}

void Dialog::setContentOptions(const QVariantMap &options)
{
    d->contentOptions = options;
}

QVariantMap Dialog::footerOptions() const
{
    return d->footerOptions;
}

void Dialog::setFooterOptions(const QVariantMap &options)
{
    d->footerOptions = options;
}

QQuickItem *Dialog::content() const
{
    return d->content;
}

QQmlListProperty<DialogButton> Dialog::buttons()
{
    return QQmlListProperty<DialogButton>(this, d.get(), _ta_appendButton, _ta_buttonCount,
                                          _ta_buttonAt, _ta_clearButtons);
}

DialogButton *Dialog::defaultButton() const
{
    return d->defaultButton;
}

void Dialog::setDefaultButton(DialogButton *button)
{
    if (assign(d->defaultButton, button))
        Q_EMIT defaultButtonChanged();
}

Dialog::Flags Dialog::flags() const
{
    return d->flags;
}

void Dialog::setFlags(Flags flags)
{
    if (assign(d->flags, flags))
        Q_EMIT flagsChanged();
}

bool Dialog::isBusy() const
{
    return d->busy;
}

void Dialog::setBusy(bool busy)
{
    if (assign(d->busy, busy))
        Q_EMIT busyChanged();
}

void Dialog::classBegin()
{
    d->headerDelegate = DialogPrivate::m_sharedHeaderComponent.get(d->headerComponent, this);
    d->footerDelegate = DialogPrivate::m_sharedFooterComponent.get(d->footerComponent, this);
}

void Dialog::componentComplete() {}

QQuickItem *Dialog::rootItem() const
{
    return d->host;
}

bool Dialog::preventAutoScroll() const
{
    return true;
}

void Dialog::show()
{
    if (d->host || d->locks > 0)
        return;
    if (DialogPrivate::s_creations > 0) {
        DialogPrivate::s_waiting.append(this);
        return;
    }
    d->open();
    while (!DialogPrivate::s_waiting.isEmpty()) {
        const QPointer<Dialog> next = DialogPrivate::s_waiting.takeFirst();
        if (next)
            next->show();
    }
}

void Dialog::reject()
{
    if (d->host)
        d->end(&DialogPrivate::discard, [this] { Q_EMIT rejected(); });
}

void Dialog::accept(QVariant result)
{
    if (d->host)
        d->end(&DialogPrivate::discard, [&] { Q_EMIT accepted(result); });
}

void Dialog::back()
{
    if (d->host)
        Q_EMIT previousPage();
}

void Dialog::forward()
{
    if (d->host)
        Q_EMIT nextPage();
}

void Dialog::trigger(DialogButton *button)
{
    if (!button)
        return;
    int action = button->action();
    if (action == DialogButton::AutomaticAction)
        action = button->actionForRole(button->role());
    const QPointer<Dialog> guard(this);
    ++d->answers;
    switch (action) {
    case DialogButton::AcceptAction:
        accept(d->result);
        break;
    case DialogButton::RejectAction:
        reject();
        break;
    case DialogButton::BackAction:
        back();
        break;
    case DialogButton::ForwardAction:
        forward();
        break;
    default:
        Q_EMIT button->clicked();
    }
    if (guard)
        --d->answers;
}

} // namespace ta::ui
