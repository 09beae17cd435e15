#pragma once

#include <QtCore/qglobal.h>

/// Marks what hosts may use; everything else stays hidden in the shared library.
#if defined(TAMBERUI_LIBRARY)
#    define TAMBERUI_EXPORT Q_DECL_EXPORT
#else
#    define TAMBERUI_EXPORT Q_DECL_IMPORT
#endif

/// Marks internals that the tests call directly; visible in developer builds only.
#if defined(TAMBERUI_DEVELOPER_BUILD)
#    define TAMBERUI_PRIVATE_EXPORT TAMBERUI_EXPORT
#else
#    define TAMBERUI_PRIVATE_EXPORT
#endif
