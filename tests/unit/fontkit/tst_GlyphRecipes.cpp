#include <fontkit/GlyphRecipes.h>

#include <QtTest/QTest>

using fontkit::GlyphRecipes;
using fontkit::Recipe;
using fontkit::RecipePiece;
using Kind = fontkit::RecipePiece::Kind;

class tst_GlyphRecipes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pieces_areRead()
    {
        GlyphRecipes recipes;
        QString error;
        QVERIFY2(recipes.read("# comment\n\n"
                              "X 120: line 1,2 3,-4; curve 0,0 5,5 10,0; ring 50,60 7,8; dot 9,9\n"
                              "Y 240: box lhd-3; use X flip scale 0.5,2 move 10,-20\n",
                              &error),
                 qPrintable(error));
        const Recipe *recipe = recipes.of('X');
        QVERIFY(recipe != nullptr);
        QCOMPARE(recipe->advance, 120.0);
        QCOMPARE(recipe->pieces.size(), 4);
        QCOMPARE(recipe->pieces.at(0).points, (QVector<QPointF>{{1, 2}, {3, -4}}));
        QVERIFY(recipe->pieces.at(1).kind == Kind::Curve);
        QCOMPARE(recipe->pieces.at(2).points, (QVector<QPointF>{{50, 60}, {7, 8}}));
        QVERIFY(recipe->pieces.at(3).kind == Kind::Dot);
        const RecipePiece &use = recipes.of('Y')->pieces.at(1);
        QCOMPARE(recipes.of('Y')->pieces.at(0).arms, QStringLiteral("lhd-3"));
        QCOMPARE(use.used, uint('X'));
        QVERIFY(use.isFlipped);
        QCOMPARE(use.scale, QPointF(0.5, 2));
        QCOMPARE(use.move, QPointF(10, -20));
    }

    void frame_scalesAndMovesThePointsBelowIt_radiiAreScaledOnly()
    {
        GlyphRecipes recipes;
        QVERIFY(recipes.read("frame 9,2 100,50\nX 240: line 1,1 -2,3; ring 1,1 2,3\n", nullptr));
        QCOMPARE(recipes.of('X')->pieces.at(0).points, (QVector<QPointF>{{109, 52}, {82, 56}}));
        QCOMPARE(recipes.of('X')->pieces.at(1).points, (QVector<QPointF>{{109, 52}, {18, 6}}));
    }

    void characters_byNumberToo_andTheOnesToCompose()
    {
        GlyphRecipes recipes;
        QVERIFY(recipes.read("U+00A0 160:\n: 80: dot 40,10\ncompose éà\ncompose é\n", nullptr));
        QCOMPARE(recipes.characters(), (QVector<uint>{':', 0xA0, 0xE0, 0xE9}));
        QVERIFY(recipes.of(0xA0)->pieces.isEmpty());
        QVERIFY(recipes.of(0xE9) == nullptr);
    }

    void laterRecipe_standsInPlaceOfAnEarlierOne()
    {
        GlyphRecipes recipes;
        QVERIFY(recipes.read("X 100: dot 1,1\n", nullptr));
        QVERIFY(recipes.read("X 200: dot 1,1\n", nullptr));
        QCOMPARE(recipes.of('X')->advance, 200.0);
    }

    void wrongLine_isNamed_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("error");
        const QString head =
            QStringLiteral("line 1: a character, its advance and a colon expected");
        const auto row = [](const char *text, const QString &error) {
            QTest::newRow(text) << QByteArray(text) << error;
        };
        row("XY 100: dot 1,1", head);
        row("X: dot 1,1", head);
        row("X 1e9: dot 1,1", head);
        row("X 100 dot 1,1", head);
        row("U+12345 100: dot 1,1", head);
        row("X 100: line 1,1", QStringLiteral("line 1: \"line 1,1\" is no piece"));
        row("X 100: line 1,1 2", QStringLiteral("line 1: \"line 1,1 2\" is no piece"));
        row("X 100: ring 1,1", QStringLiteral("line 1: \"ring 1,1\" is no piece"));
        row("X 100: blob 1,1 2,2", QStringLiteral("line 1: \"blob 1,1 2,2\" is no piece"));
        row("X 100: box lx--", QStringLiteral("line 1: \"box lx--\" is no piece"));
        row("X 100: use", QStringLiteral("line 1: \"use\" is no piece"));
        row("X 100: use Y turn 1,1", QStringLiteral("line 1: \"use Y turn 1,1\" is no piece"));
        row("\nframe 1,1", QStringLiteral("line 2: frame SX,SY DX,DY expected"));
    }
    void wrongLine_isNamed()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, error);
        QString told;
        GlyphRecipes recipes;
        QVERIFY(!recipes.read(text, &told));
        QCOMPARE(told, error);
    }

    void onBoard_lettersAndSignsAreThere()
    {
        const GlyphRecipes letters = GlyphRecipes::alphabets();
        for (const QChar sign : QStringLiteral("ØøŁłßÆ€©®°±µ§ЖяあアΆ⌀"))
            QVERIFY2(letters.of(sign.unicode()) != nullptr, qPrintable(QString(sign)));
        QVERIFY(letters.of(0x2500) == nullptr); // lines of tables: of the big font alone
        QVERIFY(GlyphRecipes::bigFont().of(0x2500) != nullptr);
        QVERIFY(GlyphRecipes::bigFont().of(0x3105) != nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_GlyphRecipes)
#include "tst_GlyphRecipes.moc"
