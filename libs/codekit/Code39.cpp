#include <codekit/Code39_p.h>

#include <QtCore/QHash>
#include <QtCore/QVector>

namespace codekit {

namespace {

const QString kCharacters = QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%");
const QString kCodabarCharacters = QStringLiteral("0123456789-$:/.+ABCD");

/** Signs with the first and the last capital behind them, and the first character of theirs. */
struct Pairs
{
    char sign;
    char first;
    char last;
    ushort stands;
};

const QVector<Pairs> &allPairs()
{
    static const QVector<Pairs> kPairs = {
        {'%', 'U', 'U', 0},  {'$', 'A', 'Z', 1},  {'%', 'A', 'E', 27}, {'/', 'A', 'O', 33},
        {'/', 'Z', 'Z', 58}, {'%', 'F', 'J', 59}, {'%', 'V', 'V', 64}, {'%', 'K', 'O', 91},
        {'%', 'W', 'W', 96}, {'+', 'A', 'Z', 97}, {'%', 'P', 'T', 123}};
    return kPairs;
}

/** The pair of each character that is no plain one. */
const QHash<QChar, QString> &pairsOfCharacters()
{
    static const QHash<QChar, QString> kPairs = [] {
        QHash<QChar, QString> pairs;
        for (const Pairs &row : allPairs()) {
            for (int step = 0; step <= row.last - row.first; ++step) {
                pairs.insert(QChar(row.stands + step),
                             QString(QLatin1Char(row.sign)) + QChar(ushort(row.first + step)));
            }
        }
        // The two that are written as themselves, though there is a pair for them.
        pairs.remove(QLatin1Char('-'));
        pairs.remove(QLatin1Char('.'));
        return pairs;
    }();
    return kPairs;
}

/** The character that a pair stands for; null for no pair. */
QString characterOf(QChar sign, QChar letter)
{
    for (const Pairs &row : allPairs()) {
        if (sign == QLatin1Char(row.sign) && letter >= QLatin1Char(row.first) &&
            letter <= QLatin1Char(row.last))
            return QChar(ushort(row.stands + letter.unicode() - ushort(row.first)));
    }
    return {};
}

} // namespace

QString spelledIn39(const QString &ascii)
{
    QString spelling;
    for (const QChar c : ascii)
        spelling += pairsOfCharacters().value(c, c);
    return spelling;
}

QString readFrom39(const QString &spelling)
{
    QString text;
    for (int at = 0; at < spelling.size(); ++at) {
        const QString pair =
            at + 1 < spelling.size() ? characterOf(spelling[at], spelling[at + 1]) : QString();
        text += pair.isNull() ? QString(spelling[at]) : pair;
        at += pair.isNull() ? 0 : 1;
    }
    return text;
}

QChar checkCharacterOf39(const QString &spelling)
{
    int sum = 0;
    for (const QChar c : spelling)
        sum += kCharacters.indexOf(c);
    return kCharacters[sum % kCharacters.size()];
}

QChar checkCharacterOfCodabar(const QString &text)
{
    constexpr int kModulus = 16;
    int sum = 0;
    for (const QChar c : text)
        sum += kCodabarCharacters.indexOf(c);
    return kCodabarCharacters[(kModulus - sum % kModulus) % kModulus];
}

} // namespace codekit
