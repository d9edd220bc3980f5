#pragma once

#include <studio/panel/PanelSection.h>
#include <studio/panel/ShapeEdits.h>

QT_BEGIN_NAMESPACE
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
QT_END_NAMESPACE

namespace studio {

class DocumentActions;

/** Place, size and angle of what is selected, as one would measure them on the part. */
class BoxSection : public PanelSection
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive this. */
    BoxSection(ZTGraphicsDocument &document, DocumentActions &actions, QWidget *parent = nullptr);

    void follow(const ShapeItems &selected) override;
    void followPlaces(const ShapeItems &selected) override;

    /** The field that a user who wants to type begins with. */
    MeasureField *firstField() const { return m_x; }

protected:
    void retranslate() override;

private:
    void buildAnchors();
    void buildExtent();
    void buildLock();
    void connectFields();
    void takeSize(MeasureField &field, Qt::Orientation direction, double mm);
    void layOut();
    QLabel *labelled(QGridLayout &grid, MeasureField &field, int row, int column);
    ShapeEdits::Frame frame() const;
    QPointF anchor() const;
    QVector<QRectF> shownBoxesMm(const ShapeItems &selected) const;
    void remember();

    ZTGraphicsDocument &m_document;
    DocumentActions &m_actions;
    ShapeEdits m_edits;
    MeasureField *m_x;
    MeasureField *m_y;
    MeasureField *m_width;
    MeasureField *m_height;
    MeasureField *m_angle;
    QLabel *m_angleLabel = nullptr;
    QLabel *m_mirrored = nullptr;
    QLabel *m_unit = nullptr;
    QCheckBox *m_lock = nullptr;
    QComboBox *m_extent = nullptr;
    QWidget *m_anchorBox = nullptr;
    QButtonGroup *m_anchors = nullptr; ///< ids 0 to 8, row by row
};

} // namespace studio
