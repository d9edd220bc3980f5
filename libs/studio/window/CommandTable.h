#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QVector>

#include <functional>

QT_BEGIN_NAMESPACE
class QAction;
class QWidget;
QT_END_NAMESPACE

namespace studio {

class MainWindow;

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
    const char *id;
    const char *text;      ///< to be translated; "&" marks the mnemonic
    const char *icon;      ///< name for `icon()`, empty for none
    const char *shortcuts; ///< portable key sequences, "; " between them
    const char *toolTip;   ///< to be translated; empty: the text
    Needs needs;
    ShortcutScope scope;
    std::function<void(MainWindow &window)> run;

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

    /** The action of a command. An id that is not in the table is a mistake in the program. */
    QAction *action(const char *id) const;

    /** Gives all actions their texts in the language of the program. */
    void retranslate();

    /** Greys what makes no sense now. */
    void enableFor(const EditorState &state);

private:
    QHash<QByteArray, QAction *> m_actions; ///< by id
};

} // namespace studio
