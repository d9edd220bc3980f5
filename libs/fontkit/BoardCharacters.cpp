#include "BoardCharacters.h"

#include <fontkit/GbPunctuation.h>
#include <fontkit/GlyphShapes_p.h>
#include <fontkit/HersheyFonts.h>

#include <QtCore/QTextCodec>

namespace fontkit {

namespace {

constexpr double kHersheyUnit = 10.0; // in units of recipes
constexpr double kPunctuationMargin = 8.0;
constexpr double kWidth = 240.0;

/** Letters of the Greek Hershey font by what they stand for; final sigma is not among them. */
QString greekLetters()
{
    return QStringLiteral("ABGDEZHQIKLMNXOPRSTUFCYWabgdezhqiklmnxoprstufcyw");
}

QString greekMeaning()
{
    return QStringLiteral("ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩαβγδεζηθικλμνξοπρστυφχψω");
}

DrawnCharacter drawnOf(const HersheyCharacter &character)
{
    DrawnCharacter drawn;
    drawn.advance = kHersheyUnit * character.advance;
    drawn.origin = CharacterOrigin::Hershey;
    for (const QVector<QPoint> &stroke : character.strokes) {
        QVector<QPointF> points;
        for (const QPoint &point : stroke)
            points.append(kHersheyUnit * QPointF(point));
        drawn.strokes.append(points);
    }
    return drawn;
}

} // namespace

bool BoardCharacters::read(const DataFolder &hershey, QString *error)
{
    HersheyFonts fonts(hershey);
    HersheyCharacter character;
    for (int ascii = ' '; ascii <= '~'; ++ascii) {
        if (!fonts.character(QStringLiteral("hershey-simplex.shx"), ascii, &character, error))
            return false;
        m_characters.insert(static_cast<uint>(ascii), drawnOf(character));
    }
    const QString letters = greekLetters();
    const QString meaning = greekMeaning();
    for (int i = 0; i < letters.size(); ++i) {
        if (!fonts.character(QStringLiteral("hershey-greek.shx"), letters.at(i).toLatin1(),
                             &character, error))
            return false;
        m_characters.insert(meaning.at(i).unicode(), drawnOf(character));
    }
    const QTextCodec *codec = QTextCodec::codecForName("GBK");
    const auto &marks = gbPunctuation();
    for (auto it = marks.begin(); it != marks.end(); ++it) {
        const QByteArray bytes =
            QByteArray(1, static_cast<char>(it.key() >> 8)) + static_cast<char>(it.key() & 0xFF);
        DrawnCharacter drawn;
        drawn.strokes = moved(it.value(), {-kPunctuationMargin, 0.0});
        drawn.advance = kWidth;
        m_characters.insert(codec->toUnicode(bytes).at(0).unicode(), drawn);
    }
    return true;
}

std::optional<DrawnCharacter> BoardCharacters::of(uint character) const
{
    const auto found = m_characters.constFind(character);
    if (found == m_characters.constEnd())
        return std::nullopt;
    return *found;
}

} // namespace fontkit
