#include <codekit/CodeEscapes_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QMap>

namespace codekit {

namespace {

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

const QMap<char, ushort> &singleLetters()
{
    static const QMap<char, ushort> kLetters = {
        {'0', 0},  {'E', 4},  {'a', 7},  {'b', 8},  {'t', 9},  {'n', 10}, {'v', 11},
        {'f', 12}, {'r', 13}, {'e', 27}, {'G', 29}, {'R', 30}, {'\\', 92}};
    return kLetters;
}

/** How many hexadecimal digits follow a letter; 0: none. */
int digitsAfter(QChar letter)
{
    return letter == QLatin1Char('x') ? 2 : letter == QLatin1Char('u') ? 4 : 0;
}

/** The character of an escape that begins at `at` with its backslash; moves on behind it. */
bool takeEscape(const QString &typed, int *at, QChar *character)
{
    const QChar letter = typed.size() > *at + 1 ? typed[*at + 1] : QChar();
    const int digits = digitsAfter(letter);
    if (digits == 0) {
        const auto found = singleLetters().constFind(letter.toLatin1());
        if (letter.isNull() || letter.unicode() > 127 || found == singleLetters().constEnd())
            return false;
        *character = QChar(*found);
        *at += 2;
        return true;
    }
    const QString number = typed.mid(*at + 2, digits);
    for (const QChar digit : number) {
        if (!QStringLiteral("0123456789abcdefABCDEF").contains(digit))
            return false;
    }
    *character = QChar(number.toUShort(nullptr, 16));
    *at += 2 + digits;
    return number.size() == digits;
}

} // namespace

bool decodeEscapes(const QString &typed, QString *decoded, QString *reason)
{
    QString text;
    for (int at = 0; at < typed.size();) {
        QChar character = typed[at];
        const int begin = at;
        if (character != QLatin1Char('\\')) {
            ++at;
        } else if (!takeEscape(typed, &at, &character)) {
            *reason = tr("\"%1\" is no escape: \\n \\r \\t \\e \\G \\R \\E \\xHH \\uHHHH are, and "
                         "\\\\ is a backslash")
                          .arg(typed.mid(begin, 2));
            return false;
        }
        text.append(character);
    }
    *decoded = text;
    return true;
}

} // namespace codekit
