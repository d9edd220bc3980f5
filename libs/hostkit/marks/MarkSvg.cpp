#include <hostkit/marks/MarkGraphForms_p.h>

#include <hostkit/files/NumberText.h>
#include <hostkit/marks/MarkPicture_p.h>

#include <QtCore/QXmlStreamWriter>

namespace hostkit {

namespace {

constexpr int kDecimals = 4; // a tenth of a micrometre
constexpr int kPathBytes = 32 * 1024;

QString text(double value)
{
    QByteArray digits;
    appendRounded(digits, value, kDecimals);
    return QString::fromLatin1(digits);
}

/** Gathers strokes into `path` elements of bounded size. */
class PathWriter
{
public:
    PathWriter(QXmlStreamWriter &target, const MarkUnits &markUnits)
        : m_xml(target), m_units(markUnits)
    {
    }
    ~PathWriter() { endPath(); }
    PathWriter(const PathWriter &) = delete;
    PathWriter &operator=(const PathWriter &) = delete;

    void add(const QLineF &line)
    {
        if (!canShow(line.p1()) || !canShow(line.p2()))
            return;
        addPoint('M', line.p1());
        addPoint('L', line.p2());
        if (m_data.size() >= kPathBytes)
            endPath();
    }

    void add(const QPolygonF &points)
    {
        bool drawing = false;
        for (const QPointF &point : points) {
            const bool shown = canShow(point);
            if (shown)
                addPoint(drawing ? 'L' : 'M', point);
            drawing = shown;
            if (shown && m_data.size() >= kPathBytes) {
                endPath();
                addPoint('M', point);
            }
        }
        if (points.size() == 1 && drawing)
            addPoint('L', points.first());
        endPath();
    }

private:
    void addPoint(char command, const QPointF &point)
    {
        m_data.append(command);
        appendRounded(m_data, m_units.toMm(point.x()), kDecimals);
        m_data.append(' ');
        appendRounded(m_data, m_units.toMm(point.y()), kDecimals);
    }

    void endPath()
    {
        if (m_data.isEmpty())
            return;
        m_xml.writeEmptyElement(QStringLiteral("path"));
        m_xml.writeAttribute(QStringLiteral("d"), QString::fromLatin1(m_data));
        m_data.resize(0);
    }

    QXmlStreamWriter &m_xml;
    const MarkUnits &m_units;
    QByteArray m_data;
};

/** A group of strokes, open while it lives. */
class Group
{
public:
    Group(QXmlStreamWriter &target, const QString &name, const PictureStroke &stroke)
        : m_xml(target)
    {
        m_xml.writeStartElement(QStringLiteral("g"));
        m_xml.writeAttribute(QStringLiteral("class"), name);
        m_xml.writeAttribute(QStringLiteral("stroke"), stroke.color.name());
        m_xml.writeAttribute(QStringLiteral("stroke-width"), text(stroke.widthMm));
    }
    ~Group() { m_xml.writeEndElement(); }
    Group(const Group &) = delete;
    Group &operator=(const Group &) = delete;

private:
    QXmlStreamWriter &m_xml;
};

/** Draws the jumps of one kind. */
class JumpWriter : public MarkPathVisitor
{
public:
    JumpWriter(PathWriter &target, JumpKind wanted) : m_paths(target), m_kind(wanted) {}

    void jump(const QLineF &line, JumpKind lineKind) override
    {
        if (lineKind == m_kind)
            m_paths.add(line);
    }

private:
    PathWriter &m_paths;
    JumpKind m_kind;
};

void beginDocument(QXmlStreamWriter &xml, const QRectF &pageMm)
{
    const QString mm = QStringLiteral("mm");
    const QString box =
        QStringList{text(pageMm.x()), text(pageMm.y()), text(pageMm.width()), text(pageMm.height())}
            .join(QLatin1Char(' '));
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("svg"));
    xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    xml.writeAttribute(QStringLiteral("width"), text(pageMm.width()) + mm);
    xml.writeAttribute(QStringLiteral("height"), text(pageMm.height()) + mm);
    xml.writeAttribute(QStringLiteral("viewBox"), box);
    xml.writeAttribute(QStringLiteral("fill"), QStringLiteral("none"));
    xml.writeAttribute(QStringLiteral("stroke-linecap"), QStringLiteral("round"));
    xml.writeAttribute(QStringLiteral("stroke-linejoin"), QStringLiteral("round"));
    xml.writeTextElement(QStringLiteral("title"), QStringLiteral("Mark paths"));
    xml.writeTextElement(QStringLiteral("desc"),
                         QStringLiteral("Coordinates are millimetres. Classes: outline, hatch, "
                                        "jump-inside (from piece to piece of one object), "
                                        "jump-between (from object to object), start."));
}

void writePaper(QXmlStreamWriter &xml, const QRectF &pageMm)
{
    xml.writeEmptyElement(QStringLiteral("rect"));
    xml.writeAttribute(QStringLiteral("x"), text(pageMm.x()));
    xml.writeAttribute(QStringLiteral("y"), text(pageMm.y()));
    xml.writeAttribute(QStringLiteral("width"), text(pageMm.width()));
    xml.writeAttribute(QStringLiteral("height"), text(pageMm.height()));
    xml.writeAttribute(QStringLiteral("fill"), QStringLiteral("#ffffff"));
}

void writeObject(QXmlStreamWriter &xml, const ZTMarkObject &object, const MarkPicture &picture,
                 const MarkUnits &units)
{
    xml.writeStartElement(QStringLiteral("g"));
    xml.writeAttribute(QStringLiteral("class"), QStringLiteral("object"));
    xml.writeAttribute(QStringLiteral("data-pen"), QString::number(object.penId));
    if (!object.fillLines.isEmpty()) {
        const Group group(xml, QStringLiteral("hatch"), picture.hatch);
        PathWriter paths(xml, units);
        for (const QLineF &line : object.fillLines)
            paths.add(line);
    }
    if (!object.lines.isEmpty()) {
        const Group group(xml, QStringLiteral("outline"), picture.outline);
        PathWriter paths(xml, units);
        for (const QPolygonF &polygon : object.lines)
            paths.add(polygon);
    }
    xml.writeEndElement();
}

void writeJumps(QXmlStreamWriter &xml, const ZTMarkGraph &graph, const MarkPicture &picture,
                const MarkUnits &units)
{
    const auto write = [&](const QString &name, const PictureStroke &stroke, JumpKind kind) {
        const Group group(xml, name, stroke);
        PathWriter paths(xml, units);
        JumpWriter jumps(paths, kind);
        walkMarkPath(graph, jumps);
    };
    write(QStringLiteral("jump-inside"), picture.jumpInside, JumpKind::InsideObject);
    write(QStringLiteral("jump-between"), picture.jumpBetween, JumpKind::BetweenObjects);
}

void writeArrows(QXmlStreamWriter &xml, const ZTMarkGraph &graph, const MarkPicture &picture,
                 const MarkUnits &units)
{
    const Group group(xml, QStringLiteral("arrow"), picture.outline);
    PathWriter paths(xml, units);
    for (const QPolygonF &arrow : markArrows(graph, picture, units))
        paths.add(arrow);
}

void writeStart(QXmlStreamWriter &xml, const MarkPicture &picture)
{
    if (!picture.hasStart)
        return;
    xml.writeEmptyElement(QStringLiteral("circle"));
    xml.writeAttribute(QStringLiteral("class"), QStringLiteral("start"));
    xml.writeAttribute(QStringLiteral("cx"), text(picture.startMm.x()));
    xml.writeAttribute(QStringLiteral("cy"), text(picture.startMm.y()));
    xml.writeAttribute(QStringLiteral("r"), text(picture.startRadiusMm));
    xml.writeAttribute(QStringLiteral("fill"), picture.startColor.name());
}

} // namespace

void writeMarkSvg(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device,
                  const MarkPictureLook &look)
{
    const MarkPicture picture = layOutMarkPicture(graph, units);
    QXmlStreamWriter xml(&device);
    beginDocument(xml, picture.pageMm);
    if (look.hasBackground)
        writePaper(xml, picture.pageMm);
    for (const ZTMarkObject &object : graph.objects)
        writeObject(xml, object, picture, units);
    if (look.hasJumps) {
        writeJumps(xml, graph, picture, units);
        writeStart(xml, picture);
    }
    if (look.hasArrows)
        writeArrows(xml, graph, picture, units);
    xml.writeEndElement();
    xml.writeEndDocument();
}

} // namespace hostkit
