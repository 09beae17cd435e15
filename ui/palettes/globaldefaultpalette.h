#pragma once

#include "palette.h"

namespace ta::ui {

/// The palette that every colour picker offers: 42 colours in six swatches, read-only, without a
/// name.
class TAMBERUI_EXPORT GlobalDefaultPalette : public Palette
{
    Q_OBJECT

public:
    explicit GlobalDefaultPalette(QObject *parent = nullptr);
    ~GlobalDefaultPalette() override;

    /// 1.
    int sortInfo() const override;
};

} // namespace ta::ui
