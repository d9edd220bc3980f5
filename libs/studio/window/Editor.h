#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QObject>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace studio {

class ArrangeActions;
class ClipboardActions;
class CodeTools;
class DocumentActions;
class DrawingFiles;
class DrawingTools;
class Exporter;
class FrameClicks;
class GroupTools;
class GuideTools;
class ImportTools;
class JobTools;
class Messages;
class PathTools;
class PrintActions;
class Reimporter;
class RotateHandle;
class ShapeGrab;
class SnapTools;
class TextTools;

/**
 * All that works on one drawing: the document and the tools that change it, keep it and hand it
 * out. Menus, keys and panels ask these; none of them knows a menu, a bar or a dock.
 */
class Editor : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive the editor. Dialogs open over `window`. */
    Editor(ZTGraphicsDocument &document, Messages &messages, QWidget &window);
    ~Editor() override;

    ZTGraphicsDocument &document() const { return m_document; }
    DocumentActions &actions() const { return *m_actions; }
    TextTools &text() const { return *m_text; }
    CodeTools &codes() const { return *m_codes; }
    ClipboardActions &clipboard() const { return *m_clipboard; }
    GroupTools &groups() const { return *m_groups; }
    ArrangeActions &arrange() const { return *m_arrange; }
    PathTools &paths() const { return *m_paths; }
    DrawingTools &tools() const { return *m_tools; }
    SnapTools &snapping() const { return *m_snapping; }
    GuideTools &guides() const { return *m_guides; }
    RotateHandle &rotateHandle() const { return *m_rotateHandle; }

    DrawingFiles &files() const { return *m_files; }
    ImportTools &import() const { return *m_import; }
    Reimporter &reimporter() const { return *m_reimporter; }
    Exporter &exporter() const { return *m_exporter; }
    PrintActions &printing() const { return *m_printing; }
    JobTools &job() const { return *m_job; }

    /** Opens a drawing or imports foreign ones, without a question; false if nothing came in. */
    bool openFiles(const QStringList &paths);

    /** Opens a drawing, or shows a foreign one before it comes in. */
    void offerFile(const QString &path);

    /** A drawing takes the place of the one shown; foreign ones come into it where they fell. */
    void takeDropped(const QStringList &paths, const QPointF &scenePx);

    /** Asks for a file for mark paths, once it is sure that the shapes are meant to be marked. */
    void chooseExport(bool selectionOnly);

    void addSample();       ///< as one undo step, nothing selected
    void leaveOrDeselect(); ///< one group outward, or else nothing selected

    /** Ends what is under way, as if the mouse or the key had done so: it is an edit of its own. */
    void finishEdits();

Q_SIGNALS:
    /** What a tool says to the user; `ms` is 0 for what stands until the next. */
    void told(const QString &words, int ms);

    /** Shapes came in that the user may want to see. Frame: scene pixels. */
    void added(const QRectF &boxPx);

private:
    void joinTools();
    void tellOf();
    void startTyping(ShapeItem *created);

    ZTGraphicsDocument &m_document;
    Messages &m_messages;
    QWidget &m_window;

    // Each may know those above it. The order is also that of those who look at the mouse first:
    // the last made is the first asked.
    std::unique_ptr<ShapeGrab> m_grab;
    std::unique_ptr<DocumentActions> m_actions;
    std::unique_ptr<RotateHandle> m_rotateHandle;
    std::unique_ptr<SnapTools> m_snapping;
    std::unique_ptr<GuideTools> m_guides;
    std::unique_ptr<GroupTools> m_groups;
    std::unique_ptr<FrameClicks> m_frameClicks;
    std::unique_ptr<DrawingTools> m_tools;
    std::unique_ptr<PathTools> m_paths;
    std::unique_ptr<ImportTools> m_import;
    std::unique_ptr<Reimporter> m_reimporter;
    std::unique_ptr<DrawingFiles> m_files;
    std::unique_ptr<TextTools> m_text;
    std::unique_ptr<CodeTools> m_codes;
    std::unique_ptr<Exporter> m_exporter;
    std::unique_ptr<ClipboardActions> m_clipboard;
    std::unique_ptr<ArrangeActions> m_arrange;
    std::unique_ptr<PrintActions> m_printing;
    std::unique_ptr<JobTools> m_job;
};

} // namespace studio
