#include <support/SingletonGuard.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

using hostkit::ItemExtras;

namespace {

ItemExtras everything()
{
    ItemExtras extras;
    extras.name = QStringLiteral("Fr\u00e4sung \u4F60");
    extras.isMarked = false;
    extras.isLocked = true;
    extras.isHidden = true;
    extras.groupPath = {3, -1, 2147483647};
    extras.valuesPerPart = 50;
    extras.fields.insert(QByteArrayLiteral("mine"), QByteArrayLiteral("a\0b"));
    return extras;
}

} // namespace

/** What an item carries beside its shape. */
class tst_ItemExtras : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        document.reset(new ZTGraphicsDocument);
        item = document->itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
    }
    void cleanup()
    {
        document.reset();
        guard.reset();
    }

    void newItem_isMarkedFreeAndShown()
    {
        const ItemExtras extras = hostkit::itemExtras(*item);
        QVERIFY(extras == ItemExtras());
        QVERIFY(extras.isMarked && !extras.isLocked && !extras.isHidden);
        QVERIFY(hostkit::isMarked(*item));
    }

    void setItemExtras_givenBack()
    {
        hostkit::setItemExtras(*item, everything());
        QVERIFY(hostkit::itemExtras(*item) == everything());
        hostkit::setItemExtras(*item, {});
        QVERIFY(hostkit::itemExtras(*item) == ItemExtras());
    }

    void lockedItem_cannotBeSelected_untilItIsFree()
    {
        item->setSelected(true);
        ItemExtras extras;
        extras.isLocked = true;
        hostkit::setItemExtras(*item, extras);
        QVERIFY(!item->isSelected());
        item->setSelected(true);
        QVERIFY(!item->isSelected());
        QVERIFY(item->isVisible());
        QVERIFY(hostkit::isMarked(*item));
        hostkit::setItemExtras(*item, {});
        item->setSelected(true);
        QVERIFY(item->isSelected());
    }

    void hiddenItem_isNeitherShownNorSelectedNorMarked_untilItIsShown()
    {
        item->setSelected(true);
        ItemExtras extras;
        extras.isHidden = true;
        hostkit::setItemExtras(*item, extras);
        QVERIFY(!item->isVisible());
        QVERIFY(!item->isSelected());
        QVERIFY(!hostkit::isMarked(*item));
        hostkit::setItemExtras(*item, {});
        QVERIFY(item->isVisible());
        QVERIFY(hostkit::isMarked(*item));
    }

    void valuesPerPart_outOfTheirRange_stayAmongTheFields()
    {
        hostkit::KeyedFields fields;
        for (const QByteArray &bytes : {QByteArray(4, '\0'), QByteArray(4, '\xFF'),
                                        QByteArray(3, '\1'), QByteArray(8, '\1')}) {
            fields[QByteArrayLiteral("vals")] = bytes;
            const ItemExtras extras = hostkit::extrasFromFields(fields);
            QCOMPARE(extras.valuesPerPart, 1);
            QVERIFY(extras.fields == fields);
        }
        fields[QByteArrayLiteral("vals")] = QByteArrayLiteral("\0\0\1\2");
        QCOMPARE(hostkit::extrasFromFields(fields).valuesPerPart, 258);
    }

    void unmarkedItem_isShownAndNotMarked()
    {
        ItemExtras extras;
        extras.isMarked = false;
        hostkit::setItemExtras(*item, extras);
        QVERIFY(item->isVisible());
        QVERIFY(!hostkit::isMarked(*item));
    }

    void copyItemExtras_takesThemAndTheKindAlong()
    {
        hostkit::setItemExtras(*item, everything());
        hostkit::setItemKind(*item, "Slot");
        auto *copy = document->itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        hostkit::copyItemExtras(*item, *copy);
        QVERIFY(hostkit::itemExtras(*copy) == everything());
        QCOMPARE(hostkit::itemKind(*copy), QByteArray("Slot"));
        QVERIFY(!copy->isVisible());
    }

    void itemKind_withoutANameOfItsOwn_isThatOfItsType()
    {
        QCOMPARE(hostkit::itemKind(*item), QByteArray("Rect"));
    }

    void defaults_haveNoFields() { QVERIFY(hostkit::extrasToFields({}).isEmpty()); }

    void fields_holdEveryMember()
    {
        const hostkit::KeyedFields fields = hostkit::extrasToFields(everything());
        QCOMPARE(fields.value("name"), QByteArray("Fr\xc3\xa4sung \xe4\xbd\xa0"));
        QCOMPARE(fields.value("mark"), QByteArray(1, '\0'));
        QCOMPARE(fields.value("lock"), QByteArray(1, '\1'));
        QCOMPARE(fields.value("hide"), QByteArray(1, '\1'));
        QCOMPARE(fields.value("grps"), QByteArray::fromHex("00000003ffffffff7fffffff"));
        QCOMPARE(fields.value("vals"), QByteArray::fromHex("00000032"));
        QCOMPARE(fields.value("mine"), QByteArrayLiteral("a\0b"));
        QCOMPARE(fields.size(), 7);
        QVERIFY(hostkit::extrasFromFields(fields) == everything());
    }

    void fieldsThatMakeNoSense_areKeptAsTheyAre()
    {
        hostkit::KeyedFields fields;
        fields["mark"] = "xx";
        fields["grps"] = "abc";
        fields["name"] = "\xff";
        const ItemExtras extras = hostkit::extrasFromFields(fields);
        QVERIFY(extras.isMarked);
        QVERIFY(extras.groupPath.isEmpty());
        QVERIFY(extras.name.isEmpty());
        QCOMPARE(extras.fields, fields);
        QCOMPARE(hostkit::extrasToFields(extras), fields);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
    QScopedPointer<ZTGraphicsDocument> document;
    ZTAbstractGraphicsItem *item = nullptr;
};

QTEST_MAIN(tst_ItemExtras)
#include "tst_ItemExtras.moc"
