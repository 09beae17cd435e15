#pragma once

#include "../foundation/export.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtGui/QColor>

#include <memory>

namespace ta::ui {

class ColorSwatch;
class PalettePrivate;
class PaletteProvider;

/*!
    A named, ordered set of colour swatches that a colour picker offers.

    Hosts derive from it and hand their palettes out with a PaletteProvider. It is read-only unless
    isReadOnly() says otherwise; edits then go to the swatches, which have the last word. A refused
    edit is a warning on "tamber.ui.palette" and changes nothing.

    GUI thread only.
*/
class TAMBERUI_EXPORT Palette : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool readOnly READ isReadOnly CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QUrl icon READ icon CONSTANT)

public:
    explicit Palette(QObject *parent = nullptr);
    ~Palette() override;

    /// What the user reads; empty here.
    virtual QString name() const;
    /// A picture that stands for the palette; empty here.
    virtual QUrl icon() const;
    /// Pickers show palettes by this key, the smallest first.
    virtual int sortInfo() const = 0;
    /// Whether the palette refuses to be edited; true here.
    virtual bool isReadOnly() const;

    /// Inserts \a color into the swatch at \a swatchIndex, before the colour at \a index; -1 stands
    /// for the end. Colours are handed on in the RGB spec. Returns whether the swatch took it.
    Q_INVOKABLE virtual bool insertColor(const QColor &color, int index = -1, int swatchIndex = 0);
    /// Replaces a colour; otherwise as insertColor().
    Q_INVOKABLE virtual bool setColor(const QColor &color, int index, int swatchIndex = 0);
    /// Removes a colour; otherwise as insertColor().
    Q_INVOKABLE virtual bool removeColor(int index, int swatchIndex = 0);

    /// In display order, without those that were destroyed.
    QList<ColorSwatch *> swatches() const;
    /// Whether one of the swatches has exactly this colour, alpha and colour spec included.
    bool containsColor(const QColor &color) const;
    /// Whether there is no swatch but empty ones.
    bool isEmpty() const;

    /// Puts \a swatch before the one at \a index, or at the end where there is none. One that is in
    /// the palette already moves there, \a index counting without it. Null is ignored. The palette
    /// does not own its swatches; one that is destroyed leaves it.
    void insertSwatch(ColorSwatch *swatch, int index);
    /// Takes \a swatch out of the palette without destroying it. Null is ignored.
    void removeSwatch(ColorSwatch *swatch);

    /// Adds \a provider to those that new colour pickers ask. Providers do it themselves.
    static void installProvider(PaletteProvider *provider);
    static void uninstallProvider(PaletteProvider *provider);
    /// In the order of their installation.
    static QList<const PaletteProvider *> providers();

Q_SIGNALS:
    /// There are other swatches, or they stand in another order.
    void swatchesChanged();
    /// The set of all colours changed. Colours that change places do not cause it.
    void colorsChanged();

private Q_SLOTS:
    void updateColors();

private:
    friend class PalettePrivate;
    const std::unique_ptr<PalettePrivate> d;
};

/// Whether \a a comes before \a b in a picker.
TAMBERUI_EXPORT bool paletteLessThan(const Palette *a, const Palette *b);

} // namespace ta::ui
