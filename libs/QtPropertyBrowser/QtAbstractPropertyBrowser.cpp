#include <QtPropertyBrowser/QtAbstractPropertyBrowser.h>

#include <QtPropertyBrowser/QtAbstractPropertyBrowser_p.h>

#include <algorithm>

namespace {

QtBrowserItem *itemOf(const QtProperty *property, const QList<QtBrowserItem *> &items)
{
    const auto found = std::find_if(items.cbegin(), items.cend(), [property](QtBrowserItem *item) {
        return item->property() == property;
    });
    return found == items.cend() ? nullptr : *found;
}

} // namespace

QtBrowserItem::QtBrowserItem(QtAbstractPropertyBrowser *browser, QtProperty *property,
                             QtBrowserItem *parent)
    : m_d(new QtBrowserItemPrivate{browser, property, parent, {}})
{
}

QtBrowserItem::~QtBrowserItem() = default;

QtProperty *QtBrowserItem::property() const { return m_d->property; }

QtBrowserItem *QtBrowserItem::parent() const { return m_d->parent; }

QList<QtBrowserItem *> QtBrowserItem::children() const { return m_d->children; }

QtAbstractPropertyBrowser *QtBrowserItem::browser() const { return m_d->browser; }

QtAbstractPropertyBrowserPrivate::~QtAbstractPropertyBrowserPrivate() { deleteQuietly(top); }

/** Deletes items of a browser that is going, whose views are gone already. */
void QtAbstractPropertyBrowserPrivate::deleteQuietly(const QList<QtBrowserItem *> &items)
{
    for (QtBrowserItem *item : items) {
        deleteQuietly(item->m_d->children);
        delete item;
    }
}

QList<QtBrowserItem *> &QtAbstractPropertyBrowserPrivate::siblings(QtBrowserItem *parent)
{
    return parent ? parent->m_d->children : top;
}

QtBrowserItem *QtAbstractPropertyBrowserPrivate::insert(QtProperty *property, QtBrowserItem *parent,
                                                        QtBrowserItem *after)
{
    auto *item = new QtBrowserItem(q, property, parent);
    QList<QtBrowserItem *> &row = siblings(parent);
    row.insert(row.lastIndexOf(after) + 1, item);
    places[property].append(item);
    listen(property->propertyManager());
    q->itemInserted(item, after);

    QtBrowserItem *last = nullptr;
    const QList<QtProperty *> subProperties = property->subProperties();
    for (QtProperty *sub : subProperties)
        last = insert(sub, item, last);
    return item;
}

void QtAbstractPropertyBrowserPrivate::remove(QtBrowserItem *item)
{
    const bool hadCurrent = current != nullptr;
    removeBranch(item);
    // Told only now: a slot that removes more finds every item that it can see alive.
    if (hadCurrent && !current)
        Q_EMIT q->currentItemChanged(nullptr);
}

void QtAbstractPropertyBrowserPrivate::removeBranch(QtBrowserItem *item)
{
    while (!item->m_d->children.isEmpty())
        removeBranch(item->m_d->children.last());
    if (item == current)
        current = nullptr;
    q->itemRemoved(item);

    siblings(item->m_d->parent).removeOne(item);
    const auto place = places.find(item->m_d->property);
    place->removeOne(item);
    if (place->isEmpty())
        places.erase(place);
    unlisten(item->m_d->property->propertyManager());
    delete item;
}

void QtAbstractPropertyBrowserPrivate::listen(QtAbstractPropertyManager *manager)
{
    if (!manager)
        return;
    std::unique_ptr<Link> &link = m_links[manager];
    if (!link)
        link = std::make_unique<Link>();
    if (link->items++ > 0)
        return;
    using Manager = QtAbstractPropertyManager;
    QObject *const context = &link->context;
    QObject::connect(manager, &Manager::propertyInserted, context,
                     [this](QtProperty *property, QtProperty *parent, QtProperty *preceding) {
                         propertyInserted(property, parent, preceding);
                     });
    QObject::connect(
        manager, &Manager::propertyRemoved, context,
        [this](QtProperty *property, QtProperty *parent) { propertyRemoved(property, parent); });
    QObject::connect(manager, &Manager::propertyDestroyed, context,
                     [this](QtProperty *property) { propertyDestroyed(property); });
    QObject::connect(manager, &Manager::propertyChanged, context,
                     [this](QtProperty *property) { propertyChanged(property); });
}

void QtAbstractPropertyBrowserPrivate::unlisten(QtAbstractPropertyManager *manager)
{
    const auto link = m_links.find(manager);
    if (link != m_links.end() && --link->second->items == 0)
        m_links.erase(link);
}

void QtAbstractPropertyBrowserPrivate::setFactory(QtAbstractPropertyManager *manager,
                                                  QtAbstractEditorFactoryBase *factory)
{
    factories.insert(manager, factory);
    QObject::connect(manager, &QObject::destroyed, &factoryContext,
                     [this, manager] { factories.remove(manager); });
}

void QtAbstractPropertyBrowserPrivate::propertyInserted(QtProperty *property, QtProperty *parent,
                                                        QtProperty *preceding)
{
    const QList<QtBrowserItem *> parents = places.value(parent);
    for (QtBrowserItem *item : parents)
        insert(property, item, itemOf(preceding, item->m_d->children));
}

void QtAbstractPropertyBrowserPrivate::propertyRemoved(QtProperty *property, QtProperty *parent)
{
    const QList<QtBrowserItem *> parents = places.value(parent);
    for (QtBrowserItem *item : parents) {
        if (QtBrowserItem *child = itemOf(property, item->m_d->children))
            remove(child);
    }
}

void QtAbstractPropertyBrowserPrivate::propertyDestroyed(QtProperty *property)
{
    if (QtBrowserItem *item = itemOf(property, top))
        remove(item);
}

void QtAbstractPropertyBrowserPrivate::propertyChanged(QtProperty *property)
{
    const QList<QtBrowserItem *> shown = places.value(property);
    for (QtBrowserItem *item : shown)
        q->itemChanged(item);
}

QtAbstractPropertyBrowser::QtAbstractPropertyBrowser(QWidget *parent)
    : QWidget(parent), m_d(new QtAbstractPropertyBrowserPrivate(this))
{
    qRegisterMetaType<QtBrowserItem *>("QtBrowserItem*");
}

QtAbstractPropertyBrowser::~QtAbstractPropertyBrowser() = default;

QList<QtProperty *> QtAbstractPropertyBrowser::properties() const
{
    QList<QtProperty *> rows;
    for (const QtBrowserItem *item : qAsConst(m_d->top))
        rows.append(item->property());
    return rows;
}

QList<QtBrowserItem *> QtAbstractPropertyBrowser::topLevelItems() const { return m_d->top; }

QList<QtBrowserItem *> QtAbstractPropertyBrowser::items(QtProperty *property) const
{
    return m_d->places.value(property);
}

QtBrowserItem *QtAbstractPropertyBrowser::topLevelItem(QtProperty *property) const
{
    const QList<QtBrowserItem *> shown = m_d->places.value(property);
    for (QtBrowserItem *item : shown) {
        if (!item->parent())
            return item;
    }
    return nullptr;
}

QtBrowserItem *QtAbstractPropertyBrowser::currentItem() const { return m_d->current; }

void QtAbstractPropertyBrowser::setCurrentItem(QtBrowserItem *item)
{
    if (item == m_d->current || (item && item->browser() != this))
        return;
    m_d->current = item;
    Q_EMIT currentItemChanged(item);
}

void QtAbstractPropertyBrowser::clear()
{
    while (!m_d->top.isEmpty())
        m_d->remove(m_d->top.last());
}

void QtAbstractPropertyBrowser::unsetFactoryForManager(QtAbstractPropertyManager *manager)
{
    m_d->factories.remove(manager);
}

QtBrowserItem *QtAbstractPropertyBrowser::addProperty(QtProperty *property)
{
    return insertProperty(property, m_d->top.isEmpty() ? nullptr : m_d->top.last()->property());
}

QtBrowserItem *QtAbstractPropertyBrowser::insertProperty(QtProperty *property, QtProperty *after)
{
    if (!property || topLevelItem(property))
        return nullptr;
    return m_d->insert(property, nullptr, topLevelItem(after));
}

void QtAbstractPropertyBrowser::removeProperty(QtProperty *property)
{
    if (QtBrowserItem *item = topLevelItem(property))
        m_d->remove(item);
}

QWidget *QtAbstractPropertyBrowser::createEditor(QtProperty *property, QWidget *parent)
{
    if (!property)
        return nullptr;
    const auto factory = m_d->factories.value(property->propertyManager());
    return factory ? factory->createEditor(property, parent) : nullptr;
}

void QtAbstractPropertyBrowser::setFactory(QtAbstractPropertyManager *manager,
                                           QtAbstractEditorFactoryBase *factory)
{
    m_d->setFactory(manager, factory);
}
