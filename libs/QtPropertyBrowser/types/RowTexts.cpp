#include <QtPropertyBrowser/types/RowTexts_p.h>

namespace rowtypes {

QLocale numberLocale()
{
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale;
}

QString numberText(int value) { return numberLocale().toString(value); }

QString numberText(double value, int decimals)
{
    return numberLocale().toString(value, 'f', decimals);
}

int boundedDecimals(int decimals) { return qBound(0, decimals, kMaxDecimals); }

} // namespace rowtypes
