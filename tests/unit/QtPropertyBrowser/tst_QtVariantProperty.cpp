#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtTest/QTest>

class tst_QtVariantProperty : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::WarningGuard); }
    void cleanup() { guard.reset(); }

    void everything_forwardsToTheManager()
    {
        QtVariantPropertyManager manager;
        QtVariantProperty *row = manager.addProperty(QMetaType::Double, QStringLiteral("d"));
        row->setAttribute(QStringLiteral("maximum"), 5.0);
        row->setValue(9.0);
        QCOMPARE(row->value(), QVariant(5.0));
        QCOMPARE(manager.value(row), QVariant(5.0));
        QCOMPARE(row->attributeValue(QStringLiteral("maximum")), QVariant(5.0));
        QVERIFY(!row->attributeValue(QStringLiteral("none")).isValid());
        QCOMPARE(row->valueType(), int(QMetaType::Double));
        QCOMPARE(row->propertyType(), int(QMetaType::Double));
    }

    void list_tellsItsOwnTypeAndThatOfItsValue()
    {
        QtVariantPropertyManager manager;
        const int type = QtVariantPropertyManager::enumTypeId();
        QtVariantProperty *row = manager.addProperty(type);
        QCOMPARE(row->propertyType(), type);
        QCOMPARE(row->valueType(), int(QMetaType::Int));
    }

    void userType_isKeptBesideThePropertyType()
    {
        QtVariantPropertyManager manager;
        const int group = QtVariantPropertyManager::groupTypeId();
        QtVariantProperty *row = manager.addProperty(group);
        QCOMPARE(row->getUserType(), 0);
        row->setUserType(4711);
        QCOMPARE(row->getUserType(), 4711);
        QCOMPARE(row->propertyType(), group);
    }

    void rowFoundByRunTimeType()
    {
        QtVariantPropertyManager manager;
        QtProperty *row = manager.addProperty(QMetaType::QPointF);
        QVERIFY(dynamic_cast<QtVariantProperty *>(row));
        const QList<QtProperty *> parts = row->subProperties();
        for (QtProperty *part : parts)
            QVERIFY(dynamic_cast<QtVariantProperty *>(part));
    }

private:
    QScopedPointer<testsupport::WarningGuard> guard;
};

QTEST_MAIN(tst_QtVariantProperty)
#include "tst_QtVariantProperty.moc"
