#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

class QtAbstractPropertyManager;
class QtProperty;

class QtPropertyPrivate
{
public:
    /** Borrowed from the caller; the manager deletes its rows before it goes. */
    QtAbstractPropertyManager *manager = nullptr;
    QList<QtProperty *> parents;
    QList<QtProperty *> subProperties;
    QString name;
    QString toolTip;
    QString statusTip;
    QString whatsThis;
    bool enabled = true;
    bool modified = false;
};

/**
 * Lets an object's signals through while it lives, whatever the program has blocked.
 *
 * Rows come and go in the open: a browser that was not told would go on showing what is gone.
 */
class OpenSignals
{
public:
    explicit OpenSignals(QObject *sender)
        : m_opened(sender), m_wasBlocked(sender->blockSignals(false))
    {
    }
    ~OpenSignals()
    {
        if (m_opened)
            m_opened->blockSignals(m_wasBlocked);
    }
    OpenSignals(const OpenSignals &) = delete;
    OpenSignals &operator=(const OpenSignals &) = delete;

private:
    const QPointer<QObject> m_opened;
    const bool m_wasBlocked;
};
