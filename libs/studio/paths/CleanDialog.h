#pragma once

#include <vectorkit/VectorDrawing.h>

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QPushButton;
QT_END_NAMESPACE

namespace studio {

class CleanForm;
class ImportPicture;

/** Cleans outlines that stand in the drawing: what is chosen is shown at once, with figures. */
class CleanDialog : public QDialog
{
    Q_OBJECT

public:
    CleanDialog(const vectorkit::VectorDrawing &found, QWidget *parent);

    /** What is left after cleaning as chosen, layer by layer as it was given. */
    const vectorkit::VectorDrawing &cleaned() const { return m_cleaned; }

Q_SIGNALS:
    /** The user takes what is shown. */
    void chosen();

private:
    void refresh();
    void take();

    vectorkit::VectorDrawing m_found;
    vectorkit::VectorDrawing m_cleaned;
    ImportPicture *m_picture; ///< children, as all below
    CleanForm *m_form;
    QPushButton *m_okButton = nullptr;
    QTimer m_soon; ///< after the last change
};

} // namespace studio
