#pragma once

#include "sliderbase.h"

#include <QtGui/QColor>

namespace ta::ui {

class DefaultSliderPrivate;

/*!
    A slider with a look: a thin track, a bar for the handle and, on request, a bar that leads from
    an origin to the value. Drawn straight into the scene graph, without any QML.

    100 x 20 pixels with a margin of 3 where nothing else is said. Edges are soft when the item's
    \c antialiasing is on.

    A change of the range or of the curve that leaves the value as it is shows with the next change
    of something that is drawn.

    QML: \c UiDefaultSlider.
*/
class TAMBERUI_EXPORT DefaultSlider : public SliderBase
{
    Q_OBJECT
    Q_PROPERTY(int trackHeight READ trackHeight WRITE setTrackHeight NOTIFY trackHeightChanged)
    Q_PROPERTY(QColor trackBaseColor READ trackBaseColor WRITE setTrackBaseColor NOTIFY
                   trackBaseColorChanged)
    Q_PROPERTY(QColor trackMaximumColor READ trackMaximumColor WRITE setTrackMaximumColor NOTIFY
                   trackMaximumColorChanged)
    Q_PROPERTY(int handleWidth READ handleWidth WRITE setHandleWidth NOTIFY handleWidthChanged)
    Q_PROPERTY(QColor handleColor READ handleColor WRITE setHandleColor NOTIFY handleColorChanged)
    Q_PROPERTY(
        double handleOpacity READ handleOpacity WRITE setHandleOpacity NOTIFY handleOpacityChanged)
    Q_PROPERTY(bool valueBarVisible READ isValueBarVisible WRITE setValueBarVisible NOTIFY
                   valueBarVisibleChanged)
    Q_PROPERTY(float valueBarOrigin READ valueBarOrigin WRITE setValueBarOrigin NOTIFY
                   valueBarOriginChanged)
    Q_PROPERTY(
        int valueBarHeight READ valueBarHeight WRITE setValueBarHeight NOTIFY valueBarHeightChanged)
    Q_PROPERTY(
        QColor valueBarColor READ valueBarColor WRITE setValueBarColor NOTIFY valueBarColorChanged)

public:
    explicit DefaultSlider(QQuickItem *parent = nullptr);
    ~DefaultSlider() override;

    /// Thickness of the track in pixels. 2 by default.
    int trackHeight() const;
    void setTrackHeight(int height);

    /// The track's colour, or that of its left end where there is a maximum colour. Grey by
    /// default.
    QColor trackBaseColor() const;
    void setTrackBaseColor(const QColor &color);

    /// The colour of the track's right end. Invalid by default: like the left one.
    QColor trackMaximumColor() const;
    void setTrackMaximumColor(const QColor &color);

    /// In pixels, 3 by default.
    int handleWidth() const;
    void setHandleWidth(int width);

    /// Grey by default.
    QColor handleColor() const;
    void setHandleColor(const QColor &color);

    /// Opacity of the handle alone, 0 to 1; beyond, it shows like the nearer of the two. NaN is
    /// ignored. 1 by default.
    double handleOpacity() const;
    void setHandleOpacity(double opacity);

    /// False by default.
    bool isValueBarVisible() const;
    void setValueBarVisible(bool visible);

    /// Where the value bar starts, as a fraction of the track; beyond 0 and 1 it starts outside of
    /// it. NaN is ignored. 0 by default.
    float valueBarOrigin() const;
    void setValueBarOrigin(float origin);

    /// Thickness of the value bar in pixels. 4 by default.
    int valueBarHeight() const;
    void setValueBarHeight(int height);

    /// Grey by default.
    QColor valueBarColor() const;
    void setValueBarColor(const QColor &color);

Q_SIGNALS:
    void trackHeightChanged();
    void trackBaseColorChanged();
    void trackMaximumColorChanged();
    void handleWidthChanged();
    void handleColorChanged();
    void handleOpacityChanged();
    void valueBarVisibleChanged();
    void valueBarOriginChanged();
    void valueBarHeightChanged();
    void valueBarColorChanged();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void valueChange() override;
    void marginChange() override;

private Q_SLOTS:
    void updateHandle();
    void updateMaterial();

private:
    friend class DefaultSliderPrivate;
    const std::unique_ptr<DefaultSliderPrivate> d;
};

} // namespace ta::ui
