#pragma once

#include <studio/groups/Groups.h>

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QMouseEvent;
QT_END_NAMESPACE

namespace studio {

/** The topmost shape under a place of the view that can be selected, or null. */
ShapeItem *selectableAt(const ZTGraphicsView &view, const QPoint &pos);

/**
 * Groups of shapes, and groups in groups. A click on a member selects its whole group, a double
 * click enters the group, in which its members are on their own, and leaving it selects it again.
 *
 * Grouping and taking groups apart are one undo step each; the group of a shape is saved with it.
 */
class GroupTools : public QObject
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit GroupTools(ZTGraphicsDocument &document, QObject *parent = nullptr);

    /** Makes a group of the selected shapes, within the group that all of them are in. */
    void group();

    /** Takes the outermost groups of the selected shapes apart; groups in them stay. */
    void ungroup();

    /** The group in which members are on their own; empty outside of all groups. */
    const GroupPath &entered() const { return m_entered; }

    /** Goes one group outward and selects the one that was left. False if there was none. */
    bool leave();

    /**
     * Selects these alone, as a click does: a member brings its group along, and a shape outside of
     * the entered group leaves it.
     */
    void selectByMouse(const ShapeItems &items);

    /** Takes a shape out of the selection, with the group that a click on it selects. */
    void deselectByMouse(ShapeItem &item);

    /** The units of the selected shapes, as they are seen from the entered group. */
    QVector<ShapeUnit> selectedUnits() const;

Q_SIGNALS:
    /** Another group is entered, or none. */
    void enteredChanged(const studio::GroupPath &entered);

    /** Something to be told in passing; empty when it is no longer true. */
    void told(const QString &words);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void enter(const GroupPath &path);
    bool enterAt(const QMouseEvent &event);
    void followSelection();

    ZTGraphicsDocument &m_document;
    GroupPath m_entered;
    bool m_isByMouse = false; ///< the canvas has a button down: selections are completed
};

} // namespace studio
