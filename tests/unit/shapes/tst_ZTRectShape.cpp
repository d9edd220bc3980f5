#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/shapes/ZTRectShape.h>

#include <QtTest/QTest>

class tst_ZTRectShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paint_defaults_givesASquareOfTenMillimetres()
    {
        const testsupport::SingletonGuard guard;
        ZTRectShape shape;
        shape.paint();
        const double side = 10 * (900.0 / 193.0);
        QCOMPARE(shape.controlPointRect(), QRectF(0, 0, side, side));
    }
};

QTEST_GUILESS_MAIN(tst_ZTRectShape)
#include "tst_ZTRectShape.moc"
