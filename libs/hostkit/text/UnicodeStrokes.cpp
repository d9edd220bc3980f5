#include <hostkit/text/UnicodeStrokes.h>

#include <hostkit/text/StrokeFont.h>

#include <QtCore/QTextCodec>

#include <algorithm>
#include <array>

namespace hostkit {

namespace {

constexpr uint kFirstBeyondAscii = 0x80;

/** What GBK has for a character of 16 bits. */
enum class GbkForm : quint8 { None, OneByte, TwoBytes };

/**
 * The characters of GBK. A table, since a codec that replaces what it does not know may replace it
 * by another character.
 */
class GbkTable
{
public:
    GbkTable()
    {
        const QTextCodec *codec = QTextCodec::codecForName("GBK");
        if (codec == nullptr)
            return;
        QString all;
        for (uint code = kFirstBeyondAscii; code <= kLast; ++code) {
            if (!QChar::isSurrogate(code))
                all += QChar(code);
            all += QLatin1Char('\n'); // no second byte of any character
        }
        const QByteArray bytes = codec->fromUnicode(all);
        const QList<QByteArray> codes = bytes.split('\n');
        const QStringList back = codec->toUnicode(bytes).split(QLatin1Char('\n'));
        const int count = std::min(codes.size(), back.size());
        for (uint code = kFirstBeyondAscii; code <= kLast; ++code) {
            const int place = static_cast<int>(code - kFirstBeyondAscii);
            if (place < count && back.at(place) == QString(QChar(code)))
                m_forms.at(code) =
                    codes.at(place).size() == 2 ? GbkForm::TwoBytes : GbkForm::OneByte;
        }
    }

    GbkForm of(QChar character) const { return m_forms.at(character.unicode()); }

private:
    static constexpr uint kLast = 0xFFFF;
    std::array<GbkForm, kLast + 1> m_forms{};
};

GbkForm gbkFormOf(QChar character)
{
    static const GbkTable table;
    return table.of(character);
}

QByteArray toGbk(const QString &text)
{
    const QTextCodec *codec = QTextCodec::codecForName("GBK");
    return codec != nullptr ? codec->fromUnicode(text) : QByteArray();
}

/** Null where there is no such font. */
ZTShxParser *unicodeFont()
{
    static const std::string name = unicodeStrokeFont().toStdString();
    ZTShxParser *font = ZTShxFontManager::getFont(name, 1);
    return font != nullptr && font->GetType() == SHX_TYPE::SHX_UNIFONT ? font : nullptr;
}

/** Every glyph of the font takes room, and what has no glyph takes none. */
bool hasGlyph(ZTShxParser &font, QChar character)
{
    const std::array<wchar_t, 2> text{static_cast<wchar_t>(character.unicode()), L'\0'};
    return font.getTextExtent(text.data()) > 0.0;
}

bool hasGlyph(ZTRegBigFontShxParser pair, QChar character)
{
    return pair.getTextExtent(toGbk(QString(character)).constData()) != 0.0;
}

/** What GBK has too, but stands beside Latin letters where texts are written with these. */
bool isBesideLetters(QChar character)
{
    constexpr ushort kFirstSign = 0x2000;
    static const QString signs = QStringLiteral("°±×÷·§¨¤′″");
    if (signs.contains(character))
        return true;
    const QChar::Script script = character.script();
    return character.unicode() < kFirstSign &&
           (script == QChar::Script_Latin || script == QChar::Script_Greek ||
            script == QChar::Script_Cyrillic);
}

/** Collects strokes, and where the pen is at their end. */
class PenTracker : public ZTPathGlyphCallback
{
public:
    void glVertex2d(double x, double y) override
    {
        ZTPathGlyphCallback::glVertex2d(x, y);
        m_y = y;
    }

    double y() const { return m_y; }

private:
    double m_y = 0.0;
};

/** Has a font at another height for as long as this lives. */
class HeightGuard
{
public:
    HeightGuard(ZTShxParser &usedFont, double height)
        : m_font(usedFont), m_before(usedFont.getTextHeight())
    {
        m_font.setTextHeight(height);
    }
    ~HeightGuard() { m_font.setTextHeight(m_before); }
    HeightGuard(const HeightGuard &) = delete;
    HeightGuard &operator=(const HeightGuard &) = delete;

private:
    ZTShxParser &m_font;
    double m_before;
};

/** Draws a line piece by piece, each beginning where the one before ended. */
class LineOfBoth
{
public:
    LineOfBoth(const ZTShxFontParam &pair, const QPointF &pos, double wordSpan)
        : m_pair(pair), m_pen(pos), m_wordSpan(wordSpan)
    {
        ZTFontParam font;
        font.fontType = FontType::singleLine;
        font.shxFont = pair;
        m_capitals = capitalHeight(font);
    }

    void addFromPair(const QString &text)
    {
        PenTracker strokes;
        const double width = m_pair.parser.drawText(&strokes, toGbk(text).constData(), m_pen.x(),
                                                    m_pen.y(), m_wordSpan);
        add(strokes, width);
    }

    void addFromUnicodeFont(const QString &text)
    {
        ZTShxParser *font = unicodeFont();
        if (font == nullptr)
            return;
        const HeightGuard height(*font, m_capitals);
        for (const QChar character : text) {
            const std::array<wchar_t, 2> wide{static_cast<wchar_t>(character.unicode()), L'\0'};
            PenTracker strokes;
            const double width = font->drawText(&strokes, wide.data(), m_pen.x(), m_pen.y());
            strokes.next();
            add(strokes, width + m_wordSpan);
        }
    }

    const QVector<QPainterPath> &glyphs() const { return m_glyphs; }

private:
    void add(const PenTracker &strokes, double width)
    {
        m_glyphs += strokes.getPath();
        m_pen = {m_pen.x() + width, strokes.y()};
    }

    ZTShxFontParam m_pair;
    QPointF m_pen;
    double m_wordSpan;
    double m_capitals = 0.0;
    QVector<QPainterPath> m_glyphs;
};

} // namespace

QString unicodeStrokeFont() { return QStringLiteral("unicode-strokes.shx"); }

bool isFromUnicodeFont(QChar character, const ZTShxFontParam &font)
{
    if (character.unicode() < kFirstBeyondAscii || character.isSurrogate())
        return false;
    const GbkForm form = gbkFormOf(character);
    const bool isBoardFont = font.zhName == QLatin1String("gb-strokes.shx");
    if (form == GbkForm::TwoBytes && !(isBoardFont && isBesideLetters(character)))
        return false;
    if (form == GbkForm::OneByte && hasGlyph(font.parser, character))
        return false;
    ZTShxParser *unicode = unicodeFont();
    return unicode != nullptr && hasGlyph(*unicode, character);
}

QString composedText(const QString &text)
{
    const bool hasMarks = std::any_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() >= kFirstBeyondAscii && c.category() == QChar::Mark_NonSpacing;
    });
    return hasMarks ? text.normalized(QString::NormalizationForm_C) : text;
}

bool needsUnicodeFont(const QString &text, const ZTShxFontParam &font)
{
    return std::any_of(text.begin(), text.end(),
                       [&font](QChar c) { return isFromUnicodeFont(c, font); });
}

QVector<QPainterPath> strokeGlyphsOfBoth(const QString &line, const ZTShxFontParam &font,
                                         const QPointF &pos, double wordSpan)
{
    LineOfBoth both(font, pos, wordSpan);
    for (int i = 0; i < line.size();) {
        const bool isUnicode = isFromUnicodeFont(line.at(i), font);
        const int first = i;
        while (i < line.size() && isFromUnicodeFont(line.at(i), font) == isUnicode)
            ++i;
        const QString piece = line.mid(first, i - first);
        if (isUnicode)
            both.addFromUnicodeFont(piece);
        else
            both.addFromPair(piece);
    }
    return both.glyphs();
}

} // namespace hostkit
