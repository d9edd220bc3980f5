#include <studio/text/TextCommand.h>

#include <utility>

namespace studio {

TextCommand::TextCommand(ZTAbstractGraphicsTextItem *edited, TextState before, VariantText change,
                         const QString &text)
    : QUndoCommand(text), m_item(edited), m_other(std::move(before)), m_variantText(change)
{
}

void TextCommand::undo()
{
    exchange();
    m_isDone = false;
}

void TextCommand::redo()
{
    if (!m_isDone)
        exchange();
    m_isDone = true;
}

void TextCommand::exchange()
{
    if (!m_item)
        return;
    const TextState present(*m_item);
    if (m_variantText == VariantText::Changed)
        m_other.restore(*m_item);
    else
        m_other.restoreAtPresentPart(*m_item);
    m_other = present;
}

} // namespace studio
