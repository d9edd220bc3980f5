#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtWidgets/QUndoCommand>

/**
 * A change of one property of an object. It always writes: whether an equal value is an edit is
 * for the property's setter to say.
 *
 * Text: "Property".
 * Order: constructed before the property changes, because it reads the old value itself.
 * Owner: the undo stack; the object is the host's, and a deleted one makes the command do nothing.
 */
class ZTDRAWENGINELIB_EXPORT ZTItemPropertyCommand : public QUndoCommand
{
public:
    /** A null object is allowed. */
    ZTItemPropertyCommand(QObject *object, const QString &name, const QVariant &newValue,
                          QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

private:
    void write(const QVariant &value);

    QPointer<QObject> m_object; ///< borrowed; null once the object is gone
    QString m_propertyName;
    QVariant m_oldValue;
    QVariant m_newValue;
};
