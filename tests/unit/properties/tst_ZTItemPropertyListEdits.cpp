#include <support/PropertyObjects.h>
#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QMetaProperty>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

#include <malloc.h>

using testsupport::EveryTypeObject;

namespace {

constexpr int kSteps = 400;

using Snapshot = QVector<QVariant>;

Snapshot snapshotOf(const QObject &object)
{
    Snapshot values;
    const QMetaObject *meta = object.metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        if (meta->property(i).isWritable())
            values.append(meta->property(i).read(&object));
    }
    return values;
}

/** The first property in which two snapshots differ; empty if there is none. */
QString difference(const QObject &object, const Snapshot &a, const Snapshot &b)
{
    for (int i = 0; i < a.size(); ++i) {
        if (a.at(i) != b.at(i))
            return QString::fromLatin1(object.metaObject()->property(i).name());
    }
    return {};
}

/** Every row with a value below the given ones, themselves included. */
QList<QtVariantProperty *> valueRows(const QList<QtProperty *> &rows)
{
    QList<QtVariantProperty *> found;
    for (QtProperty *row : rows) {
        if (row->hasValue())
            found.append(dynamic_cast<QtVariantProperty *>(row));
        found += valueRows(row->subProperties());
    }
    return found;
}

/** Some value for a row, not always one that fits or differs. */
QVariant someValue(const QtVariantProperty *row, QRandomGenerator *random)
{
    const int number = random->bounded(-3, 40);
    switch (row->valueType()) {
    case QMetaType::Bool:
        return random->bounded(2) == 1;
    case QMetaType::Int:
        return row->propertyType() == QtVariantPropertyManager::enumTypeId() ? qAbs(number) % 4
                                                                             : number;
    case QMetaType::Double:
        return number / 8.0;
    case QMetaType::QString:
        return QString::number(number);
    case QMetaType::QChar:
        return QChar(u'a' + qAbs(number) % 26);
    case QMetaType::QColor:
        return QColor(qAbs(number), 10, 20);
    case QMetaType::QDate:
        return QDate(2020, 1, 1).addDays(number);
    case QMetaType::QTime:
        return QTime(0, 0).addSecs(60 * qAbs(number));
    case QMetaType::QDateTime:
        return QDateTime(QDate(2020, 1, 1).addDays(number), QTime(1, 2));
    case QMetaType::QPoint:
        return QPoint(number, -number);
    case QMetaType::QPointF:
        return QPointF(number / 4.0, -number);
    case QMetaType::QSize:
        return QSize(number, 5);
    case QMetaType::QSizeF:
        return QSizeF(number, 5.5);
    case QMetaType::QRect:
        return QRect(number, 1, 2, 3);
    case QMetaType::QRectF:
        return QRectF(number, 1.5, 2.5, 3.5);
    default: {
        QFont font;
        font.setPixelSize(qAbs(number) + 1);
        return row->valueType() == QMetaType::QFont ? QVariant(font) : QVariant();
    }
    }
}

/** Bytes in use on the heap; 0 where the allocator does not tell. */
std::size_t heapBytes() { return mallinfo2().uordblks; }

} // namespace

class tst_ZTItemPropertyListEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomEdits_areUndoneAndRedoneToEquality_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 5; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    void randomEdits_areUndoneAndRedoneToEquality()
    {
        QFETCH(quint32, seed);
        const testsupport::SingletonGuard singletons;
        const testsupport::WarningGuard warnings;
        QRandomGenerator random(seed);
        EveryTypeObject object;
        QUndoStack stack;
        ZTItemPropertyList list(nullptr);
        list.setUndoStack(&stack);
        list.setObject(&object);
        const auto *browser = list.findChild<QtTreePropertyBrowser *>();

        QVector<Snapshot> states{snapshotOf(object)};
        for (int step = 0; step < kSteps; ++step) {
            const QList<QtVariantProperty *> rows = valueRows(browser->properties());
            QtVariantProperty *row = rows.at(random.bounded(rows.size()));
            row->setValue(someValue(row, &random));
            // One edit is one step, if it is one at all.
            const int steps = stack.count() + 1 - states.size();
            QVERIFY2(steps == 0 || steps == 1, qPrintable(row->propertyName()));
            const Snapshot now = snapshotOf(object);
            if (steps == 1)
                states.append(now);
            QCOMPARE(difference(object, now, states.last()), QString());
            if (random.bounded(4) == 0)
                list.updateProperty();
            QCOMPARE(stack.count() + 1, states.size());
            QCOMPARE(difference(object, snapshotOf(object), states.last()), QString());
        }
        QVERIFY(stack.count() > kSteps / 4);

        for (int i = states.size() - 2; i >= 0; --i) {
            stack.undo();
            list.updateProperty();
            QCOMPARE(difference(object, snapshotOf(object), states.at(i)), QString());
        }
        QVERIFY(!stack.canUndo());
        for (int i = 1; i < states.size(); ++i) {
            stack.redo();
            list.updateProperty();
            QCOMPARE(difference(object, snapshotOf(object), states.at(i)), QString());
        }
        QVERIFY(!stack.canRedo());
    }

    void anHourOfRefreshes_takesNoMemory()
    {
        const testsupport::SingletonGuard singletons;
        EveryTypeObject object;
        ZTItemPropertyList list(nullptr);
        list.setObject(&object);
        // The first rounds fill caches of fonts and texts.
        refreshFor(100, &list, &object);
        const std::size_t before = heapBytes();
        refreshFor(3600, &list, &object);
        const std::size_t after = heapBytes();
        QVERIFY2(after <= before + 16 * 1024, qPrintable(QString::number(after - before)));
    }

    void showingManyObjects_takesNoMemory()
    {
        const testsupport::SingletonGuard singletons;
        EveryTypeObject a;
        EveryTypeObject b;
        ZTItemPropertyList list(nullptr);
        showInTurn(20, &list, &a, &b);
        const std::size_t before = heapBytes();
        showInTurn(200, &list, &a, &b);
        const std::size_t after = heapBytes();
        QVERIFY2(after <= before + 64 * 1024, qPrintable(QString::number(after - before)));
    }

private:
    static void refreshFor(int seconds, ZTItemPropertyList *list, EveryTypeObject *object)
    {
        for (int second = 0; second < seconds; ++second) {
            object->lineSpan = second % 7;
            object->fillParam.angle = second % 5;
            list->updateProperty();
        }
    }

    static void showInTurn(int times, ZTItemPropertyList *list, QObject *a, QObject *b)
    {
        for (int i = 0; i < times; ++i) {
            list->setObject(a);
            list->setObject(b);
        }
        list->setObject(nullptr);
    }
};

QTEST_MAIN(tst_ZTItemPropertyListEdits)
#include "tst_ZTItemPropertyListEdits.moc"
