#include <studio/window/PathCommands.h>

#include <studio/canvas/DrawingTools.h>
#include <studio/import/Reimporter.h>
#include <studio/nodes/NodeTool.h>
#include <studio/nodes/PathTool.h>
#include <studio/paths/PathActions.h>
#include <studio/paths/PathTools.h>
#include <studio/window/Editor.h>

namespace studio {

namespace {

template <vectorkit::OutlineOp op>
void together(Editor &editor)
{
    editor.paths().actions().takeTogether(op);
}

constexpr auto kWindow = ShortcutScope::Window;
constexpr auto kView = ShortcutScope::View;
constexpr const char *kToolChoice = "tools"; ///< one tool of all is chosen

/** Runs an edit of nodes; where the tool is not chosen yet, that is what it does. */
template <void (NodeTool::*edit)()>
void onNodes(Editor &editor)
{
    NodeTool &nodes = editor.paths().nodes();
    if (nodes.isActive())
        (nodes.*edit)();
    else
        editor.tools().choose(NodeTool::kId);
}

} // namespace

// For the tool that gathers texts to translate, which takes them as texts of the namespace.
#define TEXT(text) text

// clang-format off
QVector<Command> pathCommands()
{
    using vectorkit::OutlineOp;
    return {
        {ids::kPathsToPaths, TEXT("Turn into &paths"), "", "Ctrl+Shift+C",
         TEXT("Shapes and texts become paths, whose nodes can be edited"), Needs::Selection,
         kWindow, [](Editor &e) { e.paths().actions().toPaths(); }},
        {ids::kPathsUnion, TEXT("&Union"), "", "Ctrl+Alt+U",
         TEXT("One area of all the selected ones"), Needs::TwoSelected, kWindow,
         &together<OutlineOp::Union>},
        {ids::kPathsDifference, TEXT("&Difference"), "", "Ctrl+Alt+D",
         TEXT("The lowest of the selected areas without the others"), Needs::TwoSelected, kWindow,
         &together<OutlineOp::Difference>},
        {ids::kPathsIntersection, TEXT("&Intersection"), "", "Ctrl+Alt+I",
         TEXT("What lies in all of the selected areas"), Needs::TwoSelected, kWindow,
         &together<OutlineOp::Intersection>},
        {ids::kPathsExclusion, TEXT("E&xclusion"), "", "Ctrl+Alt+X",
         TEXT("What lies in one of the selected areas alone"), Needs::TwoSelected, kWindow,
         &together<OutlineOp::Exclusion>},
        {ids::kPathsOffset, TEXT("&Offset..."), "", "Ctrl+Alt+O",
         TEXT("Outlines at a distance from the selected ones"), Needs::Selection, kWindow,
         [](Editor &e) { e.paths().showOffset(); }},
        {ids::kPathsCombine, TEXT("&Combine"), "", "Ctrl+Alt+K",
         TEXT("The selected shapes become one path, hatched as one"), Needs::TwoSelected, kWindow,
         [](Editor &e) { e.paths().actions().combine(); }},
        {ids::kPathsBreakApart, TEXT("&Break apart"), "", "Ctrl+Alt+B",
         TEXT("A shape for each outline with its holes"), Needs::Selection, kWindow,
         [](Editor &e) { e.paths().actions().breakApart(); }},
        {ids::kPathsClean, TEXT("C&lean and simplify..."), "", "Ctrl+Alt+L",
         TEXT("Join ends, remove what is drawn twice, take out needless points"),
         Needs::Selection, kWindow, [](Editor &e) { e.paths().showCleaning(); }},
        {ids::kPathsWeld, TEXT("&Weld"), "", "Ctrl+Alt+W",
         TEXT("Areas of a shape that overlap become one; holes stay holes"), Needs::Selection,
         kWindow, [](Editor &e) { e.paths().actions().weld(); }},

        {ids::kFileReimport, TEXT("Re-impor&t"), "", "Ctrl+Alt+Shift+I",
         TEXT("Bring changed files in once more; place, size, pen and hatch stay"),
         Needs::Selection, kWindow, [](Editor &e) { e.reimporter().reimportSelected(); }},
        {CommandId(NodeTool::kId), TEXT("&Nodes"), "nodes", "N", TEXT("Edit the nodes of a path"),
         Needs::Nothing, kWindow, [](Editor &e) { e.tools().choose(NodeTool::kId); },
         kToolChoice},
        {CommandId(PathTool::kPolyline), TEXT("Pol&yline"), "polyline", "Y",
         TEXT("Draw a path point by point"), Needs::Nothing, kWindow,
         [](Editor &e) { e.tools().choose(PathTool::kPolyline); }, kToolChoice},
        {CommandId(PathTool::kCurve), TEXT("C&urve"), "curve", "U",
         TEXT("Draw a curve: click points, drag from them to bend"), Needs::Nothing, kWindow,
         [](Editor &e) { e.tools().choose(PathTool::kCurve); }, kToolChoice},
        {ids::kNodesAdd, TEXT("&Add between"), "", "Ins",
         TEXT("A node in the middle between selected ones"), Needs::OneSelected, kView,
         &onNodes<&NodeTool::addBetween>},
        {ids::kNodesDelete, TEXT("&Delete nodes"), "", "", "", Needs::OneSelected, kView,
         &onNodes<&NodeTool::remove>},
        {ids::kNodesBreak, TEXT("&Break"), "", "Shift+B", TEXT("Two ends of each selected node"),
         Needs::OneSelected, kView, &onNodes<&NodeTool::breakApart>},
        {ids::kNodesJoin, TEXT("&Join"), "", "Shift+J", TEXT("One node of two selected ends"),
         Needs::OneSelected, kView, &onNodes<&NodeTool::join>},
        {ids::kNodesLine, TEXT("To &line"), "", "Shift+L",
         TEXT("Straight between the selected nodes"), Needs::OneSelected, kView,
         &onNodes<&NodeTool::toLine>},
        {ids::kNodesCurve, TEXT("To &curve"), "", "Shift+U",
         TEXT("A curve between the selected nodes"), Needs::OneSelected, kView,
         &onNodes<&NodeTool::toCurve>},
        {ids::kNodesSmooth, TEXT("&Smooth"), "", "Shift+S",
         TEXT("The line runs through the selected nodes without a corner"), Needs::OneSelected,
         kView, &onNodes<&NodeTool::smooth>},
        {ids::kNodesCorner, TEXT("C&orner"), "", "Shift+C",
         TEXT("The control points of the selected nodes move on their own"), Needs::OneSelected,
         kView, &onNodes<&NodeTool::corner>},
    };
}
// clang-format on

#undef TEXT

} // namespace studio
