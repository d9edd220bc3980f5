#include <QtPropertyBrowser/editors/RowEditor_p.h>

#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtWidgets/QWidget>

namespace roweditors {

namespace {

Makers allMakers()
{
    Makers makers;
    addChoiceEditors(&makers);
    addDateTimeEditors(&makers);
    addDialogEditors(&makers);
    addNumberEditors(&makers);
    addTextEditors(&makers);
    return makers;
}

} // namespace

Maker maker(int propertyType)
{
    static const Makers makers = allMakers();
    return makers.value(propertyType, nullptr);
}

RowEditor::RowEditor(const EditedRow &row, QWidget *widget)
    : QObject(widget), manager(row.manager), property(row.property)
{
    connect(row.manager, &QtVariantPropertyManager::valueChanged, this,
            [this](QtProperty *changed) { follow(changed, false); });
    connect(row.manager, &QtVariantPropertyManager::attributeChanged, this,
            [this](QtProperty *changed) { follow(changed, true); });
    connect(row.manager, &QtAbstractPropertyManager::propertyDestroyed, this,
            [this](QtProperty *destroyed) {
                if (destroyed == property)
                    release();
            });
}

RowEditor *RowEditor::of(const QWidget *editor)
{
    return editor ? editor->findChild<RowEditor *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

void RowEditor::commit()
{
    if (isTied())
        takeEntry();
}

void RowEditor::revert()
{
    if (isTied())
        showValue();
}

void RowEditor::release() { property = nullptr; }

void RowEditor::start()
{
    showAttributes();
    showValue();
}

QVariant RowEditor::attribute(const QString &name) const
{
    return isTied() ? manager->attributeValue(property, name) : QVariant();
}

QVariant RowEditor::value() const { return isTied() ? manager->value(property) : QVariant(); }

void RowEditor::write(const QVariant &value)
{
    if (!isTied())
        return;
    const QPointer<RowEditor> guard(this);
    manager->setValue(property, value);
    // The row may have refused the value or bounded it, and a slot may have deleted everything.
    if (guard && isTied())
        showValue();
}

bool RowEditor::isTied() const { return manager && property; }

void RowEditor::follow(const QtProperty *changed, bool attributes)
{
    if (!isTied() || changed != property)
        return;
    if (attributes)
        showAttributes();
    showValue();
}

} // namespace roweditors
