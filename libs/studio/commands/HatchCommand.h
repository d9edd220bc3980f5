#pragma once

#include <studio/ShapeItems.h>

#include <QtWidgets/QUndoCommand>

#include <functional>

namespace studio {

/**
 * A change of the hatch of shapes. Undo gives each shape the hatch settings it had.
 *
 * A shape that others delete is passed over.
 */
class HatchCommand : public QUndoCommand
{
public:
    using Change = std::function<void(ZTFillParam &fill)>;

    /** `change` is applied to the settings of each item, now and never again. */
    HatchCommand(ZTGraphicsScene *scene, const ShapeItems &items, const Change &change,
                 const QString &text);

    void undo() override;
    void redo() override;

    /** Whether the command would change nothing: there is no need to push it. */
    bool changesNothing() const;

private:
    struct Step
    {
        QPointer<ShapeItem> item;
        ZTFillParam before;
        ZTFillParam after;
    };

    void give(ZTFillParam Step::*side);

    QPointer<ZTGraphicsScene> m_drawing; ///< borrowed from the document
    QVector<Step> m_steps;
};

} // namespace studio
