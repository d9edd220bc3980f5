#include <jobkit/values/MachineProfile.h>

#include <jobkit/values/Material.h>

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

using namespace jobkit;

class tst_MachineProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onBoard_areFaultlessAndReadBackTheSame();
    void damaged_isRefusedWithTheField_data();
    void damaged_isRefusedWithTheField();
    void everyNumber_isTakenAtItsBoundsAndRefusedBeyond();
    void schemas_haveTheSameFieldsAndRanges();
    void machineFrame_followsOriginAndY_data();
    void machineFrame_followsOriginAndY();
};

void tst_MachineProfile::onBoard_areFaultlessAndReadBackTheSame()
{
    QCOMPARE(profilesOnBoard(),
             QStringList({QStringLiteral("galvo-fiber"), QStringLiteral("grbl-diode")}));
    const QStringList names = profilesOnBoard();
    for (const QString &name : names) {
        MachineProfile profile;
        QVERIFY(profileOnBoard(name, &profile));
        QCOMPARE(profile.name, name);
        QCOMPARE(profile.problem(), QString());
        MachineProfile read;
        QString error;
        QVERIFY2(readProfile(writeProfile(profile), &read, &error), qPrintable(error));
        QVERIFY(read == profile);
    }
    MachineProfile galvo;
    QVERIFY(profileOnBoard(QStringLiteral("galvo-fiber"), &galvo));
    QCOMPARE(galvo.kind, MachineKind::Galvo);
    QCOMPARE(galvo.jumpDelayUs, 300.0);
    QCOMPARE(galvo.origin, FieldOrigin::Centre);
    MachineProfile untouched = galvo;
    QVERIFY(!profileOnBoard(QStringLiteral("none"), &untouched));
    QVERIFY(untouched == galvo);
}

void tst_MachineProfile::damaged_isRefusedWithTheField_data()
{
    QTest::addColumn<QByteArray>("fields");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *fields, const char *error) {
        QTest::newRow(fields) << QByteArray(fields) << QString::fromLatin1(error);
    };
    row(R"("version":1,"kind":"galvo")", "name: is missing");
    row(R"("version":1,"name":"m")", "kind: is missing");
    row(R"("version":9,"name":"m","kind":"galvo")", "version: is newer than this program");
    row(R"("version":1,"name":"m","kind":"lathe")", "kind: one of galvo, gantry is needed");
    row(R"("version":1,"name":"m","kind":"galvo","decimals":7)",
        "decimals: 0 to 6 is allowed, not 7");
    row(R"("version":1,"name":"m","kind":"galvo","accelerationMmPerS2":0)",
        "accelerationMmPerS2: 0.001 to 10000000 is allowed, not 0");
    row(R"("version":1,"name":"m","kind":"galvo","acceleration":10)",
        "acceleration: no such field");
    row(R"("version":1,"name":"m","kind":"galvo","isLaserMode":"yes")",
        "isLaserMode: true or false is needed");
    row(R"("version":1,"name":"m","kind":"galvo","origin":"moon")",
        "origin: one of centre, bottomLeft, bottomRight, topLeft, topRight is needed");
    row(R"("version":1,"name":"m","kind":"galvo","head":5)", "head: a text is needed");
}

void tst_MachineProfile::damaged_isRefusedWithTheField()
{
    QFETCH(QByteArray, fields);
    QFETCH(QString, error);
    MachineProfile profile;
    profile.name = QStringLiteral("mine");
    const MachineProfile before = profile;
    QString said;
    QVERIFY(!readProfile(R"({"format":"job-profile",)" + fields + "}", &profile, &said));
    QCOMPARE(said, error);
    QVERIFY(profile == before);
}

void tst_MachineProfile::everyNumber_isTakenAtItsBoundsAndRefusedBeyond()
{
    QCOMPARE(profileRanges().size(), 11);
    const QVector<FieldRange> ranges = profileRanges();
    for (const FieldRange &range : ranges) {
        const auto isTaken = [&](double value) {
            MachineProfile profile;
            profileOnBoard(QStringLiteral("grbl-diode"), &profile);
            QJsonObject object = QJsonDocument::fromJson(writeProfile(profile)).object();
            object[range.name] = value;
            MachineProfile read;
            QString error;
            const bool taken = readProfile(QJsonDocument(object).toJson(), &read, &error);
            return taken && read.problem().isEmpty();
        };
        QVERIFY2(isTaken(range.least), qPrintable(range.name));
        QVERIFY2(isTaken(range.most), qPrintable(range.name));
        QVERIFY2(!isTaken(range.least - 1.0), qPrintable(range.name));
        QVERIFY2(!isTaken(range.most + 1.0), qPrintable(range.name));
    }
    MachineProfile wrong;
    wrong.name = QStringLiteral("m");
    QCOMPARE(wrong.problem(), QString());
    wrong.mostPower = 0.0;
    QCOMPARE(wrong.problem(), QStringLiteral("mostPower: 1 to 1000000 is allowed, not 0"));
}

/** The properties that a schema of the documentation gives; of one level below with `items`. */
static QJsonObject schemaOf(const char *name, bool items)
{
    QFile file(QStringLiteral(ZT_TEST_DATA_DIR "/../../docs/formats/%1.schema.json")
                   .arg(QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QJsonObject properties =
        QJsonDocument::fromJson(file.readAll()).object()[QStringLiteral("properties")].toObject();
    if (items)
        properties = properties[QStringLiteral("pens")]
                         .toObject()[QStringLiteral("items")]
                         .toObject()[QStringLiteral("properties")]
                         .toObject();
    return properties;
}

static void compareRanges(const QJsonObject &schema, const QVector<FieldRange> &ranges)
{
    for (const FieldRange &range : ranges) {
        const QJsonObject field = schema[range.name].toObject();
        QCOMPARE(field[QStringLiteral("minimum")].toDouble(-1.0), range.least);
        QCOMPARE(field[QStringLiteral("maximum")].toDouble(-1.0), range.most);
    }
}

void tst_MachineProfile::schemas_haveTheSameFieldsAndRanges()
{
    MachineProfile profile;
    profile.name = QStringLiteral("m");
    const QJsonObject schema = schemaOf("job-profile", false);
    QCOMPARE(schema.keys(), QJsonDocument::fromJson(writeProfile(profile)).object().keys());
    compareRanges(schema, profileRanges());
    const QJsonObject pens = schemaOf("job-pens", true);
    const QJsonObject pen = QJsonDocument::fromJson(writeMaterial({profile.name, {Pen()}}))
                                .object()[QStringLiteral("pens")]
                                .toArray()[0]
                                .toObject();
    QCOMPARE(pens.keys(), pen.keys());
    compareRanges(pens, penRanges());
}

void tst_MachineProfile::machineFrame_followsOriginAndY_data()
{
    QTest::addColumn<int>("origin");
    QTest::addColumn<bool>("isUp");
    QTest::addColumn<QPointF>("machine");
    const auto row = [](const char *name, FieldOrigin origin, bool isUp, QPointF machine) {
        QTest::newRow(name) << static_cast<int>(origin) << isUp << machine;
    };
    // A field of 100 x 60; the point lies 10 right of the middle and 5 below it.
    row("centre up", FieldOrigin::Centre, true, {10, -5});
    row("centre down", FieldOrigin::Centre, false, {10, 5});
    row("bottom left up", FieldOrigin::BottomLeft, true, {60, 25});
    row("bottom left down", FieldOrigin::BottomLeft, false, {60, -25});
    row("bottom right up", FieldOrigin::BottomRight, true, {-40, 25});
    row("top left down", FieldOrigin::TopLeft, false, {60, 35});
    row("top left up", FieldOrigin::TopLeft, true, {60, -35});
    row("top right down", FieldOrigin::TopRight, false, {-40, 35});
}

void tst_MachineProfile::machineFrame_followsOriginAndY()
{
    QFETCH(int, origin);
    QFETCH(bool, isUp);
    QFETCH(QPointF, machine);
    MachineProfile profile;
    profile.fieldWidthMm = 100.0;
    profile.fieldHeightMm = 60.0;
    profile.origin = static_cast<FieldOrigin>(origin);
    profile.yDirection = isUp ? YDirection::Up : YDirection::Down;
    QCOMPARE(profile.toMachine(QPointF(10, 5)), machine);
    QCOMPARE(profile.fromMachine(machine), QPointF(10, 5));
    QCOMPARE(profile.fieldMm(), QRectF(-50, -30, 100, 60));
}

QTEST_GUILESS_MAIN(tst_MachineProfile)

#include "tst_MachineProfile.moc"
