#include "lineeditbase.h"

#include "foundation/assign.h"
#include "foundation/logging.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtQuick/QQuickWindow>

#include <utility>

namespace ta::ui {

namespace {

// Whether \a item is \a edit, or a line edit whose editing item is, and so on.
bool leadsTo(QQuickItem *item, const LineEditBase *edit)
{
    auto *inner = qobject_cast<LineEditBase *>(item);
    while (inner && inner != edit)
        inner = qobject_cast<LineEditBase *>(inner->textInput());
    return inner;
}

} // namespace

class LineEditBasePrivate
{
public:
    explicit LineEditBasePrivate(LineEditBase *q) : q(q) {}

    QQuickItem *editor() const;
    bool isLeaving(const QQuickItem *item) const;
    void resolveMethods();
    void forgetMethods();
    void commit();
    void revert();
    void endEdit();
    void moveCursorToStart();
    void selectAll();
    bool handOnFocus(Qt::FocusReason reason);
    void watchEnabled();

    LineEditBase *const q;
    QPointer<QQuickItem> textInput;
    bool bindable = false;
    bool hovered = false;
    bool watchesEnabled = false;
    QString text;
    QString placeHolderText;
    QMetaMethod selectAllMethod;
    QMetaProperty textProperty;
    QMetaProperty cursorPositionProperty;
    QMetaProperty acceptableInputProperty;
    QMetaObject::Connection acceptableInputConnection;
    const char *className = nullptr; // the editing item's own class
};

// The editing item as long as it is whole. The focus leaves a focused item only in the destructor
// of QQuickItem, when what was looked up on its own class is gone although guarded pointers still
// lead to it; by then it is not of that class any more.
QQuickItem *LineEditBasePrivate::editor() const
{
    return textInput && textInput->qt_metacast(className) ? textInput.data() : nullptr;
}

// Whether \a item loses the focus because it is being destroyed or moved elsewhere: then the scope
// has let go of it, but it was not told so. Giving the focus back to it would leave the scope with
// an item that is not in it.
bool LineEditBasePrivate::isLeaving(const QQuickItem *item) const
{
    if (!item->hasFocus() || q->scopedFocusItem() == item)
        return false;
    const QQuickItem *scope = item->parentItem();
    while (scope && !scope->isFocusScope())
        scope = scope->parentItem();
    return scope == q;
}

void LineEditBasePrivate::resolveMethods()
{
    const QMetaObject *meta = textInput->metaObject();
    const auto lookUp = [meta](QMetaProperty &property, const char *name) {
        const int index = meta->indexOfProperty(name);
        if (index >= 0)
            property = meta->property(index);
    };
    const int method = meta->indexOfMethod("selectAll()");
    if (method >= 0)
        selectAllMethod = meta->method(method);
    lookUp(textProperty, "text");
    lookUp(cursorPositionProperty, "cursorPosition");
    lookUp(acceptableInputProperty, "acceptableInput");
    if (acceptableInputProperty.hasNotifySignal()) {
        static const QMetaMethod changed = QMetaMethod::fromSignal(
            &LineEditBase::acceptableInputChanged);
        acceptableInputConnection = QObject::connect(textInput.data(),
                                                     acceptableInputProperty.notifySignal(), q,
                                                     changed);
    }
    // Types that QML declares are unknown to qt_metacast().
    const QMetaObject *ownClass = meta;
    while (!textInput->qt_metacast(ownClass->className()))
        ownClass = ownClass->superClass();
    className = ownClass->className();
}

// Read on an item of another class, a property of this one is any memory at all.
void LineEditBasePrivate::forgetMethods()
{
    QObject::disconnect(acceptableInputConnection);
    selectAllMethod = {};
    textProperty = {};
    cursorPositionProperty = {};
    acceptableInputProperty = {};
    className = nullptr;
}

// An item that cannot say what was typed commits nothing.
void LineEditBasePrivate::commit()
{
    QQuickItem *const item = editor();
    if (!item || !textProperty.isReadable())
        return;
    const QString typed = textProperty.read(item).toString();
    if (!bindable) {
        q->setText(typed);
        return;
    }
    const QPointer<LineEditBase> guard(q);
    Q_EMIT q->updateRequested(typed);
    if (guard)
        Q_EMIT q->editingFinished();
    if (guard)
        revert();
}

void LineEditBasePrivate::revert()
{
    if (QQuickItem *item = editor())
        textProperty.write(item, text);
}

// The editing item loses the focus with its scope, which commits.
void LineEditBasePrivate::endEdit()
{
    q->setFocus(false);
}

void LineEditBasePrivate::moveCursorToStart()
{
    if (QQuickItem *item = editor())
        cursorPositionProperty.write(item, 0);
}

void LineEditBasePrivate::selectAll()
{
    if (QQuickItem *item = editor())
        selectAllMethod.invoke(item);
}

// Returns whether there is an editing item to have the focus.
bool LineEditBasePrivate::handOnFocus(Qt::FocusReason reason)
{
    QQuickItem *const item = editor();
    if (!item || isLeaving(item))
        return false;
    const QPointer<LineEditBase> guard(q);
    item->forceActiveFocus(reason);
    if (guard && reason != Qt::MouseFocusReason)
        selectAll();
    return true;
}

// Disabling ends hover: no leave event need follow. Qt may not be told so from within itemChange(),
// after which it goes on with an item that a handler may have destroyed.
void LineEditBasePrivate::watchEnabled()
{
    if (std::exchange(watchesEnabled, true))
        return;
    // An item whose parent is disabled becomes enabled when it is destroyed; this is gone then.
    QObject::connect(q, &QQuickItem::enabledChanged, q, [this, edit = q] {
        if (!edit->isEnabled() && assign(hovered, false))
            Q_EMIT edit->hoveredChanged();
    });
}

LineEditBase::LineEditBase(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<LineEditBasePrivate>(this))
{
    setFlag(ItemIsFocusScope);
    setAcceptHoverEvents(true);
    updateCursorShape();
}

LineEditBase::~LineEditBase() = default;

QQuickItem *LineEditBase::textInput() const
{
    return d->textInput;
}

void LineEditBase::setTextInput(QQuickItem *item)
{
    if (d->textInput == item)
        return;
    if (leadsTo(item, this)) {
        qCWarning(lcUi, "A line edit cannot be its own editing item");
        return;
    }
    if (d->textInput)
        d->textInput->removeEventFilter(this);
    d->forgetMethods();
    d->textInput = item;
    const QPointer<LineEditBase> guard(this);
    if (item) {
        item->installEventFilter(this);
        d->resolveMethods();
        d->moveCursorToStart();
    }
    if (guard)
        Q_EMIT textInputChanged();
}

bool LineEditBase::isBindable() const
{
    return d->bindable;
}

void LineEditBase::setBindable(bool bindable)
{
    if (assign(d->bindable, bindable))
        Q_EMIT bindableChanged();
}

bool LineEditBase::hasAcceptableInput() const
{
    const QQuickItem *item = d->editor();
    return item && d->acceptableInputProperty.read(item).toBool();
}

bool LineEditBase::isEmpty() const
{
    return d->text.isEmpty();
}

bool LineEditBase::hovered() const
{
    return d->hovered;
}

QString LineEditBase::text() const
{
    return d->text;
}

void LineEditBase::setText(const QString &text)
{
    const bool wasEmpty = isEmpty();
    if (!assign(d->text, text))
        return;
    const QPointer<LineEditBase> guard(this);
    Q_EMIT textChanged();
    if (guard && isEmpty() != wasEmpty)
        Q_EMIT emptyChanged();
    if (!guard)
        return;
    if (d->textInput && !d->textInput->hasActiveFocus())
        d->moveCursorToStart();
    if (guard)
        d->revert();
}

QString LineEditBase::placeHolderText() const
{
    return d->placeHolderText;
}

void LineEditBase::setPlaceHolderText(const QString &text)
{
    if (assign(d->placeHolderText, text))
        Q_EMIT placeHolderTextChanged();
}

QString LineEditBase::editText() const
{
    const QQuickItem *item = d->editor();
    return item ? d->textProperty.read(item).toString() : QString();
}

void LineEditBase::selectAll()
{
    d->selectAll();
}

// Returns true, besides for the keys that end the edit, where a handler has destroyed the editing
// item: an event must not go on to it.
bool LineEditBase::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != d->textInput)
        return QQuickItem::eventFilter(watched, event);
    const QPointer<LineEditBase> guard(this);
    const QPointer<QObject> receiver(watched);
    switch (event->type()) {
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Escape) {
            d->revert();
            if (guard)
                d->endEdit();
        } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            d->endEdit();
            if (guard)
                Q_EMIT returnPressed();
        } else {
            break;
        }
        event->accept();
        return true;
    }
    case QEvent::FocusOut:
        d->commit();
        if (guard)
            d->moveCursorToStart();
        break;
    case QEvent::FocusIn: {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
            d->selectAll();
        break;
    }
    default:
        break;
    }
    return !receiver;
}

void LineEditBase::focusInEvent(QFocusEvent *event)
{
    if (!d->handOnFocus(event->reason()))
        QQuickItem::focusInEvent(event);
}

// QML may give the focus to what it is still creating, before there is an editing item.
void LineEditBase::componentComplete()
{
    const QPointer<LineEditBase> guard(this);
    QQuickItem::componentComplete();
    if (guard && window() && window()->activeFocusItem() == this)
        d->handOnFocus(Qt::OtherFocusReason);
}

void LineEditBase::hoverEnterEvent(QHoverEvent *)
{
    d->watchEnabled();
    d->hovered = true;
    Q_EMIT hoveredChanged();
}

void LineEditBase::hoverLeaveEvent(QHoverEvent *)
{
    d->hovered = false;
    Q_EMIT hoveredChanged();
}

// No connection to enabledChanged() is needed for this, which costs more memory than all the rest.
void LineEditBase::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemEnabledHasChanged)
        updateCursorShape();
    QQuickItem::itemChange(change, data);
}

void LineEditBase::updateCursorShape()
{
    setCursor(isEnabled() ? Qt::IBeamCursor : Qt::ArrowCursor);
}

} // namespace ta::ui
