#include <QtPropertyBrowser/QtVariantEditorFactory.h>

#include <QtPropertyBrowser/editors/RowEditor_p.h>

QtVariantEditorFactory::QtVariantEditorFactory(QObject *parent) : QtAbstractEditorFactory(parent) {}

QtVariantEditorFactory::~QtVariantEditorFactory() = default;

QWidget *QtVariantEditorFactory::createEditor(QtVariantPropertyManager *manager,
                                              QtProperty *property, QWidget *parent)
{
    const roweditors::Maker make = roweditors::maker(manager->propertyType(property));
    return make ? make({manager, property}, parent) : nullptr;
}
