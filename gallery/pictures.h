#pragma once

#include <QtCore/QObject>
#include <QtCore/QSize>
#include <QtCore/QTemporaryDir>
#include <QtCore/QVariant>

/*!
    A folder of painted landscapes, made when the first page asks for it and removed at the end.

    QML: the singleton \c Pictures of the module \c Gallery.
*/
class Pictures : public QObject
{
    Q_OBJECT
    /// In several formats and sizes: a list of objects with url, format, width and height.
    Q_PROPERTY(QVariantList samples READ samples CONSTANT)
    /// As many as a grid of thumbnails takes its regions from; each is of wallSize.
    Q_PROPERTY(QVariantList wall READ wall CONSTANT)
    Q_PROPERTY(QSize wallSize READ wallSize CONSTANT)

public:
    explicit Pictures(QObject *parent = nullptr);
    ~Pictures() override;

    QVariantList samples() const { return m_samples; }
    QVariantList wall() const { return m_wall; }
    QSize wallSize() const;

private:
    QString addFile(const QString &name, const QImage &picture);

    QTemporaryDir m_folder;
    QVariantList m_samples;
    QVariantList m_wall;
};
