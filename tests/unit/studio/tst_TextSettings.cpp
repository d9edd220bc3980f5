#include "StudioTest.h"

#include "support/OwnFolder.h"
#include "support/ShxWriter.h"
#include "support/TinyFonts.h"

#include <studio/commands/TextState.h>
#include <studio/text/StrokeFonts.h>
#include <studio/text/TextSettings.h>

#include <hostkit/text/StrokeFont.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <cmath>

using studio::TextSettings;
using studio::TextState;

class tst_TextSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test = std::make_unique<DocumentTest>();
        testsupport::makeTinyFonts();
        item = newText();
    }
    void cleanup() { test.reset(); }

    void newText_isSetUp()
    {
        QCOMPARE(item->text(), QStringLiteral("TEXT"));
        const TextSettings settings = TextSettings::of(*item);
        QVERIFY(qAbs(settings.heightMm - 10.0) < 1e-9);
        QVERIFY(qAbs(settings.lineSpacingMm - 4.0) < 1e-9);
        QCOMPARE(settings.widthFactor, 1.0);
        QCOMPARE(settings.kind, FontType::doubleLine);
        QCOMPARE(settings.enName, QStringLiteral("tiny.shx"));
        QCOMPARE(settings.zhName, QStringLiteral("tinybig.shx"));
    }

    void newText_prefersThePlainFontsOfTheProgram()
    {
        const QString folder = hostkit::strokeFontFolder();
        QVERIFY(QFile::copy(folder + QStringLiteral("/tiny.shx"),
                            folder + QStringLiteral("/hershey-simplex.shx")));
        QVERIFY(QFile::copy(folder + QStringLiteral("/tinybig.shx"),
                            folder + QStringLiteral("/gb-strokes.shx")));
        ZTShxFontManager::release();
        const ZTGraphicsTextItem *other = newText();
        QCOMPARE(other->shxFont().enName, QStringLiteral("hershey-simplex.shx"));
        QCOMPARE(other->shxFont().zhName, QStringLiteral("gb-strokes.shx"));
    }

    void unchangedSettings_changeNothing()
    {
        item->setTransformParam(QTransform(0.1, 0.037, -0.031, 0.2, 3, 4));
        ZTRoundingParam arc;
        arc.diameter = 123.456;
        arc.spanAngle = 77.7;
        item->setRoundingParam(arc);
        const TextState before(*item);
        TextSettings::of(*item).applyTo(*item);
        QVERIFY(TextState(*item) == before);
    }

    void height_isThatOfCapitals_forBothKindsOfFont()
    {
        for (const FontType kind : {FontType::doubleLine, FontType::singleLine}) {
            TextSettings settings = TextSettings::of(*item);
            settings.kind = kind;
            settings.fixedText = QStringLiteral("A");
            settings.heightMm = 12.5;
            settings.applyTo(*item);
            QVERIFY(qAbs(heightMm() - 12.5) < (kind == FontType::singleLine ? 1e-9 : 0.05));
            QVERIFY(qAbs(TextSettings::of(*item).heightMm - 12.5) < 1e-9);
        }
    }

    void strokeFonts_keepTheirSharedHeight()
    {
        ZTGraphicsTextItem *other = newText();
        TextSettings small = TextSettings::of(*other);
        small.kind = FontType::singleLine;
        small.fixedText = QStringLiteral("A");
        small.heightMm = 2.0;
        small.applyTo(*other);
        TextSettings large = TextSettings::of(*item);
        large.kind = FontType::singleLine;
        large.heightMm = 30.0;
        large.applyTo(*item);
        test->document->itemMag()->getShapeLines(); // rebuilds both
        const double px = other->boundingRect().height();
        QVERIFY(qAbs(px - ZTCoord::getInstance()->mm2pix(2.0)) < 1e-9);
    }

    void turnedAndMirroredText_staysSo()
    {
        item->setTransformParam(QTransform(0.0, -0.2, -0.1, 0.0, 0, 0));
        TextSettings settings = TextSettings::of(*item);
        QVERIFY(qAbs(settings.widthFactor - 2.0) < 1e-12);
        settings.heightMm *= 3.0;
        settings.widthFactor = 1.0;
        settings.applyTo(*item);
        const QTransform turned = item->getTransformParam();
        QVERIFY(qAbs(turned.m11()) < 1e-12 && qAbs(turned.m22()) < 1e-12);
        QVERIFY(qAbs(turned.m12() + 0.3) < 1e-12 && qAbs(turned.m21() + 0.3) < 1e-12);
    }

    void degenerateTransform_isGivenASize()
    {
        item->setTransformParam(QTransform(0, 0, 0, 0, 0, 0));
        TextSettings settings = TextSettings::of(*item);
        QVERIFY(std::isfinite(settings.heightMm) && settings.heightMm > 0.0);
        settings.heightMm = 5.0;
        settings.applyTo(*item);
        QVERIFY(std::isfinite(item->getTransformParam().m11()));
    }

    void fontWithoutLetters_hasSomeHeight()
    {
        TextSettings settings = TextSettings::of(*item);
        settings.kind = FontType::singleLine;
        settings.enName = QStringLiteral("nowhere.shx");
        settings.applyTo(*item);
        QVERIFY(std::isfinite(item->getTransformParam().m11()));
        QCOMPARE(item->shxFont().enName, QStringLiteral("nowhere.shx"));
        QVERIFY(item->getShapeBase()->getLines().isEmpty());
    }

    void variantText_isKeptWhileSwitchedOff()
    {
        TextSettings settings = TextSettings::of(*item);
        settings.variantText.setSegments({ZTCounterSegment()});
        settings.applyTo(*item);
        QVERIFY(!item->isEnableVariantText());
        QCOMPARE(item->text(), QStringLiteral("TEXT"));
        const TextSettings stored = TextSettings::of(*item);
        QVERIFY(stored.variantText == settings.variantText);
        QVERIFY(!item->isEnableVariantText());
        settings.isVariant = true;
        settings.applyTo(*item);
        QCOMPARE(item->text(), QStringLiteral("1"));
    }

    void fontLists_nameEachFontOnce_sorted()
    {
        const QString folder = hostkit::strokeFontFolder();
        QVERIFY(QFile::remove(folder + QStringLiteral("/tinybig.shx")));
        QVERIFY(QFile::copy(folder + QStringLiteral("/tiny.shx"),
                            folder + QStringLiteral("/Alpha.shx")));
        ZTShxFontManager::release();
        QVERIFY(studio::bigStrokeFonts().isEmpty()); // each look at the empty list scans anew
        QVERIFY(studio::bigStrokeFonts().isEmpty());
        QCOMPARE(studio::regularStrokeFonts(),
                 (QStringList{QStringLiteral("Alpha.shx"), QStringLiteral("tiny.shx")}));
    }

private:
    ZTGraphicsTextItem *newText()
    {
        auto *made = static_cast<ZTGraphicsTextItem *>(test->add(ShapeType::Text, 0, 0));
        studio::setUpNewText(*made);
        return made;
    }

    double heightMm() const
    {
        return item->boundingRect().height() / ZTCoord::getInstance()->mm2pix(1.0);
    }

    std::unique_ptr<DocumentTest> test;
    ZTGraphicsTextItem *item = nullptr;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_TextSettings test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_TextSettings.moc"
