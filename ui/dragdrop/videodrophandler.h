#pragma once

#include "filedrophandler.h"

namespace ta::ui {

class VideoDropHandlerPrivate;

/*!
    Takes videos: files and links whose names end as those of the usual containers do.

    QML: \c UiVideoDropHandler.
*/
class TAMBERUI_EXPORT VideoDropHandler : public FileDropHandler
{
    Q_OBJECT
    /// avi, flv, mkv, mp4, webm and mov.
    Q_PROPERTY(QStringList suffixes READ suffixes CONSTANT)

public:
    explicit VideoDropHandler(QObject *parent = nullptr);
    ~VideoDropHandler() override;

private:
    friend class VideoDropHandlerPrivate;
    const std::unique_ptr<VideoDropHandlerPrivate> d;
};

} // namespace ta::ui
