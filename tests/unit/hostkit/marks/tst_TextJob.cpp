#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>

#include <hostkit/marks/TextJob.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/text/StrokeFont.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>

using hostkit::MarkJobResult;
using hostkit::TextJobOptions;

namespace {

constexpr double kMarkPerMm = 500.0;

QRectF boxMm(const QPolygonF &lineMark)
{
    const QRectF box = lineMark.boundingRect();
    return QRectF(box.topLeft() / kMarkPerMm, box.size() / kMarkPerMm);
}

bool isClose(const QRectF &a, const QRectF &b)
{
    const auto close = [](const QPointF &p, const QPointF &q) {
        return std::abs(p.x() - q.x()) < 1e-9 && std::abs(p.y() - q.y()) < 1e-9;
    };
    return close(a.topLeft(), b.topLeft()) && close(a.bottomRight(), b.bottomRight());
}

bool isBefore(const QRectF &a, const QRectF &b) { return a.top() + a.left() < b.top() + b.left(); }

} // namespace

// Their capital "A" is a square of 8 units. At a height of 8 mm a unit of the tiny fonts is a
// millimetre: "B" is a square of 4 mm, and from one character to the next are 10 mm.
class tst_TextJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }

    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        testsupport::makeTinyFonts();
        options = TextJobOptions();
        options.heightMm = 8.0;
        options.font.fontType = FontType::singleLine;
        hostkit::Failure failure;
        QVERIFY2(hostkit::strokeFont(QStringLiteral("tiny.shx"), QStringLiteral("tinybig.shx"), {},
                                     &options.font.shxFont, &failure),
                 qPrintable(failure.reason));
        texts.clear();
    }
    void cleanup() { guard.reset(); }

    void strokes_haveTheirHeightInMillimetres()
    {
        add("AB");
        expectBoxes({{{0, 0, 8, 8}, {10, 4, 4, 4}}});
        options.heightMm = 4.0;
        expectBoxes({{{0, 0, 4, 4}, {5, 2, 2, 2}}});
    }

    void chineseCharacters_comeFromTheBigFont()
    {
        add("A你好");
        expectBoxes({{{0, 0, 8, 8}, {10, 0, 8, 8}, {20, 4, 4, 4}}});
    }

    void charSpacing_standsBehindEachCharacter()
    {
        add("AAB");
        options.heightMm = 4.0;
        options.charSpacingMm = 1.5;
        expectBoxes({{{0, 0, 4, 4}, {6.5, 0, 4, 4}, {13, 2, 2, 2}}});
    }

    /** The first line reaches 8 mm up from its base; 3 mm more are 11 from base to base. */
    void lineSpacing_standsBetweenTheLines()
    {
        add("A\nB");
        options.lineSpacingMm = 3.0;
        expectBoxes({{{0, 0, 8, 8}, {0, 15, 4, 4}}});
    }

    void severalTexts_standSideBySide_eachAnObject()
    {
        add("A");
        add("B");
        options.layout.gapMm = QSizeF(3.0, 0.0);
        expectBoxes({{{0, 0, 8, 8}}, {{11, 0, 4, 4}}});
    }

    void matrixAndRotation_areThoseOfOtherJobs()
    {
        add("AB");
        options.layout.rotateDeg = 90.0;
        options.layout.columns = 2;
        options.layout.gapMm = QSizeF(1.0, 0.0);
        // Upright, the letters' tops point to the right, and the text runs down.
        expectBoxes({{{0, 0, 8, 8}, {0, 10, 4, 4}}, {{9, 0, 8, 8}, {9, 10, 4, 4}}});
    }

    void order_goesFromObjectToObject()
    {
        add("A");
        add("B");
        options.layout.order = EShapeSortType::ShapeSortXFromMax;
        expectBoxes({{{10, 0, 4, 4}}, {{0, 0, 8, 8}}});
    }

    void systemFont_hasItsHeightInMillimetres()
    {
        options.font.fontType = FontType::doubleLine;
        options.font.font = QFont(QStringLiteral("DejaVu Sans"));
        options.heightMm = 5.0;
        add("H");
        double leastMark = 1e9;
        double mostMark = -1e9;
        const ZTMarkGraph graph = build().graph;
        for (const QPolygonF &line : graph.objects[0].lines) {
            leastMark = qMin(leastMark, line.boundingRect().top());
            mostMark = qMax(mostMark, line.boundingRect().bottom());
        }
        QVERIFY(std::abs(mostMark - leastMark - 5.0 * kMarkPerMm) < 1e-6);
    }

    void strokeFont_keepsItsHeightWhateverOthersSet()
    {
        options.font.shxFont.parser.setTextHeight(33.0);
        add("AB");
        expectBoxes({{{0, 0, 8, 8}, {10, 4, 4, 4}}});
    }

    /**
     * Half a turn to the right of the top: one character in the middle of its share stands at three
     * o'clock, lying on its side. The upper left corner lies on the circle, the rest inside.
     */
    void arc_hasTheDiameterAskedFor()
    {
        options.arc = {40.0, -90.0, 180.0};
        add("A");
        const QRectF one = boxesOf(build())[0][0];
        QVERIFY(isClose(one, QRectF(0, 0, 8, 8)));
        // Two characters of one height share the circle: they start at 45 and 315 degrees.
        texts.clear();
        add("AA");
        const QList<QPolygonF> lines = build().graph.objects[0].lines;
        QCOMPARE(lines.size(), 2);
        const auto corner = [](const QPolygonF &line) { return line[1] / kMarkPerMm; };
        const QPointF apart = corner(lines[0]) - corner(lines[1]);
        const double chordMm = 2.0 * 20.0 * std::sin(M_PI / 4.0);
        QVERIFY2(std::abs(std::hypot(apart.x(), apart.y()) - chordMm) < 1e-9,
                 qPrintable(QString::number(std::hypot(apart.x(), apart.y()), 'g', 17)));
    }

    void job_givesWhatAManagerGives()
    {
        options.font.fontType = FontType::doubleLine;
        options.font.font = QFont(QStringLiteral("DejaVu Sans"));
        QPainterPath capital;
        QFont em100(options.font.font);
        em100.setPixelSize(100);
        capital.addText(0.0, 0.0, em100, QStringLiteral("H"));
        options.heightMm = capital.boundingRect().height() / 10.0; // a new text's is a tenth
        options.layout.hatch = FillType::Line;
        options.layout.spacingMm = 0.5;
        add("Ag");
        const ZTMarkGraph graph = build().graph;

        ZTShapeManager manager(nullptr);
        auto *item = static_cast<ZTGraphicsTextItem *>(
            manager.addShape(ShapeType::Text, QRectF(0, 0, 0, 0)));
        ZTFontParam font = item->getFontParam();
        font.font = QFont(QStringLiteral("DejaVu Sans"));
        font.font.setPixelSize(100);
        font.wordSpac = 0.0;
        item->setFontParam(font);
        item->setText(QStringLiteral("Ag"));
        ZTFillParam fill;
        fill.fillType = FillType::Line;
        fill.spac = 0.5;
        item->getShapeBase()->setFillParam(fill);
        const ZTMarkGraph expected = manager.getShapeLines();

        QCOMPARE(graph.objects.size(), 1);
        const ZTMarkObject &object = graph.objects[0];
        const ZTMarkObject &wanted = expected.objects[0];
        QVERIFY(!wanted.fillLines.isEmpty());
        QCOMPARE(object.lines.size(), wanted.lines.size());
        QCOMPARE(object.fillLines.size(), wanted.fillLines.size());
        // The manager's own scale is a float.
        const auto close = [](const QPointF &a, const QPointF &b) {
            return std::abs(a.x() - b.x()) < 0.01 && std::abs(a.y() - b.y()) < 0.01;
        };
        for (int i = 0; i < wanted.lines.size(); ++i) {
            QCOMPARE(object.lines[i].size(), wanted.lines[i].size());
            for (int k = 0; k < wanted.lines[i].size(); ++k)
                QVERIFY(close(object.lines[i][k], wanted.lines[i][k]));
        }
        for (int i = 0; i < wanted.fillLines.size(); ++i)
            QVERIFY(close(object.fillLines[i].p1(), wanted.fillLines[i].p1()));
    }

    void variantText_movesOnWithEveryJob()
    {
        ZTVariantText text;
        ZTCounterSegment counter;
        counter.radix = ZTCounterRadix::Letters; // A, B
        QVERIFY(counter.setNextValue(1));
        counter.start = 0;
        text.setSegments({counter});
        texts.push_back(text);
        expectBoxes({{{0, 0, 8, 8}}});
        QCOMPARE(texts[0].getText(), QStringLiteral("A"));
        expectBoxes({{{0, 0, 4, 4}}});
        QCOMPARE(texts[0].getText(), QStringLiteral("B"));
    }

    void copies_showTheSameValue()
    {
        ZTVariantText text;
        ZTCounterSegment counter;
        counter.radix = ZTCounterRadix::Letters;
        counter.start = 0;
        text.setSegments({counter});
        texts.push_back(text);
        options.layout.columns = 2;
        expectBoxes({{{0, 0, 8, 8}}, {{10, 0, 8, 8}}});
        QCOMPARE(texts[0].getText(), QStringLiteral("A"));
    }

    void textWithoutStrokes_isAFailure()
    {
        add(" ");
        MarkJobResult result;
        hostkit::MarkJobFailure error;
        QVERIFY(!hostkit::buildTextJob(&texts, options, &result, &error));
        QCOMPARE(error.reason, QStringLiteral("nothing to mark: the text leaves no strokes"));
    }

    void tooManyCopies_areRefused()
    {
        add("A");
        options.layout.columns = 1001;
        options.layout.rows = 1000;
        MarkJobResult result;
        hostkit::MarkJobFailure error;
        QVERIFY(!hostkit::buildTextJob(&texts, options, &result, &error));
        QCOMPARE(error.reason,
                 QStringLiteral("too much work: 1,001,000 objects, the limit is 1,000,000"));
    }

private:
    using Boxes = QVector<QRectF>;

    void add(const char *text)
    {
        texts.emplace_back();
        texts.back().setSegments({ZTFixedTextSegment{QString::fromUtf8(text)}});
    }

    MarkJobResult build()
    {
        MarkJobResult result;
        hostkit::MarkJobFailure error;
        if (!hostkit::buildTextJob(&texts, options, &result, &error))
            qWarning("%s", qPrintable(error.reason));
        return result;
    }

    static QVector<Boxes> boxesOf(const MarkJobResult &result)
    {
        QVector<Boxes> all;
        for (const ZTMarkObject &object : result.graph.objects) {
            Boxes boxes;
            for (const QPolygonF &line : object.lines) {
                if (line.size() > 1)
                    boxes << boxMm(line);
            }
            // Which of two strokes comes first is not what is tested here.
            std::sort(boxes.begin(), boxes.end(), isBefore);
            all << boxes;
        }
        return all;
    }

    /** Boxes in millimetres of every stroke of every object. */
    void expectBoxes(const QVector<Boxes> &expected)
    {
        const QVector<Boxes> actual = boxesOf(build());
        QString text;
        QDebug(&text) << actual << "instead of" << expected;
        QVERIFY2(actual.size() == expected.size(), qPrintable(text));
        for (int i = 0; i < expected.size(); ++i) {
            QVERIFY2(actual[i].size() == expected[i].size(), qPrintable(text));
            for (int k = 0; k < expected[i].size(); ++k)
                QVERIFY2(isClose(actual[i][k], expected[i][k]), qPrintable(text));
        }
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
    TextJobOptions options;
    std::vector<ZTVariantText> texts;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QApplication application(argc, argv);
    tst_TextJob test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_TextJob.moc"
