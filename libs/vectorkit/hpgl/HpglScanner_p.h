#pragma once

#include <QtCore/QByteArray>

#include <vector>

namespace vectorkit {

/** A command's two letters as one number. */
constexpr int hpglCode(char first, char second) { return first * 256 + second; }

/**
 * Walks over the commands of a plotter file: separators of all sorts or none, escape sequences, the
 * printer's language around them, comments.
 *
 * Owner: the bytes are borrowed from whoever made it.
 */
class HpglScanner
{
public:
    HpglScanner(const char *begin, const char *end) : m_first(begin), m_at(begin), m_last(end) {}

    /** To the next command, past what is left of the last one; false at the end. */
    bool next();

    /** The command's letters, in upper case. */
    int code() const { return m_current; }

    /** Bytes before the command. */
    qint64 place() const { return m_commandAt - m_first; }
    qint64 size() const { return m_last - m_first; }

    /** Reads the command's numbers up to the first that is none; false when there was one. */
    bool readNumbers();
    const std::vector<double> &numbers() const { return m_values; }

    /** How sure it is that the bytes end within the numbers that were read last. */
    enum class Cut {
        No,       ///< something stands behind them
        Possible, ///< at a digit, in a file that ends its commands with semicolons
        Certain   ///< behind a comma
    };
    Cut cut() const { return m_cut; }

    /** A label up to its terminator, which is passed; `isMended` when the terminator is missing. */
    QByteArray readLabel(char terminator, bool *isMended);

    /** One byte, whatever it is; 0 at the end or before a semicolon. */
    char readByte();

    /** Bytes up to the semicolon, which is passed. */
    QByteArray readToSemicolon();

    /** Back by so many bytes before the semicolon that was passed last. */
    void stepBack(int bytes);

    /** Past words that are no commands: quoted, or up to a semicolon or the end of the line. */
    void skipComment();

    /** Past parameters of which some may be quoted. */
    void skipQuoted();

    /** Bytes that belong to no command, so far, each run counted once. */
    qint64 strayRuns() const { return m_strays; }
    qint64 firstStray() const { return m_firstStrayAt; }

    /** Whether the printer's language stood around the commands. */
    bool isWrapped() const { return m_wrapped; }

private:
    bool readNumber();
    void skipEscape();
    void skipPrinterSequence();
    void skipLine();
    void skipStray();

    const char *m_first;
    const char *m_at;
    const char *m_last;
    const char *m_commandAt = nullptr;
    int m_current = 0;
    std::vector<double> m_values;
    Cut m_cut = Cut::No;
    bool m_hadSemicolon = false; ///< behind numbers
    qint64 m_strays = 0;
    qint64 m_firstStrayAt = 0;
    bool m_wrapped = false;
};

} // namespace vectorkit
