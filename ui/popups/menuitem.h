#pragma once

#include "abstractmenuitem.h"

#include <QtCore/QString>

namespace ta::ui {

class MenuItemPrivate;

/*!
    An entry of a ContextMenu that can be clicked: an icon and a text.

    QML: \c UiMenuItem.
*/
class TAMBERUI_EXPORT MenuItem : public AbstractMenuItem
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QString iconName READ iconName WRITE setIconName NOTIFY iconNameChanged)

public:
    explicit MenuItem(QObject *parent = nullptr);
    ~MenuItem() override;

    /// Null before the entry belongs to an engine.
    QQmlComponent *delegate() override;

    /// Whether the entry can be clicked; true by default. Otherwise it is shown greyed out.
    bool isEnabled() const;
    void setEnabled(bool enabled);

    /// Empty by default.
    QString text() const;
    void setText(const QString &text);

    /// A glyph of the 24 pixel set, see Icon; empty (none) by default. Menus of the style
    /// ContextMenu::OnlyText do not show it.
    QString iconName() const;
    void setIconName(const QString &name);

Q_SIGNALS:
    void enabledChanged();
    void textChanged();
    void iconNameChanged();
    /// The entry was clicked; the menu is still open and closes next. The delegate emits it. A
    /// handler may destroy the entry, the menu and the menu's target.
    void triggered();

private:
    const std::unique_ptr<MenuItemPrivate> d;
};

} // namespace ta::ui
