#pragma once

#include "../foundation/export.h"

#include <QtGui/QColor>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class CheckerBoardPrivate;

/*!
    Squares of two colours in turn, which fill the item: the usual ground behind what is
    translucent.

    The squares measure the same on the screen whatever the item's size, scale and rotation, and
    they move with the item's top-left corner.

    QML: \c UiCheckerBoard.
*/
class TAMBERUI_EXPORT CheckerBoard : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(int tileSize READ tileSize WRITE setTileSize NOTIFY tileSizeChanged)
    Q_PROPERTY(
        QColor primaryColor READ primaryColor WRITE setPrimaryColor NOTIFY primaryColorChanged)
    Q_PROPERTY(QColor secondaryColor READ secondaryColor WRITE setSecondaryColor NOTIFY
                   secondaryColorChanged)

public:
    explicit CheckerBoard(QQuickItem *parent = nullptr);
    ~CheckerBoard() override;

    /// Side of a square in logical pixels, 12 by default. Values below 2 are stored as 2, those
    /// above 100 as 100.
    int tileSize() const;
    void setTileSize(int size);

    /// White by default.
    QColor primaryColor() const;
    void setPrimaryColor(const QColor &color);

    /// #DDDDDD by default.
    QColor secondaryColor() const;
    void setSecondaryColor(const QColor &color);

Q_SIGNALS:
    void tileSizeChanged();
    void primaryColorChanged();
    void secondaryColorChanged();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    friend class CheckerBoardPrivate;
    const std::unique_ptr<CheckerBoardPrivate> d;
};

} // namespace ta::ui
