#include <support/Skip.h>

#include <fontkit/BoardCharacters.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using fontkit::BoardCharacters;
using fontkit::CharacterOrigin;
using fontkit::DataFolder;

class tst_BoardCharacters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asciiAndGreek_areTenTimesTheHersheyOnes()
    {
        const DataFolder data(QByteArrayLiteral(ZT_HERSHEY_DIR));
        if (!data.read("futural.jhf"))
            ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
        BoardCharacters board;
        QString error;
        QVERIFY2(board.read(data, &error), qPrintable(error));
        const auto capital = board.of('I'); // one stem of 21 units, 8 wide
        QVERIFY(capital.has_value());
        QCOMPARE(capital->strokes, (QVector<QVector<QPointF>>{{{40, 210}, {40, 0}}}));
        QCOMPARE(capital->advance, 80.0);
        QVERIFY(capital->origin == CharacterOrigin::Hershey);
        const auto iota = board.of(0x0399); // the same as a Greek letter
        QVERIFY(iota.has_value());
        QCOMPARE(iota->strokes, capital->strokes);
        QVERIFY(!board.of(0x03C2)); // final sigma is not in the data
        QVERIFY(!board.of(0x00E9));
    }

    void punctuation_isThatOfTheBigFont()
    {
        const DataFolder data(QByteArrayLiteral(ZT_HERSHEY_DIR));
        if (!data.read("futural.jhf"))
            ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
        BoardCharacters board;
        QVERIFY(board.read(data, nullptr));
        const auto stop = board.of(0x3002);
        QVERIFY(stop.has_value());
        QCOMPARE(stop->advance, 240.0);
        QCOMPARE(stop->strokes.size(), 1);
        QVERIFY(stop->origin == CharacterOrigin::Drawn);
    }

    void withoutData_failsAndTells()
    {
        const QTemporaryDir folder;
        BoardCharacters board;
        QString error;
        QVERIFY(!board.read(DataFolder(QFile::encodeName(folder.path())), &error));
        QCOMPARE(error, folder.path() + QStringLiteral("/futural.jhf: cannot be read"));
    }
};

QTEST_GUILESS_MAIN(tst_BoardCharacters)
#include "tst_BoardCharacters.moc"
