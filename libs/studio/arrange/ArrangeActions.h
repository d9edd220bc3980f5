#pragma once

#include <studio/arrange/Arrangement.h>
#include <studio/arrange/ShapeCopies.h>
#include <studio/commands/ItemGeometryCommand.h>

#include <QtCore/QObject>

namespace studio {

class GroupTools;

/** What shapes are aligned to. */
enum class AlignTo {
    EachOther, ///< the box around all of them
    First,     ///< the one that was selected first, which stays
    Field      ///< the field of the machine
};

/**
 * Arranges the selected shapes: groups go as one. Each operation is one undo step; one that would
 * change nothing makes none.
 */
class ArrangeActions : public QObject
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive this. */
    ArrangeActions(ZTGraphicsDocument &document, GroupTools &groups, QObject *parent = nullptr);

    AlignTo alignTo() const { return m_alignTo; }
    void setAlignTo(AlignTo reference); ///< and keeps it for this user

    /** Whether enough is selected for aligning: one for the field, otherwise two. */
    bool canAlign() const;

    void align(Qt::Alignment alignment);
    void spread(Qt::Orientation direction, Spread spread);
    void centreOnField();

    /** About the axis through the middle of the field; the shapes change sides. */
    void mirrorAboutField(MirrorCommand::Kind kind);

    /**
     * Copies the selected shapes around a place and selects the copies.
     *
     * @return shapes made; 0 for no selection, or one that the circle does not fit
     */
    int repeatAround(const CircleArray &circle);

    /** The field of the machine. Frame: scene pixels. */
    QRectF fieldPx() const;

Q_SIGNALS:
    /** Shapes are aligned to something else from now on. */
    void alignToChanged(studio::AlignTo reference);

private:
    void followSelection();
    void move(const QVector<ItemMove> &moves, const QString &text);
    QRectF reference(const QVector<ShapeUnit> &units) const;

    ZTGraphicsDocument &m_document;
    GroupTools &m_groups;
    AlignTo m_alignTo = AlignTo::EachOther;
    QPointer<ShapeItem> m_first; ///< of the selection
};

} // namespace studio
