#include <studio/export/Exporter.h>

#include <studio/export/PictureLookDialog.h>
#include <studio/shapes/ShapeItems.h>

#include <hostkit/items/FontCheck.h>
#include <hostkit/items/MarkReadiness.h>
#include <hostkit/marks/MarkFindings.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkGraphWriter.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QPushButton>

namespace studio {

namespace {

const QString kFolderKey = QStringLiteral("export/folder");
const QString kFormKey = QStringLiteral("export/form");

/** Short exports end within this time and show no progress. */
constexpr int kQuietMs = 150;

bool isPicture(const QString &path)
{
    return path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive);
}

QString formFilter(const QString &extension)
{
    const QString form = extension.mid(1).toUpper();
    return (isPicture(extension) ? Exporter::tr("%1 picture (*%2)")
                                 : Exporter::tr("%1 paths (*%2)"))
        .arg(form, extension);
}

/** Shapes among those to be exported whose marks are not what they were given; a line each. */
QString notReadyShapes(const ZTGraphicsDocument &document, bool selectionOnly)
{
    QStringList lines;
    hostkit::FontCheck fonts;
    for (const ShapeItem *item :
         selectionOnly ? hostkit::selectedMarkedItems(document) : hostkit::markedItems(document)) {
        const QString ownReason = hostkit::notReadyReason(*item);
        const QString reason = ownReason.isEmpty() ? fonts.reasonFor(*item) : ownReason;
        if (!reason.isEmpty() && lines.size() < hostkit::kMostShapesNamed)
            lines << Exporter::tr("%1: %2").arg(hostkit::shapeName(*item), reason);
    }
    return lines.join(QLatin1Char('\n'));
}

QString extensionOf(const QString &filter)
{
    const QStringList extensions = hostkit::markGraphExtensions();
    for (const QString &extension : extensions) {
        if (formFilter(extension) == filter)
            return extension;
    }
    return extensions.first();
}

} // namespace

Exporter::Exporter(ZTGraphicsDocument &exported_, Messages &told, QWidget &parentWindow)
    : QObject(&parentWindow), m_document(exported_), m_messages(told), m_window(parentWindow)
{
}

void Exporter::choose(bool selectionOnly)
{
    const QSettings settings;
    QStringList filters;
    for (const QString &extension : hostkit::markGraphExtensions())
        filters << formFilter(extension);

    auto *dialog =
        new QFileDialog(&m_window, selectionOnly ? tr("Export mark paths of the selection")
                                                 : tr("Export mark paths"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(filters);
    // Called after the drawing, and beside it until another folder was chosen once.
    const QFileInfo drawing(m_window.windowFilePath());
    const bool isNamed = !m_window.windowFilePath().isEmpty();
    dialog->setDirectory(
        settings.value(kFolderKey, isNamed ? drawing.absolutePath() : QDir::homePath()).toString());
    dialog->selectFile(isNamed ? drawing.completeBaseName() : tr("drawing"));
    const auto chooseForm = [dialog](const QString &filter) {
        dialog->setDefaultSuffix(extensionOf(filter).mid(1));
    };
    connect(dialog, &QFileDialog::filterSelected, dialog, chooseForm);
    const QString lastForm = settings.value(kFormKey, filters.first()).toString();
    dialog->selectNameFilter(lastForm);
    chooseForm(lastForm);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, dialog, selectionOnly](const QString &path) {
                QSettings().setValue(kFormKey, dialog->selectedNameFilter());
                if (isPicture(path))
                    askForLook(path, selectionOnly);
                else
                    exportTo(path, selectionOnly);
            });
    dialog->open();
}

void Exporter::askForLook(const QString &path, bool selectionOnly)
{
    auto *dialog = new PictureLookDialog(&m_window);
    connect(dialog, &PictureLookDialog::chosen, this,
            [this, path, selectionOnly](const hostkit::MarkPictureLook &look) {
                exportTo(path, selectionOnly, look);
            });
    dialog->open();
}

void Exporter::exportTo(const QString &path, bool selectionOnly,
                        const hostkit::MarkPictureLook &look)
{
    if (m_job != nullptr)
        return;
    if (!hostkit::hasMarkGraphExtension(path)) {
        m_messages.failure({tr("\"%1\" was not written.").arg(QFileInfo(path).fileName()),
                            tr("The name has to end in one of %1.")
                                .arg(hostkit::markGraphExtensions().join(QStringLiteral(", "))),
                            {}});
        return;
    }
    const QString notReady = notReadyShapes(m_document, selectionOnly);
    if (notReady.isEmpty())
        begin(path, selectionOnly, look);
    else
        askBefore(path, selectionOnly, look, notReady);
}

void Exporter::askBefore(const QString &path, bool selectionOnly,
                         const hostkit::MarkPictureLook &look, const QString &notReady)
{
    auto *box = new QMessageBox(QMessageBox::Warning, tr("Export mark paths"),
                                tr("Some shapes do not show what they were given."),
                                QMessageBox::Cancel, &m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(QStringLiteral("notReadyBox"));
    box->setInformativeText(notReady);
    QPushButton *goOn = box->addButton(tr("&Export them as they are"), QMessageBox::AcceptRole);
    box->setDefaultButton(QMessageBox::Cancel);
    connect(goOn, &QPushButton::clicked, this,
            [this, path, selectionOnly, look] { begin(path, selectionOnly, look); });
    box->open();
}

void Exporter::begin(const QString &path, bool selectionOnly, const hostkit::MarkPictureLook &look)
{
    if (m_job != nullptr)
        return;
    m_job = new ExportJob(m_document, selectionOnly, path, look, this);
    connect(m_job, &ExportJob::finished, this, &Exporter::finish);
    m_job->start(kQuietMs);
    showProgress();
}

// Shown at once while shapes are still to be gathered, because it keeps the user from editing them.
// Writing works on a copy; there the dialog comes only if it takes long.
void Exporter::showProgress()
{
    m_progressDialog = new QProgressDialog(tr("Gathering mark paths..."), tr("Cancel"), 0,
                                           qMax(1, m_job->objects()), &m_window);
    m_progressDialog->setWindowModality(Qt::WindowModal);
    m_progressDialog->setAutoClose(false);
    m_progressDialog->setAutoReset(false);
    const auto showWriting = [dialog = m_progressDialog, path = m_job->path()] {
        dialog->setLabelText(tr("Writing %1...").arg(QFileInfo(path).fileName()));
        dialog->setRange(0, 0);
    };
    if (m_job->isWriting())
        showWriting();
    connect(m_job, &ExportJob::writing, m_progressDialog, showWriting);
    connect(m_job, &ExportJob::progress, m_progressDialog,
            [dialog = m_progressDialog](int done, int) { dialog->setValue(done); });
    connect(m_progressDialog, &QProgressDialog::canceled, this, &Exporter::giveUp);
    if (!m_job->isWriting())
        m_progressDialog->show();
}

void Exporter::giveUp()
{
    m_job->cancel();
    m_job = nullptr;
    end();
}

void Exporter::finish(const QString &error)
{
    const QString path = m_job->path();
    const int objects = m_job->objects();
    end();
    if (error.isEmpty()) {
        QSettings().setValue(kFolderKey, QFileInfo(path).absolutePath());
        Q_EMIT exported(path, objects);
        return;
    }
    m_messages.failure({tr("\"%1\" was not written.").arg(QFileInfo(path).fileName()),
                        tr("Reason: %1. Choose another place and try again.").arg(error),
                        {}});
}

void Exporter::end()
{
    m_progressDialog->deleteLater();
    m_progressDialog->hide();
    m_progressDialog = nullptr;
    if (m_job != nullptr)
        m_job->deleteLater();
    m_job = nullptr;
    Q_EMIT ended();
}

} // namespace studio
