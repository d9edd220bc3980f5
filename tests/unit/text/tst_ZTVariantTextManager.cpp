#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/text/ZTTextShapeBase.h>
#include <ZTDrawEngineLib/text/ZTVariantTextManager.h>
#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtTest/QTest>

#include <functional>
#include <limits>
#include <memory>

namespace {

class TestText : public ZTTextShapeBase
{
public:
    void paint() override {}
    void setText(const QString &text) override
    {
        shown << text;
        if (onSetText)
            onSetText();
    }

    QStringList shown;
    std::function<void()> onSetText;
};

ZTVariantTextManager &registry() { return *ZTVariantTextManager::getInstance(); }

ZTVariantText numbers(qint64 start)
{
    ZTCounterSegment counter;
    counter.start = start;
    ZTVariantText text;
    text.setSegments({counter});
    return text;
}

/** An entry used by the shape that counts from `start`. */
int newCounter(TestText &shape, qint64 start)
{
    const int id = registry().newItem(&shape);
    // The newest entry is the shape's first one here.
    *registry().getVariantText(&shape) = numbers(start);
    return id;
}

QByteArray saved()
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    registry().save(stream);
    return bytes;
}

QDataStream::Status load(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    registry().load(stream);
    return stream.status();
}

QByteArray header(qint32 lastId, qint32 count)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << lastId << count;
    return bytes;
}

QByteArray entry(qint32 id, const ZTVariantText &text)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << id << text;
    return bytes;
}

QStringList list(std::initializer_list<int> values)
{
    QStringList texts;
    for (const int value : values)
        texts << QString::number(value);
    return texts;
}

} // namespace

class tst_ZTVariantTextManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        warnings.reset(new testsupport::WarningGuard);
    }

    void cleanup()
    {
        warnings.reset();
        guard.reset();
    }

    void newItem_idsStartAtOne()
    {
        TestText shape;
        QCOMPARE(registry().newItem(&shape), 1);
        QCOMPARE(registry().newItem(&shape), 2);
        QVERIFY(registry().hasId(1));
        QVERIFY(registry().hasId(2));
        QVERIFY(!registry().hasId(3));
        QVERIFY(!registry().hasId(0));
    }

    void newItem_null_issuesNothing()
    {
        TestText shape;
        QCOMPARE(registry().newItem(nullptr), 0);
        QVERIFY(!registry().hasId(0));
        QCOMPARE(registry().newItem(&shape), 1);
        QCOMPARE(saved().left(8), header(1, 1));
    }

    void newItem_makesAnEmptyVariantText()
    {
        TestText shape;
        TestText other;
        registry().newItem(&shape);
        registry().newItem(&other);
        QVERIFY(*registry().getVariantText(&shape) == ZTVariantText());
        QVERIFY(registry().getVariantText(&shape) != registry().getVariantText(&other));
        shape.setEnableVariantText(true);
        QVERIFY(registry().getVariantText(&shape) != shape.getVarTxt());
    }

    void newItem_idsUsedUp_issuesNothing()
    {
        load(header(std::numeric_limits<qint32>::max() - 1, 0));
        TestText shape;
        QCOMPARE(registry().newItem(&shape), std::numeric_limits<qint32>::max());
        QCOMPARE(registry().newItem(&shape), 0);
        QCOMPARE(saved().left(8), header(std::numeric_limits<qint32>::max(), 1));
    }

    void newItem_afterAnIdBelowZero_skipsZero()
    {
        load(header(-2, 0));
        TestText shape;
        QCOMPARE(registry().newItem(&shape), -1);
        QCOMPARE(registry().newItem(&shape), 1);
    }

    void getVariantText_firstEntryOfTheShapeOrNull()
    {
        TestText a;
        TestText b;
        TestText stranger;
        registry().newItem(&a);
        const int second = registry().newItem(&b);
        ZTVariantText *ofB = registry().getVariantText(&b);
        registry().appendItem(second, &a);
        QVERIFY(registry().getVariantText(&a) != ofB);
        registry().appendItem(1, &b);
        QCOMPARE(registry().getVariantText(&b), registry().getVariantText(&a));
        QVERIFY(registry().getVariantText(&stranger) == nullptr);
        QVERIFY(registry().getVariantText(nullptr) == nullptr);
    }

    void appendItem_unknownIdOrNull_doesNothing()
    {
        TestText shape;
        registry().newItem(&shape);
        TestText other;
        registry().appendItem(7, &other);
        registry().appendItem(1, nullptr);
        QVERIFY(registry().getVariantText(&other) == nullptr);
        registry().flush();
        QVERIFY(other.shown.isEmpty());
    }

    void appendItem_reachesEveryEntryOfTheId()
    {
        load(header(2, 3) + entry(2, numbers(10)) + entry(1, numbers(20)) + entry(2, numbers(30)));
        TestText shape;
        registry().appendItem(2, &shape);
        registry().flush();
        QCOMPARE(shape.shown, list({10, 30}));
    }

    void appendItem_twice_getsTwoValuesAndIsDeletedTwice()
    {
        TestText shape;
        const int id = newCounter(shape, 1);
        registry().appendItem(id, &shape);
        registry().flush();
        QCOMPARE(shape.shown, list({1, 2}));
        registry().deleteItem(&shape);
        QVERIFY(registry().hasId(id));
        registry().deleteItem(&shape);
        QVERIFY(!registry().hasId(id));
    }

    void deleteItem_lastShapeTakesTheEntryAlong()
    {
        TestText a;
        TestText b;
        const int id = registry().newItem(&a);
        registry().appendItem(id, &b);
        registry().deleteItem(&a);
        QVERIFY(registry().hasId(id));
        QVERIFY(registry().getVariantText(&a) == nullptr);
        registry().deleteItem(&b);
        QVERIFY(!registry().hasId(id));
    }

    void deleteItem_stopsAtTheFirstEntryThatItEmpties()
    {
        TestText a;
        TestText b;
        registry().newItem(&b);
        registry().newItem(&a);
        registry().newItem(&a);
        registry().newItem(&b);
        registry().appendItem(1, &a);
        registry().appendItem(4, &a);
        registry().deleteItem(&a); // leaves 1 to b, empties 2, does not come to 3 and 4
        QVERIFY(registry().hasId(1));
        QVERIFY(!registry().hasId(2));
        QVERIFY(registry().hasId(3));
        registry().flush();
        QCOMPARE(a.shown.size(), 2);
        QCOMPARE(b.shown.size(), 2);
        registry().deleteItem(&a);
        QVERIFY(!registry().hasId(3));
        QVERIFY(registry().hasId(4));
        registry().deleteItem(&a);
        QVERIFY(registry().getVariantText(&a) == nullptr);
        QVERIFY(registry().hasId(4));
    }

    void deleteItem_strangerOrNull_doesNothing()
    {
        TestText shape;
        TestText stranger;
        const int id = registry().newItem(&shape);
        registry().deleteItem(&stranger);
        registry().deleteItem(nullptr);
        QVERIFY(registry().hasId(id));
    }

    void deleteItem_leavesLoadedEntriesWithoutShapes()
    {
        load(header(1, 1) + entry(1, numbers(1)));
        TestText shape;
        registry().deleteItem(&shape);
        registry().deleteItem(nullptr);
        QVERIFY(registry().hasId(1));
        registry().deleteAll();
        QVERIFY(!registry().hasId(1));
    }

    void deleteAll_startsIdsAnew()
    {
        TestText shape;
        registry().newItem(&shape);
        registry().newItem(&shape);
        registry().deleteAll();
        QVERIFY(!registry().hasId(1));
        QVERIFY(registry().getVariantText(&shape) == nullptr);
        QCOMPARE(saved(), header(0, 0));
        QCOMPARE(registry().newItem(&shape), 1);
    }

    void flush_oneValueAShape()
    {
        TestText a;
        TestText b;
        TestText c;
        const int id = newCounter(a, 1);
        registry().appendItem(id, &b);
        registry().appendItem(id, &c);
        registry().flush();
        registry().flush();
        QCOMPARE(a.shown, list({1, 4}));
        QCOMPARE(b.shown, list({2, 5}));
        QCOMPARE(c.shown, list({3, 6}));
    }

    void flush_goesEntryByEntry()
    {
        TestText a;
        TestText b;
        QStringList order;
        a.onSetText = [&] { order << QStringLiteral("a"); };
        b.onSetText = [&] { order << QStringLiteral("b"); };
        registry().newItem(&b);
        registry().newItem(&a);
        registry().appendItem(1, &a);
        registry().flush();
        QCOMPARE(order.join(QString()), QStringLiteral("baa"));
    }

    void flush_doesNotLookAtTheShapesOwnSwitch()
    {
        TestText shape;
        newCounter(shape, 4);
        QVERIFY(!shape.isEnableVariantText());
        registry().flush();
        QCOMPARE(shape.shown, list({4}));
    }

    void flush_setTextTakesAnotherShapeOut_theRestIsServed()
    {
        TestText first;
        auto second = std::make_unique<TestText>();
        TestText third;
        const int id = newCounter(first, 1);
        registry().appendItem(id, second.get());
        registry().appendItem(id, &third);
        first.onSetText = [&] { second.reset(); };
        registry().flush();
        QCOMPARE(first.shown, list({1}));
        QCOMPARE(third.shown, list({2}));

        third.onSetText = [&] { registry().deleteItem(&first); };
        TestText fourth;
        registry().appendItem(id, &fourth);
        registry().flush();
        QCOMPARE(third.shown, list({2, 4}));
        QCOMPARE(fourth.shown, list({5}));
    }

    void flush_setTextRemovesEntries()
    {
        TestText a;
        TestText b;
        newCounter(a, 1);
        newCounter(b, 10);
        a.onSetText = [&] { registry().deleteAll(); };
        registry().flush();
        QCOMPARE(a.shown, list({1}));
        QVERIFY(b.shown.isEmpty());

        newCounter(a, 1);
        newCounter(b, 10);
        a.onSetText = [&] { registry().deleteItem(&a); };
        registry().flush();
        QCOMPARE(b.shown, list({10}));
    }

    void flush_setTextReleasesTheRegistry()
    {
        TestText a;
        TestText b;
        newCounter(a, 1);
        newCounter(b, 10);
        a.onSetText = [] { ZTVariantTextManager::release(); };
        registry().flush();
        QCOMPARE(a.shown, list({1}));
        QVERIFY(b.shown.isEmpty());
    }

    void flush_setTextAppends_comesToAnEnd()
    {
        TestText shape;
        const int id = newCounter(shape, 1);
        shape.onSetText = [&] { registry().appendItem(id, &shape); };
        registry().flush();
        QCOMPARE(shape.shown, list({1}));
        registry().flush();
        QCOMPARE(shape.shown, list({1, 2, 3}));
    }

    void destroyedShape_leavesTheLists_entriesStay()
    {
        TestText kept;
        const int shared = newCounter(kept, 1);
        int own = 0;
        {
            TestText shape;
            own = registry().newItem(&shape);
            registry().appendItem(shared, &shape);
            registry().appendItem(shared, &shape);
        }
        QVERIFY(registry().hasId(own));
        registry().flush();
        registry().flush();
        QCOMPARE(kept.shown, list({1, 2}));
    }

    void copiedShape_isNotRegistered()
    {
        TestText shape;
        newCounter(shape, 1);
        {
            const TestText copy(shape);
            QVERIFY(registry().getVariantText(const_cast<TestText *>(&copy)) == nullptr);
        }
        registry().flush();
        QCOMPARE(shape.shown, list({1}));
    }

    void destroyedShapes_ofALargeRegistry_areNotSearchedFor()
    {
        // A search for each would be 4 * 10^10 steps.
        constexpr int kCount = 200000;
        std::vector<TestText> shapes(kCount);
        for (TestText &shape : shapes)
            registry().newItem(&shape);
        shapes.clear();
        registry().flush();
        QVERIFY(registry().hasId(kCount));
    }

    void save_entriesInOrder()
    {
        TestText a;
        TestText b;
        newCounter(a, 5);
        newCounter(b, 7);
        registry().deleteItem(&a);
        newCounter(a, 9);
        QCOMPARE(saved(), header(3, 2) + entry(2, numbers(7)) + entry(3, numbers(9)));
    }

    void load_appendsWithoutShapesAndTakesTheCount()
    {
        TestText shape;
        newCounter(shape, 5);
        newCounter(shape, 6);
        const QByteArray bytes = saved();
        QCOMPARE(load(bytes), QDataStream::Ok);
        const QByteArray both = saved();
        QCOMPARE(both, header(2, 4) + bytes.mid(8) + bytes.mid(8));
        registry().flush();
        QCOMPARE(shape.shown.size(), 2);
        QCOMPARE(registry().newItem(&shape), 3);
        load(header(0, 0));
        QCOMPARE(registry().newItem(&shape), 1);
    }

    void load_countBelowZero_readsNone()
    {
        QCOMPARE(load(header(4, -1) + entry(1, numbers(1))), QDataStream::Ok);
        QCOMPARE(saved(), header(4, 0));
    }

    void load_countBeyondTheStream_appendsEmptyEntries()
    {
        load(header(4, 4) + entry(1, numbers(1)) + entry(2, numbers(2)));
        QCOMPARE(saved(), header(4, 4) + entry(1, numbers(1)) + entry(2, numbers(2)) +
                              entry(0, ZTVariantText()) + entry(0, ZTVariantText()));
    }

    void load_statusAlreadyBad_readsAllTheSame()
    {
        const QByteArray bytes = header(4, 1) + entry(1, numbers(1));
        QDataStream stream(bytes);
        stream.setStatus(QDataStream::ReadCorruptData);
        registry().load(stream);
        QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
        QCOMPARE(saved(), bytes);
    }

    void load_anyTruncation_keepsTheWholeEntries()
    {
        const QByteArray first = entry(1, numbers(1));
        const QByteArray bytes = header(2, 2) + first + entry(2, numbers(2));
        for (int size = 8 + first.size(); size < bytes.size(); ++size) {
            registry().deleteAll();
            load(bytes.left(size));
            QCOMPARE(saved().mid(8, first.size()), first);
        }
        for (int size = 0; size < 8 + first.size(); ++size)
            load(bytes.left(size));
    }

    void load_damagedText_staysInStep()
    {
        QByteArray damaged = entry(1, numbers(1));
        damaged[5] = 9; // a version of the text that nobody knows
        const auto status = load(header(3, 3) + damaged + damaged + entry(3, numbers(3)));
        QCOMPARE(status, QDataStream::ReadCorruptData);
        QCOMPARE(saved(), header(3, 3) + entry(1, ZTVariantText()) + entry(1, ZTVariantText()) +
                              entry(3, numbers(3)));
    }

    void load_insideAFailedTransaction_appendsEmptyEntries()
    {
        QByteArray damaged = entry(1, numbers(1));
        damaged[5] = 9;
        const QByteArray bytes =
            header(3, 4) + damaged + entry(2, numbers(2)) + entry(3, numbers(3));
        QDataStream stream(bytes);
        stream.startTransaction();
        registry().load(stream);
        QVERIFY(!stream.commitTransaction());
        QCOMPARE(saved(), header(3, 4) + entry(1, ZTVariantText()) + entry(0, ZTVariantText()) +
                              entry(0, ZTVariantText()) + entry(0, ZTVariantText()));
    }

    void idsAndShapes_standInTheOrderOfTheFlush()
    {
        TestText one;
        TestText two;
        QVERIFY(registry().getIds().isEmpty());
        registry().newItem(&one);
        registry().newItem(&two);
        registry().appendItem(1, &two);
        QCOMPARE(registry().getIds(), (QVector<int>{1, 2}));
        QCOMPARE(registry().getShapes(1), (QVector<ZTTextShapeBase *>{&one, &two}));
        QCOMPARE(registry().getShapes(2), (QVector<ZTTextShapeBase *>{&two}));
        QVERIFY(registry().getShapes(3).isEmpty());
    }

    void release_forgetsEverything()
    {
        TestText shape;
        registry().newItem(&shape);
        ZTVariantTextManager::release();
        QVERIFY(registry().getVariantText(&shape) == nullptr);
        QCOMPARE(saved(), header(0, 0));
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
    QScopedPointer<testsupport::WarningGuard> warnings;
};

QTEST_GUILESS_MAIN(tst_ZTVariantTextManager)
#include "tst_ZTVariantTextManager.moc"
