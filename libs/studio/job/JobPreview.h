#pragma once

#include <studio/job/PlanView.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSlider;
class QTableWidget;
QT_END_NAMESPACE

namespace studio {

/**
 * Plays a job: the very plan that is exported, with the times that the machine takes, where they go
 * and what may be wrong.
 *
 * Space plays and pauses, the arrow keys go a piece back and on, Home and End to the ends.
 */
class JobPreview : public QDialog
{
    Q_OBJECT

public:
    explicit JobPreview(QWidget *parent = nullptr);

    /** Shows a job from its beginning. */
    void setJob(const std::shared_ptr<const Job> &job);

    /** Tells that the drawing is another one than the plan's. */
    void setOutdated(bool isOutdated);

    PlanView &plan() const { return *m_plan; }
    bool isPlaying() const { return m_timer.isActive(); }

Q_SIGNALS:
    void updateAsked();
    void exportAsked();
    /** A finding or a line was clicked: the object of the job behind it. */
    void objectPicked(int object);

protected:
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void build();
    QWidget *newSide();
    QWidget *newTransport();
    QCheckBox *newSwitch(const char *name, bool isOn);
    void retranslate();
    void showTimes();
    void addTimes(const QString &name, const jobkit::TimeSums &sums);
    void showFindings();
    void showMoment();
    void readLook();
    void togglePlay();
    void play();
    void pause();
    void advance();
    void step(int pieces);
    void pickPiece(int piece);
    void savePicture();
    double totalS() const;

    std::shared_ptr<const Job> m_job; ///< may be null
    PlanView *m_plan;                 ///< child, as all widgets below
    QComboBox *m_colors = nullptr;
    QCheckBox *m_jumps = nullptr;
    QCheckBox *m_arrows = nullptr;
    QCheckBox *m_numbers = nullptr;
    QCheckBox *m_starts = nullptr;
    QTableWidget *m_times = nullptr;
    QLabel *m_findingsTitle = nullptr;
    QListWidget *m_findings = nullptr;
    QLabel *m_picked = nullptr;
    QLabel *m_outdated = nullptr;
    QPushButton *m_update = nullptr;
    QPushButton *m_play = nullptr;
    QComboBox *m_pace = nullptr;
    QSlider *m_slider = nullptr;
    QLabel *m_clock = nullptr;
    QPushButton *m_picture = nullptr;
    QPushButton *m_export = nullptr;
    QPushButton *m_close = nullptr;
    QLabel *m_colorsLabel = nullptr;
    QLabel *m_paceLabel = nullptr;

    QTimer m_timer;
    QElapsedTimer m_sinceFrame;
};

} // namespace studio
