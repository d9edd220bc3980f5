#include <jobkit/values/Material.h>

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

using namespace jobkit;

class tst_Material : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void written_readsBackTheSame();
    void leftOutFields_areThoseOfADefaultPen();
    void damaged_isRefusedWithTheField_data();
    void damaged_isRefusedWithTheField();
    void everyNumber_isTakenAtItsBoundsAndRefusedBeyond();
};

static Material full()
{
    Pen pen;
    pen.number = 3;
    pen.name = QStringLiteral("black anodised, \"deep\"");
    pen.color = QColor(1, 2, 250);
    pen.isOn = false;
    pen.passes = 7;
    pen.speedMmPerS = 812.5;
    pen.powerPercent = 33.25;
    pen.frequencyKHz = 45.5;
    pen.pulseWidthNs = 12.0;
    pen.powerMode = PowerMode::Constant;
    return {QStringLiteral("aluminium"), {pen, defaultPen(1)}};
}

void tst_Material::written_readsBackTheSame()
{
    Material read;
    QString error;
    QVERIFY2(readMaterial(writeMaterial(full()), &read, &error), qPrintable(error));
    QCOMPARE(read.name, QStringLiteral("aluminium"));
    QCOMPARE(read.pens.size(), 2);
    QCOMPARE(read.pens[0].number, 3);
    QCOMPARE(read.pens[0].name, QStringLiteral("black anodised, \"deep\""));
    QCOMPARE(read.pens[0].color, QColor(1, 2, 250));
    QCOMPARE(read.pens[0].isOn, false);
    QCOMPARE(read.pens[0].passes, 7);
    QCOMPARE(read.pens[0].speedMmPerS, 812.5);
    QCOMPARE(read.pens[0].powerPercent, 33.25);
    QCOMPARE(read.pens[0].frequencyKHz, 45.5);
    QCOMPARE(read.pens[0].pulseWidthNs, 12.0);
    QCOMPARE(read.pens[0].powerMode, PowerMode::Constant);
    QVERIFY(read == full());
    QCOMPARE(defaultPens().size(), 16);
    QCOMPARE(findPen(read.pens, 1)->number, 1);
    QVERIFY(findPen(read.pens, 2) == nullptr);
}

void tst_Material::leftOutFields_areThoseOfADefaultPen()
{
    Material read;
    QVERIFY(readMaterial(R"({"format":"job-pens","version":1,"name":"m","pens":[{"number":9}]})",
                         &read, nullptr));
    QVERIFY(read.pens.first() == defaultPen(9));
}

void tst_Material::damaged_isRefusedWithTheField_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    const auto pens = [](const char *list) {
        return QByteArray(R"({"format":"job-pens","version":1,"name":"m","pens":[)") + list + "]}";
    };
    const auto row = [](const char *name, const QByteArray &json, const char *error) {
        QTest::newRow(name) << json << QString::fromLatin1(error);
    };
    row("cut", "{\"format\":\n\"job-p", "no JSON: line 2");
    row("list", "[]", "no JSON object");
    row("other format", R"({"format":"x"})", "format: one of job-pens is needed");
    row("newer", R"({"format":"job-pens","version":2})", "version: is newer than this program");
    row("no name", R"({"format":"job-pens","version":1,"pens":[]})", "name: is missing");
    row("empty name", R"({"format":"job-pens","version":1,"name":"","pens":[]})",
        "name: 1 to 200 characters are allowed, not 0");
    row("no pens", R"({"format":"job-pens","version":1,"name":"m"})", "pens: is missing");
    row("pens no list", R"({"format":"job-pens","version":1,"name":"m","pens":3})",
        "pens: a list is needed");
    row("typing error", R"({"format":"job-pens","version":1,"name":"m","pens":[],"pen":1})",
        "pen: no such field");
    row("no number", pens("{}"), "pens[0].number: is missing");
    row("no object", pens("5"), "pens[0].number: is missing");
    row("half a number", pens(R"({"number":1.5})"), "pens[0].number: a whole number is needed");
    row("power", pens(R"({"number":1},{"number":2,"powerPercent":140})"),
        "pens[1].powerPercent: 0 to 100 is allowed, not 140");
    row("text", pens(R"({"number":1,"speedMmPerS":"fast"})"),
        "pens[0].speedMmPerS: a number is needed");
    row("color", pens(R"({"number":1,"color":"#12"})"),
        "pens[0].color: a colour as \"#rrggbb\" is needed");
    row("on", pens(R"({"number":1,"isOn":1})"), "pens[0].isOn: true or false is needed");
    row("mode", pens(R"({"number":1,"powerMode":"loud"})"),
        "pens[0].powerMode: one of constant, dynamic is needed");
    row("two speeds", pens(R"({"number":1,"speedMmPerS":100,"speedMmPerS":900})"),
        "speedMmPerS: stands twice");
    row("twice", pens(R"({"number":4},{"number":4})"), "pens[1].number: pen 4 is there already");
}

void tst_Material::damaged_isRefusedWithTheField()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);
    Material material = full();
    QString said;
    QVERIFY(!readMaterial(json, &material, &said));
    QCOMPARE(said, error);
    QVERIFY(material == full());
}

void tst_Material::everyNumber_isTakenAtItsBoundsAndRefusedBeyond()
{
    QCOMPARE(penRanges().size(), 7);
    const QVector<FieldRange> ranges = penRanges();
    for (const FieldRange &range : ranges) {
        const auto isTaken = [&](double value) {
            QJsonObject object = QJsonDocument::fromJson(writeMaterial(full())).object();
            QJsonArray pens = object[QStringLiteral("pens")].toArray();
            QJsonObject pen = pens[0].toObject();
            pen[range.name] = value;
            pens[0] = pen;
            object[QStringLiteral("pens")] = pens;
            Material read;
            QString error;
            const bool taken = readMaterial(QJsonDocument(object).toJson(), &read, &error);
            return taken && error.isEmpty() && read.problem().isEmpty();
        };
        // Pen 1 is there already.
        QVERIFY2(isTaken(range.least) != (range.name == QLatin1String("number")),
                 qPrintable(range.name));
        QVERIFY2(isTaken(range.most), qPrintable(range.name));
        QVERIFY2(!isTaken(range.least - 1.0), qPrintable(range.name));
        QVERIFY2(!isTaken(range.most + 1.0), qPrintable(range.name));
    }
    Material wrong = full();
    wrong.pens[1].speedMmPerS = -1.0;
    QCOMPARE(wrong.problem(),
             QStringLiteral("pens[1].speedMmPerS: 0.001 to 100000 is allowed, not -1"));
}

QTEST_GUILESS_MAIN(tst_Material)

#include "tst_Material.moc"
