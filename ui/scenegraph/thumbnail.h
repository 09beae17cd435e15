#pragma once

#include "../foundation/export.h"

#include <QtCore/QRect>
#include <QtCore/QUrl>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class ThumbnailPrivate;

/*!
    Shows a local picture file, or a region of it: as large as fits the item, in its own
    proportions, in the middle.

    The picture is decoded in the background, at the size it has on the screen and never larger than
    it is; equal thumbnails are decoded once. Until that is done the item shows what it showed
    before. What cannot be decoded shows nothing, without a message. A disabled thumbnail is grey
    and half transparent.

    QML: \c UiThumbnail.
*/
class TAMBERUI_EXPORT Thumbnail : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QUrl source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(QRect region READ region WRITE setRegion NOTIFY regionChanged)

public:
    explicit Thumbnail(QQuickItem *parent = nullptr);
    ~Thumbnail() override;

    /// The file; empty by default. URLs that are not of local files show nothing. Neither do
    /// pictures of more than 2^28 pixels whose decoder would keep all of them in memory.
    QUrl source() const;
    void setSource(const QUrl &source);

    /// The part to show, in pixels of the picture. All of it while empty, the default; what lies
    /// outside of the picture is left out.
    QRect region() const;
    void setRegion(const QRect &region);

Q_SIGNALS:
    void sourceChanged();
    void regionChanged();

protected:
    void componentComplete() override;
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private Q_SLOTS:
    void loadFinished();

private:
    friend class ThumbnailPrivate;
    const std::unique_ptr<ThumbnailPrivate> d;
};

} // namespace ta::ui
