#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QAction;
class QDialog;
class QWidget;
QT_END_NAMESPACE

namespace studio {

/**
 * What all dialogs of a window have in common, also those that Qt makes:
 * - every button has a letter of its own for the keyboard, in every language;
 * - questions and messages have one title, the name of the program;
 * - a dialog that stays open while the drawing is edited leaves the keys of undo and redo to the
 *   drawing, unless there is typing to be undone.
 */
class DialogManners : public QObject
{
    Q_OBJECT

public:
    /** `drawingKeys`: commands that work in dialogs that stay open. Borrowed, as `window` is. */
    DialogManners(const QList<QAction *> &drawingKeys, QWidget &window);

    /** Gives each button of a dialog that has none a letter that nothing else in it has. */
    static void addMnemonics(QDialog &dialog);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void receive(QDialog &dialog) const;

    QList<QAction *> m_drawingKeys;
    QWidget &m_window;
};

} // namespace studio
