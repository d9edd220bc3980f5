#include "CodeReaders.h"

#include <support/SingletonGuard.h>

#include <codekit/shape/CodeItem.h>

#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkUnits.h>

#include <QtTest/QtTest>

#include <memory>

using namespace codekit;

namespace {

/** Codes as they are marked: what is changed of the plain one. */
enum class Form { Plain, Turned, Inverse, Squares, Dots, Points, Bars, Lines, Grown, Fine, Zigzag };

const QVector<QPair<Form, const char *>> kForms = {
    {Form::Plain, "plain"},     {Form::Turned, "turned"}, {Form::Inverse, "inverse"},
    {Form::Squares, "squares"}, {Form::Dots, "dots"},     {Form::Points, "points"},
    {Form::Bars, "bars"},       {Form::Lines, "lines"},   {Form::Grown, "grown"},
    {Form::Fine, "fine hatch"}, {Form::Zigzag, "zigzag"}};

constexpr double kModuleMm = 0.4;

/** Pixels a module. */
const QVector<double> kResolutions = {4.0, 6.0, 9.0};

/** One content of each kind, and what readers give. */
struct Sample
{
    CodeKind kind;
    const char *content;
    const char *reads;
};

const QVector<Sample> kSamples = {
    {CodeKind::DataMatrix, "SN-0001", "SN-0001"},
    {CodeKind::Qr, "SN-0001", "SN-0001"},
    {CodeKind::MicroQr, "12345", "12345"},
    {CodeKind::Aztec, "SN-0001", "SN-0001"},
    {CodeKind::Pdf417, "SN-0001", "SN-0001"},
    {CodeKind::Code128, "Ab-0001", "Ab-0001"},
    {CodeKind::Code39, "SN-0001", "SN-0001"},
    {CodeKind::Code39Extended, "aB", "+AB"},
    {CodeKind::Code93, "SN-0001", "SN-0001"},
    {CodeKind::Codabar, "A1234-5B", "A1234-5B"},
    {CodeKind::Interleaved25, "12345678", "12345678"},
    {CodeKind::Itf14, "1540014128876", "15400141288763"},
    {CodeKind::Ean13, "400638133393", "4006381333931"},
    {CodeKind::Ean8, "7351353", "73513537"},
    {CodeKind::UpcA, "03600029145", "036000291452"},
    {CodeKind::UpcE, "123456", "01234565"},
    {CodeKind::Gs1_128, "[01]04012345678901[10]LOT7", "010401234567890110LOT7"},
    {CodeKind::Gs1DataMatrix, "[01]04012345678901[10]LOT7", "010401234567890110LOT7"}};

CodeSettings settingsOf(CodeKind kind, Form form)
{
    CodeSettings settings;
    settings.spec.kind = kind;
    settings.form.moduleMm = kModuleMm;
    settings.form.heightMm = 6.0;
    settings.form.isInverse = form == Form::Inverse;
    settings.form.growthMm = form == Form::Grown ? 0.08 : form == Form::Lines ? kModuleMm : 0.0;
    settings.form.dotShare = 0.95;
    settings.form.style = form == Form::Squares  ? CodeStyle::Squares
                          : form == Form::Dots   ? CodeStyle::Dots
                          : form == Form::Points ? CodeStyle::Points
                          : form == Form::Bars   ? CodeStyle::Bars
                          : form == Form::Lines  ? CodeStyle::BarLines
                                                 : CodeStyle::Merged;
    return settings;
}

ZTFillParam fillOf(Form form)
{
    ZTFillParam fill;
    fill.fillType = form == Form::Points || form == Form::Lines ? FillType::None
                    : form == Form::Zigzag                      ? FillType::ULine
                                                                : FillType::Line;
    fill.spac = form == Form::Fine ? 0.03 : 0.05;
    fill.angle = form == Form::Zigzag ? 90.0 : 0.0;
    return fill;
}

double beamOf(Form form)
{
    return form == Form::Points  ? 1.15 * kModuleMm
           : form == Form::Lines ? kModuleMm
           : form == Form::Grown ? 0.08
           : form == Form::Fine  ? 0.04
                                 : 0.06;
}

bool hasForm(CodeKind kind, Form form)
{
    return !infoOf(kind).isLinear || (form != Form::Dots && form != Form::Points);
}

} // namespace

class TestCodeReaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { registerCodeFactories(); }
    void init()
    {
        singletons = std::make_unique<testsupport::SingletonGuard>();
        document = std::make_unique<ZTGraphicsDocument>();
    }
    void cleanup()
    {
        document.reset();
        singletons.reset();
    }

    void everyKindInEveryForm_isReadByAllReaders_data()
    {
        QTest::addColumn<int>("sample");
        QTest::addColumn<int>("form");
        for (int sample = 0; sample < kSamples.size(); ++sample) {
            for (const auto &form : kForms) {
                if (hasForm(kSamples[sample].kind, form.first))
                    QTest::addRow("%s, %s", infoOf(kSamples[sample].kind).name, form.second)
                        << sample << int(form.first);
            }
        }
    }

    void everyKindInEveryForm_isReadByAllReaders()
    {
        QFETCH(int, sample);
        QFETCH(int, form);
        const Sample &code = kSamples[sample];
        const auto asked = Form(form);
        CodeItem *item = make(settingsOf(code.kind, asked), QString::fromUtf8(code.content), asked);
        QVERIFY2(item->code().notReadyReason().isEmpty(), qPrintable(item->toolTip()));
        // Round marks leave light between them: a reader finds them from some distance.
        const bool isRound = asked == Form::Dots || asked == Form::Points || asked == Form::Lines;
        readAll(*item, code.kind, QByteArray(code.reads), beamOf(asked),
                isRound ? QVector<double>{2.5, 3.0, 4.0, 5.0, 6.0} : kResolutions,
                isRound ? 2 : kResolutions.size() - 1);
    }

    void options_areReadByAllReaders_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("reads");
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("columns");
        const auto row = [](const char *name, CodeKind kind, const QString &content, int level,
                            int size, int mask, int columns) {
            QTest::newRow(name) << int(kind) << content << content << level << size << mask
                                << columns;
        };
        const QString serial = QStringLiteral("SN-0001/A");
        for (int level = 1; level <= 4; ++level)
            row(qPrintable(QStringLiteral("qr level %1").arg(level)), CodeKind::Qr, serial, level,
                0, -1, 0);
        for (int mask = 0; mask < 8; ++mask)
            row(qPrintable(QStringLiteral("qr mask %1").arg(mask)), CodeKind::Qr, serial, 0, 0,
                mask, 0);
        for (const int size : {1, 2, 7, 14})
            row(qPrintable(QStringLiteral("qr size %1").arg(size)), CodeKind::Qr,
                QStringLiteral("12345"), 0, size, -1, 0);
        for (int mask = 0; mask < 4; ++mask)
            row(qPrintable(QStringLiteral("micro qr mask %1").arg(mask)), CodeKind::MicroQr,
                QStringLiteral("AB12"), 0, 0, mask, 0);
        for (int level = 1; level <= 3; ++level)
            row(qPrintable(QStringLiteral("micro qr level %1").arg(level)), CodeKind::MicroQr,
                QStringLiteral("AB12"), level, 4, -1, 0);
        for (const int size : {3, 8, 12, 17, 25, 26, 27, 28, 29, 30})
            row(qPrintable(QStringLiteral("data matrix size %1").arg(size)), CodeKind::DataMatrix,
                QStringLiteral("1234"), 0, size, -1, 0);
        for (int level = 1; level <= 4; ++level)
            row(qPrintable(QStringLiteral("aztec level %1").arg(level)), CodeKind::Aztec, serial,
                level, 0, -1, 0);
        for (const int size : {1, 4, 8, 12})
            row(qPrintable(QStringLiteral("aztec size %1").arg(size)), CodeKind::Aztec,
                QStringLiteral("1234"), 0, size, -1, 0);
        for (const int columns : {1, 3, 8})
            row(qPrintable(QStringLiteral("pdf417 of %1 columns").arg(columns)), CodeKind::Pdf417,
                serial, 3, 0, -1, columns);
    }

    void options_areReadByAllReaders()
    {
        QFETCH(int, kind);
        QFETCH(QString, content);
        QFETCH(QString, reads);
        QFETCH(int, level);
        QFETCH(int, size);
        QFETCH(int, mask);
        QFETCH(int, columns);
        CodeSettings settings = settingsOf(CodeKind(kind), Form::Plain);
        settings.spec.level = level;
        settings.spec.version = size;
        settings.spec.mask = mask;
        settings.spec.columns = columns;
        CodeItem *item = make(settings, content, Form::Plain);
        QCOMPARE(item->code().notReadyReason(), QString());
        const QSize wanted = symbolSize(CodeKind(kind), size);
        if (size > 0)
            QCOMPARE(QSize(item->code().symbol().columns, item->code().symbol().rows), wanted);
        readAll(*item, CodeKind(kind), reads.toUtf8(), beamOf(Form::Plain));
    }

    void contents_areReadByAllReaders_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QByteArray>("reads");
        const auto row = [](CodeKind kind, const QString &content, const QByteArray &reads) {
            QTest::addRow("%s %s", infoOf(kind).name, qPrintable(content.left(24)))
                << int(kind) << content << reads;
        };
        const auto same = [&](CodeKind kind, const QString &content) {
            row(kind, content, content.toUtf8());
        };
        const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
        // Beyond ASCII a QR code says that it is UTF-8: readers that have to guess guess wrong.
        for (const char *content :
             {"a", "0", "1234567890123456", "https://example.org/p?id=7&lot=A", "Größe 5 µm ±½",
              "序列号 0001", "Ж→кана かな", "a\tb", "back\\slash"})
            same(CodeKind::Qr, text(content));
        for (const char *content :
             {"a", "0", "1234567890123456", "https://example.org/p?id=7&lot=A", "a\tb",
              "back\\slash", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"})
            same(CodeKind::DataMatrix, text(content));
        for (const char *content : {"a", "0", "12", "123", "1234567", "A12345678B", "~!@#$%^&*()",
                                    "a\tb", "UPPER lower 99"})
            same(CodeKind::Code128, text(content));
        for (const char *content : {"A", "0", "-. $/+%", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"})
            same(CodeKind::Code39, text(content));
        for (const char *content : {"A", "a1B2~", "a\tb", "-. $/+%"})
            same(CodeKind::Code93, text(content));
        for (const char *content : {"A01B", "C123-45$D", "B1.5:6/7+8A"})
            same(CodeKind::Codabar, text(content));
        for (const char *content : {"123456", "0000000000", "98765432101234"})
            same(CodeKind::Interleaved25, text(content));
        for (const char *content : {"0000000000000", "9783161484100"})
            same(CodeKind::Ean13, text(content));
        for (const char *content : {"00000000", "12345670"})
            same(CodeKind::Ean8, text(content));
        // One of each way in which six digits stand for eleven; 0, 3, 4 and 5 to 9 at the end.
        for (const char *content : {"01234505", "01234531", "01234543", "01234565"})
            same(CodeKind::UpcE, text(content));
        // The start of a message of items in its record form: [)> RS 06 GS ... RS EOT.
        same(CodeKind::DataMatrix, text("[)>\x1E"
                                        "06\x1D"
                                        "17V12345\x1D"
                                        "SSN-0001\x1E\x04"));
        row(CodeKind::Gs1_128, text("[10]A1[21]B2[37]5"),
            QByteArrayLiteral("10A1\x1D"
                              "21B2\x1D"
                              "375"));
        row(CodeKind::Gs1DataMatrix, text("[10]A1[21]B2[37]5"),
            QByteArrayLiteral("10A1\x1D"
                              "21B2\x1D"
                              "375"));
    }

    void contents_areReadByAllReaders()
    {
        QFETCH(int, kind);
        QFETCH(QString, content);
        QFETCH(QByteArray, reads);
        CodeItem *item = make(settingsOf(CodeKind(kind), Form::Plain), content, Form::Plain);
        QCOMPARE(item->code().notReadyReason(), QString());
        readAll(*item, CodeKind(kind), reads, beamOf(Form::Plain));
    }

    void checkDigits_areRead_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("reads");
        QTest::addColumn<QString>("spelled");
        const auto row = [](CodeKind kind, const char *content, const char *reads,
                            const char *spelled) {
            QTest::addRow("%s %s", infoOf(kind).name, content)
                << int(kind) << QString::fromLatin1(content) << QString::fromLatin1(reads)
                << QString::fromLatin1(spelled);
        };
        // A + B + C are 10 + 11 + 12 = 33, which is X; 1 + 2 + 3 is 6.
        row(CodeKind::Code39, "ABC", "ABCX", "ABCX");
        row(CodeKind::Code39, "123", "1236", "1236");
        // "a" is spelled +A: 41 + 10 = 51, 8 more than 43. "d" is +D, 41 + 13 = 54: 11, B.
        row(CodeKind::Code39Extended, "a", "a8", "+A8");
        row(CodeKind::Code39Extended, "d", "dB", "+DB");
        // "%w" is /E+W, 40 + 14 + 41 + 32 = 127, 41 more than 86: a plus that begins no pair.
        row(CodeKind::Code39Extended, "%w", "%w+", "/E+W+");
        // A and B are 16 and 17, 1 + 2 + 3 + 4 = 10: 43, 5 short of 48.
        row(CodeKind::Codabar, "A1234B", "A12345B", "A12345B");
        // 3 x (7 + 5 + 3 + 1) + 6 + 4 + 2 = 60.
        row(CodeKind::Interleaved25, "1234567", "12345670", "12345670");
    }

    void checkDigits_areRead()
    {
        QFETCH(int, kind);
        QFETCH(QString, content);
        QFETCH(QString, reads);
        QFETCH(QString, spelled);
        CodeSettings settings = settingsOf(CodeKind(kind), Form::Plain);
        settings.spec.hasCheckDigit = true;
        CodeItem *item = make(settings, content, Form::Plain);
        QCOMPARE(item->code().notReadyReason(), QString());
        QCOMPARE(item->code().symbol().reads, reads);
        readAll(*item, CodeKind(kind), spelled.toUtf8(), beamOf(Form::Plain));
    }

    void addOns_areRead_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("content");
        QTest::newRow("ean13 2") << int(CodeKind::Ean13) << QStringLiteral("4006381333931+12");
        QTest::newRow("ean13 5") << int(CodeKind::Ean13) << QStringLiteral("9783161484100+52495");
        QTest::newRow("ean8 2") << int(CodeKind::Ean8) << QStringLiteral("73513537+07");
        QTest::newRow("upca 5") << int(CodeKind::UpcA) << QStringLiteral("036000291452+12345");
        QTest::newRow("upce 2") << int(CodeKind::UpcE) << QStringLiteral("01234565+99");
    }

    void addOns_areRead()
    {
        QFETCH(int, kind);
        QFETCH(QString, content);
        CodeItem *item = make(settingsOf(CodeKind(kind), Form::Plain), content, Form::Plain);
        const QByteArray reads =
            QString(content).replace(QLatin1Char('+'), QLatin1Char(' ')).toUtf8();
        for (const double pxPerModule : {4.0, 6.0, 9.0}) {
            const QImage image = pictureOf(*item, pxPerModule, beamOf(Form::Plain));
            QCOMPARE(readers::first(image, CodeKind(kind)), reads);
        }
    }

private:
    CodeItem *make(const CodeSettings &settings, const QString &content, Form form)
    {
        CodeItem *item = codeItem(
            document->itemMag()->addShape(shapeTypeOf(settings.spec.kind), {0, 0, 10, 10}));
        item->setCode(settings, content);
        item->setFillParam(fillOf(form));
        // Bars are scanned along or across, and the one reader of Aztec wants it level.
        const CodeKind kind = settings.spec.kind;
        const bool isLevel =
            infoOf(kind).isLinear || kind == CodeKind::Pdf417 || kind == CodeKind::Aztec;
        if (form == Form::Turned)
            item->setTransformParam(QTransform().rotate(isLevel ? 90.0 : 17.0));
        return item;
    }

    /** The marks as the beam leaves them, with what the code needs free around it. */
    QImage pictureOf(CodeItem &item, double pxPerModule, double beamMm)
    {
        constexpr double kRoomModules = 12.0;
        hostkit::MarkGraphBuilder builder(*document, {&item});
        builder.work(1000000);
        const ZTMarkObject marks = builder.takeUnordered().objects.first();
        const double unitsPerMm = hostkit::MarkUnits::of(*document->itemMag()).perMm;
        QVector<QPair<QPointF, QPointF>> lines;
        for (const QPolygonF &polygon : marks.lines) {
            for (int at = 1; at < polygon.size(); ++at)
                lines.append({polygon[at - 1] / unitsPerMm, polygon[at] / unitsPerMm});
        }
        for (const QLineF &line : marks.fillLines)
            lines.append({line.p1() / unitsPerMm, line.p2() / unitsPerMm});
        QPolygonF ends;
        for (const auto &line : qAsConst(lines))
            ends << line.first << line.second;
        const double room = kRoomModules * item.moduleMm();
        BeamPicture picture(ends.boundingRect().adjusted(-room, -room, room, room),
                            pxPerModule / item.moduleMm(), item.settings().form.isInverse);
        for (const auto &line : qAsConst(lines))
            picture.addLine(line.first, line.second, beamMm);
        return picture.image();
    }

    /** Never anything else, and by each reader at `least` of the resolutions. */
    void readAll(CodeItem &item, CodeKind kind, const QByteArray &reads, double beamMm,
                 const QVector<double> &resolutions = kResolutions,
                 int least = kResolutions.size() - 1)
    {
        int first = 0;
        int second = 0;
        for (const double pxPerModule : resolutions) {
            const QImage image = pictureOf(item, pxPerModule, beamMm);
            const QByteArray one = readers::first(image, kind);
            QVERIFY2(one.isEmpty() || one == reads, one.constData());
            first += one == reads ? 1 : 0;
            if (!readers::hasSecond(kind))
                continue;
            // It leaves the separators between the elements of GS1 out.
            const QByteArray other = readers::second(image, kind);
            const bool isSame = other == reads || other == QByteArray(reads).replace('\x1D', "");
            QVERIFY2(other.isEmpty() || isSame, other.constData());
            second += isSame ? 1 : 0;
        }
        QVERIFY2(first >= least, qPrintable(QString::number(first)));
        if (readers::hasSecond(kind))
            QVERIFY2(second >= least, qPrintable(QString::number(second)));
    }

    std::unique_ptr<testsupport::SingletonGuard> singletons;
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(TestCodeReaders)

#include "tst_CodeReaders.moc"
