#pragma once

#include <hostkit/import/DrawingImport.h>

#include <vectorkit/clean/DrawingCleaning.h>

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableWidget;
QT_END_NAMESPACE

namespace studio {

class CleanForm;
class ImportPicture;
class MeasureBox;

/**
 * Shows a foreign drawing before it comes in: its picture, its size and how that was found, and
 * what was left out. The user may change unit, size, splitting, pens and what is to be cleaned; the
 * picture is that of what would come in.
 *
 * The size is that of all that comes in, texts included, before it is cleaned.
 *
 * Range: sizes from 0.001 to 100,000 mm, shown and typed in the unit of the program.
 */
class ImportDialog : public QDialog
{
    Q_OBJECT

public:
    ImportDialog(const QString &path, const vectorkit::VectorDrawing &read, QWidget *parent);

    /** The drawing in the size that the user chose, cleaned as chosen. */
    const vectorkit::VectorDrawing &drawing() const { return m_shown; }

    /** From the size as found to that of `drawing`, across and down. */
    QSizeF scale() const { return m_scale; }

    /** What `drawing` has been cleaned of. */
    vectorkit::CleanOptions cleaning() const;

    /** Split, hatch of open outlines and pens, as chosen. */
    hostkit::ImportOptions options() const;

Q_SIGNALS:
    /** The user lets it in. */
    void chosen();

private:
    void layOut(const QString &path);
    QWidget *newDrawingPage(const QString &path);
    QWidget *newCleaningPage();
    void mend();
    MeasureBox *addSize(const QString &name);
    void fillUnits();
    void fillNotes();
    void fillPens();
    void takeUnit();
    void takeWidth();
    void takeHeight();
    void showSize(const QSizeF &sizeMm);
    void refreshSoon();
    void refresh();
    QSizeF chosenScale() const;
    void take();

    vectorkit::VectorDrawing m_found;
    vectorkit::VectorDrawing m_shown; ///< sized and cleaned
    QSizeF m_scale = {1.0, 1.0};      ///< of what is shown
    QSizeF m_foundSizeMm;
    hostkit::ImportOptions m_first; ///< as remembered
    ImportPicture *m_picture;       ///< children, as all below
    QComboBox *m_unitBox;
    MeasureBox *m_widthBox;
    MeasureBox *m_heightBox;
    QCheckBox *m_proportionsBox;
    QComboBox *m_splitBox;
    QCheckBox *m_fillOpenBox;
    QTableWidget *m_pens;
    QListWidget *m_notes;
    CleanForm *m_clean;
    QPushButton *m_okButton = nullptr;
    QTimer m_soon; ///< after the last change
};

} // namespace studio
