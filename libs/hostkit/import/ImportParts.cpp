#include <hostkit/import/ImportParts_p.h>

#include <algorithm>
#include <numeric>

namespace hostkit {

namespace {

using vectorkit::VectorDrawing;
using vectorkit::VectorLayer;
using vectorkit::VectorPath;
using vectorkit::VectorShape;

constexpr double kProbeToleranceMm = 0.01;

/** One path with what it is sorted by. */
struct Row
{
    VectorPath path;
    int layer;
    int pen;
    QString color;
};

QString colorName(const VectorShape &shape)
{
    if (shape.pen > 0)
        return QString();
    return shape.color.isValid() ? shape.color.name() : QString();
}

int penOf(const VectorShape &shape, const ImportOptions &options)
{
    if (shape.pen > 0)
        return shape.pen;
    return penForColor(shape.color, options.pens);
}

QVector<Row> rowsOf(const VectorDrawing &drawing, const ImportOptions &options)
{
    QVector<Row> rows;
    for (int layer = 0; layer < drawing.layers.size(); ++layer) {
        for (const VectorShape &shape : drawing.layers[layer].shapes) {
            const int pen = penOf(shape, options);
            const QString color = colorName(shape);
            for (const VectorPath &path : shape.paths)
                rows.append({path, layer, pen, color});
        }
    }
    return rows;
}

/** Adds rows as one part, or as one of the closed and one of the open outlines. */
void addParts(const QVector<const Row *> &rows, const QString &name, bool fillsOpen,
              QVector<ImportPart> *parts)
{
    ImportPart closed;
    ImportPart open;
    for (const Row *row : rows) {
        ImportPart &part = fillsOpen || row->path.isClosed() ? closed : open;
        if (part.paths.isEmpty()) {
            part.name = name;
            part.pen = row->pen;
            part.layer = row->layer;
        }
        part.hasOtherPens = part.hasOtherPens || part.pen != row->pen;
        part.layer = part.layer == row->layer ? part.layer : -1;
        part.paths.append(row->path);
    }
    open.isOpen = true;
    for (const ImportPart &part : {closed, open}) {
        if (!part.paths.isEmpty())
            parts->append(part);
    }
}

/** Splits by a key, in the order in which the keys come up. */
template <class Key>
void addByKey(const QVector<Row> &rows, const ImportOptions &options, Key key,
              const std::function<QString(const Row &)> &name, QVector<ImportPart> *parts)
{
    QVector<QVector<const Row *>> groups;
    QMap<decltype(key(rows.first())), int> known;
    for (const Row &row : rows) {
        const auto value = key(row);
        const auto found = known.constFind(value);
        if (found == known.constEnd()) {
            known.insert(value, groups.size());
            groups.append(QVector<const Row *>{&row});
        } else {
            groups[found.value()].append(&row);
        }
    }
    for (const QVector<const Row *> &group : qAsConst(groups))
        addParts(group, name(*group.first()), options.fillsOpen, parts);
}

/** Outlines of each layer and pen, so that holes are sought only among their like. */
void addOutlines(const QVector<Row> &rows, const VectorDrawing &drawing, QVector<ImportPart> *parts)
{
    QMap<QPair<int, int>, QVector<const Row *>> groups;
    for (const Row &row : rows)
        groups[{row.layer, row.pen}].append(&row);
    for (const QVector<const Row *> &group : qAsConst(groups)) {
        QVector<VectorPath> closed;
        ImportPart part;
        part.pen = group.first()->pen;
        part.layer = group.first()->layer;
        part.name = drawing.layers[part.layer].name;
        for (const Row *row : group) {
            if (row->path.isClosed())
                closed.append(row->path);
        }
        for (const QVector<int> &outline : outlinesWithHoles(closed)) {
            part.paths.clear();
            for (const int index : outline)
                part.paths.append(closed[index]);
            parts->append(part);
        }
        part.isOpen = true;
        for (const Row *row : group) {
            if (!row->path.isClosed()) {
                part.paths = {row->path};
                parts->append(part);
            }
        }
    }
}

/** A closed outline, ready to be asked what lies in it. */
struct Ring
{
    int index;
    QRectF box;
    QPolygonF polygon;
    int outer = -1; ///< smallest ring around it, by place in the list
    int depth = 0;
};

bool isAround(const Ring &outer, const Ring &inner)
{
    return outer.box.left() <= inner.box.left() && outer.box.right() >= inner.box.right() &&
           outer.box.top() <= inner.box.top() && outer.box.bottom() >= inner.box.bottom() &&
           outer.polygon.containsPoint(inner.polygon.first(), Qt::OddEvenFill);
}

} // namespace

QVector<QVector<int>> outlinesWithHoles(const QVector<VectorPath> &closed)
{
    QVector<Ring> rings;
    for (int index = 0; index < closed.size(); ++index) {
        const QPolygonF polygon = closed[index].flattened(kProbeToleranceMm);
        rings.append({index, polygon.boundingRect(), polygon, -1, 0});
    }
    // What is around something has the larger box: from large to small, and back for the nearest.
    std::stable_sort(rings.begin(), rings.end(), [](const Ring &a, const Ring &b) {
        return a.box.width() * a.box.height() > b.box.width() * b.box.height();
    });
    QVector<QVector<int>> groups;
    QVector<int> groupOfRing(rings.size(), -1);
    for (int at = 0; at < rings.size(); ++at) {
        Ring &ring = rings[at];
        for (int before = at - 1; before >= 0 && ring.outer < 0; --before) {
            if (isAround(rings[before], ring))
                ring.outer = before;
        }
        ring.depth = ring.outer < 0 ? 0 : rings[ring.outer].depth + 1;
        if (ring.depth % 2 == 0) {
            groupOfRing[at] = groups.size();
            groups.append(QVector<int>{ring.index});
        } else {
            groupOfRing[at] = groupOfRing[ring.outer];
            groups[groupOfRing[at]].append(ring.index);
        }
    }
    std::sort(groups.begin(), groups.end(),
              [](const QVector<int> &a, const QVector<int> &b) { return a.first() < b.first(); });
    return groups;
}

QVector<ImportPart> importParts(const VectorDrawing &drawing, const ImportOptions &options)
{
    QVector<ImportPart> parts;
    const QVector<Row> rows = rowsOf(drawing, options);
    if (rows.isEmpty())
        return parts;
    const auto layerName = [&](const Row &row) { return drawing.layers[row.layer].name; };
    switch (options.split) {
    case ImportSplit::None:
        addByKey(
            rows, options, [](const Row &) { return 0; }, [](const Row &) { return QString(); },
            &parts);
        break;
    case ImportSplit::Layer:
        addByKey(
            rows, options, [](const Row &row) { return row.layer; }, layerName, &parts);
        break;
    case ImportSplit::Color:
        addByKey(
            rows, options, [](const Row &row) { return qMakePair(row.pen, row.color); },
            [](const Row &row) { return row.color; }, &parts);
        break;
    case ImportSplit::Outline:
        if (options.fillsOpen) {
            QVector<Row> all = rows;
            for (Row &row : all)
                row.path.close();
            addOutlines(all, drawing, &parts);
        } else {
            addOutlines(rows, drawing, &parts);
        }
        break;
    }
    return parts;
}

} // namespace hostkit
