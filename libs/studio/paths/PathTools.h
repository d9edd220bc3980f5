#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class ZTGraphicsDocument;

namespace studio {

class DrawingTools;
class NodeTool;
class OffsetDialog;
class PathActions;
class PathTool;
class SnapTools;

/** The window's tools for paths: actions, the dialogs before some of them, and what works with the
 * mouse: nodes, polylines and curves. */
class PathTools : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive this; `tools` chooses between tools, `snap` pulls places. */
    PathTools(ZTGraphicsDocument &document, DrawingTools &tools, SnapTools &snap, QWidget &window);
    ~PathTools() override;

    PathActions &actions() const { return *m_actions; }
    NodeTool &nodes() const { return *m_nodes; }

    /** Asks how to offset the selected outlines. */
    void showOffset();

    /** Asks what to clean of the selected outlines. */
    void showCleaning();

Q_SIGNALS:
    /** What was done or why nothing was; for people. */
    void told(const QString &words);

private:
    void connectTools(DrawingTools &tools, SnapTools &snap);

    ZTGraphicsDocument &m_document;
    QWidget &m_window;
    PathActions *m_actions; ///< children, as the next two
    NodeTool *m_nodes;
    PathTool *m_drawing;
    QPointer<OffsetDialog> m_offsetDialog;
};

} // namespace studio
