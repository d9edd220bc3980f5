#pragma once

#include <studio/job/JobRun.h>

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;
class QTableView;
QT_END_NAMESPACE

namespace studio {

class TimesModel;

/**
 * What a plan is about, beside the plan: where its time goes, what may be wrong with it, and what
 * the piece is that was clicked.
 */
class PlanPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PlanPanel(QWidget *parent = nullptr);

    void setJob(const std::shared_ptr<const Job> &job); ///< may be null
    void setOutdated(bool isOutdated);

    /** Names a piece of the plan; -1: none. */
    void showPiece(int piece);

    /** Says something below all else until the next piece is clicked. */
    void tell(const QString &text);

Q_SIGNALS:
    /** A finding was clicked: its object in the job, and where to look. */
    void findingPicked(int object, const QPointF &atMm);
    /** A row of the times was clicked that is about an object of the job. */
    void objectPicked(int object);
    void reportAsked();
    void exportAsked();

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void connectFields();
    void retranslate();
    void showFindings();
    void fitColumns();
    QString wordsOf(int piece) const;

    std::shared_ptr<const Job> m_job;
    TimesModel *m_model; ///< child, as all below
    QLabel *m_byLabel;
    QComboBox *m_by;
    QLabel *m_partsLabel;
    QSpinBox *m_parts;
    QTableView *m_times;
    QLabel *m_findingsTitle;
    QListWidget *m_findings;
    QLabel *m_picked;
    QPushButton *m_report;
    QPushButton *m_export;
};

} // namespace studio
