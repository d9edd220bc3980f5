#include <jobkit/marks/DrawingPens.h>

#include <hostkit/drawing/DrawingExtras.h>

#include <QtTest/QTest>

using jobkit::Pen;

/** The pens that a drawing carries. */
class tst_DrawingPens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewDrawing_hasTheDefaults()
    {
        const ZTGraphicsDocument document;
        QVERIFY(!jobkit::hasDrawingPens(document));
        QCOMPARE(jobkit::drawingPens(document), jobkit::defaultPens());
        QVERIFY(jobkit::givenPens(document).isEmpty());
    }

    void pens_comeBackAsTheyWere()
    {
        ZTGraphicsDocument document;
        QVector<Pen> pens = jobkit::defaultPens();
        pens[3].name = QStringLiteral("rough");
        pens[3].speedMmPerS = 1234.5;
        pens[3].color = QColor(1, 2, 3);
        pens.append(jobkit::defaultPen(40));
        jobkit::setDrawingPens(document, pens);
        QVERIFY(jobkit::hasDrawingPens(document));
        QCOMPARE(jobkit::drawingPens(document), pens);
        QCOMPARE(jobkit::givenPens(document), pens);
        jobkit::setDrawingPens(document, {});
        QVERIFY(!jobkit::hasDrawingPens(document));
    }

    void otherFieldsOfTheDrawing_stay()
    {
        ZTGraphicsDocument document;
        hostkit::DrawingExtras extras;
        extras.fields.insert("maker.word", "kept");
        hostkit::setDrawingExtras(document, extras);
        jobkit::setDrawingPens(document, jobkit::defaultPens());
        jobkit::setDrawingPens(document, {});
        QCOMPARE(hostkit::drawingExtras(document).fields, extras.fields);
    }

    void damagedPens_giveTheDefaults_withTheReason()
    {
        ZTGraphicsDocument document;
        hostkit::DrawingExtras extras;
        extras.fields.insert("pens", "{\"format\": 7}");
        hostkit::setDrawingExtras(document, extras);
        QString error;
        QCOMPARE(jobkit::drawingPens(document, &error), jobkit::defaultPens());
        QVERIFY2(error.contains(QStringLiteral("format")), qPrintable(error));
        QVERIFY(jobkit::hasDrawingPens(document));
        QVERIFY(jobkit::givenPens(document, &error).isEmpty());
        QVERIFY2(error.contains(QStringLiteral("format")), qPrintable(error));
    }
};

QTEST_MAIN(tst_DrawingPens)
#include "tst_DrawingPens.moc"
