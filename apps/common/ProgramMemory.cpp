// Gives a program its memory by mimalloc, which takes the place of malloc by being linked.

#include <mimalloc.h>

#include <cstddef>

namespace {

/** Limit: so much is kept for the next drawing, once it was used; more goes back to the system. */
constexpr std::size_t kKeptBytes = std::size_t{1} << 30;

// Long lists, as those of a hatch, are laid out again and again. Given back and fetched anew each
// time, they take up to half as long again. Where nothing can be set aside, all works without.
bool keepMemory() noexcept
{
    mi_option_disable(mi_option_page_reset);
    return mi_reserve_os_memory(kKeptBytes, true, false) == 0;
}

[[maybe_unused]] const bool g_isKept = keepMemory();

} // namespace
