#pragma once

#include "abstractmenuitem.h"

namespace ta::ui {

class MenuSeparatorPrivate;

/*!
    A thin line between groups of entries of a ContextMenu.

    QML: \c UiMenuSeparator.
*/
class TAMBERUI_EXPORT MenuSeparator : public AbstractMenuItem
{
    Q_OBJECT

public:
    explicit MenuSeparator(QObject *parent = nullptr);
    ~MenuSeparator() override;

    /// Null before the separator belongs to an engine.
    QQmlComponent *delegate() override;

private:
    const std::unique_ptr<MenuSeparatorPrivate> d;
};

} // namespace ta::ui
