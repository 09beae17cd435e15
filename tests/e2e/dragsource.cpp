// A window of another program, out of which files can be dragged.
// Usage: dragsource --trace FILE...
// It tells of itself as the gallery does: "ready files", "item files X Y W H", "drag ended ACTION".

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDrag>
#include <QtGui/QGuiApplication>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QRasterWindow>
#include <QtGui/QStyleHints>

#include <cstdio>

namespace {

class Source : public QRasterWindow
{
public:
    explicit Source(const QList<QUrl> &urls) : m_urls(urls)
    {
        resize(160, 120);
        connect(this, &QWindow::xChanged, this, &Source::tellPlace);
        connect(this, &QWindow::yChanged, this, &Source::tellPlace);
    }

protected:
    void exposeEvent(QExposeEvent *event) override
    {
        QRasterWindow::exposeEvent(event);
        if (isExposed())
            tellPlace();
    }

    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(0, 0, 160, 120, Qt::gray); }

    void mousePressEvent(QMouseEvent *event) override { m_press = event->pos(); }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        const int distance = (event->pos() - m_press).manhattanLength();
        if (!event->buttons() || distance < QGuiApplication::styleHints()->startDragDistance())
            return;
        auto *drag = new QDrag(this);
        auto *data = new QMimeData;
        data->setUrls(m_urls);
        drag->setMimeData(data);
        const Qt::DropAction action = drag->exec(Qt::CopyAction);
        std::printf("drag ended %d\n", int(action));
        std::fflush(stdout);
    }

private:
    void tellPlace()
    {
        const QPoint corner = mapToGlobal(QPoint());
        std::printf("ready files\nitem files %d %d %d %d\n", corner.x(), corner.y(), width(),
                    height());
        std::fflush(stdout);
    }

    const QList<QUrl> m_urls;
    QPoint m_press;
};

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication app(argc, argv);
    QList<QUrl> urls;
    const QStringList files = QCoreApplication::arguments().mid(2);
    for (const QString &file : files)
        urls.append(QUrl::fromUserInput(file));
    Source source(urls);
    source.show();
    return app.exec();
}
