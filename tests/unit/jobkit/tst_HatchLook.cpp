#include <hostkit/items/HatchLook.h>
#include <hostkit/items/ItemHatches.h>
#include <hostkit/setup/Factories.h>
#include <jobkit/items/HatchedItems.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QGraphicsView>

/** How pale hatches look in a view, and only there. */
class tst_HatchLook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        jobkit::registerHatchedFactories();
        hostkit::registerFactories();
    }

    void init()
    {
        document = std::make_unique<ZTGraphicsDocument>();
        item = document->itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 40, 40));
        ZTFillParam fill;
        fill.fillType = FillType::Line;
        fill.spac = 5.0;
        item->setFillParam(fill);
        item->setPenId(2);
    }
    void cleanup() { document.reset(); }

    void pen_isMixedWithWhite()
    {
        const QColor full = ZTAbstractGraphicsItem::screenPen(2).color();
        QCOMPARE(hostkit::hatchPen(2, 1.0).color(), full);
        QCOMPARE(hostkit::hatchPen(2, 0.0).color(), QColor(Qt::white));
        const QColor half = hostkit::hatchPen(2, 0.5).color();
        QCOMPARE(half.red(), qRound((full.red() + 255) / 2.0));
        QCOMPARE(half.blue(), qRound((full.blue() + 255) / 2.0));
        QCOMPARE(hostkit::hatchPen(2, 0.5).widthF(), ZTAbstractGraphicsItem::screenPen(2).widthF());
    }

    void onlyTheViewThatAsks_isPaler()
    {
        QWidget other;
        QCOMPARE(hostkit::hatchStrength(nullptr), 1.0);
        QCOMPARE(hostkit::hatchStrength(&other), 1.0);
        hostkit::setHatchStrength(*document->view(), 0.4);
        QCOMPARE(hostkit::hatchStrength(document->view()->viewport()), 0.4);
        hostkit::setHatchStrength(*document->view(), 7.0);
        QCOMPARE(hostkit::hatchStrength(document->view()->viewport()), 1.0);
    }

    void hatchIsPaler_outlineIsNot_picturesAreAsEver()
    {
        const QImage before = painted(nullptr);
        const QImage beforeInView = painted(document->view()->viewport());
        QCOMPARE(beforeInView, before);
        hostkit::setHatchStrength(*document->view(), 0.4);
        QCOMPARE(painted(nullptr), before);
        const QImage pale = painted(document->view()->viewport());
        const QRgb full = ZTAbstractGraphicsItem::screenPen(2).color().rgb();
        const QRgb paled = hostkit::hatchPen(2, 0.4).color().rgb();
        QVERIFY(count(before, full) > 0);
        QCOMPARE(count(before, paled), 0);
        QVERIFY(count(pale, paled) > 0);
        // The outline stands upon the hatch, and no pixel of it is lost.
        QVERIFY(count(pale, full) > 100);
        QVERIFY(count(pale, full) < count(before, full));
        ZTFillParam hatchAlone = item->getFillParam();
        hatchAlone.isEnableBorder = false;
        item->setFillParam(hatchAlone);
        QCOMPARE(count(painted(document->view()->viewport()), full), 0);
    }

    void hatchInAPenOfItsOwn_isPaledInThatPen()
    {
        hostkit::ShapeHatch hatch;
        hatch.pen = 5;
        hatch.spacingMm = 2.0;
        ZTFillParam fill = item->getFillParam();
        hostkit::ItemExtras extras = hostkit::itemExtras(*item);
        hostkit::setHatches({hatch}, &fill, &extras);
        hostkit::setItemExtras(*item, extras);
        item->setFillParam(fill);
        hostkit::setHatchStrength(*document->view(), 0.4);
        const QImage image = painted(document->view()->viewport());
        QVERIFY(count(image, hostkit::hatchPen(5, 0.4).color().rgb()) > 0);
        QCOMPARE(count(image, hostkit::hatchPen(2, 0.4).color().rgb()), 0);
    }

private:
    QImage painted(QWidget *on)
    {
        QImage image(260, 260, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(20.0, 20.0);
        item->paint(&painter, nullptr, on);
        return image;
    }

    static int count(const QImage &image, QRgb colour)
    {
        int pixels = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                pixels += (image.pixel(x, y) & RGB_MASK) == (colour & RGB_MASK) ? 1 : 0;
        }
        return pixels;
    }

    std::unique_ptr<ZTGraphicsDocument> document;
    ZTAbstractGraphicsItem *item = nullptr;
};

QTEST_MAIN(tst_HatchLook)
#include "tst_HatchLook.moc"
