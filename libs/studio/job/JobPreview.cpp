#include <studio/job/JobPreview.h>

#include <studio/job/JobReport.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QSet>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QShortcut>
#include <QtWidgets/QSlider>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <array>

namespace studio {

namespace {

constexpr int kFrameMs = 33;
constexpr int kSliderSteps = 100000;
constexpr std::array<double, 9> kPaces = {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 50.0, 100.0};
constexpr int kUsualPace = 3;
constexpr int kMargin = 4;

QString seconds(double value) { return QLocale().toString(value, 'f', 2); }

QRectF boxOf(const QPolygonF &points)
{
    QRectF box = points.boundingRect();
    return box.isNull() ? QRectF(points.value(0), QSizeF(1e-6, 1e-6)) : box;
}

} // namespace

JobPreview::JobPreview(QWidget *parent)
    : QWidget(parent), m_plan(new PlanView(this)), m_panel(new PlanPanel)
{
    setObjectName(QStringLiteral("jobPreview"));
    build();
    connectPanel();
    m_timer.setInterval(kFrameMs);
    connect(&m_timer, &QTimer::timeout, this, &JobPreview::advance);
    connect(m_plan, &PlanView::picked, this, &JobPreview::pickPiece);
    connect(m_plan, &PlanView::signsChanged, this, &JobPreview::showSignsNote);
    auto *leaving = new QShortcut(Qt::Key_Escape, this);
    connect(leaving, &QShortcut::activated, this, &JobPreview::leaveAsked);
    setOutdated(false);
    retranslate();
}

JobPreview::~JobPreview()
{
    if (m_panel && m_panel->parent() == nullptr)
        delete m_panel;
}

void JobPreview::connectPanel()
{
    connect(m_panel, &PlanPanel::findingPicked, this, [this](int object, const QPointF &atMm) {
        m_plan->showPoint(atMm);
        Q_EMIT objectPicked(object);
    });
    connect(m_panel, &PlanPanel::objectPicked, this, [this](int object) {
        showObjects({object});
        Q_EMIT objectPicked(object);
    });
    connect(m_panel, &PlanPanel::exportAsked, this, &JobPreview::exportAsked);
    connect(m_panel, &PlanPanel::reportAsked, this, &JobPreview::saveReport);
}

QCheckBox *JobPreview::newSwitch(const char *name, bool isOn)
{
    auto *box = new QCheckBox(this);
    box->setObjectName(QLatin1String(name));
    box->setChecked(isOn);
    box->setFocusPolicy(Qt::TabFocus);
    connect(box, &QCheckBox::toggled, this, &JobPreview::readLook);
    return box;
}

QToolButton *JobPreview::newStep(const char *name, const QString &sign)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(sign);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void JobPreview::build()
{
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    all->addLayout(newSwitches());
    all->addLayout(newNote());
    all->addWidget(m_plan, 1);
    m_signsNote = new QLabel(this);
    m_signsNote->setObjectName(QStringLiteral("signsNote"));
    m_signsNote->setWordWrap(true);
    m_signsNote->hide();
    all->addWidget(m_signsNote);
    all->addLayout(newTransport());
    m_plan->setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_plan);
}

// In two rows, so that the window fits a small screen beside its panels.
QVBoxLayout *JobPreview::newSwitches()
{
    m_colors = new QComboBox(this);
    m_colors->setObjectName(QStringLiteral("colors"));
    m_colors->addItems({QString(), QString(), QString()});
    m_colors->setFocusPolicy(Qt::TabFocus);
    connect(m_colors, qOverload<int>(&QComboBox::currentIndexChanged), this, &JobPreview::readLook);
    m_colorsLabel = new QLabel(this);
    m_colorsLabel->setBuddy(m_colors);
    m_jumps = newSwitch("jumps", true);
    m_arrows = newSwitch("arrows", false);
    m_numbers = newSwitch("numbers", false);
    m_starts = newSwitch("starts", false);
    m_close = new QPushButton(this);
    m_close->setObjectName(QStringLiteral("close"));
    m_close->setFocusPolicy(Qt::TabFocus);
    connect(m_close, &QPushButton::clicked, this, &JobPreview::leaveAsked);
    auto *row = new QHBoxLayout;
    row->addWidget(m_colorsLabel);
    row->addWidget(m_colors);
    row->addStretch(1);
    row->addWidget(m_close);
    auto *switches = new QHBoxLayout;
    for (QCheckBox *box : {m_jumps, m_arrows, m_numbers, m_starts})
        switches->addWidget(box);
    switches->addStretch(1);
    auto *rows = new QVBoxLayout;
    rows->addLayout(row);
    rows->addLayout(switches);
    return rows;
}

QHBoxLayout *JobPreview::newNote()
{
    m_outdated = new QLabel(this);
    m_outdated->setObjectName(QStringLiteral("outdated"));
    m_update = new QPushButton(this);
    m_update->setObjectName(QStringLiteral("update"));
    connect(m_update, &QPushButton::clicked, this, &JobPreview::updateAsked);
    auto *row = new QHBoxLayout;
    row->addWidget(m_outdated, 1);
    row->addWidget(m_update);
    return row;
}

QVBoxLayout *JobPreview::newTransport()
{
    m_pieceBack = newStep("pieceBack", QStringLiteral("|<"));
    m_frameBack = newStep("frameBack", QStringLiteral("<"));
    m_frameOn = newStep("frameOn", QStringLiteral(">"));
    m_pieceOn = newStep("pieceOn", QStringLiteral(">|"));
    connect(m_pieceBack, &QToolButton::clicked, this, [this] { step(-1); });
    connect(m_frameBack, &QToolButton::clicked, this, [this] { stepFrames(-1); });
    connect(m_frameOn, &QToolButton::clicked, this, [this] { stepFrames(1); });
    connect(m_pieceOn, &QToolButton::clicked, this, [this] { step(1); });
    m_play = new QPushButton(this);
    m_play->setObjectName(QStringLiteral("play"));
    m_play->setFocusPolicy(Qt::TabFocus);
    connect(m_play, &QPushButton::clicked, this, &JobPreview::togglePlay);
    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setObjectName(QStringLiteral("slider"));
    m_slider->setRange(0, kSliderSteps);
    m_slider->setPageStep(kSliderSteps / 20);
    connect(m_slider, &QSlider::valueChanged, this, [this](int value) {
        m_plan->setMoment(totalS() * value / kSliderSteps);
        showMoment();
    });
    m_clock = new QLabel(this);
    m_clock->setObjectName(QStringLiteral("clock"));
    m_pace = new QComboBox(this);
    m_pace->setObjectName(QStringLiteral("pace"));
    for (const double pace : kPaces)
        m_pace->addItem(QStringLiteral("%1 x").arg(QLocale().toString(pace)), pace);
    m_pace->setCurrentIndex(kUsualPace);
    m_pace->setFocusPolicy(Qt::TabFocus);
    m_paceLabel = new QLabel(this);
    m_paceLabel->setBuddy(m_pace);

    auto *row = new QHBoxLayout;
    for (QWidget *button :
         std::initializer_list<QWidget *>{m_pieceBack, m_frameBack, m_play, m_frameOn, m_pieceOn})
        row->addWidget(button);
    row->addStretch(1);
    row->addWidget(m_clock);
    row->addWidget(m_paceLabel);
    row->addWidget(m_pace);
    auto *rows = new QVBoxLayout;
    rows->addWidget(m_slider);
    rows->addLayout(row);
    return rows;
}

void JobPreview::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    // What was found is told in words: they are found anew once all else speaks the language.
    if (isVisible() && m_job && !m_job->findings.isEmpty())
        QMetaObject::invokeMethod(this, &JobPreview::updateAsked, Qt::QueuedConnection);
}

void JobPreview::retranslate()
{
    m_colorsLabel->setText(tr("Colours by"));
    m_colors->setItemText(0, tr("Pen"));
    m_colors->setItemText(1, tr("Order"));
    m_colors->setItemText(2, tr("Speed"));
    m_jumps->setText(tr("Jumps"));
    m_arrows->setText(tr("Arrows"));
    m_numbers->setText(tr("Order numbers"));
    m_starts->setText(tr("Starting points"));
    m_close->setText(tr("Close preview"));
    m_outdated->setText(tr("The drawing or the pens have changed since."));
    m_update->setText(tr("Update"));
    m_pieceBack->setToolTip(tr("A piece back (Left)"));
    m_frameBack->setToolTip(tr("A frame back (,)"));
    m_frameOn->setToolTip(tr("A frame on (.)"));
    m_pieceOn->setToolTip(tr("A piece on (Right)"));
    for (QToolButton *button : {m_pieceBack, m_frameBack, m_frameOn, m_pieceOn})
        button->setAccessibleName(button->toolTip());
    m_paceLabel->setText(tr("Pace"));
    m_slider->setAccessibleName(tr("Moment of the job"));
    m_slider->setToolTip(tr("Moment of the job"));
    m_play->setText(isPlaying() ? tr("Pause") : tr("Play"));
    showMoment();
    showSignsNote();
}

void JobPreview::setJob(const std::shared_ptr<const Job> &job)
{
    pause();
    m_job = job;
    m_plan->setJob(job);
    m_slider->setValue(0);
    if (m_panel)
        m_panel->setJob(job);
    setOutdated(false);
    for (QWidget *widget :
         std::initializer_list<QWidget *>{m_play, m_pieceBack, m_frameBack, m_frameOn, m_pieceOn})
        widget->setEnabled(totalS() > 0.0);
    showMoment();
}

void JobPreview::setOutdated(bool isOutdated)
{
    m_outdated->setVisible(isOutdated);
    m_update->setVisible(isOutdated);
    if (m_panel)
        m_panel->setOutdated(isOutdated);
}

void JobPreview::showObjects(const QVector<int> &objects)
{
    QRectF box;
    const QSet<int> shown(objects.begin(), objects.end());
    if (m_job) {
        for (const jobkit::PlanPiece &piece : m_job->plan.pieces) {
            if (shown.contains(piece.object))
                box = box.united(boxOf(piece.pointsMm));
        }
    }
    if (box.isNull())
        m_plan->fit();
    else
        m_plan->showBox(box);
}

double JobPreview::totalS() const { return m_job ? m_job->times.all.totalS() : 0.0; }

double JobPreview::pace() const { return m_pace->currentData().toDouble(); }

void JobPreview::showMoment()
{
    m_clock->setText(tr("%1 of %2 s").arg(seconds(m_plan->moment()), seconds(totalS())));
}

void JobPreview::showSignsNote()
{
    const int leftOut = m_plan->signsLeftOut();
    m_signsNote->setVisible(leftOut > 0);
    m_signsNote->setText(tr("Jumps, arrows, numbers and starting points are not shown: %L1 pieces "
                            "are in sight, more than %L2. Zoom in to see them.")
                             .arg(leftOut)
                             .arg(PlanPictures::kSignsAtMost));
}

void JobPreview::readLook()
{
    PlanLook look;
    look.colors = static_cast<PlanColors>(std::max(0, m_colors->currentIndex()));
    look.hasJumps = m_jumps->isChecked();
    look.hasArrows = m_arrows->isChecked();
    look.hasNumbers = m_numbers->isChecked();
    look.hasStarts = m_starts->isChecked();
    m_plan->setLook(look);
}

void JobPreview::togglePlay()
{
    if (isPlaying())
        pause();
    else
        play();
}

void JobPreview::play()
{
    if (totalS() <= 0.0)
        return;
    if (m_slider->value() == kSliderSteps)
        m_slider->setValue(0);
    m_sinceFrame.start();
    m_timer.start();
    m_play->setText(tr("Pause"));
}

void JobPreview::pause()
{
    m_timer.stop();
    m_play->setText(tr("Play"));
}

/** To a moment between the slider's steps. */
void JobPreview::goTo(double moment)
{
    const double shown = qBound(0.0, moment, totalS());
    {
        const QSignalBlocker blocker(m_slider);
        m_slider->setValue(qRound(shown / std::max(totalS(), 1e-9) * kSliderSteps));
    }
    m_plan->setMoment(shown);
    showMoment();
}

void JobPreview::advance()
{
    const double moment = m_plan->moment() + m_sinceFrame.restart() / 1000.0 * pace();
    goTo(moment);
    if (moment >= totalS())
        pause();
}

/** To the beginning of a piece before or after the present one. */
void JobPreview::step(int pieces)
{
    if (!m_job || m_job->plan.pieces.isEmpty())
        return;
    pause();
    const jobkit::HeadPlace head = jobkit::headAt(m_job->plan, m_job->times, m_plan->moment());
    const int piece = qBound(0, head.piece + pieces, m_job->plan.pieces.size() - 1);
    const qint64 vertex = m_job->times.firstVertex[size_t(piece)];
    goTo(m_job->times.vertexS[size_t(vertex)]);
    pickPiece(piece);
}

/** By what playing shows in one frame at the present pace. */
void JobPreview::stepFrames(int frames)
{
    pause();
    goTo(m_plan->moment() + frames * kFrameMs / 1000.0 * pace());
}

void JobPreview::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Space:
        togglePlay();
        return;
    case Qt::Key_Left:
        step(-1);
        return;
    case Qt::Key_Right:
        step(1);
        return;
    case Qt::Key_Comma:
        stepFrames(-1);
        return;
    case Qt::Key_Period:
        stepFrames(1);
        return;
    case Qt::Key_Home:
        m_slider->setValue(0);
        return;
    case Qt::Key_End:
        m_slider->setValue(kSliderSteps);
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void JobPreview::hideEvent(QHideEvent *event)
{
    pause();
    QWidget::hideEvent(event);
}

void JobPreview::pickPiece(int piece)
{
    if (!m_job || !m_panel)
        return;
    m_panel->showPiece(piece);
    if (piece >= 0)
        Q_EMIT objectPicked(m_job->plan.pieces[piece].object);
}

void JobPreview::saveReport()
{
    if (!m_job)
        return;
    auto *dialog = new QFileDialog(this, tr("Save report"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({tr("PDF report (*.pdf)"), tr("Picture (*.png)")});
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    dialog->setObjectName(QStringLiteral("reportDialog"));
    const QFileInfo drawing(window()->windowFilePath()); // called after it, and beside it
    if (!window()->windowFilePath().isEmpty())
        dialog->setDirectory(drawing.absolutePath());
    dialog->selectFile(drawing.fileName().isEmpty() ? tr("drawing") : drawing.completeBaseName());
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString &filter) {
        dialog->setDefaultSuffix(filter.contains(QLatin1String("png")) ? QStringLiteral("png")
                                                                       : QStringLiteral("pdf"));
    });
    connect(dialog, &QFileDialog::fileSelected, this, [this, drawing](const QString &path) {
        QString error;
        if (studio::saveReport(*m_job, drawing.fileName(), *m_plan, path, &error))
            m_panel->tell(tr("Report written to %1").arg(QDir::toNativeSeparators(path)));
        else
            m_panel->tell(tr("The report was not written: %1").arg(error));
    });
    dialog->open();
}

} // namespace studio
