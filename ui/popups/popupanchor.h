#pragma once

#include "ipopup.h"

#include "../foundation/export.h"

#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class PopupAnchorPrivate;

/*!
    Opens a popup next to the control that it is placed in.

    The popup is a component, the anchor's default property. The anchor creates the item, keeps it
    at its own position on a layer above all ordinary content of the window, and closes it on a
    press outside, on Escape, when the window is resized and when any window is closed. While open
    the popup is the top of the PopupStack, and Tab stays inside it. When it closes and has the
    focus, the item that had it before gets it back.

    The anchor never touches the popup item's \c visible or \c opacity: the component shows and
    hides itself by its \c enabled state (or by \l popupVisible), and has 700 ms for an animation
    after each hide.

    A press on an empty part of the popup goes to the item that keeps input from what lies below,
    and not to the popup's root: what reacts to input is a child of the root.

    Where the anchor has no window yet, or QML is still constructing it, a popup that was asked for
    appears once it has one. A popup whose anchor leaves its window closes, and so does one whose
    window is hidden. A component whose root is not an item counts as no popup.

    QML: \c UiPopupAnchor of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT PopupAnchor
    : public QQuickItem
    , public IPopup
{
    Q_OBJECT
    Q_INTERFACES(ta::ui::IPopup)
    Q_CLASSINFO("DefaultProperty", "popup")

    Q_PROPERTY(QQmlComponent *popup READ popup WRITE setPopup NOTIFY popupChanged)
    Q_PROPERTY(QQuickItem *popupItem READ popupItem NOTIFY popupItemChanged)
    Q_PROPERTY(
        bool popupVisible READ isPopupVisible WRITE setPopupVisible NOTIFY popupVisibleChanged)
    Q_PROPERTY(bool persistent READ isPersistent WRITE setPersistent NOTIFY persistentChanged)
    Q_PROPERTY(bool autoLayout READ autoLayout WRITE setAutoLayout NOTIFY autoLayoutChanged)
    Q_PROPERTY(bool preventAutoScroll READ preventAutoScroll WRITE setPreventAutoScroll NOTIFY
                   preventAutoScrollChanged)
    Q_PROPERTY(int distanceTop READ distanceTop NOTIFY distanceTopChanged)
    Q_PROPERTY(int distanceBottom READ distanceBottom NOTIFY distanceBottomChanged)
    Q_PROPERTY(int distanceLeft READ distanceLeft NOTIFY distanceLeftChanged)
    Q_PROPERTY(int distanceRight READ distanceRight NOTIFY distanceRightChanged)
    Q_PROPERTY(PopupCreationPolicy popupCreationPolicy READ popupCreationPolicy WRITE
                   setPopupCreationPolicy NOTIFY popupCreationPolicyChanged)
    Q_PROPERTY(
        QQuickItem *triggerItem READ triggerItem WRITE setTriggerItem NOTIFY triggerItemChanged)

public:
    /// When the popup item lives.
    enum PopupCreationPolicy : int {
        OnDemandCreation = 0, ///< from each show until 700 ms after the hide
        InstantCreation = 1 ///< from the moment there is a component, across hides
    };
    Q_ENUM(PopupCreationPolicy)

    explicit PopupAnchor(QQuickItem *parent = nullptr);
    /// A popup that is open goes, too; its item is destroyed 700 ms later.
    ~PopupAnchor() override;

    /// The component of the popup item. Not owned; null by default. A new component replaces an
    /// item that exists; with null an existing item stays.
    QQmlComponent *popup() const;
    void setPopup(QQmlComponent *component);

    /// The popup item as it is now, or null.
    QQuickItem *popupItem() const;

    /// Whether the popup is shown (or is asked to be shown while there is nothing to show yet).
    bool isPopupVisible() const;
    /// Emits aboutToShow() or aboutToHide(), then popupVisibleChanged(), then acts. A handler of
    /// these signals may ask for the opposite: what was asked for last holds.
    void setPopupVisible(bool visible);

    /// Whether presses outside and all keys leave the popup alone; false by default.
    bool isPersistent() const;
    void setPersistent(bool persistent);

    /// Whether the anchor fits the popup into the window: it then sets the item's x, y and height
    /// from its implicit size. False by default: the popup hangs at the anchor as it is.
    bool autoLayout() const;
    void setAutoLayout(bool autoLayout);

    /// Whether views behind the open popup must not scroll by themselves while something is
    /// dragged; true by default.
    bool preventAutoScroll() const override;
    void setPreventAutoScroll(bool prevent);

    /// From the layer's position (after any flip) to the edges of the window, in logical pixels.
    /// Kept up to date while the popup is shown, with or without autoLayout; 0 before.
    int distanceTop() const;
    int distanceBottom() const;
    int distanceLeft() const;
    int distanceRight() const;

    /// OnDemandCreation by default. Going back to it keeps an existing item until the next hide.
    PopupCreationPolicy popupCreationPolicy() const;
    void setPopupCreationPolicy(PopupCreationPolicy policy);

    /// The control that opens the popup. A press on it closes the popup and goes no further, so
    /// that the control does not open it again with the same press. Null by default.
    QQuickItem *triggerItem() const;
    void setTriggerItem(QQuickItem *item);

    QQuickItem *rootItem() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    Q_INVOKABLE void show();
    Q_INVOKABLE void hide();

Q_SIGNALS:
    void popupChanged();
    void popupItemChanged();
    void popupVisibleChanged();
    void persistentChanged();
    void autoLayoutChanged();
    void popupCreationPolicyChanged();
    void distanceTopChanged();
    void distanceBottomChanged();
    void distanceLeftChanged();
    void distanceRightChanged();
    void triggerItemChanged();
    void preventAutoScrollChanged();
    void aboutToShow();
    void aboutToHide();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private Q_SLOTS:
    void updateAnchorPosition();

private:
    friend class PopupAnchorPrivate;
    const std::unique_ptr<PopupAnchorPrivate> d;
};

} // namespace ta::ui
