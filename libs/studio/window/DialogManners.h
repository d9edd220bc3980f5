#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSet>

QT_BEGIN_NAMESPACE
class QAction;
class QDialog;
class QWidget;
QT_END_NAMESPACE

namespace studio {

/**
 * What all dialogs of a window have in common, also those that Qt makes:
 * - every button has a letter for the keyboard, of its own text and of its own among all that can
 *   be seen, in every language and on every page. Where its text has no free letter, OK and Cancel
 *   go without, for they have Return and Escape; any other button gets one in brackets;
 * - questions and messages have one title, the name of the program;
 * - buttons that a small screen would cut stand below each other;
 * - a dialog that stays open while the drawing is edited leaves the keys of commands to the
 *   drawing, unless what has the focus has a use for them.
 */
class DialogManners : public QObject
{
    Q_OBJECT

public:
    /**
     * `commands`: all of the window. Those with Ctrl, Alt or a function key work in dialogs that
     * stay open; single keys are the dialog's. Borrowed, as `window` is.
     */
    DialogManners(const QList<QAction *> &commands, QWidget &window);

    /** Gives each button of a dialog a letter, as above; those of its maker stay. */
    static void addMnemonics(QDialog &dialog);

    /**
     * Puts the buttons of a dialog below each other where beside each other they are wider than
     * `roomPx`, the width that the dialog may have, and would be cut.
     */
    static void stackButtons(QDialog &dialog, int roomPx);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void receive(QDialog &dialog) const;
    void renewSoon(QDialog &dialog);

    QList<QAction *> m_commands;
    QWidget &m_window;
    QSet<QDialog *> m_toRenew; ///< whose letters are looked at when all has come to rest
};

} // namespace studio
