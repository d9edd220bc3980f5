#pragma once

#include <studio/window/CommandIds.h>

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QVector>

#include <functional>
#include <type_traits>

QT_BEGIN_NAMESPACE
class QAction;
class QWidget;
QT_END_NAMESPACE

namespace studio {

class Editor;
class MainWindow;

/** What a command does: most ask the editor's tools, some the window itself. */
class CommandAction
{
public:
    /** Takes a function of the editor or of the window. */
    template <class Function>
    CommandAction(const Function &run) // NOLINT: rows of the table say the function alone
    {
        if constexpr (std::is_invocable_v<Function, Editor &>)
            m_onEditor = run;
        else
            m_onWindow = run;
    }

    void operator()(MainWindow &window) const;

private:
    std::function<void(Editor &editor)> m_onEditor;
    std::function<void(MainWindow &window)> m_onWindow; ///< one of the two is set
};

/** What a command needs to make sense; otherwise it is greyed. */
enum class Needs {
    Nothing,
    Shapes,
    Selection,
    OneSelected,
    TwoSelected,
    ThreeSelected,
    Alignable, ///< two shapes, or one that is aligned to the field
    OneText,
    OneCode,
    Undo,
    Redo,
    Revertible
};

/** Where a command's shortcuts work. */
enum class ShortcutScope {
    Window, ///< anywhere in the window
    View    ///< in the drawing alone: elsewhere the keys have a use of their own
};

/** The choice of a command that is on or off by itself. */
constexpr const char *kSwitch = "switch";

/** One entry of the table of commands. */
struct Command
{
    CommandId id;
    const char *text;      ///< to be translated; "&" marks the mnemonic
    const char *icon;      ///< name for `icon()`, empty for none
    const char *shortcuts; ///< portable key sequences, "; " between them
    const char *toolTip;   ///< to be translated; empty: the text
    Needs needs;
    ShortcutScope scope;
    CommandAction run;

    /** Name of the commands of which exactly one is chosen; `kSwitch`: on or off; else empty. */
    const char *choice = "";
};

/**
 * All commands of the studio: the one place where a command is defined, but for those that create
 * shapes, which come from the table of kinds.
 */
const QVector<Command> &commandTable();

/** What the commands depend on. */
struct EditorState
{
    int shapes = 0;
    int selected = 0;
    bool isAlignable = false;
    bool isOneText = false; ///< the selection is one text
    bool isOneCode = false; ///< the selection is one code
    bool canUndo = false;
    bool canRedo = false;
    bool canRevert = false; ///< the drawing has a file, and the file is behind
};

/** The table turned into actions of a window. */
class Commands : public QObject
{
    Q_OBJECT

public:
    /** Shortcuts of scope View work in `view` and its children. Owner: actions belong to this. */
    Commands(MainWindow &window, QWidget &view);

    /** The action of a command. */
    QAction *action(CommandId id) const;

    /** The same by a name from elsewhere, such as a tool's. One that is none is a mistake. */
    QAction *named(const QByteArray &id) const;

    /** Gives all actions their texts in the language of the program. */
    void retranslate();

    /** Greys what makes no sense now. */
    void enableFor(const EditorState &state);

private:
    QHash<QByteArray, QAction *> m_actions; ///< by id
};

} // namespace studio
