#include <vectorkit/svg/SvgScan_p.h>

#include <QtCore/QVector>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

namespace vectorkit {

namespace {

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

constexpr double kMmPerInch = 25.4;

/** Inches in one of a unit. */
double inchesOf(SvgUnit unit)
{
    switch (unit) {
    case SvgUnit::Mm:
        return 1.0 / kMmPerInch;
    case SvgUnit::Cm:
        return 10.0 / kMmPerInch;
    case SvgUnit::Q:
        return 0.25 / kMmPerInch;
    case SvgUnit::In:
        return 1.0;
    case SvgUnit::Pt:
        return 1.0 / 72.0;
    case SvgUnit::Pc:
        return 1.0 / 6.0;
    default:
        return 0.0;
    }
}

bool unitOf(const QByteArray &word, SvgUnit *unit)
{
    static const struct
    {
        const char *name;
        SvgUnit unit;
    } kUnits[] = {{"", SvgUnit::None},  {"px", SvgUnit::Px}, {"em", SvgUnit::Em},
                  {"rem", SvgUnit::Em}, {"ex", SvgUnit::Ex}, {"mm", SvgUnit::Mm},
                  {"cm", SvgUnit::Cm},  {"in", SvgUnit::In}, {"pt", SvgUnit::Pt},
                  {"pc", SvgUnit::Pc},  {"q", SvgUnit::Q}};
    for (const auto &known : kUnits) {
        if (word == known.name) {
            *unit = known.unit;
            return true;
        }
    }
    return false;
}

/** An angle in degrees, with its unit if it has one. */
bool scanAngle(SvgScan *scan, double *degrees)
{
    if (!scan->number(degrees))
        return false;
    const QByteArray unit = scan->word().toLower();
    if (unit == "rad")
        *degrees *= 180.0 / M_PI;
    else if (unit == "grad")
        *degrees *= 0.9;
    else if (unit == "turn")
        *degrees *= 360.0;
    else
        return unit.isEmpty() || unit == "deg";
    return true;
}

/** The numbers in the parentheses of a transform; lengths only in px. */
bool scanArguments(SvgScan *scan, bool areAngles, QVector<double> *values)
{
    scan->skipSpaces();
    if (scan->peek() != '(')
        return false;
    scan->step();
    scan->skipSpaces();
    while (scan->peek() != ')') {
        double value = 0.0;
        if (areAngles) {
            if (!scanAngle(scan, &value))
                return false;
        } else {
            if (!scan->number(&value))
                return false;
            const QByteArray unit = scan->word();
            if (!unit.isEmpty() && unit != "px")
                return false;
        }
        values->append(value);
        if (values->size() > 6)
            return false;
        scan->skipSeparator();
    }
    scan->step();
    return true;
}

bool transformOf(const QByteArray &name, const QVector<double> &values, QTransform *result)
{
    const int count = values.size();
    const auto value = [&](int index) { return values.value(index, 0.0); };
    if (name == "matrix" && count == 6) {
        *result = QTransform(value(0), value(1), value(2), value(3), value(4), value(5));
    } else if (name == "translate" && (count == 1 || count == 2)) {
        *result = QTransform::fromTranslate(value(0), value(1));
    } else if ((name == "translatex" || name == "translatey") && count == 1) {
        const bool isX = name.endsWith('x');
        *result = QTransform::fromTranslate(isX ? value(0) : 0.0, isX ? 0.0 : value(0));
    } else if (name == "scale" && (count == 1 || count == 2)) {
        *result = QTransform::fromScale(value(0), count == 2 ? value(1) : value(0));
    } else if ((name == "scalex" || name == "scaley") && count == 1) {
        const bool isX = name.endsWith('x');
        *result = QTransform::fromScale(isX ? value(0) : 1.0, isX ? 1.0 : value(0));
    } else if (name == "rotate" && (count == 1 || count == 3)) {
        QTransform turned;
        turned.translate(value(1), value(2));
        turned.rotate(value(0));
        turned.translate(-value(1), -value(2));
        *result = turned;
    } else if ((name == "skewx" || name == "skewy") && count == 1) {
        const double lean = std::tan(value(0) * M_PI / 180.0);
        *result =
            name == "skewx" ? QTransform(1, 0, lean, 1, 0, 0) : QTransform(1, lean, 0, 1, 0, 0);
    } else {
        return false;
    }
    return true;
}

} // namespace

void SvgScan::skipSpaces()
{
    while (m_at != m_last && isSpace(*m_at))
        ++m_at;
}

void SvgScan::skipSeparator()
{
    skipSpaces();
    if (m_at != m_last && *m_at == ',') {
        ++m_at;
        skipSpaces();
    }
}

bool SvgScan::number(double *value)
{
    const char *from = m_at;
    const bool isSigned = from != m_last && (*from == '+' || *from == '-');
    const char *digits = isSigned ? from + 1 : from;
    // Not left to the parser, which also knows "inf" and "nan".
    if (digits == m_last || !(isDigit(*digits) || *digits == '.'))
        return false;
    double read = 0.0;
    const auto result = std::from_chars(digits, m_last, read);
    if (result.ec == std::errc::result_out_of_range) {
        // Too small is zero; too large is no number.
        read = std::strtod(std::string(digits, result.ptr).c_str(), nullptr);
        if (!std::isfinite(read))
            return false;
    } else if (result.ec != std::errc()) {
        return false;
    }
    *value = isSigned && *from == '-' ? -read : read;
    m_at = result.ptr;
    return true;
}

bool SvgScan::flag(bool *value)
{
    if (m_at == m_last || (*m_at != '0' && *m_at != '1'))
        return false;
    *value = *m_at == '1';
    ++m_at;
    return true;
}

QByteArray SvgScan::word()
{
    const char *from = m_at;
    while (m_at != m_last && isLetter(*m_at))
        ++m_at;
    return QByteArray(from, int(m_at - from));
}

double SvgLength::toMm() const { return value * inchesOf(unit) * kMmPerInch; }

double SvgLength::toUser(double pixelsPerInch, double whole, double fontSize) const
{
    switch (unit) {
    case SvgUnit::None:
    case SvgUnit::Px:
        return value;
    case SvgUnit::Percent:
        return value * whole / 100.0;
    case SvgUnit::Em:
        return value * fontSize;
    case SvgUnit::Ex:
        return value * fontSize * 0.5;
    default:
        return value * inchesOf(unit) * pixelsPerInch;
    }
}

bool parseSvgLength(const QString &text, SvgLength *length)
{
    const QByteArray bytes = text.toLatin1();
    SvgScan scan(bytes);
    SvgLength read;
    scan.skipSpaces();
    if (!scan.number(&read.value))
        return false;
    if (scan.peek() == '%') {
        scan.step();
        read.unit = SvgUnit::Percent;
    } else if (!unitOf(scan.word().toLower(), &read.unit)) {
        return false;
    }
    scan.skipSpaces();
    if (!scan.atEnd())
        return false;
    *length = read;
    return true;
}

bool parseSvgTransform(const QString &text, QTransform *transform)
{
    const QByteArray bytes = text.toLatin1();
    SvgScan scan(bytes);
    QTransform all;
    scan.skipSpaces();
    if (bytes.trimmed() == "none") {
        *transform = all;
        return true;
    }
    while (!scan.atEnd()) {
        const QByteArray name = scan.word().toLower();
        QVector<double> values;
        QTransform one;
        if (!scanArguments(&scan, name == "rotate" || name.startsWith("skew"), &values) ||
            !transformOf(name, values, &one))
            return false;
        all = one * all;
        scan.skipSeparator();
    }
    *transform = all;
    return true;
}

QVector<double> parseSvgNumbers(const QString &text, bool *isWhole)
{
    const QByteArray bytes = text.toLatin1();
    SvgScan scan(bytes);
    QVector<double> numbers;
    double number = 0.0;
    scan.skipSpaces();
    while (scan.number(&number)) {
        numbers.append(number);
        scan.skipSeparator();
    }
    if (isWhole)
        *isWhole = scan.atEnd();
    return numbers;
}

} // namespace vectorkit
