#include <studio/text/TextCommand.h>

#include <utility>

namespace studio {

TextCommand::TextCommand(ZTGraphicsTextItem *edited, TextState before, VariantText change,
                         const QString &text)
    : QUndoCommand(text), item(edited), other(std::move(before)), variantText(change)
{
}

void TextCommand::undo()
{
    exchange();
    isDone = false;
}

void TextCommand::redo()
{
    if (!isDone)
        exchange();
    isDone = true;
}

void TextCommand::exchange()
{
    if (!item)
        return;
    const TextState present(*item);
    if (variantText == VariantText::Changed)
        other.restore(*item);
    else
        other.restoreAtPresentPart(*item);
    other = present;
}

} // namespace studio
