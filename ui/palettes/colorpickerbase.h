#pragma once

#include "palette.h"

#include "../foundation/export.h"

#include <QtQml/QQmlListProperty>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class ColorPickerBasePrivate;

/*!
    The behaviour of a colour picker whose look the host writes in QML: the current colour, the
    palettes of all providers, and an eyedropper.

    A picker with a property \c palette, a list of names of colours, tells by \l usesTransparent
    whether one of them is transparent. Its own palettes are made once, when QML has completed it,
    and belong to it.

    QML: \c UiColorPickerBase of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT ColorPickerBase : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(Mode mode READ mode WRITE setMode NOTIFY modeChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(bool bindable READ isBindable WRITE setBindable NOTIFY bindableChanged)
    Q_PROPERTY(
        bool indeterminate READ isIndeterminate WRITE setIndeterminate NOTIFY indeterminateChanged)
    Q_PROPERTY(bool usesTransparent READ usesTransparent NOTIFY usesTransparentChanged)
    Q_PROPERTY(bool transparent READ isTransparent NOTIFY transparentChanged)
    Q_PROPERTY(bool colorPickActive READ colorPickActive NOTIFY colorPickActiveChanged)
    Q_PROPERTY(QQmlListProperty<ta::ui::Palette> palettes READ palettes NOTIFY palettesChanged)
    Q_PROPERTY(QQmlListProperty<ta::ui::Palette> writablePalettes READ writablePalettes NOTIFY
                   palettesChanged)
    Q_PROPERTY(bool hasCustomColor READ hasCustomColor NOTIFY hasCustomColorChanged)

public:
    /// Which face of the picker is shown.
    enum Mode : int { Mixer = 0, Swatches = 1 };
    Q_ENUM(Mode)

    explicit ColorPickerBase(QQuickItem *parent = nullptr);
    /// A pick in progress ends without a report.
    ~ColorPickerBase() override;

    /// Swatches by default.
    Mode mode() const;
    void setMode(Mode mode);

    /// In the RGB spec, which other colours are converted to. Black by default. An invalid colour
    /// stays one.
    QColor color() const;
    void setColor(const QColor &color);

    /// Whether what the user picks is only reported, by updateRequested(), and left to the host to
    /// write. False by default.
    bool isBindable() const;
    void setBindable(bool bindable);

    /// Whether the picker stands for several different colours. The host says so, and takes it
    /// back; false by default.
    bool isIndeterminate() const;
    void setIndeterminate(bool indeterminate);

    /// Whether the property \c palette had a transparent colour when QML completed the picker.
    bool usesTransparent() const;

    /// Whether the alpha of the colour is below 0.01.
    bool isTransparent() const;

    /// Whether an eyedropper is running.
    bool colorPickActive() const;

    /// All palettes, by their sort key; those with the same key in the order of their providers.
    QQmlListProperty<Palette> palettes();
    /// Those of them that were not read-only when they were made.
    QQmlListProperty<Palette> writablePalettes();

    /// Whether no palette has the colour.
    bool hasCustomColor() const;

public Q_SLOTS:
    /// Takes a colour as the user's choice: stores it, or asks the host to where \l bindable.
    void updateColor(const QColor &color);
    /// Lets the user pick a colour from the window, see ColorPickerCanvas. A pick in progress is
    /// aborted first. Without a window it refuses with a warning. A picker that leaves its window
    /// aborts the pick.
    void pickColor();

Q_SIGNALS:
    void modeChanged();
    void colorChanged();
    void bindableChanged();
    void indeterminateChanged();
    void usesTransparentChanged();
    void transparentChanged();
    void colorPickActiveChanged();
    void palettesChanged();
    void hasCustomColorChanged();
    /// The user chose \a newValue on a bindable picker.
    void updateRequested(const QColor &newValue);

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private Q_SLOTS:
    void setPickedColor(const QColor &color);
    void abortColorPick();

private:
    friend class ColorPickerBasePrivate;
    const std::unique_ptr<ColorPickerBasePrivate> d;
};

} // namespace ta::ui
