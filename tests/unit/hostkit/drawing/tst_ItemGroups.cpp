#include <support/SingletonGuard.h>

#include <hostkit/drawing/DrawingExtras.h>
#include <hostkit/drawing/ItemGroups.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

using hostkit::FreeGroupIds;

/** Ids of groups, and what becomes of them when items are copied. */
class tst_ItemGroups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        document.reset(new ZTGraphicsDocument);
    }
    void cleanup()
    {
        document.reset();
        guard.reset();
    }

    void freeIds_countFromOne_eachOnce()
    {
        FreeGroupIds ids(*document);
        QCOMPARE(ids.take(), 1);
        QCOMPARE(ids.take(), 2);
    }

    void freeIds_passOverThoseOfItemsAndNames()
    {
        add({1, 4});
        hostkit::DrawingExtras extras;
        extras.groupNames[2] = QStringLiteral("Named");
        hostkit::setDrawingExtras(*document, extras);
        FreeGroupIds ids(*document);
        QCOMPARE(ids.take(), 3);
        QCOMPARE(ids.take(), 5);
    }

    void freeIds_staySmall_besideTheLargestIdThereIs()
    {
        add({2147483647});
        QCOMPARE(FreeGroupIds(*document).take(), 1);
    }

    void renewed_whoWasTogetherStaysTogether()
    {
        add({7});
        const QVector<ZTAbstractGraphicsItem *> copies = {add({7, 8}), add({7, 8}), add({7}),
                                                          add({})};
        FreeGroupIds ids(*document);
        const hostkit::RenewedGroups renewed = renewGroups(copies, &ids);
        QCOMPARE(renewed, (hostkit::RenewedGroups{{7, 1}, {8, 2}}));
        QCOMPARE(pathOf(copies[0]), (QVector<qint32>{1, 2}));
        QCOMPARE(pathOf(copies[1]), (QVector<qint32>{1, 2}));
        QCOMPARE(pathOf(copies[2]), QVector<qint32>{1});
        QCOMPARE(pathOf(copies[3]), QVector<qint32>());
    }

    void renewed_groupOfOne_goes()
    {
        const QVector<ZTAbstractGraphicsItem *> copies = {add({7, 8}), add({7})};
        FreeGroupIds ids(*document);
        renewGroups(copies, &ids);
        QCOMPARE(pathOf(copies[0]), QVector<qint32>{1});
        QCOMPARE(pathOf(copies[1]), QVector<qint32>{1});
    }

    void renewed_keptIds_stay()
    {
        const QVector<ZTAbstractGraphicsItem *> copies = {add({7})};
        FreeGroupIds ids(*document);
        QVERIFY(renewGroups(copies, &ids, {7}).isEmpty());
        QCOMPARE(pathOf(copies[0]), QVector<qint32>{7});
    }

private:
    ZTAbstractGraphicsItem *add(const QVector<qint32> &path)
    {
        ZTAbstractGraphicsItem *item =
            document->itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        hostkit::ItemExtras extras;
        extras.groupPath = path;
        hostkit::setItemExtras(*item, extras);
        return item;
    }

    static QVector<qint32> pathOf(const ZTAbstractGraphicsItem *item)
    {
        return hostkit::itemExtras(*item).groupPath;
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(tst_ItemGroups)
#include "tst_ItemGroups.moc"
