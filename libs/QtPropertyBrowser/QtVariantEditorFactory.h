#pragma once

#include <QtPropertyBrowser/QtAbstractEditorFactory.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

/**
 * The editors for the rows of a `QtVariantPropertyManager`.
 *
 * An editor shows the value and the attributes of its row as they change, and writes only what a
 * person entered: numbers, dates and texts on Return or when the focus leaves, lists and check
 * boxes at once, colours and fonts when their dialog is accepted. Several editors of one row stay
 * in step. A row whose parts are edited below it has no editor of its own, apart from font and
 * color, which have a dialog too.
 *
 * Limit: keys that close an editor in a tree (Return, Tab, Escape) cannot be entered as a key
 * sequence there.
 */
class QTPROPERTYBROWSER_EXPORT QtVariantEditorFactory
    : public QtAbstractEditorFactory<QtVariantPropertyManager>
{
    Q_OBJECT

public:
    explicit QtVariantEditorFactory(QObject *parent = nullptr);
    ~QtVariantEditorFactory() override;

    using QtAbstractEditorFactory::createEditor;

protected:
    QWidget *createEditor(QtVariantPropertyManager *manager, QtProperty *property,
                          QWidget *parent) override;
};
