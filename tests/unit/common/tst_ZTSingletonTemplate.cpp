#include <ZTDrawEngineLib/common/ZTSingletonTemplate.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/model/ZTPointSort.h>
#include <ZTDrawEngineLib/shapes/ZTRectShape.h>

#include <QtTest/QTest>

#include <type_traits>

namespace {

/** A host's own singleton. */
class Counter : public ZTSingletonTemplate<Counter>
{
    friend class ZTSingletonTemplate<Counter>;

public:
    int value = 7;
    static int alive;

private:
    Counter() { ++alive; }
    ~Counter() { --alive; }
};

int Counter::alive = 0;

} // namespace

class tst_ZTSingletonTemplate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void getInstance_makesOneAndKeepsIt()
    {
        QVERIFY(Counter::s_this == nullptr);
        Counter *first = Counter::getInstance();
        QVERIFY(first != nullptr);
        QCOMPARE(Counter::getInstance(), first);
        QCOMPARE(Counter::s_this, first);
        QCOMPARE(Counter::alive, 1);
    }

    void release_thenGetInstance_hasDefaultState()
    {
        Counter::getInstance()->value = 9;
        Counter::release();
        QCOMPARE(Counter::alive, 0);
        QVERIFY(Counter::s_this == nullptr);
        Counter::release();
        QCOMPARE(Counter::alive, 0);
        QCOMPARE(Counter::getInstance()->value, 7);
        Counter::release();
    }

    void libraryAndHost_shareTheInstance()
    {
        ZTCoord::getInstance()->setHeight(1930.0);
        ZTRectShape shape;
        shape.paint();
        QCOMPARE(shape.controlPointRect(), QRectF(0, 0, 100, 100));
        ZTCoord::release();
        shape.setUpdate(1);
        shape.paint();
        QVERIFY(ZTCoord::s_this != nullptr);
        QCOMPARE(shape.controlPointRect().width(), 10 * (900.0 / 193.0));
        ZTCoord::release();
    }

    void constructors_arePrivate()
    {
        QVERIFY(!std::is_default_constructible<ZTCoord>::value);
        QVERIFY(!std::is_default_constructible<ZTPointSort>::value);
        QVERIFY(!std::is_destructible<ZTCoord>::value);
    }
};

QTEST_GUILESS_MAIN(tst_ZTSingletonTemplate)
#include "tst_ZTSingletonTemplate.moc"
