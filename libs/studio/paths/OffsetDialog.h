#pragma once

#include <studio/canvas/ToolPreview.h>
#include <studio/paths/PathActions.h>

#include <QtWidgets/QDialog>

#include <memory>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace studio {

class MeasureBox;

/**
 * Asks for an offset of the selected outlines and shows it on the drawing at once.
 *
 * Range: from 1,000 mm inside to 1,000 mm outside.
 */
class OffsetDialog : public QDialog
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive the dialog. */
    OffsetDialog(ZTGraphicsDocument &document, PathActions &actions, QWidget *parent);
    ~OffsetDialog() override;

    OffsetChoice choice() const;

private:
    void refresh();
    void take();

    PathActions &m_actions;
    std::unique_ptr<ToolPreview> m_preview;
    MeasureBox *m_distanceBox; ///< children, as all below
    QComboBox *m_cornerBox;
    QCheckBox *m_keepBox;
    QLabel *m_hint;
    QPushButton *m_okButton = nullptr;
};

} // namespace studio
