#include "Arguments.h"

#include <QtCore/QTextCodec>

#include <charconv>
#include <cmath>
#include <langinfo.h>
#include <string_view>

namespace arguments {

namespace {

constexpr double kMaxLengthMm = 10000.0;
constexpr double kMaxCopies = 1e6;

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

QString shown(double value)
{
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    return QString::fromLatin1(digits, static_cast<int>(result.ptr - digits));
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

int copies(std::string_view text, const std::string &whole)
{
    int value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        refuse(whole, Texts::tr("\"%1\" is too large, at most 1000000 copies can be made"));
    if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size())
        refuse(whole, Texts::tr("\"%1\" is no matrix, write columns x rows such as 3x4"));
    if (value < 1)
        refuse(whole, Texts::tr("\"%1\" is no matrix, columns and rows must be at least 1"));
    return value;
}

/** Empty where the codec finds bytes that are not its own. */
QString decoded(const std::string &typed, const QTextCodec *codec)
{
    if (codec == nullptr)
        return {};
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = codec->toUnicode(typed.data(), static_cast<int>(typed.size()), &state);
    const bool isWhole = state.invalidChars == 0 && state.remainingChars == 0;
    // Some codecs do not count what they replace.
    return isWhole && !text.contains(QChar::ReplacementCharacter) ? text : QString();
}

/** A whole number that stands for itself; refuses the whole argument else. */
qint64 whole(std::string_view text, const std::string &argument)
{
    qint64 value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size())
        refuse(argument, Texts::tr("\"%1\" is no serial number: \"%2\" is not a whole number")
                             .arg(QStringLiteral("%1"), QString::fromStdString(std::string(text))));
    return value;
}

ZTCounterRadix radix(qint64 base, const std::string &argument)
{
    if (base == 10)
        return ZTCounterRadix::Decimal;
    if (base == 16)
        return ZTCounterRadix::Hexadecimal;
    if (base == 26)
        return ZTCounterRadix::Letters;
    refuse(argument, Texts::tr("\"%1\" is no serial number: base is 10, 16 or 26 (letters)"));
}

/** Sets what "width=4" says. */
void setSerial(ZTCounterSegment &counter, std::string_view part, const std::string &argument)
{
    const size_t equal = part.find('=');
    const std::string_view key = part.substr(0, equal);
    const qint64 value = equal == std::string_view::npos ? whole(part, argument)
                                                         : whole(part.substr(equal + 1), argument);
    if (key == "start" || equal == std::string_view::npos)
        counter.start = value;
    else if (key == "step")
        counter.step = value;
    else if (key == "last")
        counter.last = value;
    else if (key == "width" && value >= 0 && value <= 256)
        counter.width = static_cast<qint32>(value);
    else if (key == "width")
        refuse(argument, Texts::tr("\"%1\" is no serial number: width must be from 0 to 256"));
    else if (key == "base")
        counter.radix = radix(value, argument);
    else
        refuse(argument, Texts::tr("\"%1\" is no serial number, write start=1,step=1,last=99,"
                                   "width=4,base=10 or some of them"));
}

} // namespace

void refuse(const std::string &text, const QString &why)
{
    throw ArgumentError{why.arg(QString::fromStdString(text)).toStdString()};
}

QString text(const std::string &typed)
{
    if (typed.empty())
        return {};
    QString utf8 = decoded(typed, QTextCodec::codecForName("UTF-8"));
    if (!utf8.isEmpty())
        return utf8;
    QString local = decoded(typed, QTextCodec::codecForName(nl_langinfo(CODESET)));
    if (local.isEmpty())
        refuse(typed, Texts::tr("\"%1\" is neither UTF-8 nor in the encoding of the locale"));
    return local;
}

double number(const std::string &text, double least, double most)
{
    std::string_view rest = text;
    double value = 0.0;
    if (!takeNumber(&rest, &value) || !rest.empty())
        refuse(text, Texts::tr("\"%1\" is not a number"));
    if (value < least || value > most)
        refuse(text, Texts::tr("\"%1\" is out of range, it must be from %2 to %3")
                         .arg(QStringLiteral("%1"), shown(least), shown(most)));
    return value;
}

int count(const std::string &text, int least, int most)
{
    const double value = number(text, least, most);
    if (value != std::floor(value))
        refuse(text, Texts::tr("\"%1\" is not a whole number"));
    return static_cast<int>(value);
}

double lengthMm(const std::string &text)
{
    std::string_view rest = text;
    double value = 0.0;
    if (!takeNumber(&rest, &value))
        refuse(text,
               Texts::tr("\"%1\" is not a length, write a number with mm, cm or in behind it"));
    if (!rest.empty() && rest.front() == ' ')
        rest.remove_prefix(1);
    const double factor = mmOfUnit(rest);
    if (factor == 0.0)
        refuse(text, Texts::tr("\"%1\" has an unknown unit, lengths take mm, cm or in"));
    if (value < 0.0)
        refuse(text, Texts::tr("\"%1\" is negative"));
    if (value * factor > kMaxLengthMm)
        refuse(text, Texts::tr("\"%1\" is too long, at most 10000 mm are allowed"));
    return value * factor;
}

double positiveLengthMm(const std::string &text)
{
    const double length = lengthMm(text);
    if (length <= 0.0)
        refuse(text, Texts::tr("\"%1\" must be greater than 0"));
    return length;
}

QSize matrix(const std::string &text)
{
    const std::string_view both = text;
    const size_t cross = both.find('x');
    if (cross == std::string_view::npos)
        refuse(text, Texts::tr("\"%1\" is no matrix, write columns x rows such as 3x4"));
    const QSize size(copies(both.substr(0, cross), text), copies(both.substr(cross + 1), text));
    if (double(size.width()) * size.height() > kMaxCopies)
        refuse(text, Texts::tr("\"%1\" is too large, at most 1000000 copies can be made"));
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

ZTCounterSegment serial(const std::string &text)
{
    ZTCounterSegment counter;
    std::string_view rest = text;
    for (;;) {
        const size_t comma = rest.find(',');
        setSerial(counter, rest.substr(0, comma), text);
        if (comma == std::string_view::npos)
            return counter;
        rest.remove_prefix(comma + 1);
    }
}

} // namespace arguments
