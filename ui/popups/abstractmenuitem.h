#pragma once

#include "../foundation/export.h"

#include <QtCore/QList>
#include <QtCore/QObject>

#include <memory>

class QQmlComponent;

namespace ta::ui {

class AbstractMenuItemPrivate;

/*!
    An entry of a ContextMenu: where it stands, whether it is shown, and the component that draws
    it.

    Entries are plain objects. The menu makes an item of \l delegate for each of them whenever it
    opens. To add a kind of entry, derive from this class and return a component whose root is an
    item with the properties \c menuItem (the entry) and \c menu (the menu), which the menu sets.
    Where the root has them, the menu also keeps the properties \c hovered and \c pressed up to
    date, and calls the signal \c clicked() when the item is enabled and the left button is released
    over it.

    QML: \c UiAbstractMenuItem, which cannot be created.
*/
class TAMBERUI_EXPORT AbstractMenuItem : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QQmlComponent *delegate READ delegate CONSTANT)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    Q_PROPERTY(QList<int> rank READ rank WRITE setRank)

public:
    ~AbstractMenuItem() override;

    /// The component of the entry's item; not owned by the caller. Null where there is none, and
    /// the entry is left out then.
    virtual QQmlComponent *delegate() = 0;

    /// Whether the entry takes part in the menu; true by default.
    bool isVisible() const;
    void setVisible(bool visible);

    /// Where the entry stands: ranks compare number by number, the lower first, and a number that
    /// is missing counts as 0. Among equals the order of declaration holds. [0] by default. A rank
    /// that changes counts from the next change of the menu's list of entries on.
    QList<int> rank() const;
    void setRank(const QList<int> &rank);

Q_SIGNALS:
    void visibleChanged();

protected:
    explicit AbstractMenuItem(QObject *parent = nullptr);

private:
    const std::unique_ptr<AbstractMenuItemPrivate> d;
};

} // namespace ta::ui
