#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtWidgets/QUndoStack>

namespace studio {

/**
 * The library's grid of properties with undo steps of the studio's: each holds the whole shape
 * before and after the edit.
 *
 * The grid's own steps hold the one property that was edited. That is too little where an edit
 * reaches further: the angle of a line takes in the line's transform.
 */
class PropertyGrid : public ZTItemPropertyList
{
    Q_OBJECT

public:
    /** Limit: sides of a polygon that can be typed; such a polygon looks like a circle long since.
     */
    static constexpr int kMaxSides = 10000;

    /** `stack` takes the steps; borrowed, and outlives this. */
    PropertyGrid(QUndoStack &stack, QWidget *parent);

    void setObject(QObject *object) override;

private:
    void edit(QtProperty *row, const QVariant &value);
    void limitSides();

    QUndoStack &m_steps;
    QUndoStack m_ownSteps; ///< where the library's grid records an edit
    bool m_isFilling = false;
};

} // namespace studio
