#include <support/SingletonGuard.h>

#include <hostkit/marks/DrawingPicture.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <memory>

namespace {

/** A square of 10 mm from the origin on. */
void addSquare(ZTGraphicsDocument &document)
{
    ZTAbstractGraphicsItem *item =
        document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
    item->setPos(0.0, 0.0);
}

int darkPixels(const QImage &image, const QRect &where)
{
    int count = 0;
    for (int y = where.top(); y <= where.bottom(); ++y) {
        for (int x = where.left(); x <= where.right(); ++x)
            count += qGray(image.pixel(x, y)) < 250 ? 1 : 0;
    }
    return count;
}

} // namespace

class tst_DrawingPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        folder.reset(new QTemporaryDir);
    }
    void cleanup() { guard.reset(); }

    void square_isAFrameOnWhite()
    {
        ZTGraphicsDocument document;
        addSquare(document);
        document.scene()->clearSelection();
        hostkit::Failure failure;
        QVERIFY2(hostkit::saveDrawingPicture(document, 200, path(), &failure),
                 qPrintable(failure.reason));
        const QImage image(path());
        QCOMPARE(image.size(), QSize(200, 200));
        QCOMPARE(image.pixel(0, 0), qRgb(255, 255, 255));
        QCOMPARE(image.pixel(199, 199), qRgb(255, 255, 255));
        QCOMPARE(darkPixels(image, {40, 40, 120, 120}), 0);
        QVERIFY(darkPixels(image, {0, 100, 40, 1}) > 0);   // the left edge
        QVERIFY(darkPixels(image, {160, 100, 40, 1}) > 0); // the right edge
        QVERIFY(darkPixels(image, image.rect()) < 4 * 200 * 3);
    }

    void selection_isNotShown()
    {
        ZTGraphicsDocument document;
        addSquare(document);
        document.scene()->clearSelection();
        QVERIFY(hostkit::saveDrawingPicture(document, 100, path(), nullptr));
        const QImage plain(path());
        for (QGraphicsItem *item : document.scene()->items())
            item->setSelected(true);
        QVERIFY(hostkit::saveDrawingPicture(document, 100, path(), nullptr));
        QCOMPARE(QImage(path()), plain);
    }

    void nothing_isNotDrawn()
    {
        const ZTGraphicsDocument document;
        hostkit::Failure failure;
        QVERIFY(!hostkit::saveDrawingPicture(document, 100, path(), &failure));
        QCOMPARE(failure.reason, QStringLiteral("nothing to draw"));
        QVERIFY(failure.kind == hostkit::Failure::Kind::NotPossible);
        QVERIFY(!hostkit::saveDrawingPicture(document, 100, path(), nullptr));
        QVERIFY(!QFile::exists(path()));
    }

    void unwritablePlace_isTold()
    {
        ZTGraphicsDocument document;
        addSquare(document);
        hostkit::Failure failure;
        const QString noFolder = folder->path() + QStringLiteral("/none/out.png");
        QVERIFY(!hostkit::saveDrawingPicture(document, 100, noFolder, &failure));
        QCOMPARE(failure.reason, QStringLiteral("the folder does not exist"));
        QVERIFY(failure.kind == hostkit::Failure::Kind::CannotWrite);
    }

private:
    QString path() const { return folder->path() + QStringLiteral("/out.png"); }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_MAIN(tst_DrawingPicture)
#include "tst_DrawingPicture.moc"
