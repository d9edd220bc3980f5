#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <hostkit/items/TextItem.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <memory>

namespace {

std::unique_ptr<ZTAbstractGraphicsItem> made(const char *kind)
{
    return std::unique_ptr<ZTAbstractGraphicsItem>(ZTGraphicsItemFactory::create(kind));
}

const ZTVecGraph &graphicOf(const std::unique_ptr<ZTAbstractGraphicsItem> &item)
{
    return dynamic_cast<const ZTVecGraph &>(*item->getShapeBase());
}

} // namespace

class tst_Factories : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        singletons.reset(new testsupport::SingletonGuard);
    }
    void cleanup()
    {
        singletons.reset();
        warnings.reset();
    }

    void everyKindOfTheLibrary_isMade_data()
    {
        QTest::addColumn<QByteArray>("kind");
        for (const char *kind : {"Rect", "Ellipse", "Polygon", "Line", "TDOT", "VecGraph"})
            QTest::newRow(kind) << QByteArray(kind);
    }
    void everyKindOfTheLibrary_isMade()
    {
        QFETCH(QByteArray, kind);
        QVERIFY(made(kind.constData()) != nullptr);
    }

    void secondCall_changesNothing()
    {
        hostkit::registerFactories();
        QVERIFY(made("Rect") != nullptr);
    }

    void text_standsAtItsOwnHeight()
    {
        const auto item = made("Text");
        warnings->take(); // no stroke fonts beside this program
        QVERIFY(dynamic_cast<hostkit::TextShape *>(item->getShapeBase()) != nullptr);
    }

    void importWithoutAFile_isEmptyAndLogsNothing()
    {
        const auto item = made("VecGraph");
        QVERIFY(graphicOf(item).getImagePath().isEmpty());
        QVERIFY(graphicOf(item).getDrawing().isEmpty());
        QVERIFY(warnings->take().isEmpty());
    }

    void import_takesTheFileOfTheLibrarysFactory_once()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("a.plt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("PU0 0;\nPD100 0;\nPD100 50;\n");
        file.close();
        ZTVecGraphItemFactory::getInstance()->setPath(file.fileName());
        const auto first = made("VecGraph");
        QCOMPARE(graphicOf(first).getImagePath(), file.fileName());
        QVERIFY(!graphicOf(first).getDrawing().isEmpty());
        QVERIFY(graphicOf(made("VecGraph")).getImagePath().isEmpty());
    }

private:
    QScopedPointer<testsupport::WarningGuard> warnings;
    QScopedPointer<testsupport::SingletonGuard> singletons;
};

QTEST_MAIN(tst_Factories)
#include "tst_Factories.moc"
