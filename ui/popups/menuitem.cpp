#include "menuitem.h"

#include "foundation/assign.h"
#include "foundation/sharedcomponent.h"

namespace ta::ui {

class MenuItemPrivate
{
public:
    // Written on the GUI thread when an entry is shown for the first time. It knows the component
    // of each engine for as long as an entry keeps it.
    static SharedComponent m_sharedDelegate;

    ComponentReference delegate;
    bool enabled = true;
    QString text;
    QString iconName;
};

SharedComponent MenuItemPrivate::m_sharedDelegate("qrc:/ui/components/UiMenuItemDelegate.qml");

MenuItem::MenuItem(QObject *parent)
    : AbstractMenuItem(parent), d(std::make_unique<MenuItemPrivate>())
{
}

MenuItem::~MenuItem() = default;

QQmlComponent *MenuItem::delegate()
{
    return MenuItemPrivate::m_sharedDelegate.get(d->delegate, this);
}

bool MenuItem::isEnabled() const
{
    return d->enabled;
}

void MenuItem::setEnabled(bool enabled)
{
    if (assign(d->enabled, enabled))
        Q_EMIT enabledChanged();
}

QString MenuItem::text() const
{
    return d->text;
}

void MenuItem::setText(const QString &text)
{
    if (assign(d->text, text))
        Q_EMIT textChanged();
}

QString MenuItem::iconName() const
{
    return d->iconName;
}

void MenuItem::setIconName(const QString &name)
{
    if (assign(d->iconName, name))
        Q_EMIT iconNameChanged();
}

} // namespace ta::ui
