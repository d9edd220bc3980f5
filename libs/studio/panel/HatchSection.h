#pragma once

#include <studio/panel/PanelSection.h>
#include <studio/panel/ShapeEdits.h>

#include <hostkit/items/ItemHatches.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
QT_END_NAMESPACE

namespace studio {

class HatchList;

/**
 * The hatches of what is selected, up to eight on a shape: a list, and fields for the one of them
 * that is picked there. Spacing and inset are distances on the part; an angle is counter-clockwise,
 * as every angle of the program is.
 *
 * Of several shapes, an edit reaches every one that has a hatch in that place.
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
    using Hatches = QVector<hostkit::ShapeHatch>;

    void addChoices();
    void connectFields();
    void connectList();
    void layOut();
    void retranslateFields();
    void chooseKind(int row);
    void add();
    void remove();
    void move(int by);
    QString edit(const std::function<void(hostkit::ShapeHatch &hatch)> &change);
    template <class Value>
    void connectMeasure(MeasureField &field, Value hostkit::ShapeHatch::*value);
    template <class Value>
    void connectChoice(QComboBox &box, Value hostkit::ShapeHatch::*value);
    template <class Value>
    void showMeasure(MeasureField &field, Value hostkit::ShapeHatch::*value);
    template <class Value>
    void showChoice(QComboBox &box, Value hostkit::ShapeHatch::*value);
    void showRows(bool isHatched, bool isTurned, bool hasAngle);
    QString differing() const;
    QStringList rowTexts() const;
    QString rowText(const hostkit::ShapeHatch &hatch) const;
    QString hintFor(const ShapeItems &selected, const ShapeItems &areas) const;

    ShapeEdits m_edits;
    QVector<Hatches> m_shown; ///< of each area that is selected

    HatchList *m_list; ///< child, as all below
    QLabel *m_kindLabel;
    QComboBox *m_kind;
    QLabel *m_spacingLabel;
    MeasureField *m_spacing;
    QLabel *m_angleLabel;
    MeasureField *m_angle;
    QLabel *m_insetLabel;
    MeasureField *m_inset;
    QLabel *m_turnLabel;
    MeasureField *m_turn;
    QLabel *m_penLabel;
    QComboBox *m_pen;
    QLabel *m_passesLabel;
    MeasureField *m_passes;
    QLabel *m_momentLabel;
    QComboBox *m_moment;
    QCheckBox *m_oneWay;
    QCheckBox *m_border;
    QCheckBox *m_union;
    QLabel *m_hint;
    QVector<QLabel *> m_units; ///< mm after spacing and inset
};

} // namespace studio
