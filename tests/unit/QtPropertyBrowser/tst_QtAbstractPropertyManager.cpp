#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtAbstractPropertyManager.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

namespace {

/** Holds a text of its own for each row, and counts what it is told. */
class TextManager : public QtAbstractPropertyManager
{
public:
    ~TextManager() override { clear(); }

    QHash<const QtProperty *, QString> texts;
    int ended = 0;
    bool makesNone = false;

protected:
    QString valueText(const QtProperty *property) const override { return texts.value(property); }
    bool hasValue(const QtProperty *property) const override { return texts.contains(property); }
    void initializeProperty(QtProperty *property) override
    {
        texts.insert(property, property->propertyName().toUpper());
    }
    void uninitializeProperty(QtProperty *property) override
    {
        texts.remove(property);
        ++ended;
    }
    QtProperty *createProperty() override
    {
        return makesNone ? nullptr : QtAbstractPropertyManager::createProperty();
    }
};

} // namespace

class tst_QtAbstractPropertyManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::WarningGuard); }
    void cleanup() { guard.reset(); }

    void addProperty_namesBeforeItInitializes()
    {
        TextManager manager;
        QtProperty *row = manager.addProperty(QStringLiteral("abc"));
        QCOMPARE(row->valueText(), QStringLiteral("ABC"));
        QVERIFY(row->hasValue());
        QCOMPARE(manager.properties(), QSet<QtProperty *>{row});
        QCOMPARE(manager.addProperty()->propertyName(), QString());
    }

    void addProperty_withoutARow_givesNull()
    {
        TextManager manager;
        manager.makesNone = true;
        QVERIFY(!manager.addProperty(QStringLiteral("x")));
        QVERIFY(manager.properties().isEmpty());
    }

    void addProperty_rowOfAnotherManager_isRefused()
    {
        TextManager other;
        class Thief : public TextManager
        {
        public:
            QtAbstractPropertyManager *victim = nullptr;

        protected:
            QtProperty *createProperty() override { return victim->addProperty(); }
        };
        Thief thief;
        thief.victim = &other;
        QVERIFY(!thief.addProperty());
        QVERIFY(thief.properties().isEmpty());
        QVERIFY(other.properties().isEmpty());
    }

    void clear_deletesEveryRowAndTellsSo()
    {
        TextManager manager;
        QtProperty *top = manager.addProperty();
        QtProperty *sub = manager.addProperty();
        top->addSubProperty(sub);
        manager.addProperty();
        QSignalSpy destroyed(&manager, &QtAbstractPropertyManager::propertyDestroyed);
        manager.clear();
        QCOMPARE(destroyed.count(), 3);
        QCOMPARE(manager.ended, 3);
        QVERIFY(manager.properties().isEmpty());
        QVERIFY(manager.texts.isEmpty());
        manager.clear();
        QCOMPARE(destroyed.count(), 3);
    }

    void destructor_deletesEveryRow()
    {
        auto *manager = new TextManager;
        auto *other = new TextManager;
        QtProperty *foreign = other->addProperty();
        foreign->addSubProperty(manager->addProperty());
        delete manager;
        QVERIFY(foreign->subProperties().isEmpty());
        delete other;
    }

    void deletedRow_isUninitializedOnce()
    {
        TextManager manager;
        delete manager.addProperty();
        QCOMPARE(manager.ended, 1);
        QVERIFY(manager.texts.isEmpty());
    }

private:
    QScopedPointer<testsupport::WarningGuard> guard;
};

QTEST_MAIN(tst_QtAbstractPropertyManager)
#include "tst_QtAbstractPropertyManager.moc"
