#include <ZTDrawEngineLib/document/ZTHorizontalAxis.h>
#include <ZTDrawEngineLib/document/ZTVerticalAxis.h>

#include <QtGui/QImage>
#include <QtTest/QTest>

#include <limits>
#include <memory>

namespace {

const QRgb kWhite = qRgb(255, 255, 255);

/** A ruler of 100 by 30 pixels along its axis, whose extent a test may set. */
class OpenRuler
{
public:
    virtual ~OpenRuler() = default;
    virtual ZTAbstractAxis &axis() = 0;
    virtual void setLength(double ticks) = 0;

    /** What the ruler shows; its pixels are told by their place along and across it. */
    void paint()
    {
        image = QImage(axis().size(), QImage::Format_RGB32);
        image.fill(Qt::red);
        axis().render(&image);
    }

    QRgb pixel(int along, int across) const
    {
        return isHorizontal ? image.pixel(along, across) : image.pixel(across, along);
    }

protected:
    explicit OpenRuler(bool horizontal) : isHorizontal(horizontal) {}

private:
    QImage image;
    bool isHorizontal;
};

template <typename Axis>
class OpenRulerOf : public Axis, public OpenRuler
{
public:
    explicit OpenRulerOf(bool horizontal) : OpenRuler(horizontal)
    {
        this->resize(horizontal ? QSize(100, 30) : QSize(30, 100));
        this->setPixelsPerUnit(1.0);
    }

    ZTAbstractAxis &axis() override { return *this; }
    void setLength(double ticks) override { this->length = ticks; }
};

} // namespace

/** Both rulers: one behaviour, along x and along y. */
class tst_ZTAxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("isHorizontal");
        QTest::newRow("horizontal") << true;
        QTest::newRow("vertical") << false;
    }

    void init()
    {
        QFETCH_GLOBAL(const bool, isHorizontal);
        if (isHorizontal)
            ruler = std::make_unique<OpenRulerOf<ZTHorizontalAxis>>(true);
        else
            ruler = std::make_unique<OpenRulerOf<ZTVerticalAxis>>(false);
    }

    void withoutLength_isAWhiteStripWithItsBaseLine()
    {
        ruler->paint();
        for (int along = 0; along < 100; ++along) {
            QVERIFY(ruler->pixel(along, 29) != kWhite);
            for (int across = 0; across < 29; ++across)
                QCOMPARE(ruler->pixel(along, across), kWhite);
        }
    }

    void ticks_standEveryStep_majorOnesLonger()
    {
        ruler->axis().setTickStep(5.0);
        ruler->setLength(100.0);
        ruler->paint();
        for (int along = 0; along < 100; ++along) {
            const bool isTick = along % 5 == 0;
            const bool isMajor = along % 50 == 0;
            QCOMPARE(ruler->pixel(along, 20) != kWhite, isTick);
            QCOMPARE(ruler->pixel(along, 15) != kWhite, isTick);
            QCOMPARE(ruler->pixel(along, 12) != kWhite, isMajor);
        }
    }

    void origin_shiftsTheTicks()
    {
        ruler->axis().setTickStep(5.0);
        ruler->setLength(100.0);
        ruler->axis().setOrigin(10.0); // two ticks on
        ruler->paint();
        QVERIFY(ruler->pixel(40, 12) != kWhite);
        QCOMPARE(ruler->pixel(50, 12), kWhite);
    }

    void downward_isAskedFor_andFlipsTheLabelsOfTheVerticalOne()
    {
        ZTVerticalAxis axis;
        axis.resize(30, 300);
        axis.setPixelsPerUnit(1.0);
        axis.setLength(300.0);
        QVERIFY(!axis.isDownward());
        const QImage upward = axis.grab().toImage();
        axis.setDownward(true);
        QVERIFY(axis.isDownward());
        // The label at 100 pixels loses its sign; that at 0 has none.
        const QImage downward = axis.grab().toImage();
        QVERIFY(downward != upward);
        QCOMPARE(downward.copy(0, 0, 30, 40), upward.copy(0, 0, 30, 40));
    }

    void absurdSettings_endAtOnce()
    {
        ruler->setLength(std::numeric_limits<double>::infinity());
        ruler->axis().setTickStep(0.0);
        ruler->paint();
        ruler->axis().setOrigin(1.0);
        ruler->paint();
        ruler->axis().setPixelsPerUnit(0.0);
        ruler->paint();
        ruler->axis().setPixelsPerUnit(std::numeric_limits<double>::quiet_NaN());
        ruler->paint();
    }

private:
    std::unique_ptr<OpenRuler> ruler;
};

QTEST_MAIN(tst_ZTAxes)
#include "tst_ZTAxes.moc"
