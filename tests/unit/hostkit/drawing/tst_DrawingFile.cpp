#include "DrawingSections.h"

#include <support/DrawingBytes.h>
#include <support/SingletonGuard.h>

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

using hostkit::DrawingFile;
using hostkit::DrawingFrame;
using hostkit::DrawingSection;
using hostkit::Failure;
using testsupport::bigEndian;
using testsupport::frameOf;
using testsupport::refusalOf;
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

/** A drawing that has every section. */
DrawingFile everySection()
{
    DrawingFile drawing = hexagon();
    drawing.previewPng = "picture";
    QPainterPath corner;
    corner.addPolygon(QPolygonF(QVector<QPointF>{{0, 20}, {40, 20}, {40, 0}}));
    drawing.drawings << corner;
    QPainterPath curve;
    curve.moveTo(0, 0);
    curve.cubicTo(0, 5, 5, 10, 10, 10);
    drawing.drawings << curve;
    drawing.fontHeights << hostkit::StrokeFontHeight{QStringLiteral("a.shx"), 5.0};
    drawing.extras.groupNames[7] = QStringLiteral("frame");
    drawing.extras.fields["maker.word"] = "content";
    drawing.origin = hostkit::DrawingOrigin{QStringLiteral("/a/b.ztd"), 12, 34};
    return drawing;
}

DrawingFrame sectionsOf(const DrawingFile &drawing)
{
    static QByteArray bytes; // lent to the sections
    bytes = drawingToBytes(drawing);
    return frameOf(bytes);
}

/** That drawing's file with other content in one section, every checksum right. */
QByteArray withSection(const QByteArray &tag, const QByteArray &content)
{
    return testsupport::withSection(drawingToBytes(everySection()), tag, content);
}

QByteArray contentOf(const QByteArray &tag)
{
    return testsupport::sectionOf(drawingToBytes(everySection()), tag);
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

class tst_DrawingFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void hexagon_isTheExampleOfTheDescription()
    {
        const QByteArray example = documentedExample();
        QCOMPARE(example.size(), 446);
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
        QCOMPARE(int(drawing.version), 2);
        QVERIFY(!drawing.isBare);
        QCOMPARE(drawing.items.size(), 1);
        QCOMPARE(drawing.items[0].kind, QByteArray("Polygon"));
        QCOMPARE(drawing.items[0].type, ShapeType::Polygon);
        QCOMPARE(drawing.items[0].posPx, QPointF(1.0, 2.0));
        QCOMPARE(drawing.items[0].fields.keys(), QList<QByteArray>{"BASE"});
        hostkit::ShapeBaseFields base;
        QVERIFY(baseFromBytes(drawing.items[0].fields["BASE"], &base));
        QCOMPARE(base.rectMm, QRectF(0, 0, 10, 10));
        QCOMPARE(base.fill.spac, 2.0);
        QCOMPARE(base.penId, 1);
        QVERIFY(!drawing.origin);
        QVERIFY(drawing.extras.sections.isEmpty());
    }

    void drawing_cutAtEveryLength_isRefused()
    {
        const QByteArray whole = drawingToBytes(hexagon());
        QCOMPARE(refusalOf(QByteArray()).kind, Kind::OtherFormat);
        for (int length = 1; length < whole.size(); ++length)
            QCOMPARE(refusalOf(whole.left(length)).kind, Kind::Damaged);
        QCOMPARE(refusalOf(whole.left(100)).reason,
                 QStringLiteral("the drawing is damaged: it ends after 100 of 446 bytes"));
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
                                             "(file format %1, this program reads 2)");
        QTest::newRow("version") << 9 << 3 << newer.arg(3);
        QTest::newRow("far version") << 8 << 1 << newer.arg(258);
        QTest::newRow("flag") << 15 << 1 << newer.arg(2);
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
        drawing.extras.sections = {{"NEW1", "one"}, {"ABCD", QByteArray(70000, 'x')}, {"NEW1", ""}};
        const QByteArray bytes = drawingToBytes(drawing);
        DrawingFile read;
        Failure error;
        QVERIFY2(readDrawing(bytes, &read, &error), qPrintable(error.reason));
        QCOMPARE(read.extras.sections.size(), 3);
        QCOMPARE(read.extras.sections[0].tag, QByteArray("NEW1"));
        QCOMPARE(read.extras.sections[0].bytes, QByteArray("one"));
        QCOMPARE(read.extras.sections[1].bytes, QByteArray(70000, 'x'));
        QCOMPARE(read.extras.sections[2].bytes, QByteArray());
        QCOMPARE(drawingToBytes(read), bytes);
    }

    void sections_inAnyOrder_areRead()
    {
        DrawingFrame file = sectionsOf(hexagon());
        std::reverse(file.sections.begin(), file.sections.end());
        QCOMPARE(refusalOf(joinFrame(file)).kind, Kind::None);
    }

    void knownSection_twice_isRefused_data() { knownTags(); }
    void knownSection_twice_isRefused()
    {
        QFETCH(QByteArray, tag);
        DrawingFrame file = sectionsOf(everySection());
        const auto first = std::find_if(file.sections.begin(), file.sections.end(),
                                        [&](const auto &section) { return section.tag == tag; });
        const DrawingSection again = *first;
        file.sections << again;
        QCOMPARE(refusalOf(joinFrame(file)).reason,
                 QStringLiteral("the drawing is damaged: it has two sections ") +
                     QString::fromLatin1(tag));
    }

    void missingSection_isRefusedWhereItIsRequired_data()
    {
        QTest::addColumn<QByteArray>("tag");
        QTest::addColumn<QString>("reason");
        QTest::newRow("META") << QByteArray("META") << QStringLiteral("it has no section META");
        QTest::newRow("ITEM") << QByteArray("ITEM") << QStringLiteral("it has no section ITEM");
    }
    void missingSection_isRefusedWhereItIsRequired()
    {
        QFETCH(QByteArray, tag);
        QFETCH(QString, reason);
        DrawingFrame file = sectionsOf(hexagon());
        file.sections.erase(std::remove_if(file.sections.begin(), file.sections.end(),
                                           [&](const auto &section) { return section.tag == tag; }),
                            file.sections.end());
        QCOMPARE(refusalOf(joinFrame(file)).reason,
                 QStringLiteral("the drawing is damaged: ") + reason);
    }

    void record_outOfStep_isRefused_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QString>("reason");
        const QByteArray kind = bigEndian<quint32>(7) + "Polygon";
        const QByteArray place = '\4' + QByteArray(16, '\0');
        const QByteArray sides = bigEndian<quint32>(4) + bigEndian<qint32>(6);
        const QByteArray field = bigEndian<quint32>(4) + "name" + bigEndian<quint32>(1) + "x";
        const QString outOfStep = QStringLiteral("section ITEM is out of step");
        const QString badField = QStringLiteral("object 1 is out of step");
        QTest::newRow("nothing") << QByteArray() << outOfStep;
        QTest::newRow("no kind") << bigEndian<quint32>(0) + place + sides << outOfStep;
        QTest::newRow("a long kind") << bigEndian<quint32>(0xffffffffU) + "Polygon" << outOfStep;
        QTest::newRow("a long shape")
            << kind + place + bigEndian<quint32>(0xffffffffU) + "x" << outOfStep;
        QTest::newRow("half a field") << kind + place + sides + field.chopped(1) << outOfStep;
        QTest::newRow("a field twice") << kind + place + sides + field + field << outOfStep;
        QTest::newRow("a short shape")
            << kind + place + bigEndian<quint32>(3) + "abc"
            << QStringLiteral("it ends early at byte 3 of the drawing's data, object 1");
        QTest::newRow("base settings that are none")
            << kind + place + sides + bigEndian<quint32>(4) + "BASE" + bigEndian<quint32>(1) + "x"
            << badField;
        QTest::newRow("a drawing that is not there")
            << kind + place + sides + bigEndian<quint32>(4) + "PLOT" + bigEndian<quint32>(4) +
                   bigEndian<qint32>(0)
            << badField;
    }
    void record_outOfStep_isRefused()
    {
        QFETCH(QByteArray, record);
        QFETCH(QString, reason);
        const QByteArray counters = bigEndian<quint32>(12) + QByteArray(12, '\0');
        const QByteArray items = counters + bigEndian<quint32>(1) +
                                 bigEndian(static_cast<quint32>(record.size())) + record;
        DrawingFrame frame = sectionsOf(hexagon());
        for (DrawingSection &section : frame.sections) {
            if (section.tag == "ITEM")
                section.bytes = items;
        }
        QCOMPARE(refusalOf(joinFrame(frame)).reason,
                 QStringLiteral("the drawing is damaged: ") + reason);
    }

    void extrasFieldsAndUnknownKinds_comeThroughReadingAndWriting()
    {
        DrawingFile drawing = everySection();
        hostkit::DrawingItem other;
        other.kind = "maker.Slot";
        other.type = ShapeType::Point;
        other.posPx = QPointF(-3.5, 7.25);
        other.shape = QByteArray("any\0bytes", 9);
        other.fields["BASE"] = drawing.items[0].fields["BASE"];
        other.fields["name"] = "slot";
        other.fields["maker.radius"] = "4.5";
        drawing.items.prepend(other);
        const QByteArray bytes = drawingToBytes(drawing);
        DrawingFile read;
        Failure error;
        QVERIFY2(readDrawing(bytes, &read, &error), qPrintable(error.reason));
        QCOMPARE(read.items.size(), 2);
        QCOMPARE(read.items[0].kind, other.kind);
        QCOMPARE(read.items[0].type, other.type);
        QCOMPARE(read.items[0].posPx, other.posPx);
        QCOMPARE(read.items[0].shape, other.shape);
        QCOMPARE(read.items[0].fields, other.fields);
        QCOMPARE(read.extras.groupNames, drawing.extras.groupNames);
        QCOMPARE(read.extras.fields, drawing.extras.fields);
        QCOMPARE(drawingToBytes(read), bytes);
    }

    void origin_isNoUnknownSection()
    {
        DrawingFile read;
        Failure error;
        QVERIFY(readDrawing(drawingToBytes(everySection()), &read, &error));
        QVERIFY(read.origin.has_value());
        QCOMPARE(read.origin->path, QStringLiteral("/a/b.ztd"));
        QCOMPARE(read.origin->size, 12);
        QCOMPARE(read.origin->modifiedMs, 34);
        QVERIFY(read.extras.sections.isEmpty());
    }

    void origin_thatMakesNoSense_isNone()
    {
        const QByteArray content = contentOf("rcvr");
        for (int length = 0; length < content.size(); ++length) {
            DrawingFile read;
            Failure error;
            QVERIFY(readDrawing(withSection("rcvr", content.left(length)), &read, &error));
            QVERIFY(!read.origin);
            QVERIFY(read.extras.sections.isEmpty());
        }
    }

    void sectionsOfOthers_neverTakeAPlaceOfTheFormat()
    {
        DrawingFile drawing = hexagon();
        drawing.extras.sections = {{"ITEM", "nonsense"}, {"mine", "kept"}};
        QCOMPARE(refusalOf(drawingToBytes(drawing)).kind, Kind::None);
    }

    void noSections_areRefused()
    {
        QCOMPARE(refusalOf(hostkit::joinFrame({2, 19, {}})).kind, Kind::Damaged);
    }

    void sectionCountsAndLengths_beyondTheFile_areRefused_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<QByteArray>("number");
        QTest::newRow("more sections") << 24 << bigEndian<quint32>(3);
        QTest::newRow("most sections") << 24 << bigEndian<quint32>(0xffffffffU);
        QTest::newRow("fewer sections") << 24 << bigEndian<quint32>(1);
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
        if (tag == "PREV" || tag == "rcvr")
            return; // any bytes may be a picture; an origin that makes no sense is none
        const QByteArray content = contentOf(tag);
        for (int length = 0; length < content.size(); ++length)
            QCOMPARE(refusalOf(withSection(tag, content.left(length))).kind,
                     isWhole(tag, length) ? Kind::None : Kind::Damaged);
        QCOMPARE(refusalOf(withSection(tag, content + '\0')).kind, Kind::Damaged);
        QCOMPARE(refusalOf(withSection(tag, content)).kind, Kind::None);
    }

    void curves_areKeptToTheLastBit()
    {
        DrawingFile drawing = hexagon();
        QPainterPath straight;
        straight.addRect(0, 0, 3, 4);
        QPainterPath bent;
        bent.addEllipse(0.1, 0.2, 1.0 / 3.0, 7.7);
        bent.moveTo(20, 0);
        bent.lineTo(30, 0);
        bent.cubicTo(31, 1, 32, 2, 33, 0.1);
        drawing.drawings = {straight, bent};
        DrawingFile read;
        Failure error;
        const QByteArray bytes = drawingToBytes(drawing);
        QVERIFY2(readDrawing(bytes, &read, &error), qPrintable(error.reason));
        QCOMPARE(read.drawings.size(), 2);
        QCOMPARE(elementsOf(read.drawings[0]), elementsOf(straight));
        QCOMPARE(elementsOf(read.drawings[1]), elementsOf(bent));
        QCOMPARE(drawingToBytes(read), bytes);
    }

    void curves_forAProgramThatDoesNotKnowThem_areNearlyThere()
    {
        DrawingFile drawing = hexagon();
        QPainterPath circle;
        circle.addEllipse(-50, -50, 100, 100);
        drawing.drawings = {circle};
        DrawingFile read;
        Failure error;
        QVERIFY(readDrawing(withoutSection(drawing, "CURV"), &read, &error));
        const QPainterPath &flat = read.drawings[0];
        QVERIFY(flat.elementCount() > 100);
        for (int at = 0; at < flat.elementCount(); ++at) {
            QVERIFY(!flat.elementAt(at).isCurveTo());
            // The curve itself is 0.014 mm off the circle.
            QVERIFY(std::abs(std::hypot(flat.elementAt(at).x, flat.elementAt(at).y) - 50) < 0.015);
        }
    }

    void curves_ofAnotherDrawing_areLeftOut()
    {
        DrawingFile drawing = hexagon();
        QPainterPath circle;
        circle.addEllipse(0, 0, 10, 10);
        drawing.drawings = {circle};
        const DrawingFrame curved = sectionsOf(drawing);
        const QByteArray curves = sectionOf(curved, "CURV");
        QPainterPath square;
        square.addRect(0, 0, 10, 10);
        drawing.drawings = {square};
        DrawingFrame frame = sectionsOf(drawing);
        frame.sections << hostkit::DrawingSection{"CURV", curves};
        DrawingFile read;
        Failure error;
        QVERIFY(readDrawing(hostkit::joinFrame(frame), &read, &error));
        QCOMPARE(elementsOf(read.drawings[0]), elementsOf(square));
    }

    void curves_outOfStep_areRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray start =
            bigEndian<quint32>(1) + bigEndian<quint32>(0) + bigEndian<quint32>(0);
        const QByteArray point(16, '\0');
        const QByteArray begin = QByteArray(1, '\0') + point;
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("count") << bigEndian<quint32>(0x10000000);
        QTest::newRow("pieces") << start + bigEndian<quint32>(0x10000000) + begin;
        QTest::newRow("kind") << start + bigEndian<quint32>(2) + begin + '\3' + point;
        QTest::newRow("first") << start + bigEndian<quint32>(1) + '\1' + point;
        QTest::newRow("half a curve")
            << start + bigEndian<quint32>(2) + begin + '\2' + point + point;
        QTest::newRow("more") << start + bigEndian<quint32>(1) + begin + '\0';
        QTest::newRow("nowhere") << start + bigEndian<quint32>(1) + '\0' +
                                        QByteArray::fromHex("7ff8000000000000") +
                                        QByteArray(8, '\0');
        QTest::newRow("place twice") << bigEndian<quint32>(2) + bigEndian<quint32>(0) +
                                            bigEndian<quint32>(0) + bigEndian<quint32>(1) + begin +
                                            bigEndian<quint32>(0) + bigEndian<quint32>(0) +
                                            bigEndian<quint32>(1) + begin;
    }
    void curves_outOfStep_areRefused()
    {
        QFETCH(QByteArray, content);
        QCOMPARE(refusalOf(withSection("CURV", content)).reason,
                 QStringLiteral("the drawing is damaged: section CURV is out of step"));
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
        drawing.drawings.resize(1);
        drawing.drawings[0].addPolygon(polyline);
        QCOMPARE(refusalOf(drawingToBytes(drawing)).reason,
                 QStringLiteral("the drawing is damaged: section PLOT is out of step"));
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
        QCOMPARE(error.reason, QStringLiteral("the folder does not exist"));
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
        QCOMPARE(error.reason, QStringLiteral("is no ordinary file"));
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
    static QVector<QPair<int, QPointF>> elementsOf(const QPainterPath &path)
    {
        QVector<QPair<int, QPointF>> elements;
        for (int at = 0; at < path.elementCount(); ++at)
            elements << qMakePair(int(path.elementAt(at).type), QPointF(path.elementAt(at)));
        return elements;
    }

    static QByteArray sectionOf(const DrawingFrame &frame, const QByteArray &tag)
    {
        for (const hostkit::DrawingSection &section : frame.sections) {
            if (section.tag == tag) // a copy: what the frame lends goes with the next frame
                return {section.bytes.constData(), section.bytes.size()};
        }
        return {};
    }

    static QByteArray withoutSection(const DrawingFile &drawing, const QByteArray &tag)
    {
        DrawingFrame frame = sectionsOf(drawing);
        for (int at = frame.sections.size() - 1; at >= 0; --at) {
            if (frame.sections[at].tag == tag)
                frame.sections.removeAt(at);
        }
        return hostkit::joinFrame(frame);
    }

    /** Fields may end after each of them: those of XTRA are 4 + 4 + 4 + 13 and 26 bytes long. */
    static bool isWhole(const QByteArray &tag, int length)
    {
        return tag == "XTRA" && (length == 0 || length == 25);
    }

    static void knownTags()
    {
        QTest::addColumn<QByteArray>("tag");
        for (const char *tag : {"META", "PREV", "ITEM", "PLOT", "CURV", "FONT", "XTRA", "rcvr"})
            QTest::newRow(tag) << QByteArray(tag);
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

QTEST_MAIN(tst_DrawingFile)
#include "tst_DrawingFile.moc"
