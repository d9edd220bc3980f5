#pragma once

#include <QtCore/QList>
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
