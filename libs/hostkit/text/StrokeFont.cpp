#include <hostkit/text/StrokeFont.h>

#include <hostkit/text/UnicodeStrokes.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSet>
#include <QtCore/QTextCodec>
#include <QtGui/QFontMetrics>

#include <algorithm>
#include <cmath>

namespace hostkit {

namespace {

/** Texts of this file for the catalogue. */
struct StrokeFontTexts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::StrokeFont)
};

/** What became of the pen, and whether it drew. */
class StrokeProbe : public ZTAbstractGlyphCallback
{
public:
    void glBegin() override {}
    void glVertex2d(double, double) override { ++vertices; }
    void glEnd() override {}
    void next() override {}

    int vertices = 0;
};

bool isListed(const std::vector<std::string> &names, const QByteArray &name)
{
    return std::find(names.begin(), names.end(), name.toStdString()) != names.end();
}

bool findFont(const QString &name, const std::vector<std::string> &kind, const QString &otherKind,
              const QStringList &folders, Failure *failure)
{
    const QByteArray local = name.toLocal8Bit();
    if (isListed(kind, local))
        return true;
    if (isListed(ZTShxFontManager::regFonts(), local) ||
        isListed(ZTShxFontManager::bigFonts(), local))
        return fail(failure, Failure::Kind::OtherFormat, otherKind.arg(name));
    if (ZTShxFontManager::getFont(local.toStdString(), 1) != nullptr)
        return fail(failure, Failure::Kind::OtherFormat,
                    StrokeFontTexts::tr("%1 is no stroke font").arg(name));
    return fail(failure, Failure::Kind::CannotRead,
                StrokeFontTexts::tr("no stroke font %1 in %2")
                    .arg(name, folders.join(QStringLiteral(", "))));
}

/** False also where there is no font at all. */
bool hasHeight(const QString &name)
{
    const ZTShxParser *font = ZTShxFontManager::getFont(name.toLocal8Bit().toStdString(), 1);
    return font != nullptr && std::isfinite(font->getTextHeight());
}

bool isUsableHeight(double height)
{
    constexpr double kLeast = 1e-6;
    constexpr double kMost = 1e6;
    return std::abs(height) >= kLeast && std::abs(height) <= kMost;
}

/** A font that lost its height to a missing reference character gets the number itself. */
void mendHeight(const QString &name, double height)
{
    ZTShxParser *font = ZTShxFontManager::getFont(name.toLocal8Bit().toStdString(), 1);
    if (font != nullptr && !std::isfinite(font->getTextHeight()))
        font->setTextHeight(height);
}

/** Letters that tell how high capitals are: the first one that a font has. */
constexpr const char *kCapitals[] = {"H", "A", "W"};

QPainterPath glyphOf(ZTFontParam &font, const char *letter)
{
    QPainterPath path;
    if (font.fontType == FontType::singleLine) {
        ZTPathGlyphCallback strokes;
        font.shxFont.parser.drawText(&strokes, letter, 0.0, 0.0, 0.0);
        for (const QPainterPath &glyph : strokes.getPath())
            path.addPath(glyph);
    } else {
        path.addText(0.0, 0.0, font.font, QString::fromLatin1(letter));
    }
    return path;
}

/** The code points of a text, each once, line feeds left out. */
QVector<uint> charactersOf(const QString &text)
{
    QVector<uint> characters;
    QSet<uint> seen;
    for (const uint character : text.toUcs4()) {
        if (character == '\n' || seen.contains(character))
            continue;
        seen.insert(character);
        characters.append(character);
    }
    return characters;
}

/** Empty where GBK has no such character. */
QByteArray toGbk(const QString &character)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QTextCodec *codec = QTextCodec::codecForName("GBK");
    const QByteArray bytes = codec->fromUnicode(character.constData(), character.size(), &state);
    return state.invalidChars == 0 ? bytes : QByteArray();
}

bool hasGlyph(const QByteArray &bytes, ZTRegBigFontShxParser &pair)
{
    StrokeProbe probe;
    const double width = pair.drawText(&probe, bytes.constData(), 0.0, 0.0, 0.0);
    const int verticesOfNothing = 1; // where the pen begins
    return probe.vertices > verticesOfNothing || width != 0.0;
}

MissingCharacters missingStrokes(const QString &text, const ZTShxFontParam &font)
{
    MissingCharacters missing;
    ZTRegBigFontShxParser pair = font.parser;
    for (const uint character : charactersOf(composedText(text))) {
        const QString shown = QString::fromUcs4(&character, 1);
        if (shown.size() == 1 && isFromUnicodeFont(shown.at(0), font))
            continue;
        const QByteArray bytes = toGbk(shown);
        if (bytes.isEmpty())
            missing.notEncoded.append(shown);
        else if (!hasGlyph(bytes, pair))
            missing.noGlyph.append(shown);
    }
    return missing;
}

MissingCharacters missingOutlines(const QString &text, const QFont &font)
{
    MissingCharacters missing;
    const QFontMetrics metrics(font);
    for (const uint character : charactersOf(text)) {
        if (!metrics.inFontUcs4(character))
            missing.noGlyph.append(QString::fromUcs4(&character, 1));
    }
    return missing;
}

} // namespace

bool strokeFont(const QString &regularName, const QString &bigName, const QStringList &folders,
                ZTShxFontParam *font, Failure *failure)
{
    const std::vector<std::string> regular = ZTShxFontManager::regFonts();
    const std::vector<std::string> big = ZTShxFontManager::bigFonts();
    if (!findFont(regularName, regular, StrokeFontTexts::tr("%1 is a big font, no regular one"),
                  folders, failure))
        return false;
    if (bigName.isEmpty() && big.empty())
        return fail(
            failure, Failure::Kind::CannotRead,
            StrokeFontTexts::tr("no big font in %1").arg(folders.join(QStringLiteral(", "))));
    font->enName = regularName;
    font->zhName = bigName.isEmpty() ? QString::fromLocal8Bit(big.front().c_str()) : bigName;
    if (!findFont(font->zhName, big, StrokeFontTexts::tr("%1 is a regular font, no big one"),
                  folders, failure))
        return false;
    font->height = kStrokeFontUnits;
    font->parser.init(font->enName.toLocal8Bit().constData(),
                      font->zhName.toLocal8Bit().constData());
    font->parser.setTextHeight(font->height);
    const QString noReference =
        StrokeFontTexts::tr("%1 has no \"%2\", by whose width fonts are brought to a height");
    if (!hasHeight(font->enName))
        return fail(failure, Failure::Kind::NotPossible,
                    noReference.arg(font->enName, QStringLiteral("W")));
    if (!hasHeight(font->zhName))
        return fail(failure, Failure::Kind::NotPossible,
                    noReference.arg(font->zhName, QString(QChar(0x4F60))));
    return true;
}

void setStrokeHeight(ZTShxFontParam *font)
{
    if (!isUsableHeight(font->height))
        return;
    font->parser.setTextHeight(font->height);
    mendHeight(font->enName, font->height);
    mendHeight(font->zhName, font->height);
}

double capitalHeight(ZTFontParam font)
{
    if (font.fontType == FontType::singleLine)
        setStrokeHeight(&font.shxFont);
    for (const char *letter : kCapitals) {
        const double height = glyphOf(font, letter).boundingRect().height();
        if (std::isfinite(height) && height > 0.0)
            return height;
    }
    const double nominal =
        font.fontType == FontType::singleLine ? font.shxFont.height : font.font.pixelSize();
    return nominal > 0.0 ? nominal : 1.0;
}

MissingCharacters missingCharacters(const QString &text, const ZTFontParam &font)
{
    return font.fontType == FontType::singleLine ? missingStrokes(text, font.shxFont)
                                                 : missingOutlines(text, font.font);
}

} // namespace hostkit
