#include "StudioTest.h"

#include <studio/commands/StackingCommand.h>
#include <studio/list/ShapeOrder.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <algorithm>

using studio::OrderChange;
using studio::ShapeItem;
using studio::ShapeItems;

Q_DECLARE_METATYPE(studio::OrderChange)

/** Orders are written as letters, the first marked first; capitals are the shapes that are moved.
 */
class tst_ShapeOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void reordered_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<OrderChange>("change");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, const char *before, OrderChange change,
                            const char *after) {
            QTest::newRow(name) << QString::fromLatin1(before) << change
                                << QString::fromLatin1(after);
        };
        row("raise one", "abCde", OrderChange::Raise, "aCbde");
        row("raise the first", "Abc", OrderChange::Raise, "Abc");
        row("raise two apart", "aBcD", OrderChange::Raise, "BaDc");
        row("raise a block", "aBCd", OrderChange::Raise, "BCad");
        row("raise against the edge", "ABcD", OrderChange::Raise, "ABDc");
        row("lower one", "abCde", OrderChange::Lower, "abdCe");
        row("lower the last", "abC", OrderChange::Lower, "abC");
        row("lower a block", "aBCd", OrderChange::Lower, "adBC");
        row("to first", "abCdE", OrderChange::ToFirst, "CEabd");
        row("to last", "AbCde", OrderChange::ToLast, "bdeAC");
        row("reverse all", "abcde", OrderChange::Reverse, "edcba");
        row("reverse all for one", "abCde", OrderChange::Reverse, "edCba");
        row("reverse some in their places", "AbCdE", OrderChange::Reverse, "EbCdA");
        row("nothing there", "", OrderChange::ToFirst, "");
    }

    void reordered()
    {
        QFETCH(QString, before);
        QFETCH(OrderChange, change);
        QFETCH(QString, after);
        const ShapeItems order = make(before);
        QCOMPARE(letters(studio::reordered(order, capitals(order), change)), after);
    }

    void broughtBefore_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("place");
        QTest::addColumn<QString>("after");
        QTest::newRow("to the top") << "abCde" << 0 << "Cabde";
        QTest::newRow("up") << "abCDe" << 1 << "aCDbe";
        QTest::newRow("down") << "aBcde" << 4 << "acdBe";
        QTest::newRow("to the bottom") << "aBcDe" << 5 << "aceBD";
        QTest::newRow("to itself") << "abCde" << 2 << "abCde";
        QTest::newRow("behind itself") << "abCde" << 3 << "abCde";
        QTest::newRow("among themselves") << "aBcDe" << 2 << "aBDce";
        QTest::newRow("beyond") << "Abc" << 99 << "bcA";
    }

    void broughtBefore()
    {
        QFETCH(QString, before);
        QFETCH(int, place);
        QFETCH(QString, after);
        const ShapeItems order = make(before);
        QCOMPARE(letters(studio::broughtBefore(order, capitals(order), place)), after);
    }

    // The drawing, the mark data and what is saved have the order; undo and redo are exact.
    void setMarkingOrder_isWhatIsMarked_andUndoable()
    {
        const ShapeItems order = make(QStringLiteral("abcde"));
        test->select({order[1], order[3]});
        const DrawingSnapshot before = test->snapshot();
        const ShapeItems wanted{order[2], order[0], order[4], order[1], order[3]};
        studio::setMarkingOrder(*test->document, wanted);
        QCOMPARE(studio::markingOrder(*test->document->scene()), wanted);
        const ZTMarkGraph graph = test->document->itemMag()->getShapeLines();
        for (int i = 0; i < wanted.size(); ++i)
            QCOMPARE(graph.objects[i].penId, wanted[i]->getPenId());
        QCOMPARE(test->document->undoStack()->count(), 1);
        QCOMPARE(selectedIds(*test->document).size(), 2);
        QVERIFY(order[1]->isSelected() && order[3]->isSelected());
        const DrawingSnapshot after = test->snapshot();
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
    }

    void theSameOrder_isNoStep()
    {
        const ShapeItems order = make(QStringLiteral("abc"));
        studio::setMarkingOrder(*test->document, order);
        QCOMPARE(test->document->undoStack()->count(), 0);
    }

    // Every way of getting there: few shapes moved one by one, and the whole built anew.
    void anyOrder_comesAboutAndGoes()
    {
        QRandomGenerator random(7);
        for (const int count : {2, 3, 7, 60}) {
            test = std::make_unique<DocumentTest>();
            ShapeItems wanted = make(QString(count, QLatin1Char('x')));
            const DrawingSnapshot before = test->snapshot();
            for (int step = 0; step < 25; ++step) {
                if (step % 2 == 0)
                    std::shuffle(wanted.begin(), wanted.end(), random);
                else
                    wanted.move(random.bounded(count), random.bounded(count));
                studio::setMarkingOrder(*test->document, wanted);
                QCOMPARE(studio::markingOrder(*test->document->scene()), wanted);
            }
            QUndoStack &stack = *test->document->undoStack();
            while (stack.canUndo())
                stack.undo();
            COMPARE_DRAWINGS(test->snapshot(), before);
            while (stack.canRedo())
                stack.redo();
            QCOMPARE(studio::markingOrder(*test->document->scene()), wanted);
        }
    }

    void shapesDeletedByOthers_arePassedOver()
    {
        ShapeItems order = make(QStringLiteral("abcd"));
        std::reverse(order.begin(), order.end());
        studio::setMarkingOrder(*test->document, order);
        delete order.takeAt(1);
        test->document->undoStack()->undo();
        std::reverse(order.begin(), order.end());
        QCOMPARE(studio::markingOrder(*test->document->scene()), order);
        test->document->undoStack()->redo();
        std::reverse(order.begin(), order.end());
        QCOMPARE(studio::markingOrder(*test->document->scene()), order);
    }

    // One shape to the top, then all of them turned around.
    void manyShapes_moveQuickly()
    {
        constexpr int kCount = 20000;
        ShapeItems order = make(QString(kCount, QLatin1Char('x')));
        QElapsedTimer timer;
        timer.start();
        studio::setMarkingOrder(*test->document, studio::broughtBefore(order, {order.last()}, 0));
        QCOMPARE(studio::markingOrder(*test->document->scene()).first(), order.last());
        std::reverse(order.begin(), order.end());
        studio::setMarkingOrder(*test->document, order);
        QCOMPARE(studio::markingOrder(*test->document->scene()), order);
        // A list walked for each of them would take minutes.
        QVERIFY2(timer.elapsed() < 20000, QByteArray::number(timer.elapsed()).constData());
    }

private:
    /** A shape for each letter, the first marked first; pens tell them apart. */
    ShapeItems make(const QString &names)
    {
        ShapeItems order;
        m_names.clear();
        for (int i = names.size() - 1; i >= 0; --i) {
            ShapeItem *item = test->addRect(0, 0);
            item->setPenId(i + 1);
            m_names.insert(item, names[i]);
            order.prepend(item);
        }
        return order;
    }

    QSet<const ShapeItem *> capitals(const ShapeItems &order) const
    {
        QSet<const ShapeItem *> found;
        for (const ShapeItem *item : order) {
            if (m_names.value(item).isUpper())
                found.insert(item);
        }
        return found;
    }

    QString letters(const ShapeItems &order) const
    {
        QString text;
        for (const ShapeItem *item : order)
            text += m_names.value(item);
        return text;
    }

    std::unique_ptr<DocumentTest> test;
    QHash<const ShapeItem *, QChar> m_names;
};

QTEST_MAIN(tst_ShapeOrder)
#include "tst_ShapeOrder.moc"
