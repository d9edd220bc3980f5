#include "support/SingletonGuard.h"

#include <hostkit/items/PartTexts.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

using hostkit::NextPart;

/** How variant texts go from part to part; `beforePresentPart` is tested beside the studio's use.
 */
class tst_PartTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        m_guard = std::make_unique<testsupport::SingletonGuard>();
        hostkit::registerFactories();
        m_document = std::make_unique<ZTGraphicsDocument>();
        m_clock = QDateTime(QDate(2026, 3, 1), QTime(12, 0));
        ZTVariantText::setClock([this] { return m_clock; });
    }
    void cleanup()
    {
        ZTVariantText::setClock({});
        m_document.reset();
        m_guard.reset();
    }

    void make_movesCountersOn()
    {
        ZTCounterSegment counter;
        counter.last = 3;
        ZTGraphicsTextItem *item = addText({ZTFixedTextSegment{QStringLiteral("N")}, counter});
        QCOMPARE(item->text(), QStringLiteral("N1"));
        const NextPart second = NextPart::make({item});
        QCOMPARE(second.texts, QStringList{QStringLiteral("N2")});
        QCOMPARE(second.usedUp, QStringList());
        QCOMPARE(item->text(), QStringLiteral("N2"));
        NextPart::make({item});
        const NextPart beyond = NextPart::make({item});
        QCOMPARE(beyond.texts, QStringList{QStringLiteral("N3")});
        QCOMPARE(beyond.usedUp, QStringList{QStringLiteral("N3")});
    }

    void again_keepsCountersAndTakesTheDay()
    {
        ZTGraphicsTextItem *item = addText(
            {ZTCounterSegment(), ZTFixedTextSegment{QStringLiteral("\n")}, ZTDateTimeSegment()});
        NextPart::make({item});
        QCOMPARE(item->text(), QStringLiteral("2\n2026-03-01"));
        m_clock = m_clock.addDays(1);
        const NextPart present = NextPart::again({item});
        QCOMPARE(item->text(), QStringLiteral("2\n2026-03-02"));
        QCOMPARE(present.texts,
                 QStringList{QString::fromUtf8("2\xe2\x86\xb5") + QStringLiteral("2026-03-02")});
        NextPart::again({item});
        QCOMPARE(item->text(), QStringLiteral("2\n2026-03-02"));
        NextPart::make({item});
        QCOMPARE(item->text(), QStringLiteral("3\n2026-03-02"));
    }

    void lists_thatAreMissing_areTold()
    {
        ZTTextFileSegment rows;
        rows.path = QStringLiteral("/nowhere/list.txt");
        ZTGraphicsTextItem *item = addText({rows});
        const NextPart part = NextPart::again({item});
        QCOMPARE(part.errors.size(), 1);
        QVERIFY(part.notReady.isEmpty());
    }

    void fixedTexts_andOtherShapes_arePassedOver()
    {
        auto *text = qobject_cast<ZTGraphicsTextItem *>(
            m_document->itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        text->setFixedText(QStringLiteral("fixed"));
        ZTAbstractGraphicsItem *rect =
            m_document->itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        QCOMPARE(NextPart::make({text, rect}).texts, QStringList());
        QCOMPARE(text->text(), QStringLiteral("fixed"));
    }

private:
    /** A text whose present part is the first. */
    ZTGraphicsTextItem *addText(const QVector<ZTVariantTextSegment> &segments)
    {
        auto *item = qobject_cast<ZTGraphicsTextItem *>(
            m_document->itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        item->setEnableVariantText(true);
        item->getVariantText()->setSegments(segments);
        NextPart::make({item});
        return item;
    }

    std::unique_ptr<testsupport::SingletonGuard> m_guard;
    std::unique_ptr<ZTGraphicsDocument> m_document;
    QDateTime m_clock;
};

QTEST_MAIN(tst_PartTexts)
#include "tst_PartTexts.moc"
