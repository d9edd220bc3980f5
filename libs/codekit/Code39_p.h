#pragma once

#include <QtCore/QString>

namespace codekit {

// Code 39 has 43 characters; extended, pairs of a sign and a capital stand for the rest of ASCII.

/** How an ASCII text is spelled in the 43 characters. */
QString spelledIn39(const QString &ascii);

/** The text that a spelling stands for; a sign that begins no pair is itself. */
QString readFrom39(const QString &spelling);

/** The check character of a text of the 43 characters, modulo 43. */
QChar checkCharacterOf39(const QString &spelling);

/** The check character of a Codabar text with its start and stop, modulo 16. */
QChar checkCharacterOfCodabar(const QString &text);

} // namespace codekit
