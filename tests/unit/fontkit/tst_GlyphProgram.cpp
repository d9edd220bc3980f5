#include <support/ShxWriter.h>

#include <fontkit/GlyphProgram.h>

#include <QtTest/QTest>

using fontkit::FontForm;
using fontkit::GlyphProgram;
using testsupport::bytes;

Q_DECLARE_METATYPE(GlyphProgram)

class tst_GlyphProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCode_isWrittenWithItsOperands()
    {
        GlyphProgram program;
        program.penDown().penUp().scaleDown(2).scaleUp(255).push().pop().subshape(0x41);
        program.line(-1, 127).lines({{1, 2}, {-128, 0}}).octantArc(5, {2, 3, true});
        program.fractionalArc(0x1234, {1, 8, false}, 55, 45).bulge({1, -2, -127});
        program.bulges({{1, 0, 3}, {0, 4, 0}}).verticalOnly().raw(bytes({0xF})).vector(1, 0);
        program.vector(15, 15).end();
        QCOMPARE(program.error(), QString());
        QCOMPARE(
            program.bytes(),
            bytes({1,    2,   3, 2, 4,   255, 5,    6,   7,  0x41, 8,    -1,   127,  9,    1, 2,
                   -128, 0,   0, 0, 0xA, 5,   0xA3, 0xB, 55, 45,   0x12, 0x34, 0x10, 0xC,  1, -2,
                   -127, 0xD, 1, 0, 3,   0,   4,    0,   0,  0,    0xE,  0xF,  0x10, 0xFF, 0}));
    }

    void subshape_takesTwoBytesInAUnifontAlone()
    {
        QCOMPARE(GlyphProgram(FontForm::Unifont).subshape(0x4F60).bytes(), bytes({7, 0x60, 0x4F}));
        QCOMPARE(GlyphProgram(FontForm::Bigfont).subshape(0xFF).bytes(), bytes({7, 0xFF}));
        QCOMPARE(GlyphProgram(FontForm::Bigfont).subshape(0x100).error(),
                 QStringLiteral("subshape 256 is not in 0 to 255"));
    }

    void bulge_withoutChord_hasNoBulgeByte()
    {
        QCOMPARE(GlyphProgram().bulge({0, 0, 5}).bytes(), bytes({0xC, 0, 0}));
    }

    void outOfRange_addsNothingAndTellsTheFirst_data()
    {
        QTest::addColumn<QString>("error");
        QTest::addColumn<GlyphProgram>("program");
        const auto row = [](const char *error, const GlyphProgram &program) {
            QTest::newRow(error) << QString::fromLatin1(error) << program;
        };
        row("a scale of 0 is not in 1 to 255", GlyphProgram().scaleUp(0));
        row("a scale of 256 is not in 1 to 255", GlyphProgram().scaleDown(256));
        row("subshape -1 is not in 0 to 255", GlyphProgram().subshape(-1));
        row("a length of 0 is not in 1 to 15", GlyphProgram().vector(0, 3));
        row("a length of 16 is not in 1 to 15", GlyphProgram().vector(16, 3));
        row("direction 16 is not in 0 to 15", GlyphProgram().vector(1, 16));
        row("a step of 128 is not in -128 to 127", GlyphProgram().line(128, 0));
        row("a step of -129 is not in -128 to 127", GlyphProgram().lines({{1, 1}, {0, -129}}));
        row("0,0 ends the list", GlyphProgram().lines({{1, 1}, {0, 0}}));
        row("a radius of 256 is not in 0 to 255", GlyphProgram().octantArc(256, {0, 1, false}));
        row("octant 8 is not in 0 to 7", GlyphProgram().octantArc(1, {8, 1, false}));
        row("a span of 0 is not in 1 to 8", GlyphProgram().octantArc(1, {0, 0, false}));
        row("a span of 9 is not in 1 to 8", GlyphProgram().fractionalArc(1, {0, 9, false}, 0, 0));
        row("a radius of 65536 is not in 0 to 65535",
            GlyphProgram().fractionalArc(65536, {0, 1, false}, 0, 0));
        row("a start of 256 is not in 0 to 255",
            GlyphProgram().fractionalArc(1, {0, 1, false}, 256, 0));
        row("an end of -1 is not in 0 to 255",
            GlyphProgram().fractionalArc(1, {0, 1, false}, 0, -1));
        row("a bulge of 128 is not in -128 to 127", GlyphProgram().bulge({1, 0, 128}));
        row("a bulge of -129 is not in -128 to 127", GlyphProgram().bulges({{1, 0, -129}}));
        row("0,0 ends the list ", GlyphProgram().bulges({{1, 0, 0}, {0, 0, 5}}));
    }

    void outOfRange_addsNothingAndTellsTheFirst()
    {
        QFETCH(QString, error);
        QFETCH(GlyphProgram, program);
        QCOMPARE(program.error(), error.trimmed());
        QCOMPARE(program.bytes(), QByteArray());
        program.vector(99, 0).end();
        QCOMPARE(program.error(), error.trimmed());
        QCOMPARE(program.bytes(), bytes({0}));
    }

    void lineAny_takesAsFewBytesAsItCan_data()
    {
        QTest::addColumn<int>("dx");
        QTest::addColumn<int>("dy");
        QTest::addColumn<QByteArray>("codes");
        QTest::newRow("nowhere") << 0 << 0 << QByteArray();
        QTest::newRow("east") << 15 << 0 << bytes({0xF0});
        QTest::newRow("south") << 0 << -3 << bytes({0x3C});
        QTest::newRow("diagonal") << -4 << 4 << bytes({0x46});
        QTest::newRow("half step") << 4 << 2 << bytes({0x41});
        QTest::newRow("other half step") << 1 << -2 << bytes({0x2D});
        QTest::newRow("no direction") << 4 << 1 << bytes({8, 4, 1});
        QTest::newRow("too long for one byte") << 16 << 0 << bytes({8, 16, 0});
        QTest::newRow("longest") << 127 << -127 << bytes({8, 127, -127});
        QTest::newRow("two pieces") << 200 << 3 << bytes({8, 100, 1, 8, 100, 2});
        QTest::newRow("-128 in two") << -128 << 0 << bytes({8, -64, 0, 8, -64, 0});
        QTest::newRow("three pieces") << 0 << -300 << bytes({8, 0, -100, 8, 0, -100, 8, 0, -100});
    }

    void lineAny_takesAsFewBytesAsItCan()
    {
        QFETCH(int, dx);
        QFETCH(int, dy);
        QTEST(GlyphProgram().lineAny(dx, dy).bytes(), "codes");
    }
};

QTEST_GUILESS_MAIN(tst_GlyphProgram)
#include "tst_GlyphProgram.moc"
