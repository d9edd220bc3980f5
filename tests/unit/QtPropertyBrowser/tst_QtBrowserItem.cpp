#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtBrowserItem.h>
#include <QtPropertyBrowser/QtTreePropertyBrowser.h>
#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtTest/QTest>

class tst_QtBrowserItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void item_knowsItsRowItsPlaceAndItsBrowser()
    {
        const testsupport::WarningGuard guard;
        QtVariantPropertyManager manager;
        QtTreePropertyBrowser browser;
        QtVariantProperty *point = manager.addProperty(QMetaType::QPointF);
        QtBrowserItem *item = browser.addProperty(point);
        QCOMPARE(item->property(), point);
        QCOMPARE(item->browser(), &browser);
        QVERIFY(!item->parent());
        QCOMPARE(item->children().size(), 2);
        for (int i = 0; i < 2; ++i) {
            QtBrowserItem *child = item->children().at(i);
            QCOMPARE(child->property(), point->subProperties().at(i));
            QCOMPARE(child->parent(), item);
            QCOMPARE(child->browser(), &browser);
            QVERIFY(child->children().isEmpty());
        }
    }

    void item_ofEachBrowserIsItsOwn()
    {
        const testsupport::WarningGuard guard;
        QtVariantPropertyManager manager;
        QtTreePropertyBrowser first;
        QtTreePropertyBrowser second;
        QtVariantProperty *row = manager.addProperty(QMetaType::Int);
        QVERIFY(first.addProperty(row) != second.addProperty(row));
        QCOMPARE(first.items(row).size(), 1);
        delete row;
        QVERIFY(first.topLevelItems().isEmpty());
        QVERIFY(second.topLevelItems().isEmpty());
    }
};

QTEST_MAIN(tst_QtBrowserItem)
#include "tst_QtBrowserItem.moc"
