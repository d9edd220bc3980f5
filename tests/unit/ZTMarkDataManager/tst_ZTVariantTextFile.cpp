#include <support/WarningGuard.h>

#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#if defined(Q_OS_UNIX)
#include <sys/stat.h>
#endif

#include <limits>

namespace {

QString operator""_qs(const char *text, std::size_t size)
{
    return QString::fromUtf8(text, static_cast<int>(size));
}

QString updated(ZTVariantText &text)
{
    text.update();
    return text.getText();
}

quint64 nextRowOf(const ZTVariantText &text)
{
    return std::get<ZTTextFileSegment>(text.getSegments().first()).nextRow;
}

} // namespace

class tst_ZTVariantTextFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.reset(new QTemporaryDir);
        QVERIFY(folder->isValid());
        path = folder->filePath(QStringLiteral("list.txt"));
        warnings.reset(new testsupport::WarningGuard);
    }

    void cleanup()
    {
        warnings.reset();
        folder.reset();
    }

    void lines_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("rows");
        const auto row = [](const char *name, const QByteArray &bytes, const QString &rows) {
            QTest::newRow(name) << bytes << rows.split(u'|');
        };
        row("LF", "a\nb\n", QStringLiteral("a|b"));
        row("CR LF", "a\r\nb\r\n", QStringLiteral("a|b"));
        row("CR", "a\rb\r", QStringLiteral("a|b"));
        row("no line end at the end", "a\nb", QStringLiteral("a|b"));
        row("mixed", "a\r\nb\nc\rd", QStringLiteral("a|b|c|d"));
        row("empty rows count", "a\n\n\nb\n\n", QStringLiteral("a|||b|"));
        row("empty rows count with CR LF", "\r\n\r\na", QStringLiteral("||a"));
        row("nothing is trimmed or unquoted", " \"a\" , b \n", QStringLiteral(" \"a\" , b "));
        row("UTF-8", "\xC3\xA4\xE4\xB8\xAD\n\xF0\x9F\x98\x80\n",
            QStringLiteral(u"\u00e4\u4e2d|\U0001F600"));
        row("mark of UTF-8",
            "\xEF\xBB\xBF"
            "a\nb\n",
            QStringLiteral("a|b"));
        row("wrong UTF-8", "a\xFFz\n", QStringLiteral(u"a\uFFFDz"));
        row("UTF-16, little end first",
            QByteArray("\xFF\xFE"
                       "a\0\r\0\n\0\x2d\x4e",
                       10),
            QStringLiteral(u"a|\u4e2d"));
        row("UTF-16, big end first", QByteArray("\xFE\xFF\0a\0\n\x4e\x2d\0\n", 10),
            QStringLiteral(u"a|\u4e2d"));
        row("UTF-16, half a character at the end", QByteArray("\xFE\xFF\0a\0\nx", 7),
            QStringLiteral("a"));
        row("no line end inside UTF-16 characters", QByteArray("\xFE\xFF\x0a\x0d\0b", 6),
            QStringLiteral(u"\u0a0db"));
    }

    void lines()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, rows);
        write(bytes);
        ZTVariantText text = textOf(lineSegment());
        for (const QString &row : rows) {
            QVERIFY(!text.isExhausted());
            QCOMPARE(updated(text), row);
            QCOMPARE(text.errorText(), QString());
        }
        QVERIFY(text.isExhausted());
        QCOMPARE(updated(text), rows.last());
        QCOMPARE(nextRowOf(text), quint64(rows.size()));
        QCOMPARE(text.errorText(), QString());
    }

    void encoding_byName()
    {
        ZTTextFileSegment segment = lineSegment();
        write("\xD6\xD0\n\xB9\xFA\n");
        segment.encoding = QStringLiteral("GBK");
        ZTVariantText text = textOf(segment);
        QCOMPARE(updated(text), QStringLiteral(u"\u4e2d"));
        QCOMPARE(updated(text), QStringLiteral(u"\u56fd"));

        write(QByteArray("a\0\n\0b\0", 6));
        segment.encoding = QStringLiteral("UTF-16LE");
        QCOMPARE(textOf(segment).preview(2), QStringList({"a"_qs, "b"_qs}));
        segment.encoding = QStringLiteral("UTF-16");
        QCOMPARE(textOf(segment).preview(2), QStringList({"a"_qs, "b"_qs}));
        write(QByteArray("\0a\0\n\0b", 6));
        segment.encoding = QStringLiteral("UTF-16BE");
        QCOMPARE(textOf(segment).preview(2), QStringList({"a"_qs, "b"_qs}));
    }

    void encoding_markGoesBeforeName()
    {
        write("\xEF\xBB\xBF\xC3\xA4\n");
        ZTTextFileSegment segment = lineSegment();
        segment.encoding = QStringLiteral("GBK");
        QCOMPARE(textOf(segment).getText(), QStringLiteral(u"\u00e4"));
    }

    void encoding_unusable_isTold()
    {
        write("a\n");
        ZTTextFileSegment segment = lineSegment();
        for (const QString &name : {"no such codec"_qs, "UTF-32"_qs, "UTF-32LE"_qs}) {
            segment.encoding = name;
            const ZTVariantText text = textOf(segment);
            QCOMPARE(text.getText(), QString());
            QCOMPARE(text.errorText(), path + QStringLiteral(": no text encoding ") + name);
        }
    }

    void csv_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("column");
        QTest::addColumn<QStringList>("rows");
        const auto row = [](const char *name, const QByteArray &bytes, int column,
                            const QStringList &rows) {
            QTest::newRow(name) << bytes << column << rows;
        };
        row("first column", "a,b\nc,d\n", 0, {"a"_qs, "c"_qs});
        row("last column", "a,b\nc,d\n", 1, {"b"_qs, "d"_qs});
        row("empty fields", ",\nx,\n", 1, {""_qs, ""_qs});
        row("empty row has an empty first column", "\na,b\n", 0, {""_qs, "a"_qs});
        row("quotes", "\"a,b\",c\n", 0, {"a,b"_qs});
        row("after quotes", "\"a,b\",c\n", 1, {"c"_qs});
        row("doubled quotes", "\"say \"\"hi\"\"\",c\n", 0, {"say \"hi\""_qs});
        row("empty quotes", "\"\",c\n", 0, {""_qs});
        row("four quotes", "\"\"\"\"\n", 0, {"\""_qs});
        row("line end in quotes", "\"a\nb\",c\r\nd,e\n", 0, {"a\nb"_qs, "d"_qs});
        row("CR LF in quotes", "x,\"a\r\n\r\nb\"\r\nd,e\r\n", 1, {"a\n\nb"_qs, "e"_qs});
        row("quote inside a field", "5\" pipe,x\n", 0, {"5\" pipe"_qs});
        row("text after quotes", "\"a\"b\"c,x\n", 0, {"ab\"c"_qs});
        row("quotes after a blank", " \"a\",x\n", 0, {" \"a\""_qs});
        row("open quotes end with the file", "\"a,b\nc\n", 0, {"a,b\nc"_qs});
        row("quotes at the very end", "x\n\"a\"", 0, {"x"_qs, "a"_qs});
    }

    void csv()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, column);
        QFETCH(QStringList, rows);
        write(bytes);
        ZTTextFileSegment segment = lineSegment();
        segment.column = column;
        ZTVariantText text = textOf(segment);
        for (const QString &row : rows) {
            QCOMPARE(updated(text), row);
            QCOMPARE(text.errorText(), QString());
        }
        QVERIFY(text.isExhausted());
        segment.nextRow = quint64(rows.size()) - 1;
        QCOMPARE(textOf(segment).getText(), rows.last());
    }

    void csv_separator()
    {
        ZTTextFileSegment segment = lineSegment();
        segment.column = 1;
        write("a,b;c\td\xE4\xB8\xAD"
              "e\n");
        segment.separator = u';';
        QCOMPARE(textOf(segment).getText(), QStringLiteral(u"c\td\u4e2de"));
        segment.separator = u'\t';
        QCOMPARE(textOf(segment).getText(), QStringLiteral(u"d\u4e2de"));
        segment.separator = QChar(0x4e2d);
        QCOMPARE(textOf(segment).getText(), QStringLiteral("e"));
        for (const QChar unusable : {QChar(), QChar(u'"'), QChar(u'\n'), QChar(u'\r')}) {
            segment.separator = unusable;
            const ZTVariantText text = textOf(segment);
            QCOMPARE(text.getText(), QString());
            QCOMPARE(text.errorText(), path + ": this character cannot separate columns"_qs);
        }
    }

    void csv_separatorThatIsHalfOfACharacter_doesNotSplitIt()
    {
        write("\x81|a|b\n"); // GBK: one character of two bytes, then "a|b"
        ZTTextFileSegment segment = lineSegment();
        segment.encoding = QStringLiteral("GBK");
        segment.separator = u'|';
        segment.column = 1;
        QCOMPARE(textOf(segment).getText(), QStringLiteral("b"));
    }

    void csv_missingColumn_isToldAndUsedUp()
    {
        write("a,b\nc\nd,e\n");
        ZTTextFileSegment segment = lineSegment();
        segment.column = 1;
        ZTVariantText text = textOf(segment);
        QCOMPARE(updated(text), QStringLiteral("b"));
        QCOMPARE(updated(text), QString());
        QCOMPARE(text.errorText(), path + ": row 2 has no column 2"_qs);
        QCOMPARE(updated(text), QStringLiteral("e"));
        QCOMPARE(text.errorText(), QString());
        segment.column = std::numeric_limits<qint32>::max();
        QCOMPARE(textOf(segment).errorText(), path + ": row 1 has no column 2147483648"_qs);
    }

    void wrap_goesOnWithTheFirstRowAfterTheHeadings()
    {
        write("heading\na\nb\n");
        ZTTextFileSegment segment = lineSegment();
        segment.firstRow = 1;
        segment.atEnd = ZTVariantTextEnd::Wrap;
        ZTVariantText text = textOf(segment);
        for (const QString &row : {"a"_qs, "b"_qs, "a"_qs, "b"_qs, "a"_qs}) {
            QVERIFY(!text.isExhausted());
            QCOMPARE(updated(text), row);
        }
        QCOMPARE(nextRowOf(text), quint64(2));
    }

    void stop_goesOnWhenRowsAreAppended()
    {
        write("a\nb\n");
        ZTVariantText text = textOf(lineSegment());
        for (const QString &row : {"a"_qs, "b"_qs, "b"_qs, "b"_qs})
            QCOMPARE(updated(text), row);
        append("c\n");
        QVERIFY(!text.isExhausted());
        QCOMPARE(updated(text), QStringLiteral("c"));
    }

    void headingsOnly_hasNoRows()
    {
        write("heading\n");
        ZTTextFileSegment segment = lineSegment();
        segment.firstRow = 1;
        for (const auto end : {ZTVariantTextEnd::Stop, ZTVariantTextEnd::Wrap}) {
            segment.atEnd = end;
            ZTVariantText text = textOf(segment);
            QCOMPARE(updated(text), QString());
            QCOMPARE(text.errorText(), path + ": no rows"_qs);
            QCOMPARE(nextRowOf(text), quint64(0));
            QVERIFY(!text.isExhausted());
        }
    }

    void emptyFile_hasNoRows_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("mark of UTF-8") << QByteArray("\xEF\xBB\xBF");
        QTest::newRow("mark of UTF-16") << QByteArray("\xFF\xFE");
    }

    void emptyFile_hasNoRows()
    {
        QFETCH(QByteArray, bytes);
        write(bytes);
        ZTVariantText text = textOf(lineSegment());
        QCOMPARE(updated(text), QString());
        QCOMPARE(text.errorText(), path + ": no rows"_qs);
    }

    void farRows_areHarmless()
    {
        write("a\nb\n");
        ZTTextFileSegment segment = lineSegment();
        segment.nextRow = std::numeric_limits<quint64>::max();
        ZTVariantText text = textOf(segment);
        QCOMPARE(updated(text), QStringLiteral("b"));
        QCOMPARE(nextRowOf(text), segment.nextRow);
        QVERIFY(text.isExhausted());
        segment.atEnd = ZTVariantTextEnd::Wrap;
        text = textOf(segment);
        QCOMPARE(updated(text), QStringLiteral("a"));
        QCOMPARE(nextRowOf(text), quint64(1));
        segment.firstRow = std::numeric_limits<quint64>::max();
        QCOMPARE(textOf(segment).errorText(), path + ": no rows"_qs);
    }

    void missingFile_isTold_theRestGoesOnAndTheRowWaits()
    {
        ZTVariantText text;
        text.setSegments({lineSegment(), ZTFixedTextSegment{"#"_qs}, ZTCounterSegment()});
        QCOMPARE(updated(text), QStringLiteral("#1"));
        QCOMPARE(text.errorText(), path + ": no such file"_qs);
        QCOMPARE(nextRowOf(text), quint64(0));
        write("a\nb\n");
        QCOMPARE(updated(text), QStringLiteral("a#2"));
        QCOMPARE(text.errorText(), QString());
        QFile::remove(path);
        QCOMPARE(updated(text), QStringLiteral("#3"));
        write("a\nb\n");
        QCOMPARE(updated(text), QStringLiteral("b#4"));
    }

    void errors_oneLineASegment()
    {
        ZTTextFileSegment nameless;
        ZTVariantText text;
        text.setSegments({lineSegment(), nameless});
        QCOMPARE(text.errorText(), path + ": no such file\n: no such file"_qs);
    }

    void notAFile_isTold()
    {
        ZTTextFileSegment segment = lineSegment();
        segment.path = folder->path();
        QCOMPARE(textOf(segment).errorText(), segment.path + ": not a regular file"_qs);
        segment.path = QStringLiteral("a%1") + QChar(QChar::Null) + u'b';
        QCOMPARE(textOf(segment).errorText(), segment.path + ": no such file"_qs);
#if defined(Q_OS_UNIX)
        segment.path = QStringLiteral("/dev/zero");
        QCOMPARE(textOf(segment).errorText(), segment.path + ": not a regular file"_qs);
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        QCOMPARE(textOf(lineSegment()).errorText(), path + ": not a regular file"_qs);
#endif
    }

    void tooLargeFile_isTold()
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.resize((qint64(256) << 20) + 1)); // a hole: takes no room
        file.close();
        QCOMPARE(textOf(lineSegment()).errorText(), path + ": larger than 256 MiB"_qs);
    }

    void longRow_isToldAndUsedUp()
    {
        write(QByteArray(16384, 'x') + '\n' + QByteArray(16385, 'y') + "\r\n" +
              QByteArray(200000, 'z') + "\nend\n");
        ZTVariantText text = textOf(lineSegment());
        QCOMPARE(updated(text), QString(16384, u'x'));
        QCOMPARE(updated(text), QString());
        QCOMPARE(text.errorText(), path + ": row 2 is too long"_qs);
        QCOMPARE(updated(text), QString());
        QCOMPARE(text.errorText(), path + ": row 3 is too long"_qs);
        QCOMPARE(updated(text), QStringLiteral("end"));
        QCOMPARE(text.errorText(), QString());
    }

    void longRow_countsCharactersAndNotBytes()
    {
        write(QByteArray("\xE4\xB8\xAD").repeated(16384) + '\n');
        QCOMPARE(textOf(lineSegment()).getText(), QString(16384, QChar(0x4e2d)));
        write(QByteArray("\xE4\xB8\xAD").repeated(16385) + '\n');
        QCOMPARE(textOf(lineSegment()).errorText(), path + ": row 1 is too long"_qs);
        QString wide(16384, QChar(0x4e2d));
        write("\xFF\xFE" +
              QByteArray(reinterpret_cast<const char *>(wide.utf16()), wide.size() * 2));
        QCOMPARE(textOf(lineSegment()).getText(), wide);
    }

    void openQuotes_areCutOffAtTheLimit()
    {
        // 1638 lines of 10 characters each are 16,380; line 1639 passes the limit and ends the row.
        write("\"" + QByteArray("123456789\n").repeated(3000) + "end,\n");
        ZTTextFileSegment segment = lineSegment();
        segment.column = 0;
        ZTVariantText text = textOf(segment);
        QCOMPARE(updated(text), QString());
        QCOMPARE(text.errorText(), path + ": row 1 is too long"_qs);
        QCOMPARE(updated(text), QStringLiteral("123456789"));
        segment.nextRow = 3000 - 1639 + 1;
        QCOMPARE(textOf(segment).getText(), QStringLiteral("end"));
        QVERIFY(!textOf(segment).isExhausted());
    }

    void changedFile_rowsGoByNumber()
    {
        write("a1\na2\na3\na4\n");
        ZTVariantText text = textOf(lineSegment());
        QCOMPARE(updated(text), QStringLiteral("a1"));
        QCOMPARE(updated(text), QStringLiteral("a2"));
        write("longer b1\nb2\nb3\n");
        QCOMPARE(updated(text), QStringLiteral("b3"));
        write("c1\n");
        QCOMPARE(updated(text), QStringLiteral("c1"));
        QCOMPARE(nextRowOf(text), quint64(3));
        write("d1\nd2\nd3\nd4\n");
        QCOMPARE(updated(text), QStringLiteral("d4"));
    }

    void changedFile_ofTheSameSize_isNoticedByItsTime()
    {
        write("aaaa\nb\nc\n");
        ZTVariantText text = textOf(lineSegment());
        QCOMPARE(updated(text), QStringLiteral("aaaa"));
        QCOMPARE(updated(text), QStringLiteral("b"));
        write("a\nb\ncccc\n");
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(60),
                                 QFileDevice::FileModificationTime));
        file.close();
        QCOMPARE(updated(text), QStringLiteral("cccc"));
    }

    void everyRowOfALongFile_comesOnce_whateverTheBuffers()
    {
        // The first line lets a CR be the last byte of the first 65,536.
        QByteArray bytes = "start\r\n";
        for (int i = 0; i < 7000; ++i)
            bytes += QByteArray::number(10000000 + i) + "\r\n";
        QCOMPARE(bytes.at(65535), '\r');
        write(bytes);
        ZTTextFileSegment segment = lineSegment();
        segment.firstRow = 1;
        for (const int row : {1, 6552, 6553, 6554, 6555, 7000}) {
            segment.nextRow = quint64(row);
            QCOMPARE(textOf(segment).getText(), QString::number(9999999 + row));
        }
        segment.nextRow = 0;
        segment.column = 0;
        ZTVariantText text = textOf(segment);
        for (int i = 0; i < 7000; ++i)
            QCOMPARE(updated(text), QString::number(10000000 + i));
        QVERIFY(text.isExhausted());
    }

    void restart_goesBackToTheFirstRow()
    {
        write("a\nb\nc\n");
        ZTVariantText text = textOf(lineSegment());
        text.update();
        text.update();
        text.restart();
        QCOMPARE(text.getText(), QStringLiteral("a"));
        QCOMPARE(updated(text), QStringLiteral("a"));
        QCOMPARE(updated(text), QStringLiteral("b"));
    }

    void copy_readsOnByItself()
    {
        write("a\nb\nc\n");
        ZTVariantText text = textOf(lineSegment());
        text.update();
        ZTVariantText copy = text;
        QCOMPARE(updated(copy), QStringLiteral("b"));
        QCOMPARE(updated(copy), QStringLiteral("c"));
        QCOMPARE(updated(text), QStringLiteral("b"));
    }

private:
    ZTTextFileSegment lineSegment() const
    {
        ZTTextFileSegment segment;
        segment.path = path;
        return segment;
    }

    static ZTVariantText textOf(const ZTTextFileSegment &segment)
    {
        ZTVariantText text;
        text.setSegments({segment});
        return text;
    }

    void write(const QByteArray &bytes) const
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    void append(const QByteArray &bytes) const
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::Append));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    QScopedPointer<testsupport::WarningGuard> warnings;
    QScopedPointer<QTemporaryDir> folder;
    QString path;
};

QTEST_GUILESS_MAIN(tst_ZTVariantTextFile)
#include "tst_ZTVariantTextFile.moc"
