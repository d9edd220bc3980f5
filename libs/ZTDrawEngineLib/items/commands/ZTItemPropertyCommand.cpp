#include <ZTDrawEngineLib/items/commands/ZTItemPropertyCommand.h>

ZTItemPropertyCommand::ZTItemPropertyCommand(QObject *changedObject, const QString &name,
                                             const QVariant &value, QUndoCommand *parent)
    : QUndoCommand(parent), object(changedObject), propertyName(name), newValue(value)
{
    if (object)
        oldValue = object->property(propertyName.toUtf8().constData());
    setText(QObject::tr("Property"));
}

void ZTItemPropertyCommand::undo() { write(oldValue); }

void ZTItemPropertyCommand::redo() { write(newValue); }

void ZTItemPropertyCommand::write(const QVariant &value)
{
    if (object)
        object->setProperty(propertyName.toUtf8().constData(), value);
}
