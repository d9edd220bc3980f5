#pragma once

#include <QtCore/qglobal.h>

/** Marks what hosts may link against; everything else in the library is hidden. */
#if defined(ZTMARKDATAMANAGER_LIBRARY)
#define ZTMARKDATAMANAGER_EXPORT Q_DECL_EXPORT
#else
#define ZTMARKDATAMANAGER_EXPORT Q_DECL_IMPORT
#endif
