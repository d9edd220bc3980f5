#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>
#include <ZTDrawEngineLib/items/ZTGraphicsVecGraph_p.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

class tst_ZTGraphicsVecGraph : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void newItem_hasAShapeWithoutFile()
    {
        const ZTGraphicsVecGraph item;
        const auto *shape = dynamic_cast<ZTVecGraph *>(item.getShapeBase());
        QVERIFY(shape != nullptr);
        QCOMPARE(shape->getImagePath(), QString());
        QCOMPARE(item.metaObject()->propertyCount(), item.metaObject()->propertyOffset());
    }

    void setImagePath_readsTheFile()
    {
        ZTGraphicsVecGraph item;
        item.setImagePath(drawing("PU0 0;\nPD100 0;\nPD100 50;\n"));
        item.getShapeBase()->paint();
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 400, 200));
    }

    void copy_readsTheFileAnew_andKeepsTheId()
    {
        ZTGraphicsVecGraph source;
        source.setImagePath(drawing("PU0 0;\nPD100 0;\nPD100 50;\n"));
        source.getShapeBase()->paint();
        source.getShapeBase()->setId(5);
        drawing("PU0 0;\nPD50 0;\nPD50 50;\n");

        ZTGraphicsVecGraph item;
        item.getShapeBase()->setId(9);
        item.copy(&source);
        QCOMPARE(item.getShapeBase()->getId(), 9);
        QVERIFY(!item.getShapeBase()->isUpdate());
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 200, 200));
        QCOMPARE(source.boundingRect(), QRectF(0, 0, 400, 200));
    }

    void copy_ofItselfOrAnotherKind_isHarmless()
    {
        ZTGraphicsVecGraph item;
        item.setImagePath(drawing("PU0 0;\nPD100 0;\nPD100 50;\n"));
        item.copy(&item);
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 400, 200));
        ZTGraphicsRectItem other;
        item.copy(&other);
        item.copy(nullptr);
        QVERIFY(dynamic_cast<ZTVecGraph *>(item.getShapeBase()) != nullptr);
    }

private:
    QString drawing(const char *text)
    {
        const QString path = dir.filePath(QStringLiteral("drawing.plt"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) < 0)
            qFatal("cannot write the drawing");
        return path;
    }

    QTemporaryDir dir;
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTGraphicsVecGraph)
#include "tst_ZTGraphicsVecGraph.moc"
