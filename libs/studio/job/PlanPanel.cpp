#include <studio/job/PlanPanel.h>

#include <studio/job/JobExporter.h>
#include <studio/job/TimesModel.h>

#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTableView>
#include <QtWidgets/QVBoxLayout>

namespace studio {

namespace {

constexpr int kBesideRow = 6;      ///< pixels above and below the words of a row
constexpr int kRowsInSight = 3;    ///< at least, of the times and of the findings
constexpr int kRowsMeasured = 100; ///< for the widths of columns
constexpr int kWidestName = 110;

QString seconds(double value) { return QLocale().toString(value, 'f', 3); }

template <class Widget>
Widget *named(Widget *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

PlanPanel::PlanPanel(QWidget *parent)
    : QWidget(parent), m_model(new TimesModel(this)), m_byLabel(new QLabel(this)),
      m_by(named(new QComboBox(this), "plan.by")), m_partsLabel(new QLabel(this)),
      m_parts(named(new QSpinBox(this), "plan.parts")),
      m_times(named(new QTableView(this), "plan.times")), m_findingsTitle(new QLabel(this)),
      m_findings(named(new QListWidget(this), "plan.findings")),
      m_picked(named(new QLabel(this), "plan.picked")),
      m_report(named(new QPushButton(this), "plan.report")),
      m_export(named(new QPushButton(this), "plan.export"))
{
    setObjectName(QStringLiteral("planPanel"));
    build();
    connectFields();
    retranslate();
}

void PlanPanel::build()
{
    m_by->addItems({QString(), QString(), QString()});
    m_byLabel->setBuddy(m_by);
    m_parts->setRange(1, JobExporter::kMostParts);
    m_partsLabel->setBuddy(m_parts);
    m_times->setModel(m_model);
    m_times->verticalHeader()->hide();
    m_times->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kBesideRow);
    m_times->horizontalHeader()->setResizeContentsPrecision(kRowsMeasured);
    m_times->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_times->setTabKeyNavigation(false);
    m_findings->setWordWrap(true);
    m_findingsTitle->setBuddy(m_findings);
    // They give way first: the buttons below them stay in sight.
    for (QWidget *list : {static_cast<QWidget *>(m_times), static_cast<QWidget *>(m_findings)}) {
        list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
        list->setMinimumHeight(kRowsInSight * (fontMetrics().height() + kBesideRow));
    }
    m_picked->setWordWrap(true);
    m_picked->setTextFormat(Qt::PlainText);

    auto *choice = new QHBoxLayout;
    choice->addWidget(m_byLabel);
    choice->addWidget(m_by, 1);
    choice->addWidget(m_partsLabel);
    choice->addWidget(m_parts);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_report);
    buttons->addWidget(m_export);
    auto *all = new QVBoxLayout(this);
    all->addLayout(choice);
    all->addWidget(m_times, 1);
    all->addWidget(m_findingsTitle);
    all->addWidget(m_findings, 1);
    all->addWidget(m_picked);
    all->addLayout(buttons);
}

void PlanPanel::connectFields()
{
    connect(m_by, qOverload<int>(&QComboBox::currentIndexChanged), this, [this](int index) {
        m_model->setBy(static_cast<TimesModel::By>(qMax(0, index)));
        fitColumns();
    });
    connect(m_parts, qOverload<int>(&QSpinBox::valueChanged), this, [this](int parts) {
        m_model->setParts(parts);
        fitColumns();
    });
    connect(m_times, &QTableView::clicked, this, [this](const QModelIndex &cell) {
        const int object = m_model->objectOf(cell.row());
        if (object >= 0)
            Q_EMIT objectPicked(object);
    });
    connect(m_findings, &QListWidget::itemClicked, this, [this](const QListWidgetItem *item) {
        const jobkit::JobFinding finding = m_job->findings[item->data(Qt::UserRole).toInt()];
        if (finding.object >= 0)
            Q_EMIT findingPicked(finding.object, finding.atMm);
    });
    connect(m_report, &QPushButton::clicked, this, &PlanPanel::reportAsked);
    connect(m_export, &QPushButton::clicked, this, &PlanPanel::exportAsked);
}

void PlanPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void PlanPanel::retranslate()
{
    m_byLabel->setText(tr("Times by"));
    m_by->setItemText(0, tr("Pen"));
    m_by->setItemText(1, tr("Object"));
    m_by->setItemText(2, tr("Pass"));
    m_partsLabel->setText(tr("Parts"));
    m_report->setText(tr("Save report..."));
    m_export->setText(tr("Export job..."));
    m_model->setJob(m_job);
    fitColumns();
    showFindings();
    showPiece(-1);
}

void PlanPanel::setJob(const std::shared_ptr<const Job> &job)
{
    m_job = job;
    m_model->setJob(job);
    fitColumns();
    showFindings();
    showPiece(-1);
    setOutdated(false);
}

void PlanPanel::setOutdated(bool isOutdated)
{
    m_report->setEnabled(m_job != nullptr);
    m_export->setEnabled(m_job != nullptr && !isOutdated);
}

/** A long name does not push the figures out of sight; its tool tip shows all of it. */
void PlanPanel::fitColumns()
{
    m_times->resizeColumnsToContents();
    if (m_times->columnWidth(TimesModel::What) > kWidestName)
        m_times->setColumnWidth(TimesModel::What, kWidestName);
}

void PlanPanel::showFindings()
{
    m_findings->clear();
    const int count = m_job ? m_job->findings.size() : 0;
    m_findingsTitle->setText(count == 0 ? tr("Nothing speaks against this job.")
                                        : tr("To be looked at: %1").arg(count));
    m_findings->setVisible(count > 0);
    for (int i = 0; i < count; ++i) {
        auto *row = new QListWidgetItem(m_job->findings[i].text, m_findings);
        row->setData(Qt::UserRole, i);
    }
}

QString PlanPanel::wordsOf(int piece) const
{
    const jobkit::PlanPiece &picked = m_job->plan.pieces[piece];
    const qint64 first = m_job->times.firstVertex[size_t(piece)];
    const qint64 last = m_job->times.firstVertex[size_t(piece) + 1] - 1;
    const QString what = picked.hatch == 0 ? tr("outline") : tr("hatch %1").arg(picked.hatch);
    return tr("Piece %1 of %2: %3, %4, pen %5, pass %6, from %7 to %8 s")
        .arg(piece + 1)
        .arg(m_job->plan.pieces.size())
        .arg(m_job->request.items.value(picked.object).name, what)
        .arg(picked.pen)
        .arg(picked.pass)
        .arg(seconds(m_job->times.vertexS[size_t(first)]),
             seconds(m_job->times.vertexS[size_t(last)]));
}

void PlanPanel::showPiece(int piece)
{
    tell(m_job && piece >= 0 ? wordsOf(piece) : tr("Click a line to see what it is."));
}

void PlanPanel::tell(const QString &text) { m_picked->setText(text); }

} // namespace studio
