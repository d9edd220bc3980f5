#pragma once

#include <QtWidgets/QDockWidget>

QT_BEGIN_NAMESPACE
class QUndoStack;
class QUndoView;
QT_END_NAMESPACE

namespace studio {

/** The steps that can be undone and redone, one below the other; a click goes there. */
class HistoryDock : public QDockWidget
{
    Q_OBJECT

public:
    /** `stack` is borrowed and outlives this. */
    HistoryDock(QUndoStack &stack, QWidget *parent);

Q_SIGNALS:
    /** The user is about to go to a step: what is half done has to be recorded now. */
    void settling();

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void retranslate();

    QUndoView *m_steps; ///< child
};

} // namespace studio
