#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtGui/QTransform>
#include <QtWidgets/QUndoCommand>

#include <climits>
#include <optional>

namespace studio {

/**
 * A change of places and transforms of shapes, carried out by a derived class once and repeated
 * from what it left: undo and redo restore both exactly, to the last bit.
 *
 * A shape that others delete is passed over.
 */
class ItemGeometryCommand : public QUndoCommand
{
public:
    void undo() override;
    void redo() override;

protected:
    /** `shapesInAll`: how many the scene has, if `change` asks it for none. */
    ItemGeometryCommand(ZTGraphicsScene *scene, const ShapeItems &items, const QString &text,
                        int shapesInAll = INT_MAX);

    /** Changes the items, the scene's selection at that time. Called once, by the first `redo`. */
    virtual void change(ZTGraphicsScene &scene) = 0;

private:
    struct State
    {
        QPointF posPx;
        QTransform transform; ///< works on millimetres
    };

    QVector<State> states() const;
    void restore(const QVector<State> &states);

    QPointer<ZTGraphicsScene> m_drawing; ///< borrowed from the document
    QVector<QPointer<ShapeItem>> m_items;
    int m_shapesInAll;
    QVector<State> m_before;
    QVector<State> m_after; ///< empty until the first `redo`
};

/** Mirrors the selected shapes within their frame, or about an axis elsewhere. */
class MirrorCommand : public ItemGeometryCommand
{
public:
    enum Kind { LeftToRight = 1, TopToBottom = 2 };

    /** `aboutPx` is a place on the axis, in scene pixels; none: the middle of the frame. */
    MirrorCommand(ZTGraphicsScene *scene, Kind kind, const QString &text,
                  const std::optional<QPointF> &aboutPx = std::nullopt);

protected:
    void change(ZTGraphicsScene &scene) override;

private:
    Kind m_kind;
    std::optional<QPointF> m_aboutPx;
};

/** Turns the selected shapes about the middle of their frame. */
class RotateCommand : public ItemGeometryCommand
{
public:
    /** `angleDeg` is positive for clockwise. */
    RotateCommand(ZTGraphicsScene *scene, double angleDeg, const QString &text);

protected:
    void change(ZTGraphicsScene &scene) override;

private:
    double m_angleDeg;
};

} // namespace studio
