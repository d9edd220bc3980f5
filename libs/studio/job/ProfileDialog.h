#pragma once

#include <jobkit/values/MachineProfile.h>

#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
QT_END_NAMESPACE

namespace studio {

/**
 * All values of a machine as fields. What is out of its range is said with the field while it is
 * typed, and cannot be kept; what the kind of machine has no use for is greyed.
 */
class ProfileDialog : public QDialog
{
    Q_OBJECT

public:
    /** Whether the machine comes with the program, which is not changed: a copy is kept. */
    enum class Origin { OnBoard, Kept };

    ProfileDialog(const jobkit::MachineProfile &profile, Origin origin, QWidget *parent = nullptr);

    /** What the fields say; those that hold no number count as not a number. */
    jobkit::MachineProfile profile() const;

Q_SIGNALS:
    /** The user wants these values kept. */
    void chosen(const jobkit::MachineProfile &profile);
    /** The user wants the machine forgotten. */
    void removeAsked();

private:
    struct Number
    {
        QString key;
        QString label;
        QLineEdit *field; ///< child
        double jobkit::MachineProfile::*value;
    };

    void build(Origin origin);
    void buildMachine(QFormLayout &form);
    void buildMotion(QFormLayout &form);
    void buildOutput(QFormLayout &form);
    void buildButtons(Origin origin);
    void addNumber(QFormLayout &form, const char *key, const QString &label,
                   double jobkit::MachineProfile::*value);
    QComboBox *newChoice(const char *name, const QStringList &texts);
    QPlainTextEdit *newLines(const char *name);
    void show(const jobkit::MachineProfile &profile);
    void check();
    QString problem() const;
    void importFile();
    void exportFile();
    void tell(const QString &text);

    QVector<Number> m_numbers;
    QLineEdit *m_name = nullptr; ///< child, as all below
    QComboBox *m_kind = nullptr;
    QComboBox *m_origin = nullptr;
    QComboBox *m_yDirection = nullptr;
    QCheckBox *m_laserMode = nullptr;
    QComboBox *m_form = nullptr;
    QComboBox *m_unit = nullptr;
    QComboBox *m_decimals = nullptr;
    QPlainTextEdit *m_head = nullptr;
    QPlainTextEdit *m_tail = nullptr;
    QLabel *m_told = nullptr;
    QPushButton *m_keep = nullptr;
    QPushButton *m_export = nullptr;
};

} // namespace studio
