#include <QtPropertyBrowser/PropertyDelegate_p.h>

#include <QtPropertyBrowser/QtProperty.h>
#include <QtPropertyBrowser/QtPropertyEditorView_p.h>
#include <QtPropertyBrowser/QtTreePropertyBrowser_p.h>
#include <QtPropertyBrowser/editors/RowEditor_p.h>

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

using roweditors::RowEditor;

namespace {

constexpr int kNameColumn = 0;
constexpr int kValueColumn = 1;

void watch(QWidget *editor, QObject *watcher)
{
    editor->installEventFilter(watcher);
    for (QWidget *proxy = editor->focusProxy(); proxy; proxy = proxy->focusProxy())
        proxy->installEventFilter(watcher);
}

/** Whether the focus is in the editor or in something that it opened. */
bool holdsFocus(const QWidget *editor)
{
    const QWidget *modal = QApplication::activeModalWidget();
    if (QApplication::activePopupWidget() || (modal && modal != editor->window()))
        return true;
    const QWidget *focused = QApplication::focusWidget();
    while (focused && focused != editor)
        focused = focused->parentWidget();
    return focused != nullptr;
}

} // namespace

PropertyDelegate::PropertyDelegate(QtTreePropertyBrowserPrivate *browser, QObject *parent)
    : QStyledItemDelegate(parent), m_owner(browser)
{
}

QWidget *PropertyDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    Q_UNUSED(option)
    QtBrowserItem *item = m_owner->browserItem(m_owner->view->rowOf(index));
    if (!item || index.column() != kValueColumn || !index.flags().testFlag(Qt::ItemIsEnabled))
        return nullptr;
    QWidget *editor = m_owner->createEditor(item, parent);
    if (!editor)
        return nullptr;
    editor->setAutoFillBackground(true);
    m_editors.insert(editor, item);
    auto *self = const_cast<PropertyDelegate *>(this);
    watch(editor, self);
    connect(editor, &QObject::destroyed, self, [self, editor] { self->m_editors.remove(editor); });
    return editor;
}

void PropertyDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    // The editor follows its row by itself.
    Q_UNUSED(editor)
    Q_UNUSED(index)
}

void PropertyDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    Q_UNUSED(model)
    Q_UNUSED(index)
    if (RowEditor *row = RowEditor::of(editor))
        row->commit();
}

void PropertyDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                            const QModelIndex &index) const
{
    Q_UNUSED(index)
    // The grid line below the row stays visible.
    editor->setGeometry(option.rect.adjusted(0, 0, 0, -1));
}

bool PropertyDelegate::eventFilter(QObject *object, QEvent *event)
{
    QWidget *editor = editorOf(object);
    if (!editor)
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Escape closes the editor, whatever the program has bound to it.
        if (static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
            return false;
        event->accept();
        return true;
    case QEvent::KeyPress:
        return keyPressed(editor, static_cast<QKeyEvent *>(event)->key());
    case QEvent::FocusOut:
        focusLeft(editor);
        return false;
    default:
        return false;
    }
}

void PropertyDelegate::discardEditors(QtBrowserItem *item)
{
    const QList<QWidget *> open = m_editors.keys(item);
    for (QWidget *editor : open) {
        if (RowEditor *row = RowEditor::of(editor))
            row->release();
        Q_EMIT closeEditor(editor, RevertModelCache);
    }
}

void PropertyDelegate::releaseEditors()
{
    for (auto it = m_editors.cbegin(); it != m_editors.cend(); ++it) {
        if (RowEditor *row = RowEditor::of(it.key()))
            row->release();
    }
    m_editors.clear();
}

void PropertyDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const QtBrowserItem *item = m_owner->browserItem(m_owner->view->rowOf(index));
    if (!item)
        return;
    if (index.column() == kNameColumn && item->property()->isModified())
        option->font.setBold(true);
    if (m_owner->groupsMarked && !item->property()->hasValue()) {
        option->font.setBold(true);
        const QColor bright = option->palette.color(QPalette::BrightText);
        option->palette.setColor(QPalette::Active, QPalette::Text, bright);
        option->palette.setColor(QPalette::Inactive, QPalette::Text, bright);
    }
    option->fontMetrics = QFontMetrics(option->font);
}

/** The open editor that `object` is or stands in for. */
QWidget *PropertyDelegate::editorOf(QObject *object) const
{
    for (auto it = m_editors.cbegin(); it != m_editors.cend(); ++it) {
        for (QWidget *each = it.key(); each; each = each->focusProxy()) {
            if (each == object)
                return it.key();
        }
    }
    return nullptr;
}

bool PropertyDelegate::keyPressed(QWidget *editor, int key)
{
    switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        commitAndClose(editor);
        return true;
    case Qt::Key_Escape:
        if (RowEditor *row = RowEditor::of(editor))
            row->revert();
        Q_EMIT closeEditor(editor, RevertModelCache);
        return true;
    default:
        return false;
    }
}

void PropertyDelegate::focusLeft(QWidget *editor)
{
    if (holdsFocus(editor))
        return;
    commitAndClose(editor);
}

void PropertyDelegate::commitAndClose(QWidget *editor)
{
    const QPointer<QWidget> guard(editor);
    Q_EMIT commitData(editor);
    // Whoever is told of the edit may take the row away, and the editor with it.
    if (guard)
        Q_EMIT closeEditor(editor, NoHint);
}
