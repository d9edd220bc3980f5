#include <studio/window/Editor.h>

#include <studio/arrange/ArrangeActions.h>
#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/GuideTools.h>
#include <studio/canvas/RotateHandle.h>
#include <studio/canvas/ShapeGrab.h>
#include <studio/canvas/SnapTools.h>
#include <studio/clipboard/ClipboardActions.h>
#include <studio/code/CodeTools.h>
#include <studio/commands/ItemSetCommand.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/drawing/DrawingMessages.h>
#include <studio/edit/DocumentActions.h>
#include <studio/export/Exporter.h>
#include <studio/export/FieldCheck.h>
#include <studio/groups/FrameClicks.h>
#include <studio/groups/GroupTools.h>
#include <studio/import/ImportTools.h>
#include <studio/import/Reimporter.h>
#include <studio/job/JobExporter.h>
#include <studio/job/JobTools.h>
#include <studio/nodes/NodeTool.h>
#include <studio/paths/PathTools.h>
#include <studio/print/PrintActions.h>
#include <studio/program/UndoTexts.h>
#include <studio/text/TextTools.h>

#include <hostkit/drawing/SampleDrawing.h>

#include <QtCore/QDir>
#include <QtWidgets/QUndoStack>
#include <QtWidgets/QWidget>

namespace studio {

namespace {

constexpr int kToldMs = 8000;

/** Files that come in together: drawings are opened, all else is imported. */
struct FileKinds
{
    QStringList drawings;
    QStringList others;
};

FileKinds kindsOf(const QStringList &paths)
{
    FileKinds files;
    for (const QString &path : paths)
        (DrawingFiles::isDrawing(path) ? files.drawings : files.others) << path;
    return files;
}

} // namespace

Editor::Editor(ZTGraphicsDocument &edited, Messages &messages, QWidget &window)
    : m_document(edited), m_messages(messages), m_window(window),
      m_grab(std::make_unique<ShapeGrab>(*edited.view())),
      m_actions(std::make_unique<DocumentActions>(edited)),
      m_rotateHandle(std::make_unique<RotateHandle>(edited, *m_actions)),
      m_snapping(std::make_unique<SnapTools>(edited, &window)),
      m_guides(std::make_unique<GuideTools>(edited, *m_snapping, window)),
      m_groups(std::make_unique<GroupTools>(edited, &window)),
      m_frameClicks(std::make_unique<FrameClicks>(edited, *m_groups)),
      m_tools(std::make_unique<DrawingTools>(edited, *m_actions, &window)),
      m_paths(std::make_unique<PathTools>(edited, *m_tools, *m_snapping, window)),
      m_import(std::make_unique<ImportTools>(edited, messages, window)),
      m_reimporter(std::make_unique<Reimporter>(edited, messages)),
      m_files(std::make_unique<DrawingFiles>(edited, messages, window)),
      m_text(std::make_unique<TextTools>(edited, messages, window)),
      m_codes(std::make_unique<CodeTools>(edited, window)),
      m_exporter(std::make_unique<Exporter>(edited, messages, window)),
      m_clipboard(
          std::make_unique<ClipboardActions>(edited, m_import->importer(), messages, &window)),
      m_arrange(std::make_unique<ArrangeActions>(edited, *m_groups, &window)),
      m_printing(std::make_unique<PrintActions>(edited, messages, window)),
      m_job(std::make_unique<JobTools>(edited, *m_text, messages, window))
{
    joinTools();
    tellOf();
}

Editor::~Editor() = default;

void Editor::joinTools()
{
    m_tools->setSnap(
        [this](const QPointF &placePx, Qt::KeyboardModifiers keys) {
            return m_snapping->place(placePx, keys);
        },
        [this] { m_snapping->hide(); });
    connect(m_tools.get(), &DrawingTools::chosen, this,
            [this](const QByteArray &id) { m_rotateHandle->setResting(id == NodeTool::kId); });
    connect(m_actions.get(), &DocumentActions::created, this, &Editor::startTyping);
    connect(m_actions.get(), &DocumentActions::added, this, &Editor::added);
    connect(m_import.get(), &ImportTools::imported, this, &Editor::added);
    connect(m_clipboard.get(), &ClipboardActions::added, this, &Editor::added);

    // The preview of a job stands in the place of the canvas, where all this happens.
    connect(m_import.get(), &ImportTools::beginning, m_job.get(), &JobTools::leavePreview);
    connect(m_tools.get(), &DrawingTools::chosen, m_job.get(), &JobTools::leavePreview);
    connect(this, &Editor::added, m_job.get(), &JobTools::leavePreview);
    connect(m_files.get(), &DrawingFiles::loaded, m_job.get(), &JobTools::leavePreview);
    connect(m_files.get(), &DrawingFiles::emptied, m_job.get(), &JobTools::leavePreview);

    DrawingSession *session = &m_files->session();
    connect(m_files.get(), &DrawingFiles::settling, m_text.get(), &TextTools::finishTyping);
    connect(m_files.get(), &DrawingFiles::loaded, m_guides.get(), &GuideTools::follow);
    connect(m_files.get(), &DrawingFiles::emptied, m_guides.get(), &GuideTools::follow);
    connect(m_text.get(), &TextTools::partChanged, session, &DrawingSession::markChanged);
    m_job->exporter().setDrawingPath([session] { return session->path(); });
    m_job->exporter().setDrawingForeign([session] { return session->isFileForeign(); });
    connect(m_files.get(), &DrawingFiles::saved, &m_job->exporter(), &JobExporter::noteSaved);
}

void Editor::tellOf()
{
    const auto inPassing = [this](const QString &words) { Q_EMIT told(words, kToldMs); };
    const auto meanwhile = [this](const QString &words) { Q_EMIT told(words, 0); };
    connect(m_text.get(), &TextTools::told, this, inPassing);
    connect(m_clipboard.get(), &ClipboardActions::told, this, inPassing);
    connect(m_reimporter.get(), &Reimporter::told, this, inPassing);
    connect(m_paths.get(), &PathTools::told, this, inPassing);
    connect(m_groups.get(), &GroupTools::told, this, meanwhile);
    connect(m_rotateHandle.get(), &RotateHandle::told, this, meanwhile);
    connect(m_snapping.get(), &SnapTools::told, this, meanwhile);
    connect(m_tools.get(), &DrawingTools::told, this, meanwhile);
    connect(m_exporter.get(), &Exporter::exported, this, [this](const QString &path, int objects) {
        Q_EMIT told(tr("Mark paths written to %1, shapes: %2")
                        .arg(QDir::toNativeSeparators(path))
                        .arg(objects),
                    kToldMs);
    });
    connect(m_printing.get(), &PrintActions::written, this, [this](const QString &path) {
        Q_EMIT told(tr("Saved to %1").arg(QDir::toNativeSeparators(path)), kToldMs);
    });
    connect(&m_job->exporter(), &JobExporter::written, this, [this](const QStringList &files, int) {
        Q_EMIT told(tr("Job written to %1, files: %2")
                        .arg(QDir::toNativeSeparators(files.first()))
                        .arg(files.size()),
                    kToldMs);
    });
}

// What was just made is what one wants to fill in.
void Editor::startTyping(ShapeItem *created)
{
    if (auto *text = qobject_cast<ZTGraphicsTextItem *>(created))
        m_text->type(*text);
    else if (codekit::CodeItem *code = codekit::codeItem(created))
        m_codes->showDialogFor(*code);
}

bool Editor::openFiles(const QStringList &paths)
{
    const FileKinds files = kindsOf(paths);
    const bool isOpened = !files.drawings.isEmpty() && m_files->load(files.drawings.first());
    const bool isImported = !files.others.isEmpty() && m_import->importFiles(files.others) > 0;
    return isOpened || isImported;
}

void Editor::offerFile(const QString &path)
{
    if (DrawingFiles::isDrawing(path))
        m_files->load(path);
    else
        m_import->offer({path});
}

void Editor::takeDropped(const QStringList &paths, const QPointF &scenePx)
{
    const FileKinds dropped = kindsOf(paths);
    const auto import = [this, dropped, scenePx] {
        if (!dropped.others.isEmpty())
            m_import->offer(dropped.others, scenePx);
    };
    if (dropped.drawings.isEmpty()) {
        import();
        return;
    }
    const QString first = dropped.drawings.first();
    m_files->open(first, [this, import, first, left = dropped.drawings.mid(1)] {
        if (!left.isEmpty())
            m_messages.warning(onlyOneOpened(first, left));
        import();
    });
}

void Editor::chooseExport(bool selectionOnly)
{
    const QGraphicsScene &scene = *m_document.scene();
    const ShapeItems exported = selectionOnly ? selectedShapeItems(scene) : shapeItemsOf(scene);
    askAboutField(exported, m_document, m_window,
                  [this, selectionOnly] { m_exporter->choose(selectionOnly); });
}

void Editor::addSample()
{
    const ShapeItems before = shapeItemsOf(*m_document.scene());
    const ShapeItems selectedBefore = selectedShapeItems(*m_document.scene());
    m_job->leavePreview();
    hostkit::buildSampleDrawing(m_document);
    const ShapeItems added = shapeItemsOf(*m_document.scene()).mid(before.size());
    m_document.undoStack()->push(new AddItemsCommand(
        m_document.itemMag(), added, selectedBefore,
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Add sample drawing"))));
    m_document.scene()->clearSelection();
}

void Editor::leaveOrDeselect()
{
    if (!m_groups->leave())
        m_actions->clearSelection();
}

void Editor::finishEdits()
{
    m_actions->finishDrag();
    m_text->finishTyping();
    m_tools->giveUp();
}

} // namespace studio
