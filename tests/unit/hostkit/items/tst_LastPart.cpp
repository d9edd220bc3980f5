#include "support/SingletonGuard.h"

#include <hostkit/items/ItemExtras.h>
#include <hostkit/items/LastPart.h>
#include <hostkit/items/PartTexts.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

/** Where numbers end: the last part is marked once. */
class tst_LastPart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_guard = std::make_unique<testsupport::SingletonGuard>();
        hostkit::registerFactories();
        m_document = std::make_unique<ZTGraphicsDocument>();
    }
    void cleanup()
    {
        m_document.reset();
        m_guard.reset();
    }

    void aCounter_isAtItsEnd_withItsLastValue()
    {
        ZTAbstractGraphicsItem &item = addCounter(2);
        QCOMPARE(item.text(), QStringLiteral("1"));
        QVERIFY(!hostkit::isAtLastPart(item));
        hostkit::NextPart::make({&item});
        QCOMPARE(item.text(), QStringLiteral("2"));
        QVERIFY(hostkit::isAtLastPart(item));
        QVERIFY(!hostkit::isUsedUp(item));
    }

    void asking_movesNothing()
    {
        ZTAbstractGraphicsItem &item = addCounter(9);
        hostkit::isAtLastPart(item);
        hostkit::isAtLastPart(item);
        hostkit::NextPart::make({&item});
        QCOMPARE(item.text(), QStringLiteral("2"));
    }

    void theNote_holdsForThePartItWasMadeOf()
    {
        ZTAbstractGraphicsItem &item = addCounter(2);
        hostkit::NextPart::make({&item});
        hostkit::setLastPartMarked(item, true);
        QVERIFY(hostkit::isLastPartMarked(item));
        QVERIFY(hostkit::isUsedUp(item));
        hostkit::setLastPartMarked(item, false);
        QVERIFY(!hostkit::isLastPartMarked(item));
        QVERIFY(hostkit::itemExtras(item).fields.isEmpty());
        hostkit::setLastPartMarked(item, true);
        hostkit::NextPart::make({&item});
        QVERIFY(!hostkit::isLastPartMarked(item));
    }

    void moreValues_endTheEnd()
    {
        ZTAbstractGraphicsItem &item = addCounter(2);
        hostkit::NextPart::make({&item});
        hostkit::setLastPartMarked(item, true);
        auto segments = hostkit::variantTextOf(item)->getSegments();
        std::get<ZTCounterSegment>(segments[0]).last = 5;
        QVERIFY(hostkit::variantTextOf(item)->setSegments(segments));
        QVERIFY(hostkit::isLastPartMarked(item));
        QVERIFY(!hostkit::isUsedUp(item));
    }

    void sharedCounters_takeSeveralValuesAPart()
    {
        ZTAbstractGraphicsItem &item = addCounter(5);
        hostkit::ItemExtras extras = hostkit::itemExtras(item);
        extras.valuesPerPart = 3;
        hostkit::setItemExtras(item, extras);
        QVERIFY(!hostkit::isAtLastPart(item)); // 1, then 4
        hostkit::NextPart::make({&item});
        QCOMPARE(item.text(), QStringLiteral("4"));
        QVERIFY(hostkit::isAtLastPart(item)); // 7 is beyond
    }

    void aShapeWithoutNumbers_isNeverAtAnEnd()
    {
        ZTAbstractGraphicsItem &item =
            *m_document->itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        QVERIFY(hostkit::variantTextOf(item) == nullptr);
        hostkit::setLastPartMarked(item, true);
        QVERIFY(!hostkit::isAtLastPart(item));
        QVERIFY(!hostkit::isUsedUp(item));
        QVERIFY(hostkit::itemExtras(item).fields.isEmpty());
    }

private:
    ZTAbstractGraphicsItem &addCounter(qint64 last)
    {
        auto *item = static_cast<ZTGraphicsTextItem *>(
            m_document->itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        ZTCounterSegment counter;
        counter.last = last;
        item->setEnableVariantText(true);
        item->getVariantText()->setSegments({counter});
        hostkit::NextPart::make({item});
        return *item;
    }

    std::unique_ptr<testsupport::SingletonGuard> m_guard;
    std::unique_ptr<ZTGraphicsDocument> m_document;
};

QTEST_MAIN(tst_LastPart)
#include "tst_LastPart.moc"
