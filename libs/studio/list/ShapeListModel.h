#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QHash>

#include <memory>
#include <vector>

namespace studio {

/**
 * The shapes of a drawing in the order in which they are marked, the first one on top; groups are
 * branches, which stand where their first member does.
 *
 * Names and switches are changed through `setData`, places by dropping what `mimeData` took: each
 * is one undo step. Follows nothing by itself: `refresh` reads the drawing again.
 *
 * Order: rows hold shapes that may go before the next `refresh`; those show nothing.
 * Cost: `refresh` in proportion to the drawing, everything else to what is looked at.
 */
class ShapeListModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { Name, Number, Pen, Marked, Locked, Hidden, Kind, ColumnCount };

    /** `document` is borrowed and outlives this. */
    explicit ShapeListModel(ZTGraphicsDocument &document, QObject *parent = nullptr);
    ~ShapeListModel() override;

    /** Takes over what changed in the drawing. True if rows came, went or moved. */
    bool refresh();

    /** Shows only shapes whose name, words or kind contain a text, in whatever case. */
    void setFilter(const QString &text);

    /** The shape of a row; null for a group. */
    ShapeItem *itemAt(const QModelIndex &index) const;

    /** The shapes of a row: one, or all of a group. */
    ShapeItems itemsAt(const QModelIndex &index) const;

    /** Where a shape is listed; invalid for one that is not. */
    QModelIndex indexOf(const ShapeItem *item) const;

    /** The group of a row, 0 for a shape. */
    qint32 groupAt(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

private:
    struct Node;

    /** What the rows are made of: as long as it is the same, so are they. */
    struct Entry
    {
        ShapeItem *item;
        QVector<qint32> groups;

        bool operator==(const Entry &o) const { return item == o.item && groups == o.groups; }
    };

    QVector<Entry> entries() const;
    void build(const QVector<Entry> &entries);
    bool isShown(const ShapeItem &item) const;
    const Node &nodeOf(const QModelIndex &index) const;
    QModelIndex indexOfNode(const Node &node, int column) const;
    void tellChanged(const Node &node);
    int placeOf(const Node &branch, int row) const;
    QVariant groupData(const Node &node, int column, int role) const;
    QVariant shapeData(const Node &node, int column, int role) const;

    ZTGraphicsDocument &m_document;
    QString m_filter;
    QVector<Entry> m_entries;
    std::unique_ptr<Node> m_root;
    QHash<const ShapeItem *, const Node *> m_nodes;
};

} // namespace studio
