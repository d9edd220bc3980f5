#include <studio/paths/CleanDialog.h>

#include <studio/drawing/LongWork.h>
#include <studio/import/CleanForm.h>
#include <studio/import/ImportPicture.h>
#include <studio/import/ImportSettings.h>

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace studio {

namespace {

constexpr int kSoonMs = 150;
constexpr int kSteps = 1000;

/** At the first time what most drawings need. */
vectorkit::CleanOptions firstOptions()
{
    vectorkit::CleanOptions options = rememberedCleaning();
    if (!asksForCleaning(options)) {
        options.joinMm = 0.05;
        options.dropDoubles = true;
    }
    return options;
}

} // namespace

CleanDialog::CleanDialog(const vectorkit::VectorDrawing &outlines, QWidget *parent)
    : QDialog(parent), m_found(outlines), m_cleaned(outlines), m_picture(new ImportPicture(this)),
      m_form(new CleanForm(this))
{
    setObjectName(QStringLiteral("cleanDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Clean outlines"));
    m_form->setOptions(firstOptions());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_okButton = buttons->button(QDialogButtonBox::Ok);
    m_okButton->setText(tr("&Clean"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CleanDialog::take);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *side = new QVBoxLayout;
    side->addWidget(m_form);
    side->addWidget(buttons);
    auto *all = new QHBoxLayout(this);
    all->addWidget(m_picture, 1);
    all->addLayout(side);
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSoonMs);
    connect(&m_soon, &QTimer::timeout, this, &CleanDialog::refresh);
    connect(m_form, &CleanForm::changed, this, [this] {
        m_okButton->setEnabled(false);
        m_soon.start();
    });
    refresh();
}

void CleanDialog::refresh()
{
    m_soon.stop();
    if (!m_form->fault().isEmpty()) {
        m_okButton->setEnabled(false);
        m_form->showWords(m_form->fault());
        return;
    }
    vectorkit::CleanOptions options = m_form->options();
    vectorkit::CleanReport report;
    vectorkit::VectorDrawing cleaned = m_found;
    bool isDone = false;
    {
        LongWork work(*this, tr("Cleaning..."), LongWork::Cancel::Possible);
        options.progress = [&work](double done) {
            return work.step(qRound(done * kSteps), kSteps);
        };
        isDone = vectorkit::cleanDrawing(&cleaned, options, &report);
    }
    m_okButton->setEnabled(isDone && asksForCleaning(options));
    if (!isDone) {
        m_form->showWords(tr("Given up: change what is to be cleaned."));
        return;
    }
    m_cleaned = cleaned;
    m_form->showReport(report);
    m_picture->show(m_cleaned);
}

void CleanDialog::take()
{
    if (m_soon.isActive())
        refresh();
    rememberCleaning(m_form->options());
    Q_EMIT chosen();
    accept();
}

} // namespace studio
