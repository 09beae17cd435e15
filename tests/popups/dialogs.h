#pragma once

#include <TamberUi/Dialog>

#include <QtQuick/QQuickItem>

namespace ta::test {

/// The visible box of a dialog that is shown.
inline QQuickItem *box(const ta::ui::Dialog *dialog)
{
    return dialog->rootItem()->findChild<QQuickItem *>(QStringLiteral("_ta_dialogContent"));
}

inline QList<QQuickItem *> pushButtonsIn(const QQuickItem *item)
{
    QList<QQuickItem *> buttons;
    const auto children = item->childItems();
    for (QQuickItem *child : children) {
        if (child->inherits("ta::ui::PushButtonBase"))
            buttons.append(child);
        buttons += pushButtonsIn(child);
    }
    return buttons;
}

/// The push buttons of the default footer, hidden ones included.
inline QList<QQuickItem *> pushButtons(const ta::ui::Dialog *dialog)
{
    return pushButtonsIn(dialog->rootItem());
}

} // namespace ta::test
