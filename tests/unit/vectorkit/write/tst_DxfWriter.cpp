// Outlines as DXF R12: read back by our reader and by another program.

#include <vectorkit/VectorReader.h>
#include <vectorkit/write/DxfWriter.h>

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <cmath>

using namespace vectorkit;

namespace {

VectorShape shapeOf(const VectorPath &path, int pen, const QColor &color)
{
    VectorShape shape;
    shape.paths = {path};
    shape.pen = pen;
    shape.color = color;
    return shape;
}

/** An open line, a closed square, a circle, a curve. */
VectorDrawing sample()
{
    VectorLayer layer;
    layer.shapes.append(
        shapeOf(VectorPath::polyline({{0.0, 0.0}, {10.5, 0.0}, {10.5, 20.0}}), 1, Qt::red));
    layer.shapes.append(shapeOf(
        VectorPath::polyline({{0.0, 0.0}, {5.0, 0.0}, {5.0, 5.0}, {0.0, 5.0}}, true), 2, Qt::blue));
    layer.shapes.append(shapeOf(VectorPath::circle({30.0, 10.0}, 4.0), 0, QColor(0, 250, 0)));
    VectorPath curve(QPointF(40.0, 0.0));
    curve.cubicTo({40.0, 10.0}, {50.0, 10.0}, {50.0, 0.0});
    layer.shapes.append(shapeOf(curve, 1, Qt::red));
    VectorDrawing drawing;
    drawing.layers.append(layer);
    return drawing;
}

QByteArray written(const VectorDrawing &drawing)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!writeDxfR12(drawing, &buffer))
        qWarning("not written");
    return buffer.data();
}

/** Takes nothing. */
class FullDevice : public QIODevice
{
protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64) override { return -1; }
};

} // namespace

class tst_DxfWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void write_readBack_keepsOutlinesAndColours();
    void write_anotherProgram_readsLayersAndPolylines();
    void write_fullDevice_fails();
    void nearestColorIndex_isTheNearest();
};

void tst_DxfWriter::write_readBack_keepsOutlinesAndColours()
{
    VectorDrawing read;
    ReadFailure failure;
    QVERIFY(readDrawing(written(sample()), ReadOptions(), &read, &failure));
    QCOMPARE(read.sizeSource, SizeSource::Declared);
    QCOMPARE(read.layers.size(), 3);
    const VectorLayer &colour = read.layers[0];
    QCOMPARE(colour.name, QStringLiteral("COLOR_00FA00"));
    QCOMPARE(colour.color, QColor(0, 255, 0));
    const VectorPath circle = colour.shapes.value(0).paths.value(0);
    QVERIFY(circle.isClosed());
    QCOMPARE(circle.pieceCount(), 2);
    QVERIFY(std::abs(circle.lengthMm() - 8.0 * M_PI) < 1e-5);
    const VectorLayer &red = read.layers[1];
    QCOMPARE(red.name, QStringLiteral("PEN_1"));
    QCOMPARE(red.color, QColor(Qt::red));
    const QVector<QPointF> corner = {{0.0, 0.0}, {10.5, 0.0}, {10.5, 20.0}};
    QCOMPARE(red.shapes.value(0).paths.value(0).polylinePoints(), corner);
    // Its height is three quarters of that of the controls.
    QVERIFY(std::abs(red.shapes.value(1).paths.value(0).boundsMm().height() - 7.5) < 0.005);
    const VectorPath square = read.layers[2].shapes.value(0).paths.value(0);
    QVERIFY(square.isClosed());
    QCOMPARE(square.pieceCount(), 4);
}

void tst_DxfWriter::write_anotherProgram_readsLayersAndPolylines()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("written.dxf"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(writeDxfR12(sample(), &file));
    file.close();
    QProcess process;
    process.start(QStringLiteral("/usr/bin/python3"),
                  {QStringLiteral(ZT_TEST_DATA_DIR "/../support/dxf/yardstick.py"),
                   QStringLiteral("layers"), path});
    QVERIFY(process.waitForFinished(60000));
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    const QList<QByteArray> lines = process.readAllStandardOutput().split('\n');
    for (const char *line : {"PEN_1 1 2", "PEN_2 5 1", "COLOR_00FA00 3 1"})
        QVERIFY2(lines.contains(line), line);
}

void tst_DxfWriter::write_fullDevice_fails()
{
    FullDevice device;
    device.open(QIODevice::WriteOnly);
    QVERIFY(!writeDxfR12(sample(), &device));
}

void tst_DxfWriter::nearestColorIndex_isTheNearest()
{
    QCOMPARE(nearestColorIndex(QColor()), 7);
    QCOMPARE(nearestColorIndex(Qt::black), 7);
    QCOMPARE(nearestColorIndex(QColor(254, 1, 0)), 1);
    QCOMPARE(nearestColorIndex(Qt::white), 255);
    QCOMPARE(nearestColorIndex(QColor(255, 127, 0)), 30);
}

QTEST_GUILESS_MAIN(tst_DxfWriter)
#include "tst_DxfWriter.moc"
