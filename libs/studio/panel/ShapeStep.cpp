#include <studio/panel/ShapeStep.h>

#include <studio/commands/FramePause.h>
#include <studio/commands/ShapeStateCommand.h>
#include <studio/text/TextCommand.h>

#include <QtWidgets/QUndoStack>

#include <memory>
#include <vector>

namespace studio {

namespace {

using Commands = std::vector<std::unique_ptr<QUndoCommand>>;

/** Null when the edit changes nothing about the text. */
std::unique_ptr<QUndoCommand> editedText(ZTGraphicsTextItem &item,
                                         const std::function<void(ShapeItem &)> &edit,
                                         const QString &text)
{
    const TextState before(item);
    edit(item);
    if (TextState(item) == before)
        return nullptr;
    return std::make_unique<TextCommand>(&item, before, TextCommand::VariantText::Kept, text);
}

std::unique_ptr<QUndoCommand> edited(ShapeItem &item, const std::function<void(ShapeItem &)> &edit,
                                     const QString &text)
{
    if (auto *textItem = qobject_cast<ZTGraphicsTextItem *>(&item))
        return editedText(*textItem, edit, text);
    const ShapeState before(item);
    edit(item);
    return std::make_unique<ShapeStateCommand>(&item, before, text);
}

} // namespace

void editShapes(ZTGraphicsDocument &document, const ShapeItems &items, const QString &text,
                const std::function<void(ShapeItem &item)> &edit)
{
    Commands commands;
    {
        const FramePause pause(*document.scene());
        for (ShapeItem *item : items) {
            if (std::unique_ptr<QUndoCommand> command = edited(*item, edit, text))
                commands.push_back(std::move(command));
        }
    }
    if (commands.empty())
        return;
    QUndoStack &stack = *document.undoStack();
    stack.beginMacro(text);
    for (std::unique_ptr<QUndoCommand> &command : commands)
        stack.push(command.release());
    stack.endMacro();
}

} // namespace studio
