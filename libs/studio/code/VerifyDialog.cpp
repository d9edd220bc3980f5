#include <studio/code/VerifyDialog.h>

#include <studio/measures/MeasureBox.h>
#include <studio/shapes/ShapeItems.h>

#include <hostkit/marks/MarkFindings.h>

#include <QtCore/QEvent>
#include <QtCore/QSettings>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

namespace studio {

namespace {

constexpr MeasureBox::Range kBeamMm{0.0, 10.0, 0.01, 3};
constexpr int kPlaceRole = Qt::UserRole; ///< in the list of codes
const QString kBeamKey = QStringLiteral("verify/beamMm");

bool isGood(const codekit::CodeReading &reading)
{
    return reading.verdict == codekit::CodeVerdict::Good;
}

} // namespace

VerifyDialog::VerifyDialog(ZTGraphicsDocument &document, QWidget *parent)
    : QDialog(parent), m_document(document), m_reader(document),
      m_beamBox(new MeasureBox(kBeamMm, this)), m_progress(new QProgressBar(this)),
      m_summary(new QLabel(this)), m_beamLabel(new QLabel(this)), m_list(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("verifyDialog"));
    m_beamBox->setObjectName(QStringLiteral("beam"));
    m_beamBox->setMeasure(QSettings().value(kBeamKey, 0.0).toDouble());
    m_progress->setObjectName(QStringLiteral("verifyProgress"));
    m_summary->setObjectName(QStringLiteral("verifySummary"));
    m_summary->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("verifyList"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    connect(&m_reader, &CodeReader::read, this, &VerifyDialog::add);
    connect(&m_reader, &CodeReader::finished, this, &VerifyDialog::finish);
    connect(m_list, &QTreeWidget::itemActivated, this, &VerifyDialog::select);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &VerifyDialog::select);
    connect(this, &QDialog::finished, this, &VerifyDialog::stop);
    layOut();
    retranslate();
}

// The list goes last of all, and tells of it when there is nothing more to select with.
VerifyDialog::~VerifyDialog() { m_list->disconnect(this); }

void VerifyDialog::layOut()
{
    auto *form = new QFormLayout;
    m_beamLabel->setBuddy(m_beamBox);
    form->addRow(m_beamLabel, m_beamBox);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, Qt::Horizontal, this);
    m_startButton = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    m_startButton->setObjectName(QStringLiteral("verifyStart"));
    connect(m_startButton, &QPushButton::clicked, this, [this] {
        if (isRunning())
            stop();
        else
            start();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_progress);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_summary);
    layout->addWidget(buttons);
    resize(sizeHint().expandedTo(QSize(560, 420)));
}

void VerifyDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void VerifyDialog::retranslate()
{
    setWindowTitle(tr("Verify codes"));
    m_beamLabel->setText(tr("&Width of the beam"));
    m_beamBox->setSpecialValueText(tr("as wide as the hatch is close"));
    m_list->setHeaderLabels({tr("Code"), tr("Result")});
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = m_list->topLevelItem(i);
        const int number = row->data(0, kPlaceRole).toInt();
        if (const codekit::CodeItem *item = m_reader.code(number))
            row->setText(0, hostkit::shapeName(*item));
        row->setText(1, codekit::describe(m_readings.value(number)));
    }
    showSummary();
}

void VerifyDialog::start()
{
    if (!m_beamBox->fault().isEmpty()) {
        m_beamBox->setFocus();
        return;
    }
    QSettings().setValue(kBeamKey, m_beamBox->measure());
    m_good = m_bad = 0;
    m_list->clear();
    m_readings.clear();
    m_hasRun = true;
    m_reader.start(m_beamBox->measure());
    showSummary();
    m_progress->setRange(0, qMax(1, m_reader.total()));
    m_progress->setValue(0);
}

void VerifyDialog::add(int number, const codekit::CodeReading &reading)
{
    const codekit::CodeItem *item = m_reader.code(number);
    if (item == nullptr)
        return;
    ++(isGood(reading) ? m_good : m_bad);
    m_readings.insert(number, reading);
    auto *row = new QTreeWidgetItem({hostkit::shapeName(*item), codekit::describe(reading)});
    row->setData(0, kPlaceRole, number);
    if (!isGood(reading)) {
        row->setForeground(1, QColor(0xC0, 0, 0));
        m_list->insertTopLevelItem(m_bad - 1, row);
    } else {
        m_list->addTopLevelItem(row);
    }
    m_progress->setValue(m_reader.done());
}

void VerifyDialog::stop()
{
    if (!isRunning())
        return;
    m_reader.stop();
    finish();
}

void VerifyDialog::finish()
{
    m_list->resizeColumnToContents(0);
    const int left = m_reader.total() - m_reader.done();
    m_progress->setValue(left == 0 ? m_progress->maximum() : m_reader.done());
    showSummary();
}

void VerifyDialog::showSummary()
{
    m_startButton->setText(isRunning() || !m_hasRun ? tr("&Stop") : tr("&Verify again"));
    const int left = m_reader.total() - m_reader.done();
    if (isRunning() || !m_hasRun)
        m_summary->setText(m_hasRun ? tr("Reading...") : QString());
    else if (m_reader.total() == 0)
        m_summary->setText(tr("The drawing has no code that is marked."));
    else if (left > 0)
        m_summary->setText(tr("Stopped. Read as they are to: %1 of %2; not read: %3.")
                               .arg(m_good)
                               .arg(m_good + m_bad)
                               .arg(left));
    else
        m_summary->setText(
            tr("Codes that read as they are to: %1 of %2.").arg(m_good).arg(m_good + m_bad));
}

void VerifyDialog::select(const QTreeWidgetItem *row)
{
    if (row == nullptr)
        return;
    codekit::CodeItem *item = m_reader.code(row->data(0, kPlaceRole).toInt());
    if (item != nullptr && item->scene() == m_document.scene())
        selectOnly(*m_document.scene(), {item});
}

} // namespace studio
