#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtWidgets/QTreeView>

/**
 * The object tree beside the drawing: a read-only view on a `ZTItemModel`.
 *
 * `ZTGraphicsDocument::setObjectTree` gives it model and selection. The header shows column numbers
 * until the first language change sets its labels. All rows have the height of the first one.
 *
 * Owner: the host.
 */
class ZTDRAWENGINELIB_EXPORT ZTObjectTreeWidget : public QTreeView
{
    Q_OBJECT

public:
    explicit ZTObjectTreeWidget(QWidget *parent = nullptr);

protected:
    /**
     * On a language change sets the header labels "id", "text" and "shape", translated.
     *
     * Kept: the base class does not see that event.
     */
    void changeEvent(QEvent *event) override;
};
