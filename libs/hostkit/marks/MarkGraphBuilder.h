#pragma once

#include <hostkit/items/ItemHatches.h>
#include <hostkit/marks/MarkFindings.h>
#include <hostkit/marks/MarkPathMeasure.h>
#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <memory>
#include <optional>

namespace hostkit {

class MarkCheck;

using MarkItems = QVector<ZTAbstractGraphicsItem *>;

/** The shapes of a document that are marked, the topmost one first. Owner: the document. */
MarkItems markedItems(const ZTGraphicsDocument &document);

/** Those of them that are selected, the topmost one first. Owner: the document. */
MarkItems selectedMarkedItems(const ZTGraphicsDocument &document);

/** What a drawing comes to for a marking head. */
struct DrawingMarks
{
    ZTMarkGraph graph;      ///< in mark units, in the order asked for
    MarkUnits units;        ///< of the drawing's own mark scale
    MarkPathMeasure before; ///< in the order of the shapes, the topmost one first
    MarkPathMeasure after;  ///< in the order asked for
    int shapes = 0;         ///< that were to be marked
    int hatchObjects = 0;   ///< further objects, for hatches in another pen than their shape
    MarkFindings findings;  ///< likely mistakes; the field is the document's work area

    /** Whether all that the shapes mark is in the graph: no shape went away meanwhile or is lost.
     */
    bool isWhole() const;
};

/**
 * The one way from a drawing to its mark graph, piece by piece, so that a window stays alive
 * meanwhile; `drawingMarks` goes it at once.
 *
 * Order: GUI thread, after `registerFactories`. The shapes should not change meanwhile; one that is
 * deleted is left out, and the result is not whole.
 */
class MarkGraphBuilder
{
public:
    /**
     * `document` is borrowed and outlives the builder; `items` are shapes of it, in the order that
     * counts as the one before ordering. Without `order` the process's sort kind holds.
     */
    MarkGraphBuilder(const ZTGraphicsDocument &document, const MarkItems &items,
                     std::optional<EShapeSortType> order = std::nullopt);

    /** The same on a drawing surface without a document, which has no field to reach out of. */
    MarkGraphBuilder(ZTShapeManager &manager, const MarkItems &items,
                     std::optional<EShapeSortType> order = std::nullopt);
    ~MarkGraphBuilder();
    MarkGraphBuilder(const MarkGraphBuilder &) = delete;
    MarkGraphBuilder &operator=(const MarkGraphBuilder &) = delete;

    /** Works for about `budgetMs` milliseconds, on one shape at least; false when all is gathered.
     */
    bool work(int budgetMs);

    int done() const { return m_next; }          ///< shapes gathered so far
    int total() const { return m_items.size(); } ///< shapes in all

    /**
     * Orders what was gathered and hands it over. Once, after `work` returned false. What a shape
     * hatches in another pen than its own is an object of its own behind that of the shape.
     */
    DrawingMarks take();

    /** Likely mistakes in what was gathered so far; `take` hands them over as well. */
    const MarkFindings &findings() const;

    /** What was gathered as it is, for those who change it before they order it. Once. */
    ZTMarkGraph takeUnordered();

    /** Which fill lines of each object so far belong to which hatch, by the object's index. */
    const QVector<QVector<HatchLayer>> &layers() const { return m_layers; }

private:
    MarkGraphBuilder(ZTShapeManager &manager, const MarkItems &items,
                     std::optional<EShapeSortType> order, std::unique_ptr<MarkCheck> check);
    void layOutNextHatches(int budgetMs) const;
    void gather(ZTAbstractGraphicsItem &item);
    void splitByPens();

    ZTShapeManager &m_manager;
    QVector<QPointer<ZTAbstractGraphicsItem>> m_items;
    EShapeSortType m_order;
    int m_next = 0;
    DrawingMarks m_marks;
    QVector<QVector<HatchLayer>> m_layers; ///< by object
    std::unique_ptr<MarkCheck> m_check;
};

/** The mark paths of all shapes of a drawing that are marked. */
DrawingMarks drawingMarks(const ZTGraphicsDocument &document,
                          std::optional<EShapeSortType> order = std::nullopt);

} // namespace hostkit
