#include "StudioTest.h"

#include "support/OwnFolder.h"
#include "support/TinyFonts.h"

#include <studio/text/VariantParts.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using studio::Segments;

class tst_VariantParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beforePresentPart_takesOneUpdateBack()
    {
        ZTCounterSegment counter;
        counter.repeat = 3;
        counter.updates = 4;
        ZTTextFileSegment rows;
        rows.firstRow = 2;
        rows.nextRow = 5;
        const Segments before = studio::beforePresentPart(
            {ZTFixedTextSegment{QStringLiteral("x")}, counter, ZTDateTimeSegment(), rows});
        QCOMPARE(std::get<ZTFixedTextSegment>(before[0]).text, QStringLiteral("x"));
        QCOMPARE(std::get<ZTCounterSegment>(before[1]).updates, quint64(3));
        QCOMPARE(std::get<ZTTextFileSegment>(before[3]).nextRow, quint64(4));
    }

    void beforePresentPart_stopsAtTheStart()
    {
        ZTTextFileSegment rows;
        rows.firstRow = 2;
        rows.nextRow = 2;
        const Segments before = studio::beforePresentPart({ZTCounterSegment(), rows});
        QCOMPARE(std::get<ZTCounterSegment>(before[0]).updates, quint64(0));
        QCOMPARE(std::get<ZTTextFileSegment>(before[1]).nextRow, quint64(2));
    }

    void variantTextOf_makesThePresentPartNext()
    {
        ZTCounterSegment counter;
        counter.updates = 7; // the present part has number 7
        ZTVariantText text = studio::variantTextOf(studio::beforePresentPart({counter}));
        QCOMPARE(text.getText(), QStringLiteral("7"));
        text.update();
        QCOMPARE(text.getText(), QStringLiteral("7"));
        text.update();
        QCOMPARE(text.getText(), QStringLiteral("8"));
    }

    void describe_tellsKindAndContent_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("expected");
        QTest::newRow("text") << 0 << QStringLiteral("Text: a↵b");
        QTest::newRow("counter") << 1 << QStringLiteral("Counter: 0042");
        QTest::newRow("date") << 2 << QStringLiteral("Date: yyyy-MM-dd");
        QTest::newRow("list") << 3 << QStringLiteral("List: names.csv");
        QTest::newRow("week") << 4 << QStringLiteral("Date: week");
        QTest::newRow("year of the week") << 5 << QStringLiteral("Date: year of the week");
        QTest::newRow("day") << 6 << QStringLiteral("Date: day of the year");
        QTest::newRow("Julian day") << 7 << QStringLiteral("Date: Julian day");
    }

    void describe_tellsKindAndContent()
    {
        QFETCH(int, kind);
        ZTCounterSegment counter;
        counter.start = 42;
        counter.width = 4;
        ZTTextFileSegment rows;
        rows.path = QStringLiteral("/some/where/names.csv");
        const auto date = [](ZTDateTimeContent content) {
            ZTDateTimeSegment segment;
            segment.content = content;
            return segment;
        };
        const Segments segments = {ZTFixedTextSegment{QStringLiteral("a\nb")},
                                   counter,
                                   ZTDateTimeSegment(),
                                   rows,
                                   date(ZTDateTimeContent::WeekNumber),
                                   date(ZTDateTimeContent::WeekYear),
                                   date(ZTDateTimeContent::DayOfYear),
                                   date(ZTDateTimeContent::JulianDay)};
        QTEST(studio::describe(segments[kind]), "expected");
    }

    void nextPart_tellsTextsErrorsAndWhatIsUsedUp()
    {
        DocumentTest test;
        testsupport::makeTinyFonts();
        ZTCounterSegment counter;
        counter.last = 1;
        ZTTextFileSegment missing;
        missing.path = QStringLiteral("/nowhere");
        addText(test, {ZTFixedTextSegment{QStringLiteral("a")}, counter});
        test.addRect(0, 0);
        addText(test, {missing});
        const auto items = studio::shapeItemsOf(*test.document->scene());
        const auto first = studio::NextPart::make(items);
        QCOMPARE(first.texts, (QStringList{QStringLiteral("a1"), QString()}));
        QVERIFY(first.usedUp.isEmpty());
        QCOMPARE(first.errors.size(), 1);
        const auto second = studio::NextPart::make(items);
        QCOMPARE(second.usedUp, QStringList{QStringLiteral("a1")});
        QVERIFY(studio::NextPart::make({}).texts.isEmpty());
    }

private:
    static void addText(DocumentTest &test, const Segments &segments)
    {
        auto *item = static_cast<ZTGraphicsTextItem *>(test.add(ShapeType::Text, 0, 0));
        auto &shape = *static_cast<ZTShapeText *>(item->getShapeBase());
        ZTVariantText text = studio::variantTextOf(segments);
        shape.cloneVariantText(&text);
        item->setEnableVariantText(true);
    }
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_VariantParts test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_VariantParts.moc"
