#pragma once

#include "abstractmenuitem.h"
#include "ipopup.h"

#include <QtCore/QPointF>
#include <QtQml/QQmlListProperty>
#include <QtQml/QQmlParserStatus>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class ContextMenuPrivate;

/*!
    The menu of a right click on an item.

    Declared inside of an item, the menu makes that item its target. A right press on it emits
    contextMenuRequested(), whose handlers may show, hide, add and remove entries; where one is
    visible then, the release opens the menu at the pointer. The entries are the menu's default
    property:

    \code
    Rectangle {
        UiContextMenu {
            UiMenuItem { text: "Rename"; iconName: "rename"; onTriggered: rename() }
            UiMenuSeparator {}
            UiMenuItem { text: "Delete"; rank: [1]; onTriggered: remove() }
        }
    }
    \endcode

    While it is open the menu is the top of the PopupStack. It then keeps all keys to itself and
    closes on Escape; a press outside closes it and still reaches its receiver; the wheel does
    nothing outside. It also closes when its window is hidden, or blocked by a modal one. A closed
    menu has no items: they are made when it opens, in 80 ms of fading in, and destroyed after 80 ms
    of fading out.

    The engine's module "tamber.Ui" has to have the types that the menu is drawn with: the kit, or
    a host's own.

    QML: \c UiContextMenu.
*/
class TAMBERUI_EXPORT ContextMenu
    : public QObject
    , public QQmlParserStatus
    , public IPopup
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus ta::ui::IPopup)
    Q_CLASSINFO("DefaultProperty", "items")

    Q_PROPERTY(QQmlListProperty<ta::ui::AbstractMenuItem> items READ items NOTIFY itemsChanged)
    Q_PROPERTY(
        QQmlListProperty<ta::ui::AbstractMenuItem> rankedItems READ rankedItems NOTIFY itemsChanged)
    Q_PROPERTY(bool menuVisible READ isMenuVisible NOTIFY menuVisibleChanged)
    Q_PROPERTY(ItemStyle itemStyle READ itemStyle WRITE setItemStyle NOTIFY itemStyleChanged)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)

public:
    /// What an entry shows.
    enum ItemStyle : int { IconAndText = 0, OnlyText = 1 };
    Q_ENUM(ItemStyle)

    explicit ContextMenu(QObject *parent = nullptr);
    /// A menu that is open goes, too. The target keeps accepting the right button.
    ~ContextMenu() override;

    /// The entries in the order of their declaration; not owned. One that is destroyed reads as
    /// null and is left out of the menu.
    QQmlListProperty<AbstractMenuItem> items();
    /// The entries in the order they are shown in: by rank, see AbstractMenuItem::rank. Computed
    /// when it is read for the first time after a change of \l items.
    QQmlListProperty<AbstractMenuItem> rankedItems();

    bool isMenuVisible() const;

    /// IconAndText by default.
    ItemStyle itemStyle() const;
    void setItemStyle(ItemStyle style);

    /// Whether the menu has a target and reacts to events; true by default. A menu that is disabled
    /// while it is open stays open until an entry is clicked or close() is called. Enabling makes
    /// the object parent the target where it is an item; disabling gives the target the mouse
    /// buttons back that it accepted before.
    bool isEnabled() const;
    void setEnabled(bool enabled);

    /// Appends \a item to \l items.
    Q_INVOKABLE void addItem(ta::ui::AbstractMenuItem *item);
    /// Removes the first occurrence of \a item; emits itemsChanged() also where there is none.
    Q_INVOKABLE void removeItem(ta::ui::AbstractMenuItem *item);
    /// Opens the menu as a right click on \a item at \a pos (in its coordinates) would:
    /// contextMenuRequested() first, and nothing more where no entry is visible then. Does nothing
    /// without an item or a target; a target in no window is refused with a warning.
    Q_INVOKABLE void showAt(QQuickItem *item, QPointF pos);

    QQuickItem *rootItem() const override;
    bool preventAutoScroll() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void classBegin() override;
    void componentComplete() override;

public Q_SLOTS:
    /// Closes the menu; does nothing while it is closed.
    void close();

Q_SIGNALS:
    void itemsChanged();
    void menuVisibleChanged();
    void itemStyleChanged();
    void enabledChanged();
    /// Somebody asks for the menu at \a position, in the target's coordinates; \a item is the
    /// deepest visible item there, or the one that showAt() was given. The entries that are visible
    /// afterwards count.
    void contextMenuRequested(QPointF position, QQuickItem *item);
    /// Follows menuVisibleChanged() each time the menu closes; the menu is still on the PopupStack.
    /// A handler may open it again.
    void closed();

private Q_SLOTS:
    void forgetRanks();

private:
    friend class ContextMenuPrivate;
    const std::unique_ptr<ContextMenuPrivate> d;
};

} // namespace ta::ui
