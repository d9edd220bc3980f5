#include <fontkit/HanziReader.h>

#include <QtTest/QTest>

using fontkit::HanziReader;

namespace {
using Strokes = QVector<QVector<QPointF>>;
}

class tst_HanziReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_character_givesItsMedians();
    void read_outlinesAndRadicals_areOfNoInterest();
    void read_emptyStroke_isLeftOut();
    void read_strokeOfOnePoint_isKept();
    void read_farthestPoints_areTaken();
    void read_tooManyPoints_isFalse();
    void read_damage_isFalseAndTold_data();
    void read_damage_isFalseAndTold();
    void read_again_forgetsTheFirst();
};

void tst_HanziReader::read_character_givesItsMedians()
{
    HanziReader reader;
    QVERIFY(reader.read(R"({"medians":[[[317,812],[342,786.5]],[[-3,0],[1024,-124],[5,900]]]})"));
    QCOMPARE(reader.strokes(),
             Strokes({{{317, 812}, {342, 786.5}}, {{-3, 0}, {1024, -124}, {5, 900}}}));
    QCOMPARE(reader.errorText(), QString());
}

void tst_HanziReader::read_outlinesAndRadicals_areOfNoInterest()
{
    HanziReader reader;
    QVERIFY(reader.read(R"({"strokes":["M 1 2 Z",7],"medians":[[[1,2],[3,4]]],"radStrokes":[0]})"));
    QCOMPARE(reader.strokes(), Strokes({{{1, 2}, {3, 4}}}));
}

void tst_HanziReader::read_emptyStroke_isLeftOut()
{
    HanziReader reader;
    QVERIFY(reader.read(R"({"medians":[[],[[1,2],[3,4]],[]]})"));
    QCOMPARE(reader.strokes(), Strokes({{{1, 2}, {3, 4}}}));
}

void tst_HanziReader::read_strokeOfOnePoint_isKept()
{
    HanziReader reader;
    QVERIFY(reader.read(R"({"medians":[[[1,2]]]})"));
    QCOMPARE(reader.strokes(), Strokes({{{1, 2}}}));
}

void tst_HanziReader::read_farthestPoints_areTaken()
{
    HanziReader reader;
    QVERIFY(reader.read(R"({"medians":[[[4096,-4096],[-4096,4096]]]})"));
    QCOMPARE(reader.strokes(), Strokes({{{4096, -4096}, {-4096, 4096}}}));
}

void tst_HanziReader::read_tooManyPoints_isFalse()
{
    const auto character = [](int count) {
        return QByteArray(R"({"medians":[[)") + QByteArray("[1,2],").repeated(count - 2) +
               "[3,4]],[[5,6]]]}";
    };
    HanziReader reader;
    QVERIFY(reader.read(character(2000)));
    QVERIFY(!reader.read(character(2001)));
    QCOMPARE(reader.errorText(), QStringLiteral("more than 2000 points"));
    QVERIFY(reader.strokes().isEmpty());
}

void tst_HanziReader::read_damage_isFalseAndTold_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    const QString first = QStringLiteral("stroke 1 is no list of points");
    const QString second = QStringLiteral("stroke 2 is no list of points");
    const QString none = QStringLiteral("no strokes");
    QTest::newRow("cut short") << QByteArray(R"({"medians":[[[1,2])")
                               << QStringLiteral("no JSON: unterminated array");
    QTest::newRow("medians twice") << QByteArray(R"({"medians":[[[1,2]]],"medians":[[[3,4]]]})")
                                   << QStringLiteral("\"medians\" stands twice");
    QTest::newRow("a list") << QByteArray("[[[1,2]]]") << none;
    QTest::newRow("no medians") << QByteArray(R"({"strokes":[]})") << none;
    QTest::newRow("medians a number") << QByteArray(R"({"medians":5})") << none;
    QTest::newRow("no stroke") << QByteArray(R"({"medians":[]})") << none;
    QTest::newRow("empty strokes") << QByteArray(R"({"medians":[[],[]]})") << none;
    QTest::newRow("a stroke a number") << QByteArray(R"({"medians":[5]})") << first;
    QTest::newRow("a point a number") << QByteArray(R"({"medians":[[1,2]]})") << first;
    QTest::newRow("a point of one") << QByteArray(R"({"medians":[[[1]]]})") << first;
    QTest::newRow("a point of three") << QByteArray(R"({"medians":[[[1,2,3]]]})") << first;
    QTest::newRow("a text") << QByteArray(R"({"medians":[[[1,2]],[["1","2"]]]})") << second;
    QTest::newRow("far right") << QByteArray(R"({"medians":[[[4097,0]]]})") << first;
    QTest::newRow("far down") << QByteArray(R"({"medians":[[[0,-4096.5]]]})") << first;
    QTest::newRow("farther than numbers reach")
        << QByteArray(R"({"medians":[[[1e308,0]]]})") << first;
}

void tst_HanziReader::read_damage_isFalseAndTold()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);
    HanziReader reader;
    QVERIFY(!reader.read(json));
    QCOMPARE(reader.errorText(), error);
    QVERIFY(reader.strokes().isEmpty());
}

void tst_HanziReader::read_again_forgetsTheFirst()
{
    HanziReader reader;
    QVERIFY(reader.read(R"({"medians":[[[1,2],[3,4]]]})"));
    QVERIFY(!reader.read("{}"));
    QVERIFY(reader.strokes().isEmpty());
    QVERIFY(reader.read(R"({"medians":[[[5,6],[7,8]]]})"));
    QCOMPARE(reader.strokes(), Strokes({{{5, 6}, {7, 8}}}));
    QCOMPARE(reader.errorText(), QString());
}

QTEST_APPLESS_MAIN(tst_HanziReader)
#include "tst_HanziReader.moc"
