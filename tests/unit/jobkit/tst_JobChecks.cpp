#include <jobkit/checks/JobChecks.h>

#include <jobkit/hatch/AreaHatch.h>

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

#include <cmath>

using namespace jobkit;

namespace {

QPolygonF polygon(const QVector<QPointF> &points) { return {points}; }

JobItem item(int object, const QVector<QPointF> &outline)
{
    JobItem made;
    made.object = object;
    made.name = QStringLiteral("shape %1").arg(object);
    made.outlinesMm = {polygon(outline)};
    return made;
}

JobItem square(int object, double x, double y, double size)
{
    return item(object, {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}, {x, y}});
}

MachineProfile machine()
{
    MachineProfile profile;
    profile.fieldWidthMm = 100.0;
    profile.fieldHeightMm = 60.0;
    profile.mostSpeedMmPerS = 1000.0;
    return profile;
}

QVector<JobFinding> check(const QVector<JobItem> &items, const CheckLimits &limits = {})
{
    return checkJob(items, defaultPens(), machine(), limits);
}

} // namespace

class tst_JobChecks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanJob_hasNoFinding();
    void nothing_isTold();
    void outsideField_isToldOnceAnObjectWithPlace();
    void fastAndSwitchedOffPens_areTold();
    void pensWithoutValues_areToldOnceAPen();
    void overlaps_data();
    void overlaps();
    void overlaps_ofOneObject_nameItOnce();
    void zeroLengthAndBadNumbers_areTold();
    void closeHatch_isTold();
    void textTroubles_areTold();
    void manyFindings_areLimited();
    void manyLines_areCheckedInTime();
};

void tst_JobChecks::cleanJob_hasNoFinding()
{
    JobItem hatched = square(2, 20, 0, 10);
    JobHatch hatch;
    hatch.runsMm = lineHatch({hatched.outlinesMm.first()}, {0.1});
    hatched.hatches.append(hatch);
    QVERIFY(check({square(0, -50, -30, 10), square(1, 0, 0, 10), hatched}).isEmpty());
}

void tst_JobChecks::nothing_isTold()
{
    const QVector<JobFinding> findings = check({});
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings[0].kind, FindingKind::NothingToMark);
    QCOMPARE(findings[0].object, -1);
}

void tst_JobChecks::outsideField_isToldOnceAnObjectWithPlace()
{
    const QVector<JobFinding> findings = check({square(4, 0, 0, 10), square(7, 45, 0, 10)});
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings[0].kind, FindingKind::OutsideField);
    QCOMPARE(findings[0].object, 7);
    QCOMPARE(findings[0].atMm, QPointF(55, 0));
    QCOMPARE(findings[0].text, QStringLiteral("\"shape 7\" reaches beyond the field."));
    // To the very edge is inside, and so is what sums of lengths are off by.
    QVERIFY(check({square(1, 40.0 + 1e-9, 0, 10)}).isEmpty());
    QCOMPARE(check({square(1, 40.0 + 1e-5, 0, 10)}).size(), 1);
}

void tst_JobChecks::fastAndSwitchedOffPens_areTold()
{
    QVector<Pen> pens = defaultPens();
    pens[1].speedMmPerS = 1500.0;
    pens[2].isOn = false;
    JobItem fast = square(1, 0, 0, 5);
    fast.pen = 2;
    JobItem off = square(2, 10, 0, 5);
    off.pen = 3;
    const QVector<JobFinding> findings = checkJob({fast, off}, pens, machine());
    QCOMPARE(findings.size(), 2);
    QCOMPARE(findings[0].kind, FindingKind::TooFast);
    QCOMPARE(findings[0].object, 1);
    QCOMPARE(findings[0].text,
             QStringLiteral("Pen 2 of \"shape 1\" asks for 1500 mm/s, the machine "
                            "goes no faster than 1000."));
    QCOMPARE(findings[1].kind, FindingKind::PenOff);
    QCOMPARE(findings[1].object, 2);
    QCOMPARE(findings[1].atMm, QPointF(10, 0));
}

// No list, and a list that lacks a pen: what marks then is said, no faster than the machine.
void tst_JobChecks::pensWithoutValues_areToldOnceAPen()
{
    MachineProfile slow = machine();
    slow.mostSpeedMmPerS = 120.0;
    JobItem other = square(3, 20, 0, 5);
    other.pen = 7;
    const QVector<JobItem> items{square(1, 0, 0, 5), square(2, 10, 0, 5), other};
    const QVector<JobFinding> all = checkJob(items, {}, slow);
    QCOMPARE(all.size(), 2);
    QCOMPARE(all[0].kind, FindingKind::PenWithoutValues);
    QCOMPARE(all[0].object, 1);
    QCOMPARE(all[0].text, QStringLiteral("Pen 1 of \"shape 1\" was given no values: it marks with "
                                         "120 mm/s and 50 % power."));
    QCOMPARE(all[1].object, 3);
    QCOMPARE(all[1].atMm, QPointF(20, 0));
    const QVector<JobFinding> lacking = checkJob(items, {defaultPen(1)}, machine());
    QCOMPARE(lacking.size(), 1);
    QCOMPARE(lacking[0].text, QStringLiteral("Pen 7 of \"shape 3\" was given no values: it marks "
                                             "with 500 mm/s and 50 % power."));
}

void tst_JobChecks::overlaps_data()
{
    QTest::addColumn<QVector<QPointF>>("first");
    QTest::addColumn<QVector<QPointF>>("second");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QPointF>("at");
    const int none = -1;
    const int whole = static_cast<int>(FindingKind::DoubledLine);
    const int part = static_cast<int>(FindingKind::CoveredLine);
    const auto row = [](const char *name, const QVector<QPointF> &first,
                        const QVector<QPointF> &second, int kind, const QPointF &at = {}) {
        QTest::newRow(name) << first << second << kind << at;
    };
    row("same", {{0, 0}, {10, 5}}, {{0, 0}, {10, 5}}, whole, {5, 2.5});
    row("same, backward", {{0, 0}, {10, 5}}, {{10, 5}, {0, 0}}, whole, {5, 2.5});
    row("within", {{0, 0}, {10, 0}}, {{4, 0}, {6, 0}}, part, {5, 0});
    row("beyond", {{0, 0}, {10, 0}}, {{8, 0}, {18, 0}}, part, {9, 0});
    row("upright", {{3, -20}, {3, 20}}, {{3, 4}, {3, 6}}, part, {3, 5});
    row("half a micrometre off", {{0, 0}, {10, 0}}, {{4, 0.0005}, {6, 0.0005}}, part, {5, 0});
    row("two micrometres off", {{0, 0}, {10, 0}}, {{4, 0.002}, {6, 0.002}}, none);
    row("end to end", {{0, 0}, {10, 0}}, {{10, 0}, {20, 0}}, none);
    row("crossing", {{0, 0}, {10, 0}}, {{5, -5}, {5, 5}}, none);
    row("sharp angle", {{0, 0}, {10, 0}}, {{0, 0}, {10, 0.1}}, none);
}

void tst_JobChecks::overlaps()
{
    QFETCH(QVector<QPointF>, first);
    QFETCH(QVector<QPointF>, second);
    QFETCH(int, kind);
    QFETCH(QPointF, at);
    const QVector<JobFinding> findings = check({item(3, first), item(8, second)});
    QCOMPARE(findings.size(), kind < 0 ? 0 : 1);
    if (kind < 0)
        return;
    QCOMPARE(static_cast<int>(findings[0].kind), kind);
    QCOMPARE(findings[0].object, 3);
    QCOMPARE(findings[0].otherObject, 8);
    QVERIFY(std::hypot(findings[0].atMm.x() - at.x(), findings[0].atMm.y() - at.y()) < 0.002);
}

void tst_JobChecks::overlaps_ofOneObject_nameItOnce()
{
    JobItem item;
    item.name = QStringLiteral("A");
    item.outlinesMm = {QPolygonF(QVector<QPointF>{{0, 0}, {10, 5}}),
                       QPolygonF(QVector<QPointF>{{10, 5}, {0, 0}})};
    QCOMPARE(check({item}).first().text, QStringLiteral("\"A\" has a line that lies twice."));
    item.outlinesMm[1] = QPolygonF(QVector<QPointF>{{4, 2}, {6, 3}});
    QCOMPARE(check({item}).first().text,
             QStringLiteral("\"A\" has lines that cover each other in part."));
}

void tst_JobChecks::zeroLengthAndBadNumbers_areTold()
{
    JobItem bad = item(2, {{0, 0}, {std::nan(""), 1}});
    const QVector<JobFinding> findings = check({item(1, {{5, 5}, {5, 5}}), bad});
    QCOMPARE(findings.size(), 2);
    QCOMPARE(findings[0].kind, FindingKind::ZeroLength);
    QCOMPARE(findings[0].object, 1);
    QCOMPARE(findings[1].kind, FindingKind::NotANumber);
    QCOMPARE(findings[1].object, 2);
}

void tst_JobChecks::closeHatch_isTold()
{
    JobItem hatched = square(5, 0, 0, 2);
    JobHatch hatch;
    hatch.runsMm = lineHatch({hatched.outlinesMm.first()}, {0.02});
    hatched.hatches.append(hatch);
    CheckLimits limits;
    QVERIFY(check({hatched}, limits).isEmpty());
    limits.leastHatchMm = 0.05;
    const QVector<JobFinding> findings = check({hatched}, limits);
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings[0].kind, FindingKind::HatchTooClose);
    QCOMPARE(findings[0].object, 5);
    QCOMPARE(findings[0].text,
             QStringLiteral("Hatch lines of \"shape 5\" are 0.02 mm apart, less than 0.05."));
}

void tst_JobChecks::textTroubles_areTold()
{
    JobItem text = square(6, 0, 0, 2);
    text.isSerialUsedUp = true;
    text.missingCharacters = QStringLiteral("xyz");
    text.name.clear();
    const QVector<JobFinding> findings = check({text});
    QCOMPARE(findings.size(), 2);
    QCOMPARE(findings[0].kind, FindingKind::SerialUsedUp);
    QCOMPARE(findings[0].text, QStringLiteral("The serial number of object 7 is used up."));
    QCOMPARE(findings[1].kind, FindingKind::CharactersMissing);
    QVERIFY(findings[1].text.contains(QLatin1String("xyz")));
}

void tst_JobChecks::manyFindings_areLimited()
{
    QVector<JobItem> items;
    for (int i = 0; i < 50; ++i)
        items.append(square(i, 100.0 + 20.0 * i, 0, 10));
    CheckLimits limits;
    limits.mostFindings = 10;
    QCOMPARE(check(items, limits).size(), 10);
}

void tst_JobChecks::manyLines_areCheckedInTime()
{
    QVector<JobItem> items;
    for (int i = 0; i < 40000; ++i)
        items.append(square(i, -49.0 + 0.4 * (i % 200), -29.0 + 0.25 * (i / 200), 0.2));
    QElapsedTimer clock;
    clock.start();
    QVERIFY(check(items).isEmpty());
    QVERIFY2(clock.elapsed() < 10000, qPrintable(QString::number(clock.elapsed())));
}

QTEST_GUILESS_MAIN(tst_JobChecks)

#include "tst_JobChecks.moc"
