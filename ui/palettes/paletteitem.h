#pragma once

#include "colorpickerbase.h"
#include "palette.h"

#include "../foundation/export.h"

#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class PaletteItemPrivate;

/*!
    Shows the colours of a palette as rows of small patches, with which the user chooses the colour
    of a picker.

    The rows are as wide as the item; the implicit height follows from them. The patches are the
    compiled-in component UiColorPatch.qml, which needs the module "tamber.Ui". There are none until
    both the palette and the picker are set. They are kept when the palette changes, and moved when
    the width does.

    QML: \c UiPaletteItem of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT PaletteItem : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(ta::ui::Palette *palette READ palette WRITE setPalette NOTIFY paletteChanged)
    Q_PROPERTY(ta::ui::ColorPickerBase *colorPicker READ colorPicker WRITE setColorPicker NOTIFY
                   colorPickerChanged)

public:
    explicit PaletteItem(QQuickItem *parent = nullptr);
    ~PaletteItem() override;

    /// Not owned. Null by default, and where it was destroyed; its patches then stay until the next
    /// change.
    Palette *palette() const;
    void setPalette(Palette *palette);

    /// The picker whose colour a click on a patch sets and whose colour is marked. Not owned; null
    /// by default and where it was destroyed.
    ColorPickerBase *colorPicker() const;
    void setColorPicker(ColorPickerBase *picker);

Q_SIGNALS:
    void paletteChanged();
    void colorPickerChanged();

protected:
    void updatePolish() override;
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private Q_SLOTS:
    void updatePatches();

private:
    friend class PaletteItemPrivate;
    const std::unique_ptr<PaletteItemPrivate> d;
};

} // namespace ta::ui
