#include <studio/job/JobExportDialog.h>

#include <jobkit/writers/JobWriter.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

#include <algorithm>

namespace studio {

namespace {

const QString kFolderKey = QStringLiteral("job/folder");
constexpr int kPathChars = 44;

} // namespace

JobExportDialog::JobExportDialog(const QString &suffix, bool hasVariantTexts, QWidget *parent)
    : QDialog(parent), m_suffix(suffix), m_hasVariantTexts(hasVariantTexts),
      m_path(new QLineEdit(this)), m_browse(new QPushButton(tr("&Browse..."), this)),
      m_parts(new QSpinBox(this)), m_oneFile(new QCheckBox(tr("&One file, with pauses"), this)),
      m_frame(new QComboBox(this)), m_hint(new QLabel(this))
{
    setObjectName(QStringLiteral("jobExportDialog"));
    setWindowTitle(tr("Export job"));
    setAttribute(Qt::WA_DeleteOnClose);
    build();
    refresh();
}

/** Called after the drawing, and beside it until another folder was chosen once. */
QString JobExportDialog::suggestedPath() const
{
    const QString path = parentWidget() != nullptr ? parentWidget()->windowFilePath() : QString();
    const QFileInfo drawing(path);
    const QString usual = path.isEmpty() ? QDir::homePath() : drawing.absolutePath();
    const QString folder = QSettings().value(kFolderKey, usual).toString();
    const QString name = path.isEmpty() ? tr("drawing") : drawing.completeBaseName();
    return QDir(folder).filePath(name + QLatin1Char('.') + m_suffix);
}

void JobExportDialog::build()
{
    m_path->setObjectName(QStringLiteral("path"));
    m_path->setMinimumWidth(fontMetrics().averageCharWidth() * kPathChars);
    m_path->setText(QDir::toNativeSeparators(suggestedPath()));
    m_parts->setObjectName(QStringLiteral("parts"));
    m_parts->setRange(1, JobExporter::kMostParts);
    m_oneFile->setObjectName(QStringLiteral("oneFile"));
    m_oneFile->setChecked(true);
    m_frame->setObjectName(QStringLiteral("frame"));
    m_frame->addItems({tr("The job"), tr("Its frame: a box"), tr("Its frame: the hull")});
    m_hint->setObjectName(QStringLiteral("hint"));
    m_hint->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_export = buttons->addButton(tr("E&xport"), QDialogButtonBox::AcceptRole);
    m_export->setObjectName(QStringLiteral("export"));
    connect(buttons, &QDialogButtonBox::accepted, this, &JobExportDialog::finish);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_browse, &QPushButton::clicked, this, &JobExportDialog::browse);
    connect(m_path, &QLineEdit::textChanged, this, &JobExportDialog::refresh);
    connect(m_parts, qOverload<int>(&QSpinBox::valueChanged), this, &JobExportDialog::refresh);
    connect(m_oneFile, &QCheckBox::toggled, this, &JobExportDialog::refresh);
    connect(m_frame, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &JobExportDialog::refresh);

    auto *file = new QHBoxLayout;
    file->addWidget(m_path, 1);
    file->addWidget(m_browse);
    auto *form = new QFormLayout(this);
    form->addRow(tr("&File"), file);
    form->addRow(tr("&What"), m_frame);
    form->addRow(tr("&Parts"), m_parts);
    form->addRow(QString(), m_oneFile);
    form->addRow(m_hint);
    form->addRow(buttons);
    qobject_cast<QLabel *>(form->labelForField(file))->setBuddy(m_path);
    setTabOrder(m_browse, m_frame);
    setTabOrder(m_frame, m_parts);
    setTabOrder(m_parts, m_oneFile);
    m_path->setFocus();
    m_path->selectAll(); // another one that is typed takes its place
}

JobExport JobExportDialog::wanted() const
{
    JobExport wanted;
    wanted.path = QDir::fromNativeSeparators(m_path->text());
    wanted.parts = m_parts->value();
    const auto form = jobkit::jobFormOf(wanted.path);
    wanted.isOneFile = m_oneFile->isChecked() && form && jobkit::canPause(*form);
    if (m_frame->currentIndex() > 0)
        wanted.frame =
            m_frame->currentIndex() == 1 ? jobkit::FrameKind::Box : jobkit::FrameKind::Hull;
    return wanted;
}

void JobExportDialog::refresh()
{
    const auto form = jobkit::jobFormOf(m_path->text());
    const bool isFrame = m_frame->currentIndex() > 0;
    m_parts->setEnabled(!isFrame);
    m_oneFile->setEnabled(!isFrame && m_parts->value() > 1 && form && jobkit::canPause(*form));
    m_export->setEnabled(form.has_value());
    if (!form) {
        m_hint->setText(tr("The name has to end in one of %1.")
                            .arg(jobkit::jobExtensions().join(QStringLiteral(", "))));
        return;
    }
    const QStringList files = JobExporter::filesOf(wanted());
    QString text = files.size() == 1 ? tr("One file: %1.").arg(QFileInfo(files.first()).fileName())
                                     : tr("%1 files: %2 to %3.")
                                           .arg(files.size())
                                           .arg(QFileInfo(files.first()).fileName(),
                                                QFileInfo(files.last()).fileName());
    if (m_hasVariantTexts && !isFrame)
        text += QLatin1Char(' ') + tr("Variant texts move on once a part.");
    m_hint->setText(text);
}

void JobExportDialog::browse()
{
    auto *dialog = new QFileDialog(this, windowTitle());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    QStringList filters;
    for (const QString &extension : jobkit::jobExtensions())
        filters << QStringLiteral("%1 (*%2)").arg(extension.mid(1).toUpper(), extension);
    dialog->setNameFilters(filters);
    dialog->setDefaultSuffix(m_suffix);
    dialog->setDirectory(QFileInfo(m_path->text()).absolutePath());
    dialog->selectFile(QFileInfo(m_path->text()).fileName());
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString &path) { m_path->setText(QDir::toNativeSeparators(path)); });
    dialog->open();
}

/** Hands the wish on, after a question where files would be replaced. */
void JobExportDialog::finish()
{
    const JobExport order = wanted();
    const QStringList files = JobExporter::filesOf(order);
    const auto exists = [](const QString &file) { return QFileInfo::exists(file); };
    const auto goOn = [this, order] { Q_EMIT chosen(order); };
    const int existing = int(std::count_if(files.begin(), files.end(), exists));
    if (existing == 0) {
        goOn();
        return;
    }
    auto *box =
        new QMessageBox(QMessageBox::Question, QString(),
                        existing == 1 ? tr("A file of this name is there already.")
                                      : tr("%1 of the files are there already.").arg(existing),
                        QMessageBox::NoButton, this);
    box->setObjectName(QStringLiteral("replaceQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    const QPushButton *replacing = box->addButton(tr("&Replace"), QMessageBox::AcceptRole);
    box->setDefaultButton(box->addButton(QMessageBox::Cancel));
    connect(replacing, &QPushButton::clicked, this, goOn);
    box->open();
}

/** Only a folder that took the job is suggested again. */
void JobExportDialog::accept()
{
    QSettings().setValue(kFolderKey, QFileInfo(wanted().path).absolutePath());
    QDialog::accept();
}

} // namespace studio
