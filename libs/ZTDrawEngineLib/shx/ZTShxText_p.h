#pragma once

#include <string>

namespace ztshx {

/**
 * Text in the wide form by the locale of the environment; null counts as empty.
 *
 * Failure: empty, and "convert error!\n" on standard output. Where the environment names a locale
 * that the system does not know, the classic one stands in for it.
 */
std::wstring toWide(const char *text);

/** Text in the byte form; otherwise as `toWide`. */
std::string toBytes(const wchar_t *text);

} // namespace ztshx
