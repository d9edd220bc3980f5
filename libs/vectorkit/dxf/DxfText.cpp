#include <vectorkit/dxf/DxfText_p.h>

#include <vectorkit/dxf/DxfFile_p.h>

#include <QtCore/QTextCodec>

namespace vectorkit::dxf {

namespace {

constexpr ushort kDegree = 0x00b0;
constexpr ushort kPlusMinus = 0x00b1;
constexpr ushort kDiameter = 0x00d8;

const QTextCodec *codecOf(const QString &codePage)
{
    const QString name = codePage.toUpper();
    static const struct
    {
        const char *page;
        const char *codec;
    } kNames[] = {{"936", "GB18030"},        {"932", "Shift_JIS"}, {"949", "EUC-KR"},
                  {"950", "Big5"},           {"874", "TIS-620"},   {"1361", "Johab"},
                  {"MACINTOSH", "macintosh"}};
    const QString number = name.section(QLatin1Char('_'), -1);
    for (const auto &row : kNames) {
        if (number == QLatin1String(row.page))
            return QTextCodec::codecForName(row.codec);
    }
    if (name.startsWith(QLatin1String("ANSI_")))
        return QTextCodec::codecForName("windows-" + number.toLatin1());
    if (name.startsWith(QLatin1String("DOS")))
        return QTextCodec::codecForName("IBM" + name.mid(3).toLatin1());
    return QTextCodec::codecForName(name.toLatin1());
}

bool decodeWith(const QTextCodec *codec, const char *data, int size, QString *text)
{
    QTextCodec::ConverterState state;
    *text = codec->toUnicode(data, size, &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

/** Hexadecimal digits at a place, or -1. */
int hexAt(const QString &text, int at, int digits)
{
    bool isHex = false;
    const int value = text.midRef(at, digits).toInt(&isHex, 16);
    const bool isPlain =
        isHex && text.at(at) != QLatin1Char('+') && text.at(at) != QLatin1Char('-');
    return isPlain && text.size() >= at + digits ? value : -1;
}

/** What "\M+" with a page and four digits stands for; empty for none. */
QString doubleByte(int pageDigit, int code)
{
    static const char *const kCodecs[] = {"", "Shift_JIS", "Big5", "EUC-KR", "Johab", "GB18030"};
    if (pageDigit < 1 || pageDigit > 5 || code < 0)
        return {};
    const QTextCodec *codec = QTextCodec::codecForName(kCodecs[pageDigit]);
    const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xff)};
    QString text;
    return codec && decodeWith(codec, bytes, 2, &text) ? text : QString();
}

/** "\U+4E2D" and "\M+5D6D0" as the characters they stand for. */
QString withoutEscapes(const QString &text)
{
    if (!text.contains(QLatin1String("+")) || !text.contains(QLatin1Char('\\')))
        return text;
    QString plain;
    for (int at = 0; at < text.size(); ++at) {
        const QStringRef mark = text.midRef(at, 3);
        if (mark.compare(QLatin1String("\\U+"), Qt::CaseInsensitive) == 0) {
            const int code = at + 7 <= text.size() ? hexAt(text, at + 3, 4) : -1;
            if (code > 0) {
                plain += QChar(code);
                at += 6;
                continue;
            }
        } else if (mark.compare(QLatin1String("\\M+"), Qt::CaseInsensitive) == 0 &&
                   at + 8 <= text.size()) {
            const QString letter = doubleByte(text.at(at + 3).digitValue(), hexAt(text, at + 4, 4));
            if (!letter.isEmpty()) {
                plain += letter;
                at += 7;
                continue;
            }
        }
        plain += text.at(at);
    }
    return plain;
}

/** The font in which letters of a paragraph text stand. */
struct Lettering
{
    QString font; ///< empty: that of the text's style
    bool isStyled = false;
};

/** What "\fArial|b1|i0;" and "\Fromans.shx;" say between the letter and the semicolon. */
Lettering letteringOf(const QString &argument)
{
    Lettering lettering;
    const QStringList parts = argument.split(QLatin1Char('|'));
    lettering.font = parts.first().section(QLatin1Char(','), 0, 0).trimmed();
    for (const char *ending : {".shx", ".ttf", ".ttc", ".otf"}) {
        if (lettering.font.endsWith(QLatin1String(ending), Qt::CaseInsensitive))
            lettering.font.chop(int(qstrlen(ending)));
    }
    for (const char *style : {"b1", "i1"})
        lettering.isStyled = lettering.isStyled || parts.contains(QLatin1String(style));
    return lettering;
}

/** Takes the format codes off a paragraph text, letter by letter. */
class ParagraphReader
{
public:
    explicit ParagraphReader(const QString &coded) : m_text(coded) {}

    Paragraph read()
    {
        while (m_at < m_text.size())
            takeNext();
        endLine();
        return m_read;
    }

private:
    /** Adds a letter to the line, in the font that holds there. */
    void put(QChar letter)
    {
        m_line.text += letter;
        if (letter.isSpace())
            return;
        if (!m_hasLetters)
            m_line.font = m_lettering.font;
        else if (m_line.font.compare(m_lettering.font, Qt::CaseInsensitive) != 0)
            m_read.hasMixedLines = true;
        m_hasLetters = true;
        m_read.hasStyledFonts = m_read.hasStyledFonts || m_lettering.isStyled;
    }

    void takeNext()
    {
        const QChar letter = m_text.at(m_at++);
        if (letter == QLatin1Char('\\') && m_at < m_text.size())
            takeCode(m_text.at(m_at++));
        else if (letter == QLatin1Char('\n'))
            endLine();
        else if (letter == QLatin1Char('^') && m_at < m_text.size())
            takeControl(m_text.at(m_at++));
        else if (letter == QLatin1Char('{'))
            m_around.append(m_lettering);
        else if (letter == QLatin1Char('}'))
            m_lettering = m_around.isEmpty() ? Lettering() : m_around.takeLast();
        else if (letter != QLatin1Char('\r'))
            put(letter);
    }

    void takeCode(QChar code)
    {
        switch (code.unicode()) {
        case 'P':
        case 'N':
        case 'X':
            endLine();
            break;
        case '~':
            put(QChar(QChar::Nbsp));
            break;
        case '\\':
        case '{':
        case '}':
            put(code);
            break;
        case 'L':
        case 'l':
        case 'O':
        case 'o':
        case 'K':
        case 'k':
            break;
        case 'S':
            takeStack();
            break;
        case 'f':
        case 'F':
            m_lettering = letteringOf(takeArgument());
            break;
        case 'H':
        case 'W':
        case 'Q':
        case 'T':
        case 'A':
        case 'C':
        case 'c':
        case 'p':
            takeArgument();
            break;
        default:
            put(QLatin1Char('\\'));
            put(code);
        }
    }

    void takeControl(QChar code)
    {
        if (code == QLatin1Char('J'))
            endLine();
        else if (code == QLatin1Char('I'))
            put(QLatin1Char(' '));
        else if (code == QLatin1Char(' '))
            put(QLatin1Char('^'));
        else if (code != QLatin1Char('M')) {
            put(QLatin1Char('^'));
            put(code);
        }
    }

    QString takeArgument()
    {
        const int end = m_text.indexOf(QLatin1Char(';'), m_at);
        QString argument = m_text.mid(m_at, end < 0 ? -1 : end - m_at);
        m_at = end < 0 ? m_text.size() : end + 1;
        return argument;
    }

    void takeStack()
    {
        const QString stack = takeArgument();
        for (int i = 0; i < stack.size(); ++i) {
            const QChar letter = stack.at(i);
            if (letter == QLatin1Char('\\') && i + 1 < stack.size())
                put(stack.at(++i));
            else if (letter == QLatin1Char('^') || letter == QLatin1Char('#'))
                put(QLatin1Char('/'));
            else
                put(letter);
        }
    }

    void endLine()
    {
        m_read.lines.append(m_line);
        m_line = {};
        m_hasLetters = false;
    }

    const QString &m_text;
    int m_at = 0;
    Paragraph m_read;
    ParagraphLine m_line;
    bool m_hasLetters = false; ///< of the line
    Lettering m_lettering;
    QVector<Lettering> m_around; ///< of the braces around
};

} // namespace

void TextDecoder::setUp(const Header &header)
{
    m_codec = codecOf(header.codePage);
    // Since this version all text is UTF-8; before it, programs without a code page of their own
    // name the western one whatever they write.
    m_prefersUtf8 = header.version >= QLatin1String("AC1021") || header.codePage.isEmpty() ||
                    !m_codec || header.codePage.toUpper() == QLatin1String("ANSI_1252");
}

QString TextDecoder::decodeBytes(std::string_view bytes) const
{
    const int size = static_cast<int>(bytes.size());
    QString text;
    static const QTextCodec *const kUtf8 = QTextCodec::codecForName("UTF-8");
    if (m_prefersUtf8 && decodeWith(kUtf8, bytes.data(), size, &text))
        return text;
    if (m_codec && decodeWith(m_codec, bytes.data(), size, &text))
        return text;
    if (decodeWith(kUtf8, bytes.data(), size, &text))
        return text;
    static const QTextCodec *const kWestern = QTextCodec::codecForName("windows-1252");
    return (m_codec ? m_codec : kWestern)->toUnicode(bytes.data(), size);
}

QString TextDecoder::decode(std::string_view bytes) const
{
    for (const char letter : bytes) {
        if (static_cast<unsigned char>(letter) >= 0x80)
            return withoutEscapes(decodeBytes(bytes));
    }
    return withoutEscapes(QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size())));
}

QString plainLine(const QString &coded)
{
    QString plain;
    for (int at = 0; at < coded.size(); ++at) {
        if (coded.midRef(at, 2) != QLatin1String("%%") || at + 2 >= coded.size()) {
            plain += coded.at(at);
            continue;
        }
        const QChar code = coded.at(at + 2).toLower();
        at += 2;
        bool isNumber = false;
        const int number = coded.midRef(at, 3).toInt(&isNumber);
        if (code.isDigit() && isNumber && coded.size() >= at + 3 && number > 0) {
            plain += QChar(number);
            at += 2;
        } else if (code == QLatin1Char('d')) {
            plain += QChar(kDegree);
        } else if (code == QLatin1Char('p')) {
            plain += QChar(kPlusMinus);
        } else if (code == QLatin1Char('c')) {
            plain += QChar(kDiameter);
        } else if (code == QLatin1Char('%')) {
            plain += code;
        } else if (code != QLatin1Char('u') && code != QLatin1Char('o') &&
                   code != QLatin1Char('k')) {
            plain += coded.midRef(at - 2, 3);
        }
    }
    return plain;
}

Paragraph paragraphOf(const QString &coded)
{
    Paragraph paragraph = ParagraphReader(coded).read();
    for (ParagraphLine &line : paragraph.lines)
        line.text = plainLine(line.text);
    return paragraph;
}

} // namespace vectorkit::dxf
