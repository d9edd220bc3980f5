#pragma once

/**
 * Marks what goes away: `ZT_DEPRECATED("0.3", "2027-05-01", "use setGridVisible()")` before a
 * declaration.
 *
 * The first text is the version that deprecates it, the second the day of that version, the third
 * what to use instead. A compiler warns whoever uses it, with all three. It stays for the whole of
 * the next minor version and is gone with the one after.
 *
 * A host that cannot follow yet defines `ZT_NO_DEPRECATION_WARNINGS` before its first include.
 */
#ifdef ZT_NO_DEPRECATION_WARNINGS
#define ZT_DEPRECATED(version, date, instead)
#else
#define ZT_DEPRECATED(version, date, instead)                                                      \
    [[deprecated("since " version " of " date ": " instead)]]
#endif
