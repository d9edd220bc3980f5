#pragma once

#include <QtCore/QString>

namespace codekit {

/**
 * Puts the characters in place that escapes stand for: \n \r \t \a \b \e \f \v and \0 as
 * programmers know them, \G \R \E the separators of groups and records and the end of a message,
 * \xHH and \uHHHH a character by its number, \\ a backslash.
 *
 * Failure: false with the reason for a backslash before anything else; `decoded` stays.
 */
bool decodeEscapes(const QString &typed, QString *decoded, QString *reason);

} // namespace codekit
