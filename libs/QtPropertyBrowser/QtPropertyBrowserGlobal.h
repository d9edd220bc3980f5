#pragma once

#include <QtCore/qglobal.h>

/** Marks what programs may link against; everything else in the library is hidden. */
#if defined(QTPROPERTYBROWSER_LIBRARY)
#define QTPROPERTYBROWSER_EXPORT Q_DECL_EXPORT
#else
#define QTPROPERTYBROWSER_EXPORT Q_DECL_IMPORT
#endif
