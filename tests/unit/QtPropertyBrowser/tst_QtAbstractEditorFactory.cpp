#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtAbstractEditorFactory.h>

#include <QtTest/QTest>
#include <QtWidgets/QLabel>

namespace {

class PlainManager : public QtAbstractPropertyManager
{
protected:
    void initializeProperty(QtProperty *) override {}
};

class LabelFactory : public QtAbstractEditorFactory<PlainManager>
{
public:
    using QtAbstractEditorFactory::createEditor;

    int connected = 0;
    int disconnected = 0;

protected:
    QWidget *createEditor(PlainManager *, QtProperty *property, QWidget *parent) override
    {
        return new QLabel(property->propertyName(), parent);
    }
    void connectPropertyManager(PlainManager *) override { ++connected; }
    void disconnectPropertyManager(PlainManager *) override { ++disconnected; }
};

} // namespace

class tst_QtAbstractEditorFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::WarningGuard); }
    void cleanup() { guard.reset(); }

    void createEditor_servesRowsOfItsManagersOnly()
    {
        LabelFactory factory;
        PlainManager mine;
        PlainManager other;
        factory.addPropertyManager(&mine);
        factory.addPropertyManager(&mine);
        factory.addPropertyManager(nullptr);
        QCOMPARE(factory.connected, 1);
        QCOMPARE(factory.propertyManagers(), QSet<PlainManager *>{&mine});
        QtAbstractEditorFactoryBase &base = factory;
        QWidget parent;
        QWidget *editor = base.createEditor(mine.addProperty(QStringLiteral("n")), &parent);
        QVERIFY(editor);
        QCOMPARE(editor->parentWidget(), &parent);
        QCOMPARE(qobject_cast<QLabel *>(editor)->text(), QStringLiteral("n"));
        QVERIFY(!base.createEditor(other.addProperty(), &parent));
        QVERIFY(!base.createEditor(nullptr, &parent));
    }

    void removePropertyManager_endsTheService()
    {
        LabelFactory factory;
        PlainManager manager;
        factory.addPropertyManager(&manager);
        factory.removePropertyManager(&manager);
        factory.removePropertyManager(&manager);
        QCOMPARE(factory.disconnected, 1);
        QVERIFY(factory.propertyManagers().isEmpty());
        QVERIFY(!factory.createEditor(manager.addProperty(), nullptr));
    }

    void destroyedManager_isForgotten()
    {
        LabelFactory factory;
        {
            PlainManager manager;
            factory.addPropertyManager(&manager);
        }
        QVERIFY(factory.propertyManagers().isEmpty());
    }

private:
    QScopedPointer<testsupport::WarningGuard> guard;
};

QTEST_MAIN(tst_QtAbstractEditorFactory)
#include "tst_QtAbstractEditorFactory.moc"
