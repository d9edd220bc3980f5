#include <studio/job/JobTools.h>

#include <studio/drawing/LongWork.h>
#include <studio/job/JobExportDialog.h>
#include <studio/job/JobPanel.h>
#include <studio/job/JobPreview.h>
#include <studio/program/Messages.h>
#include <studio/text/TextTools.h>

#include <jobkit/marks/DrawingPens.h>

#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

constexpr int kNamedAtMost = 8; ///< the rest is behind "Show Details"

QString suffixOf(jobkit::JobForm form)
{
    switch (form) {
    case jobkit::JobForm::Gcode:
        return QStringLiteral("nc");
    case jobkit::JobForm::Hpgl:
        return QStringLiteral("plt");
    case jobkit::JobForm::Dxf:
        return QStringLiteral("dxf");
    case jobkit::JobForm::Svg:
        return QStringLiteral("svg");
    case jobkit::JobForm::Json:
        return QStringLiteral("json");
    case jobkit::JobForm::Csv:
        break;
    }
    return QStringLiteral("csv");
}

} // namespace

JobTools::JobTools(ZTGraphicsDocument &document, TextTools &texts, Messages &messages,
                   QWidget &window)
    : QObject(&window), m_document(document), m_texts(texts), m_messages(messages),
      m_window(window), m_panel(new JobPanel(document)),
      m_exporter(new JobExporter(document, texts, messages, window)),
      m_preview(new JobPreview(&window))
{
    m_preview->hide();
    connect(m_preview, &JobPreview::updateAsked, this, &JobTools::showPreview);
    connect(m_preview, &JobPreview::exportAsked, this, &JobTools::chooseExport);
    connect(m_preview, &JobPreview::leaveAsked, this, &JobTools::leavePreview);
    connect(m_preview, &JobPreview::objectPicked, this, &JobTools::selectObject);
    connect(m_panel, &JobPanel::previewAsked, this, &JobTools::showPreview);
    connect(m_panel, &JobPanel::exportAsked, this, &JobTools::chooseExport);
    connect(m_panel, &JobPanel::changed, this, &JobTools::showOutdated);
    connect(document.undoStack(), &QUndoStack::indexChanged, this, &JobTools::showOutdated);
    connect(&texts, &TextTools::partChanged, this, &JobTools::showOutdated);
}

void JobTools::showOutdated()
{
    m_panel->showTimes(nullptr);
    if (m_isPreviewing)
        m_preview->setOutdated(true);
}

/** All that a job is made from. False, told, where there is none, and where the user gave up. */
bool JobTools::gather(LongWork &work, JobRequest *request)
{
    request->settings = m_panel->settings();
    request->pens = jobkit::givenPens(m_document);
    QString error;
    if (!request->settings.readProfile(&request->machine, &error)) {
        m_messages.failure({tr("There is no job."), error, {}});
        return false;
    }
    GatheredItems gathered;
    const Gathering result = gatherItems(
        m_document, &gathered, [&work](int done, int total) { return work.step(done, total); });
    if (result == Gathering::NotWhole)
        m_messages.failure(
            {tr("There is no job."), tr("Not all shapes could be turned into marks."), {}});
    if (result != Gathering::Done)
        return false;
    request->items = gathered.items;
    m_shapes = gathered.shapes;
    return true;
}

/** The job of what the drawing marks now: the one shown last, where nothing has changed. */
std::shared_ptr<const Job> JobTools::makeJob()
{
    m_texts.finishTyping();
    m_texts.renewPart(); // what cannot be read, an export tells
    JobRequest request;
    LongWork work(m_window, tr("Making the job..."), LongWork::Cancel::Possible);
    if (!gather(work, &request))
        return nullptr;
    if (m_job && m_job->request == request)
        return m_job;
    const auto isGivenUp = std::make_shared<std::atomic<bool>>(false);
    const auto job = std::make_shared<std::shared_ptr<const Job>>();
    if (!work.run([request, isGivenUp, job] { *job = studio::makeJob(request, *isGivenUp); })) {
        *isGivenUp = true;
        return nullptr;
    }
    m_job = *job;
    return m_job;
}

void JobTools::showPreview()
{
    const std::shared_ptr<const Job> job = makeJob();
    if (!job)
        return;
    m_preview->setJob(job);
    m_panel->showTimes(job.get());
    if (!m_isPreviewing) {
        m_isPreviewing = true;
        Q_EMIT previewing(true);
    }
    m_preview->setFocus();
}

void JobTools::leavePreview()
{
    if (!m_isPreviewing)
        return;
    m_isPreviewing = false;
    Q_EMIT previewing(false);
}

void JobTools::showSelected()
{
    QVector<int> objects;
    for (int object = 0; object < m_shapes.size(); ++object) {
        if (m_shapes[object] && m_shapes[object]->isSelected())
            objects.append(object);
    }
    m_preview->showObjects(objects);
}

void JobTools::selectObject(int object)
{
    if (ShapeItem *item = m_shapes.value(object))
        selectOnly(*m_document.scene(), {item});
}

void JobTools::chooseExport()
{
    const std::shared_ptr<const Job> job = makeJob();
    if (!job)
        return;
    m_panel->showTimes(job.get());
    if (job->findings.isEmpty()) {
        askAndExport();
        return;
    }
    QStringList found;
    bool isAnything = true;
    for (const jobkit::JobFinding &finding : job->findings) {
        found << finding.text;
        isAnything = isAnything && finding.kind != jobkit::FindingKind::NothingToMark;
    }
    if (!isAnything) {
        m_messages.failure({tr("There is no job."), tr("There is nothing to mark."), {}});
        return;
    }
    auto *box =
        new QMessageBox(QMessageBox::Warning, QString(), tr("Look at this before you mark."),
                        QMessageBox::NoButton, &m_window);
    box->setObjectName(QStringLiteral("jobQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(QStringList(found.mid(0, kNamedAtMost)).join(QLatin1Char('\n')) +
                            (found.size() > kNamedAtMost ? QStringLiteral("\n...") : QString()));
    if (found.size() > kNamedAtMost)
        box->setDetailedText(found.join(QLatin1Char('\n')));
    const QPushButton *exporting =
        box->addButton(tr("&Export all the same"), QMessageBox::AcceptRole);
    const QPushButton *showing = box->addButton(tr("&Show them"), QMessageBox::ActionRole);
    box->setDefaultButton(box->addButton(QMessageBox::Cancel));
    connect(exporting, &QPushButton::clicked, this, &JobTools::askAndExport);
    connect(showing, &QPushButton::clicked, this, &JobTools::showPreview);
    box->open();
}

void JobTools::askAndExport()
{
    jobkit::MachineProfile machine;
    QString error;
    m_panel->settings().readProfile(&machine, &error);
    auto *dialog = new JobExportDialog(suffixOf(machine.form), m_exporter->hasNumbers(), &m_window);
    connect(dialog, &JobExportDialog::chosen, this, [this](const JobExport &wanted) {
        m_exporter->write(wanted, m_panel->settings(), m_job);
    });
    connect(m_exporter, &JobExporter::written, dialog, &QDialog::accept);
    dialog->open();
}

} // namespace studio
