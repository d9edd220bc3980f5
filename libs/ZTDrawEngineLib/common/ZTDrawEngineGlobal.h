#pragma once

#include <QtCore/qglobal.h>

/** Marks what hosts may link against; everything else in the library is hidden. */
#if defined(ZTDRAWENGINELIB_LIBRARY)
#define ZTDRAWENGINELIB_EXPORT Q_DECL_EXPORT
#else
#define ZTDRAWENGINELIB_EXPORT Q_DECL_IMPORT
#endif

/**
 * Marks a class template that hosts instantiate for types of their own.
 *
 * Such an instance must be visible on ELF, or a static of it would exist once per module; it must
 * not be imported on Windows, where the host's own type has no definition in the library.
 */
#if defined(Q_OS_WIN)
#define ZTDRAWENGINELIB_TEMPLATE_EXPORT
#else
#define ZTDRAWENGINELIB_TEMPLATE_EXPORT Q_DECL_EXPORT
#endif

/** Marks internals that the library's own unit tests reach; hidden in an installed build. */
#if defined(ZTDRAWENGINELIB_AUTOTEST) || defined(ZTDRAWENGINELIB_AUTOTEST_USER)
#define ZTDRAWENGINELIB_PRIVATE_EXPORT ZTDRAWENGINELIB_EXPORT
#else
#define ZTDRAWENGINELIB_PRIVATE_EXPORT
#endif
