#include <studio/CommandTable.h>

#include <studio/DocumentActions.h>
#include <studio/Icons.h>
#include <studio/MainWindow.h>
#include <studio/ShapeKinds.h>
#include <studio/ViewNavigation.h>
#include <studio/arrange/ArrangeActions.h>
#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/GuideTools.h>
#include <studio/canvas/SnapTools.h>
#include <studio/clipboard/ClipboardActions.h>
#include <studio/code/CodeTools.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/groups/GroupTools.h>
#include <studio/job/JobTools.h>
#include <studio/list/ShapeList.h>
#include <studio/panel/ShapePanel.h>
#include <studio/paths/PathCommands.h>
#include <studio/preferences/PreferenceTools.h>
#include <studio/print/PrintActions.h>
#include <studio/text/TextTools.h>

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
void align(MainWindow &window)
{
    window.arrange().align(Qt::Alignment(alignment));
}

template <Qt::Orientation direction, Spread spread>
void distribute(MainWindow &window)
{
    window.arrange().spread(direction, spread);
}

template <AlignTo reference>
void alignTo(MainWindow &window)
{
    window.arrange().setAlignTo(reference);
}

template <MirrorCommand::Kind kind>
void mirrorAboutField(MainWindow &window)
{
    window.arrange().mirrorAboutField(kind);
}

template <int degrees>
void rotate(MainWindow &window)
{
    window.edit().rotate(degrees);
}

template <MirrorCommand::Kind kind>
void mirror(MainWindow &window)
{
    window.edit().mirror(kind);
}

template <OrderChange change>
void changeOrder(MainWindow &window)
{
    window.list().changeOrder(change);
}

/** Nudges by a direction, each part -1, 0 or 1, times one of the three steps. */
template <int x, int y>
void nudge(MainWindow &window)
{
    window.edit().nudge(QPointF(x, y) * kNudgeMm);
}

template <int x, int y>
void nudgeFar(MainWindow &window)
{
    window.edit().nudge(QPointF(x, y) * kLargeNudgeMm);
}

template <int x, int y>
void nudgeFinely(MainWindow &window)
{
    window.edit().nudge(QPointF(x, y) * kSmallNudgeMm);
}

// For the tool that gathers texts to translate, which takes them as texts of the namespace.
#define TEXT(text) text

// clang-format off
const QVector<Command> kFixedCommands = {
    {"file.new", TEXT("&New"), "new", "Ctrl+N", TEXT("Begin a new drawing"), Needs::Nothing,
     kWindow, [](MainWindow &w) { w.files().startNew(); }},
    {"file.open", TEXT("&Open..."), "open", "Ctrl+O", TEXT("Open a drawing"), Needs::Nothing,
     kWindow, [](MainWindow &w) { w.files().chooseOpen(); }},
    {"file.save", TEXT("&Save"), "save", "Ctrl+S", TEXT("Save the drawing"), Needs::Nothing,
     kWindow, [](MainWindow &w) { w.files().save(); }},
    {"file.saveAs", TEXT("Save &as..."), "", "Ctrl+Shift+S",
     TEXT("Save the drawing under another name"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.files().saveAs(); }},
    {"file.revert", TEXT("Re&vert"), "", "", TEXT("Go back to the drawing as it was saved"),
     Needs::Revertible, kWindow, [](MainWindow &w) { w.files().revert(); }},
    {"file.recover", TEXT("Recover &drawings..."), "", "",
     TEXT("Recover drawings after a crash"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.showRecovery(); }},
    {"file.import", TEXT("&Import..."), "import", "Ctrl+I",
     TEXT("Import plotter files, SVG and DXF drawings"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.chooseImport(); }},
    {"file.importClipboard", TEXT("Import from the cli&pboard..."), "", "Ctrl+Alt+V",
     TEXT("Import an SVG drawing that another program has copied"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.importClipboard(); }},
    {"file.sample", TEXT("Add &sample drawing"), "", "", "", Needs::Nothing, kWindow,
     [](MainWindow &w) { w.addSample(); }},
    {"file.exportAll", TEXT("&Export mark paths..."), "export", "Ctrl+E",
     TEXT("Export the mark paths of the whole drawing"), Needs::Shapes, kWindow,
     [](MainWindow &w) { w.chooseExport(false); }},
    {"file.exportSelection", TEXT("Export mark paths of se&lection..."), "", "Ctrl+Shift+E", "",
     Needs::Selection, kWindow, [](MainWindow &w) { w.chooseExport(true); }},
    {"file.print", TEXT("&Print..."), "", "Ctrl+P", TEXT("Print the drawing at true size"),
     Needs::Shapes, kWindow, [](MainWindow &w) { w.printing().choosePrinter(); }},
    {"file.pdf", TEXT("Save as P&DF..."), "", "", TEXT("The drawing at true size as PDF"),
     Needs::Shapes, kWindow, [](MainWindow &w) { w.printing().choosePdf(); }},
    {"job.preview", TEXT("Pre&view"), "preview", "F5",
     TEXT("Play the job: order, jumps and the time it takes"), Needs::Shapes, kWindow,
     [](MainWindow &window) { window.togglePreview(); }, kSwitch},
    {"job.export", TEXT("E&xport job..."), "", "Ctrl+J",
     TEXT("Write a file that the machine runs"), Needs::Shapes, kWindow,
     [](MainWindow &window) { window.job().chooseExport(); }},

    {"file.quit", TEXT("&Quit"), "", "Ctrl+Q", "", Needs::Nothing, kWindow,
     [](MainWindow &w) { w.close(); }},

    {"edit.undo", TEXT("&Undo"), "undo", "Ctrl+Z", "", Needs::Undo, kWindow,
     [](MainWindow &w) { w.edit().undo(); }},
    {"edit.redo", TEXT("&Redo"), "redo", "Ctrl+Y; Ctrl+Shift+Z", "", Needs::Redo, kWindow,
     [](MainWindow &w) { w.edit().redo(); }},
    {"edit.cut", TEXT("Cu&t"), "cut", "Ctrl+X", TEXT("Cut out to the clipboard"),
     Needs::Selection, kWindow, [](MainWindow &w) { w.clipboard().cut(); }},
    {"edit.copy", TEXT("&Copy"), "copy", "Ctrl+C", TEXT("Copy to the clipboard"),
     Needs::Selection, kWindow, [](MainWindow &w) { w.clipboard().copy(); }},
    {"edit.paste", TEXT("&Paste"), "paste", "Ctrl+V",
     TEXT("Paste shapes, SVG drawings or text from the clipboard"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.clipboard().paste(); }},
    {"edit.pasteInPlace", TEXT("Paste in p&lace"), "", "Ctrl+Shift+V",
     TEXT("Paste exactly where it was copied from"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.clipboard().pasteInPlace(); }},
    {"edit.pasteHere", TEXT("Paste &here"), "", "", TEXT("Paste at the mouse"), Needs::Nothing,
     kWindow, [](MainWindow &w) { w.pasteAtMenu(); }},
    {"edit.group", TEXT("&Group"), "group", "Ctrl+G",
     TEXT("Make one group of the selected shapes"), Needs::TwoSelected, kWindow,
     [](MainWindow &w) { w.groups().group(); }},
    {"edit.ungroup", TEXT("U&ngroup"), "ungroup", "Ctrl+Shift+G",
     TEXT("Take the selected groups apart"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.groups().ungroup(); }},
    {"edit.delete", TEXT("&Delete"), "delete", "Del", "", Needs::Selection, kWindow,
     [](MainWindow &w) { w.edit().removeSelected(); }},
    {"edit.duplicate", TEXT("D&uplicate"), "duplicate", "Ctrl+D", "", Needs::Selection, kWindow,
     [](MainWindow &w) { w.edit().duplicate(); }},
    {"edit.selectAll", TEXT("Select &all"), "", "Ctrl+A", "", Needs::Shapes, kWindow,
     [](MainWindow &w) { w.edit().selectAll(); }},
    {"edit.invert", TEXT("&Invert selection"), "", "Ctrl+Shift+I", "", Needs::Shapes, kWindow,
     [](MainWindow &w) { w.edit().invertSelection(); }},
    {"edit.deselect", TEXT("Select n&othing"), "", "Esc", "", Needs::Selection, kView,
     [](MainWindow &w) { w.leaveOrDeselect(); }},

    {"edit.values", TEXT("Exact &values"), "", "F6",
     TEXT("Type place, size and angle into the shape panel"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.panel().startTyping(); }},

    {"edit.preferences", TEXT("Pre&ferences..."), "", "Ctrl+,",
     TEXT("Units, field, curves, new shapes, language, theme"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.preferences().showDialog(); }},

    {"text.type", TEXT("&Type on the drawing"), "", "F2",
     TEXT("Type into the selected text on the drawing"), Needs::OneText, kView,
     [](MainWindow &w) { w.text().typeIntoSelected(); }},
    {"text.settings", TEXT("Text and &font..."), "text-settings", "Ctrl+T",
     TEXT("Words, font, size, arc and hatch of the selected text"), Needs::OneText, kWindow,
     [](MainWindow &w) { w.text().showDialog(); }},
    {"text.nextPart", TEXT("&Next part"), "next-part", "Ctrl+Shift+N",
     TEXT("Move all variant texts on to the next part"), Needs::Shapes, kWindow,
     [](MainWindow &w) { w.text().nextPart(); }},

    {"text.shareCounter", TEXT("S&hare one counter"), "", "",
     TEXT("Give each of the selected texts and codes the next value of one counter"),
     Needs::TwoSelected, kWindow, [](MainWindow &w) { w.text().shareCounter(); }},
    {"code.settings", TEXT("Code &settings..."), "code-settings", "Ctrl+B",
     TEXT("Kind, content, size and hatch of the selected code"), Needs::OneCode, kWindow,
     [](MainWindow &w) { w.codes().showDialog(); }},
    {"tools.verifyCodes", TEXT("&Verify codes..."), "verify-codes", "Ctrl+Shift+B",
     TEXT("Read all codes back from their marks"), Needs::Shapes, kWindow,
     [](MainWindow &w) { w.codes().verify(); }},

    {"arrange.left", TEXT("Align &left"), "align-left", "", "", Needs::Alignable, kWindow,
     &align<Qt::AlignLeft>},
    {"arrange.hcenter", TEXT("Align &centres across"), "align-hcenter", "", "",
     Needs::Alignable, kWindow, &align<Qt::AlignHCenter>},
    {"arrange.right", TEXT("Align &right"), "align-right", "", "", Needs::Alignable, kWindow,
     &align<Qt::AlignRight>},
    {"arrange.top", TEXT("Align &top"), "align-top", "", "", Needs::Alignable, kWindow,
     &align<Qt::AlignTop>},
    {"arrange.vcenter", TEXT("Align centres &down"), "align-vcenter", "", "",
     Needs::Alignable, kWindow, &align<Qt::AlignVCenter>},
    {"arrange.bottom", TEXT("Align &bottom"), "align-bottom", "", "", Needs::Alignable, kWindow,
     &align<Qt::AlignBottom>},
    {"arrange.center", TEXT("C&entre on each other"), "align-center", "", "",
     Needs::Alignable, kWindow, &align<Qt::AlignCenter>},
    {"arrange.toEachOther", TEXT("To &each other"), "", "",
     TEXT("Align shapes within the box around them"), Needs::Nothing, kWindow,
     &alignTo<AlignTo::EachOther>, "alignTo"},
    {"arrange.toFirst", TEXT("To the &first selected"), "", "",
     TEXT("Align shapes to the one that was selected first"), Needs::Nothing, kWindow,
     &alignTo<AlignTo::First>, "alignTo"},
    {"arrange.toField", TEXT("To the f&ield"), "", "", TEXT("Align shapes to the field"),
     Needs::Nothing, kWindow, &alignTo<AlignTo::Field>, "alignTo"},
    {"arrange.spreadAcross", TEXT("Equal distances a&cross"), "spread-across", "",
     TEXT("Equal distances from middle to middle"), Needs::ThreeSelected, kWindow,
     &distribute<Qt::Horizontal, Spread::Centres>},
    {"arrange.spreadDown", TEXT("Equal distances d&own"), "spread-down", "",
     TEXT("Equal distances from middle to middle"), Needs::ThreeSelected, kWindow,
     &distribute<Qt::Vertical, Spread::Centres>},
    {"arrange.gapsAcross", TEXT("Equal gaps &across"), "gaps-across", "",
     TEXT("Equal space between edges"), Needs::ThreeSelected, kWindow,
     &distribute<Qt::Horizontal, Spread::Gaps>},
    {"arrange.gapsDown", TEXT("Equal gaps &down"), "gaps-down", "",
     TEXT("Equal space between edges"), Needs::ThreeSelected, kWindow,
     &distribute<Qt::Vertical, Spread::Gaps>},
    {"arrange.centreOnField", TEXT("Centre o&n the field"), "centre-field", "Ctrl+Shift+M",
     TEXT("Bring the middle of the selection to the middle of the field"), Needs::Selection,
     kWindow, [](MainWindow &w) { w.arrange().centreOnField(); }},
    {"arrange.mirrorFieldAcross", TEXT("Mirror about the field's &upright axis"), "", "",
     TEXT("The selection changes to the other side of the field"), Needs::Selection, kWindow,
     &mirrorAboutField<MirrorCommand::LeftToRight>},
    {"arrange.mirrorFieldDown", TEXT("Mirror about the field's le&vel axis"), "", "",
     TEXT("The selection changes to the other side of the field"), Needs::Selection, kWindow,
     &mirrorAboutField<MirrorCommand::TopToBottom>},
    {"arrange.mirrorHorizontal", TEXT("Mirror left to rig&ht"), "mirror-horizontal", "Ctrl+Shift+H",
     "", Needs::Selection, kWindow, &mirror<MirrorCommand::LeftToRight>},
    {"arrange.mirrorVertical", TEXT("Mirror top to botto&m"), "mirror-vertical", "Ctrl+Shift+J", "",
     Needs::Selection, kWindow, &mirror<MirrorCommand::TopToBottom>},
    {"arrange.rotateRight", TEXT("Rotate 90° clock&wise"), "rotate-right", "Ctrl+R", "",
     Needs::Selection, kWindow, &rotate<90>},
    {"arrange.rotateLeft", TEXT("Rotate 90° &anticlockwise"), "rotate-left", "Ctrl+Shift+R", "",
     Needs::Selection, kWindow, &rotate<-90>},
    {"arrange.rotate", TEXT("R&otate by..."), "rotate", "", TEXT("Rotate by any angle"),
     Needs::Selection, kWindow, [](MainWindow &w) { w.chooseRotation(); }},
    {"arrange.matrix", TEXT("Matri&x..."), "matrix", "Ctrl+M",
     TEXT("Repeat shapes in rows and columns"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.showMatrixDialog(); }},
    {"arrange.circle", TEXT("C&ircle..."), "circle", "Ctrl+Shift+K",
     TEXT("Repeat shapes around a place"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.showCircleDialog(); }},

    {"view.zoomIn", TEXT("Zoom &in"), "zoom-in", "Ctrl+=; Ctrl++", "", Needs::Nothing, kWindow,
     [](MainWindow &w) { w.zoomIn(); }},
    {"view.zoomOut", TEXT("Zoom &out"), "zoom-out", "Ctrl+-", "", Needs::Nothing, kWindow,
     [](MainWindow &w) { w.zoomOut(); }},
    {"view.home", TEXT("&Home"), "home", "Ctrl+0", TEXT("Show the origin at 100 %"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.zoomHome(); }},
    {"view.fitSelection", TEXT("Fit &selection"), "fit", "Ctrl+1; F",
     TEXT("Show the whole selection"), Needs::Selection, kWindow,
     [](MainWindow &w) { w.fitSelection(); }},
    {"view.fitAll", TEXT("Fit &all"), "", "Ctrl+2", TEXT("Show the whole drawing"), Needs::Shapes,
     kWindow, [](MainWindow &w) { w.fitAll(); }},

    {"order.first", TEXT("To &first"), "order-first", "Ctrl+Shift+Home",
     TEXT("To first: marked before all others"), Needs::Shapes, kWindow,
     &changeOrder<OrderChange::ToFirst>},
    {"order.raise", TEXT("&Raise"), "order-raise", "Ctrl+Shift+Up",
     TEXT("Raise: marked one place earlier"), Needs::Shapes, kWindow,
     &changeOrder<OrderChange::Raise>},
    {"order.lower", TEXT("&Lower"), "order-lower", "Ctrl+Shift+Down",
     TEXT("Lower: marked one place later"), Needs::Shapes, kWindow,
     &changeOrder<OrderChange::Lower>},
    {"order.last", TEXT("To l&ast"), "order-last", "Ctrl+Shift+End",
     TEXT("To last: marked after all others"), Needs::Shapes, kWindow,
     &changeOrder<OrderChange::ToLast>},
    {"order.reverse", TEXT("Re&verse"), "order-reverse", "",
     TEXT("Reverse the order of marking, of the selected shapes or of all"), Needs::Shapes,
     kWindow, &changeOrder<OrderChange::Reverse>},

    {"view.resetLayout", TEXT("&Reset layout"), "", "",
     TEXT("Put panels and toolbars where they were at first"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.resetLayout(); }},

    {"view.rulers", TEXT("&Rulers"), "", "Ctrl+Alt+R", TEXT("Show rulers; drag guides out of them"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.toggleRulers(); }, kSwitch},
    {"view.grid", TEXT("&Grid"), "", "Ctrl+Alt+G", TEXT("Show the grid"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.toggleGrid(); }, kSwitch},
    {"view.orderNumbers", TEXT("Order n&umbers"), "", "Ctrl+Alt+N",
     TEXT("Show at each shape when it is marked"), Needs::Nothing, kWindow,
     [](MainWindow &w) { w.toggleOrderNumbers(); }, kSwitch},
    {"view.snapToShapes", TEXT("To &shapes"), "", "", TEXT("To edges, middles and ends of shapes"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.toggleSnap(&SnapChoice::toShapes); }, kSwitch},
    {"view.snapToGuides", TEXT("To g&uides"), "", "", "", Needs::Nothing, kWindow,
     [](MainWindow &w) { w.toggleSnap(&SnapChoice::toGuides); }, kSwitch},
    {"view.snapToGrid", TEXT("To the &grid"), "", "", "", Needs::Nothing, kWindow,
     [](MainWindow &w) { w.toggleSnap(&SnapChoice::toGrid); }, kSwitch},
    {"view.removeGuides", TEXT("Remove all g&uides"), "", "", "", Needs::Nothing, kWindow,
     [](MainWindow &w) { w.guides().removeAll(); }},

    {"nudge.left", TEXT("Left by 1 mm"), "", "Left", "", Needs::Selection, kView, &nudge<-1, 0>},
    {"nudge.right", TEXT("Right by 1 mm"), "", "Right", "", Needs::Selection, kView, &nudge<1, 0>},
    {"nudge.up", TEXT("Up by 1 mm"), "", "Up", "", Needs::Selection, kView, &nudge<0, -1>},
    {"nudge.down", TEXT("Down by 1 mm"), "", "Down", "", Needs::Selection, kView, &nudge<0, 1>},
    {"nudge.farLeft", TEXT("Left by 10 mm"), "", "Shift+Left", "", Needs::Selection, kView,
     &nudgeFar<-1, 0>},
    {"nudge.farRight", TEXT("Right by 10 mm"), "", "Shift+Right", "", Needs::Selection, kView,
     &nudgeFar<1, 0>},
    {"nudge.farUp", TEXT("Up by 10 mm"), "", "Shift+Up", "", Needs::Selection, kView,
     &nudgeFar<0, -1>},
    {"nudge.farDown", TEXT("Down by 10 mm"), "", "Shift+Down", "", Needs::Selection, kView,
     &nudgeFar<0, 1>},
    {"nudge.fineLeft", TEXT("Left by 0.1 mm"), "", "Ctrl+Left", "", Needs::Selection, kView,
     &nudgeFinely<-1, 0>},
    {"nudge.fineRight", TEXT("Right by 0.1 mm"), "", "Ctrl+Right", "", Needs::Selection, kView,
     &nudgeFinely<1, 0>},
    {"nudge.fineUp", TEXT("Up by 0.1 mm"), "", "Ctrl+Up", "", Needs::Selection, kView,
     &nudgeFinely<0, -1>},
    {"nudge.fineDown", TEXT("Down by 0.1 mm"), "", "Ctrl+Down", "", Needs::Selection, kView,
     &nudgeFinely<0, 1>},

    {"help.manual", TEXT("User &manual"), "", "F1", TEXT("The manual, to be read and searched"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.showManual(); }},
    {"help.shortcuts", TEXT("&Shortcuts"), "", "Ctrl+F1", TEXT("All shortcuts on one sheet"),
     Needs::Nothing, kWindow, [](MainWindow &w) { w.showShortcuts(); }},
    {"help.about", TEXT("&About"), "", "", "", Needs::Nothing, kWindow,
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
        commands.append({kind.command, kind.menuText, kind.icon, hasTool ? "" : kind.shortcut,
                         kind.toolTip, Needs::Nothing, hasTool ? kWindow : kView,
                         [type = kind.type](MainWindow &w) { w.edit().create(type); }});
    }
    return commands;
}

/** A command for each tool: that of selecting, then one for each kind that can be drawn. */
QVector<Command> toolCommands()
{
    QVector<Command> commands = {{DrawingTools::kSelect, TEXT("&Select"), "select", "V",
                                  TEXT("Select and move shapes"), Needs::Nothing, kWindow,
                                  [](MainWindow &w) { w.tools().choose(DrawingTools::kSelect); },
                                  kToolChoice}};
    commands.append({DrawingTools::kMeasure, TEXT("&Measure"), "measure", "M",
                     TEXT("Measure distances and angles"), Needs::Nothing, kWindow,
                     [](MainWindow &w) { w.tools().choose(DrawingTools::kMeasure); }, kToolChoice});
    for (const ShapeKind &kind : shapeKinds()) {
        if (*kind.tool == '\0')
            continue;
        commands.append({kind.tool, kind.menuText, kind.icon, kind.shortcut, kind.toolTip,
                         Needs::Nothing, kWindow,
                         [id = kind.tool](MainWindow &w) { w.tools().choose(id); }, kToolChoice});
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

/** A tool tip with the first shortcut behind it. */
QString toolTipOf(const Command &command, const QList<QKeySequence> &shortcuts)
{
    QString tip = translated(*command.toolTip != '\0' ? command.toolTip : command.text);
    tip.remove(QLatin1Char('&')).remove(QStringLiteral("..."));
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
            // A drag under way, or typing, is an edit of its own and comes first.
            window.edit().finishDrag();
            window.text().finishTyping();
            window.tools().giveUp();
            run(window);
        });
        m_actions.insert(command.id, action);
    }
}

QAction *Commands::action(const char *id) const
{
    QAction *found = m_actions.value(id);
    Q_ASSERT(found != nullptr);
    return found;
}

void Commands::retranslate()
{
    for (const Command &command : commandTable())
        label(*m_actions.value(command.id), command);
}

void Commands::enableFor(const EditorState &state)
{
    for (const Command &command : commandTable())
        m_actions.value(command.id)->setEnabled(isMet(command.needs, state));
}

} // namespace studio
