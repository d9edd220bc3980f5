#include "SourceText_p.h"

#include <QtCore/QList>

#include <algorithm>

namespace fontkit {

namespace {

constexpr int kLongestShown = 40;

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

bool isControl(char c)
{
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7F;
}

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool isHexPair(const QByteArray &text)
{
    return text.size() == 2 && isHexDigit(text[0]) && isHexDigit(text[1]);
}

} // namespace

QString shown(const QByteArray &text)
{
    QString visible = QString::fromUtf8(text);
    if (visible.size() > kLongestShown)
        visible = visible.left(kLongestShown) + QStringLiteral("...");
    return QStringLiteral("\"%1\"").arg(visible);
}

void Statement::fail(const QString &what) const { throw SourceError{line, what}; }

const Token &Statement::take(const char *what)
{
    if (atEnd())
        fail(QStringLiteral("%1 is missing behind %2")
                 .arg(QLatin1String(what), shown(tokens.back().text)));
    return tokens[m_next++];
}

bool Statement::isNumberNext() const
{
    if (atEnd() || tokens[m_next].kind != Token::Word || tokens[m_next].text.isEmpty())
        return false;
    const char first = tokens[m_next].text[0];
    return (first >= '0' && first <= '9') || first == '-' || first == '+';
}

int Statement::toNumber(const QByteArray &word) const
{
    const bool isHex = word.startsWith("0x") || word.startsWith("0X");
    bool isNumber = false;
    const int value = isHex ? word.mid(2).toInt(&isNumber, 16) : word.toInt(&isNumber, 10);
    const bool hasSecondSign = isHex && word.size() > 2 && !isHexDigit(word[2]);
    if (!isNumber || hasSecondSign)
        fail(shown(word) + QStringLiteral(" is no whole number"));
    return value;
}

int Statement::number()
{
    const Token &token = take("a number");
    if (token.kind != Token::Word)
        fail(shown(token.text) + QStringLiteral(" in quotes is no number"));
    return toNumber(token.text);
}

int Statement::number(int least, int most)
{
    const int value = number();
    if (value < least || value > most)
        fail(QStringLiteral("%1 is not in %2 to %3").arg(value).arg(least).arg(most));
    return value;
}

quint32 Statement::unsignedNumber()
{
    const QByteArray digits = word("a number");
    bool isNumber = false;
    const quint32 value = digits.toUInt(&isNumber, 10);
    if (!isNumber)
        fail(shown(digits) + QStringLiteral(" is no whole number of 32 bits"));
    return value;
}

QByteArray Statement::word(const char *what)
{
    const Token &token = take(what);
    if (token.kind != Token::Word)
        fail(shown(token.text) + QStringLiteral(" in quotes is not ") + QLatin1String(what));
    return token.text;
}

QByteArray Statement::text(const char *what)
{
    const Token &token = take(what);
    if (token.kind != Token::Text)
        fail(QStringLiteral("%1 stands in double quotes, %2 does not")
                 .arg(QLatin1String(what), shown(token.text)));
    return token.text;
}

void Statement::expect(const char *word)
{
    const QByteArray what = '"' + QByteArray(word) + '"';
    const Token &token = take(what.constData());
    if (token.kind != Token::Word || token.text != word)
        fail(QStringLiteral("%1 where \"%2\" should be")
                 .arg(shown(token.text), QLatin1String(word)));
}

bool Statement::accept(const char *word)
{
    if (atEnd() || tokens[m_next].kind != Token::Word || tokens[m_next].text != word)
        return false;
    ++m_next;
    return true;
}

bool Statement::acceptText(QByteArray *text)
{
    if (atEnd() || tokens[m_next].kind != Token::Text)
        return false;
    *text = tokens[m_next++].text;
    return true;
}

bool Statement::acceptCharacter(QString *character)
{
    if (atEnd() || tokens[m_next].kind != Token::Character)
        return false;
    const QByteArray bytes = tokens[m_next++].text;
    *character = QString::fromUtf8(bytes);
    if (character->toUtf8() != bytes)
        fail(QStringLiteral("the character in quotes is not in UTF-8"));
    return true;
}

std::vector<int> Statement::tuple(int size)
{
    const QByteArray group = word("numbers with commas");
    std::vector<int> numbers;
    for (const QByteArray &part : group.split(','))
        numbers.push_back(toNumber(part));
    if (static_cast<int>(numbers.size()) != size)
        fail(QStringLiteral("%1 should be %2 numbers with commas").arg(shown(group)).arg(size));
    return numbers;
}

QByteArray Statement::hexBytes()
{
    QByteArray bytes;
    do {
        const QByteArray pair = word("a byte");
        if (!isHexPair(pair))
            fail(shown(pair) + QStringLiteral(" is no byte of two hexadecimal digits"));
        bytes += QByteArray::fromHex(pair);
    } while (!atEnd());
    return bytes;
}

void Statement::finish() const
{
    if (!atEnd())
        fail(QStringLiteral("%1 is too much behind %2")
                 .arg(shown(tokens[m_next].text), shown(keyword())));
}

SourceText::SourceText(const QByteArray &text)
    : m_source(text.startsWith("\xEF\xBB\xBF") ? text.mid(3) : text)
{
}

bool SourceText::isAtNewline() const { return m_at >= m_source.size() || m_source[m_at] == '\n'; }

void SourceText::skipComment()
{
    while (!isAtNewline())
        ++m_at;
}

/** Passes over blanks, comments and continued lines; false at the end of the statement. */
bool SourceText::skipBlanks()
{
    while (!isAtNewline()) {
        if (isBlank(m_source[m_at])) {
            ++m_at;
        } else if (m_source[m_at] == '#') {
            skipComment();
        } else if (m_source[m_at] == '\\') {
            ++m_at;
            while (!isAtNewline() && isBlank(m_source[m_at]))
                ++m_at;
            if (!isAtNewline())
                throw SourceError{m_line, QStringLiteral("\\ stands at the end of a line only")};
            if (m_at < m_source.size()) {
                ++m_at;
                ++m_line;
            }
        } else {
            return true;
        }
    }
    return false;
}

bool SourceText::next(Statement *statement)
{
    *statement = Statement();
    while (m_at < m_source.size()) {
        while (skipBlanks()) {
            if (statement->tokens.empty())
                statement->line = m_line;
            statement->tokens.push_back(token());
        }
        if (m_at < m_source.size()) {
            ++m_at; // the line feed
            ++m_line;
        }
        if (!statement->tokens.empty())
            return true;
    }
    return false;
}

Token SourceText::token()
{
    if (m_source[m_at] == '"')
        return quotedText();
    if (m_source[m_at] == '\'')
        return quotedCharacter();
    const int start = m_at;
    while (!isAtNewline() && !isBlank(m_source[m_at]) && m_source[m_at] != '#' &&
           m_source[m_at] != '"' && m_source[m_at] != '\\')
        ++m_at;
    const QByteArray word = m_source.mid(start, m_at - start);
    if (std::any_of(word.begin(), word.end(), isControl))
        throw SourceError{m_line, QStringLiteral("a control character stands outside of quotes")};
    return {Token::Word, word};
}

Token SourceText::quotedText()
{
    Token token{Token::Text, {}};
    for (++m_at; !isAtNewline(); ++m_at) {
        if (m_source[m_at] == '"') {
            ++m_at;
            return token;
        }
        token.text += m_source[m_at] == '\\' ? escape() : m_source[m_at];
    }
    throw SourceError{m_line, QStringLiteral("a text in double quotes has no end")};
}

/** The byte of an escape; leaves the place at its last character. */
char SourceText::escape()
{
    ++m_at;
    const char kind = isAtNewline() ? '\n' : m_source[m_at];
    switch (kind) {
    case '"':
    case '\\':
        return kind;
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        break;
    }
    const QByteArray pair = m_source.mid(m_at + 1, 2);
    if (kind != 'x' || !isHexPair(pair))
        throw SourceError{m_line, QStringLiteral("behind \\ comes one of \" \\ n r t or x and two "
                                                 "hexadecimal digits")};
    m_at += 2;
    return QByteArray::fromHex(pair)[0];
}

Token SourceText::quotedCharacter()
{
    const int start = m_at + 1;
    const int lineEnd = m_source.indexOf('\n', start);
    const int end = m_source.indexOf('\'', start + 1); // ''' is the quote itself
    if (end < 0 || (lineEnd >= 0 && end > lineEnd))
        throw SourceError{m_line, QStringLiteral("a character in single quotes has no end")};
    m_at = end + 1;
    return {Token::Character, m_source.mid(start, end - start)};
}

} // namespace fontkit
