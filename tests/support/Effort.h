#pragma once

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ZT_IS_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define ZT_IS_SANITIZED 1
#endif
#endif

namespace testsupport {

/**
 * How often a random trial is made, of the `full` number that every other build makes.
 *
 * Under the sanitizers a trial takes about ten times as long; they look for what a trial does wrong
 * with memory, not for the rare outline on which two ways differ, and make a quarter of them.
 */
constexpr int effort(int full)
{
#ifdef ZT_IS_SANITIZED
    return (full + 3) / 4;
#else
    return full;
#endif
}

} // namespace testsupport
