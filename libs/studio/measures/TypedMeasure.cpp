#include <studio/measures/TypedMeasure.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QtMath>

#include <cmath>

namespace studio {

namespace {

/** Limit: characters of an entry; with it the depth of its brackets. */
constexpr int kMostCharacters = 200;

/** Limit: no field of the program has a use for more, in either direction. */
constexpr double kMost = 1e9;

/** Limit: of plain numbers, such as those of counters: whole ones are exact up to here. */
constexpr double kMostNumber = 9007199254740991.0;

/** A word that multiplies what stands before it. */
struct Unit
{
    const char16_t *name; ///< in small letters
    double factor;
};

constexpr Unit kLengths[] = {{u"mm", 1.0},
                             {u"cm", 10.0},
                             {u"m", 1000.0},
                             {u"um", 0.001},
                             {u"\u03bcm", 0.001},
                             {u"in", 25.4},
                             {u"inch", 25.4},
                             {u"\"", 25.4},
                             {u"\u2032\u2032", 25.4},
                             {u"ft", 304.8},
                             {u"'", 304.8},
                             {u"\u2032", 304.8},
                             {u"mil", 0.0254},
                             {u"thou", 0.0254},
                             {u"pt", 25.4 / 72.0},
                             {u"\u6beb\u7c73", 1.0},
                             {u"\u5398\u7c73", 10.0},
                             {u"\u7c73", 1000.0},
                             {u"\u5fae\u7c73", 0.001},
                             {u"\u82f1\u5bf8", 25.4},
                             {u"\u82f1\u5c3a", 304.8}};

constexpr Unit kAngles[] = {{u"\u00b0", 1.0},
                            {u"deg", 1.0},
                            {u"\u5ea6", 1.0},
                            {u"rad", 180.0 / M_PI},
                            {u"\u5f27\u5ea6", 180.0 / M_PI}};

/** The units that a measure has; none for a plain number. */
struct Units
{
    const Unit *first;
    int count;
    double most = kMost; ///< of what is typed

    const Unit *find(const QString &name) const
    {
        const QString wanted = name.toLower();
        for (int i = 0; i < count; ++i) {
            if (wanted == QString::fromUtf16(first[i].name))
                return first + i;
        }
        return nullptr;
    }
};

/** A number on the way: plain, or a measure already. */
struct Term
{
    double value = 0.0;
    bool isMeasure = false;
};

bool isSign(QChar character)
{
    static const QString signs = QStringLiteral("\"'\u2032\u00b0");
    return signs.contains(character);
}

/** Reads from front to back, one function a rule; the first fault ends it. */
class Reader
{
public:
    Reader(const QString &text, const Units &known, double plainUnit)
        : m_text(text), m_units(known), m_plainUnit(plainUnit)
    {
    }

    TypedMeasure read()
    {
        const Term term = sum();
        skipBlanks();
        if (isFine() && !atEnd())
            failHere();
        if (!isFine())
            return {0.0, m_fault, m_part};
        const double value = measured(term) + 0.0; // turns -0 into 0
        if (!std::isfinite(value) || std::abs(value) > m_units.most)
            return {0.0, MeasureFault::Huge, {}};
        return {value, MeasureFault::None, {}};
    }

private:
    bool isFine() const { return m_fault == MeasureFault::None; }
    bool atEnd() const { return m_at >= m_text.size(); }
    QChar next() const { return atEnd() ? QChar() : m_text[m_at]; }
    double measured(const Term &term) const
    {
        return term.isMeasure ? term.value : term.value * m_plainUnit;
    }

    void fail(MeasureFault fault, const QString &part = {})
    {
        if (!isFine())
            return;
        m_fault = fault;
        m_part = part;
    }

    void failHere()
    {
        if (next() == QLatin1Char(')'))
            fail(MeasureFault::Bracket);
        else if (next() == QLatin1Char(','))
            fail(MeasureFault::Comma);
        else
            fail(MeasureFault::Unexpected, next());
    }

    void skipBlanks()
    {
        while (!atEnd() && next().isSpace())
            ++m_at;
    }

    bool take(char wanted)
    {
        skipBlanks();
        if (next() != QLatin1Char(wanted))
            return false;
        ++m_at;
        return true;
    }

    Term sum()
    {
        Term left = product();
        while (isFine()) {
            const bool isPlus = take('+');
            if (!isPlus && !take('-'))
                break;
            const Term right = product();
            const bool isMeasure = left.isMeasure || right.isMeasure;
            const double a = isMeasure ? measured(left) : left.value;
            const double b = isMeasure ? measured(right) : right.value;
            left = {isPlus ? a + b : a - b, isMeasure};
        }
        return left;
    }

    Term product()
    {
        Term left = factor();
        while (isFine()) {
            if (take('*'))
                left = times(left, factor());
            else if (take('/'))
                left = over(left, factor());
            else
                break;
        }
        return left;
    }

    Term times(const Term &left, const Term &right)
    {
        if (left.isMeasure && right.isMeasure)
            fail(MeasureFault::Dimension);
        return {left.value * right.value, left.isMeasure || right.isMeasure};
    }

    Term over(const Term &left, const Term &right)
    {
        if (isFine() && right.value == 0.0)
            fail(MeasureFault::Division);
        if (right.isMeasure && !left.isMeasure)
            fail(MeasureFault::Dimension);
        return {left.value / right.value, left.isMeasure && !right.isMeasure};
    }

    Term factor()
    {
        bool isNegative = false;
        for (;;) {
            if (take('-'))
                isNegative = !isNegative;
            else if (!take('+'))
                break;
        }
        Term term = withUnit(take('(') ? bracket() : number());
        if (isNegative)
            term.value = -term.value;
        return term;
    }

    Term bracket()
    {
        const Term inside = sum();
        if (isFine() && !take(')'))
            atEnd() ? fail(MeasureFault::Bracket) : failHere();
        return inside;
    }

    Term number()
    {
        skipBlanks();
        const int start = m_at;
        skipDigits();
        if (next() == QLatin1Char('.')) {
            ++m_at;
            skipDigits();
        }
        skipExponent(start);
        const QString digits = m_text.mid(start, m_at - start);
        if (digits.isEmpty()) {
            atEnd() ? fail(MeasureFault::Unfinished) : failHere();
            return {};
        }
        bool isNumber = false;
        const double value = QLocale::c().toDouble(digits, &isNumber);
        if (!isNumber && std::isinf(value))
            fail(MeasureFault::Huge);
        else if (!isNumber)
            fail(MeasureFault::Unexpected, digits);
        return {value, false};
    }

    void skipDigits()
    {
        while (next() >= QLatin1Char('0') && next() <= QLatin1Char('9'))
            ++m_at;
    }

    void skipExponent(int start)
    {
        if (m_at == start || next().toLower() != QLatin1Char('e'))
            return;
        const int before = m_at++;
        if (next() == QLatin1Char('+') || next() == QLatin1Char('-'))
            ++m_at;
        const int digits = m_at;
        skipDigits();
        if (m_at == digits)
            m_at = before;
    }

    Term withUnit(const Term &term)
    {
        skipBlanks();
        const int start = m_at;
        while (isSign(next()) || next().isLetter())
            ++m_at;
        const QString name = m_text.mid(start, m_at - start);
        if (!isFine() || name.isEmpty())
            return term;
        const Unit *unit = m_units.find(name);
        if (unit == nullptr) {
            fail(MeasureFault::Unit, name);
            return term;
        }
        if (term.isMeasure)
            fail(MeasureFault::Dimension);
        return {term.value * unit->factor, true};
    }

    const QString m_text;
    const Units m_units;
    const double m_plainUnit; ///< of a number without a unit
    int m_at = 0;
    MeasureFault m_fault = MeasureFault::None;
    QString m_part;
};

/** Signs that people and their keyboards have for the plain ones. */
QString plainSigns(const QString &text)
{
    QString plain = text.normalized(QString::NormalizationForm_KC).trimmed();
    plain.replace(QChar(0x00d7), QLatin1Char('*'));
    plain.replace(QChar(0x00f7), QLatin1Char('/'));
    plain.replace(QChar(0x2212), QLatin1Char('-'));
    plain.replace(QChar(0x3002), QLatin1Char('.'));
    return plain;
}

TypedMeasure readIn(const QString &text, const Units &units, double plainUnit)
{
    if (text.size() > kMostCharacters)
        return {0.0, MeasureFault::Long, {}};
    const QString plain = plainSigns(text);
    if (plain.isEmpty())
        return {0.0, MeasureFault::Empty, {}};
    if (plain.size() > kMostCharacters)
        return {0.0, MeasureFault::Long, {}};
    return Reader(plain, units, plainUnit).read();
}

template <int count>
Units table(const Unit (&units)[count])
{
    return {units, count};
}

} // namespace

TypedMeasure readLength(const QString &text, double unitMm)
{
    return readIn(text, table(kLengths), unitMm);
}

TypedMeasure readAngle(const QString &text) { return readIn(text, table(kAngles), 1.0); }

TypedMeasure readNumber(const QString &text)
{
    return readIn(text, {nullptr, 0, kMostNumber}, 1.0);
}

QString faultText(const TypedMeasure &measure)
{
    const auto told = [](const char *text) {
        return QCoreApplication::translate("studio::TypedMeasure", text);
    };
    switch (measure.fault) {
    case MeasureFault::None:
        return {};
    case MeasureFault::Empty:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "Nothing is entered"));
    case MeasureFault::Unexpected:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "\"%1\" makes no sense here"))
            .arg(measure.part);
    case MeasureFault::Unfinished:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "A number is missing at the end"));
    case MeasureFault::Bracket:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "A bracket has no counterpart"));
    case MeasureFault::Unit:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "\"%1\" is no unit of this field"))
            .arg(measure.part);
    case MeasureFault::Comma:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "Decimals stand after a point"));
    case MeasureFault::Division:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "Nothing can be divided by 0"));
    case MeasureFault::Dimension:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure",
                                      "A unit stands where only a plain number can"));
    case MeasureFault::Huge:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "The number is too large"));
    case MeasureFault::Long:
        return told(QT_TRANSLATE_NOOP("studio::TypedMeasure", "The entry is too long"));
    }
    return {};
}

QString measureText(double value, int decimals)
{
    QString text = QString::number(value, 'f', decimals);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

} // namespace studio
