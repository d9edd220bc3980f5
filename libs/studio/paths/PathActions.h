#pragma once

#include <studio/shapes/ShapeItems.h>

#include <vectorkit/VectorDrawing.h>
#include <vectorkit/clean/OutlineOps.h>

#include <QtCore/QObject>

namespace studio {

/** How an offset of outlines is made. */
struct OffsetChoice
{
    double distanceMm = 1.0; ///< outside for a positive one, inside for a negative one; not 0
    vectorkit::OffsetCorner corner = vectorkit::OffsetCorner::Round;
    bool keepsOriginal = true; ///< the offset comes in beside the shape, else in its place
};

/**
 * What makes paths of shapes, and other paths of paths. Each operation is one undo step and works
 * on the selection; what comes out has pen, hatch, name and groups of the shape it comes from,
 * stands at its place in the stacking order, and is selected. One that would change nothing makes
 * no step, and says why.
 */
class PathActions : public QObject
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit PathActions(ZTGraphicsDocument &document, QObject *parent = nullptr);

    /** Shapes and texts become vector graphics that show the same outlines. */
    void toPaths();

    /** The selected shapes become one graphic, with the settings of the lowest. */
    void combine();

    /** Each becomes as many as it has outlines, holes with them; one outline, its runs. */
    void breakApart();

    /**
     * The areas of the selected shapes taken together, with the settings of the lowest. Open runs
     * have no area: they stay as they are, in the same graphic.
     */
    void takeTogether(vectorkit::OutlineOp op);

    /** Areas within each shape that overlap become one. */
    void weld();

    void offset(const OffsetChoice &choice);

    /** What an offset would be, all of it. Frame: millimetres on the scene. */
    QVector<vectorkit::VectorPath> offsetOutlines(const OffsetChoice &choice) const;

    /** The selected shapes as a drawing with a layer for each: what cleaning works on. */
    vectorkit::VectorDrawing selectedDrawing() const;

    /**
     * Gives the selected shapes the outlines of a drawing that was `selectedDrawing` and has been
     * cleaned. A shape of which nothing would be left stays as it is.
     */
    void takeCleaned(const vectorkit::VectorDrawing &cleaned);

Q_SIGNALS:
    /** What was done or why nothing was; for people. */
    void told(const QString &words);

private:
    /** What comes in for a shape. */
    struct Result
    {
        ShapeItem *source; ///< whose settings it has and at whose place it stands
        QVector<vectorkit::VectorPath> pathsMm;
    };

    ShapeItems selected() const;
    ShapeItem *make(const Result &result) const;
    void replace(const ShapeItems &sources, const QVector<Result> &results, const QString &text);
    void change(const QVector<Result> &results, const QString &text);

    ZTGraphicsDocument &m_document;
};

} // namespace studio
