#pragma once

#include <studio/arrange/CirclePreview.h>

#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QSpinBox;
QT_END_NAMESPACE

namespace studio {

class ArrangeActions;
class MeasureBox;

/**
 * Repeats the selected shapes around a place. Stays open beside the drawing and shows at once where
 * the copies would stand; only "Create" makes them, as one undo step.
 */
class CircleDialog : public QDialog
{
    Q_OBJECT

public:
    /** `document` and `actions` are borrowed and outlive the dialog. */
    CircleDialog(ZTGraphicsDocument &document, ArrangeActions &actions, QWidget *parent);
    ~CircleDialog() override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void watch(MeasureBox &box, const char *name);
    QLabel *addRow(QFormLayout &form, QWidget *box);
    void layOut();
    void retranslate();
    void refresh();
    void create();
    CircleArray circle() const;
    double middleY() const; ///< downward, in millimetres
    void showMiddleY(double downMm);

    ZTGraphicsDocument &m_document;
    ArrangeActions &m_actions;
    MeasureBox *m_countBox;
    MeasureBox *m_totalBox;
    MeasureBox *m_acrossBox;
    MeasureBox *m_downBox;
    QCheckBox *m_turnBox;
    QLabel *m_countLabel = nullptr;
    QLabel *m_totalLabel = nullptr;
    QLabel *m_acrossLabel = nullptr;
    QLabel *m_downLabel = nullptr;
    QLabel *m_hintLabel;
    QPushButton *m_createButton;
    QPointer<CirclePreview> m_preview; ///< an item of the scene, while the dialog is open
    bool m_isYUp = false;              ///< how the middle's y is shown
    bool m_hasBeenShown = false;
};

} // namespace studio
