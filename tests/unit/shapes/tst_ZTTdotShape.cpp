#include <support/Geometry.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTTdotShape.h>

#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <memory>
#include <random>

namespace {

/** Shows the shape's own path, which only shapes see. */
class OpenTdot : public ZTTdotShape
{
public:
    QPainterPath &path() const { return getPath(); }
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

/** The figure laid out step by step, nothing of it kept. */
QPainterPath plainFigure(const QRectF &r)
{
    QPainterPath path;
    path.addRect(r);
    const auto addStroke = [&path](const QPointF &from, const QPointF &to) {
        path.moveTo(from);
        path.lineTo(to);
    };
    const QPointF centre = r.center();
    addStroke(r.topLeft(), r.bottomRight());
    addStroke(r.topRight(), r.bottomLeft());
    addStroke({r.left(), centre.y()}, {r.right(), centre.y()});
    addStroke({centre.x(), r.top()}, {centre.x(), r.bottom()});
    const QVector<QRectF> squares = {{0, 0, 20, 20},   {0, 80, 20, 20},  {80, 0, 20, 20},
                                     {80, 80, 20, 20}, {40, 40, 20, 20}, {10, 10, 20, 20},
                                     {10, 70, 20, 20}, {70, 10, 20, 20}, {70, 70, 20, 20},
                                     {40, 40, 20, 20}, {20, 20, 60, 60}};
    for (int i = 0; i < squares.size(); ++i) {
        path.addRect(squares[i]);
        const QPointF middle = squares[i].center();
        QTransform shrink;
        shrink.translate(middle.x(), middle.y());
        shrink.scale(0.8, 0.8);
        shrink.translate(-middle.x(), -middle.y());
        if (i >= 4)
            path.addEllipse(shrink.mapRect(squares[i]));
    }
    QFont font;
    font.setPointSize(5);
    const auto addWord = [&](const QString &word, const QPointF &anchor) {
        const QRectF box = QFontMetrics(font).boundingRect(word);
        path.addText(anchor - box.center(), font, word);
    };
    addWord(QStringLiteral("up"), {centre.x(), r.top() + 10});
    addWord(QStringLiteral("down"), {centre.x(), r.bottom() - 10});
    addWord(QStringLiteral("left"), {r.left() + 10, centre.y()});
    addWord(QStringLiteral("right"), {r.right() - 10, centre.y()});
    return path;
}

/** Every number with all its bits, the sign of a zero too. */
QByteArray bitsOf(const QPainterPath &path)
{
    QByteArray bits;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element &element = path.elementAt(i);
        bits += QByteArray::number(element.type);
        bits += QByteArray(reinterpret_cast<const char *>(&element.x), sizeof element.x);
        bits += QByteArray(reinterpret_cast<const char *>(&element.y), sizeof element.y);
    }
    return bits;
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

    /** Figures over the usual rectangle share their path: whatever was painted in between. */
    void paint_anyRect_isThePlainFigureToTheBit()
    {
        std::mt19937 dice(11);
        std::uniform_real_distribution<double> some(-200.0, 200.0);
        QVector<QRectF> rects = {
            {0, 0, 100, 100},     {-0.0, 0, 100, 100}, {0, 0, 100 + 1e-13, 100},
            {1e-14, 0, 100, 100}, {0, 0, 0, 0},        {0, 0, 100, 100}};
        for (int i = 0; i < 1000; ++i) {
            rects << QRectF(some(dice), some(dice), some(dice), some(dice));
            if (i % 4 == 0)
                rects << QRectF(0, 0, 100, 100);
        }
        for (const QRectF &r : qAsConst(rects)) {
            OpenTdot shape;
            shape.setRect(QRectF(7, 7, 7, 7)); // or a nearly equal one is not taken
            shape.setRect(r);
            shape.paint();
            QCOMPARE(bitsOf(shape.path()), bitsOf(plainFigure(r)));
        }
    }

    void paint_ownPathWrittenTo_othersKeepTheirs()
    {
        OpenTdot first;
        first.paint();
        first.path().lineTo(1e3, 1e3);
        OpenTdot second;
        second.paint();
        QCOMPARE(bitsOf(second.path()), bitsOf(plainFigure({0, 0, 100, 100})));
    }

    void paint_programsFontChanged_lettersFollow()
    {
        const QFont before = QGuiApplication::font();
        OpenTdot shape;
        shape.paint();
        QFont bold = before;
        bold.setBold(true);
        QGuiApplication::setFont(bold);
        OpenTdot other;
        other.paint();
        const QByteArray ours = bitsOf(other.path());
        const QByteArray plain = bitsOf(plainFigure({0, 0, 100, 100}));
        QGuiApplication::setFont(before);
        QCOMPARE(ours, plain);
        QVERIFY(ours != bitsOf(shape.path()));
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
