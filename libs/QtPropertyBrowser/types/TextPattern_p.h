#pragma once

#include <QtCore/QRegularExpression>
#include <QtCore/QVariant>

namespace rowtypes {

/**
 * Whether the whole text matches the attribute "regExp".
 *
 * The pattern is a `QRegExp` or a `QRegularExpression`; an empty or broken one matches anything.
 */
bool matchesPattern(const QString &text, const QVariant &pattern);

} // namespace rowtypes
