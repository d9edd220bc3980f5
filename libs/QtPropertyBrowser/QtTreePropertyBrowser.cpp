#include <QtPropertyBrowser/QtTreePropertyBrowser.h>

#include <QtPropertyBrowser/DisplayNames_p.h>
#include <QtPropertyBrowser/PropertyDelegate_p.h>
#include <QtPropertyBrowser/QtProperty.h>
#include <QtPropertyBrowser/QtPropertyEditorView_p.h>
#include <QtPropertyBrowser/QtTreePropertyBrowser_p.h>

#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>

namespace {

constexpr int kNameColumn = 0;
constexpr int kValueColumn = 1;

} // namespace

QtTreePropertyBrowserPrivate::QtTreePropertyBrowserPrivate(QtTreePropertyBrowser *browser)
    : q(browser), view(new QtPropertyEditorView(browser)),
      delegate(new PropertyDelegate(this, view))
{
    view->setBrowser(this);
    view->setItemDelegate(delegate);
    view->setHeaderLabels(
        {QtTreePropertyBrowser::tr("Property"), QtTreePropertyBrowser::tr("Value")});
    view->header()->setSectionResizeMode(QHeaderView::Stretch);

    auto *layout = new QHBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    q->setFocusProxy(view);
    connectView();
}

QtTreePropertyBrowserPrivate::~QtTreePropertyBrowserPrivate()
{
    // An editor that closes with the view must not write into rows any more.
    delegate->releaseEditors();
    QObject::disconnect(view, nullptr, q, nullptr);
    delete view;
}

void QtTreePropertyBrowserPrivate::connectView()
{
    QObject::connect(view, &QTreeWidget::itemExpanded, q, [this](QTreeWidgetItem *item) {
        if (!m_isFilling)
            Q_EMIT q->expanded(browserItem(item));
    });
    QObject::connect(view, &QTreeWidget::itemCollapsed, q, [this](QTreeWidgetItem *item) {
        if (!m_isFilling)
            Q_EMIT q->collapsed(browserItem(item));
    });
    QObject::connect(view, &QTreeWidget::currentItemChanged, q, [this](QTreeWidgetItem *item) {
        if (!m_isFilling)
            q->setCurrentItem(browserItem(item));
    });
    QObject::connect(q, &QtAbstractPropertyBrowser::currentItemChanged, view,
                     [this](QtBrowserItem *item) { showCurrent(item); });
}

void QtTreePropertyBrowserPrivate::showCurrent(QtBrowserItem *item)
{
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    QTreeWidgetItem *shown = viewItem(item);
    if (view->currentItem() != shown)
        view->setCurrentItem(shown, kValueColumn);
}

void QtTreePropertyBrowserPrivate::insert(QtBrowserItem *item, QtBrowserItem *after)
{
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    auto *made = new QTreeWidgetItem;
    m_viewItems.insert(item, made);
    m_browserItems.insert(made, item);
    fill(item);

    QTreeWidgetItem *parent = item->parent() ? viewItem(item->parent()) : view->invisibleRootItem();
    const int count = parent->childCount();
    QTreeWidgetItem *preceding = viewItem(after);
    const bool isLast = count == 0 || parent->child(count - 1) == preceding;
    parent->insertChild(isLast ? count : parent->indexOfChild(preceding) + 1, made);
    if (item->parent() && count == 0)
        parent->setExpanded(true);
}

void QtTreePropertyBrowserPrivate::remove(QtBrowserItem *item)
{
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    delegate->discardEditors(item);
    QTreeWidgetItem *leaving = m_viewItems.take(item);
    m_browserItems.remove(leaving);
    backgrounds.remove(item);
    // The view would remember an expanded row for good.
    leaving->setExpanded(false);
    delete leaving;
    // The view moves on to a neighbour by itself; the browser's own choice counts.
    showCurrent(q->currentItem());
}

void QtTreePropertyBrowserPrivate::fill(QtBrowserItem *item)
{
    QTreeWidgetItem *row = viewItem(item);
    const QtProperty *property = item->property();
    const QString name = propertyDisplayName(property->propertyName());
    const QString value = property->hasValue() ? property->valueText() : QString();
    row->setText(kNameColumn, name);
    row->setText(kValueColumn, value);
    row->setIcon(kValueColumn, property->hasValue() ? property->valueIcon() : QIcon());

    // A text that is cut off shows whole in its tip.
    const QString tip = property->toolTip();
    row->setToolTip(kNameColumn, tip.isEmpty() ? name : tip);
    row->setToolTip(kValueColumn, tip.isEmpty() ? value : tip);
    for (const int column : {kNameColumn, kValueColumn}) {
        row->setStatusTip(column, property->statusTip());
        row->setWhatsThis(column, property->whatsThis());
    }
    fillState(item);
    view->viewport()->update();
}

/** Greys a row that is not enabled, and every row below it. */
void QtTreePropertyBrowserPrivate::fillState(QtBrowserItem *item)
{
    QTreeWidgetItem *row = viewItem(item);
    if (!row)
        return;
    QTreeWidgetItem *above = item->parent() ? viewItem(item->parent()) : nullptr;
    const bool enabled =
        item->property()->isEnabled() && (!above || above->flags().testFlag(Qt::ItemIsEnabled));
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEditable;
    flags.setFlag(Qt::ItemIsEnabled, enabled);
    if (row->flags() != flags)
        row->setFlags(flags);
    if (!enabled)
        delegate->discardEditors(item);
    const QList<QtBrowserItem *> children = item->children();
    for (QtBrowserItem *child : children)
        fillState(child);
}

QWidget *QtTreePropertyBrowserPrivate::createEditor(QtBrowserItem *item, QWidget *parent)
{
    return q->createEditor(item->property(), parent);
}

QtTreePropertyBrowser::QtTreePropertyBrowser(QWidget *parent)
    : QtAbstractPropertyBrowser(parent), m_d(new QtTreePropertyBrowserPrivate(this))
{
}

QtTreePropertyBrowser::~QtTreePropertyBrowser() = default;

int QtTreePropertyBrowser::indentation() const { return m_d->view->indentation(); }

void QtTreePropertyBrowser::setIndentation(int indentationPx)
{
    m_d->view->setIndentation(indentationPx);
}

bool QtTreePropertyBrowser::rootIsDecorated() const { return m_d->view->rootIsDecorated(); }

void QtTreePropertyBrowser::setRootIsDecorated(bool show) { m_d->view->setRootIsDecorated(show); }

bool QtTreePropertyBrowser::alternatingRowColors() const
{
    return m_d->view->alternatingRowColors();
}

void QtTreePropertyBrowser::setAlternatingRowColors(bool enable)
{
    m_d->view->setAlternatingRowColors(enable);
}

bool QtTreePropertyBrowser::propertiesWithoutValueMarked() const { return m_d->groupsMarked; }

void QtTreePropertyBrowser::setPropertiesWithoutValueMarked(bool mark)
{
    m_d->groupsMarked = mark;
    m_d->view->viewport()->update();
}

bool QtTreePropertyBrowser::isHeaderVisible() const { return !m_d->view->isHeaderHidden(); }

void QtTreePropertyBrowser::setHeaderVisible(bool visible) { m_d->view->setHeaderHidden(!visible); }

QtTreePropertyBrowser::ResizeMode QtTreePropertyBrowser::resizeMode() const
{
    return m_d->resizeMode;
}

void QtTreePropertyBrowser::setResizeMode(ResizeMode mode)
{
    static const QHash<int, QHeaderView::ResizeMode> modes{
        {Interactive, QHeaderView::Interactive},
        {Stretch, QHeaderView::Stretch},
        {Fixed, QHeaderView::Fixed},
        {ResizeToContents, QHeaderView::ResizeToContents}};
    m_d->resizeMode = mode;
    m_d->view->header()->setSectionResizeMode(modes.value(mode, QHeaderView::Stretch));
}

int QtTreePropertyBrowser::splitterPosition() const
{
    return m_d->view->header()->sectionSize(kNameColumn);
}

void QtTreePropertyBrowser::setSplitterPosition(int positionPx)
{
    m_d->view->header()->resizeSection(kNameColumn, positionPx);
}

bool QtTreePropertyBrowser::isExpanded(QtBrowserItem *item) const
{
    const QTreeWidgetItem *row = m_d->viewItem(item);
    return row && row->isExpanded();
}

void QtTreePropertyBrowser::setExpanded(QtBrowserItem *item, bool expanded)
{
    if (QTreeWidgetItem *row = m_d->viewItem(item))
        row->setExpanded(expanded);
}

bool QtTreePropertyBrowser::isItemVisible(QtBrowserItem *item) const
{
    const QTreeWidgetItem *row = m_d->viewItem(item);
    return row && !row->isHidden();
}

void QtTreePropertyBrowser::setItemVisible(QtBrowserItem *item, bool visible)
{
    if (QTreeWidgetItem *row = m_d->viewItem(item))
        row->setHidden(!visible);
}

void QtTreePropertyBrowser::setBackgroundColor(QtBrowserItem *item, const QColor &color)
{
    if (!m_d->viewItem(item))
        return;
    if (color.isValid())
        m_d->backgrounds.insert(item, color);
    else
        m_d->backgrounds.remove(item);
    m_d->view->viewport()->update();
}

QColor QtTreePropertyBrowser::backgroundColor(QtBrowserItem *item) const
{
    return m_d->backgrounds.value(item);
}

QColor QtTreePropertyBrowser::calculatedBackgroundColor(QtBrowserItem *item) const
{
    while (item && !m_d->backgrounds.contains(item))
        item = item->parent();
    return m_d->backgrounds.value(item);
}

void QtTreePropertyBrowser::editItem(QtBrowserItem *item)
{
    if (QTreeWidgetItem *row = m_d->viewItem(item)) {
        m_d->view->setCurrentItem(row, kValueColumn);
        m_d->view->openEditor(row);
    }
}

void QtTreePropertyBrowser::itemInserted(QtBrowserItem *item, QtBrowserItem *after)
{
    m_d->insert(item, after);
}

void QtTreePropertyBrowser::itemRemoved(QtBrowserItem *item) { m_d->remove(item); }

void QtTreePropertyBrowser::itemChanged(QtBrowserItem *item) { m_d->fill(item); }
