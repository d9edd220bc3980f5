#pragma once

#include <QtPropertyBrowser/QtPropertyBrowserGlobal.h>

#include <QtCore/QList>

#include <memory>

class QtAbstractPropertyBrowser;
class QtBrowserItemPrivate;
class QtProperty;

/**
 * The place of a row in one browser. A row that stands in several places has an item for each.
 *
 * Owner: the browser, which makes and deletes items as rows come and go.
 */
class QTPROPERTYBROWSER_EXPORT QtBrowserItem
{
public:
    QtBrowserItem(const QtBrowserItem &) = delete;
    QtBrowserItem &operator=(const QtBrowserItem &) = delete;

    QtProperty *property() const;               ///< the row that the item shows
    QtBrowserItem *parent() const;              ///< null on top
    QList<QtBrowserItem *> children() const;    ///< in the order in which they show
    QtAbstractPropertyBrowser *browser() const; ///< the one that shows it and owns the item

private:
    friend class QtAbstractPropertyBrowserPrivate;

    QtBrowserItem(QtAbstractPropertyBrowser *browser, QtProperty *property, QtBrowserItem *parent);
    ~QtBrowserItem();

    const std::unique_ptr<QtBrowserItemPrivate> m_d;
};
