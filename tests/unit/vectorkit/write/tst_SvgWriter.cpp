// Outlines as SVG: read back at the same size with the same curves and layers.

#include <vectorkit/VectorReader.h>
#include <vectorkit/write/SvgWriter.h>

#include <QtCore/QBuffer>
#include <QtTest/QtTest>

#include <cmath>

using namespace vectorkit;

namespace {

VectorDrawing sample()
{
    VectorShape filled;
    filled.paths = {VectorPath::polyline({{0.0, 0.0}, {40.0, 0.0}, {40.0, 20.0}}, true)};
    filled.isFilled = true;
    filled.isStroked = false;
    filled.color = Qt::blue;
    VectorShape round;
    round.paths = {VectorPath::circle({10.0, 10.0}, 5.0)};
    VectorPath arc(QPointF(30.0, 10.0));
    arc.arcAbout({25.0, 10.0}, 90.0); // from the right to above
    round.paths.append(arc);
    round.color = Qt::red;
    VectorDrawing drawing;
    drawing.layers = {{QStringLiteral("areas"), QColor(), {filled}, {}},
                      {QStringLiteral("<cut> & \x07more"), QColor(), {round}, {}}};
    return drawing;
}

QByteArray written(const VectorDrawing &drawing)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!writeSvg(drawing, &buffer))
        qWarning("not written");
    return buffer.data();
}

} // namespace

class tst_SvgWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void write_readBack_keepsSizeLayersAndCurves();
    void write_arc_runsItsWay();
    void write_lineWithoutHeight_hasAPage();
};

void tst_SvgWriter::write_readBack_keepsSizeLayersAndCurves()
{
    VectorDrawing read;
    ReadFailure failure;
    QVERIFY2(readDrawing(written(sample()), ReadOptions(), &read, &failure),
             qPrintable(failure.reason));
    QVERIFY(std::abs(read.boundsMm().width() - 40.0) < 1e-5);
    QVERIFY(std::abs(read.boundsMm().height() - 20.0) < 1e-5);
    QCOMPARE(read.layers.size(), 2);
    QCOMPARE(read.layers[1].name, QStringLiteral("<cut> & more"));
    QVERIFY(read.layers[0].shapes.value(0).isFilled);
    QVERIFY(!read.layers[0].shapes.value(0).isStroked);
    QCOMPARE(read.layers[1].shapes.value(0).color, QColor(Qt::red));
    const VectorPath circle = read.layers[1].shapes.value(0).paths.value(0);
    QVERIFY(circle.isClosed());
    QVERIFY(std::abs(circle.lengthMm() - 10.0 * M_PI) < 0.001);
}

void tst_SvgWriter::write_arc_runsItsWay()
{
    // Of radius 5 to the top, on the short side, against the clock: the flags are 0 and 0.
    QVERIFY(written(sample()).contains("M30,10 A5,5 0 0 0 25,5"));
}

void tst_SvgWriter::write_lineWithoutHeight_hasAPage()
{
    VectorShape line;
    line.paths = {VectorPath::polyline({{0.0, 5.0}, {10.0, 5.0}})};
    VectorDrawing drawing;
    drawing.layers = {{QString(), QColor(), {line}, {}}};
    QVERIFY(written(drawing).contains("viewBox=\"0 4.95 10 0.1\""));
}

QTEST_GUILESS_MAIN(tst_SvgWriter)
#include "tst_SvgWriter.moc"
