#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QDataStream>
#include <QtCore/QTextStream>

/** All that a drawing is, to be compared with itself later. */
struct DrawingSnapshot
{
    struct Shape
    {
        const studio::ShapeItem *item;
        int id;
        QPointF posPx;
        QTransform transform;

        bool operator==(const Shape &other) const
        {
            return item == other.item && id == other.id && posPx.x() == other.posPx.x() &&
                   posPx.y() == other.posPx.y() && transform == other.transform;
        }
    };

    QVector<Shape> stacked; ///< lowest first
    QStringList rows;       ///< of the tree: id and kind
    QVector<const studio::ShapeItem *> rowItems;
    QByteArray mark; ///< mark data in stacking order, byte for byte

    bool operator==(const DrawingSnapshot &other) const
    {
        return stacked == other.stacked && rows == other.rows && rowItems == other.rowItems &&
               mark == other.mark;
    }
    bool operator!=(const DrawingSnapshot &other) const { return !(*this == other); }
};

/** Mark data as bytes, every double in full. */
inline QByteArray markBytes(const ZTMarkGraph &graph)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << graph.rect;
    for (const ZTMarkObject &object : graph.objects)
        stream << object.penId << object.rect << object.lines << object.fillLines;
    return bytes;
}

inline DrawingSnapshot snapshotOf(ZTGraphicsDocument &document)
{
    DrawingSnapshot snapshot;
    for (studio::ShapeItem *item : studio::shapeItemsOf(*document.scene()))
        snapshot.stacked.append(
            {item, item->getShapeBase()->getId(), item->pos(), item->getTransformParam()});
    const auto *model = qobject_cast<ZTItemModel *>(document.itemMag()->itemModel());
    for (int row = 0; row < model->rowCount(); ++row) {
        snapshot.rows << model->index(row, 0).data().toString() + QLatin1Char(' ') +
                             model->index(row, 2).data().toString();
        snapshot.rowItems
            << model->index(row, 1).data(ZTItemModel::kItemRole).value<ZTAbstractGraphicsItem *>();
    }
    snapshot.mark = markBytes(document.itemMag()->getShapeLines());
    return snapshot;
}

/** For failure messages: what the drawing holds. */
inline QByteArray toText(const DrawingSnapshot &snapshot)
{
    QString text;
    QTextStream stream(&text);
    stream << "stacked";
    for (const auto &shape : snapshot.stacked)
        stream << ' ' << shape.id << '(' << shape.posPx.x() << ',' << shape.posPx.y() << ')';
    stream << "; rows " << snapshot.rows.join(QStringLiteral(", ")) << "; " << snapshot.mark.size()
           << " bytes of mark data";
    return text.toLocal8Bit();
}

/** Compares two drawings and prints both sides if they differ. */
#define COMPARE_DRAWINGS(actual, expected)                                                         \
    do {                                                                                           \
        const DrawingSnapshot actual_ = (actual);                                                  \
        const DrawingSnapshot expected_ = (expected);                                              \
        if (actual_ != expected_)                                                                  \
            QFAIL(("\n  actual: " + toText(actual_) + "\nexpected: " + toText(expected_))          \
                      .constData());                                                               \
    } while (false)

/** Ids of a snapshot's shapes, lowest first. */
inline QVector<int> idsOf(const DrawingSnapshot &snapshot)
{
    QVector<int> ids;
    for (const auto &shape : snapshot.stacked)
        ids << shape.id;
    return ids;
}

/** Ids of the selected shapes, lowest first. */
inline QVector<int> selectedIds(const ZTGraphicsDocument &document)
{
    QVector<int> ids;
    for (const studio::ShapeItem *item : studio::selectedShapeItems(*document.scene()))
        ids << item->getShapeBase()->getId();
    return ids;
}
