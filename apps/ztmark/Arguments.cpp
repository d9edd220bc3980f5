#include "Arguments.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace arguments {

namespace {

constexpr double kMaxLengthMm = 10000.0;
constexpr double kMaxCopies = 1e6;

[[noreturn]] void refuse(std::string_view text, const std::string &why)
{
    throw ArgumentError{"\"" + std::string(text) + "\" " + why};
}

/** Reads a number off the front of the text; whether there was one. */
bool takeNumber(std::string_view *text, double *value)
{
    if (!text->empty() && text->front() == '+' && text->substr(0, 2) != "+-")
        text->remove_prefix(1);
    const auto result = std::from_chars(text->data(), text->data() + text->size(), *value);
    if (result.ec != std::errc() || !std::isfinite(*value))
        return false;
    text->remove_prefix(result.ptr - text->data());
    return true;
}

std::string shown(double value)
{
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    return std::string(digits, result.ptr);
}

double mmOfUnit(std::string_view unit)
{
    if (unit.empty() || unit == "mm")
        return 1.0;
    if (unit == "cm")
        return 10.0;
    if (unit == "in")
        return 25.4;
    return 0.0;
}

int count(std::string_view text, std::string_view whole)
{
    int value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        refuse(whole, "is too large, at most 1000000 copies can be made");
    if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size())
        refuse(whole, "is no matrix, write columns x rows such as 3x4");
    if (value < 1)
        refuse(whole, "is no matrix, columns and rows must be at least 1");
    return value;
}

} // namespace

double number(const std::string &text, double least, double most)
{
    std::string_view rest = text;
    double value = 0.0;
    if (!takeNumber(&rest, &value) || !rest.empty())
        refuse(text, "is not a number");
    if (value < least || value > most)
        refuse(text, "is out of range, it must be from " + shown(least) + " to " + shown(most));
    return value;
}

double lengthMm(const std::string &text)
{
    std::string_view rest = text;
    double value = 0.0;
    if (!takeNumber(&rest, &value))
        refuse(text, "is not a length, write a number with mm, cm or in behind it");
    if (!rest.empty() && rest.front() == ' ')
        rest.remove_prefix(1);
    const double factor = mmOfUnit(rest);
    if (factor == 0.0)
        refuse(text, "has an unknown unit, lengths take mm, cm or in");
    if (value < 0.0)
        refuse(text, "is negative");
    if (value * factor > kMaxLengthMm)
        refuse(text, "is too long, at most 10000 mm are allowed");
    return value * factor;
}

double positiveLengthMm(const std::string &text)
{
    const double length = lengthMm(text);
    if (length <= 0.0)
        refuse(text, "must be greater than 0");
    return length;
}

QSize matrix(const std::string &text)
{
    const std::string_view whole = text;
    const size_t cross = whole.find('x');
    if (cross == std::string_view::npos)
        refuse(whole, "is no matrix, write columns x rows such as 3x4");
    const QSize size(count(whole.substr(0, cross), whole), count(whole.substr(cross + 1), whole));
    if (double(size.width()) * size.height() > kMaxCopies)
        refuse(whole, "is too large, at most 1000000 copies can be made");
    return size;
}

QSizeF gapMm(const std::string &text)
{
    const size_t comma = text.find(',');
    if (comma == std::string::npos) {
        const double both = lengthMm(text);
        return QSizeF(both, both);
    }
    return QSizeF(lengthMm(text.substr(0, comma)), lengthMm(text.substr(comma + 1)));
}

} // namespace arguments
