#include <studio/job/JobPreview.h>

#include <studio/job/JobReport.h>

#include <QtCore/QLocale>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTableWidget>

#include <algorithm>

namespace studio {

namespace {

constexpr int kFrameMs = 33;
constexpr int kSliderSteps = 100000;
constexpr double kPaces[] = {0.1, 0.5, 1.0, 2.0, 5.0, 10.0, 100.0};
constexpr int kUsualPace = 2;
constexpr int kSideWidth = 360;
const QSize kFirstSize(1100, 720);

QString seconds(double value) { return QLocale().toString(value, 'f', 2); }

} // namespace

JobPreview::JobPreview(QWidget *parent)
    : QDialog(parent, Qt::Window | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      m_plan(new PlanView(this))
{
    setObjectName(QStringLiteral("jobPreview"));
    build();
    resize(kFirstSize.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    m_timer.setInterval(kFrameMs);
    connect(&m_timer, &QTimer::timeout, this, &JobPreview::advance);
    connect(m_plan, &PlanView::picked, this, &JobPreview::pickPiece);
    retranslate();
}

QCheckBox *JobPreview::newSwitch(const char *name, bool isOn)
{
    auto *box = new QCheckBox(this);
    box->setObjectName(QLatin1String(name));
    box->setChecked(isOn);
    connect(box, &QCheckBox::toggled, this, &JobPreview::readLook);
    return box;
}

void JobPreview::build()
{
    auto *middle = new QHBoxLayout;
    middle->addWidget(m_plan, 1);
    middle->addWidget(newSide());
    auto *all = new QVBoxLayout(this);
    auto *note = new QHBoxLayout;
    m_outdated = new QLabel(this);
    m_outdated->setObjectName(QStringLiteral("outdated"));
    m_update = new QPushButton(this);
    m_update->setObjectName(QStringLiteral("update"));
    m_update->setAutoDefault(false);
    connect(m_update, &QPushButton::clicked, this, &JobPreview::updateAsked);
    note->addWidget(m_outdated, 1);
    note->addWidget(m_update);
    all->addLayout(note);
    all->addLayout(middle, 1);
    all->addWidget(newTransport());
    m_plan->setFocusPolicy(Qt::StrongFocus);
    m_plan->setFocus();
    setOutdated(false);
}

QWidget *JobPreview::newSide()
{
    auto *side = new QWidget(this);
    side->setFixedWidth(kSideWidth);
    m_colors = new QComboBox(side);
    m_colors->setObjectName(QStringLiteral("colors"));
    m_colors->addItems({QString(), QString(), QString()});
    connect(m_colors, qOverload<int>(&QComboBox::currentIndexChanged), this, &JobPreview::readLook);
    m_colorsLabel = new QLabel(side);
    m_colorsLabel->setBuddy(m_colors);
    m_jumps = newSwitch("jumps", true);
    m_arrows = newSwitch("arrows", false);
    m_numbers = newSwitch("numbers", false);
    m_starts = newSwitch("starts", false);
    m_times = new QTableWidget(0, 5, side);
    m_times->setObjectName(QStringLiteral("times"));
    m_times->verticalHeader()->hide();
    m_times->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_times->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_findingsTitle = new QLabel(side);
    m_findings = new QListWidget(side);
    m_findings->setObjectName(QStringLiteral("findings"));
    m_findings->setWordWrap(true);
    m_findingsTitle->setBuddy(m_findings);
    connect(m_findings, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) {
        const jobkit::JobFinding &finding = m_job->findings[item->data(Qt::UserRole).toInt()];
        if (finding.object >= 0) {
            m_plan->showPoint(finding.atMm);
            Q_EMIT objectPicked(finding.object);
        }
    });
    m_picked = new QLabel(side);
    m_picked->setObjectName(QStringLiteral("picked"));
    m_picked->setWordWrap(true);
    m_picked->setTextFormat(Qt::PlainText);

    auto *form = new QFormLayout(side);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(m_colorsLabel, m_colors);
    form->addRow(m_jumps, m_arrows);
    form->addRow(m_numbers, m_starts);
    form->addRow(m_times);
    form->addRow(m_findingsTitle);
    form->addRow(m_findings);
    form->addRow(m_picked);
    return side;
}

QWidget *JobPreview::newTransport()
{
    auto *bar = new QWidget(this);
    m_play = new QPushButton(bar);
    m_play->setObjectName(QStringLiteral("play"));
    m_play->setAutoDefault(false);
    connect(m_play, &QPushButton::clicked, this, &JobPreview::togglePlay);
    m_slider = new QSlider(Qt::Horizontal, bar);
    m_slider->setObjectName(QStringLiteral("slider"));
    m_slider->setRange(0, kSliderSteps);
    m_slider->setPageStep(kSliderSteps / 20);
    connect(m_slider, &QSlider::valueChanged, this, [this](int value) {
        m_plan->setMoment(totalS() * value / kSliderSteps);
        showMoment();
    });
    m_clock = new QLabel(bar);
    m_clock->setObjectName(QStringLiteral("clock"));
    m_pace = new QComboBox(bar);
    m_pace->setObjectName(QStringLiteral("pace"));
    for (const double pace : kPaces)
        m_pace->addItem(QStringLiteral("%1 x").arg(QLocale().toString(pace)), pace);
    m_pace->setCurrentIndex(kUsualPace);
    m_paceLabel = new QLabel(bar);
    m_paceLabel->setBuddy(m_pace);
    m_picture = new QPushButton(bar);
    m_picture->setObjectName(QStringLiteral("report"));
    m_picture->setAutoDefault(false);
    connect(m_picture, &QPushButton::clicked, this, &JobPreview::savePicture);
    m_export = new QPushButton(bar);
    m_export->setObjectName(QStringLiteral("export"));
    m_export->setAutoDefault(false);
    connect(m_export, &QPushButton::clicked, this, &JobPreview::exportAsked);
    m_close = new QPushButton(bar);
    m_close->setObjectName(QStringLiteral("close"));
    m_close->setAutoDefault(false);
    connect(m_close, &QPushButton::clicked, this, &QDialog::close);

    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_play);
    row->addWidget(m_slider, 1);
    row->addWidget(m_clock);
    row->addWidget(m_paceLabel);
    row->addWidget(m_pace);
    row->addWidget(m_picture);
    row->addWidget(m_export);
    row->addWidget(m_close);
    return bar;
}

void JobPreview::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void JobPreview::retranslate()
{
    setWindowTitle(tr("Preview of the job"));
    m_colorsLabel->setText(tr("&Colours by"));
    m_colors->setItemText(0, tr("Pen"));
    m_colors->setItemText(1, tr("Order"));
    m_colors->setItemText(2, tr("Speed"));
    m_jumps->setText(tr("&Jumps"));
    m_arrows->setText(tr("&Arrows"));
    m_numbers->setText(tr("Order &numbers"));
    m_starts->setText(tr("&Starting points"));
    m_times->setHorizontalHeaderLabels(
        {tr("Seconds"), tr("Total"), tr("Marking"), tr("Jumps"), tr("Delays")});
    m_outdated->setText(tr("The drawing or the pens have changed since."));
    m_update->setText(tr("&Update"));
    m_paceLabel->setText(tr("Pac&e"));
    m_picture->setText(tr("Save &report..."));
    m_export->setText(tr("E&xport job..."));
    m_close->setText(tr("C&lose"));
    m_slider->setAccessibleName(tr("Moment of the job"));
    m_slider->setToolTip(tr("Moment of the job"));
    m_play->setText(isPlaying() ? tr("&Pause") : tr("&Play"));
    m_picked->setText(tr("Click a line to see what it is."));
    showTimes();
    showFindings();
    showMoment();
}

void JobPreview::setJob(const std::shared_ptr<const Job> &job)
{
    pause();
    m_job = job;
    m_plan->setJob(job);
    m_slider->setValue(0);
    setOutdated(false);
    m_play->setEnabled(totalS() > 0.0);
    retranslate();
}

void JobPreview::setOutdated(bool isOutdated)
{
    m_outdated->setVisible(isOutdated);
    m_update->setVisible(isOutdated);
    if (m_export != nullptr)
        m_export->setEnabled(!isOutdated);
}

double JobPreview::totalS() const { return m_job ? m_job->times.all.totalS() : 0.0; }

void JobPreview::addTimes(const QString &name, const jobkit::TimeSums &sums)
{
    const int row = m_times->rowCount();
    m_times->insertRow(row);
    const QString texts[] = {name, seconds(sums.totalS()), seconds(sums.markS), seconds(sums.jumpS),
                             seconds(sums.delayS)};
    for (int column = 0; column < 5; ++column) {
        auto *cell = new QTableWidgetItem(texts[column]);
        if (column > 0)
            cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_times->setItem(row, column, cell);
    }
}

void JobPreview::showTimes()
{
    m_times->setRowCount(0);
    if (!m_job)
        return;
    addTimes(tr("One part"), m_job->times.all);
    for (const auto &pen : m_job->times.byPen)
        addTimes(tr("Pen %1").arg(pen.first), pen.second);
}

void JobPreview::showFindings()
{
    m_findings->clear();
    const int count = m_job ? m_job->findings.size() : 0;
    m_findingsTitle->setText(count == 0 ? tr("Nothing speaks against this job.")
                                        : tr("To be &looked at: %1").arg(count));
    m_findings->setVisible(count > 0);
    for (int i = 0; i < count; ++i) {
        auto *row = new QListWidgetItem(m_job->findings[i].text, m_findings);
        row->setData(Qt::UserRole, i);
    }
}

void JobPreview::showMoment()
{
    m_clock->setText(tr("%1 of %2 s").arg(seconds(m_plan->moment()), seconds(totalS())));
}

void JobPreview::readLook()
{
    PlanView::Look look;
    look.colors = static_cast<PlanView::Colors>(std::max(0, m_colors->currentIndex()));
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
    m_play->setText(tr("&Pause"));
}

void JobPreview::pause()
{
    m_timer.stop();
    m_play->setText(tr("&Play"));
}

void JobPreview::advance()
{
    const double passedS = m_sinceFrame.restart() / 1000.0 * m_pace->currentData().toDouble();
    const double moment = std::min(totalS(), m_plan->moment() + passedS);
    {
        const QSignalBlocker blocker(m_slider);
        m_slider->setValue(qRound(moment / totalS() * kSliderSteps));
    }
    m_plan->setMoment(moment);
    showMoment();
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
    const double moment = m_job->times.vertexS[size_t(vertex)];
    {
        const QSignalBlocker blocker(m_slider);
        m_slider->setValue(qRound(moment / std::max(totalS(), 1e-9) * kSliderSteps));
    }
    m_plan->setMoment(moment);
    showMoment();
    pickPiece(piece);
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
    case Qt::Key_Home:
        m_slider->setValue(0);
        return;
    case Qt::Key_End:
        m_slider->setValue(kSliderSteps);
        return;
    default:
        QDialog::keyPressEvent(event);
    }
}

void JobPreview::hideEvent(QHideEvent *event)
{
    pause();
    QDialog::hideEvent(event);
}

void JobPreview::pickPiece(int piece)
{
    if (!m_job || piece < 0) {
        m_picked->setText(tr("Click a line to see what it is."));
        return;
    }
    const jobkit::PlanPiece &picked = m_job->plan.pieces[piece];
    const qint64 first = m_job->times.firstVertex[size_t(piece)];
    const qint64 last = m_job->times.firstVertex[size_t(piece) + 1] - 1;
    const QString what = picked.hatch == 0 ? tr("outline") : tr("hatch %1").arg(picked.hatch);
    m_picked->setText(tr("Piece %1 of %2: %3, %4, pen %5, pass %6, from %7 to %8 s")
                          .arg(piece + 1)
                          .arg(m_job->plan.pieces.size())
                          .arg(m_job->request.items.value(picked.object).name, what)
                          .arg(picked.pen)
                          .arg(picked.pass)
                          .arg(seconds(m_job->times.vertexS[size_t(first)]),
                               seconds(m_job->times.vertexS[size_t(last)])));
    Q_EMIT objectPicked(picked.object);
}

void JobPreview::savePicture()
{
    if (!m_job)
        return;
    auto *dialog = new QFileDialog(this, tr("Save report"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({tr("PDF report (*.pdf)"), tr("Picture (*.png)")});
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString &filter) {
        dialog->setDefaultSuffix(filter.contains(QLatin1String("png")) ? QStringLiteral("png")
                                                                       : QStringLiteral("pdf"));
    });
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        QString error;
        if (saveReport(*m_job, *m_plan, path, &error))
            m_picked->setText(tr("Report written to %1").arg(path));
        else
            m_picked->setText(tr("The report was not written: %1").arg(error));
    });
    dialog->open();
}

} // namespace studio
