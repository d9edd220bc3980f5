#include <vectorkit/write/DxfWriter.h>

#include <vectorkit/dxf/DxfFile_p.h>

#include <QtCore/QIODevice>
#include <QtCore/QMap>
#include <QtCore/QtMath>
#include <QtGui/QPolygonF>

#include <cmath>

namespace vectorkit {

namespace {

struct Vertex
{
    QPointF point;
    double bulge = 0.0; ///< of what leads to the next one
};

/** Six decimals, those that are 0 left out. */
QByteArray decimal(double number)
{
    QByteArray digits = QByteArray::number(number, 'f', 6);
    while (digits.endsWith('0'))
        digits.chop(1);
    if (digits.endsWith('.'))
        digits += '0';
    return digits == "-0.0" ? QByteArray("0.0") : digits;
}

class TagWriter
{
public:
    explicit TagWriter(QIODevice *to) : m_device(to) {}

    void tag(int code, const QByteArray &value)
    {
        m_lines += QByteArray::number(code).rightJustified(3) + "\r\n" + value + "\r\n";
        constexpr int kEnough = 65536;
        if (m_lines.size() > kEnough)
            flush();
    }
    void tag(int code, int value) { tag(code, QByteArray::number(value)); }
    void tag(int code, double value) { tag(code, decimal(value)); }

    bool flush()
    {
        m_isSound = m_isSound && m_device->write(m_lines) == m_lines.size();
        m_lines.clear();
        return m_isSound;
    }

private:
    QIODevice *m_device;
    QByteArray m_lines;
    bool m_isSound = true;
};

QByteArray layerName(const VectorShape &shape)
{
    if (shape.pen > 0)
        return "PEN_" + QByteArray::number(shape.pen);
    const QColor color = shape.color.isValid() ? shape.color : QColor(Qt::black);
    return "COLOR_" + color.name().mid(1).toUpper().toLatin1();
}

/** Each layer with its colour's index. */
QMap<QByteArray, int> layersOf(const VectorDrawing &drawing)
{
    QMap<QByteArray, int> layers;
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorShape &shape : layer.shapes) {
            const QByteArray name = layerName(shape);
            if (!layers.contains(name))
                layers.insert(name, nearestColorIndex(shape.color));
        }
    }
    return layers;
}

void writeHead(const QMap<QByteArray, int> &layers, TagWriter *out)
{
    constexpr int kMillimetres = 4;
    out->tag(0, "SECTION");
    out->tag(2, "HEADER");
    out->tag(9, "$ACADVER");
    out->tag(1, "AC1009");
    out->tag(9, "$INSUNITS");
    out->tag(70, kMillimetres);
    out->tag(0, "ENDSEC");
    out->tag(0, "SECTION");
    out->tag(2, "TABLES");
    out->tag(0, "TABLE");
    out->tag(2, "LTYPE");
    out->tag(70, 1);
    out->tag(0, "LTYPE");
    out->tag(2, "CONTINUOUS");
    out->tag(70, 0);
    out->tag(3, "Solid line");
    out->tag(72, 65);
    out->tag(73, 0);
    out->tag(40, 0.0);
    out->tag(0, "ENDTAB");
    out->tag(0, "TABLE");
    out->tag(2, "LAYER");
    out->tag(70, layers.size());
    for (auto layer = layers.begin(); layer != layers.end(); ++layer) {
        out->tag(0, "LAYER");
        out->tag(2, layer.key());
        out->tag(70, 0);
        out->tag(62, layer.value());
        out->tag(6, "CONTINUOUS");
    }
    out->tag(0, "ENDTAB");
    out->tag(0, "ENDSEC");
}

void addCurve(const VectorPath::Piece &piece, double toleranceMm, QVector<Vertex> *vertices)
{
    VectorPath curve(piece.from);
    curve.cubicTo(piece.control1, piece.control2, piece.to);
    const QPolygonF points = curve.flattened(toleranceMm);
    for (int i = 1; i < points.size(); ++i)
        vertices->append({points[i]});
}

/** A bulge holds less than a whole turn: halves, where there is more than half a turn. */
void addArc(const VectorPath::Piece &arc, QVector<Vertex> *vertices)
{
    const int parts = std::abs(arc.sweepDeg) > 180.0 ? 2 : 1;
    const double bulge = std::tan(qDegreesToRadians(arc.sweepDeg / parts) / 4.0);
    vertices->last().bulge = bulge;
    if (parts == 2) {
        VectorPath half(arc.from);
        half.arcAbout(arc.control1, arc.sweepDeg / 2.0);
        vertices->append({half.end(), bulge});
    }
    vertices->append({arc.to});
}

QVector<Vertex> verticesOf(const VectorPath &path, double toleranceMm)
{
    QVector<Vertex> vertices = {{path.start()}};
    path.forEach([&](const VectorPath::Piece &piece) {
        if (piece.kind == PieceKind::Line)
            vertices.append({piece.to});
        else if (piece.kind == PieceKind::Arc)
            addArc(piece, &vertices);
        else
            addCurve(piece, toleranceMm, &vertices);
    });
    if (path.isClosed() && vertices.size() > 2)
        vertices.removeLast(); // it is the first one again
    return vertices;
}

void writePath(const VectorPath &path, const QByteArray &layer, double toleranceMm, TagWriter *out)
{
    constexpr int kClosed = 1;
    out->tag(0, "POLYLINE");
    out->tag(8, layer);
    out->tag(66, 1);
    out->tag(10, 0.0);
    out->tag(20, 0.0);
    out->tag(30, 0.0);
    out->tag(70, path.isClosed() ? kClosed : 0);
    for (const Vertex &vertex : verticesOf(path, toleranceMm)) {
        out->tag(0, "VERTEX");
        out->tag(8, layer);
        out->tag(10, vertex.point.x());
        out->tag(20, -vertex.point.y());
        out->tag(30, 0.0);
        if (vertex.bulge != 0.0)
            out->tag(42, QByteArray::number(vertex.bulge, 'g', 17));
    }
    out->tag(0, "SEQEND");
    out->tag(8, layer);
}

} // namespace

int nearestColorIndex(const QColor &color)
{
    constexpr int kForeground = 7;
    if (!color.isValid())
        return kForeground;
    int nearest = kForeground;
    int least = -1;
    for (int index = 1; index <= 255; ++index) {
        const QColor known = dxf::indexedColor(index);
        const int red = known.red() - color.red();
        const int green = known.green() - color.green();
        const int blue = known.blue() - color.blue();
        const int distance = red * red + green * green + blue * blue;
        if (least < 0 || distance < least) {
            least = distance;
            nearest = index;
        }
    }
    return nearest;
}

bool writeDxfR12(const VectorDrawing &drawing, QIODevice *device, double toleranceMm)
{
    TagWriter out(device);
    writeHead(layersOf(drawing), &out);
    out.tag(0, "SECTION");
    out.tag(2, "ENTITIES");
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorShape &shape : layer.shapes) {
            for (const VectorPath &path : shape.paths) {
                if (!path.isEmpty())
                    writePath(path, layerName(shape), toleranceMm, &out);
            }
        }
    }
    out.tag(0, "ENDSEC");
    out.tag(0, "EOF");
    return out.flush();
}

} // namespace vectorkit
