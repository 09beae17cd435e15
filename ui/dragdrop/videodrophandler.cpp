#include "videodrophandler.h"

namespace ta::ui {

// Keeps the size of the class when it gets a state of its own.
class VideoDropHandlerPrivate
{
public:
    explicit VideoDropHandlerPrivate(VideoDropHandler *q) : q(q) {}

    VideoDropHandler *const q;
};

VideoDropHandler::VideoDropHandler(QObject *parent)
    : FileDropHandler(parent), d(std::make_unique<VideoDropHandlerPrivate>(this))
{
    setSuffixes({ QStringLiteral("avi"), QStringLiteral("flv"), QStringLiteral("mkv"),
                  QStringLiteral("mp4"), QStringLiteral("webm"), QStringLiteral("mov") });
}

VideoDropHandler::~VideoDropHandler() = default;

} // namespace ta::ui
