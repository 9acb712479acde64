#pragma once

#include <QtGlobal>

/// What a shared library of the Qt widgets shows to programs. Nothing has to be said for a static
/// one.
#if !defined(VELMORA_QT_SHARED)
#define VELMORA_QT_API
#elif defined(velmora_qt_EXPORTS)
#define VELMORA_QT_API Q_DECL_EXPORT
#else
#define VELMORA_QT_API Q_DECL_IMPORT
#endif
