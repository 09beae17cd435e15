#pragma once

#include <QtCore/QPointer>
#include <QtCore/QRunnable>
#include <QtGui/QOpenGLContext>
#include <QtGui/QSurface>
#include <QtQuick/QQuickWindow>

#include <memory>

namespace ta::ui {

/// Deletes \a resource of the graphics context \a context so that no other context is touched: what
/// has an equal name there would go instead. Call it on a thread where that context may be current.
template <typename Resource>
void deleteResource(std::unique_ptr<Resource> resource, const QPointer<QOpenGLContext> &context)
{
    QOpenGLContext *current = QOpenGLContext::currentContext();
    if (!current || current == context) {
        resource.reset();
        return;
    }
    // Its own context is gone, and took with it what the resource stood for.
    QSurface *surface = current->surface();
    current->doneCurrent();
    resource.reset();
    current->makeCurrent(surface);
}

/// Deletes a resource on the render thread of the window that it is scheduled on; one that never
/// comes to run deletes it at its own end.
template <typename Resource>
class ResourceDeleteJob : public QRunnable
{
public:
    ResourceDeleteJob(Resource *resource, const QPointer<QOpenGLContext> &context)
        : m_resource(resource), m_context(context)
    {
    }
    ~ResourceDeleteJob() override { run(); }

    void run() override
    {
        if (m_resource)
            deleteResource(std::move(m_resource), m_context);
    }

private:
    std::unique_ptr<Resource> m_resource;
    const QPointer<QOpenGLContext> m_context;
};

/*!
    Deleter of a shared resource that was made in the graphics context of a window.

    The last reference may go on any thread. Where the context is current, as it is whenever a node
    goes, the resource goes at once: a window that is being hidden renders no further frame. Else it
    goes after the next frame of its window.
*/
template <typename Resource>
class ResourceDeleter
{
public:
    explicit ResourceDeleter(QQuickWindow *window)
        : m_window(window), m_context(window->openglContext())
    {
    }

    void operator()(Resource *resource) const
    {
        const QPointer<QOpenGLContext> context = m_context;
        const bool isCurrent = QOpenGLContext::currentContext() == context;
        if (m_window && context && !isCurrent) {
            m_window->scheduleRenderJob(new ResourceDeleteJob<Resource>(resource, context),
                                        QQuickWindow::AfterRenderingStage);
        } else {
            deleteResource(std::unique_ptr<Resource>(resource), context);
        }
    }

private:
    QPointer<QQuickWindow> m_window;
    QPointer<QOpenGLContext> m_context;
};

} // namespace ta::ui
