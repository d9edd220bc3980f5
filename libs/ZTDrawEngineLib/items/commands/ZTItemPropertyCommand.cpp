#include <ZTDrawEngineLib/items/commands/ZTItemPropertyCommand.h>

ZTItemPropertyCommand::ZTItemPropertyCommand(QObject *changedObject, const QString &name,
                                             const QVariant &value, QUndoCommand *parent)
    : QUndoCommand(parent), m_object(changedObject), m_propertyName(name), m_newValue(value)
{
    if (m_object)
        m_oldValue = m_object->property(m_propertyName.toUtf8().constData());
    setText(QObject::tr("Property"));
}

void ZTItemPropertyCommand::undo() { write(m_oldValue); }

void ZTItemPropertyCommand::redo() { write(m_newValue); }

void ZTItemPropertyCommand::write(const QVariant &value)
{
    if (m_object)
        m_object->setProperty(m_propertyName.toUtf8().constData(), value);
}
