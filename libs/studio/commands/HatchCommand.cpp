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
    : HatchCommand(
          scene, items, [&change](ZTFillParam &fill, hostkit::ItemExtras &) { change(fill); }, text)
{
}

HatchCommand::HatchCommand(ZTGraphicsScene *scene, const ShapeItems &items,
                           const FullChange &change, const QString &text)
    : QUndoCommand(text), m_drawing(scene)
{
    m_steps.reserve(items.size());
    for (ShapeItem *item : items) {
        if (item == nullptr)
            continue;
        ZTFillParam fill = item->getFillParam();
        hostkit::ItemExtras extras = hostkit::itemExtras(*item);
        Step step;
        step.item = item;
        step.before = {fill, extras.hatches, extras.outlineUnion};
        change(fill, extras);
        step.after = {fill, extras.hatches, extras.outlineUnion};
        m_steps.append(step);
    }
}

bool HatchCommand::changesNothing() const
{
    return std::all_of(m_steps.begin(), m_steps.end(),
                       [](const Step &step) { return areSame(step.before, step.after); });
}

bool HatchCommand::areSame(const Settings &a, const Settings &b)
{
    return isSame(a.fill, b.fill) && a.hatches == b.hatches && a.outlineUnion == b.outlineUnion;
}

void HatchCommand::undo() { give(&Step::before); }

void HatchCommand::redo() { give(&Step::after); }

void HatchCommand::give(Settings Step::*side)
{
    if (!m_drawing)
        return;
    const FramePause pause(*m_drawing);
    for (const Step &step : qAsConst(m_steps)) {
        if (step.item)
            giveTo(*step.item, step.*side);
    }
}

void HatchCommand::giveTo(ShapeItem &item, const Settings &settings)
{
    hostkit::ItemExtras extras = hostkit::itemExtras(item);
    extras.hatches = settings.hatches;
    extras.outlineUnion = settings.outlineUnion;
    // First, for a text is drawn anew by its fill parameters.
    if (extras != hostkit::itemExtras(item))
        hostkit::setItemExtras(item, extras);
    if (!isSame(item.getFillParam(), settings.fill))
        item.setFillParam(settings.fill);
}

} // namespace studio
