#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QUndoStack>

namespace studio {

/** Makes one undo step of all that is pushed while it lives. */
class UndoMacro
{
public:
    /** `stack` is borrowed. */
    UndoMacro(QUndoStack &stack, const QString &text) : m_stack(&stack) { stack.beginMacro(text); }
    ~UndoMacro()
    {
        if (m_stack)
            m_stack->endMacro();
    }
    UndoMacro(const UndoMacro &) = delete;
    UndoMacro &operator=(const UndoMacro &) = delete;

private:
    QPointer<QUndoStack> m_stack;
};

} // namespace studio
