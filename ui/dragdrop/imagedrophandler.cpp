#include "imagedrophandler.h"

#include <QtGui/QImageReader>

namespace ta::ui {

// Keeps the size of the class when it gets a state of its own.
class ImageDropHandlerPrivate
{
public:
    explicit ImageDropHandlerPrivate(ImageDropHandler *q) : q(q) {}

    ImageDropHandler *const q;
};

ImageDropHandler::ImageDropHandler(QObject *parent)
    : FileDropHandler(parent), d(std::make_unique<ImageDropHandlerPrivate>(this))
{
    QStringList suffixes;
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray &format : formats)
        suffixes.append(QString::fromLatin1(format));
    setSuffixes(suffixes);
}

ImageDropHandler::~ImageDropHandler() = default;

} // namespace ta::ui
