#include <codekit/shape/CodeSettings.h>

#include <QtTest/QtTest>

using namespace codekit;

namespace {

/** Every field away from its default. */
CodeSettings unusual()
{
    CodeSettings settings;
    settings.spec.kind = CodeKind::Pdf417;
    settings.spec.level = 3;
    settings.spec.version = 7;
    settings.spec.mask = 2;
    settings.spec.columns = 4;
    settings.spec.isRectangular = true;
    settings.spec.hasCheckDigit = true;
    settings.spec.hasEscapes = true;
    settings.spec.charset = CodeCharset::Gbk;
    settings.form.style = CodeStyle::Dots;
    settings.form.moduleMm = 0.31;
    settings.form.heightMm = 7.25;
    settings.form.growthMm = 0.02;
    settings.form.dotShare = 0.7;
    settings.form.isInverse = true;
    settings.human.place = HumanPlace::Above;
    settings.human.kind = FontType::singleLine;
    settings.human.font = QFont(QStringLiteral("DejaVu Serif"));
    settings.human.font.setBold(true);
    settings.human.font.setItalic(true);
    settings.human.enName = QStringLiteral("plain.shx");
    settings.human.zhName = QStringLiteral("大.shx");
    settings.human.heightMm = 1.8;
    settings.human.widthFactor = 0.9;
    settings.human.charSpacingMm = 0.15;
    settings.isSizedByWidth = true;
    settings.widthMm = 22.5;
    settings.showsQuietZone = true;
    return settings;
}

} // namespace

class TestCodeSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytes_bringEverythingBack()
    {
        CodeSettings read;
        QVERIFY(read != unusual());
        QVERIFY(codeSettingsFromBytes(codeSettingsToBytes(unusual()), &read));
        QVERIFY(read == unusual());
        // What comparing overlooked would show in the bytes.
        QCOMPARE(codeSettingsToBytes(read), codeSettingsToBytes(unusual()));
        QCOMPARE(read.human.font.family(), QStringLiteral("DejaVu Serif"));
    }

    void contentAndFontSize_areNoSettings()
    {
        CodeSettings other = unusual();
        other.spec.content = QStringLiteral("else");
        other.human.font.setPixelSize(7);
        QVERIFY(other == unusual());
        QCOMPARE(codeSettingsToBytes(other), codeSettingsToBytes(unusual()));
    }

    void everyCutAndEveryOtherVersion_isRefused()
    {
        const QByteArray whole = codeSettingsToBytes(unusual());
        CodeSettings read = unusual();
        for (int size = 0; size < whole.size(); ++size)
            QVERIFY2(!codeSettingsFromBytes(whole.left(size), &read), QByteArray::number(size));
        QVERIFY(!codeSettingsFromBytes(whole + '\0', &read));
        QByteArray later = whole;
        later[0] = 2;
        QVERIFY(!codeSettingsFromBytes(later, &read));
        QVERIFY(read == unusual());
    }

    void valuesOutOfTheirRange_areRefused()
    {
        CodeSettings read;
        QByteArray noKind = codeSettingsToBytes(unusual());
        noKind[1] = 20;
        QVERIFY(!codeSettingsFromBytes(noKind, &read));
        for (const double module : {0.0, -1.0, double(qInf()), double(qQNaN())}) {
            CodeSettings bad = unusual();
            bad.form.moduleMm = module;
            QVERIFY(!codeSettingsFromBytes(codeSettingsToBytes(bad), &read));
        }
    }

    void enlarged_multipliesLengthsAlone()
    {
        const CodeSettings larger = enlarged(unusual(), 2.0);
        QCOMPARE(larger.form.moduleMm, 0.62);
        QCOMPARE(larger.form.heightMm, 14.5);
        QCOMPARE(larger.form.growthMm, 0.04);
        QCOMPARE(larger.form.dotShare, 0.7);
        QCOMPARE(larger.widthMm, 45.0);
        QCOMPARE(larger.human.heightMm, 3.6);
        QCOMPARE(larger.human.charSpacingMm, 0.3);
        QCOMPARE(larger.human.widthFactor, 0.9);
        QVERIFY(larger.spec.kind == CodeKind::Pdf417);
    }
};

QTEST_MAIN(TestCodeSettings)

#include "tst_CodeSettings.moc"
