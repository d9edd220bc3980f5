#include <ZTDrawEngineLib/shx/ZTShxText_p.h>

#include <cstdio>
#include <cstring>
#include <cwchar>
#include <locale>
#include <stdexcept>

namespace {

using Facet = std::codecvt<wchar_t, char, std::mbstate_t>;

std::locale environmentLocale()
{
    try {
        return std::locale("");
    } catch (const std::runtime_error &) { // the environment names a locale nobody installed
        return std::locale::classic();
    }
}

void reportFailure() { std::fputs("convert error!\n", stdout); }

} // namespace

namespace ztshx {

std::wstring toWide(const char *text)
{
    const std::size_t size = text != nullptr ? std::strlen(text) : 0;
    if (size == 0)
        return {};
    const std::locale locale = environmentLocale();
    std::wstring wide(size, L'\0');
    std::mbstate_t state{};
    const char *fromNext = nullptr;
    wchar_t *toNext = nullptr;
    const auto result = std::use_facet<Facet>(locale).in(state, text, text + size, fromNext,
                                                         &wide[0], &wide[0] + size, toNext);
    if (result != Facet::ok) {
        reportFailure();
        return {};
    }
    wide.resize(static_cast<std::size_t>(toNext - wide.data()));
    return wide;
}

std::string toBytes(const wchar_t *text)
{
    const std::size_t size = text != nullptr ? std::wcslen(text) : 0;
    if (size == 0)
        return {};
    const std::locale locale = environmentLocale();
    const Facet &facet = std::use_facet<Facet>(locale);
    const std::size_t room = (size + 1) * static_cast<std::size_t>(facet.max_length());
    std::string bytes(room, '\0');
    std::mbstate_t state{};
    const wchar_t *fromNext = nullptr;
    char *toNext = nullptr;
    const auto result =
        facet.out(state, text, text + size, fromNext, &bytes[0], &bytes[0] + room, toNext);
    if (result != Facet::ok) {
        reportFailure();
        return {};
    }
    bytes.resize(static_cast<std::size_t>(toNext - bytes.data()));
    return bytes;
}

} // namespace ztshx
