#include <studio/choices/Units.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtWidgets/QApplication>

#include <cmath>

namespace studio::units {

namespace {

constexpr double kInchMm = 25.4;
constexpr int kMillimetreDecimals = 3;
constexpr int kInchDecimals = 5;

LengthUnit g_unit = LengthUnit::Millimetre;
bool g_isYUp = false;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::Units)
};

bool isInch() { return g_unit == LengthUnit::Inch; }

} // namespace

LengthUnit unit() { return g_unit; }

bool isYUp() { return g_isYUp; }

void choose(LengthUnit unit, bool isYUp)
{
    if (unit == g_unit && isYUp == g_isYUp)
        return;
    g_unit = unit;
    g_isYUp = isYUp;
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(qApp, &change);
}

double unitMm() { return isInch() ? kInchMm : 1.0; }

QString name() { return isInch() ? Texts::tr("in") : Texts::tr("mm"); }

QString suffix() { return QLatin1Char(' ') + name(); }

QString number(double mm)
{
    const int decimals = isInch() ? kInchDecimals : kMillimetreDecimals;
    const double value = mm / unitMm();
    const bool isNothing = std::abs(value) < 0.5 * std::pow(10.0, -decimals);
    return QString::number(isNothing ? 0.0 : value, 'f', decimals);
}

QString text(double mm) { return number(mm) + suffix(); }

double y(double mm) { return g_isYUp ? 0.0 - mm : mm; }

} // namespace studio::units
