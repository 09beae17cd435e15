#pragma once

#include "export.h"

namespace ta::ui {

/*!
    Makes the control bases available to QML as the module "tamber.Ui.Private" 1.0.

    A host calls it once, on the GUI thread, before it loads QML that imports the module; a second
    call registers the same types again and changes nothing that QML can see. The module
   "tamber.Ui", with the public types and the controls that have a look, is not registered here: the
   kit does it, or the host itself.
*/
TAMBERUI_EXPORT void register_private();

} // namespace ta::ui
