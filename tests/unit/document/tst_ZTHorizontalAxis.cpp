#include <ZTDrawEngineLib/document/ZTHorizontalAxis.h>

#include <QtGui/QImage>
#include <QtTest/QTest>

#include <limits>

namespace {

/** A ruler of 100 by 30 pixels whose extent a test may set. */
class OpenAxis : public ZTHorizontalAxis
{
public:
    OpenAxis()
    {
        resize(100, 30);
        setPixelsPerUnit(1.0);
    }

    void setLength(double ticks) { length = ticks; }

    QImage picture()
    {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(Qt::red);
        render(&image);
        return image;
    }
};

QRgb pixel(const QImage &image, int position, int across) { return image.pixel(position, across); }

const QRgb kWhite = qRgb(255, 255, 255);

} // namespace

class tst_ZTHorizontalAxis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutLength_isAWhiteStripWithItsBaseLine()
    {
        OpenAxis axis;
        const QImage image = axis.picture();
        for (int position = 0; position < 100; ++position) {
            QVERIFY(pixel(image, position, 29) != kWhite);
            for (int across = 0; across < 29; ++across)
                QCOMPARE(pixel(image, position, across), kWhite);
        }
    }

    void ticks_standEveryStep_majorOnesLonger()
    {
        OpenAxis axis;
        axis.setTickStep(5.0);
        axis.setLength(100.0);
        const QImage image = axis.picture();
        for (int position = 0; position < 100; ++position) {
            const bool isTick = position % 5 == 0;
            const bool isMajor = position % 50 == 0;
            QCOMPARE(pixel(image, position, 20) != kWhite, isTick);
            QCOMPARE(pixel(image, position, 15) != kWhite, isTick);
            QCOMPARE(pixel(image, position, 12) != kWhite, isMajor);
        }
    }

    void origin_shiftsTheTicks()
    {
        OpenAxis axis;
        axis.setTickStep(5.0);
        axis.setLength(100.0);
        axis.setOrigin(10.0); // two ticks on
        const QImage image = axis.picture();
        QVERIFY(pixel(image, 40, 12) != kWhite);
        QCOMPARE(pixel(image, 50, 12), kWhite);
    }

    void absurdSettings_endAtOnce()
    {
        OpenAxis axis;
        axis.setLength(std::numeric_limits<double>::infinity());
        axis.setTickStep(0.0);
        axis.picture();
        axis.setOrigin(1.0);
        axis.picture();
        axis.setPixelsPerUnit(0.0);
        axis.picture();
        axis.setPixelsPerUnit(std::numeric_limits<double>::quiet_NaN());
        axis.picture();
    }
};

QTEST_MAIN(tst_ZTHorizontalAxis)
#include "tst_ZTHorizontalAxis.moc"
