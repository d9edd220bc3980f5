#include <hostkit/import/ImportParts_p.h>

#include <vectorkit/clean/Nesting.h>

#include <algorithm>
#include <numeric>

namespace hostkit {

namespace {

using vectorkit::VectorDrawing;
using vectorkit::VectorLayer;
using vectorkit::VectorPath;
using vectorkit::VectorShape;

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
            for (const VectorPath &path : shape.paths) {
                rows.append({path, layer, pen, color});
                // The library leaves out the last side of what is open. A lone line has no inside.
                if (options.fillsOpen && path.pieceCount() > 1)
                    rows.last().path.close();
            }
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

/**
 * Outlines of each layer and pen, so that holes are sought only among their like. False when
 * cancelled.
 */
bool addOutlines(const QVector<Row> &rows, const VectorDrawing &drawing,
                 const std::function<bool(double)> &progress, QVector<ImportPart> *parts)
{
    QMap<QPair<int, int>, QVector<const Row *>> groups;
    for (const Row &row : rows)
        groups[{row.layer, row.pen}].append(&row);
    double done = 0.0;
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
        bool goesOn = true;
        const auto outlines = outlinesWithHoles(closed, [&](double share) {
            goesOn = !progress || progress((done + share * group.size()) / rows.size());
            return goesOn;
        });
        if (!goesOn)
            return false;
        done += group.size();
        for (const QVector<int> &outline : outlines) {
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
    return true;
}

} // namespace

QVector<QVector<int>> outlinesWithHoles(const QVector<VectorPath> &closed,
                                        const std::function<bool(double)> &progress)
{
    const std::vector<int> holders = vectorkit::holdersOf(closed, progress);
    // What is around something has the larger box: from large to small all holders come first.
    std::vector<double> areas;
    for (const VectorPath &path : closed) {
        const QRectF box = path.boundsMm();
        areas.push_back(box.width() * box.height());
    }
    std::vector<std::size_t> fromLarge(holders.size());
    std::iota(fromLarge.begin(), fromLarge.end(), std::size_t(0));
    std::stable_sort(fromLarge.begin(), fromLarge.end(),
                     [&](std::size_t a, std::size_t b) { return areas[a] > areas[b]; });
    struct Place
    {
        int depth = 0;
        int group = 0;
    };
    std::vector<Place> places(holders.size());
    QVector<QVector<int>> groups;
    for (const std::size_t at : fromLarge) {
        Place &place = places[at];
        const int holder = holders[at];
        place.depth = holder < 0 ? 0 : places[static_cast<std::size_t>(holder)].depth + 1;
        const bool isHole = place.depth % 2 == 1;
        place.group = isHole ? places[static_cast<std::size_t>(holder)].group : groups.size();
        if (!isHole)
            groups.append(QVector<int>());
        groups[place.group].append(static_cast<int>(at));
    }
    std::sort(groups.begin(), groups.end(), [](const QVector<int> &one, const QVector<int> &other) {
        return one.first() < other.first();
    });
    return groups;
}

bool importParts(const VectorDrawing &drawing, const ImportOptions &options,
                 const std::function<bool(double)> &progress, QVector<ImportPart> *parts)
{
    const QVector<Row> rows = rowsOf(drawing, options);
    if (rows.isEmpty())
        return true;
    const auto layerName = [&](const Row &row) { return drawing.layers[row.layer].name; };
    switch (options.split) {
    case ImportSplit::None:
        addByKey(
            rows, options, [](const Row &) { return 0; }, [](const Row &) { return QString(); },
            parts);
        break;
    case ImportSplit::Layer:
        addByKey(
            rows, options, [](const Row &row) { return row.layer; }, layerName, parts);
        break;
    case ImportSplit::Color:
        addByKey(
            rows, options, [](const Row &row) { return qMakePair(row.pen, row.color); },
            [](const Row &row) { return row.color; }, parts);
        break;
    case ImportSplit::Outline:
        return addOutlines(rows, drawing, progress, parts);
    }
    return true;
}

} // namespace hostkit
