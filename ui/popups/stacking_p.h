#pragma once

#include "../foundation/export.h"

#include <QtCore/QVector>

class QQuickItem;

namespace ta::ui {

/// The item that lies above the others: an item inside another one lies above it, of two that are
/// beside each other the one with the higher z, and of equals the one declared last. Null for an
/// empty list. All of \a items belong to one window. Takes the time of going through the children
/// of the items that the answer lies in.
TAMBERUI_PRIVATE_EXPORT QQuickItem *topmost(const QVector<QQuickItem *> &items);

} // namespace ta::ui
