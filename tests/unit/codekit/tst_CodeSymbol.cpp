#include <codekit/CodeSymbol.h>

#include "CodeReader.h"

#include <codekit/CodeReadback.h>

#include <QtTest/QtTest>

using namespace codekit;

namespace {

CodeSymbol encoded(const CodeSpec &spec)
{
    CodeSymbol symbol;
    QString reason;
    if (!encodeCode(spec, &symbol, &reason))
        qWarning("not encoded: %s", qPrintable(reason));
    return symbol;
}

CodeSpec spec(CodeKind kind, const QString &content)
{
    CodeSpec made;
    made.kind = kind;
    made.content = content;
    return made;
}

QString refusal(const CodeSpec &asked)
{
    CodeSymbol symbol;
    symbol.columns = 4711;
    QString reason;
    if (encodeCode(asked, &symbol, &reason))
        return QStringLiteral("encoded");
    return symbol.columns == 4711 ? reason : QStringLiteral("the symbol was touched");
}

QString readOf(const CodeSymbol &symbol, ZXing::BarcodeFormat format, CodeForm form = {},
               double beamMm = 0.0)
{
    CodeMarks marks;
    QString reason;
    if (!markCode(symbol, form, &marks, &reason))
        return reason;
    for (const double pxPerModule : {4.0, 6.5, 9.0}) {
        const QString read = readBack(pictureOf(marks, form, pxPerModule, beamMm), format);
        if (!read.isEmpty())
            return read;
    }
    return QString();
}

} // namespace

class TestCodeSymbol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void code_readsAsItsContent_data()
    {
        using Z = ZXing::BarcodeFormat;
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("format");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("read");
        const auto row = [](CodeKind kind, Z format, const QString &content, const QString &read) {
            QTest::addRow("%s %s", infoOf(kind).name, qPrintable(content.left(40)))
                << int(kind) << int(format) << content << read;
        };
        const auto same = [&](CodeKind kind, Z format, const QString &content) {
            row(kind, format, content, content);
        };
        const QString chinese = QString::fromUtf8("序列号 0001");
        for (const CodeKind kind :
             {CodeKind::Qr, CodeKind::DataMatrix, CodeKind::Aztec, CodeKind::Pdf417}) {
            const Z format = kind == CodeKind::Qr           ? Z::QRCode
                             : kind == CodeKind::DataMatrix ? Z::DataMatrix
                             : kind == CodeKind::Aztec      ? Z::Aztec
                                                            : Z::PDF417;
            same(kind, format, QStringLiteral("SN-0001"));
            same(kind, format, QStringLiteral("1234567890"));
            same(kind, format, QStringLiteral("a"));
            same(kind, format, QString::fromUtf8("Größe 5 µm"));
            same(kind, format, QStringLiteral("https://example.org/p?id=7&lot=A"));
            same(kind, format, QString(300, QLatin1Char('Z')));
        }
        same(CodeKind::Qr, Z::QRCode, chinese);
        same(CodeKind::DataMatrix, Z::DataMatrix, chinese);
        same(CodeKind::MicroQr, Z::MicroQRCode, QStringLiteral("SN-0001"));
        same(CodeKind::MicroQr, Z::MicroQRCode, QStringLiteral("12345"));
        same(CodeKind::Code128, Z::Code128, QStringLiteral("SN-0001"));
        same(CodeKind::Code128, Z::Code128, QStringLiteral("Ab 1234567890 z~"));
        same(CodeKind::Code39, Z::Code39, QStringLiteral("SN-0001 $/+%."));
        same(CodeKind::Code93, Z::Code93, QStringLiteral("SN-0001 abc"));
        same(CodeKind::Codabar, Z::Codabar, QStringLiteral("A12-34$B"));
        same(CodeKind::Interleaved25, Z::ITF, QStringLiteral("12345678"));
        row(CodeKind::Itf14, Z::ITF, QStringLiteral("1540014128876"),
            QStringLiteral("15400141288763"));
        same(CodeKind::Itf14, Z::ITF, QStringLiteral("15400141288763"));
        row(CodeKind::Ean13, Z::EAN13, QStringLiteral("400638133393"),
            QStringLiteral("4006381333931"));
        same(CodeKind::Ean13, Z::EAN13, QStringLiteral("4006381333931"));
        row(CodeKind::Ean13, Z::EAN13, QStringLiteral("4006381333931+12"),
            QStringLiteral("4006381333931 12"));
        row(CodeKind::Ean13, Z::EAN13, QStringLiteral("9783161484100+52495"),
            QStringLiteral("9783161484100 52495"));
        row(CodeKind::Ean8, Z::EAN8, QStringLiteral("7351353"), QStringLiteral("73513537"));
        row(CodeKind::UpcA, Z::UPCA, QStringLiteral("03600029145"), QStringLiteral("036000291452"));
        row(CodeKind::UpcE, Z::UPCE, QStringLiteral("123456"), QStringLiteral("01234565"));
        same(CodeKind::UpcE, Z::UPCE, QStringLiteral("01234565"));
    }

    void code_readsAsItsContent()
    {
        QFETCH(int, kind);
        QFETCH(int, format);
        QFETCH(QString, content);
        QFETCH(QString, read);
        const auto z = ZXing::BarcodeFormat(format);
        const CodeSymbol symbol = encoded(spec(CodeKind(kind), content));
        QVERIFY(symbol.columns > 0);
        QCOMPARE(symbol.reads, read);
        QCOMPARE(readOf(symbol, z), read);

        CodeForm bars;
        bars.style = CodeStyle::Bars;
        bars.moduleMm = 0.33;
        QCOMPARE(readOf(symbol, z, bars), read);
        CodeForm thin;
        thin.growthMm = 0.1;
        QCOMPARE(readOf(symbol, z, thin, 0.1), read); // the beam gives back what was taken off
        if (!infoOf(CodeKind(kind)).isLinear) {
            CodeForm dots;
            dots.style = CodeStyle::Dots;
            dots.dotShare = 0.9;
            QCOMPARE(readOf(symbol, z, dots, 0.2), read); // a beam of 0.2 mm closes the gaps
            CodeForm squares;
            squares.style = CodeStyle::Squares;
            QCOMPARE(readOf(symbol, z, squares), read);
        } else {
            CodeForm lines;
            lines.style = CodeStyle::BarLines;
            QCOMPARE(readOf(symbol, z, lines), read);
        }
    }

    void inverse_readsAsItsContent()
    {
        CodeForm inverse;
        inverse.isInverse = true;
        const CodeSymbol symbol = encoded(spec(CodeKind::DataMatrix, QStringLiteral("SN-0001")));
        CodeMarks marks;
        QString reason;
        QVERIFY(markCode(symbol, inverse, &marks, &reason));
        // Dark metal: what is marked is light, and the reader sees the code as on paper.
        QCOMPARE(readBack(pictureOf(marks, inverse, 8.0), ZXing::BarcodeFormat::DataMatrix),
                 QStringLiteral("SN-0001"));
    }

    void gs1_readsAsItsElements()
    {
        const QString content = QStringLiteral("[01]04012345678901[10]LOT7");
        for (const CodeKind kind : {CodeKind::Gs1_128, CodeKind::Gs1DataMatrix}) {
            const CodeSymbol symbol = encoded(spec(kind, content));
            QCOMPARE(symbol.reads, QStringLiteral("(01)04012345678901(10)LOT7"));
            const QString read =
                readOf(symbol, kind == CodeKind::Gs1_128 ? ZXing::BarcodeFormat::Code128
                                                         : ZXing::BarcodeFormat::DataMatrix);
            QCOMPARE(read, QStringLiteral("010401234567890110LOT7"));
        }
    }

    void extendedCode39_hasSmallLetters()
    {
        // A plain reader shows how they are spelled: "+A" is "a".
        const CodeSymbol symbol = encoded(spec(CodeKind::Code39Extended, QStringLiteral("aB")));
        QCOMPARE(readOf(symbol, ZXing::BarcodeFormat::Code39), QStringLiteral("+AB"));
    }

    void size_isTheSymbologys_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("content");
        QTest::addColumn<int>("columns");
        QTest::addColumn<int>("rows");
        // From the standards' tables: Data Matrix 12 x 12 holds 5 codewords, so 10 digits, or S, N,
        // - and two pairs of digits; 14 x 14 holds 8; QR 1 holds 25 capitals at level L; Micro QR
        // M1 holds 5 digits; 95 modules EAN.
        QTest::newRow("dm digits") << int(CodeKind::DataMatrix) << "1234567890" << 12 << 12;
        QTest::newRow("dm sn") << int(CodeKind::DataMatrix) << "SN-0001" << 12 << 12;
        QTest::newRow("dm 6") << int(CodeKind::DataMatrix) << "SN-00010" << 14 << 14;
        QTest::newRow("qr 1") << int(CodeKind::Qr) << "SN-0001" << 21 << 21;
        QTest::newRow("m1") << int(CodeKind::MicroQr) << "12345" << 11 << 11;
        QTest::newRow("ean13") << int(CodeKind::Ean13) << "400638133393" << 95 << 1;
        QTest::newRow("ean8") << int(CodeKind::Ean8) << "7351353" << 67 << 1;
        QTest::newRow("upca") << int(CodeKind::UpcA) << "03600029145" << 95 << 1;
        QTest::newRow("upce") << int(CodeKind::UpcE) << "123456" << 51 << 1;
        // Start, one character, check and stop: 11 + 11 + 11 + 13.
        QTest::newRow("128") << int(CodeKind::Code128) << "A" << 46 << 1;
    }

    void size_isTheSymbologys()
    {
        QFETCH(int, kind);
        QFETCH(QString, content);
        const CodeSymbol symbol = encoded(spec(CodeKind(kind), content));
        QTEST(symbol.columns, "columns");
        QTEST(symbol.rows, "rows");
    }

    void version_decidesTheSize()
    {
        CodeSpec asked = spec(CodeKind::Qr, QStringLiteral("A"));
        asked.version = 5;
        QCOMPARE(encoded(asked).columns, 37); // 17 + 4 * 5
        asked = spec(CodeKind::DataMatrix, QStringLiteral("A"));
        asked.version = 4;
        QCOMPARE(encoded(asked).columns, 16);
        asked = spec(CodeKind::DataMatrix, QStringLiteral("ABCDEFGH"));
        asked.isRectangular = true;
        // Eight letters in C40: 1 + 6 codewords; 8 x 18 holds 5, 8 x 32 holds 10.
        QCOMPARE(encoded(asked).columns, 32);
        QCOMPARE(encoded(asked).rows, 8);
        asked.content = QString(100, QLatin1Char('7')); // 16 x 48 holds 98 digits
        QCOMPARE(refusal(asked), QStringLiteral("the content is too long for this size of Data "
                                                "Matrix: choose a larger one"));
    }

    void options_thatAKindLacks_areTold()
    {
        CodeSpec spec;
        spec.kind = CodeKind::Qr;
        spec.level = 4;
        spec.version = 3;
        spec.mask = 2;
        QCOMPARE(codekit::lackingOption(spec), QString());
        spec.hasCheckDigit = true;
        QCOMPARE(codekit::lackingOption(spec),
                 QStringLiteral("QR Code leaves no choice of a check digit"));
        spec.kind = CodeKind::Code128;
        QCOMPARE(codekit::lackingOption(spec),
                 QStringLiteral("Code 128 has no levels of error correction"));
        spec.level = 0;
        QCOMPARE(codekit::lackingOption(spec),
                 QStringLiteral("Code 128 has no sizes: it is as large as its content makes it"));
        spec.version = 0;
        QCOMPARE(codekit::lackingOption(spec), QStringLiteral("Code 128 has no masks"));
        spec.mask = -1;
        spec.columns = 2;
        QCOMPARE(codekit::lackingOption(spec),
                 QStringLiteral("Code 128 has no number of columns to choose"));
        spec.columns = 0;
        spec.isRectangular = true;
        QCOMPARE(codekit::lackingOption(spec),
                 QStringLiteral("Code 128 has one form; a Data Matrix can be rectangular"));
        spec.kind = CodeKind::Gs1DataMatrix;
        spec.hasCheckDigit = false;
        QCOMPARE(codekit::lackingOption(spec), QString());
        spec.charset = CodeCharset::Gbk;
        QCOMPARE(codekit::lackingOption(spec),
                 QStringLiteral("GS1 DataMatrix leaves no choice of a character set"));
        spec = {};
        spec.kind = CodeKind::Ean13;
        spec.hasEscapes = true;
        QCOMPARE(codekit::lackingOption(spec),
                 QStringLiteral("EAN-13 has no control characters, so that there is nothing to "
                                "escape"));
    }

    void content_thatDoesNotFit_isRefusedWithTheReason_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("reason");
        const auto row = [](CodeKind kind, const QString &content, const QString &reason) {
            QTest::addRow("%s %s", infoOf(kind).name, qPrintable(content.left(30)))
                << int(kind) << content << reason;
        };
        const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
        row(CodeKind::Qr, QString(), text("there is nothing to encode"));
        row(CodeKind::Code39, text("abc"), text("Code 39 has no small letters: use Code 128"));
        row(CodeKind::Code39, text("A_B"),
            text("Code 39 has no \"_\": use Code 128 or Data Matrix"));
        row(CodeKind::Code93, text("ü"), text("Code 93 has no \"ü\": use Data Matrix or QR"));
        row(CodeKind::Code128, text("序"),
            text("Code 128 has no \"序\" that every scanner reads: use Data Matrix or QR"));
        row(CodeKind::Ean13, text("12"),
            text("EAN-13 has 12 digits, or 13 with the check digit; this is \"12\""));
        row(CodeKind::Ean13, text("4006381333930"),
            text("the check digit of 400638133393 is 1, not 0"));
        row(CodeKind::Ean13, text("4006381333931+123"),
            text("an add-on has 2 or 5 digits; this is \"123\""));
        row(CodeKind::UpcE, text("2123456"), text("the number system of UPC-E is 0 or 1, not 2"));
        row(CodeKind::Interleaved25, text("123"),
            text("Interleaved 2 of 5 holds pairs of digits, and here one is left over: put a 0 "
                 "before them"));
        row(CodeKind::Interleaved25, text("12A4"),
            text("Interleaved 2 of 5 has digits alone: use Code 128"));
        row(CodeKind::Codabar, text("1234"),
            text("Codabar begins and ends with one of A to D, and between them stand digits and - "
                 "$ : / . +; this is \"1234\""));
        row(CodeKind::Gs1DataMatrix, text("0104012345678901"),
            text("GS1 DataMatrix wants application identifiers in brackets, as in "
                 "[01]04012345678901[10]LOT7; this is \"0104012345678901\""));
        row(CodeKind::MicroQr, QString(36, QLatin1Char('1')),
            text("the content is too long for Micro QR: all ASCII characters; up to 35 digits, 21 "
                 "capitals or 15 characters"));
        // What a reader would take for other letters, or cannot know, is refused.
        row(CodeKind::Code128, text("Größe"),
            text("Code 128 has no \"ö\" that every scanner reads: use Data Matrix or QR"));
        row(CodeKind::MicroQr, text("5 µm"),
            text("Micro QR has no \"µ\" that every scanner reads: use Data Matrix or QR"));
        for (const char *begin : {"\x1D", "A\x1D", "12\x1D"})
            row(CodeKind::Aztec, text(begin) + text("B"),
                text("a group separator at the beginning has another meaning in Aztec: use Data "
                     "Matrix or QR"));
        row(CodeKind::Qr, QString(QChar(0xD83D)) + QLatin1Char('A'),
            text("the content has half of a character, which no code can hold"));
        row(CodeKind::Qr, QStringLiteral("A") + QChar(0xDE00),
            text("the content has half of a character, which no code can hold"));
        // 4 + 1 + 3*2 + ... of 0401234567890 is 99 with weights of 3 from the right: 1 is missing.
        row(CodeKind::Gs1_128, text("[01]04012345678900"),
            text("the check digit of (01) is 1, not 0"));
        row(CodeKind::Gs1DataMatrix, text("[01]0401234567890"),
            text("the value of (01) is not as long as it has to be"));
        row(CodeKind::Gs1DataMatrix, text("[10]123456789012345678901"),
            text("the value of (10) is not as long as it has to be"));
        row(CodeKind::Gs1DataMatrix, text("[11]241301"),
            text("the value of (11) is no date or time"));
        row(CodeKind::Gs1DataMatrix, text("[55]1"),
            text("there is no application identifier (55)"));
        row(CodeKind::Gs1DataMatrix, text("[10]A#B"),
            text("character 2 of the value of (10) is not allowed there"));
        row(CodeKind::Gs1_128, text("[10]ü"), text("GS1-128 has no \"ü\": use Data Matrix or QR"));
        row(CodeKind::Gs1_128, text("[10]A\tB"), text("GS1 has no control characters"));
        row(CodeKind::DataMatrix, QString(3117, QLatin1Char('1')),
            text("the content is too long for Data Matrix: any text; up to 3,116 digits, 2,335 "
                 "letters or 1,555 bytes"));
    }

    void content_thatDoesNotFit_isRefusedWithTheReason()
    {
        QFETCH(int, kind);
        QFETCH(QString, content);
        QFETCH(QString, reason);
        QCOMPARE(refusal(spec(CodeKind(kind), content)), reason);
    }

    void content_atItsLimit_isEncoded_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("most");
        QTest::newRow("qr") << int(CodeKind::Qr) << 7089;
        QTest::newRow("microqr") << int(CodeKind::MicroQr) << 35;
        QTest::newRow("rmqr") << int(CodeKind::RectMicroQr) << 361;
        QTest::newRow("datamatrix") << int(CodeKind::DataMatrix) << 3116;
        QTest::newRow("aztec") << int(CodeKind::Aztec) << 3832;
        QTest::newRow("pdf417") << int(CodeKind::Pdf417) << 2710;
        QTest::newRow("micropdf417") << int(CodeKind::MicroPdf417) << 366;
        QTest::newRow("code39") << int(CodeKind::Code39) << 85;
        QTest::newRow("code39ext") << int(CodeKind::Code39Extended) << 85;
        QTest::newRow("code93") << int(CodeKind::Code93) << 107;
        QTest::newRow("i25") << int(CodeKind::Interleaved25) << 90;
        QTest::newRow("code128") << int(CodeKind::Code128) << 120;
    }

    void content_atItsLimit_isEncoded()
    {
        QFETCH(int, kind);
        QFETCH(int, most);
        CodeSpec asked = spec(CodeKind(kind), QString(most, QLatin1Char('7')));
        if (asked.kind == CodeKind::Pdf417)
            asked.level = 1;
        if (asked.kind == CodeKind::Qr)
            asked.level = 1;
        QVERIFY(encoded(asked).columns > 0);
        // Pairs of digits; Aztec's encoder finds a few digits more room than the standard promises.
        const int step = asked.kind == CodeKind::Aztec           ? 100
                         : asked.kind == CodeKind::Interleaved25 ? 2
                                                                 : 1;
        asked.content += QString(step, QLatin1Char('7'));
        QVERIFY2(refusal(asked).contains(QLatin1String("too long")), qPrintable(refusal(asked)));
    }

    void option_outOfRange_isRefused()
    {
        CodeSpec asked = spec(CodeKind::Qr, QStringLiteral("A"));
        asked.level = 5;
        QCOMPARE(refusal(asked),
                 QStringLiteral("the error correction of QR Code is one of L, M, Q, H"));
        asked.level = 0;
        asked.version = 41;
        QCOMPARE(refusal(asked), QStringLiteral("the size of QR Code is 1 to 40, not 41"));
        asked.version = 1;
        asked.content = QString(60, QLatin1Char('a'));
        QCOMPARE(refusal(asked),
                 QStringLiteral(
                     "the content is too long for this size of QR Code: choose a larger one"));
        CodeSpec columns = spec(CodeKind::Pdf417, QStringLiteral("A"));
        columns.columns = 31;
        QCOMPARE(refusal(columns),
                 QStringLiteral("the number of columns of PDF417 is 1 to 30, not 31"));
        columns.kind = CodeKind::MicroPdf417;
        columns.columns = 5;
        QCOMPARE(refusal(columns),
                 QStringLiteral("the number of columns of Micro PDF417 is 1 to 4, not 5"));
        CodeSpec level = spec(CodeKind::RectMicroQr, QStringLiteral("A"));
        level.level = 3;
        QCOMPARE(refusal(level), QStringLiteral("the error correction of rMQR is one of M, H"));
        asked.version = 0;
        asked.mask = 8;
        QCOMPARE(refusal(asked), QStringLiteral("the mask of QR Code is 0 to 7, not 8"));
    }

    void escapes_standForControlCharacters_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("reads");
        const auto row = [](const char *typed, const char *reads) {
            QTest::newRow(typed) << QString::fromUtf8(typed) << QString::fromUtf8(reads);
        };
        row("A\\tB", "A\tB");
        row("A\\nB\\rC", "A\nB\rC");
        row("\\a\\b\\v\\f\\e", "\x07\x08\x0B\x0C\x1B");
        row("[)>\\R06\\G17VABC\\GSSN-1\\R\\E", "[)>\x1E"
                                               "06\x1D"
                                               "17VABC\x1D"
                                               "SSN-1\x1E\x04");
        row("A\\x1DB\\x41", "A\x1D"
                            "BA");
        row("\\u5E8F\\u00e9", "序é");
        row("A\\\\tB", "A\\tB");
    }

    void escapes_standForControlCharacters()
    {
        QFETCH(QString, typed);
        QFETCH(QString, reads);
        CodeSpec asked = spec(CodeKind::DataMatrix, typed);
        QCOMPARE(encoded(asked).reads, typed); // without escapes a backslash is a backslash
        asked.hasEscapes = true;
        const CodeSymbol symbol = encoded(asked);
        QCOMPARE(symbol.reads, reads);
        QCOMPARE(readOf(symbol, ZXing::BarcodeFormat::DataMatrix), reads);
    }

    void wrongEscape_isSaid_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("named");
        QTest::newRow("letter") << QStringLiteral("A\\qB") << QStringLiteral("\\q");
        QTest::newRow("end") << QStringLiteral("AB\\") << QStringLiteral("\\");
        QTest::newRow("short") << QStringLiteral("A\\x1") << QStringLiteral("\\x");
        QTest::newRow("no digit") << QStringLiteral("A\\u12G4") << QStringLiteral("\\u");
        QTest::newRow("beyond") << QStringLiteral("A\\") + QChar(0x5E8F)
                                << QStringLiteral("\\") + QChar(0x5E8F);
    }

    void wrongEscape_isSaid()
    {
        QFETCH(QString, typed);
        QFETCH(QString, named);
        CodeSpec asked = spec(CodeKind::DataMatrix, typed);
        asked.hasEscapes = true;
        QCOMPARE(refusal(asked),
                 QStringLiteral("\"%1\" is no escape: \\n \\r \\t \\e \\G \\R \\E \\xHH "
                                "\\uHHHH are, and \\\\ is a backslash")
                     .arg(named));
    }

    void charsets_areReadBack_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("charset");
        QTest::addColumn<QString>("content");
        const QString common = QString::fromUtf8("序列号 0001");
        const QString rare = QString::fromUtf8("㐀é\\朡"); // beyond GB 2312; a backslash within
        for (const CodeKind kind :
             {CodeKind::Qr, CodeKind::DataMatrix, CodeKind::Aztec, CodeKind::Pdf417}) {
            const char *name = infoOf(kind).name;
            for (const CodeCharset charset :
                 {CodeCharset::Automatic, CodeCharset::Utf8, CodeCharset::Gbk}) {
                QTest::addRow("%s %d common", name, int(charset))
                    << int(kind) << int(charset) << common;
                QTest::addRow("%s %d rare", name, int(charset))
                    << int(kind) << int(charset) << rare;
                QTest::addRow("%s %d ascii", name, int(charset))
                    << int(kind) << int(charset) << QStringLiteral("SN-0001");
            }
        }
    }

    void charsets_areReadBack()
    {
        QFETCH(int, kind);
        QFETCH(int, charset);
        QFETCH(QString, content);
        CodeSpec asked = spec(CodeKind(kind), content);
        asked.charset = CodeCharset(charset);
        const CodeSymbol symbol = encoded(asked);
        QVERIFY(symbol.columns > 0);
        MarkedLines marks;
        marks.beamMm = 0.5;
        marks.quietMm = 6.0;
        double top = 0.0;
        for (int row = 0; row < symbol.rows; top += symbol.rowModules[row++]) {
            for (double y = top + 0.25; y < top + symbol.rowModules[row]; y += 0.5) {
                for (int column = 0; column < symbol.columns; ++column) {
                    if (symbol.isDark(row, column))
                        marks.linesMm.append(
                            {QPointF(column + 0.25, y), QPointF(column + 0.75, y)});
                }
            }
        }
        const ReadCode read = readMarks(marks, CodeKind(kind), 1.0);
        QCOMPARE(read.text, content);
    }

    /** In Shift JIS these bytes of Latin-1 would be katakana, in GBK Chinese. */
    void charsetsAreNamed_soThatNoReaderGuesses()
    {
        const QString content = QString::fromUtf8("0Eu°0R äö");
        for (const CodeKind kind :
             {CodeKind::Qr, CodeKind::DataMatrix, CodeKind::Aztec, CodeKind::Pdf417}) {
            const auto format = kind == CodeKind::Qr           ? ZXing::BarcodeFormat::QRCode
                                : kind == CodeKind::DataMatrix ? ZXing::BarcodeFormat::DataMatrix
                                : kind == CodeKind::Aztec      ? ZXing::BarcodeFormat::Aztec
                                                               : ZXing::BarcodeFormat::PDF417;
            QCOMPARE(readOf(encoded(spec(kind, content)), format), content);
        }
    }

    void names_areOneToOne()
    {
        QSet<QString> names;
        for (const CodeKindInfo &info : codeKinds()) {
            names.insert(QLatin1String(info.name));
            QCOMPARE(kindNamed(QLatin1String(info.name))->kind, info.kind);
            QVERIFY(!limitsOf(info.kind).isEmpty());
        }
        QCOMPARE(names.size(), codeKinds().size());
        QVERIFY(kindNamed(QStringLiteral("semacode")) == nullptr);
    }
};

QTEST_GUILESS_MAIN(TestCodeSymbol)
#include "tst_CodeSymbol.moc"
