#include <QtPropertyBrowser/QtAbstractEditorFactory.h>

QtAbstractEditorFactoryBase::QtAbstractEditorFactoryBase(QObject *parent) : QObject(parent) {}
