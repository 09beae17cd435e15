#include "dialog_p.h"

#include "foundation/assign.h"

namespace ta::ui {

namespace {

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
    if (!assign(d->autoSize, autoSize))
        return;
    const QPointer<Dialog> guard(this);
    d->resized(&Dialog::autoSizeChanged);
    // The bindings to the content's size are active again and have written it: a fixed one goes
    // before.
    if (guard && !d->autoSize)
        d->updateDialogSize();
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
    const DialogPrivate::HostUse use(d.get());
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
}

} // namespace ta::ui
