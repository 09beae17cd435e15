#pragma once

#include "export.h"

#include <QtCore/QLoggingCategory>

/// Category "tamber.ui": warnings and above, unless logging rules say otherwise.
TAMBERUI_EXPORT Q_DECLARE_LOGGING_CATEGORY(lcUi)

/// Category "tamber.ui.palette": info and above, unless logging rules say otherwise.
TAMBERUI_EXPORT Q_DECLARE_LOGGING_CATEGORY(lcPalette)
