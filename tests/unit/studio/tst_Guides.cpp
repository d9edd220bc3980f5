#include <studio/canvas/Guides.h>

#include <QtTest/QTest>

using studio::Guide;

/** Guides as a drawing carries them. */
class tst_Guides : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_isExact()
    {
        const QVector<Guide> guides = {{Qt::Vertical, 12.345}, {Qt::Horizontal, -0.1}};
        hostkit::DrawingExtras extras;
        studio::setGuides(guides, &extras);
        QCOMPARE(studio::guidesOf(extras), guides);
    }

    void bytes_areADirectionAndANumber()
    {
        hostkit::DrawingExtras extras;
        studio::setGuides({{Qt::Horizontal, 1.0}}, &extras);
        QCOMPARE(extras.fields.value("guides").toHex(), QByteArray("023ff0000000000000"));
    }

    void noGuides_leaveNoField()
    {
        hostkit::DrawingExtras extras;
        extras.fields["other"] = "kept";
        studio::setGuides({{Qt::Vertical, 1.0}}, &extras);
        studio::setGuides({}, &extras);
        QCOMPARE(extras.fields.keys(), QList<QByteArray>{"other"});
    }

    void whatMakesNoSense_isNoGuide_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("short") << QByteArray::fromHex("023ff0");
        QTest::newRow("no direction") << QByteArray::fromHex("033ff0000000000000");
        QTest::newRow("no number") << QByteArray::fromHex("027ff8000000000000");
        QTest::newRow("endless") << QByteArray::fromHex("017ff0000000000000");
    }

    void whatMakesNoSense_isNoGuide()
    {
        QFETCH(QByteArray, bytes);
        hostkit::DrawingExtras extras;
        extras.fields["guides"] = bytes;
        QVERIFY(studio::guidesOf(extras).isEmpty());
    }
};

QTEST_APPLESS_MAIN(tst_Guides)
#include "tst_Guides.moc"
