#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtAbstractPropertyManager.h>
#include <QtPropertyBrowser/QtProperty.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

Q_DECLARE_METATYPE(QtProperty *)

namespace {

class PlainManager : public QtAbstractPropertyManager
{
protected:
    void initializeProperty(QtProperty *) override {}
};

using Rows = QList<QtProperty *>;

} // namespace

class tst_QtProperty : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::WarningGuard);
        manager.reset(new PlainManager);
        a = manager->addProperty(QStringLiteral("a"));
        b = manager->addProperty(QStringLiteral("b"));
        c = manager->addProperty(QStringLiteral("c"));
    }

    void cleanup()
    {
        manager.reset();
        guard.reset();
    }

    void newRow_isEnabledUnmodifiedAndOnTop()
    {
        QCOMPARE(a->propertyName(), QStringLiteral("a"));
        QVERIFY(a->isEnabled());
        QVERIFY(!a->isModified());
        QVERIFY(a->subProperties().isEmpty());
        QVERIFY(a->parentProperty().isEmpty());
        QCOMPARE(a->propertyManager(), manager.data());
        QVERIFY(a->hasValue());
        QVERIFY(a->valueText().isEmpty());
        QVERIFY(a->valueIcon().isNull());
    }

    void setters_tellOnceAndOnlyWhatDiffers()
    {
        QSignalSpy changed(manager.data(), &QtAbstractPropertyManager::propertyChanged);
        a->setPropertyName(QStringLiteral("n"));
        a->setToolTip(QStringLiteral("t"));
        a->setStatusTip(QStringLiteral("s"));
        a->setWhatsThis(QStringLiteral("w"));
        a->setEnabled(false);
        a->setModified(true);
        QCOMPARE(changed.count(), 6);
        QCOMPARE(changed.first().first().value<QtProperty *>(), a);
        QCOMPARE(a->propertyName(), QStringLiteral("n"));
        QCOMPARE(a->toolTip(), QStringLiteral("t"));
        QCOMPARE(a->statusTip(), QStringLiteral("s"));
        QCOMPARE(a->whatsThis(), QStringLiteral("w"));
        QVERIFY(!a->isEnabled());
        QVERIFY(a->isModified());
        a->setPropertyName(QStringLiteral("n"));
        a->setEnabled(false);
        a->setModified(true);
        QCOMPARE(changed.count(), 6);
    }

    void addSubProperty_keepsTheOrderAndTellsThePlace()
    {
        QSignalSpy inserted(manager.data(), &QtAbstractPropertyManager::propertyInserted);
        a->addSubProperty(b);
        a->addSubProperty(c);
        QCOMPARE(a->subProperties(), (Rows{b, c}));
        QCOMPARE(inserted.count(), 2);
        QCOMPARE(inserted.at(0).at(2).value<QtProperty *>(), nullptr);
        QCOMPARE(inserted.at(1).at(0).value<QtProperty *>(), c);
        QCOMPARE(inserted.at(1).at(1).value<QtProperty *>(), a);
        QCOMPARE(inserted.at(1).at(2).value<QtProperty *>(), b);
    }

    void insertSubProperty_nullIsFirst_otherIsRightBehind()
    {
        a->addSubProperty(b);
        a->insertSubProperty(c, nullptr);
        QCOMPARE(a->subProperties(), (Rows{c, b}));
        QtProperty *d = manager->addProperty();
        a->insertSubProperty(d, c);
        QCOMPARE(a->subProperties(), (Rows{c, d, b}));
    }

    void insertSubProperty_refusesNullSelfDoubleAndCycle()
    {
        a->addSubProperty(b);
        b->addSubProperty(c);
        QSignalSpy inserted(manager.data(), &QtAbstractPropertyManager::propertyInserted);
        a->addSubProperty(nullptr);
        a->addSubProperty(a);
        a->addSubProperty(b);
        b->addSubProperty(a);
        c->addSubProperty(a);
        QCOMPARE(inserted.count(), 0);
        QCOMPARE(a->subProperties(), Rows{b});
        QVERIFY(c->subProperties().isEmpty());
        QVERIFY(a->parentProperty().isEmpty());
    }

    void parentProperty_listsDirectParentsInTheOrderGiven()
    {
        b->addSubProperty(c);
        a->addSubProperty(c);
        a->addSubProperty(b);
        QCOMPARE(c->parentProperty(), (Rows{b, a}));
        QCOMPARE(b->parentProperty(), Rows{a});
        QVERIFY(a->parentProperty().isEmpty());
    }

    void parentProperty_losesTheEntryOnRemovalAndDeletion()
    {
        a->addSubProperty(c);
        b->addSubProperty(c);
        a->removeSubProperty(c);
        QCOMPARE(c->parentProperty(), Rows{b});
        delete b;
        QVERIFY(c->parentProperty().isEmpty());
    }

    void removeSubProperty_deletesNothingAndIgnoresStrangers()
    {
        a->addSubProperty(b);
        QSignalSpy removed(manager.data(), &QtAbstractPropertyManager::propertyRemoved);
        a->removeSubProperty(c);
        a->removeSubProperty(nullptr);
        QCOMPARE(removed.count(), 0);
        a->removeSubProperty(b);
        QCOMPARE(removed.count(), 1);
        QCOMPARE(removed.first().at(0).value<QtProperty *>(), b);
        QCOMPARE(removed.first().at(1).value<QtProperty *>(), a);
        QVERIFY(a->subProperties().isEmpty());
        QCOMPARE(manager->properties().size(), 3);
    }

    void deletion_leavesEveryParentAndTellsTheManager()
    {
        a->addSubProperty(c);
        b->addSubProperty(c);
        QSignalSpy removed(manager.data(), &QtAbstractPropertyManager::propertyRemoved);
        QSignalSpy destroyed(manager.data(), &QtAbstractPropertyManager::propertyDestroyed);
        delete c;
        QCOMPARE(removed.count(), 2);
        QCOMPARE(destroyed.count(), 1);
        QVERIFY(a->subProperties().isEmpty());
        QVERIFY(b->subProperties().isEmpty());
        QCOMPARE(manager->properties(), (QSet<QtProperty *>{a, b}));
    }

private:
    QScopedPointer<testsupport::WarningGuard> guard;
    QScopedPointer<PlainManager> manager;
    QtProperty *a = nullptr;
    QtProperty *b = nullptr;
    QtProperty *c = nullptr;
};

QTEST_MAIN(tst_QtProperty)
#include "tst_QtProperty.moc"
