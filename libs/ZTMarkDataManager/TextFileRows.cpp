#include <ZTMarkDataManager/TextFileRows_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTextCodec>

#include <array>
#include <memory>

namespace {

constexpr qint64 kMaxFileSize = qint64(256) << 20;
constexpr int kMaxRowLength = 16384;

// Numbers of the character sets by IANA, as QTextCodec::mibEnum gives them.
constexpr int kUtf8 = 106;
constexpr int kUtf16BigEndian = 1013;
constexpr int kUtf16LittleEndian = 1014;
constexpr int kUtf16 = 1015;
constexpr int kUtf32BigEndian = 1018;
constexpr int kUtf32LittleEndian = 1019;
constexpr int kUtf32 = 1017;

/** How the bytes of a file make characters. */
struct Encoding
{
    QTextCodec *codec = nullptr; ///< Qt's own
    bool isWide = false;         ///< two bytes a unit
    bool isBigEndian = false;
    int markSize = 0; ///< bytes of the byte order mark
};

Encoding wideEncoding(bool isBigEndian, int markSize)
{
    const int mib = isBigEndian ? kUtf16BigEndian : kUtf16LittleEndian;
    return {QTextCodec::codecForMib(mib), true, isBigEndian, markSize};
}

/** The encoding by mark, else by name; no codec when there is none that can be read by lines. */
Encoding encodingOf(QFile &file, const QString &name)
{
    const QByteArray head = file.peek(3);
    if (head == "\xEF\xBB\xBF")
        return {QTextCodec::codecForMib(kUtf8), false, false, 3};
    if (head.startsWith("\xFE\xFF"))
        return wideEncoding(true, 2);
    if (head.startsWith("\xFF\xFE"))
        return wideEncoding(false, 2);
    if (name.isEmpty())
        return {QTextCodec::codecForMib(kUtf8), false, false, 0};

    QTextCodec *codec = QTextCodec::codecForName(name.toLatin1());
    switch (codec != nullptr ? codec->mibEnum() : kUtf32) {
    case kUtf16:
    case kUtf16LittleEndian:
        return wideEncoding(false, 0);
    case kUtf16BigEndian:
        return wideEncoding(true, 0);
    case kUtf32:
    case kUtf32BigEndian:
    case kUtf32LittleEndian:
        return {};
    default:
        return {codec, false, false, 0};
    }
}

/** Lines of a file, decoded, each with the byte it begins at; needs little memory. */
class LineReader
{
public:
    LineReader(QFile &lineFile, const Encoding &lineEncoding)
        : m_file(lineFile), m_encoding(lineEncoding), m_end(lineFile.size())
    {
    }

    void seek(qint64 offset)
    {
        m_file.seek(offset);
        m_bufferStart = offset;
        m_used = m_filled = 0;
    }

    qint64 position() const { return m_bufferStart + m_used; }

    bool atEnd() { return peekUnit() < 0; }

    /** Reads a line without its end; false when it is longer than a row may be. */
    bool readLine(QString *line)
    {
        QByteArray bytes;
        QString units;
        bool fits = true;
        int unit = takeUnit();
        for (; unit >= 0 && unit != '\n' && unit != '\r'; unit = takeUnit()) {
            if (bytes.size() + units.size() >= kMaxLineUnits)
                fits = false;
            else if (m_encoding.isWide)
                units.append(QChar(static_cast<ushort>(unit)));
            else
                bytes.append(static_cast<char>(unit));
        }
        if (unit == '\r' && peekUnit() == '\n')
            takeUnit();
        *line = m_encoding.isWide ? units : m_encoding.codec->toUnicode(bytes);
        return fits && line->size() <= kMaxRowLength;
    }

private:
    /** No line that fits has more: four bytes make a character at most. */
    static constexpr int kMaxLineUnits = 4 * kMaxRowLength;

    int unitSize() const { return m_encoding.isWide ? 2 : 1; }

    /** The next byte or, in UTF-16, pair of bytes; -1 at the end. */
    int peekUnit()
    {
        if (m_used + unitSize() > m_filled && !refill())
            return -1;
        const auto first = static_cast<uchar>(m_buffer[static_cast<std::size_t>(m_used)]);
        if (!m_encoding.isWide)
            return first;
        const auto second = static_cast<uchar>(m_buffer[static_cast<std::size_t>(m_used) + 1]);
        return m_encoding.isBigEndian ? first << 8 | second : second << 8 | first;
    }

    int takeUnit()
    {
        const int unit = peekUnit();
        if (unit >= 0)
            m_used += unitSize();
        return unit;
    }

    bool refill()
    {
        seek(position());
        // Never past the size at the start: somebody may be writing faster than this reads.
        const qint64 wanted =
            qMin<qint64>(static_cast<qint64>(m_buffer.size()), m_end - m_bufferStart);
        if (wanted > 0)
            m_filled = static_cast<int>(qMax<qint64>(m_file.read(m_buffer.data(), wanted), 0));
        return m_filled >= unitSize();
    }

    QFile &m_file;
    const Encoding m_encoding;
    const qint64 m_end;
    std::array<char, 65536> m_buffer;
    qint64 m_bufferStart = 0;
    int m_used = 0;
    int m_filled = 0;
};

/** Takes one column out of a CSV row that comes line by line. */
class ColumnParser
{
public:
    ColumnParser(int wantedColumn, QChar columnSeparator)
        : m_wanted(wantedColumn), m_separator(columnSeparator)
    {
    }

    void feed(const QString &line)
    {
        for (const QChar c : line)
            feed(c);
    }

    void feed(QChar c)
    {
        const bool isQuote = c == u'"';
        if (m_state == State::Quoted) {
            isQuote ? void(m_state = State::QuoteInQuoted) : keep(c);
        } else if (c == m_separator) {
            ++m_column;
            m_state = State::Start;
        } else if (isQuote && m_state == State::Start) {
            m_state = State::Quoted;
        } else {
            // A quote after a quote stands for one; anything else shows that the field had ended.
            m_state = isQuote && m_state == State::QuoteInQuoted ? State::Quoted : State::Plain;
            keep(c);
        }
    }

    bool isQuoted() const { return m_state == State::Quoted; }
    bool hasColumn() const { return m_column >= m_wanted; }
    const QString &text() const { return m_field; }

private:
    enum class State {
        Start,
        Plain,
        Quoted,
        QuoteInQuoted,
    };

    void keep(QChar c)
    {
        if (m_column == m_wanted)
            m_field.append(c);
    }

    const int m_wanted;
    const QChar m_separator;
    int m_column = 0;
    State m_state = State::Start;
    QString m_field;
};

/** A row as it was read. */
struct ParsedRow
{
    QString text;
    bool fits = true;
    bool hasColumn = true;
};

ParsedRow readColumn(LineReader &reader, const ZTTextFileSegment &segment)
{
    ColumnParser parser(segment.column, segment.separator);
    QString line;
    bool fits = reader.readLine(&line);
    int length = line.size();
    parser.feed(line);
    while (fits && parser.isQuoted() && !reader.atEnd()) {
        parser.feed(u'\n');
        fits = reader.readLine(&line);
        parser.feed(line);
        length += 1 + line.size();
        fits = fits && length <= kMaxRowLength;
    }
    return {parser.text(), fits, parser.hasColumn()};
}

ParsedRow readRow(LineReader &reader, const ZTTextFileSegment &segment)
{
    if (segment.column >= 0)
        return readColumn(reader, segment);
    ParsedRow row;
    row.fits = reader.readLine(&row.text);
    return row;
}

/** Finds rows by number, from where the cursor stands. */
class RowFinder
{
public:
    RowFinder(LineReader &rowReader, const ZTTextFileSegment &rowSegment, TextFileCursor &position)
        : m_reader(rowReader), m_segment(rowSegment), m_cursor(position)
    {
    }

    /** Reads a row; false when the file has none of that number, and `count` is known. */
    bool find(quint64 row, ParsedRow *found)
    {
        m_reader.seek(m_cursor.offset);
        for (quint64 at = m_cursor.row;; ++at) {
            const qint64 start = m_reader.position();
            if (m_reader.atEnd()) {
                m_rowCount = at;
                return false;
            }
            *found = readRow(m_reader, m_segment);
            m_cursor.row = at;
            m_cursor.offset = start;
            if (at == row)
                return true;
        }
    }

    quint64 count() const { return m_rowCount; }

private:
    LineReader &m_reader;
    const ZTTextFileSegment &m_segment;
    TextFileCursor &m_cursor;
    quint64 m_rowCount = 0;
};

/** Opens a file; the result is empty or says why it cannot be read. */
QString open(QFile &file)
{
    const QString &path = file.fileName();
    const QFileInfo info(path);
    // Qt warns about a null character in a path instead of just not finding it.
    if (path.isEmpty() || path.contains(QChar::Null) || !info.exists())
        return QCoreApplication::translate("ZTVariantText", "%1: no such file").arg(path);
    if (!info.isFile())
        return QCoreApplication::translate("ZTVariantText", "%1: not a regular file").arg(path);
    if (info.size() > kMaxFileSize)
        return QCoreApplication::translate("ZTVariantText", "%1: larger than 256 MiB").arg(path);
    if (!file.open(QIODevice::ReadOnly))
        return QCoreApplication::translate("ZTVariantText", "%1: %2").arg(path, file.errorString());
    return {};
}

/** Why the columns of the segment cannot be told apart; empty when they can. */
QString separatorProblem(const ZTTextFileSegment &segment)
{
    const QChar c = segment.separator;
    const bool isUsable = !c.isNull() && c != u'"' && c != u'\n' && c != u'\r';
    if (segment.column < 0 || isUsable)
        return {};
    return QCoreApplication::translate("ZTVariantText",
                                       "%1: this character cannot separate columns")
        .arg(segment.path);
}

/** What is wrong with a row that was read; rows and columns count from 1 for the reader. */
QString rowProblem(const ZTTextFileSegment &segment, quint64 row, const ParsedRow &parsed)
{
    const QString number = QString::number(row + 1);
    if (!parsed.fits)
        return QCoreApplication::translate("ZTVariantText", "%1: row %2 is too long")
            .arg(segment.path, number);
    if (!parsed.hasColumn) {
        const QString column = QString::number(qint64(segment.column) + 1);
        return QCoreApplication::translate("ZTVariantText", "%1: row %2 has no column %3")
            .arg(segment.path, number, column);
    }
    return {};
}

/** Sends the cursor to the start if the file is another one or the row lies behind it. */
void renew(TextFileCursor &cursor, const QFile &file, quint64 row, const Encoding &encoding)
{
    const QFileInfo info(file);
    if (cursor.fileSize == info.size() && cursor.fileTime == info.lastModified() &&
        cursor.row <= row)
        return;
    cursor = {info.size(), info.lastModified(), 0, encoding.markSize};
}

} // namespace

TextFileRow nextTextFileRow(const ZTTextFileSegment &segment, TextFileCursor &cursor)
{
    const auto failed = [&](const QString &error) {
        return TextFileRow{QString(), error, segment.nextRow, false};
    };
    QFile file(segment.path);
    const QString fileProblem = open(file);
    if (!fileProblem.isEmpty())
        return failed(fileProblem);
    const QString separation = separatorProblem(segment);
    if (!separation.isEmpty())
        return failed(separation);
    const Encoding encoding = encodingOf(file, segment.encoding);
    if (encoding.codec == nullptr)
        return failed(QCoreApplication::translate("ZTVariantText", "%1: no text encoding %2")
                          .arg(segment.path, segment.encoding));

    quint64 row = qMax(segment.nextRow, segment.firstRow);
    renew(cursor, file, row, encoding);
    const auto reader = std::make_unique<LineReader>(file, encoding);
    RowFinder rows(*reader, segment, cursor);
    ParsedRow parsed;
    const bool found = rows.find(row, &parsed);
    if (!found) {
        if (rows.count() <= segment.firstRow)
            return failed(
                QCoreApplication::translate("ZTVariantText", "%1: no rows").arg(segment.path));
        row = segment.atEnd == ZTVariantTextEnd::Wrap ? segment.firstRow : rows.count() - 1;
        renew(cursor, file, row, encoding);
        rows.find(row, &parsed);
    }
    const bool usesRow = found || segment.atEnd == ZTVariantTextEnd::Wrap;
    const QString problem = rowProblem(segment, row, parsed);
    return {problem.isEmpty() ? parsed.text : QString(), problem,
            usesRow ? row + 1 : segment.nextRow, !usesRow};
}
