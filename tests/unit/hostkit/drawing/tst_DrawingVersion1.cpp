#include <support/DrawingBytes.h>
#include <support/SingletonGuard.h>

#include <hostkit/drawing/DrawingSections_p.h>
#include <hostkit/drawing/DrawingStream_p.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QtEndian>
#include <QtTest/QTest>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

using hostkit::Failure;
using hostkit::DrawingFile;
using hostkit::DrawingSection;
using hostkit::DrawingSections;
using Kind = hostkit::Failure::Kind;

namespace {

/** The example of the format's description, as bytes. */
QByteArray documentedExample()
{
    QFile file(QStringLiteral(ZT_TEST_DATA_DIR "/../../docs/formats/drawing-file.md"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    const QString example =
        text.section(QStringLiteral("\n## Example"), 1).section(QStringLiteral("```"), 1, 1);
    constexpr int kNumberColumns = 50;
    QByteArray bytes;
    for (const QString &line : example.split(QLatin1Char('\n')))
        bytes += QByteArray::fromHex(line.left(kNumberColumns).toLatin1());
    return bytes;
}

void makeHexagon(ZTGraphicsDocument &document)
{
    auto *hexagon = qobject_cast<ZTGraphicsPolygonItem *>(
        document.itemMag()->addShape(ShapeType::Polygon, QRectF(0, 0, 10, 10)));
    hexagon->setPos(1.0, 2.0);
    hexagon->setSideCount(6);
}

DrawingFile hexagon()
{
    ZTGraphicsDocument document;
    makeHexagon(document);
    return testsupport::captured(document);
}

DrawingSections sectionsOf(const DrawingFile &drawing)
{
    static QByteArray bytes; // lent to the sections
    bytes = drawingToBytes(drawing);
    DrawingSections file;
    Failure error;
    if (!splitSections(bytes, &file, &error))
        qFatal("%s", qPrintable(error.reason));
    return file;
}

/** What reading says; nothing is expected to be read. */
Failure refusalOf(const QByteArray &bytes)
{
    DrawingFile drawing;
    drawing.meta.programVersion = QStringLiteral("untouched");
    Failure error;
    if (readDrawing(bytes, &drawing, &error))
        return {};
    if (drawing.meta.programVersion != QLatin1String("untouched") || error.reason.isEmpty())
        qFatal("a refused drawing was touched, or nothing was said");
    return error;
}

template <class Number>
QByteArray bigEndian(Number number)
{
    QByteArray bytes(int(sizeof(Number)), '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

/** The drawing with other content in one section, every checksum right. */
QByteArray withSection(const QByteArray &tag, const QByteArray &content)
{
    DrawingSections file = sectionsOf(hexagon());
    for (DrawingSection &section : file.sections) {
        if (section.tag == tag)
            section.bytes = content;
    }
    return joinSections(file);
}

QByteArray contentOf(const QByteArray &tag)
{
    for (const DrawingSection &section : sectionsOf(hexagon()).sections) {
        if (section.tag == tag)
            return {section.bytes.constData(), section.bytes.size()};
    }
    return {};
}

/** A document stream of one item, whose record is `shape`. */
QByteArray streamOf(int kind, const QByteArray &shape, qint32 count = 1)
{
    return bigEndian<qint32>(0) + bigEndian<qint32>(0) + bigEndian<qint32>(1) + bigEndian(count) +
           char(kind) + QByteArray(16, '\0') + shape;
}

/** A text's record up to the text that is shown. */
QByteArray textUpToShown() { return QByteArray(214 + 1, '\0'); }

const QByteArray kNullString = QByteArrayLiteral("\xff\xff\xff\xff");

/** The smallest variant text: version, size, an empty text, no segments. */
QByteArray smallVariantText()
{
    return bigEndian<quint16>(1) + bigEndian<quint32>(8) + bigEndian<quint32>(0) +
           bigEndian<quint32>(0);
}

QByteArray smallFont(quint32 families = 0)
{
    return kNullString + kNullString + QByteArray(31, '\0') + bigEndian(families);
}

QByteArray smallText(const QByteArray &variant, const QByteArray &font)
{
    return textUpToShown() + kNullString + kNullString + QByteArray(4, '\0') + variant +
           QByteArray(20, '\0') + font + kNullString + kNullString + QByteArray(8 + 37, '\0');
}

/** No file of this process grows beyond `bytes` while this lives: what a full disk does. */
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

private:
    rlimit before{};
};

} // namespace

class tst_DrawingVersion1 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void hexagon_isTheExampleOfTheDescription()
    {
        const QByteArray example = documentedExample();
        QCOMPARE(example.size(), 459);
        QCOMPARE(drawingToBytes(hexagon()).toHex(), example.toHex());
    }

    void example_isReadFieldByField()
    {
        DrawingFile drawing;
        Failure error;
        QVERIFY2(readDrawing(documentedExample(), &drawing, &error), qPrintable(error.reason));
        QCOMPARE(drawing.meta.programVersion, QStringLiteral("1.0"));
        QCOMPARE(drawing.meta.savedAt,
                 QDateTime(QDate(2024, 2, 29), QTime(12, 34, 56, 789), Qt::UTC));
        hostkit::DrawingSetup setup;
        setup.markScaleX = setup.markScaleY = static_cast<float>(500.0 / (900.0 / 193.0));
        QVERIFY(drawing.meta.setup == setup);
        QCOMPARE(drawing.meta.pens.size(), 1);
        QCOMPARE(drawing.meta.pens[0].id, 1);
        QCOMPARE(drawing.meta.pens[0].items, 1);
        QVERIFY(drawing.previewPng.isEmpty());
        QVERIFY(drawing.hasRest);
        QCOMPARE(drawing.rest.items.size(), 1);
        QCOMPARE(drawing.rest.items[0].rectMm, QRectF(0, 0, 10, 10));
        QCOMPARE(drawing.rest.items[0].drawing, -1);
        QVERIFY(drawing.unknown.isEmpty());
    }

    void drawing_cutAtEveryLength_isRefused()
    {
        const QByteArray whole = drawingToBytes(hexagon());
        QCOMPARE(refusalOf(QByteArray()).kind, Kind::OtherFormat);
        for (int length = 1; length < whole.size(); ++length)
            QCOMPARE(refusalOf(whole.left(length)).kind, Kind::Damaged);
        QCOMPARE(refusalOf(whole.left(100)).reason,
                 QStringLiteral("the drawing is damaged: it ends after 100 of 459 bytes"));
    }

    void drawing_withAnyByteChangedInAnyWay_isRefused()
    {
        const QByteArray whole = drawingToBytes(hexagon());
        for (int at = 0; at < whole.size(); ++at) {
            QByteArray changed = whole;
            for (int difference = 1; difference < 256; ++difference) {
                changed[at] = static_cast<char>(whole[at] ^ difference);
                const Kind kind = refusalOf(changed).kind;
                QCOMPARE(kind, at < 8 ? Kind::OtherFormat : Kind::Damaged);
            }
        }
    }

    void drawing_withMoreBehindItsEnd_isRefused()
    {
        const Failure error = refusalOf(drawingToBytes(hexagon()) + "xy");
        QCOMPARE(error.kind, Kind::Damaged);
        QCOMPARE(error.reason, QStringLiteral("the drawing is damaged: 2 bytes follow its end"));
    }

    void otherFiles_areNoDrawings_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("text") << QByteArray("PU0 0;\nPD100 0;\n");
        QTest::newRow("picture") << QByteArray("\x89PNG\r\n\x1a\n....");
        QTest::newRow("line ends changed by a transfer") << QByteArray("\x89ZTD\n\x1a\n....");
        QTest::newRow("zeros") << QByteArray(1000, '\0');
    }
    void otherFiles_areNoDrawings()
    {
        QFETCH(QByteArray, bytes);
        QCOMPARE(refusalOf(bytes).kind, Kind::OtherFormat);
        QCOMPARE(refusalOf(bytes).reason, QStringLiteral("is not a drawing"));
    }

    void newerFile_isRefusedAndNamedSo_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("reason");
        const QString newer = QStringLiteral("was saved by a newer version of the program "
                                             "(file format %1, this program reads 1)");
        QTest::newRow("version") << 9 << 2 << newer.arg(2);
        QTest::newRow("far version") << 8 << 1 << newer.arg(257);
        QTest::newRow("flag") << 15 << 1 << newer.arg(1);
        QTest::newRow("stream") << 11 << 20
                                << QStringLiteral("holds data of stream version 20, this program "
                                                  "reads 19");
    }
    void newerFile_isRefusedAndNamedSo()
    {
        QFETCH(int, at);
        QFETCH(int, value);
        QFETCH(QString, reason);
        QByteArray bytes = drawingToBytes(hexagon());
        bytes[at] = static_cast<char>(value);
        bytes.replace(28, 4, bigEndian(hostkit::drawingChecksum(bytes.constData(), 28)));
        QCOMPARE(refusalOf(bytes).kind, Kind::NewerVersion);
        QCOMPARE(refusalOf(bytes).reason, reason);
    }

    void unknownSections_areKeptInTheirOrder()
    {
        DrawingFile drawing = hexagon();
        drawing.unknown = {{"NEW1", "one"}, {"ABCD", QByteArray(70000, 'x')}, {"NEW1", ""}};
        const QByteArray bytes = drawingToBytes(drawing);
        DrawingFile read;
        Failure error;
        QVERIFY2(readDrawing(bytes, &read, &error), qPrintable(error.reason));
        QCOMPARE(read.unknown.size(), 3);
        QCOMPARE(read.unknown[0].tag, QByteArray("NEW1"));
        QCOMPARE(read.unknown[0].bytes, QByteArray("one"));
        QCOMPARE(read.unknown[1].bytes, QByteArray(70000, 'x'));
        QCOMPARE(read.unknown[2].bytes, QByteArray());
        QCOMPARE(drawingToBytes(read), bytes);
    }

    void sections_inAnyOrder_areRead()
    {
        DrawingSections file = sectionsOf(hexagon());
        std::reverse(file.sections.begin(), file.sections.end());
        QCOMPARE(refusalOf(joinSections(file)).kind, Kind::None);
    }

    void knownSection_twice_isRefused_data() { knownTags(); }
    void knownSection_twice_isRefused()
    {
        QFETCH(QByteArray, tag);
        DrawingSections file = sectionsOf(hexagon());
        file.sections << DrawingSection{"PREV", "picture"};
        const auto first = std::find_if(file.sections.begin(), file.sections.end(),
                                        [&](const auto &section) { return section.tag == tag; });
        const DrawingSection again = *first;
        file.sections << again;
        QCOMPARE(refusalOf(joinSections(file)).reason,
                 QStringLiteral("the drawing is damaged: it has two sections ") +
                     QString::fromLatin1(tag));
    }

    void missingSection_isRefusedWhereItIsRequired_data()
    {
        QTest::addColumn<QByteArray>("tag");
        QTest::addColumn<QString>("reason");
        QTest::newRow("META") << QByteArray("META") << QStringLiteral("it has no section META");
        QTest::newRow("STRM") << QByteArray("STRM") << QStringLiteral("it has no section STRM");
        const QString half = QStringLiteral("it has only one of the sections REST and PLOT");
        QTest::newRow("REST") << QByteArray("REST") << half;
        QTest::newRow("PLOT") << QByteArray("PLOT") << half;
    }
    void missingSection_isRefusedWhereItIsRequired()
    {
        QFETCH(QByteArray, tag);
        QFETCH(QString, reason);
        DrawingSections file = sectionsOf(hexagon());
        file.sections.erase(std::remove_if(file.sections.begin(), file.sections.end(),
                                           [&](const auto &section) { return section.tag == tag; }),
                            file.sections.end());
        QCOMPARE(refusalOf(joinSections(file)).reason,
                 QStringLiteral("the drawing is damaged: ") + reason);
    }

    void noSections_areRefused()
    {
        QCOMPARE(refusalOf(hostkit::joinSections({19, {}})).kind, Kind::Damaged);
    }

    void sectionCountsAndLengths_beyondTheFile_areRefused_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<QByteArray>("number");
        QTest::newRow("more sections") << 24 << bigEndian<quint32>(5);
        QTest::newRow("most sections") << 24 << bigEndian<quint32>(0xffffffffU);
        QTest::newRow("fewer sections") << 24 << bigEndian<quint32>(3);
        QTest::newRow("longer section") << 36 << bigEndian<quint64>(1000);
        QTest::newRow("longest section") << 36 << bigEndian<quint64>(0xffffffffffffffffU);
        QTest::newRow("shorter section") << 36 << bigEndian<quint64>(1);
        QTest::newRow("longest file") << 16 << bigEndian<quint64>(0xffffffffffffffffU);
    }
    void sectionCountsAndLengths_beyondTheFile_areRefused()
    {
        QFETCH(int, at);
        QFETCH(QByteArray, number);
        QByteArray bytes = drawingToBytes(hexagon());
        bytes.replace(at, number.size(), number);
        bytes.replace(28, 4, bigEndian(hostkit::drawingChecksum(bytes.constData(), 28)));
        QCOMPARE(refusalOf(bytes).kind, Kind::Damaged);
    }

    void knownSection_cutAnywhereUnderARightChecksum_isRefused_data() { knownTags(); }
    void knownSection_cutAnywhereUnderARightChecksum_isRefused()
    {
        QFETCH(QByteArray, tag);
        if (tag == "PREV")
            return; // any bytes may be a picture
        const QByteArray content = contentOf(tag);
        for (int length = 0; length < content.size(); ++length)
            QCOMPARE(refusalOf(withSection(tag, content.left(length))).kind, Kind::Damaged);
        QCOMPARE(refusalOf(withSection(tag, content + '\0')).kind, Kind::Damaged);
        QCOMPARE(refusalOf(withSection(tag, content)).kind, Kind::None);
    }

    void absurdCounts_areRefusedWithoutMemoryForThem_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const auto replaced = [](const QByteArray &tag, int at, quint32 number) {
            QByteArray content = contentOf(tag);
            content.replace(at, 4, bigEndian(number));
            return withSection(tag, content);
        };
        for (const quint32 number : {0x7fffffffU, 0xffffffffU, 0x80000000U, 2U}) {
            const QByteArray name = QByteArray::number(number);
            QTest::newRow("program version " + name) << replaced("META", 0, number);
            QTest::newRow("pens " + name) << replaced("META", 91, number);
            QTest::newRow("items " + name) << replaced("REST", 0, number);
            QTest::newRow("fonts " + name) << replaced("REST", 215, number);
            QTest::newRow("drawings " + name) << replaced("PLOT", 0, number);
            QTest::newRow("variant texts " + name) << replaced("STRM", 4, number);
            QTest::newRow("stream's items " + name) << replaced("STRM", 12, number);
        }
        const QByteArray one = bigEndian<quint32>(1);
        QTest::newRow("polylines") << withSection("PLOT", one + bigEndian<quint32>(0x10000000));
        QTest::newRow("points") << withSection("PLOT", one + one + bigEndian<quint32>(0x10000000));
        QTest::newRow("one point") << withSection("PLOT", one + one + one + QByteArray(16, '\0'));
    }
    void absurdCounts_areRefusedWithoutMemoryForThem()
    {
        QFETCH(QByteArray, bytes);
        QCOMPARE(refusalOf(bytes).kind, Kind::Damaged);
    }

    void importedDrawing_withPointsThatAreNowhere_isRefused_data()
    {
        QTest::addColumn<double>("x");
        QTest::newRow("not a number") << qQNaN();
        QTest::newRow("infinite") << qInf();
        QTest::newRow("far") << -1.1e12;
    }
    void importedDrawing_withPointsThatAreNowhere_isRefused()
    {
        QFETCH(double, x);
        DrawingFile drawing = hexagon();
        QPolygonF polyline;
        polyline << QPointF(0.0, 0.0) << QPointF(x, 1.0);
        drawing.rest.drawings.resize(1);
        drawing.rest.drawings[0].addPolygon(polyline);
        QCOMPARE(refusalOf(drawingToBytes(drawing)).reason,
                 QStringLiteral("the drawing is damaged: section PLOT is out of step"));
    }

    void rest_thatIsNotAboutTheDrawing_isRefused()
    {
        DrawingFile drawing = hexagon();
        drawing.rest.items[0].drawing = 0;
        QCOMPARE(refusalOf(drawingToBytes(drawing)).reason,
                 QStringLiteral("the drawing is damaged: section PLOT lacks a drawing"));
        drawing.rest.items[0].drawing = -2;
        QCOMPARE(refusalOf(drawingToBytes(drawing)).kind, Kind::Damaged);
        drawing.rest.items.clear();
        QCOMPARE(refusalOf(drawingToBytes(drawing)).reason,
                 QStringLiteral("the drawing is damaged: section REST is not about its objects"));
    }

    void setup_withoutSizes_isRefused_data()
    {
        QTest::addColumn<int>("figure");
        QTest::addColumn<double>("value");
        for (int figure = 0; figure < 6; ++figure) {
            QTest::addRow("%d not a number", figure) << figure << qQNaN();
            QTest::addRow("%d infinite", figure) << figure << qInf();
        }
        QTest::newRow("no height") << 1 << 0.0;
        QTest::newRow("no physical height") << 3 << 0.0;
        QTest::newRow("gigantic ratio") << 4 << 1e9;
        QTest::newRow("no distance") << 5 << 0.0;
    }
    void setup_withoutSizes_isRefused()
    {
        QFETCH(int, figure);
        QFETCH(double, value);
        DrawingFile drawing = hexagon();
        hostkit::DrawingSetup &setup = drawing.meta.setup;
        double *figures[] = {&setup.width,          &setup.height,       &setup.physicalWidth,
                             &setup.physicalHeight, &setup.displayRatio, &setup.distance};
        *figures[figure] = value;
        QCOMPARE(refusalOf(drawingToBytes(drawing)).reason,
                 QStringLiteral("the drawing is damaged: its millimetres have no size"));
    }

    void setup_withAWorkAreaBeyondWholeNumbers_isRefused()
    {
        DrawingFile drawing = hexagon();
        drawing.meta.setup.workAreaMm = QRect(0, 0, 1'000'000'000, 1'000'000'000);
        QCOMPARE(refusalOf(drawingToBytes(drawing)).kind, Kind::None);
        drawing.meta.setup.workAreaMm = QRect(0, 0, 1'000'000'001, 1);
        QCOMPARE(refusalOf(drawingToBytes(drawing)).kind, Kind::Damaged);
    }

    void stream_outOfStep_isRefused_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<QString>("reason");
        const auto kind = QStringLiteral("an object of kind %1 at byte 33 of the drawing's data");
        for (const int type : {3, 6, 7, 8, 11, 12, 255}) {
            QTest::addRow("kind %d", type)
                << streamOf(type, QByteArray(214, '\0')) << kind.arg(type);
        }
        const auto early = QStringLiteral("it ends early at byte %1 of the drawing's data");
        QTest::newRow("nothing") << QByteArray() << early.arg(0);
        QTest::newRow("short rectangle") << streamOf(0, QByteArray(213, '\0')) << early.arg(246);
        QTest::newRow("leftover") << streamOf(0, QByteArray(215, '\0'))
                                  << QStringLiteral("more than it announces at byte 247 of the "
                                                    "drawing's data");
        QTest::newRow("fewer items than announced")
            << streamOf(0, QByteArray(214, '\0'), 12)
            << QStringLiteral("a count of 12 at byte 16 of the drawing's data");
        QTest::newRow("a negative count")
            << streamOf(0, QByteArray(214, '\0'), -1)
            << QStringLiteral("a count of -1 at byte 16 of the drawing's data");
        QTest::newRow("half a character")
            << streamOf(10, bigEndian<quint32>(3) + "abc")
            << QStringLiteral("half a character at byte 37 of the drawing's data");
        QTest::newRow("a path that ends early")
            << streamOf(10, bigEndian<quint32>(4) + "abc") << early.arg(40);
    }
    void stream_outOfStep_isRefused()
    {
        QFETCH(QByteArray, stream);
        QFETCH(QString, reason);
        QCOMPARE(refusalOf(withStream(stream)).reason,
                 QStringLiteral("the drawing is damaged: ") + reason);
    }

    void text_asSmallAsCanBe_isRead()
    {
        const QByteArray text = smallText(smallVariantText(), smallFont());
        QCOMPARE(refusalOf(withStream(streamOf(5, text))).reason, QString());
        QCOMPARE(refusalOf(withStream(streamOf(5, text.chopped(1)))).kind, Kind::Damaged);
    }

    void text_outOfStep_isRefused_data()
    {
        QTest::addColumn<QByteArray>("text");
        const QByteArray variant = smallVariantText();
        QTest::newRow("gigantic variant text")
            << smallText(bigEndian<quint16>(1) + bigEndian<quint32>(0xfffffff0U), smallFont());
        QTest::newRow("null variant text")
            << smallText(bigEndian<quint16>(1) + bigEndian<quint32>(0xffffffffU), smallFont());
        QTest::newRow("newer variant text")
            << smallText(bigEndian<quint16>(2) + variant.mid(2), smallFont());
        QByteArray damaged = variant;
        damaged[variant.size() - 1] = 1; // announces a segment
        QTest::newRow("damaged variant text") << smallText(damaged, smallFont());
        QTest::newRow("families") << smallText(variant, smallFont(0x7fffffffU));
    }
    void text_outOfStep_isRefused()
    {
        QFETCH(QByteArray, text);
        QCOMPARE(refusalOf(withStream(streamOf(5, text))).kind, Kind::Damaged);
    }

    void text_ofAMillionCharacters_isTheLongest()
    {
        const auto textOf = [](int length) {
            const QByteArray small = smallText(smallVariantText(), smallFont());
            const QByteArray shown =
                bigEndian<quint32>(static_cast<quint32>(2 * length)) + QByteArray(2 * length, 'A');
            return textUpToShown() + shown + small.mid(textUpToShown().size() + 4);
        };
        QCOMPARE(refusalOf(withStream(streamOf(5, textOf(1'000'000)))).reason, QString());
        QVERIFY(refusalOf(withStream(streamOf(5, textOf(1'000'001))))
                    .reason.contains(QStringLiteral("a text too long")));
    }

    void font_asQtWritesIt_isWalkedWhole()
    {
        QFont font(QStringLiteral("Some Family"), 17, QFont::Black, true);
        font.setStyleName(QStringLiteral("Condensed"));
        font.setFamilies({QStringLiteral("One"), QString(), QStringLiteral("Three")});
        font.setLetterSpacing(QFont::AbsoluteSpacing, -3.5);
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_5_15);
        stream << font;
        const QByteArray text = smallText(smallVariantText(), bytes);
        QCOMPARE(refusalOf(withStream(streamOf(5, text))).reason, QString());
    }

    void registry_isWalked()
    {
        const auto streamWith = [](const QByteArray &entry) {
            return bigEndian<qint32>(1) + bigEndian<qint32>(1) + entry + bigEndian<qint32>(0) +
                   bigEndian<qint32>(0);
        };
        QCOMPARE(
            refusalOf(withStream(streamWith(bigEndian<qint32>(1) + smallVariantText()))).reason,
            QString());
        QCOMPARE(refusalOf(withStream(streamWith(smallVariantText()))).kind, Kind::Damaged);
    }

    void preview_isAtMost256Pixels()
    {
        ZTGraphicsDocument document;
        makeHexagon(document);
        document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10))->setPos(700, 20);
        DrawingFile drawing;
        Failure error;
        QVERIFY(captureDrawing(document, {}, &drawing, &error));
        const QImage picture = drawingPreview(drawing);
        QCOMPARE(qMax(picture.width(), picture.height()), 256);
        QVERIFY(picture.height() > 8 && picture.height() < 60);
        QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::white));
        QVERIFY(hasInk(picture));
    }

    void preview_ofAnEmptyDrawing_isNone()
    {
        ZTGraphicsDocument document;
        DrawingFile drawing;
        Failure error;
        QVERIFY(captureDrawing(document, {}, &drawing, &error));
        QVERIFY(drawing.previewPng.isEmpty());
        QVERIFY(drawingPreview(drawing).isNull());
    }

    void preview_thatIsTooLargeOrNone_isNull()
    {
        DrawingFile drawing = hexagon();
        drawing.previewPng = "no picture";
        QVERIFY(drawingPreview(drawing).isNull());
        QBuffer buffer(&drawing.previewPng);
        buffer.open(QIODevice::WriteOnly | QIODevice::Truncate);
        QVERIFY(QImage(257, 1, QImage::Format_Mono).save(&buffer, "PNG"));
        QVERIFY(drawingPreview(drawing).isNull());
    }

    void write_givesTheBytesAndReplacesTheOldFile()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a b.ztd"));
        put(path, "old");
        Failure error;
        QVERIFY2(writeDrawing(hexagon(), path, &error), qPrintable(error.reason));
        QCOMPARE(contentOfFile(path), drawingToBytes(hexagon()));
        DrawingFile drawing;
        QVERIFY2(readDrawing(path, &drawing, &error), qPrintable(error.reason));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    void write_ofTheSameDrawing_givesTheSameBytes()
    {
        QCOMPARE(drawingToBytes(hexagon()), drawingToBytes(hexagon()));
    }

    void write_throughALink_replacesWhatItPointsTo()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ztd"));
        const QString link = folder.filePath(QStringLiteral("link.ztd"));
        put(path, "old");
        QVERIFY(QFile::link(path, link));
        Failure error;
        QVERIFY2(writeDrawing(hexagon(), link, &error), qPrintable(error.reason));
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(contentOfFile(path), drawingToBytes(hexagon()));
    }

    void write_keepsThePermissionsOfTheOldFile()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ztd"));
        put(path, "old");
        const QFile::Permissions wanted = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(path, wanted));
        Failure error;
        QVERIFY2(writeDrawing(hexagon(), path, &error), qPrintable(error.reason));
        const QFile::Permissions ofUser = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
        QCOMPARE(QFile::permissions(path) & ~ofUser, wanted);
    }

    void write_onAFullDisk_keepsTheOldFileAndSaysSo()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ztd"));
        put(path, "old");
        Failure error;
        {
            const SmallDisk disk(100);
            QVERIFY(!writeDrawing(hexagon(), path, &error));
        }
        QCOMPARE(error.kind, Kind::CannotWrite);
        QCOMPARE(error.reason, QStringLiteral("cannot be written: File too large"));
        QCOMPARE(contentOfFile(path), QByteArray("old"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    void write_whereNothingCanBe_saysWhy()
    {
        const QTemporaryDir folder;
        Failure error;
        QVERIFY(!writeDrawing(hexagon(), folder.filePath(QStringLiteral("no/a.ztd")), &error));
        QCOMPARE(error.reason, QStringLiteral("cannot be written: No such file or directory"));
        QVERIFY(!writeDrawing(hexagon(), folder.path(), &error));
        QCOMPARE(error.kind, Kind::CannotWrite);
        QVERIFY(!writeDrawing(hexagon(), QString(), &error));
        QCOMPARE(error.kind, Kind::CannotWrite);
    }

    void write_overAPipe_isRefused_andLeavesIt()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        Failure error;
        QVERIFY(!writeDrawing(hexagon(), pipe, &error));
        QCOMPARE(error.reason, QStringLiteral("cannot be written: is no ordinary file"));
        QVERIFY(QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
    }

    void read_ofWhatIsNoFile_saysWhy()
    {
        const QTemporaryDir folder;
        DrawingFile drawing;
        Failure error;
        QVERIFY(!readDrawing(folder.filePath(QStringLiteral("no.ztd")), &drawing, &error));
        QCOMPARE(error.reason, QStringLiteral("no such file"));
        QVERIFY(!readDrawing(folder.path(), &drawing, &error));
        QCOMPARE(error.reason, QStringLiteral("is a folder"));
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(!readDrawing(pipe, &drawing, &error)); // and does not wait for a writer
        QCOMPARE(error.reason, QStringLiteral("is no ordinary file"));
        QVERIFY(!readDrawing(QString(), &drawing, &error));
        QCOMPARE(error.kind, Kind::CannotRead);
    }

    void read_ofAFileBeyondTheLimit_isRefused()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("large.ztd"));
        put(path, drawingToBytes(hexagon()));
        QVERIFY(QFile::resize(path, hostkit::kMaxDrawingBytes + 1)); // takes no room
        DrawingFile drawing;
        Failure error;
        QVERIFY(!readDrawing(path, &drawing, &error));
        QCOMPARE(error.reason, QStringLiteral("larger than 1024 MiB, the limit for a drawing"));
    }

private:
    static void knownTags()
    {
        QTest::addColumn<QByteArray>("tag");
        for (const char *tag : {"META", "PREV", "STRM", "REST", "PLOT"})
            QTest::newRow(tag) << QByteArray(tag);
    }

    /** A file around a stream of any kinds, as a bare one. */
    static QByteArray withStream(const QByteArray &stream)
    {
        DrawingFile drawing = hexagon();
        drawing.stream = stream;
        drawing.hasRest = false;
        return drawingToBytes(drawing);
    }

    static void put(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    static QByteArray contentOfFile(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static bool hasInk(const QImage &picture)
    {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (qGray(picture.pixel(x, y)) < 128)
                    return true;
            }
        }
        return false;
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_DrawingVersion1)
#include "tst_DrawingVersion1.moc"
