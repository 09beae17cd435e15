#pragma once

#include "dialog.h"
#include "heldkey_p.h"

#include "../foundation/objectlist.h"
#include "../foundation/sharedcomponent.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtQuick/QQuickWindow>

#include <functional>

namespace ta::ui {

class DialogPrivate
{
public:
    /// Something that the items of the host may be in the middle of, such as a click or a change of
    /// the focus. A handler that destroys the dialog then leaves them to the event loop; one that
    /// closes it and runs an event loop of its own has them wait for its end.
    class HostUse
    {
    public:
        explicit HostUse(DialogPrivate *d) : m_d(d), m_guard(d->q), m_host(d->host)
        {
            ++d->uses;
            count(1);
        }
        ~HostUse()
        {
            if (m_guard)
                --m_d->uses;
            count(-1);
        }
        Q_DISABLE_COPY(HostUse)

    private:
        void count(int change) const
        {
            if (m_host)
                m_host->setProperty("uses", m_host->property("uses").toInt() + change);
        }

        DialogPrivate *const m_d;
        const QPointer<Dialog> m_guard;
        const QPointer<QQuickItem> m_host;
    };

    explicit DialogPrivate(Dialog *q) : q(q) {}

    QQuickWindow *window() const { return hostParent ? hostParent->window() : nullptr; }

    void open();
    QQuickItem *createHost();
    void watch();
    bool takeFocus();
    void watchWindow();
    void enterWindow();
    void watchButton(const DialogButton *button);
    void updateDialogSize();
    void resized(void (Dialog::*changed)());

    void discard();
    void discardImmediate();
    void endPress(const QQuickItem *closing);
    void close(const QQuickItem *closing);
    void forget();
    void end(void (DialogPrivate::*leave)(), const std::function<void()> &answer);
    void rejectLost();
    void releaseHosts();
    void joinStack();
    void leaveStack();
    /// A dialog that was opened from what is \a closing, and outlives it, keeps the focus now and
    /// later gives it back to \a focusItem, which would get it otherwise and is null then.
    static void bequeathFocus(const QQuickItem *closing, QPointer<QQuickItem> &focusItem);
    void restoreFocus();

    bool press(QObject *watched, const QPointF &screenPosition);
    bool key(QObject *watched, int key);
    bool tab(const char *signal);
    void windowCloses();
    bool isOwnWindow(const QObject *watched) const { return watched && watched == window(); }
    bool isBlind(const QObject *watched) const;
    bool isOutside(const QObject *watched) const;

    Dialog *const q;
    QPointer<QQuickItem> hostParent; // content item of the window; found when first shown
    QPointer<QQuickItem> content;
    ComponentReference hostComponent;
    QPointer<QQuickItem> host; // set exactly while the dialog is shown
    QPointer<QQuickItem> contentScope; // the visible box in the host
    QString label;
    QString instructionText;
    QVariant result;
    int width = 0;
    int height = 0;
    bool autoSize = false;
    Dialog::Flags flags = Dialog::RejectOnEscape | Dialog::RejectOnCloseEvent;
    bool busy = false;
    QPoint autoSizeMargins;
    QPointer<QQmlComponent> headerDelegate;
    QPointer<QQmlComponent> contentDelegate;
    QPointer<QQmlComponent> footerDelegate;
    QPointer<QQmlComponent> footerControls;
    QVariantMap headerOptions;
    QVariantMap contentOptions;
    QVariantMap footerOptions;
    ComponentReference headerComponent;
    ComponentReference footerComponent;
    ObjectList<DialogButton> buttons;
    QPointer<DialogButton> defaultButton;
    QPointer<QQuickItem> previousFocusItem;
    int heldKey = 0; // went down while the dialog was on top, and is not up yet
    QPointer<HeldKeyFilter> heldBefore; // what was down when it opened

    int locks = 0; // while there are any show() does nothing
    bool onStack = false;
    int uses = 0; // see HostUse
    int hostLevel = 1; // when the host was made, see destroyLater()
    bool wasPressed = false; // when it closed: an item of the host may be in the middle of an event
    QVector<QMetaObject::Connection> connections; // while shown

    static SharedComponent m_sharedHostComponent;
    static SharedComponent m_sharedHeaderComponent;
    static SharedComponent m_sharedFooterComponent;
    // The dialogs that are shown, in no order that counts. GUI thread only.
    static QVector<DialogPrivate *> s_shown;
    // How many dialogs are making their items, and which ones were asked to open meanwhile: a
    // component makes one object at a time, and the last one to open is the top of the stack. GUI
    // thread only.
    static int s_creations;
    static QVector<QPointer<Dialog>> s_waiting;
};

} // namespace ta::ui
