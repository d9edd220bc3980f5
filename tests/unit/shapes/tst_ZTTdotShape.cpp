#include <support/Geometry.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTTdotShape.h>

#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtTest/QTest>

#include <memory>

namespace {

/** Shows the shape's own path, which only shapes see. */
class OpenTdot : public ZTTdotShape
{
public:
    const QPainterPath &path() const { return getPath(); }
};

struct Kinds
{
    int rects = 0;
    int strokes = 0;
    int circles = 0;
};

/** Counts the closed rectangles, two-point strokes and circles in front of the letters. */
Kinds figureOf(const QPainterPath &path, int subpaths)
{
    const QList<QPolygonF> polygons = path.toSubpathPolygons(QTransform());
    Kinds kinds;
    for (int i = 0; i < subpaths; ++i) {
        if (polygons[i].size() == 2)
            ++kinds.strokes;
        else if (polygons[i].size() == 5)
            ++kinds.rects;
        else
            ++kinds.circles;
    }
    return kinds;
}

} // namespace

class tst_ZTTdotShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard = std::make_unique<testsupport::SingletonGuard>(); }
    void cleanup() { guard.reset(); }

    void constructor_doesNotPaint()
    {
        ZTTdotShape shape;
        QCOMPARE(shape.getShapeType(), ShapeType::TDOT);
        QCOMPARE(shape.getRect(), QRectF(0, 0, 100, 100));
        QVERIFY(shape.isUpdate());
        QVERIFY(shape.getLines().isEmpty());
    }

    void paint_hasFrameLinesSquaresAndCirclesInOrder()
    {
        OpenTdot shape;
        shape.paint();
        const QList<QPolygonF> polygons = shape.path().toSubpathPolygons(QTransform());
        const Kinds kinds = figureOf(shape.path(), 1 + 4 + 11 + 7);
        QCOMPARE(kinds.rects, 12);
        QCOMPARE(kinds.strokes, 4);
        QCOMPARE(kinds.circles, 7);
        QVERIFY(polygons.size() > 23); // the letters follow
        QCOMPARE(polygons[0].boundingRect(), QRectF(0, 0, 100, 100));
        QCOMPARE(polygons[1], testsupport::polygon({{0, 0}, {100, 100}}));
        QCOMPARE(polygons[2], testsupport::polygon({{100, 0}, {0, 100}}));
        QCOMPARE(polygons[3], testsupport::polygon({{0, 50}, {100, 50}}));
        QCOMPARE(polygons[4], testsupport::polygon({{50, 0}, {50, 100}}));
    }

    void paint_squaresAndTheirCircles_standInTheTablesOrder()
    {
        OpenTdot shape;
        shape.paint();
        const QList<QPolygonF> polygons = shape.path().toSubpathPolygons(QTransform());
        const QList<QRectF> boxes = {{0, 0, 20, 20},   {0, 80, 20, 20},  {80, 0, 20, 20},
                                     {80, 80, 20, 20}, {40, 40, 20, 20}, {42, 42, 16, 16},
                                     {10, 10, 20, 20}, {12, 12, 16, 16}, {10, 70, 20, 20},
                                     {12, 72, 16, 16}, {70, 10, 20, 20}, {72, 12, 16, 16},
                                     {70, 70, 20, 20}, {72, 72, 16, 16}, {40, 40, 20, 20},
                                     {42, 42, 16, 16}, {20, 20, 60, 60}, {26, 26, 48, 48}};
        for (int i = 0; i < boxes.size(); ++i) {
            const QRectF box = polygons[5 + i].boundingRect();
            QVERIFY2(qAbs(box.left() - boxes[i].left()) < 1e-9 &&
                         qAbs(box.top() - boxes[i].top()) < 1e-9 &&
                         qAbs(box.width() - boxes[i].width()) < 1e-9 &&
                         qAbs(box.height() - boxes[i].height()) < 1e-9,
                     qPrintable(QString::number(i)));
        }
    }

    void paint_lettersAreThoseOfTheFourWords()
    {
        OpenTdot shape;
        shape.paint();
        QFont font;
        font.setPointSize(5);
        QPainterPath words;
        const auto add = [&](const QString &word, const QPointF &anchor) {
            const QRectF box = QFontMetrics(font).boundingRect(word);
            words.addText(anchor - box.center(), font, word);
        };
        add(QStringLiteral("up"), {50, 10});
        add(QStringLiteral("down"), {50, 90});
        add(QStringLiteral("left"), {10, 50});
        add(QStringLiteral("right"), {90, 50});
        QVERIFY(!words.isEmpty());
        const QList<QPolygonF> expected = words.toSubpathPolygons(QTransform());
        const QList<QPolygonF> polygons = shape.path().toSubpathPolygons(QTransform());
        QVERIFY(testsupport::same(polygons.mid(23), expected));
    }

    void setRect_movesFrameAndWordsOnly()
    {
        OpenTdot shape;
        shape.setRect(QRectF(200, 0, 100, 50));
        shape.paint();
        const QList<QPolygonF> polygons = shape.path().toSubpathPolygons(QTransform());
        QCOMPARE(polygons[0].boundingRect(), QRectF(200, 0, 100, 50));
        QCOMPARE(polygons[3], testsupport::polygon({{200, 25}, {300, 25}}));
        QCOMPARE(polygons[5].boundingRect(), QRectF(0, 0, 20, 20));
        for (const QPolygonF &letter : polygons.mid(23))
            QVERIFY(letter.boundingRect().left() > 199);
    }

    void paint_linesHoldTheWholeFigure()
    {
        ZTCoord::getInstance()->setHeight(1930.0);
        OpenTdot shape;
        shape.paint();
        QVERIFY(shape.controlPointRect().contains(QRectF(0, 0, 1000, 1000)));
        QCOMPARE(testsupport::polygonsOf(shape.getLines()).size(),
                 shape.path().toSubpathPolygons(QTransform()).size());
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTTdotShape)
#include "tst_ZTTdotShape.moc"
