#include <support/SingletonGuard.h>

#include <hostkit/items/GraphicItems.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

#include <cmath>

using hostkit::addGraphic;
using hostkit::drawingFor;
using hostkit::graphicOf;
using hostkit::outlinesOf;
using vectorkit::VectorPath;

/** Outlines of items, and items of outlines. */
class tst_GraphicItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        document = std::make_unique<ZTGraphicsDocument>();
    }
    void cleanup()
    {
        document.reset();
        guard.reset();
    }

    void outlinesOf_movedAndTurnedRectangle_liesOnTheScene()
    {
        ZTAbstractGraphicsItem *item = added(ShapeType::Rect, {0, 0, 20, 10});
        item->setTransformParam(QTransform(0, 1, -1, 0, 0, 0)); // a quarter turn clockwise
        item->setPos(px({100, 50}));
        const QVector<VectorPath> paths = outlinesOf(*item);
        QCOMPARE(paths.size(), 1);
        QVERIFY(paths[0].isClosed());
        QCOMPARE(paths[0].pieceCount(), 4);
        QVERIFY(isNear(paths[0].boundsMm(), {90, 50, 10, 20}));
    }

    void outlinesOf_ellipse_keepsItsCurves()
    {
        const QVector<VectorPath> paths = outlinesOf(*added(ShapeType::Ellipse, {0, 0, 20, 10}));
        QCOMPARE(paths.size(), 1);
        QVERIFY(paths[0].isClosed());
        QVERIFY(!paths[0].isPolyline());
        QCOMPARE(paths[0].pieceCount(), 4);
        QVERIFY(isNear(paths[0].boundsMm(), {-10, -5, 20, 10})); // about its middle
    }

    void outlinesOf_line_isItsTwoEnds()
    {
        ZTAbstractGraphicsItem *item = added(ShapeType::Line, {0, 0, 10, 10});
        item->setPos(px({5, 5}));
        const QVector<VectorPath> paths = outlinesOf(*item);
        QCOMPARE(paths.size(), 1);
        QVERIFY(!paths[0].isClosed());
        QCOMPARE(paths[0].pieceCount(), 1);
        QVERIFY(isNear(paths[0].boundsMm(), {5, 5, 10, 10}));
    }

    void outlinesOf_text_areItsLetters()
    {
        ZTAbstractGraphicsItem *item = added(ShapeType::Text, {0, 0, 10, 10});
        qobject_cast<ZTGraphicsTextItem *>(item)->setFixedText(QStringLiteral("o"));
        item->setPos(px({30, 40}));
        const QVector<VectorPath> paths = outlinesOf(*item);
        QCOMPARE(paths.size(), 2); // the letter and its hole
        QVERIFY(paths[0].isClosed() && paths[1].isClosed());
        const QRectF linesMm = ZTCoord::getInstance()->getPix2MmTransform().mapRect(
            item->getShapeBase()->getLines().boundingRect().translated(item->pos()));
        QRectF box = paths[0].boundsMm() | paths[1].boundsMm();
        QVERIFY(std::abs(box.left() - linesMm.left()) < 0.01);
        QVERIFY(std::abs(box.bottom() - linesMm.bottom()) < 0.01);
    }

    void outlinesOf_emptyGraphic_isNotTheWordThatItShows()
    {
        QVERIFY(outlinesOf(*added(ShapeType::VecGraph, {0, 0, 10, 10})).isEmpty());
    }

    void addGraphic_showsOutlinesWhereTheyLie()
    {
        VectorPath open({3, 4});
        open.cubicTo({3, 10}, {20, 10}, {20, 4});
        const QVector<VectorPath> paths{VectorPath::polyline({{-7, 2}, {5, 2}, {5, 8}}, true),
                                        open};
        const ZTAbstractGraphicsItem *item = addGraphic(*document, paths);
        QVERIFY(item != nullptr);
        QCOMPARE(item->getShapeType(), ShapeType::VecGraph);
        const QVector<VectorPath> shown = outlinesOf(*item);
        QCOMPARE(shown.size(), 2);
        QVERIFY(shown[0].isClosed());
        QVERIFY(!shown[1].isClosed());
        QVERIFY(isNear(shown[0].boundsMm(), {-7, 2, 12, 6}));
        QVERIFY(isNear(shown[1].boundsMm(), {3, 4, 17, 4.5}));
        // Its own frame begins at the corner of the box.
        QVERIFY(isNear(graphicOf(*item)->getDrawing().controlPointRect().topLeft(), {0, 0}));
    }

    void addGraphic_ofNothing_isNone()
    {
        QVERIFY(addGraphic(*document, {}) == nullptr);
        QVERIFY(document->itemMag()->itemModel()->rowCount() == 0);
    }

    void addGraphic_copied_keepsItsDrawing()
    {
        ZTAbstractGraphicsItem *item =
            addGraphic(*document, {VectorPath::polyline({{0, 0}, {5, 0}, {5, 5}}, true)});
        const std::unique_ptr<ZTAbstractGraphicsItem> copy(
            ZTGraphicsItemFactory::create(ShapeType2String(ShapeType::VecGraph)));
        copy->copy(item);
        QCOMPARE(graphicOf(*copy)->getDrawing(), graphicOf(*item)->getDrawing());
    }

    void drawingFor_turnedGraphic_isInItsOwnFrame()
    {
        ZTAbstractGraphicsItem *item =
            addGraphic(*document, {VectorPath::polyline({{0, 0}, {10, 0}, {10, 10}}, true)});
        item->setTransformParam(QTransform(0, 2, -2, 0, 0, 0)); // turned, and twice as large
        item->setPos(px({100, 0}));
        QPainterPath drawing;
        // On the scene (100 - 2y, 2x) of its own.
        QVERIFY(drawingFor(*item, {VectorPath::polyline({{98, 0}, {98, 6}})}, &drawing));
        QCOMPARE(drawing.elementCount(), 2);
        QVERIFY(isNear(drawing.elementAt(0), {0, 1}));
        QVERIFY(isNear(drawing.elementAt(1), {3, 1}));
    }

    void drawingFor_whatCannotBe_isRefused()
    {
        const QVector<VectorPath> paths{VectorPath::polyline({{0, 0}, {1, 1}})};
        QPainterPath drawing;
        QVERIFY(!drawingFor(*added(ShapeType::Rect, {0, 0, 1, 1}), paths, &drawing));
        ZTAbstractGraphicsItem *flat = addGraphic(*document, paths);
        flat->setTransformParam(QTransform::fromScale(1, 0));
        QVERIFY(!drawingFor(*flat, paths, &drawing));
    }

private:
    ZTAbstractGraphicsItem *added(ShapeType type, const QRectF &rectMm)
    {
        ZTAbstractGraphicsItem *item = document->itemMag()->addShape(type, rectMm);
        item->getShapeBase()->setRect(rectMm);
        return item;
    }

    static QPointF px(const QPointF &placeMm)
    {
        return ZTCoord::getInstance()->getMm2pixTransform().map(placeMm);
    }

    static bool isNear(const QPointF &a, const QPointF &b)
    {
        return std::hypot(a.x() - b.x(), a.y() - b.y()) < 1e-9;
    }

    static bool isNear(const QRectF &a, const QRectF &b)
    {
        return isNear(a.topLeft(), b.topLeft()) && isNear(a.bottomRight(), b.bottomRight());
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(tst_GraphicItems)
#include "tst_GraphicItems.moc"
