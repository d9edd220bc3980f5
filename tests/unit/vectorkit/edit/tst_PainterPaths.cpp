#include <vectorkit/edit/PainterPaths.h>

#include <QtTest/QTest>

using vectorkit::painterPathOf;
using vectorkit::pathsOf;
using vectorkit::PieceKind;
using vectorkit::VectorPath;

class tst_PainterPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pathsOf_nothing_isNothing()
    {
        QVERIFY(pathsOf(QPainterPath()).isEmpty());
        QPainterPath point;
        point.moveTo(3, 4);
        QVERIFY(pathsOf(point).isEmpty());
    }

    void pathsOf_runs_areToldApart()
    {
        QPainterPath path;
        path.moveTo(0, 0);
        path.lineTo(10, 0);
        path.moveTo(20, 0);
        path.cubicTo(20, 5, 25, 10, 30, 10);
        path.lineTo(31, 10);
        const QVector<VectorPath> paths = pathsOf(path);
        QCOMPARE(paths.size(), 2);
        QCOMPARE(paths[0].polylinePoints(), (QVector<QPointF>{{0, 0}, {10, 0}}));
        QVERIFY(!paths[0].isClosed());
        QVector<VectorPath::Piece> pieces;
        paths[1].forEach([&](const VectorPath::Piece &piece) { pieces.append(piece); });
        QCOMPARE(pieces.size(), 2);
        QCOMPARE(pieces[0].kind, PieceKind::Cubic);
        QCOMPARE(pieces[0].control1, QPointF(20, 5));
        QCOMPARE(pieces[0].control2, QPointF(25, 10));
        QCOMPARE(pieces[1].kind, PieceKind::Line);
        QCOMPARE(paths[1].end(), QPointF(31, 10));
    }

    void pathsOf_runThatComesBack_isClosed()
    {
        QPainterPath path;
        path.addRect(1, 2, 30, 40);
        path.moveTo(50, 0);
        path.lineTo(60, 0);
        path.lineTo(60, 10);
        path.lineTo(50, 1e-9); // near is not there
        const QVector<VectorPath> paths = pathsOf(path);
        QCOMPARE(paths.size(), 2);
        QVERIFY(paths[0].isClosed());
        QCOMPARE(paths[0].pieceCount(), 4);
        QVERIFY(!paths[1].isClosed());
    }

    void bothWays_isTheSame()
    {
        VectorPath open({1, 1});
        open.cubicTo({2, 1}, {3, 2}, {3, 3});
        open.lineTo({9, 3});
        const VectorPath ring = VectorPath::polyline({{0, 0}, {4, 0}, {4, 4}}, true);
        const QVector<VectorPath> paths{open, ring};
        QCOMPARE(pathsOf(painterPathOf(paths)), paths);
    }

    void boundsOf_countsFlatOnesToo()
    {
        QCOMPARE(vectorkit::boundsOf({}), QRectF());
        const VectorPath level = VectorPath::polyline({{-3, 7}, {5, 7}});
        QCOMPARE(vectorkit::boundsOf({level}), QRectF(-3, 7, 8, 0));
        QCOMPARE(vectorkit::boundsOf({level, VectorPath(), VectorPath::circle({0, 0}, 2.0)}),
                 QRectF(-3, -2, 8, 9));
    }

    void painterPathOf_circle_isRoundAndClosed()
    {
        const QVector<VectorPath> paths =
            pathsOf(painterPathOf({VectorPath::circle({5, 5}, 100.0)}));
        QCOMPARE(paths.size(), 1);
        QVERIFY(paths[0].isClosed());
        // A curve per eighth keeps within a two-hundred-thousandth of the radius.
        const QPolygonF points = paths[0].flattened(1e-5);
        for (const QPointF &point : points) {
            const QPointF from = point - QPointF(5, 5);
            QVERIFY(qAbs(std::hypot(from.x(), from.y()) - 100.0) < 0.0005);
        }
    }
};

QTEST_APPLESS_MAIN(tst_PainterPaths)
#include "tst_PainterPaths.moc"
