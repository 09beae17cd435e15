#pragma once

#include <QtCore/qglobal.h>

#include <type_traits>

namespace ta::ui {

/// Stores \a value in \a field unless it is there already; returns whether it stored. The body of
/// every setter: reals compare with Qt's fuzzy comparison, everything else exactly.
template <typename Field, typename Value>
inline bool assign(Field &field, const Value &value)
{
    if constexpr (std::is_floating_point_v<Field>) {
        if (qFuzzyCompare(field, value))
            return false;
    } else {
        if (field == value)
            return false;
    }
    field = value;
    return true;
}

} // namespace ta::ui
