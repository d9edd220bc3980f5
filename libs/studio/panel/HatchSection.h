#pragma once

#include <studio/panel/PanelSection.h>
#include <studio/panel/ShapeEdits.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
QT_END_NAMESPACE

namespace studio {

/**
 * The hatch of what is selected. Its spacing is the distance of the lines on the part, and its
 * angle is counter-clockwise, as every angle of the program is.
 */
class HatchSection : public PanelSection
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit HatchSection(ZTGraphicsDocument &document, QWidget *parent = nullptr);

    void follow(const ShapeItems &selected) override;

protected:
    void retranslate() override;

private:
    void connectFields();
    void layOut();
    QString hintFor(const ShapeItems &selected, const ShapeItems &areas) const;

    ShapeEdits m_edits;
    QLabel *m_unit;
    QLabel *m_kindLabel;
    QComboBox *m_kind;
    QLabel *m_spacingLabel;
    MeasureField *m_spacing;
    QLabel *m_angleLabel;
    MeasureField *m_angle;
    QCheckBox *m_border;
    QLabel *m_hint;
};

} // namespace studio
