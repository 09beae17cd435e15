#pragma once

#include "export.h"

namespace ta::ui {

/*!
    Makes the control bases available to QML as the module "tamber.Ui.Private" 1.0.

    A host calls it once, on the GUI thread, before it loads QML that imports the module; a second
    call registers the same types again and changes nothing that QML can see. What has a look, and
    the public types, are in the module "tamber.Ui", which the kit registers or the host itself.
*/
TAMBERUI_EXPORT void register_private();

} // namespace ta::ui
