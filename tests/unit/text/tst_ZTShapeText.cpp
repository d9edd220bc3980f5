#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TextProbe.h>
#include <support/WarningGuard.h>

#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDataStream>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <memory>

using testsupport::addFontTypes;
using testsupport::hasPolygons;
using testsupport::hundredPixelFont;
using testsupport::isFinite;
using testsupport::lineHatch;
using testsupport::makeTinyFonts;
using testsupport::runInOwnFolder;
using testsupport::setPixelsPerMm;
using testsupport::SingletonGuard;
using testsupport::squareStroke;
using testsupport::strokeText;
using testsupport::TextProbe;
using testsupport::tinyFont;
using testsupport::WarningGuard;

namespace {

/** What one rebuild looks like in each font type. */
const QString kDouble = QStringLiteral("paint fill");
const QString kSingle = QStringLiteral("paint");

QByteArray saved(const ZTShapeText &shape)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    shape.save(stream);
    return bytes;
}

} // namespace

class tst_ZTShapeText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        singletons = std::make_unique<SingletonGuard>();
        warnings = std::make_unique<WarningGuard>();
        setPixelsPerMm(1);
        makeTinyFonts();
    }
    void cleanup()
    {
        warnings.reset();
        singletons.reset();
    }

    void newShape_isAnEmptyPaintedText()
    {
        TextProbe shape;
        QVERIFY(shape.getShapeType() == ShapeType::Text);
        QCOMPARE(shape.text(), QString());
        QVERIFY(shape.getFont().fontType == FontType::doubleLine);
        QVERIFY(shape.getWordSpan() == 0.0);
        QVERIFY(shape.getFont().shxFont == ZTShxFontParam());
        QVERIFY(shape.getRoundingParam() == ZTRoundingParam());
        QVERIFY(!shape.isUpdate());
        QVERIFY(shape.getPath().isEmpty());
        QVERIFY(shape.getLines().isEmpty());
        QCOMPARE(shape.getFont().font.letterSpacingType(), QFont::AbsoluteSpacing); // was painted
    }

    void newShape_lineSpanIsThePixelsOfOneMillimetre_keptAsTold()
    {
        QCOMPARE(TextProbe().getLineSpan(), 1.0);
        setPixelsPerMm(10);
        QCOMPARE(TextProbe().getLineSpan(), 10.0);
        QCOMPARE(TextProbe().getFont().rowSpac, 10.0);
    }

    void setText_rebuildsTwice_keptAsTold_data() { addFontTypes(); }
    void setText_rebuildsTwice_keptAsTold()
    {
        QFETCH(FontType, type);
        TextProbe shape;
        shape.setFontType(type);
        shape.takeEvents();
        shape.setText(QStringLiteral("A"));
        QCOMPARE(shape.text(), QStringLiteral("A"));
        QCOMPARE(shape.takeEvents(), setUpOf(type) + rebuildOf(type));
    }

    void setText_sameText_doesNothing()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("A"));
        shape.takeEvents();
        shape.setText(QStringLiteral("A"));
        QCOMPARE(shape.takeEvents(), QString());
        shape.setText(QStringLiteral("a")); // case counts
        QVERIFY(!shape.events.isEmpty());
    }

    void spans_rebuildEveryTime()
    {
        TextProbe shape;
        shape.setLineSpan(2.5);
        QCOMPARE(shape.takeEvents(), kDouble);
        shape.setLineSpan(2.5);
        QCOMPARE(shape.takeEvents(), kDouble);
        QCOMPARE(shape.getLineSpan(), 2.5);
        QCOMPARE(shape.getFont().rowSpac, 2.5);
        shape.setWordSpan(1.25);
        QCOMPARE(shape.takeEvents(), kDouble);
        QCOMPARE(shape.getWordSpan(), 1.25);
        QCOMPARE(shape.getFont().wordSpac, 1.25);
    }

    void setFontType_sameType_doesNothing()
    {
        TextProbe shape;
        shape.setFontType(FontType::doubleLine);
        QCOMPARE(shape.takeEvents(), QString());
    }

    void setFontType_setsUpTheFont()
    {
        TextProbe shape;
        shape.setFontType(FontType::singleLine);
        QCOMPARE(shape.takeEvents(), kSingle);
        shape.setFontType(FontType::doubleLine);
        QCOMPARE(shape.takeEvents(), QStringLiteral("rect ") + kDouble);
    }

    void setFontType_none_isOnlyStored_keptAsTold()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("I"));
        const QPainterPath before = shape.getLines();
        shape.takeEvents();
        shape.setFontType(FontType::None);
        QCOMPARE(shape.takeEvents(), QString());
        QVERIFY(!shape.isUpdate());
        QVERIFY(shape.getFont().fontType == FontType::None);
        QCOMPARE(shape.getLines(), before);
    }

    void setFont_record_isTakenWhole_andItsFontSetUp_data() { addFontTypes(); }
    void setFont_record_isTakenWhole_andItsFontSetUp()
    {
        QFETCH(FontType, type);
        ZTFontParam param;
        param.fontType = type;
        param.wordSpac = 3.0;
        param.rowSpac = 4.0;
        param.font = hundredPixelFont(3.0);
        param.shxFont = tinyFont(20.0);
        TextProbe shape;
        shape.setFont(param);
        QCOMPARE(shape.takeEvents(), setUpOf(type).trimmed());
        QVERIFY(shape.getFont() == param);
        QCOMPARE(shape.getFont().shxFont.parser.getTextExtent("W"), 20.0);
    }

    void setFont_ofItsOwn_changesNothing()
    {
        TextProbe shape;
        shape.setFontType(FontType::singleLine);
        shape.setFont(tinyFont());
        shape.setText(QStringLiteral("AB"));
        const QPainterPath before = shape.getPath();
        shape.setFont(shape.getFont());
        QCOMPARE(shape.getPath(), before);
        QVERIFY(shape.getFont().shxFont == tinyFont());
    }

    void setFont_systemFont_givesTheShapeTheTextsRectangle()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("Ig"));
        shape.takeEvents();
        QFont font = hundredPixelFont();
        font.setPixelSize(37);
        shape.setFont(font);
        QCOMPARE(shape.takeEvents(), QStringLiteral("rect ") + kDouble); // the rectangle first
        const QRect bounds = QFontMetrics(font).boundingRect(QStringLiteral("Ig"));
        QVERIFY(bounds.width() > 0);
        QCOMPARE(shape.getRect(), QRectF(0, 0, bounds.width(), bounds.height()));
        QCOMPARE(shape.getFont().font, font);
    }

    void setFont_systemFont_rebuildsWhateverTheType()
    {
        TextProbe shape;
        shape.setFontType(FontType::None);
        shape.setFont(hundredPixelFont());
        QCOMPARE(shape.takeEvents(), QStringLiteral("rect paint"));
        QVERIFY(shape.getPath().isEmpty());
    }

    void setFont_strokeFont_keepsRectangleAndTheParsersHeight()
    {
        TextProbe shape;
        shape.setFontType(FontType::singleLine);
        shape.setText(QStringLiteral("A"));
        shape.takeEvents();
        const QRectF rectMm = shape.getRect();
        ZTShxFontParam param = tinyFont(10.0);
        param.height = 99.0; // what nobody handed to the parser
        shape.setFont(param);
        QCOMPARE(shape.takeEvents(), kSingle);
        QCOMPARE(shape.getRect(), rectMm);
        QVERIFY(hasPolygons(shape.getPath(), (QVector<QPolygonF>{squareStroke(0, 8, 8)})));
    }

    void setRoundingParam_setsUpTheFont_andRebuildsOnceMore_keptAsTold_data() { addFontTypes(); }
    void setRoundingParam_setsUpTheFont_andRebuildsOnceMore_keptAsTold()
    {
        QFETCH(FontType, type);
        TextProbe shape;
        shape.setFontType(type);
        shape.takeEvents();
        ZTRoundingParam param;
        param.spanAngle = 30;
        param.roundingFlag = 4;
        shape.setRoundingParam(param);
        QVERIFY(shape.getRoundingParam() == param);
        QCOMPARE(shape.takeEvents(), setUpOf(type) + rebuildOf(type));
    }

    void setFillParam_rebuildsAtOnce()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("I"));
        shape.takeEvents();
        shape.setFillParam(lineHatch());
        QCOMPARE(shape.takeEvents(), kDouble);
        QVERIFY(shape.getFillParam() == lineHatch());
        QVERIFY(!shape.getFillLines().isEmpty());
    }

    void setTransformParam_rebuildsTwice_keptAsTold()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("I"));
        const double widthPx = shape.controlPointRect().width();
        shape.takeEvents();
        const QTransform twice = QTransform::fromScale(2.0, 2.0);
        shape.setTransformParam(twice);
        QCOMPARE(shape.takeEvents(), kDouble + QLatin1Char(' ') + kDouble);
        QCOMPARE(shape.getTransformParam(), twice);
        QCOMPARE(shape.controlPointRect().width(), 2.0 * widthPx);
    }

    void getTransformParam_isWritable()
    {
        TextProbe shape;
        shape.getTransformParam() = QTransform::fromScale(3.0, 1.0);
        QVERIFY(!shape.isUpdate());
        QCOMPARE(shape.getTransformParam().m11(), 3.0);
    }

    void paint_unmarked_costsNothing()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("I"));
        shape.takeEvents();
        shape.setFillLines({QLineF(0, 0, 1, 1)});
        shape.paint();
        QCOMPARE(shape.takeEvents(), QStringLiteral("idle"));
        QCOMPARE(shape.getFillLines().size(), 1);
    }

    void copy_isIndependent()
    {
        TextProbe shape = strokeText(QStringLiteral("AB"));
        shape.setWordSpan(2.0);
        ZTRoundingParam arc;
        arc.diameter = 33;
        shape.setRoundingParam(arc);
        TextProbe copied(shape);
        QVERIFY(copied.getFont() == shape.getFont());
        QVERIFY(copied.getRoundingParam() == arc);
        QCOMPARE(copied.text(), QStringLiteral("AB"));
        QCOMPARE(copied.getPath(), shape.getPath());
        copied.setText(QStringLiteral("B"));
        QCOMPARE(shape.text(), QStringLiteral("AB"));
        QVERIFY(hasPolygons(copied.getPath(), (QVector<QPolygonF>{squareStroke(0, 4, 4)})));
        QVERIFY(hasPolygons(shape.getPath(),
                            (QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(12, 8, 4)})));
    }

    void assignment_sharesTheRecord()
    {
        TextProbe shape = strokeText(QStringLiteral("AB"));
        TextProbe assigned;
        assigned = shape;
        QVERIFY(assigned.getFont() == shape.getFont());
        QCOMPARE(assigned.text(), QStringLiteral("AB"));
        assigned.setId(12);
        QCOMPARE(shape.getId(), 12);
    }

    void variantText_isShownThroughSetText()
    {
        TextProbe shape = strokeText(QString());
        ZTVariantText source;
        ZTFixedTextSegment segment;
        segment.text = QStringLiteral("AB");
        source.setSegments({segment});
        shape.cloneVariantText(&source);
        shape.setEnableVariantText(true);
        shape.takeEvents();
        shape.fromVariantTextUpdateText();
        QCOMPARE(shape.takeEvents(), QStringLiteral("paint paint"));
        QVERIFY(hasPolygons(shape.getPath(),
                            (QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(10, 8, 4)})));
    }

    void save_isTheTextRecord_thenFont_thenArc()
    {
        TextProbe shape = sampleText();
        QByteArray expected;
        QDataStream stream(&expected, QIODevice::WriteOnly);
        shape.ZTTextShapeBase::save(stream);
        QVERIFY(expected.size() > 214);
        stream << shape.getFont() << shape.getRoundingParam();
        QCOMPARE(saved(shape), expected);
    }

    void load_givesTheText_drawn()
    {
        TextProbe shape = sampleText();
        const QByteArray bytes = saved(shape);
        tinyFont(10.0); // the height comes from the stream
        TextProbe loaded;
        QDataStream stream(bytes);
        loaded.takeEvents();
        QVERIFY(loaded.load(stream));
        QVERIFY(stream.atEnd());
        QCOMPARE(loaded.takeEvents(), kSingle);
        QVERIFY(loaded.getFont() == shape.getFont());
        QVERIFY(loaded.getRoundingParam() == shape.getRoundingParam());
        QCOMPARE(loaded.text(), shape.text());
        QCOMPARE(loaded.getFixedText(), shape.getFixedText());
        QCOMPARE(loaded.getId(), 7);
        QVERIFY(!loaded.isUpdate());
        QCOMPARE(loaded.getPath(), shape.getPath());
        QCOMPARE(saved(loaded), bytes);
    }

    void load_systemFont_setsTheRectangleAnew()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("Ig"));
        const QRectF rectMm = shape.getRect();
        shape.ZTShapeText::setRect(QRectF(1, 2, 3, 4));
        const QByteArray bytes = saved(shape);
        TextProbe loaded;
        QDataStream stream(bytes);
        loaded.takeEvents();
        QVERIFY(loaded.load(stream));
        QCOMPARE(loaded.takeEvents(), QStringLiteral("rect ") + kDouble);
        QCOMPARE(loaded.getRect(), rectMm);
        QCOMPARE(loaded.getPath(), shape.getPath());
    }

    void load_none_leavesTheDrawingToTheNextPaint()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("I"));
        shape.setFontType(FontType::None);
        TextProbe loaded;
        const QByteArray bytes = saved(shape);
        QDataStream stream(bytes);
        loaded.takeEvents();
        QVERIFY(loaded.load(stream));
        QCOMPARE(loaded.takeEvents(), QString());
        QVERIFY(loaded.isUpdate());
        loaded.paint();
        QVERIFY(loaded.getLines().isEmpty());
    }

    void load_cutAnywhere_isHarmless()
    {
        const QByteArray whole = saved(sampleText());
        for (int size = 0; size < whole.size(); size += 3) {
            ZTShapeText loaded;
            QDataStream stream(whole.left(size));
            QVERIFY(loaded.load(stream));
            QVERIFY(isFinite(loaded.getLines()));
        }
    }

    void load_unknownFontType_drawsNothing()
    {
        ZTFontParam param = sampleText().getFont();
        param.fontType = static_cast<FontType>(77);
        TextProbe shape = sampleText();
        shape.setFont(param);
        TextProbe loaded;
        const QByteArray bytes = saved(shape);
        QDataStream stream(bytes);
        QVERIFY(loaded.load(stream));
        loaded.paint();
        QVERIFY(loaded.getLines().isEmpty());
    }

private:
    /** What setting up the active font looks like, with a blank behind it if there is anything. */
    static QString setUpOf(FontType type)
    {
        if (type == FontType::doubleLine)
            return QStringLiteral("rect paint fill ");
        return type == FontType::singleLine ? QStringLiteral("paint ") : QString();
    }

    static QString rebuildOf(FontType type)
    {
        return type == FontType::doubleLine ? kDouble : kSingle;
    }

    static TextProbe sampleText()
    {
        TextProbe shape = strokeText(QStringLiteral("AB\nB"));
        shape.setFont(tinyFont(20.0));
        shape.setWordSpan(2.0);
        shape.setLineSpan(3.0);
        shape.setFixedText(QStringLiteral("typed"));
        shape.setId(7);
        ZTRoundingParam arc;
        arc.startAngle = 12;
        shape.setRoundingParam(arc);
        return shape;
    }

    std::unique_ptr<SingletonGuard> singletons;
    std::unique_ptr<WarningGuard> warnings;
};

int main(int argc, char **argv)
{
    const int code = runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QGuiApplication application(argc, argv);
    tst_ZTShapeText test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShapeText.moc"
