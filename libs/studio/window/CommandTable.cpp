#include <studio/window/CommandTable.h>

#include <studio/arrange/ArrangeActions.h>
#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/GuideTools.h>
#include <studio/canvas/SnapTools.h>
#include <studio/clipboard/ClipboardActions.h>
#include <studio/code/CodeTools.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/edit/DocumentActions.h>
#include <studio/groups/GroupTools.h>
#include <studio/import/ImportTools.h>
#include <studio/job/JobTools.h>
#include <studio/list/ShapeList.h>
#include <studio/panel/ShapePanel.h>
#include <studio/preferences/PreferenceTools.h>
#include <studio/print/PrintActions.h>
#include <studio/program/Icons.h>
#include <studio/shapes/ShapeKinds.h>
#include <studio/text/TextTools.h>
#include <studio/window/Editor.h>
#include <studio/window/MainWindow.h>
#include <studio/window/PathCommands.h>
#include <studio/window/ViewNavigation.h>

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>

#include <cstring>

namespace studio {

namespace {

constexpr double kNudgeMm = 1.0;
constexpr double kLargeNudgeMm = 10.0;
constexpr double kSmallNudgeMm = 0.1;

constexpr const char *kToolChoice = "tools";

constexpr auto kWindow = ShortcutScope::Window;
constexpr auto kView = ShortcutScope::View;

template <int alignment>
void align(Editor &editor)
{
    editor.arrange().align(Qt::Alignment(alignment));
}

template <Qt::Orientation direction, Spread spread>
void distribute(Editor &editor)
{
    editor.arrange().spread(direction, spread);
}

template <AlignTo reference>
void alignTo(Editor &editor)
{
    editor.arrange().setAlignTo(reference);
}

template <MirrorCommand::Kind kind>
void mirrorAboutField(Editor &editor)
{
    editor.arrange().mirrorAboutField(kind);
}

template <int degrees>
void rotate(Editor &editor)
{
    editor.actions().rotate(degrees);
}

template <MirrorCommand::Kind kind>
void mirror(Editor &editor)
{
    editor.actions().mirror(kind);
}

template <OrderChange change>
void changeOrder(MainWindow &window)
{
    window.list().changeOrder(change);
}

/** Nudges by a direction, each part -1, 0 or 1, times one of the three steps. */
template <int x, int y>
void nudge(Editor &editor)
{
    editor.actions().nudge(QPointF(x, y) * kNudgeMm);
}

template <int x, int y>
void nudgeFar(Editor &editor)
{
    editor.actions().nudge(QPointF(x, y) * kLargeNudgeMm);
}

template <int x, int y>
void nudgeFinely(Editor &editor)
{
    editor.actions().nudge(QPointF(x, y) * kSmallNudgeMm);
}

// For the tool that gathers texts to translate, which takes them as texts of the namespace.
#define TEXT(text) text

// clang-format off
const QVector<Command> kFixedCommands = {
    {ids::kFileNew, TEXT("&New"), "new", "Ctrl+N", TEXT("Begin a new drawing"), Needs::Nothing,
     kWindow, [](Editor &e) { e.files().startNew(); }},
    {ids::kFileOpen, TEXT("&Open..."), "open", "Ctrl+O", TEXT("Open a drawing"), Needs::Nothing,
     kWindow, [](Editor &e) { e.files().chooseOpen(); }},
    {ids::kFileSave, TEXT("&Save"), "save", "Ctrl+S", TEXT("Save the drawing"), Needs::Nothing,
     kWindow, [](Editor &e) { e.files().save(); }},
    {ids::kFileSaveAs, TEXT("Save &as..."), "", "Ctrl+Shift+S",
     TEXT("Save the drawing under another name"), Needs::Nothing, kWindow,
     [](Editor &e) { e.files().saveAs(); }},
    {ids::kFileRevert, TEXT("Re&vert"), "", "", TEXT("Go back to the drawing as it was saved"),
     Needs::Revertible, kWindow, [](Editor &e) { e.files().revert(); }},
    {ids::kFileRecover, TEXT("Recover &drawings..."), "", "",
     TEXT("Recover drawings after a crash"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.showRecovery(); }},
    {ids::kFileImport, TEXT("&Import..."), "import", "Ctrl+I",
     TEXT("Import plotter files, SVG and DXF drawings"), Needs::Nothing, kWindow,
     [](Editor &e) { e.import().choose(); }},
    {ids::kFileImportClipboard, TEXT("Import from the cli&pboard..."), "", "Ctrl+Alt+V",
     TEXT("Import an SVG drawing that another program has copied"), Needs::Nothing, kWindow,
     [](Editor &e) { e.import().offerClipboard(); }},
    {ids::kFileSample, TEXT("Add &sample drawing"), "", "",
     TEXT("Add shapes of all kinds, to look at and to try out"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.addSample(); }},
    {ids::kFileExportAll, TEXT("&Export mark paths..."), "export", "Ctrl+E",
     TEXT("Export the mark paths of the whole drawing"), Needs::Shapes, kWindow,
     [](Editor &e) { e.chooseExport(false); }},
    {ids::kFileExportSelection, TEXT("Export mark paths of se&lection..."), "", "Ctrl+Shift+E",
     TEXT("Export the mark paths of the selected shapes alone"),
     Needs::Selection, kWindow, [](Editor &e) { e.chooseExport(true); }},
    {ids::kFilePrint, TEXT("&Print..."), "", "Ctrl+P", TEXT("Print the drawing at true size"),
     Needs::Shapes, kWindow, [](Editor &e) { e.printing().choosePrinter(); }},
    {ids::kFilePdf, TEXT("Save as P&DF..."), "", "", TEXT("The drawing at true size as PDF"),
     Needs::Shapes, kWindow, [](Editor &e) { e.printing().choosePdf(); }},
    {ids::kJobPreview, TEXT("Pre&view"), "preview", "F5",
     TEXT("Play the job: order, jumps and the time it takes"), Needs::Shapes, kWindow,
     [](MainWindow &w) { w.togglePreview(); }, kSwitch},
    {ids::kJobExport, TEXT("E&xport job..."), "", "Ctrl+J",
     TEXT("Write a file that the machine runs"), Needs::Shapes, kWindow,
     [](Editor &e) { e.job().chooseExport(); }},

    {ids::kFileQuit, TEXT("&Quit"), "", "Ctrl+Q",
     TEXT("End the program; it asks before changes are lost"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.close(); }},

    {ids::kEditUndo, TEXT("&Undo"), "undo", "Ctrl+Z",
     TEXT("Take the last step back"), Needs::Undo, kWindow,
     [](Editor &e) { e.actions().undo(); }},
    {ids::kEditRedo, TEXT("&Redo"), "redo", "Ctrl+Y; Ctrl+Shift+Z",
     TEXT("Do the step again that was taken back"), Needs::Redo, kWindow,
     [](Editor &e) { e.actions().redo(); }},
    {ids::kEditCut, TEXT("Cu&t"), "cut", "Ctrl+X", TEXT("Cut out to the clipboard"),
     Needs::Selection, kWindow, [](Editor &e) { e.clipboard().cut(); }},
    {ids::kEditCopy, TEXT("&Copy"), "copy", "Ctrl+C", TEXT("Copy to the clipboard"),
     Needs::Selection, kWindow, [](Editor &e) { e.clipboard().copy(); }},
    {ids::kEditPaste, TEXT("&Paste"), "paste", "Ctrl+V",
     TEXT("Paste shapes, SVG drawings or text from the clipboard"), Needs::Nothing, kWindow,
     [](Editor &e) { e.clipboard().paste(); }},
    {ids::kEditPasteInPlace, TEXT("Paste in p&lace"), "", "Ctrl+Shift+V",
     TEXT("Paste exactly where it was copied from"), Needs::Nothing, kWindow,
     [](Editor &e) { e.clipboard().pasteInPlace(); }},
    {ids::kEditPasteHere, TEXT("Paste &here"), "", "", TEXT("Paste at the mouse"), Needs::Nothing,
     kWindow, [](MainWindow &w) { w.pasteAtMenu(); }},
    {ids::kEditGroup, TEXT("&Group"), "group", "Ctrl+G",
     TEXT("Make one group of the selected shapes"), Needs::TwoSelected, kWindow,
     [](Editor &e) { e.groups().group(); }},
    {ids::kEditUngroup, TEXT("U&ngroup"), "ungroup", "Ctrl+Shift+G",
     TEXT("Take the selected groups apart"), Needs::Selection, kWindow,
     [](Editor &e) { e.groups().ungroup(); }},
    {ids::kEditDelete, TEXT("&Delete"), "delete", "Del",
     TEXT("Delete the selected shapes"), Needs::Selection, kWindow,
     [](Editor &e) { e.actions().removeSelected(); }},
    {ids::kEditDuplicate, TEXT("D&uplicate"), "duplicate", "Ctrl+D",
     TEXT("Copy the selected shapes beside themselves"), Needs::Selection, kWindow,
     [](Editor &e) { e.actions().duplicate(); }},
    {ids::kEditSelectAll, TEXT("Select &all"), "", "Ctrl+A",
     TEXT("Select all shapes that are neither locked nor hidden"), Needs::Shapes, kWindow,
     [](Editor &e) { e.actions().selectAll(); }},
    {ids::kEditInvert, TEXT("&Invert selection"), "", "Ctrl+Shift+I",
     TEXT("Select what is not selected, and nothing else"), Needs::Shapes, kWindow,
     [](Editor &e) { e.actions().invertSelection(); }},
    {ids::kEditDeselect, TEXT("Select n&othing"), "", "Esc",
     TEXT("Out of an entered group, or select nothing"), Needs::Selection, kView,
     [](Editor &e) { e.leaveOrDeselect(); }},

    {ids::kEditValues, TEXT("Exact &values"), "", "F6",
     TEXT("Type place, size and angle into the shape panel"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.panel().startTyping(); }},

    {ids::kEditPreferences, TEXT("Pre&ferences..."), "", "Ctrl+,",
     TEXT("Units, field, curves, new shapes, language, theme"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.preferences().showDialog(); }},

    {ids::kTextType, TEXT("&Type on the drawing"), "", "F2",
     TEXT("Type into the selected text on the drawing"), Needs::OneText, kView,
     [](Editor &e) { e.text().typeIntoSelected(); }},
    {ids::kTextSettings, TEXT("Text and &font..."), "text-settings", "Ctrl+T",
     TEXT("Words, font, size, arc and hatch of the selected text"), Needs::OneText, kWindow,
     [](Editor &e) { e.text().showDialog(); }},
    {ids::kTextNextPart, TEXT("&Next part"), "next-part", "Ctrl+Shift+N",
     TEXT("Move all variant texts on to the next part"), Needs::Shapes, kWindow,
     [](Editor &e) { e.text().nextPart(); }},

    {ids::kTextShareCounter, TEXT("S&hare one counter"), "", "",
     TEXT("Give each of the selected texts and codes the next value of one counter"),
     Needs::TwoSelected, kWindow, [](Editor &e) { e.text().shareCounter(); }},
    {ids::kCodeSettings, TEXT("Code &settings..."), "code-settings", "Ctrl+B",
     TEXT("Kind, content, size and hatch of the selected code"), Needs::OneCode, kWindow,
     [](Editor &e) { e.codes().showDialog(); }},
    {ids::kToolsVerifyCodes, TEXT("&Verify codes..."), "verify-codes", "Ctrl+Shift+B",
     TEXT("Read all codes back from their marks"), Needs::Shapes, kWindow,
     [](Editor &e) { e.codes().verify(); }},

    {ids::kArrangeLeft, TEXT("Align &left"), "align-left", "",
     TEXT("Left edges in one line"), Needs::Alignable, kWindow,
     &align<Qt::AlignLeft>},
    {ids::kArrangeHcenter, TEXT("Align &centres across"), "align-hcenter", "",
     TEXT("Middles in one upright line"),
     Needs::Alignable, kWindow, &align<Qt::AlignHCenter>},
    {ids::kArrangeRight, TEXT("Align &right"), "align-right", "",
     TEXT("Right edges in one line"), Needs::Alignable, kWindow,
     &align<Qt::AlignRight>},
    {ids::kArrangeTop, TEXT("Align &top"), "align-top", "",
     TEXT("Upper edges in one line"), Needs::Alignable, kWindow,
     &align<Qt::AlignTop>},
    {ids::kArrangeVcenter, TEXT("Align centres &down"), "align-vcenter", "",
     TEXT("Middles in one level line"),
     Needs::Alignable, kWindow, &align<Qt::AlignVCenter>},
    {ids::kArrangeBottom, TEXT("Align &bottom"), "align-bottom", "",
     TEXT("Lower edges in one line"), Needs::Alignable, kWindow,
     &align<Qt::AlignBottom>},
    {ids::kArrangeCenter, TEXT("C&entre on each other"), "align-center", "",
     TEXT("All middles in one place"),
     Needs::Alignable, kWindow, &align<Qt::AlignCenter>},
    {ids::kArrangeToEachOther, TEXT("To &each other"), "", "",
     TEXT("Align shapes within the box around them"), Needs::Nothing, kWindow,
     &alignTo<AlignTo::EachOther>, "alignTo"},
    {ids::kArrangeToFirst, TEXT("To the &first selected"), "", "",
     TEXT("Align shapes to the one that was selected first"), Needs::Nothing, kWindow,
     &alignTo<AlignTo::First>, "alignTo"},
    {ids::kArrangeToField, TEXT("To the f&ield"), "", "", TEXT("Align shapes to the field"),
     Needs::Nothing, kWindow, &alignTo<AlignTo::Field>, "alignTo"},
    {ids::kArrangeSpreadAcross, TEXT("Equal distances a&cross"), "spread-across", "",
     TEXT("Equal distances from middle to middle"), Needs::ThreeSelected, kWindow,
     &distribute<Qt::Horizontal, Spread::Centres>},
    {ids::kArrangeSpreadDown, TEXT("Equal distances d&own"), "spread-down", "",
     TEXT("Equal distances from middle to middle"), Needs::ThreeSelected, kWindow,
     &distribute<Qt::Vertical, Spread::Centres>},
    {ids::kArrangeGapsAcross, TEXT("Equal gaps &across"), "gaps-across", "",
     TEXT("Equal space between edges"), Needs::ThreeSelected, kWindow,
     &distribute<Qt::Horizontal, Spread::Gaps>},
    {ids::kArrangeGapsDown, TEXT("Equal gaps &down"), "gaps-down", "",
     TEXT("Equal space between edges"), Needs::ThreeSelected, kWindow,
     &distribute<Qt::Vertical, Spread::Gaps>},
    {ids::kArrangeCentreOnField, TEXT("Centre o&n the field"), "centre-field", "Ctrl+Shift+M",
     TEXT("Bring the middle of the selection to the middle of the field"), Needs::Selection,
     kWindow, [](Editor &e) { e.arrange().centreOnField(); }},
    {ids::kArrangeMirrorFieldAcross, TEXT("Mirror about the field's &upright axis"), "", "",
     TEXT("The selection changes to the other side of the field"), Needs::Selection, kWindow,
     &mirrorAboutField<MirrorCommand::LeftToRight>},
    {ids::kArrangeMirrorFieldDown, TEXT("Mirror about the field's le&vel axis"), "", "",
     TEXT("The selection changes to the other side of the field"), Needs::Selection, kWindow,
     &mirrorAboutField<MirrorCommand::TopToBottom>},
    {ids::kArrangeMirrorHorizontal, TEXT("Mirror left to rig&ht"), "mirror-horizontal",
     "Ctrl+Shift+H",
     TEXT("Mirror the selection, left becomes right; its box stays"), Needs::Selection, kWindow,
     &mirror<MirrorCommand::LeftToRight>},
    {ids::kArrangeMirrorVertical, TEXT("Mirror top to botto&m"), "mirror-vertical", "Ctrl+Shift+J",
     TEXT("Mirror the selection, top becomes bottom; its box stays"),
     Needs::Selection, kWindow, &mirror<MirrorCommand::TopToBottom>},
    {ids::kArrangeRotateRight, TEXT("Rotate 90° clock&wise"), "rotate-right", "Ctrl+R",
     TEXT("Turn the selection by a quarter, clockwise"),
     Needs::Selection, kWindow, &rotate<90>},
    {ids::kArrangeRotateLeft, TEXT("Rotate 90° &anticlockwise"), "rotate-left", "Ctrl+Shift+R",
     TEXT("Turn the selection by a quarter, anticlockwise"),
     Needs::Selection, kWindow, &rotate<-90>},
    {ids::kArrangeRotate, TEXT("R&otate by..."), "rotate", "", TEXT("Rotate by any angle"),
     Needs::Selection, kWindow, [](MainWindow &w) { w.chooseRotation(); }},
    {ids::kArrangeMatrix, TEXT("Matri&x..."), "matrix", "Ctrl+M",
     TEXT("Repeat shapes in rows and columns"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.showMatrixDialog(); }},
    {ids::kArrangeCircle, TEXT("C&ircle..."), "circle", "Ctrl+Shift+K",
     TEXT("Repeat shapes around a place"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.showCircleDialog(); }},

    {ids::kViewZoomIn, TEXT("Zoom &in"), "zoom-in", "Ctrl+=; Ctrl++",
     TEXT("Show the drawing larger"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.zoomIn(); }},
    {ids::kViewZoomOut, TEXT("Zoom &out"), "zoom-out", "Ctrl+-",
     TEXT("Show the drawing smaller"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.zoomOut(); }},
    {ids::kViewHome, TEXT("&Home"), "home", "Ctrl+0", TEXT("Show the origin at 100 %"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.zoomHome(); }},
    {ids::kViewFitSelection, TEXT("Fit &selection"), "fit", "Ctrl+1; F",
     TEXT("Show the whole selection"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.fitSelection(); }},
    {ids::kViewFitAll, TEXT("Fit &all"), "", "Ctrl+2", TEXT("Show the whole drawing"),
     Needs::Shapes,
     kWindow, [](MainWindow &w) { w.fitAll(); }},

    {ids::kOrderFirst, TEXT("To &first"), "order-first", "Ctrl+Shift+Home",
     TEXT("To first: marked before all others"), Needs::Shapes, kWindow,
     &changeOrder<OrderChange::ToFirst>},
    {ids::kOrderRaise, TEXT("&Raise"), "order-raise", "Ctrl+Shift+Up",
     TEXT("Raise: marked one place earlier"), Needs::Shapes, kWindow,
     &changeOrder<OrderChange::Raise>},
    {ids::kOrderLower, TEXT("&Lower"), "order-lower", "Ctrl+Shift+Down",
     TEXT("Lower: marked one place later"), Needs::Shapes, kWindow,
     &changeOrder<OrderChange::Lower>},
    {ids::kOrderLast, TEXT("To l&ast"), "order-last", "Ctrl+Shift+End",
     TEXT("To last: marked after all others"), Needs::Shapes, kWindow,
     &changeOrder<OrderChange::ToLast>},
    {ids::kOrderReverse, TEXT("Re&verse"), "order-reverse", "",
     TEXT("Reverse the order of marking, of the selected shapes or of all"), Needs::Shapes,
     kWindow, &changeOrder<OrderChange::Reverse>},

    {ids::kViewResetLayout, TEXT("&Reset layout"), "", "",
     TEXT("Put panels and toolbars where they were at first"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.resetLayout(); }},

    {ids::kViewRulers, TEXT("&Rulers"), "", "Ctrl+Alt+R",
     TEXT("Show rulers; drag guides out of them"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.toggleRulers(); }, kSwitch},
    {ids::kViewGrid, TEXT("&Grid"), "", "Ctrl+Alt+G", TEXT("Show the grid"), Needs::Nothing,
     kWindow,
     [](MainWindow &w) { w.toggleGrid(); }, kSwitch},
    {ids::kViewOrderNumbers, TEXT("Order n&umbers"), "", "Ctrl+Alt+N",
     TEXT("Show at each shape when it is marked"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.toggleOrderNumbers(); }, kSwitch},
    {ids::kViewSnapToShapes, TEXT("To &shapes"), "", "",
     TEXT("To edges, middles and ends of shapes"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.toggleSnap(&SnapChoice::toShapes); }, kSwitch},
    {ids::kViewSnapToGuides, TEXT("To g&uides"), "", "",
     TEXT("To the guides that were dragged out of the rulers"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.toggleSnap(&SnapChoice::toGuides); }, kSwitch},
    {ids::kViewSnapToGrid, TEXT("To the &grid"), "", "",
     TEXT("To the lines of the grid"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.toggleSnap(&SnapChoice::toGrid); }, kSwitch},
    {ids::kViewRemoveGuides, TEXT("Remove all g&uides"), "", "",
     TEXT("Remove the guides of this drawing"), Needs::Nothing, kWindow,
     [](Editor &e) { e.guides().removeAll(); }},

    {ids::kNudgeLeft, TEXT("Left by 1 mm"), "", "Left", "", Needs::Selection, kView, &nudge<-1, 0>},
    {ids::kNudgeRight, TEXT("Right by 1 mm"), "", "Right", "", Needs::Selection, kView, &nudge<1,
     0>},
    {ids::kNudgeUp, TEXT("Up by 1 mm"), "", "Up", "", Needs::Selection, kView, &nudge<0, -1>},
    {ids::kNudgeDown, TEXT("Down by 1 mm"), "", "Down", "", Needs::Selection, kView, &nudge<0, 1>},
    {ids::kNudgeFarLeft, TEXT("Left by 10 mm"), "", "Shift+Left", "", Needs::Selection, kView,
     &nudgeFar<-1, 0>},
    {ids::kNudgeFarRight, TEXT("Right by 10 mm"), "", "Shift+Right", "", Needs::Selection, kView,
     &nudgeFar<1, 0>},
    {ids::kNudgeFarUp, TEXT("Up by 10 mm"), "", "Shift+Up", "", Needs::Selection, kView,
     &nudgeFar<0, -1>},
    {ids::kNudgeFarDown, TEXT("Down by 10 mm"), "", "Shift+Down", "", Needs::Selection, kView,
     &nudgeFar<0, 1>},
    {ids::kNudgeFineLeft, TEXT("Left by 0.1 mm"), "", "Ctrl+Left", "", Needs::Selection, kView,
     &nudgeFinely<-1, 0>},
    {ids::kNudgeFineRight, TEXT("Right by 0.1 mm"), "", "Ctrl+Right", "", Needs::Selection, kView,
     &nudgeFinely<1, 0>},
    {ids::kNudgeFineUp, TEXT("Up by 0.1 mm"), "", "Ctrl+Up", "", Needs::Selection, kView,
     &nudgeFinely<0, -1>},
    {ids::kNudgeFineDown, TEXT("Down by 0.1 mm"), "", "Ctrl+Down", "", Needs::Selection, kView,
     &nudgeFinely<0, 1>},

    {ids::kHelpManual, TEXT("User &manual"), "", "F1", TEXT("The manual, to be read and searched"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.showManual(); }},
    {ids::kHelpShortcuts, TEXT("&Shortcuts"), "", "Ctrl+F1", TEXT("All shortcuts on one sheet"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.showShortcuts(); }},
    {ids::kHelpDocumentation, TEXT("&Documentation"), "", "",
     TEXT("Guides and reference for those who build on the library"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.showDocumentation(); }},
    {ids::kHelpAbout, TEXT("&About"), "", "",
     TEXT("Version of the program"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.showAbout(); }},
};
// clang-format on

/** A command for each kind of shape that people can create. */
QVector<Command> creatingCommands()
{
    QVector<Command> commands;
    for (const ShapeKind &kind : shapeKinds()) {
        if (*kind.command == '\0')
            continue;
        // The letter belongs to the tool, where there is one.
        const bool hasTool = *kind.tool != '\0';
        commands.append({CommandId(kind.command), kind.menuText, kind.icon,
                         hasTool ? "" : kind.shortcut, kind.toolTip, Needs::Nothing,
                         hasTool ? kWindow : kView,
                         [type = kind.type](Editor &e) { e.actions().create(type); }});
    }
    return commands;
}

/** A command for each tool: that of selecting, then one for each kind that can be drawn. */
QVector<Command> toolCommands()
{
    QVector<Command> commands = {{CommandId(DrawingTools::kSelect), TEXT("&Select"), "select", "V",
                                  TEXT("Select and move shapes"), Needs::Nothing, kWindow,
                                  [](Editor &e) { e.tools().choose(DrawingTools::kSelect); },
                                  kToolChoice}};
    commands.append({CommandId(DrawingTools::kMeasure), TEXT("&Measure"), "measure", "M",
                     TEXT("Measure distances and angles"), Needs::Nothing, kWindow,
                     [](Editor &e) { e.tools().choose(DrawingTools::kMeasure); }, kToolChoice});
    for (const ShapeKind &kind : shapeKinds()) {
        if (*kind.tool == '\0')
            continue;
        commands.append({CommandId(kind.tool), kind.menuText, kind.icon, kind.shortcut,
                         kind.toolTip, Needs::Nothing, kWindow,
                         [id = kind.tool](Editor &e) { e.tools().choose(id); }, kToolChoice});
    }
    return commands;
}

#undef TEXT

bool isMet(Needs needs, const EditorState &state)
{
    switch (needs) {
    case Needs::Nothing:
        return true;
    case Needs::Shapes:
        return state.shapes > 0;
    case Needs::Selection:
        return state.selected > 0;
    case Needs::OneSelected:
        return state.selected == 1;
    case Needs::TwoSelected:
        return state.selected > 1;
    case Needs::ThreeSelected:
        return state.selected > 2;
    case Needs::Alignable:
        return state.isAlignable;
    case Needs::OneText:
        return state.isOneText;
    case Needs::OneCode:
        return state.isOneCode;
    case Needs::Undo:
        return state.canUndo;
    case Needs::Redo:
        return state.canRedo;
    case Needs::Revertible:
        return state.canRevert;
    }
    return false;
}

QString translated(const char *text) { return QCoreApplication::translate("studio", text); }

/** What a command does, in a few words; without any of its own its text. */
QString tipOf(const Command &command)
{
    QString tip = translated(*command.toolTip != '\0' ? command.toolTip : command.text);
    return tip.remove(QLatin1Char('&')).remove(QStringLiteral("..."));
}

/** A tool tip with the first shortcut behind it. */
QString toolTipOf(const Command &command, const QList<QKeySequence> &shortcuts)
{
    QString tip = tipOf(command);
    if (!shortcuts.isEmpty())
        tip += QStringLiteral(" (%1)").arg(shortcuts.first().toString(QKeySequence::NativeText));
    return tip;
}

QList<QKeySequence> shortcutsOf(const Command &command)
{
    if (*command.shortcuts == '\0')
        return {};
    return QKeySequence::listFromString(QString::fromLatin1(command.shortcuts));
}

void label(QAction &action, const Command &command)
{
    action.setText(translated(command.text));
    action.setToolTip(toolTipOf(command, action.shortcuts()));
    action.setStatusTip(tipOf(command));
}

QAction *newAction(const Command &command, QObject *parent)
{
    auto *action = new QAction(parent);
    action->setObjectName(QString::fromLatin1(command.id));
    action->setIcon(icon(command.icon));
    action->setShortcuts(shortcutsOf(command));
    label(*action, command);
    return action;
}

} // namespace

const QVector<Command> &commandTable()
{
    static const QVector<Command> table =
        kFixedCommands + pathCommands() + creatingCommands() + toolCommands();
    return table;
}

void CommandAction::operator()(MainWindow &window) const
{
    if (m_onEditor)
        m_onEditor(window.editor());
    else
        m_onWindow(window);
}

Commands::Commands(MainWindow &window, QWidget &view) : QObject(&window)
{
    QHash<QByteArray, QActionGroup *> choices;
    for (const Command &command : commandTable()) {
        QAction *action = newAction(command, this);
        if (std::strcmp(command.choice, kSwitch) == 0) {
            action->setCheckable(true);
        } else if (*command.choice != '\0') {
            QActionGroup *&choice = choices[command.choice];
            if (choice == nullptr)
                choice = new QActionGroup(this);
            action->setCheckable(true);
            choice->addAction(action);
        }
        if (command.scope == ShortcutScope::View) {
            action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
            view.addAction(action);
        } else {
            window.addAction(action);
        }
        connect(action, &QAction::triggered, &window, [&window, run = command.run] {
            window.editor().finishEdits();
            run(window);
        });
        m_actions.insert(QByteArray(command.id), action);
    }
}

QAction *Commands::action(CommandId id) const { return named(QByteArray(id)); }

QAction *Commands::named(const QByteArray &id) const
{
    QAction *found = m_actions.value(id);
    Q_ASSERT(found != nullptr);
    return found;
}

void Commands::retranslate()
{
    for (const Command &command : commandTable())
        label(*action(command.id), command);
}

void Commands::enableFor(const EditorState &state)
{
    for (const Command &command : commandTable())
        action(command.id)->setEnabled(isMet(command.needs, state));
}

} // namespace studio
