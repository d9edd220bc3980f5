#pragma once

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtWidgets/QUndoStack>

#include <memory>

/**
 * One user action on an undo stack: a macro that no early return leaves open.
 *
 * Without a stack, and once the stack is gone, there is no macro, and commands are carried out and
 * dropped: the edit happens, it just cannot be undone.
 */
class ZTUndoStep
{
public:
    ZTUndoStep(QUndoStack *undoStack, const QString &text) : m_stack(undoStack)
    {
        if (m_stack)
            m_stack->beginMacro(text);
    }

    ~ZTUndoStep()
    {
        if (m_stack)
            m_stack->endMacro();
    }

    ZTUndoStep(const ZTUndoStep &) = delete;
    ZTUndoStep &operator=(const ZTUndoStep &) = delete;

    void push(std::unique_ptr<QUndoCommand> command)
    {
        if (m_stack)
            m_stack->push(command.release());
        else
            command->redo();
    }

private:
    QPointer<QUndoStack> m_stack; ///< borrowed from the host; may be null from the start
};
