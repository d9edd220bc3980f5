#include <ZTDrawEngineLib/model/Halving_p.h>

#include <QtTest/QTest>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

namespace {

/** Halves and tells where; -1 where items stand on the wrong side, or are others than before. */
int halved(std::vector<int> numbers)
{
    std::vector<int> before = numbers;
    int *const begin = numbers.data();
    int *const end = begin + numbers.size();
    int *const middle = halve(begin, end, [](int a, int b) { return a < b; });
    const bool isSplit =
        std::all_of(begin, middle, [middle](int number) { return number < *middle; }) &&
        std::all_of(middle, end, [middle](int number) { return number >= *middle; });
    std::sort(before.begin(), before.end());
    std::sort(numbers.begin(), numbers.end());
    return isSplit && before == numbers ? static_cast<int>(middle - begin) : -1;
}

std::vector<int> counted(int count)
{
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

} // namespace

class tst_Halving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fewItems_areHalvedExactly()
    {
        std::mt19937 random(1);
        for (int count = 1; count < 32; ++count) {
            std::vector<int> numbers = counted(count);
            std::shuffle(numbers.begin(), numbers.end(), random);
            QCOMPARE(halved(numbers), count / 2);
        }
    }

    void manyItems_areHalvedToWithinAFifth()
    {
        std::mt19937 random(2);
        for (int count = 32; count < 2000; count += 7) {
            std::vector<int> numbers = counted(count);
            std::shuffle(numbers.begin(), numbers.end(), random);
            const int middle = halved(numbers);
            QVERIFY2(std::abs(middle - count / 2) <= count / 5, qPrintable(QString::number(count)));
        }
    }

    void itemsInOrder_areHalved()
    {
        std::vector<int> numbers = counted(1000);
        QVERIFY(std::abs(halved(numbers) - 500) <= 200);
        std::reverse(numbers.begin(), numbers.end());
        QVERIFY(std::abs(halved(numbers) - 500) <= 200);
    }

    /** The sample is taken evenly: with the least items there, its middle is far off. */
    void sampleOfTheLeastItems_isNotTaken()
    {
        constexpr int kCount = 1500;
        std::vector<int> numbers = counted(kCount);
        std::reverse(numbers.begin(), numbers.end());
        for (int i = 0; i < 15; ++i)
            std::swap(numbers[static_cast<std::size_t>(kCount * i / 15)],
                      numbers[static_cast<std::size_t>(kCount - 1 - i)]);
        QCOMPARE(halved(numbers), kCount / 2);
    }
};

QTEST_APPLESS_MAIN(tst_Halving)
#include "tst_Halving.moc"
