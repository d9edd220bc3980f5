#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <codekit/shape/CodeItem.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/marks/MarkFindings.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QtTest>
#include <QtWidgets/QUndoStack>

#include <memory>

using namespace codekit;
using hostkit::DrawingFile;

namespace {

CodeItem *add(ZTGraphicsDocument &document, ShapeType type)
{
    return codeItem(document.itemMag()->addShape(type, {0, 0, 10, 10}));
}

CodeItem *onlyCode(const ZTGraphicsDocument &document)
{
    CodeItem *found = nullptr;
    for (QGraphicsItem *item : document.scene()->items()) {
        if (auto *code = dynamic_cast<CodeItem *>(item))
            found = code;
    }
    return found;
}

DrawingFile captured(ZTGraphicsDocument &document)
{
    hostkit::DrawingCapture how;
    how.savedAt = QDateTime(QDate(2024, 5, 6), QTime(7, 8), Qt::UTC);
    how.withPreview = false;
    DrawingFile drawing;
    hostkit::Failure failure;
    if (!hostkit::captureDrawing(document, how, &drawing, &failure))
        qWarning("not captured: %s", qPrintable(failure.reason));
    return drawing;
}

void setUnusual(CodeItem &item)
{
    CodeSettings settings = item.settings();
    settings.spec.kind = CodeKind::Qr;
    settings.spec.level = 3;
    settings.form.moduleMm = 0.4;
    settings.form.growthMm = 0.03;
    item.setSettings(settings);
    item.setFixedText(QStringLiteral("Größe 4"));
    item.setPenId(7);
    item.setPos(40, 50);
    item.setTransformParam(QTransform().rotate(30) * QTransform::fromScale(1.5, 1.5));
}

} // namespace

class TestCodeItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        hostkit::registerFactories();
        registerCodeFactories();
        registerCodeFactories();
    }
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

    void factories_makeCodesOfBothKinds()
    {
        CodeItem *square = add(*document, ShapeType::QRCode);
        CodeItem *bars = add(*document, ShapeType::BarCode);
        QVERIFY(square != nullptr && bars != nullptr);
        QVERIFY(square->settings().spec.kind == CodeKind::DataMatrix);
        QVERIFY(bars->settings().spec.kind == CodeKind::Code128);
        QCOMPARE(square->text(), QStringLiteral("SN-0001"));
        QVERIFY(!square->boundingRect().isEmpty());
    }

    void kindOfTheItem_followsTheCode_soThatItIsSavedAsSuch()
    {
        CodeItem *item = add(*document, ShapeType::QRCode);
        CodeSettings settings = item->settings();
        settings.spec.kind = CodeKind::Code128;
        item->setSettings(settings);
        QVERIFY(item->getShapeType() == ShapeType::BarCode);
        QCOMPARE(captured(*document).items.first().kind, QByteArray("BarCode"));
    }

    void matrix_copiesTheWholeCode()
    {
        CodeItem *item = add(*document, ShapeType::QRCode);
        setUnusual(*item);
        item->setSelected(true);
        const auto copies = document->itemMag()->addMatrix(1, 2, 5.0, 5.0);
        QCOMPARE(copies.size(), 1);
        const CodeItem *copy = codeItem(copies.first());
        QVERIFY(copy->settings() == item->settings());
        QCOMPARE(copy->text(), QStringLiteral("Größe 4"));
        QCOMPARE(copy->code().getLines(), item->code().getLines());
        QCOMPARE(copy->getPenId(), 7);
        QVERIFY(copy->code().getId() != item->code().getId());
    }

    void copyOfAnotherKind_changesNothing()
    {
        CodeItem item;
        ZTGraphicsRectItem rect;
        item.copy(&rect);
        item.copy(nullptr);
        item.copy(&item);
        QCOMPARE(item.text(), QStringLiteral("SN-0001"));
        QCOMPARE(item.code().symbol().reads, QStringLiteral("SN-0001"));
    }

    void drawingFile_bringsEverythingBack()
    {
        CodeItem *item = add(*document, ShapeType::QRCode);
        setUnusual(*item);
        ZTVariantText serial;
        serial.setSegments({ZTFixedTextSegment{QStringLiteral("SN-")}, ZTCounterSegment{}});
        item->code().cloneVariantText(&serial);
        item->code().setEnableVariantText(true);
        item->code().fromVariantTextUpdateText();
        const DrawingFile drawing = captured(*document);
        ZTGraphicsDocument other;
        hostkit::Failure failure;
        QVERIFY(hostkit::applyDrawing(drawing, other, {}, nullptr, &failure));
        const CodeItem *loaded = onlyCode(other);
        QVERIFY(loaded != nullptr);
        QVERIFY(loaded->settings() == item->settings());
        QCOMPARE(loaded->text(), QStringLiteral("SN-1"));
        QCOMPARE(loaded->code().getLines(), item->code().getLines());
        QCOMPARE(loaded->pos(), item->pos());
        QVERIFY(loaded->getVariantText() != nullptr);
        QCOMPARE(hostkit::drawingToBytes(captured(other)), hostkit::drawingToBytes(drawing));
    }

    void hostWithoutCodes_keepsThemAsTheyAre()
    {
        CodeItem *item = add(*document, ShapeType::QRCode);
        setUnusual(*item);
        DrawingFile drawing = captured(*document);
        const QByteArray bytes = hostkit::drawingToBytes(drawing);
        // No factory makes this kind, as none makes codes in a host that has none.
        drawing.items.first().kind = "NoCode";
        ZTGraphicsDocument other;
        hostkit::Failure failure;
        hostkit::DrawingReport report;
        QVERIFY(hostkit::applyDrawing(drawing, other, {}, &report, &failure));
        QCOMPARE(report.unknownKinds.value(QStringLiteral("NoCode")), 1);
        QVERIFY(onlyCode(other) == nullptr);
        DrawingFile again = captured(other);
        again.items.first().kind = "QRCode";
        again.meta = captured(*document).meta;
        QCOMPARE(hostkit::drawingToBytes(again), bytes);
    }

    void damagedRecords_neverCrash()
    {
        CodeItem *item = add(*document, ShapeType::QRCode);
        setUnusual(*item);
        const DrawingFile good = captured(*document);
        for (int at = 0; at < good.items.first().shape.size(); ++at) {
            DrawingFile drawing = good;
            QByteArray &record = drawing.items.first().shape;
            record[at] = char(record[at] ^ 0x5A);
            ZTGraphicsDocument other;
            hostkit::Failure failure;
            hostkit::applyDrawing(drawing, other, {}, nullptr, &failure);
        }
        warnings->take();
    }

    void resized_tellsTheModuleThatIsMarked()
    {
        CodeItem *item = add(*document, ShapeType::QRCode);
        item->boundingRect();
        QCOMPARE(item->moduleMm(), 0.5);
        item->scale(2.0, 2.0);
        QCOMPARE(item->moduleMm(), 1.0);
    }

    void overlay_isNeverMarked_andInNobodysWay()
    {
        CodeItem *item = add(*document, ShapeType::QRCode);
        item->setPos(0, 0);
        CodeSettings settings = item->settings();
        const QRectF before = item->boundingRect();
        const ZTMarkGraph plain = hostkit::drawingMarks(*document).graph;
        settings.showsQuietZone = true;
        item->setSettings(settings);
        item->setFixedText(QString()); // cannot be encoded: crossed out
        QVERIFY(!item->toolTip().isEmpty());
        QCOMPARE(item->boundingRect(), before);
        QVERIFY(item->childItems().first()->isVisible());
        QCOMPARE(document->scene()->items(before.center()).first(), item);
        QVERIFY(document->scene()->items(before.topLeft() - QPointF(1.5, 1.5)).isEmpty());
        QCOMPARE(hostkit::drawingMarks(*document).graph.objects.first().lines,
                 plain.objects.first().lines);
        item->setFixedText(QStringLiteral("SN-0001"));
        QVERIFY(item->toolTip().isEmpty());
    }

    void contentThatCannotBeEncoded_isAFindingOfTheMarks()
    {
        CodeItem *item = add(*document, ShapeType::BarCode);
        QVERIFY(hostkit::drawingMarks(*document).findings.notReady.isEmpty());
        item->setFixedText(QStringLiteral("中文"));
        const hostkit::MarkFindings findings = hostkit::drawingMarks(*document).findings;
        QCOMPARE(findings.notReady.size(), 1);
        QVERIFY2(findings.notReady.first().startsWith(QStringLiteral("中文: Code 128")),
                 qPrintable(findings.notReady.first()));
        QVERIFY(!findings.isEmpty());
        QVERIFY(hostkit::describeFindings(findings)
                    .join(QLatin1Char('\n'))
                    .contains(findings.notReady.first()));
    }

    void thousandCodes_areEditedOneByOneWithoutDelay()
    {
        CodeItem *item = add(*document, ShapeType::QRCode);
        item->setSelected(true);
        document->itemMag()->addMatrix(25, 40, 5.0, 5.0);
        QElapsedTimer timer;
        timer.start();
        for (int edit = 0; edit < 100; ++edit)
            item->setFixedText(QString::number(edit));
        QVERIFY2(timer.elapsed() < 100 * 30, QByteArray::number(timer.elapsed()));
    }

private:
    QScopedPointer<testsupport::WarningGuard> warnings;
    QScopedPointer<testsupport::SingletonGuard> singletons;
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(TestCodeItem)

#include "tst_CodeItem.moc"
