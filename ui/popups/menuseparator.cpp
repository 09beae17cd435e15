#include "menuseparator.h"

#include "foundation/sharedcomponent.h"

namespace ta::ui {

class MenuSeparatorPrivate
{
public:
    // As that of MenuItem.
    static SharedComponent m_sharedDelegate;

    ComponentReference delegate;
};

SharedComponent MenuSeparatorPrivate::m_sharedDelegate(
    "qrc:/ui/components/UiMenuSeparatorDelegate.qml");

MenuSeparator::MenuSeparator(QObject *parent)
    : AbstractMenuItem(parent), d(std::make_unique<MenuSeparatorPrivate>())
{
}

MenuSeparator::~MenuSeparator() = default;

QQmlComponent *MenuSeparator::delegate()
{
    return MenuSeparatorPrivate::m_sharedDelegate.get(d->delegate, this);
}

} // namespace ta::ui
