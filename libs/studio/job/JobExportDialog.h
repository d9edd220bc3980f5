#pragma once

#include <studio/job/JobExporter.h>

#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
QT_END_NAMESPACE

namespace studio {

/**
 * Asks where a job goes, for how many parts, and whether its frame alone is wanted. It stays open,
 * with all that was entered, until the job is written: whoever writes it accepts the dialog.
 */
class JobExportDialog : public QDialog
{
    Q_OBJECT

public:
    /** `suffix`, without a point, is that of the machine's own form. */
    JobExportDialog(const QString &suffix, bool hasVariantTexts, QWidget *parent = nullptr);

    JobExport wanted() const;

    void accept() override;

Q_SIGNALS:
    /** The job is to be written so. */
    void chosen(const studio::JobExport &wanted);

private:
    QString suggestedPath() const;
    void build();
    void browse();
    void refresh();
    void finish();

    QString m_suffix;
    bool m_hasVariantTexts;
    QLineEdit *m_path; ///< child, as all below
    QPushButton *m_browse;
    QSpinBox *m_parts;
    QCheckBox *m_oneFile;
    QComboBox *m_frame;
    QLabel *m_hint;
    QPushButton *m_export = nullptr;
};

} // namespace studio
