#pragma once

#include "../foundation/export.h"

#include <QtGui/QImage>

namespace ta::ui {

struct IconAtlas;

/// The decoded image of \a atlas, ready for a texture; null where it cannot be decoded. Any render
/// thread may ask. It is kept as long as there is an IconImagesUser.
TAMBERUI_PRIVATE_EXPORT QImage iconAtlasImage(const IconAtlas &atlas);

/// Every icon is one, whether it is drawn or not: as long as there are icons, no image is decoded
/// twice, however often they leave the window, and in however many windows they are. GUI thread.
class IconImagesUser
{
public:
    IconImagesUser();
    ~IconImagesUser();
    Q_DISABLE_COPY_MOVE(IconImagesUser)
};

} // namespace ta::ui
