#pragma once

#include "filedrophandler.h"

namespace ta::ui {

class ImageDropHandlerPrivate;

/*!
    Takes pictures: files and links whose names end as those of the formats do that Qt reads.

    Which ones these are depends on the image plugins that are installed with Qt.

    QML: \c UiImageDropHandler.
*/
class TAMBERUI_EXPORT ImageDropHandler : public FileDropHandler
{
    Q_OBJECT
    /// The names of the formats, in the order in which Qt's reader tells them.
    Q_PROPERTY(QStringList suffixes READ suffixes CONSTANT)

public:
    explicit ImageDropHandler(QObject *parent = nullptr);
    ~ImageDropHandler() override;

private:
    friend class ImageDropHandlerPrivate;
    const std::unique_ptr<ImageDropHandlerPrivate> d;
};

} // namespace ta::ui
