#pragma once

#include <studio/panel/PanelSection.h>
#include <studio/panel/ShapeEdits.h>

QT_BEGIN_NAMESPACE
class QGridLayout;
class QLabel;
QT_END_NAMESPACE

namespace studio {

/**
 * What only some kinds have: the sides of polygons, the length of lines, the diameters of
 * ellipses. Shows the row of the kind that all selected shapes are.
 */
class KindSection : public PanelSection
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit KindSection(ZTGraphicsDocument &document, QWidget *parent = nullptr);

    void follow(const ShapeItems &selected) override;
    void followPlaces(const ShapeItems &selected) override;

protected:
    void retranslate() override;

private:
    /** A field with what stands around it. */
    struct Row
    {
        QLabel *label;
        MeasureField *field;
        QLabel *unit;

        void setVisible(bool isVisible) const;
        void name(const QString &text, const QString &unitText, const QString &hint) const;
    };

    Row addRow(QGridLayout &grid, MeasureField *field);

    ShapeEdits m_edits;
    Row m_sides;
    Row m_length;
    Row m_firstDiameter;
    Row m_secondDiameter;
};

} // namespace studio
