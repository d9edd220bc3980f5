#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <codekit/shape/CodeCheck.h>

#include <hostkit/marks/MarkGraphBuilder.h>

#include <QtTest/QtTest>

#include <memory>

using namespace codekit;

namespace {

/** A content for each kind. */
QString contentOf(CodeKind kind)
{
    switch (kind) {
    case CodeKind::MicroQr:
        return QStringLiteral("12345");
    case CodeKind::Codabar:
        return QStringLiteral("A1234B");
    case CodeKind::Interleaved25:
        return QStringLiteral("123456");
    case CodeKind::Itf14:
        return QStringLiteral("15400141288763");
    case CodeKind::Ean13:
        return QStringLiteral("4006381333931");
    case CodeKind::Ean8:
        return QStringLiteral("73513537");
    case CodeKind::UpcA:
        return QStringLiteral("036000291452");
    case CodeKind::UpcE:
        return QStringLiteral("01234565");
    case CodeKind::Gs1_128:
    case CodeKind::Gs1DataMatrix:
        return QStringLiteral("[01]04012345678901[10]LOT7");
    default:
        return QStringLiteral("SN-0001");
    }
}

enum Form {
    Plain,
    Rotated,
    Inverse,
    Dots,
    Grown,
    Bars,
    Resized,
    WithText,
    Upright,
    Slanted,
    Zigzag,
    Points,
    Lines
};

} // namespace

class TestCodeCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { registerCodeFactories(); }
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        singletons.reset(new testsupport::SingletonGuard);
        document = std::make_unique<ZTGraphicsDocument>();
    }
    void cleanup()
    {
        document.reset();
        singletons.reset();
        warnings.reset();
    }

    void marksOfEveryKind_readAsTheirContent_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("form");
        const char *names[] = {"plain",
                               "rotated",
                               "inverse",
                               "dots",
                               "grown",
                               "bars",
                               "resized",
                               "with text",
                               "hatched upright",
                               "hatched slanted",
                               "zigzag",
                               "points",
                               "lines"};
        for (const CodeKindInfo &info : codeKinds()) {
            if (!canReadBack(info.kind))
                continue;
            for (int form = Plain; form <= Lines; ++form) {
                if ((form == Dots || form == Points) && info.isLinear)
                    continue; // a bar of dots is none
                QTest::addRow("%s, %s", info.name, names[form]) << int(info.kind) << form;
            }
        }
    }

    void marksOfEveryKind_readAsTheirContent()
    {
        QFETCH(int, kind);
        QFETCH(int, form);
        CodeItem *item = make(CodeKind(kind), Form(form));
        const CodeReading reading = read(*item);
        QVERIFY2(reading.verdict == CodeVerdict::Good, qPrintable(describe(reading)));
        QVERIFY(describe(reading).startsWith(QStringLiteral("reads: ")));
    }

    void mirroredCode_isWarnedOf_data()
    {
        QTest::addColumn<int>("kind");
        for (const CodeKindInfo &info : codeKinds()) {
            if (canReadBack(info.kind))
                QTest::newRow(info.name) << int(info.kind);
        }
    }

    void mirroredCode_isWarnedOf()
    {
        QFETCH(int, kind);
        CodeItem *item = make(CodeKind(kind), Plain);
        item->setTransformParam(QTransform::fromScale(-1.0, 1.0));
        CodeReading reading = read(*item);
        QVERIFY2(reading.verdict == CodeVerdict::Mirrored, qPrintable(describe(reading)));
        item->setTransformParam(QTransform().rotate(20) * QTransform::fromScale(1.0, -1.0));
        reading = read(*item);
        QVERIFY2(reading.verdict == CodeVerdict::Mirrored, qPrintable(describe(reading)));
    }

    void contentThatCannotBeEncoded_isNotReady()
    {
        CodeItem *item = make(CodeKind::Code39, Plain);
        item->setFixedText(QStringLiteral("small"));
        const CodeReading reading = read(*item);
        QVERIFY(reading.verdict == CodeVerdict::NotReady);
        QVERIFY(describe(reading).contains(QStringLiteral("small")));
    }

    void outlinesAlone_readAsNothing()
    {
        CodeItem *item = make(CodeKind::DataMatrix, Plain);
        ZTFillParam fill = item->getFillParam();
        fill.fillType = FillType::None;
        item->setFillParam(fill);
        const CodeReading reading = read(*item, 0.02);
        QVERIFY2(reading.verdict == CodeVerdict::Nothing, qPrintable(describe(reading)));
    }

    void hatchThatIsTooWide_readsAsNothing()
    {
        CodeItem *item = make(CodeKind::DataMatrix, Plain);
        ZTFillParam fill = item->getFillParam();
        fill.spac = 0.9; // not every row of modules has a line
        fill.isEnableBorder = false;
        item->setFillParam(fill);
        QVERIFY(read(*item, 0.05).verdict == CodeVerdict::Nothing);
    }

    void shapeOverTheCode_isInTheWay_andOneFarAwayIsNot()
    {
        CodeItem *item = make(CodeKind::DataMatrix, Plain);
        item->setPos(0, 0);
        ZTAbstractGraphicsItem *block =
            document->itemMag()->addShape(ShapeType::QRCode, {0, 0, 10, 10});
        block->setPos(200, 0);
        QVERIFY(read(*item).verdict == CodeVerdict::Good);
        block->setPos(5, 5); // another code over it
        QVERIFY(read(*item).verdict != CodeVerdict::Good);
        QVERIFY(codeFieldPx(*item).intersects(block->sceneBoundingRect()));
    }

    void neighbourOutsideTheQuietZone_doesNoHarm()
    {
        CodeItem *item = make(CodeKind::Code128, Plain);
        item->setPos(0, 0);
        CodeItem *other = make(CodeKind::Code128, Plain);
        other->setPos(0, item->boundingRect().height() + 20.0);
        QVERIFY(read(*item).verdict == CodeVerdict::Good);
        QVERIFY(read(*other).verdict == CodeVerdict::Good);
    }

    void kindWithoutAReader_isSaid()
    {
        CodeItem *item = make(CodeKind::MicroPdf417, Plain);
        QVERIFY(read(*item).verdict == CodeVerdict::NoReader);
    }

private:
    CodeItem *make(CodeKind kind, Form form)
    {
        CodeItem *item = codeItem(document->itemMag()->addShape(
            infoOf(kind).isLinear ? ShapeType::BarCode : ShapeType::QRCode, {0, 0, 10, 10}));
        CodeSettings settings = item->settings();
        settings.spec.kind = kind;
        settings.form.moduleMm = 0.5;
        settings.form.isInverse = form == Inverse;
        settings.form.growthMm = form == Grown ? 0.1 : 0.0;
        if (form == Dots)
            settings.form.style = CodeStyle::Dots;
        if (form == Bars)
            settings.form.style = CodeStyle::Bars;
        if (form == Points) {
            settings.form.style = CodeStyle::Points;
            settings.form.dotShare = 1.0;
        }
        if (form == Lines) {
            settings.form.style = CodeStyle::BarLines;
            settings.form.growthMm = infoOf(kind).isLinear ? 0.0 : settings.form.moduleMm;
        }
        if (form == WithText) {
            settings.human.place = HumanPlace::Below;
            settings.human.font = QFont(QStringLiteral("DejaVu Sans"));
        }
        item->setCode(settings, contentOf(kind));
        ZTFillParam fill = item->getFillParam();
        fill.angle = form == Upright ? 90.0 : form == Slanted ? 45.0 : 0.0;
        fill.fillType = form == Zigzag ? FillType::ULine : FillType::Line;
        item->setFillParam(fill);
        if (form == Rotated)
            item->setTransformParam(QTransform().rotate(33.0));
        if (form == Resized)
            item->scale(0.6, 0.6);
        return item;
    }

    /** With everything else that the drawing marks. */
    CodeReading read(CodeItem &item, double beamMm = 0.0)
    {
        hostkit::MarkItems items{&item};
        for (ZTAbstractGraphicsItem *other : hostkit::markedItems(*document)) {
            if (other != &item)
                items.append(other);
        }
        hostkit::MarkGraphBuilder builder(*document, items);
        builder.work(1000000);
        CodeSurroundings around;
        around.others = builder.takeUnordered().objects;
        around.marks = around.others.takeFirst();
        around.units = hostkit::MarkUnits::of(*document->itemMag());
        around.beamMm = beamMm;
        return readCode(item, around);
    }

    QScopedPointer<testsupport::WarningGuard> warnings;
    QScopedPointer<testsupport::SingletonGuard> singletons;
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(TestCodeCheck)

#include "tst_CodeCheck.moc"
