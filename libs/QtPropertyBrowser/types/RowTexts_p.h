#pragma once

#include <QtCore/QLocale>
#include <QtCore/QString>

/** Names of attributes, and texts that several row types share. */
namespace rowtypes {

inline QString minimumName() { return QStringLiteral("minimum"); }
inline QString maximumName() { return QStringLiteral("maximum"); }
inline QString singleStepName() { return QStringLiteral("singleStep"); }
inline QString decimalsName() { return QStringLiteral("decimals"); }
inline QString constraintName() { return QStringLiteral("constraint"); }
inline QString regExpName() { return QStringLiteral("regExp"); }
inline QString echoModeName() { return QStringLiteral("echoMode"); }
inline QString readOnlyName() { return QStringLiteral("readOnly"); }
inline QString enumNamesName() { return QStringLiteral("enumNames"); }
inline QString enumIconsName() { return QStringLiteral("enumIcons"); }
inline QString flagNamesName() { return QStringLiteral("flagNames"); }

constexpr int kDefaultDecimals = 2;
constexpr int kMaxDecimals = 13;

/** Numbers as the spin boxes write them: in the user's locale, without thousands separators. */
QLocale numberLocale();
QString numberText(int value);
QString numberText(double value, int decimals);

/** `decimals` within 0 to 13. */
int boundedDecimals(int decimals);

} // namespace rowtypes
