#include "iconimages_p.h"

#include "iconatlas_p.h"

#include <QtCore/QHash>
#include <QtCore/QMutex>

namespace ta::ui {

namespace {

// Written on the render threads of all windows, and cleared on the GUI thread, under the lock.
QHash<const IconAtlas *, QImage> s_images;
QMutex s_lock;

int s_userCount = 0; // GUI thread

} // namespace

QImage iconAtlasImage(const IconAtlas &atlas)
{
    const QMutexLocker locker(&s_lock); // who needs the same image meanwhile waits for it
    QImage &image = s_images[&atlas];
    if (image.isNull()) {
        image = QImage::fromData(atlas.data, atlas.dataSize, "png")
                    .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    return image;
}

IconImagesUser::IconImagesUser()
{
    ++s_userCount;
}

IconImagesUser::~IconImagesUser()
{
    if (--s_userCount > 0)
        return;
    const QMutexLocker locker(&s_lock);
    s_images.clear();
}

} // namespace ta::ui
