#include <studio/commands/HatchCommand.h>

#include <studio/commands/FramePause.h>

#include <algorithm>

namespace studio {

namespace {

// To the last bit: the records call numbers equal that differ in theirs.
bool isSame(const ZTFillParam &a, const ZTFillParam &b)
{
    return a.fillType == b.fillType && a.spac == b.spac && a.angle == b.angle &&
           a.isEnableBorder == b.isEnableBorder;
}

} // namespace

HatchCommand::HatchCommand(ZTGraphicsScene *scene, const ShapeItems &items, const Change &change,
                           const QString &text)
    : QUndoCommand(text), m_drawing(scene)
{
    m_steps.reserve(items.size());
    for (ShapeItem *item : items) {
        if (item == nullptr)
            continue;
        Step step{item, item->getFillParam(), item->getFillParam()};
        change(step.after);
        m_steps.append(step);
    }
}

bool HatchCommand::changesNothing() const
{
    return std::all_of(m_steps.begin(), m_steps.end(),
                       [](const Step &step) { return isSame(step.before, step.after); });
}

void HatchCommand::undo() { give(&Step::before); }

void HatchCommand::redo() { give(&Step::after); }

void HatchCommand::give(ZTFillParam Step::*side)
{
    if (!m_drawing)
        return;
    const FramePause pause(*m_drawing);
    for (const Step &step : qAsConst(m_steps)) {
        if (step.item && !isSame(step.item->getFillParam(), step.*side))
            step.item->setFillParam(step.*side);
    }
}

} // namespace studio
