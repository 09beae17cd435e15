// A window of another program, out of which files can be dragged.
// Usage: dragsource --trace FILE...
// It tells of itself as the gallery does: "ready files", "item files X Y W H", "drag begins files",
// "drag ends files".

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

void tell(const char *line)
{
    std::fputs(line, stdout);
    std::fflush(stdout);
}

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
        tell("drag begins files\n");
        drag->exec(Qt::CopyAction);
        tell("drag ends files\n");
    }

private:
    void tellPlace()
    {
        const QPoint corner = mapToGlobal(QPoint());
        const QString place = QStringLiteral("item files %1 %2 %3 %4\n")
                                  .arg(corner.x())
                                  .arg(corner.y())
                                  .arg(width())
                                  .arg(height());
        tell("ready files\n");
        tell(qPrintable(place));
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
