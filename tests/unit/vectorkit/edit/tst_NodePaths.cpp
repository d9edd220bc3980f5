#include <vectorkit/edit/NodePaths.h>

#include <QtTest/QTest>

#include <cmath>

using vectorkit::NodePaths;
using vectorkit::NodeRef;
using vectorkit::PieceKind;
using vectorkit::VectorPath;

namespace {

const QVector<QPointF> kSquare{{0, 0}, {10, 0}, {10, 10}, {0, 10}};

NodePaths square() { return NodePaths({VectorPath::polyline(kSquare, true)}); }

NodePaths zigzag() { return NodePaths({VectorPath::polyline({{0, 0}, {10, 0}, {10, 10}})}); }

QVector<VectorPath::Piece> piecesOf(const VectorPath &path)
{
    QVector<VectorPath::Piece> pieces;
    path.forEach([&](const VectorPath::Piece &piece) { pieces.append(piece); });
    return pieces;
}

bool isNear(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y()) < 1e-9;
}

} // namespace

class tst_NodePaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paths_unchanged_areWhatCameIn()
    {
        VectorPath curve({1, 1});
        curve.cubicTo({2, 1}, {3, 2}, {3, 3});
        curve.lineTo({9, 3});
        VectorPath drop({0, 0});
        drop.cubicTo({5, 0}, {0, 5}, {0, 0});
        drop.close();
        const QVector<VectorPath> paths{VectorPath::polyline(kSquare, true), curve, drop};
        QCOMPARE(NodePaths(paths).paths(), paths);
        QCOMPARE(square().nodeCount(), 4);
        QVERIFY(NodePaths(QVector<VectorPath>()).paths().isEmpty());
    }

    void circle_isSmoothAllAround()
    {
        const NodePaths nodes({VectorPath::circle({0, 0}, 5)});
        QCOMPARE(nodes.nodeCount(), 8);
        for (const vectorkit::PathNode &node : nodes.runs().first().nodes)
            QVERIFY(node.isSmooth);
    }

    void nearest_findsThePlaceOnALineAndACurve()
    {
        const auto onLine = square().nearest({4, -0.5}, 1.0);
        QVERIFY(onLine.has_value());
        QCOMPARE(onLine->piece, (NodeRef{0, 0}));
        QVERIFY(isNear(onLine->place, {4, 0}));
        QVERIFY(std::abs(onLine->part - 0.4) < 1e-9);
        // The piece that closes the outline counts as well.
        QCOMPARE(square().nearest({-0.2, 5}, 1.0)->piece, (NodeRef{0, 3}));
        QVERIFY(!square().nearest({5, 5}, 1.0).has_value());
        const NodePaths circle({VectorPath::circle({0, 0}, 5)});
        const auto onCurve = circle.nearest({7 * std::cos(0.3), -7 * std::sin(0.3)}, 3.0);
        QVERIFY(std::hypot(onCurve->place.x() - 5 * std::cos(0.3),
                           onCurve->place.y() + 5 * std::sin(0.3)) < 1e-4);
    }

    void move_takesControlsAlong()
    {
        VectorPath curve({0, 0});
        curve.cubicTo({1, 0}, {4, 1}, {5, 1});
        NodePaths nodes({curve});
        nodes.move({{0, 1}}, {10, 2});
        const VectorPath::Piece moved = piecesOf(nodes.paths().first()).first();
        QCOMPARE(moved.from, QPointF(0, 0));
        QCOMPARE(moved.control1, QPointF(1, 0));
        QCOMPARE(moved.control2, QPointF(14, 3));
        QCOMPARE(moved.to, QPointF(15, 3));
    }

    void move_firstNodeOfAnOutline_keepsItClosed()
    {
        NodePaths nodes = square();
        nodes.move({{0, 0}}, {-2, -3});
        QCOMPARE(nodes.paths().first(),
                 VectorPath::polyline({{-2, -3}, {10, 0}, {10, 10}, {0, 10}}, true));
    }

    void moveControl_ofASmoothNode_turnsTheOther()
    {
        NodePaths nodes({VectorPath::circle({0, 0}, 5)});
        const vectorkit::PathNode before = nodes.node({0, 0}); // at three o'clock
        nodes.moveControl({0, 0}, true, before.place + QPointF(2, 0));
        const vectorkit::PathNode after = nodes.node({0, 0});
        QVERIFY(isNear(after.out, before.place + QPointF(2, 0)));
        // In line on the other side, as long as it was.
        const double length = std::hypot(before.in.x() - 5, before.in.y());
        QVERIFY(isNear(after.in, before.place - QPointF(length, 0)));
        QVERIFY(nodes.corner({{0, 0}}));
        nodes.moveControl({0, 0}, true, before.place + QPointF(0, 1));
        QVERIFY(isNear(nodes.node({0, 0}).in, after.in));
    }

    void insert_changesNoLine()
    {
        NodePaths nodes = square();
        QCOMPARE(nodes.insert({{0, 3}, 0.5, {}}), (NodeRef{0, 4}));
        QCOMPARE(nodes.paths().first(),
                 VectorPath::polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}}, true));
        VectorPath curve({0, 0});
        curve.cubicTo({0, 8}, {8, 8}, {8, 0});
        NodePaths bent({curve});
        bent.insert({{0, 0}, 0.5, {}});
        QCOMPARE(bent.nodeCount(), 3);
        QVERIFY(isNear(bent.node({0, 1}).place, {4, 6})); // de Casteljau by hand
        QVERIFY(isNear(bent.node({0, 1}).in, {2, 6}));
        QVERIFY(isNear(bent.node({0, 1}).out, {6, 6}));
        QVERIFY(isNear(bent.node({0, 0}).out, {0, 4}));
        QVERIFY(isNear(bent.node({0, 2}).in, {8, 4}));
        QVERIFY(bent.node({0, 1}).isSmooth);
    }

    void remove_joinsWhatIsLeft()
    {
        NodePaths nodes = square();
        nodes.remove({{0, 1}});
        QCOMPARE(nodes.paths().first(), VectorPath::polyline({{0, 0}, {10, 10}, {0, 10}}, true));
        nodes.remove({{0, 0}, {0, 2}}); // one node is no run
        QVERIFY(nodes.paths().isEmpty());
        QVERIFY(nodes.runs().isEmpty());
    }

    void remove_allOfARun_takesTheRun()
    {
        NodePaths nodes(
            {VectorPath::polyline(kSquare, true), VectorPath::polyline({{0, 0}, {1, 1}})});
        nodes.remove({{0, 0}, {0, 1}, {0, 2}, {0, 3}});
        QCOMPARE(nodes.paths(), QVector<VectorPath>{VectorPath::polyline({{0, 0}, {1, 1}})});
    }

    void breakAt_opensAnOutline()
    {
        NodePaths nodes = square();
        QVERIFY(nodes.breakAt({{0, 1}}));
        QCOMPARE(nodes.paths().first(),
                 VectorPath::polyline({{10, 0}, {10, 10}, {0, 10}, {0, 0}, {10, 0}}));
    }

    void breakAt_twoNodesOfAnOutline_makesTwoRuns()
    {
        NodePaths nodes = square();
        QVERIFY(nodes.breakAt({{0, 1}, {0, 3}}));
        QCOMPARE(nodes.paths(),
                 (QVector<VectorPath>{VectorPath::polyline({{10, 0}, {10, 10}, {0, 10}}),
                                      VectorPath::polyline({{0, 10}, {0, 0}, {10, 0}})}));
    }

    void breakAt_openRun_splits_andEndsStay()
    {
        NodePaths nodes = zigzag();
        QVERIFY(!nodes.breakAt({{0, 0}, {0, 2}}));
        QVERIFY(nodes.breakAt({{0, 1}}));
        QCOMPARE(nodes.paths(), (QVector<VectorPath>{VectorPath::polyline({{0, 0}, {10, 0}}),
                                                     VectorPath::polyline({{10, 0}, {10, 10}})}));
    }

    void join_endsOfOneRun_closesIt()
    {
        NodePaths nodes({VectorPath::polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 2}})});
        QVERIFY(nodes.join({0, 0}, {0, 4}));
        QCOMPARE(nodes.paths().first(),
                 VectorPath::polyline({{0, 1}, {10, 0}, {10, 10}, {0, 10}}, true));
    }

    void join_endsOfTwoRuns_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        QTest::addColumn<QPointF>("start");
        QTest::addColumn<QPointF>("middle");
        QTest::addColumn<QPointF>("end");
        // 0,0 to 4,0 and 6,0 to 6,8
        QTest::newRow("end to start") << 1 << 0 << QPointF(0, 0) << QPointF(5, 0) << QPointF(6, 8);
        QTest::newRow("end to end") << 1 << 1 << QPointF(0, 0) << QPointF(5, 4) << QPointF(6, 0);
        QTest::newRow("start to start")
            << 0 << 0 << QPointF(4, 0) << QPointF(3, 0) << QPointF(6, 8);
        QTest::newRow("start to end") << 0 << 1 << QPointF(4, 0) << QPointF(3, 4) << QPointF(6, 0);
    }
    void join_endsOfTwoRuns()
    {
        QFETCH(int, first);
        QFETCH(int, second);
        QFETCH(QPointF, start);
        QFETCH(QPointF, middle);
        QFETCH(QPointF, end);
        for (const bool isTurned : {false, true}) {
            NodePaths nodes(
                {VectorPath::polyline({{0, 0}, {4, 0}}), VectorPath::polyline({{6, 0}, {6, 8}})});
            const NodeRef a{0, first};
            const NodeRef b{1, second};
            QVERIFY(isTurned ? nodes.join(b, a) : nodes.join(a, b));
            QCOMPARE(nodes.paths().size(), 1);
            const VectorPath joined =
                isTurned ? nodes.paths().first().reversed() : nodes.paths().first();
            QCOMPARE(joined.polylinePoints(), (QVector<QPointF>{start, middle, end}));
        }
    }

    void join_whatIsNoEnd_isRefused()
    {
        NodePaths nodes = zigzag();
        QVERIFY(!nodes.join({0, 0}, {0, 1}));
        QVERIFY(!nodes.join({0, 0}, {0, 0}));
        NodePaths line({VectorPath::polyline({{0, 0}, {4, 0}})});
        QVERIFY(!line.join({0, 0}, {0, 1})); // a line and its way back are no outline
        QCOMPARE(nodes.paths(), zigzag().paths());
    }

    void toCurveAndBack_keepsTheLine()
    {
        NodePaths nodes = zigzag();
        QVERIFY(nodes.toCurve({{0, 0}}));
        const VectorPath::Piece curve = piecesOf(nodes.paths().first()).first();
        QCOMPARE(curve.kind, PieceKind::Cubic);
        QVERIFY(isNear(curve.control1, {10.0 / 3.0, 0}));
        QVERIFY(isNear(curve.control2, {20.0 / 3.0, 0}));
        QVERIFY(!nodes.toCurve({{0, 0}}));
        QVERIFY(!nodes.toCurve({{0, 2}})); // the end: no piece begins there
        QVERIFY(nodes.toLine({{0, 0}}));
        QCOMPARE(nodes.paths(), zigzag().paths());
        QVERIFY(!nodes.toLine({{0, 0}}));
    }

    void cornerMarks_keepWhatPathsCannotTell()
    {
        // Two waves: their inner nodes are run through in one direction.
        VectorPath wave({0, 0});
        wave.cubicTo({0, 5}, {5, 5}, {10, 5});
        wave.cubicTo({15, 5}, {20, 5}, {20, 0});
        VectorPath other = wave.transformed(QTransform::fromTranslate(0, 30));
        NodePaths nodes({wave, other});
        QVERIFY(nodes.node({0, 1}).isSmooth && nodes.node({1, 1}).isSmooth);
        QCOMPARE(nodes.cornerMarks(), QByteArray());
        QVERIFY(nodes.corner({{1, 1}}));
        QCOMPARE(nodes.cornerMarks(), QByteArray("6:4"));

        NodePaths again(nodes.paths());
        QVERIFY(again.node({1, 1}).isSmooth); // the paths alone say so
        again.takeCornerMarks(nodes.cornerMarks());
        QVERIFY(!again.node({1, 1}).isSmooth);
        QVERIFY(again.node({0, 1}).isSmooth);
        for (const char *strange : {"", "6", "5:4", "6:x", "6:4,", ":", "6:99", "-6:4"}) {
            NodePaths untouched(nodes.paths());
            untouched.takeCornerMarks(strange);
            QVERIFY2(untouched.node({1, 1}).isSmooth, strange);
        }
    }

    void smooth_corner_runsAlongItsNeighbours()
    {
        NodePaths nodes = zigzag();
        QVERIFY(!nodes.smooth({{0, 0}})); // an end
        QVERIFY(nodes.smooth({{0, 1}}));
        const vectorkit::PathNode &node = nodes.node({0, 1});
        QVERIFY(node.isSmooth);
        // Midway between level and upright, a third as long as the ways to the neighbours.
        const double part = 10.0 / 3.0 / std::sqrt(2.0);
        QVERIFY(isNear(node.in, QPointF(10 - part, -part)));
        QVERIFY(isNear(node.out, QPointF(10 + part, part)));
        QCOMPARE(node.place, QPointF(10, 0));
    }
};

QTEST_APPLESS_MAIN(tst_NodePaths)
#include "tst_NodePaths.moc"
