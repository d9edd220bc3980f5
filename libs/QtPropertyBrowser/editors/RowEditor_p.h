#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVariant>

class QtProperty;
class QtVariantPropertyManager;
class QWidget;

/** The editors of the row types, each a widget with a `RowEditor` that ties it to its row. */
namespace roweditors {

struct EditedRow
{
    QtVariantPropertyManager *manager;
    QtProperty *property;
};

using Maker = QWidget *(*)(const EditedRow &row, QWidget *parent);
using Makers = QHash<int, Maker>;

/** What makes the editor for a property type; null if it has none. */
Maker maker(int propertyType);

void addChoiceEditors(Makers *makers);
void addDateTimeEditors(Makers *makers);
void addDialogEditors(Makers *makers);
void addNumberEditors(Makers *makers);
void addTextEditors(Makers *makers);

/**
 * Keeps a widget and its row in step: shows what the row holds, writes what a person entered.
 *
 * Owner: the widget. The row may be deleted first; the widget then edits nothing.
 */
class RowEditor : public QObject
{
    Q_OBJECT

public:
    RowEditor(const EditedRow &row, QWidget *widget);

    /** The one that ties `editor` to its row; null for a widget of another factory. */
    static RowEditor *of(const QWidget *editor);

    void commit();  ///< writes what was typed and not yet written
    void revert();  ///< forgets what was typed
    void release(); ///< lets go of the row: whatever happens to the widget writes nothing

protected:
    /** To be called at the end of a constructor: shows the row for the first time. */
    void start();

    QVariant attribute(const QString &name) const;
    QVariant value() const;
    void write(const QVariant &value);

    virtual void showAttributes() {}
    virtual void showValue() = 0;
    virtual void takeEntry() {}

private:
    bool isTied() const;
    void follow(const QtProperty *changed, bool attributes);

    QPointer<QtVariantPropertyManager> m_manager;
    QtProperty *m_property; ///< borrowed from the manager; null once it is destroyed
};

} // namespace roweditors
