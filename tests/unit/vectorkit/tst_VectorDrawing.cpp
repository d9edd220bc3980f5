#include <vectorkit/VectorDrawing.h>

#include <QtTest/QTest>

using vectorkit::VectorDrawing;
using vectorkit::VectorLayer;
using vectorkit::VectorNote;
using vectorkit::VectorPath;
using vectorkit::VectorShape;
using vectorkit::VectorText;

namespace {

VectorShape shapeOf(const QVector<VectorPath> &paths)
{
    VectorShape shape;
    shape.paths = paths;
    shape.strokeWidthMm = 0.5;
    return shape;
}

/** Two layers: a level line and an upright one; a circle, and a text. */
VectorDrawing sample()
{
    VectorDrawing drawing;
    drawing.layers.resize(2);
    drawing.layers[0].shapes = {shapeOf(
        {VectorPath::polyline({{10, 20}, {30, 20}}), VectorPath::polyline({{-5, 0}, {-5, 8}})})};
    drawing.layers[1].shapes = {shapeOf({VectorPath::circle(QPointF(0, 40), 2.0)})};
    VectorText text;
    text.positionMm = QPointF(100, 100);
    text.heightMm = 3.0;
    drawing.layers[1].texts = {text};
    drawing.declaredSizeMm = QSizeF(210, 297);
    drawing.unitMm = 0.025;
    return drawing;
}

} // namespace

class tst_VectorDrawing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void counts()
    {
        const VectorDrawing drawing = sample();
        QCOMPARE(drawing.shapeCount(), 2);
        QCOMPARE(drawing.pathCount(), 3);
        QCOMPARE(drawing.textCount(), 1);
        QVERIFY(!drawing.isEmpty());
        QVERIFY(VectorDrawing().isEmpty());
    }

    void boundsMm_levelAndUprightLines_count()
    {
        QCOMPARE(sample().boundsMm(), QRectF(QPointF(-5, 0), QPointF(30, 42)));
        QVERIFY(VectorDrawing().boundsMm().isNull());
    }

    void boundsMm_emptyPath_isNoPointAtTheOrigin()
    {
        VectorDrawing drawing;
        drawing.layers.resize(1);
        drawing.layers[0].shapes = {
            shapeOf({VectorPath(), VectorPath::polyline({{10, 10}, {20, 20}})})};
        QCOMPARE(drawing.boundsMm(), QRectF(10, 10, 10, 10));
    }

    void note_ofOneKindAndText_isCounted()
    {
        VectorDrawing drawing;
        drawing.note(VectorNote::Kind::Left, QStringLiteral("images"), QStringLiteral("line 3"));
        drawing.note(VectorNote::Kind::Left, QStringLiteral("images"), QStringLiteral("line 9"), 2);
        drawing.note(VectorNote::Kind::Damaged, QStringLiteral("images"), QString());
        QCOMPARE(drawing.notes.size(), 2);
        QCOMPARE(drawing.notes[0].count, 3);
        QCOMPARE(drawing.notes[0].where, QStringLiteral("line 3"));
        QCOMPARE(drawing.notes[1].count, 1);
    }

    void scale_takesAllSizesWithIt()
    {
        VectorDrawing drawing = sample();
        drawing.scale(2.0);
        QCOMPARE(drawing.boundsMm(), QRectF(QPointF(-10, 0), QPointF(60, 84)));
        QCOMPARE(drawing.layers[0].shapes[0].strokeWidthMm, 1.0);
        QCOMPARE(drawing.layers[1].texts[0].positionMm, QPointF(200, 200));
        QCOMPARE(drawing.layers[1].texts[0].heightMm, 6.0);
        QCOMPARE(drawing.declaredSizeMm, QSizeF(420, 594));
        QCOMPARE(drawing.unitMm, 0.05);
    }

    void pens_areThoseOfPlotters()
    {
        VectorDrawing drawing;
        drawing.format = vectorkit::VectorFormat::Hpgl;
        QVERIFY(drawing.hasPens());
        drawing.format = vectorkit::VectorFormat::Dxf; // its numbers are those of colours
        QVERIFY(!drawing.hasPens());
    }
};

QTEST_MAIN(tst_VectorDrawing)
#include "tst_VectorDrawing.moc"
