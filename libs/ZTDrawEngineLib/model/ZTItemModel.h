#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>

#include <QtCore/QItemSelectionModel>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QStandardItemModel>

#include <functional>

QT_BEGIN_NAMESPACE
class QGraphicsScene;
QT_END_NAMESPACE

class ZTAbstractGraphicsItem;

/**
 * List of a document's shapes for an object tree, and the bridge that keeps the tree's selection
 * and the scene's selection alike.
 *
 * The model is flat: one row a shape, in the order of creation, with three columns.
 *
 * | column | header key | content                                                              |
 * |--------|------------|----------------------------------------------------------------------|
 * | 0      | "id"       | the shape's id, an integer under `Qt::DisplayRole`; the row's identity |
 * | 1      | "text"     | the item's text under `Qt::EditRole`, and the item itself, a         |
 * |        |            | `ZTAbstractGraphicsItem *`, under `kItemRole`; null once it is gone  |
 * | 2      | "shape"    | the name of its kind                                                 |
 *
 * Changing column 1 by `setData` renames the item. Two rows may have one id: `remove` takes the
 * first, selecting reaches both.
 *
 * Owner: the shape manager owns the model; the model owns its selection model.
 */
class ZTDRAWENGINELIB_EXPORT ZTItemModel : public QStandardItemModel
{
    Q_OBJECT

public:
    /** Role of column 1 that holds the item. */
    static constexpr int kItemRole = Qt::UserRole + 1;

    explicit ZTItemModel(QObject *parent = nullptr);
    ~ZTItemModel() override;

    /** Appends a row for `item`, which is borrowed: its row outlives it as an orphan. */
    void insert(ShapeType type, ZTAbstractGraphicsItem *item);

    /** Removes the first row with that id, if there is one. */
    void remove(int id);

    /**
     * Removes for each id of the list the first row that still has it.
     *
     * Emits: `rowsRemoved` for each run of rows; for a great number of runs `layoutChanged`, and
     * `rowsRemoved` once.
     *
     * Cost: in proportion to the rows there are, however they are spread.
     */
    void remove(const QVector<int> &ids);

    /** The scene whose selection is mirrored. Owner: the caller. */
    void setScene(QGraphicsScene *scene);
    QGraphicsScene *getScene() const;

    /** Selection of the rows, to be given to the view. Owner: the model. */
    QItemSelectionModel *itemSelectionModel() const;

public Q_SLOTS:
    /** Takes a change of the rows' selection over to the scene. */
    void objectTreeSelectChanged(const QItemSelection &selected, const QItemSelection &deselected);

    /** Takes the scene's selection over to the rows. */
    void sceneSelectChange();

private:
    /** Which side drives a change of selection, so that the two do not feed each other. */
    enum SelectSource { Nobody = 0, Tree = 1, Scene = 2 };

    void renameItemOf(const QModelIndex &topLeft);
    int idAt(int row) const;
    QVector<int> firstRowsOf(const QVector<int> &ids) const;
    void deselectRows(const QVector<int> &ascending);
    void gatherInFront(const QVector<int> &rows);
    void selectOnly(const std::function<bool(int row)> &isWanted);
    QItemSelection rowsOf(const std::function<bool(int row)> &isWanted);
    void selectInScene(const QVector<int> &selectedIds, const QVector<int> &deselectedIds);

    QItemSelectionModel *m_selectionModel = nullptr; ///< owned
    qint32 m_selectSource = Nobody;
    QPointer<QGraphicsScene> m_scene; ///< borrowed; clears itself
};
