#include <vectorkit/VectorReader.h>

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <random>

using vectorkit::ReadFailure;
using vectorkit::readHpgl;
using vectorkit::VectorDrawing;

namespace {

/** The size in millimetres of what hp2xx draws of a file. */
QSizeF sizeByOther(const QByteArray &bytes)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawing.plt"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return {};
    file.close();
    QProcess other;
    other.start(QStringLiteral("hp2xx"),
                {QStringLiteral("-q"), QStringLiteral("-t"), QStringLiteral("-N"),
                 QStringLiteral("-m"), QStringLiteral("svg"), QStringLiteral("-f"),
                 QStringLiteral("-"), path});
    if (!other.waitForFinished())
        return {};
    const QRegularExpression box(QStringLiteral("viewBox=\"0 0 ([0-9.]+) ([0-9.]+)\""));
    const auto match = box.match(QString::fromLatin1(other.readAllStandardOutput()));
    return QSizeF(match.captured(1).toDouble(), match.captured(2).toDouble()) * (25.4 / 72.0);
}

QByteArray randomLines(int seed)
{
    std::mt19937 random(static_cast<unsigned>(seed));
    const auto number = [&] {
        return QByteArray::number(static_cast<int>(random() % 8000) - 1000);
    };
    QByteArray bytes = "IN;SP1;";
    for (int i = 0; i < 50; ++i)
        bytes += "PU" + number() + "," + number() + ";PD" + number() + "," + number() + "," +
                 number() + "," + number() + ";";
    return bytes + "PU;SP0;";
}

} // namespace

/** The same size as another reader of the language finds, where both draw without rounding. */
class tst_HpglYardstick : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(!QStandardPaths::findExecutable(QStringLiteral("hp2xx")).isEmpty(),
                 "hp2xx is missing: tools/setup.sh test");
    }

    void size_data()
    {
        QTest::addColumn<QByteArray>("file");
        for (int seed = 1; seed <= 5; ++seed)
            QTest::newRow(qPrintable(QStringLiteral("lines %1").arg(seed))) << randomLines(seed);
        QTest::newRow("relative") << QByteArray("IN;SP1;PU100,100;PR;PD400,0,0,300,-900,50;PU;");
        QTest::newRow("scaled") << QByteArray(
            "IN;SP1;IP0,0,4000,8000;SC0,100,0,100;PU10,10;PD60,20,30,90;PU;");
        QTest::newRow("turned") << QByteArray("IN;SP1;RO90;PU0,0;PD1000,0,1000,500;PU;");
        QTest::newRow("rectangles") << QByteArray("IN;SP1;PU100,100;EA900,500;ER-300,200;PU;");
        QTest::newRow("polygon") << QByteArray("IN;SP1;PU0,0;PM0;PD1000,0,500,800;PM2;EP;PU;");
        QTest::newRow("circle in chords") << QByteArray("IN;SP1;PU500,500;CI400,30;PU;");
        QTest::newRow("arc in chords") << QByteArray("IN;SP1;PU500,0;PD;AA0,0,90,15;PU;");
    }

    void size()
    {
        QFETCH(QByteArray, file);
        const QSizeF other = sizeByOther(file);
        VectorDrawing drawing;
        ReadFailure failure;
        QVERIFY2(readHpgl(file, {}, &drawing, &failure), qPrintable(failure.reason));
        const QSizeF size = drawing.boundsMm().size();
        const QString said = QStringLiteral("%1 x %2 here, %3 x %4 there")
                                 .arg(size.width())
                                 .arg(size.height())
                                 .arg(other.width())
                                 .arg(other.height());
        QVERIFY2(qAbs(size.width() - other.width()) < 0.002 &&
                     qAbs(size.height() - other.height()) < 0.002,
                 qPrintable(said));
    }
};

QTEST_GUILESS_MAIN(tst_HpglYardstick)
#include "tst_HpglYardstick.moc"
