#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtAbstractPropertyBrowser.h>
#include <QtPropertyBrowser/QtVariantEditorFactory.h>
#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QSpinBox>

using Manager = QtVariantPropertyManager;

namespace {

/** Writes down what a view would have to do. */
class LogBrowser : public QtAbstractPropertyBrowser
{
public:
    using QtAbstractPropertyBrowser::createEditor;

    QStringList log;

protected:
    void itemInserted(QtBrowserItem *item, QtBrowserItem *after) override
    {
        const QString behind = after ? after->property()->propertyName() : QStringLiteral("-");
        log << QStringLiteral("+%1>%2").arg(item->property()->propertyName(), behind);
    }
    void itemRemoved(QtBrowserItem *item) override
    {
        log << QStringLiteral("-%1").arg(item->property()->propertyName());
    }
    void itemChanged(QtBrowserItem *item) override
    {
        log << QStringLiteral("~%1").arg(item->property()->propertyName());
    }
};

} // namespace

class tst_QtAbstractPropertyBrowser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::WarningGuard);
        manager.reset(new Manager);
        browser.reset(new LogBrowser);
        a = row("a");
        b = row("b");
        c = row("c");
    }

    void cleanup()
    {
        browser.reset();
        manager.reset();
        guard.reset();
    }

    void addProperty_standsBehindTheLast()
    {
        QtBrowserItem *first = browser->addProperty(a);
        QtBrowserItem *second = browser->addProperty(b);
        QCOMPARE(browser->properties(), (QList<QtProperty *>{a, b}));
        QCOMPARE(browser->topLevelItems(), (QList<QtBrowserItem *>{first, second}));
        QCOMPARE(browser->topLevelItem(b), second);
        QCOMPARE(browser->topLevelItem(c), nullptr);
        QCOMPARE(browser->log, (QStringList{QStringLiteral("+a>-"), QStringLiteral("+b>a")}));
    }

    void insertProperty_firstAndBetween()
    {
        browser->addProperty(a);
        browser->insertProperty(b, nullptr);
        browser->insertProperty(c, b);
        QCOMPARE(browser->properties(), (QList<QtProperty *>{b, c, a}));
    }

    void addProperty_refusesNullAndTwice()
    {
        browser->addProperty(a);
        QVERIFY(!browser->addProperty(a));
        QVERIFY(!browser->addProperty(nullptr));
        QCOMPARE(browser->topLevelItems().size(), 1);
    }

    void clear_deletesNoProperty()
    {
        a->addSubProperty(b);
        browser->addProperty(a);
        browser->clear();
        QVERIFY(browser->properties().isEmpty());
        QVERIFY(browser->items(b).isEmpty());
        QCOMPARE(manager->properties().size(), 3);
        QCOMPARE(browser->log.mid(2), (QStringList{QStringLiteral("-b"), QStringLiteral("-a")}));
        a->setEnabled(false);
        QCOMPARE(browser->log.size(), 4);
        browser->addProperty(a);
        a->setEnabled(true);
        QCOMPARE(browser->log.last(), QStringLiteral("~a"));
    }

    void subRows_appearAndVanishAtAnyDepth()
    {
        browser->addProperty(a);
        a->addSubProperty(b);
        b->addSubProperty(c);
        QtProperty *d = row("d");
        b->insertSubProperty(d, nullptr);
        QCOMPARE(browser->log.mid(1), (QStringList{QStringLiteral("+b>-"), QStringLiteral("+c>-"),
                                                   QStringLiteral("+d>-")}));
        QtBrowserItem *item = browser->items(b).value(0);
        QCOMPARE(item->parent(), browser->topLevelItem(a));
        QCOMPARE(item->children().size(), 2);
        QCOMPARE(item->children().at(0)->property(), d);
        QCOMPARE(item->browser(), browser.data());
        browser->log.clear();
        a->removeSubProperty(b);
        QCOMPARE(browser->log,
                 (QStringList{QStringLiteral("-c"), QStringLiteral("-d"), QStringLiteral("-b")}));
        QVERIFY(browser->topLevelItem(a)->children().isEmpty());
    }

    void sharedRow_hasAnItemForEachPlace()
    {
        a->addSubProperty(c);
        b->addSubProperty(c);
        browser->addProperty(a);
        browser->addProperty(b);
        browser->addProperty(c);
        QCOMPARE(browser->items(c).size(), 3);
        browser->log.clear();
        c->setPropertyName(QStringLiteral("n"));
        QCOMPARE(browser->log.size(), 3);
        browser->removeProperty(c);
        QCOMPARE(browser->items(c).size(), 2);
        delete c;
        QVERIFY(browser->items(c).isEmpty());
        QVERIFY(browser->topLevelItem(a)->children().isEmpty());
    }

    void deletedRow_leavesWithItsSubRows()
    {
        a->addSubProperty(b);
        browser->addProperty(a);
        browser->addProperty(c);
        delete a;
        QCOMPARE(browser->properties(), QList<QtProperty *>{c});
        QVERIFY(browser->items(b).isEmpty());
    }

    void managerDeleted_emptiesTheBrowser()
    {
        browser->addProperty(a);
        manager.reset();
        QVERIFY(browser->topLevelItems().isEmpty());
    }

    void valueChange_changesTheItem()
    {
        browser->addProperty(a);
        browser->log.clear();
        a->setValue(4);
        QCOMPARE(browser->log, QStringList{QStringLiteral("~a")});
    }

    void currentItem_isToldOnceAndForgottenWithItsRow()
    {
        QtBrowserItem *item = browser->addProperty(a);
        LogBrowser other;
        QtBrowserItem *foreign = other.addProperty(b);
        QSignalSpy current(browser.data(), &QtAbstractPropertyBrowser::currentItemChanged);
        browser->setCurrentItem(item);
        browser->setCurrentItem(item);
        browser->setCurrentItem(foreign);
        QCOMPARE(current.count(), 1);
        QCOMPARE(browser->currentItem(), item);
        browser->removeProperty(a);
        QCOMPARE(current.count(), 2);
        QVERIFY(!browser->currentItem());
    }

    void currentItemSlot_mayClear()
    {
        a->addSubProperty(b);
        browser->addProperty(a);
        browser->addProperty(c);
        browser->setCurrentItem(browser->items(b).first());
        connect(browser.data(), &QtAbstractPropertyBrowser::currentItemChanged, this,
                [this] { browser->clear(); });
        a->removeSubProperty(b);
        QVERIFY(browser->topLevelItems().isEmpty());
    }

    void factories_serveTheirManager()
    {
        QtVariantEditorFactory factory;
        QWidget parent;
        QVERIFY(!browser->createEditor(a, &parent));
        browser->setFactoryForManager(manager.data(), &factory);
        QCOMPARE(factory.propertyManagers(), QSet<Manager *>{manager.data()});
        QVERIFY(qobject_cast<QSpinBox *>(browser->createEditor(a, &parent)));
        QVERIFY(!browser->createEditor(nullptr, &parent));
        browser->unsetFactoryForManager(manager.data());
        QVERIFY(!browser->createEditor(a, &parent));
    }

    void factoryDeleted_makesNoEditors()
    {
        QWidget parent;
        {
            QtVariantEditorFactory factory;
            browser->setFactoryForManager(manager.data(), &factory);
        }
        QVERIFY(!browser->createEditor(a, &parent));
    }

    void browserDeleted_rowsLiveOn()
    {
        browser->addProperty(a);
        browser.reset();
        a->setValue(3);
        a->addSubProperty(b);
        QCOMPARE(manager->properties().size(), 3);
    }

private:
    QtVariantProperty *row(const char *name)
    {
        return manager->addProperty(QMetaType::Int, QString::fromLatin1(name));
    }

    QScopedPointer<testsupport::WarningGuard> guard;
    QScopedPointer<Manager> manager;
    QScopedPointer<LogBrowser> browser;
    QtVariantProperty *a = nullptr;
    QtVariantProperty *b = nullptr;
    QtVariantProperty *c = nullptr;
};

QTEST_MAIN(tst_QtAbstractPropertyBrowser)
#include "tst_QtAbstractPropertyBrowser.moc"
