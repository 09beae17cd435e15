#include "logging.h"

Q_LOGGING_CATEGORY(lcUi, "tamber.ui", QtWarningMsg)
Q_LOGGING_CATEGORY(lcPalette, "tamber.ui.palette", QtInfoMsg)
