#pragma once

#include <QtCore/qnumeric.h>

#include <type_traits>

namespace ta::ui {

/// Stores \a value in \a field unless it is there already; returns whether it stored. The body of
/// every setter: reals compare with Qt's fuzzy comparison, everything else exactly. NaN equals NaN
/// here, and an infinity itself: a binding that writes one again must not announce a change.
template <typename Field, typename Value>
inline bool assign(Field &field, const Value &value)
{
    if constexpr (std::is_floating_point_v<Field>) {
        if (field == value || qFuzzyCompare(field, value) || (qIsNaN(field) && qIsNaN(value)))
            return false;
    } else {
        if (field == value)
            return false;
    }
    field = value;
    return true;
}

} // namespace ta::ui
