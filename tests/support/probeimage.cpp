#define QT_STATICPLUGIN
#include "support/probeimage.h"

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtCore/QWaitCondition>
#include <QtGui/QImage>
#include <QtGui/QImageIOHandler>
#include <QtGui/QImageIOPlugin>
#include <QtGui/QPainter>
#include <QtPlugin>

namespace ta::test {

namespace {

struct Record
{
    bool held = false;
    int begun = 0;
    int ended = 0;
    QSize decodedSize;
};

// Decoders run on any thread.
QMutex s_mutex;
QWaitCondition s_released;
QHash<QString, Record> s_records;

} // namespace

// A file is one line: PROBE width height colour.
class ProbeHandler : public QImageIOHandler
{
public:
    bool canRead() const override { return device()->peek(5) == "PROBE"; }

    bool supportsOption(ImageOption option) const override
    {
        return option == Size || option == ScaledSize || option == ClipRect;
    }

    QVariant option(ImageOption option) const override
    {
        return option == Size ? fullSize() : QVariant();
    }

    void setOption(ImageOption option, const QVariant &value) override
    {
        if (option == ScaledSize)
            m_scaledSize = value.toSize();
        else if (option == ClipRect)
            m_clip = value.toRect();
    }

    bool read(QImage *image) override
    {
        const QString path = static_cast<QFile *>(device())->fileName();
        {
            QMutexLocker locker(&s_mutex);
            ++s_records[path].begun;
            while (s_records[path].held)
                s_released.wait(&s_mutex);
        }
        QImage whole(fullSize(), QImage::Format_RGB32);
        whole.fill(Qt::black);
        QPainter(&whole).fillRect(0, 0, whole.width() / 2, whole.height(),
                                  QColor(QString::fromLatin1(words().value(3))));
        *image = m_clip.isNull() ? whole : whole.copy(m_clip);
        if (m_scaledSize.isValid())
            *image = image->scaled(m_scaledSize);
        QMutexLocker locker(&s_mutex);
        ++s_records[path].ended;
        s_records[path].decodedSize = image->size();
        return true;
    }

private:
    QList<QByteArray> words() const { return device()->peek(100).trimmed().split(' '); }
    QSize fullSize() const
    {
        const QList<QByteArray> parts = words();
        return QSize(parts.value(1).toInt(), parts.value(2).toInt());
    }

    QSize m_scaledSize;
    QRect m_clip;
};

class ProbePlugin : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "probeimage.json")

public:
    Capabilities capabilities(QIODevice *device, const QByteArray &format) const override
    {
        const bool isOurs = format == "probe"
                            || (device && device->isReadable() && device->peek(5) == "PROBE");
        return isOurs ? Capabilities(CanRead) : Capabilities();
    }

    QImageIOHandler *create(QIODevice *device, const QByteArray &format) const override
    {
        auto *handler = new ProbeHandler;
        handler->setDevice(device);
        handler->setFormat(format);
        return handler;
    }
};

ProbeImage::ProbeImage(const QDir &folder, const QString &name, const QSize &size,
                       const QColor &color)
    : m_path(folder.filePath(name))
{
    QFile file(m_path);
    file.open(QIODevice::WriteOnly);
    file.write(QStringLiteral("PROBE %1 %2 %3")
                   .arg(size.width())
                   .arg(size.height())
                   .arg(color.name())
                   .toLatin1());
}

ProbeImage::~ProbeImage()
{
    release();
}

void ProbeImage::hold()
{
    const QMutexLocker locker(&s_mutex);
    s_records[m_path].held = true;
}

void ProbeImage::release()
{
    const QMutexLocker locker(&s_mutex);
    s_records[m_path].held = false;
    s_released.wakeAll();
}

bool ProbeImage::isBeingRead() const
{
    const QMutexLocker locker(&s_mutex);
    return s_records[m_path].begun > s_records[m_path].ended;
}

int ProbeImage::readCount() const
{
    const QMutexLocker locker(&s_mutex);
    return s_records[m_path].ended;
}

QSize ProbeImage::decodedSize() const
{
    const QMutexLocker locker(&s_mutex);
    return s_records[m_path].decodedSize;
}

} // namespace ta::test

using ta::test::ProbePlugin;
Q_IMPORT_PLUGIN(ProbePlugin)
#include "probeimage.moc"
