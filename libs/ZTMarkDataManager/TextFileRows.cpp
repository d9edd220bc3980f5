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
        : file(lineFile), encoding(lineEncoding), end(lineFile.size())
    {
    }

    void seek(qint64 offset)
    {
        file.seek(offset);
        bufferStart = offset;
        used = filled = 0;
    }

    qint64 position() const { return bufferStart + used; }

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
            else if (encoding.isWide)
                units.append(QChar(static_cast<ushort>(unit)));
            else
                bytes.append(static_cast<char>(unit));
        }
        if (unit == '\r' && peekUnit() == '\n')
            takeUnit();
        *line = encoding.isWide ? units : encoding.codec->toUnicode(bytes);
        return fits && line->size() <= kMaxRowLength;
    }

private:
    /** No line that fits has more: four bytes make a character at most. */
    static constexpr int kMaxLineUnits = 4 * kMaxRowLength;

    int unitSize() const { return encoding.isWide ? 2 : 1; }

    /** The next byte or, in UTF-16, pair of bytes; -1 at the end. */
    int peekUnit()
    {
        if (used + unitSize() > filled && !refill())
            return -1;
        const auto first = static_cast<uchar>(buffer[static_cast<std::size_t>(used)]);
        if (!encoding.isWide)
            return first;
        const auto second = static_cast<uchar>(buffer[static_cast<std::size_t>(used) + 1]);
        return encoding.isBigEndian ? first << 8 | second : second << 8 | first;
    }

    int takeUnit()
    {
        const int unit = peekUnit();
        if (unit >= 0)
            used += unitSize();
        return unit;
    }

    bool refill()
    {
        seek(position());
        // Never past the size at the start: somebody may be writing faster than this reads.
        const qint64 wanted = qMin<qint64>(static_cast<qint64>(buffer.size()), end - bufferStart);
        if (wanted > 0)
            filled = static_cast<int>(qMax<qint64>(file.read(buffer.data(), wanted), 0));
        return filled >= unitSize();
    }

    QFile &file;
    const Encoding encoding;
    const qint64 end;
    std::array<char, 65536> buffer;
    qint64 bufferStart = 0;
    int used = 0;
    int filled = 0;
};

/** Takes one column out of a CSV row that comes line by line. */
class ColumnParser
{
public:
    ColumnParser(int wantedColumn, QChar columnSeparator)
        : wanted(wantedColumn), separator(columnSeparator)
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
        if (state == State::Quoted) {
            isQuote ? void(state = State::QuoteInQuoted) : keep(c);
        } else if (c == separator) {
            ++column;
            state = State::Start;
        } else if (isQuote && state == State::Start) {
            state = State::Quoted;
        } else {
            // A quote after a quote stands for one; anything else shows that the field had ended.
            state = isQuote && state == State::QuoteInQuoted ? State::Quoted : State::Plain;
            keep(c);
        }
    }

    bool isQuoted() const { return state == State::Quoted; }
    bool hasColumn() const { return column >= wanted; }
    const QString &text() const { return field; }

private:
    enum class State {
        Start,
        Plain,
        Quoted,
        QuoteInQuoted,
    };

    void keep(QChar c)
    {
        if (column == wanted)
            field.append(c);
    }

    const int wanted;
    const QChar separator;
    int column = 0;
    State state = State::Start;
    QString field;
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
        : reader(rowReader), segment(rowSegment), cursor(position)
    {
    }

    /** Reads a row; false when the file has none of that number, and `count` is known. */
    bool find(quint64 row, ParsedRow *found)
    {
        reader.seek(cursor.offset);
        for (quint64 at = cursor.row;; ++at) {
            const qint64 start = reader.position();
            if (reader.atEnd()) {
                rowCount = at;
                return false;
            }
            *found = readRow(reader, segment);
            cursor.row = at;
            cursor.offset = start;
            if (at == row)
                return true;
        }
    }

    quint64 count() const { return rowCount; }

private:
    LineReader &reader;
    const ZTTextFileSegment &segment;
    TextFileCursor &cursor;
    quint64 rowCount = 0;
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
