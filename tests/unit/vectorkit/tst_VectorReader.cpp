#include <vectorkit/VectorReader.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtTest/QTest>

#include <sys/stat.h>

using vectorkit::formatOf;
using vectorkit::readDrawing;
using vectorkit::readDrawingFile;
using vectorkit::ReadFailure;
using vectorkit::ReadOptions;
using vectorkit::VectorDrawing;
using vectorkit::VectorFormat;

Q_DECLARE_METATYPE(vectorkit::VectorFormat)

static void initializeCatalogue() { Q_INIT_RESOURCE(vectorkit_zh); }

namespace {

/** What a refusal says; the drawing must stay as it was. */
ReadFailure refusalOf(const QByteArray &bytes, const ReadOptions &options = {})
{
    VectorDrawing drawing;
    drawing.producer = QStringLiteral("as it was");
    ReadFailure failure;
    if (readDrawing(bytes, options, &drawing, &failure))
        return {};
    if (drawing.producer != QLatin1String("as it was") || !drawing.layers.isEmpty())
        failure.reason = QStringLiteral("the drawing was changed");
    return failure;
}

/** A line of 15 mm and one of 5 in a sheet of 20 x 10 mm, as gzip packed it. */
const QByteArray kPackedSvg = QByteArray::fromHex(
    "1f8b08000000000002031dcd4b0ac3201446e1ad5cfe05c4ab2593e2cda0f32e2210ab528d412566f97d"
    "0c0f7c706c3b3d5d39ed4d107a3fee4a8d31a6719b4af5ca30b3fa0ad0885b0f02c33983828b3e7481fe"
    "d719dd78944bc0c464983463b1c7da036d82a72613f47ccea0d66b793b41751be8155312ec6577508bfd"
    "3d960f4894a2488b000000");

QString write(const QTemporaryDir &folder, const QString &name, const QByteArray &bytes)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the test's file");
    return path;
}

} // namespace

class tst_VectorReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formatOf_isByContent_data()
    {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<VectorFormat>("format");
        const auto row = [](const char *name, const QByteArray &start, VectorFormat format) {
            QTest::newRow(name) << start << format;
        };
        row("plain svg", "<svg width='1'/>", VectorFormat::Svg);
        row("declared svg", "<?xml version='1.0'?>\n<!-- <html> -->\n<!DOCTYPE svg>\n<svg>",
            VectorFormat::Svg);
        row("prefixed svg", "<svg:svg xmlns:svg='http://www.w3.org/2000/svg'>", VectorFormat::Svg);
        row("svg with a byte order mark", "\xEF\xBB\xBF  <svg>", VectorFormat::Svg);
        row("svg of two bytes a letter", QByteArray("\xFF\xFE<\0s\0v\0g\0>\0", 12),
            VectorFormat::Svg);
        row("svg of two bytes, high first", QByteArray("\xFE\xFF\0<\0s\0v\0g\0>", 12),
            VectorFormat::Svg);
        row("html", "<!DOCTYPE html><html><svg></svg></html>", VectorFormat::Unknown);
        row("other xml", "<?xml version='1.0'?><gpx/>", VectorFormat::Unknown);
        row("dxf", "  0\r\nSECTION\r\n  2\r\nHEADER\r\n", VectorFormat::Dxf);
        row("dxf of old", "0\nSECTION\n2\nENTITIES\n", VectorFormat::Dxf);
        row("dxf with carriage returns alone", "0\rSECTION\r2\rENTITIES\r", VectorFormat::Dxf);
        row("commented dxf", "999\nby hand\n999\n\xC3\xA4\n0\nSECTION\n", VectorFormat::Dxf);
        row("binary dxf", QByteArray("AutoCAD Binary DXF\r\n\x1A\0", 22), VectorFormat::Dxf);
        row("hpgl", "IN;SP1;PU0,0;PD10,0;", VectorFormat::Hpgl);
        row("hpgl without separators", "INPU0 0PD10 0SP0", VectorFormat::Hpgl);
        row("hpgl in lower case", "in;pu 0,0;pd 10,0;", VectorFormat::Hpgl);
        row("hpgl after device control", "\x1B.(;\x1B.I81;;17:IN;PA;", VectorFormat::Hpgl);
        row("hpgl in a printer's language",
            "\x1B"
            "E\x1B%0BINPS100,100",
            VectorFormat::Hpgl);
        row("hpgl with a label", "IN;LBThis is none of the commands\x03PU0,0;", VectorFormat::Hpgl);
        row("hpgl with comments", "# by hand\nIN;PD1,1;", VectorFormat::Hpgl);
        row("a text", "Dear reader, this is a letter.\nYours", VectorFormat::Unknown);
        row("numbers", "1 2 3\n4 5 6\n", VectorFormat::Unknown);
        row("nothing", "", VectorFormat::Unknown);
        row("zeros", QByteArray(100, '\0'), VectorFormat::Unknown);
    }

    void formatOf_isByContent()
    {
        QFETCH(QByteArray, start);
        QFETCH(VectorFormat, format);
        QCOMPARE(int(formatOf(start)), int(format));
    }

    void readDrawing_foreignFile_isNamedWithAdvice_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        QTest::addColumn<QString>("advice");
        const auto row = [](const char *name, const QByteArray &bytes, const char *reason,
                            const char *advice) {
            QTest::newRow(name) << bytes << QString::fromLatin1(reason)
                                << QString::fromLatin1(advice);
        };
        row("pdf", "%PDF-1.4\n1 0 obj", "This is a PDF document.", "save it as SVG");
        row("illustrator", "%PDF-1.5\n/Creator (Adobe Illustrator 24)",
            "This is a PDF from Illustrator.", "Save it as SVG.");
        row("eps", "%!PS-Adobe-3.0 EPSF-3.0\n", "This is PostScript (PS or EPS).", "SVG or DXF");
        row("eps with a preview", "\xC5\xD0\xD3\xC6\x1E", "This is PostScript (PS or EPS).",
            "SVG or DXF");
        row("png", "\x89PNG\r\n\x1A\n", "This is a PNG picture.", "trace it");
        row("jpeg", "\xFF\xD8\xFF\xE0", "This is a JPEG picture.", "trace it");
        row("gif", "GIF89a", "This is a GIF picture.", "trace it");
        row("webp", "RIFF____WEBPVP8 ", "This is a WebP picture.", "trace it");
        row("tiff", QByteArray("II*\0\x08", 5), "This is a TIFF picture.", "trace it");
        row("cdr", "RIFF____CDRCvrsn", "This is a CDR drawing.", "SVG or DXF");
        row("dwg", "AC1032\0\0", "This is a DWG drawing.", "Save it as DXF");
        row("zip", "PK\x03\x04\x14", "This is a ZIP archive.", "Unpack it");
        row("bmp", QByteArray("BM\x36\x10\0\0\0\0\0\0\x36", 11), "This is a BMP picture.",
            "trace it");
        row("photoshop", "8BPS", "This is a PSD picture.", "trace it");
        row("emf", QByteArray("\x01\0\0\0", 4) + QByteArray(36, '\0') + " EMF",
            "This is a Windows metafile.", "SVG or DXF");
        row("wmf", "\xD7\xCD\xC6\x9A", "This is a Windows metafile.", "SVG or DXF");
        row("office of old", "\xD0\xCF\x11\xE0\xA1",
            "This is a document of an office or CAD program.", "SVG or DXF");
        row("xlsx", "PK\x03\x04\x14 [Content_Types].xml",
            "This is a document of an office program.", "Copy the drawing");
        row("odg", "PK\x03\x04\x14 mimetypeapplication/vnd.oasis.opendocument.graphics",
            "This is a document of an office program.", "Copy the drawing");
        row("cdr as archive", "PK\x03\x04\x14 mimetypeapplication/x-vnd.corel.draw.document+zip",
            "This is a CDR drawing.", "SVG or DXF");
        row("old illustrator", "%!PS-Adobe-3.0 EPSF-3.0\n%%Creator: Adobe Illustrator(R) 8.0\n",
            "This is PostScript from Illustrator.", "Save it as SVG.");
        row("step", "ISO-10303-21;\nHEADER;\n", "This is a STEP model, a body in space.",
            "flat view");
        row("stl", "solid part\nfacet normal 0 0 1\n", "This is an STL model, a body in space.",
            "flat view");
        // 80 bytes of whatever, the number of facets, 50 bytes each.
        row("stl in bytes",
            QByteArray("made by hand").leftJustified(80, ' ') + QByteArray("\2\0\0\0", 4) +
                QByteArray(100, '\0'),
            "This is an STL model, a body in space.", "flat view");
        row("rar", "Rar!\x1A\x07", "This is a RAR archive.", "Unpack it");
        row("7z", "7z\xBC\xAF\x27\x1C", "This is a 7z archive.", "Unpack it");
        row("gcode", "; made by hand\nG21\nG90\nG0 X1 Y2\nM3 S100\nG1 X5\n",
            "This is G-code, the program of a machine.", "Take the drawing");
        row("dmpl", ";:H A L0 ECN U 0,0 D 100,100 ",
            "This is DMPL, the language of other plotters.", "Choose HP-GL");
        row("dmpl after a preamble", "\x1B;@:\r\nSET X=1.\r\nEND.\r\n;:HOA,ECN,U,\r\nD,1,1\r\n",
            "This is DMPL, the language of other plotters.", "Choose HP-GL");
        row("gerber", "%FSLAX46Y46*%\n", "This is a Gerber file of a circuit board.", "HP-GL");
        row("xml", "<?xml version='1.0'?><kml/>", "This is XML or HTML, but no SVG drawing.",
            "SVG, DXF or HP-GL");
        row("a letter on cars", "BMW and solid gold",
            "This is none of the drawings that can be read.", "HP-GL, SVG and DXF");
        row("a letter", "Dear reader, this is a letter.",
            "This is none of the drawings that can be read.", "HP-GL, SVG and DXF");
    }

    void readDrawing_foreignFile_isNamedWithAdvice()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        QFETCH(QString, advice);
        const ReadFailure failure = refusalOf(bytes);
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::WrongFormat));
        QCOMPARE(failure.reason, reason);
        QVERIFY2(failure.advice.contains(advice), qPrintable(failure.advice));
    }

    void packedDrawing_isUnpackedFirst()
    {
        VectorDrawing drawing;
        ReadFailure failure;
        QVERIFY(readDrawing(kPackedSvg, {}, &drawing, &failure));
        QCOMPARE(int(drawing.format), int(VectorFormat::Svg));
        QCOMPARE(drawing.boundsMm(), QRectF(1.0, 2.0, 15.0, 5.0));
        // What pads the end is none of it.
        QVERIFY(readDrawing(kPackedSvg + QByteArray(512, '\0'), {}, &drawing, &failure));
        // Two parts are one text: here it holds two roots, which no XML does.
        QCOMPARE(int(refusalOf(kPackedSvg + kPackedSvg).kind), int(ReadFailure::Kind::Damaged));
    }

    // Work grows with the input, not with its square: looked at as a whole for each part, these 15
    // MB in 750,000 parts would be copied 750,000 times.
    void packedDrawing_inVeryManyParts_isUnpackedAtOnce()
    {
        const QByteArray nothing = QByteArray::fromHex("1f8b080000000000000303000000000000000000");
        const QByteArray many = nothing.repeated(750000) + kPackedSvg;
        VectorDrawing drawing;
        ReadFailure failure;
        QVERIFY(readDrawing(many, {}, &drawing, &failure));
        QCOMPARE(drawing.boundsMm(), QRectF(1.0, 2.0, 15.0, 5.0));
    }

    void packedDrawing_damagedOrTooLarge_isRefused()
    {
        const int half = kPackedSvg.size() / 2;
        QByteArray otherSum = kPackedSvg;
        otherSum[otherSum.size() - 8] = char(otherSum[otherSum.size() - 8] ^ 1);
        for (const QByteArray &bytes : {QByteArray("\x1F\x8B\x08"), kPackedSvg.left(half), otherSum,
                                        QByteArray(kPackedSvg.left(20) + QByteArray(half, 'x'))}) {
            const ReadFailure failure = refusalOf(bytes);
            QCOMPARE(int(failure.kind), int(ReadFailure::Kind::Damaged));
            QCOMPARE(failure.reason, QStringLiteral("The file is compressed (gzip) and damaged."));
            QCOMPARE(failure.advice, QStringLiteral("Copy or load it once more."));
        }
        // Packed it is 137 bytes, unpacked 139.
        ReadOptions options;
        options.mostBytes = 138;
        QCOMPARE(int(refusalOf(kPackedSvg, options).kind), int(ReadFailure::Kind::TooLarge));
    }

    void readDrawing_nothing_isEmpty()
    {
        QCOMPARE(int(refusalOf({}).kind), int(ReadFailure::Kind::Empty));
        QCOMPARE(int(refusalOf(" \r\n\t").kind), int(ReadFailure::Kind::Empty));
    }

    void readDrawing_pastTheLimit_isTooLarge()
    {
        ReadOptions options;
        options.mostBytes = 1024 * 1024;
        const ReadFailure failure = refusalOf(QByteArray(1024 * 1024 + 1, ' '), options);
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::TooLarge));
        QCOMPARE(failure.reason, QStringLiteral("The file is larger than 1 MiB, the limit."));
    }

    void readDrawing_withoutAPlaceForTheReason_refusesAllTheSame()
    {
        VectorDrawing drawing;
        QVERIFY(!readDrawing("%PDF-1.4", {}, &drawing, nullptr));
        QVERIFY(!readDrawing({}, {}, &drawing, nullptr));
    }

    void readDrawingFile_choosesByContentNotByName()
    {
        const QTemporaryDir folder;
        VectorDrawing drawing;
        ReadFailure failure;
        QVERIFY(!readDrawingFile(write(folder, QStringLiteral("a.svg"), "%PDF-1.4"), {}, &drawing,
                                 &failure));
        QCOMPARE(failure.reason, QStringLiteral("This is a PDF document."));
    }

    void readDrawingFile_whatCannotBeRead_isSaid()
    {
        const QTemporaryDir folder;
        VectorDrawing drawing;
        ReadFailure failure;
        QVERIFY(!readDrawingFile(folder.filePath(QStringLiteral("none")), {}, &drawing, &failure));
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::Unreadable));
        QCOMPARE(failure.reason, QStringLiteral("There is no such file."));
        QVERIFY(!readDrawingFile(folder.path(), {}, &drawing, &failure));
        QCOMPARE(failure.reason, QStringLiteral("This is no file that holds data."));
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        QVERIFY(!readDrawingFile(pipe, {}, &drawing, &failure)); // and comes back
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::Unreadable));
    }

    void readDrawingFile_pastTheLimit_isNotRead()
    {
        const QTemporaryDir folder;
        VectorDrawing drawing;
        ReadFailure failure;
        ReadOptions options;
        options.mostBytes = 10;
        QVERIFY(!readDrawingFile(write(folder, QStringLiteral("a"), "IN;PU0,0;PD1,1;"), options,
                                 &drawing, &failure));
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::TooLarge));
    }

    void reasons_areInTheCatalogue()
    {
        initializeCatalogue();
        QTranslator chinese;
        QVERIFY(chinese.load(QStringLiteral("vectorkit_zh"), QStringLiteral(":/")));
        QCoreApplication::installTranslator(&chinese);
        const ReadFailure failure = refusalOf("%PDF-1.4");
        QCoreApplication::removeTranslator(&chinese);
        QCOMPARE(failure.reason, QString::fromUtf8("这是 PDF 文档。"));
    }
};

QTEST_GUILESS_MAIN(tst_VectorReader)
#include "tst_VectorReader.moc"
