#include <studio/paths/PathTools.h>

#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/SnapTools.h>
#include <studio/nodes/NodeTool.h>
#include <studio/nodes/PathTool.h>
#include <studio/paths/CleanDialog.h>
#include <studio/paths/OffsetDialog.h>
#include <studio/paths/PathActions.h>

namespace studio {

PathTools::PathTools(ZTGraphicsDocument &document, DrawingTools &tools, SnapTools &snap,
                     QWidget &window)
    : QObject(&window), m_document(document), m_window(window),
      m_actions(new PathActions(document, this)), m_nodes(new NodeTool(document, this)),
      m_drawing(new PathTool(document, this))
{
    connect(m_actions, &PathActions::told, this, &PathTools::told);
    connect(m_nodes, &NodeTool::told, this, &PathTools::told);
    connect(m_drawing, &PathTool::told, this, &PathTools::told);
    connectTools(tools, snap);
}

void PathTools::connectTools(DrawingTools &tools, SnapTools &snap)
{
    tools.addTool(NodeTool::kId, "nodes");
    tools.addTool(PathTool::kPolyline, "polyline");
    tools.addTool(PathTool::kCurve, "curve");
    connect(&tools, &DrawingTools::chosen, this, [this](const QByteArray &id) {
        m_nodes->setActive(id == NodeTool::kId);
        m_drawing->choose(id == PathTool::kPolyline ? PathTool::Kind::Polyline
                          : id == PathTool::kCurve  ? PathTool::Kind::Curve
                                                    : PathTool::Kind::None);
    });
    const auto leave = [&tools] { tools.choose(DrawingTools::kSelect); };
    connect(m_nodes, &NodeTool::left, &tools, leave);
    connect(m_drawing, &PathTool::left, &tools, leave);
    const auto place = [&snap](const QPointF &placePx, Qt::KeyboardModifiers keys) {
        return snap.place(placePx, keys);
    };
    m_nodes->setSnap(place, [&snap] { snap.hide(); });
    m_drawing->setSnap(place, [&snap] { snap.hide(); });
}

PathTools::~PathTools()
{
    delete m_offsetDialog;
    // Before the scene, on which they have drawn.
    delete m_nodes;
    delete m_drawing;
}

void PathTools::showOffset()
{
    delete m_offsetDialog;
    m_offsetDialog = new OffsetDialog(m_document, *m_actions, &m_window);
    m_offsetDialog->open();
}

void PathTools::showCleaning()
{
    auto *dialog = new CleanDialog(m_actions->selectedDrawing(), &m_window);
    connect(dialog, &CleanDialog::chosen, m_actions,
            [this, dialog] { m_actions->takeCleaned(dialog->cleaned()); });
    dialog->open();
}

} // namespace studio
