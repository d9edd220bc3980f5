#pragma once

#include <studio/job/PlanPanel.h>
#include <studio/job/PlanView.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QVBoxLayout;
class QLabel;
class QPushButton;
class QSlider;
class QToolButton;
QT_END_NAMESPACE

namespace studio {

/**
 * Plays a job in the place of the canvas: the very plan that is exported. Where its time goes and
 * what may be wrong stands in its panel.
 *
 * Space plays and pauses, the arrow keys go a piece back and on, comma and point a frame, Home and
 * End to the ends; Escape leaves, wherever the keyboard is in the window.
 */
class JobPreview : public QWidget
{
    Q_OBJECT

public:
    explicit JobPreview(QWidget *parent = nullptr);
    ~JobPreview() override;

    /** Shows a job from its beginning. */
    void setJob(const std::shared_ptr<const Job> &job);

    /** Tells that the drawing is another one than the plan's. */
    void setOutdated(bool isOutdated);

    PlanView &plan() const { return *m_plan; }

    /** What stands beside the plan. Owner: whoever puts it somewhere, or this. */
    PlanPanel &panel() const { return *m_panel; }

    bool isPlaying() const { return m_timer.isActive(); }

    /** Brings the pieces of some objects into sight; without any of them, the whole plan. */
    void showObjects(const QVector<int> &objects);

Q_SIGNALS:
    void updateAsked();
    void exportAsked();
    void leaveAsked();
    /** A finding, a row or a line was clicked: the object of the job behind it. */
    void objectPicked(int object);

protected:
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void build();
    void connectPanel();
    QVBoxLayout *newSwitches();
    QHBoxLayout *newNote();
    QVBoxLayout *newTransport();
    QCheckBox *newSwitch(const char *name, bool isOn);
    QToolButton *newStep(const char *name, const QString &sign);
    void retranslate();
    void showMoment();
    void showSignsNote();
    void readLook();
    void togglePlay();
    void play();
    void pause();
    void advance();
    void goTo(double moment);
    void step(int pieces);
    void stepFrames(int frames);
    void pickPiece(int piece);
    void saveReport();
    double totalS() const;
    double pace() const;

    std::shared_ptr<const Job> m_job; ///< may be null
    PlanView *m_plan;                 ///< child, as all widgets below but the panel
    QPointer<PlanPanel> m_panel;
    QLabel *m_colorsLabel = nullptr;
    QComboBox *m_colors = nullptr;
    QCheckBox *m_jumps = nullptr;
    QCheckBox *m_arrows = nullptr;
    QCheckBox *m_numbers = nullptr;
    QCheckBox *m_starts = nullptr;
    QPushButton *m_close = nullptr;
    QLabel *m_outdated = nullptr;
    QPushButton *m_update = nullptr;
    QLabel *m_signsNote = nullptr;
    QToolButton *m_pieceBack = nullptr;
    QToolButton *m_frameBack = nullptr;
    QPushButton *m_play = nullptr;
    QToolButton *m_frameOn = nullptr;
    QToolButton *m_pieceOn = nullptr;
    QSlider *m_slider = nullptr;
    QLabel *m_clock = nullptr;
    QLabel *m_paceLabel = nullptr;
    QComboBox *m_pace = nullptr;

    QTimer m_timer;
    QElapsedTimer m_sinceFrame;
};

} // namespace studio
