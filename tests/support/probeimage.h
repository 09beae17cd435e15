#pragma once

#include <QtCore/QDir>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QColor>

namespace ta::test {

/*!
    A picture file in a format of its own, whose decoder tells how often it was read and at which
    size, and waits where the test wants it to.

    The left half has the given colour, the right half is black. The decoder scales and clips.
*/
class ProbeImage
{
public:
    ProbeImage(const QDir &folder, const QString &name, const QSize &size,
               const QColor &color = Qt::red);
    /// Lets the decoder go on.
    ~ProbeImage();

    QUrl url() const { return QUrl::fromLocalFile(m_path); }

    /// From now on the decoder waits until it is released.
    void hold();
    void release();
    /// Whether the decoder has begun to read.
    bool isBeingRead() const;

    /// How often the picture has been read to the end.
    int readCount() const;
    /// The size that it was decoded to the last time.
    QSize decodedSize() const;

private:
    QString m_path;
};

} // namespace ta::test
