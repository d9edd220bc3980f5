#include <hostkit/files/NumberText.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace hostkit {

namespace {

constexpr std::array<double, 10> kPowersOfTen{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
constexpr double kExactSteps = 9e15; // below 2^53: every whole number is a double
constexpr int kLongestFixed = std::numeric_limits<double>::max_exponent10 + 16;

void append(QByteArray &text, std::string_view digits)
{
    text.append(digits.data(), static_cast<int>(digits.size()));
}

/** A number given in steps of its last decimal; several times quicker than from the double. */
void appendSteps(QByteArray &text, qint64 steps, int decimals)
{
    while (decimals > 0 && steps % 10 == 0) {
        steps /= 10;
        --decimals;
    }
    if (steps < 0)
        text.append('-');
    std::array<char, 24> digits;
    const auto result =
        std::to_chars(digits.data(), digits.data() + digits.size(), std::abs(steps));
    const std::string_view all(digits.data(), result.ptr - digits.data());
    const int whole = static_cast<int>(all.size()) - decimals;
    if (whole > 0)
        append(text, all.substr(0, static_cast<size_t>(whole)));
    else
        text.append('0');
    if (decimals == 0)
        return;
    text.append('.');
    for (int i = whole; i < 0; ++i)
        text.append('0');
    append(text, all.substr(static_cast<size_t>(std::max(0, whole))));
}

std::string_view withoutTrailingZeros(std::string_view digits)
{
    if (digits.find('.') == std::string_view::npos)
        return digits;
    digits.remove_suffix(digits.size() - 1 - digits.find_last_not_of('0'));
    if (digits.back() == '.')
        digits.remove_suffix(1);
    return digits;
}

/** A number too large for steps. */
void appendDigits(QByteArray &text, double value, int decimals)
{
    std::array<char, kLongestFixed> digits;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                      std::chars_format::fixed, decimals);
    append(text, withoutTrailingZeros(std::string_view(digits.data(), result.ptr - digits.data())));
}

} // namespace

void appendShortest(QByteArray &text, double value)
{
    std::array<char, 32> digits;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    append(text, std::string_view(digits.data(), result.ptr - digits.data()));
}

void appendWhole(QByteArray &text, qint64 value)
{
    std::array<char, 24> digits;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    append(text, std::string_view(digits.data(), result.ptr - digits.data()));
}

void appendRounded(QByteArray &text, double value, int decimals)
{
    const double steps = value * kPowersOfTen[static_cast<size_t>(decimals)];
    if (std::abs(steps) < kExactSteps)
        appendSteps(text, std::llround(steps), decimals);
    else
        appendDigits(text, value, decimals);
}

} // namespace hostkit
