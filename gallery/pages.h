#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

/// The pages of the gallery, in the order of the navigation.
namespace pages {

/// The names by which a page is asked for.
QStringList names();

/// What the screen needs to know: a list of objects with the keys name, title and source.
QVariantList model();

} // namespace pages
