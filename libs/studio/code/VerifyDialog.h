#pragma once

#include <studio/code/CodeReader.h>

#include <QtCore/QHash>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
QT_END_NAMESPACE

namespace studio {

class MeasureBox;

/**
 * Reads the codes of a drawing back from their final marks while the window stays alive, and lists
 * what each says, the troubled ones first. Choosing one selects it.
 */
class VerifyDialog : public QDialog
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives the dialog. */
    VerifyDialog(ZTGraphicsDocument &document, QWidget *parent);
    ~VerifyDialog() override;

    /** Begins anew with the codes that the drawing has now. */
    void start();

    bool isRunning() const { return m_reader.isRunning(); }

protected:
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void retranslate();
    void showSummary();
    void stop();
    void finish();
    void add(int number, const codekit::CodeReading &reading);
    void select(const QTreeWidgetItem *row);

    ZTGraphicsDocument &m_document;
    CodeReader m_reader;
    QHash<int, codekit::CodeReading> m_readings; ///< by the number of their codes
    bool m_hasRun = false;
    int m_good = 0;
    int m_bad = 0;
    MeasureBox *m_beamBox;
    QProgressBar *m_progress;
    QLabel *m_summary;
    QLabel *m_beamLabel;
    QTreeWidget *m_list;
    QPushButton *m_startButton = nullptr; ///< also stops
};

} // namespace studio
