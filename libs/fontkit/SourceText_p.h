#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace fontkit {

/** What is wrong in a line of a source text. Never leaves fontkit. */
struct SourceError
{
    int line;
    QString what;
};

/** A word, a text in double quotes or a character in single ones. */
struct Token
{
    enum Kind { Word, Text, Character };

    Kind kind = Word;
    QByteArray text; ///< without quotes and escapes
};

/**
 * A keyword and its operands, taken one after another.
 *
 * Failure: `SourceError`, also when an operand is missing.
 */
class Statement
{
public:
    int line = 0; ///< of the keyword, counted from 1
    std::vector<Token> tokens;

    QByteArray keyword() const { return tokens.front().text; }

    bool atEnd() const { return m_next >= tokens.size(); }
    bool isNumberNext() const; ///< the next operand begins as a number does

    int number();                    ///< decimal or, behind 0x, hexadecimal
    int number(int least, int most); ///< within these
    quint32 unsignedNumber();        ///< of 32 bits, decimal
    QByteArray word(const char *what);
    QByteArray text(const char *what);
    void expect(const char *word);            ///< takes this word
    bool accept(const char *word);            ///< takes this word if it comes next
    bool acceptText(QByteArray *text);        ///< takes a text in quotes if one comes next
    bool acceptCharacter(QString *character); ///< takes a character in quotes if one comes next
    std::vector<int> tuple(int size);         ///< whole numbers joined by commas
    QByteArray hexBytes();                    ///< all operands that are left, two digits each
    void finish() const;                      ///< nothing may be left

    [[noreturn]] void fail(const QString &what) const;

private:
    const Token &take(const char *what);
    int toNumber(const QByteArray &word) const;

    size_t m_next = 1;
};

/** Cuts a source text into statements. */
class SourceText
{
public:
    explicit SourceText(const QByteArray &text);

    /** The next statement; false at the end. Failure: `SourceError`. */
    bool next(Statement *statement);

private:
    bool skipBlanks();
    void skipComment();
    Token token();
    Token quotedText();
    Token quotedCharacter();
    char escape();
    bool isAtNewline() const;

    const QByteArray m_source;
    int m_at = 0;
    int m_line = 1;
};

/** A token as a message shows it, in quotes and not too long. */
QString shown(const QByteArray &text);

} // namespace fontkit
