#pragma once

#include <studio/canvas/SnapTools.h>
#include <studio/choices/Preferences.h>
#include <studio/panel/MeasureField.h>
#include <studio/program/Language.h>

#include <QtWidgets/QDialog>

#include <vector>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QSpinBox;
class QTabWidget;
QT_END_NAMESPACE

namespace studio {

/** All that the dialog shows, and what becomes of it. */
struct PreferenceEdit
{
    Preferences user; ///< but for `newDrawing`, which stays as it is
    LanguageChoice language = LanguageChoice::System;
    SnapChoice snap;
    DrawingChoice drawing;         ///< of the drawing in the window
    bool isForNewDrawings = false; ///< new ones shall have the same
};

/**
 * How the program shall be: in pages for the program, the canvas, new shapes and the drawing.
 *
 * A wrong entry is shown as wrong, with the reason, and cannot be applied.
 */
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    PreferencesDialog(const PreferenceEdit &shown, QWidget *parent);

    /** What is entered now. Order: while nothing is wrong. */
    PreferenceEdit edited() const;

Q_SIGNALS:
    void chosen(const studio::PreferenceEdit &edit); ///< to be applied now

protected:
    void changeEvent(QEvent *event) override;

private:
    void buildProgramPage();
    void buildCanvasPage();
    void buildShapePage();
    void buildDrawingPage();
    QFormLayout *newPage();
    void addRow(QFormLayout &form, QWidget *field, const char *label);
    void addWide(QFormLayout &form, QWidget *field);
    QComboBox *newChoice(const char *name, const std::vector<int> &entries);
    QCheckBox *newCheck(const char *name);
    MeasureField *newField(const char *name, MeasureField::Quantity quantity,
                           const MeasureField::Range &range);
    QSpinBox *newSpin(const char *name, int least, int most);
    void showEdit(const PreferenceEdit &shown);
    void showField(const QRect &fieldMm);
    QRect fieldMm() const;
    int originOf(const QRect &fieldMm) const;
    void followOrigin();
    void refresh();
    void takeEntries();
    void restoreDefaults();
    void retranslate();

    PreferenceEdit m_shown;
    QTabWidget *m_pages;
    QDialogButtonBox *m_buttons;
    QLabel *m_message;
    QVector<QLabel *> m_labels;
    QVector<const char *> m_labelTexts; ///< by label
    QComboBox *m_language = nullptr;
    QComboBox *m_theme = nullptr;
    QComboBox *m_unit = nullptr;
    QComboBox *m_direction = nullptr;
    QSpinBox *m_autosave = nullptr;
    QCheckBox *m_gridShown = nullptr;
    QCheckBox *m_gridFixed = nullptr;
    MeasureField *m_grid = nullptr;
    QCheckBox *m_snapShapes = nullptr;
    QCheckBox *m_snapGuides = nullptr;
    QCheckBox *m_snapGrid = nullptr;
    QCheckBox *m_keepTool = nullptr;
    QComboBox *m_pen = nullptr;
    QComboBox *m_hatch = nullptr;
    MeasureField *m_hatchSpacing = nullptr;
    MeasureField *m_hatchAngle = nullptr;
    QCheckBox *m_border = nullptr;
    QSpinBox *m_fieldWidth = nullptr;
    QSpinBox *m_fieldHeight = nullptr;
    QComboBox *m_origin = nullptr;
    QSpinBox *m_fieldLeft = nullptr;
    QSpinBox *m_fieldTop = nullptr;
    QCheckBox *m_tolerant = nullptr;
    MeasureField *m_tolerance = nullptr;
    QCheckBox *m_forNew = nullptr;
};

} // namespace studio
