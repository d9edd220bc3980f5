// What a hatch takes from the store of memory, and what it does where there is none left. In a
// program of its own: it stands in for the store.

#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtGui/QPainterPath>
#include <QtTest/QTest>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> largestRequest{0};
std::atomic<std::size_t> largestGranted{SIZE_MAX};

} // namespace

void *operator new(std::size_t size)
{
    std::size_t largest = largestRequest;
    while (size > largest && !largestRequest.compare_exchange_weak(largest, size)) {
    }
    void *memory = size <= largestGranted ? std::malloc(size) : nullptr;
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    try {
        return operator new(size);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

void operator delete(void *memory) noexcept { std::free(memory); }
void operator delete(void *memory, const std::nothrow_t &) noexcept { std::free(memory); }
void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }

namespace {

class GivenShape : public ZTShapeBase
{
public:
    void paint() override {}
    using ZTShapeBase::getPath;
    using ZTShapeBase::setFillLines;
    using ZTShapeBase::setLines;
};

constexpr int kVanishingEdges = 200;

/** A square, and in its corner edges so short that their place is lost in rounding. */
QPainterPath squareWithDust()
{
    QPainterPath path;
    path.addRect(0.0, 0.0, 1000.0, 1000.0);
    path.moveTo(0.0, 0.0);
    for (int i = 1; i <= kVanishingEdges; ++i)
        path.lineTo(i, 0.0);
    for (int i = 1; i <= kVanishingEdges; ++i)
        path.setElementPositionAt(5 + i, i % 2 == 0 ? 0.0 : 1e-120, 0.0);
    return path;
}

} // namespace

class tst_HatchMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fillULine_edgesThatMightMeetAnything_takesWhatItsLinesNeed_data()
    {
        QTest::addColumn<bool>("isZigzag");
        QTest::newRow("lines") << false;
        QTest::newRow("zigzag") << true;
    }

    void fillULine_edgesThatMightMeetAnything_takesWhatItsLinesNeed()
    {
        QFETCH(bool, isZigzag);
        GivenShape shape;
        shape.setLines(squareWithDust());
        largestRequest = 0;
        shape.fillULine(isZigzag ? FillType::ULine : FillType::Line, 0.1, 0.0);
        const int count = shape.getFillLines().size();
        QVERIFY(count >= 9990);
        QVERIFY2(shape.getFillLines().capacity() <= 2 * count,
                 qPrintable(QString::number(shape.getFillLines().capacity())));
        // Twenty thousand lines at most, none of the working records beyond 100 bytes a line.
        QVERIFY2(largestRequest <= 2'000'000, qPrintable(QString::number(largestRequest)));
    }

    void fillULine_plainSquare_keepsNoRoomBesideItsLines()
    {
        GivenShape shape;
        QPainterPath path;
        path.addRect(0.0, 0.0, 1000.0, 1000.0);
        shape.setLines(path);
        for (const FillType type : {FillType::Line, FillType::ULine}) {
            shape.fillULine(type, 0.01, 0.0);
            const int count = shape.getFillLines().size();
            QVERIFY(count >= 99990);
            QVERIFY2(shape.getFillLines().capacity() <= count + count / 8,
                     qPrintable(QString::number(shape.getFillLines().capacity())));
        }
    }

    void fillLine_noMemoryLeft_givesNoHatchAndSaysSo()
    {
        testsupport::WarningGuard warnings;
        GivenShape shape;
        shape.getPath().addRect(0.0, 0.0, 100.0, 100.0);
        ZTFillParam fill;
        fill.spac = 0.001;
        shape.setFillParam(fill);
        shape.setFillLines({QLineF(1, 2, 3, 4)});
        largestGranted = 100'000;
        shape.fillLine();
        largestGranted = SIZE_MAX;
        QVERIFY(shape.getFillLines().isEmpty());
        QCOMPARE(warnings.take(), QStringList{QStringLiteral("no hatch: not enough memory")});

        shape.fillLine();
        QVERIFY(shape.getFillLines().size() > 99'000);
    }
};

QTEST_MAIN(tst_HatchMemory)
#include "tst_HatchMemory.moc"
