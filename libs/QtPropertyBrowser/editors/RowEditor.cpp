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
    : QObject(widget), m_manager(row.manager), m_property(row.property)
{
    connect(row.manager, &QtVariantPropertyManager::valueChanged, this,
            [this](QtProperty *changed) { follow(changed, false); });
    connect(row.manager, &QtVariantPropertyManager::attributeChanged, this,
            [this](QtProperty *changed) { follow(changed, true); });
    connect(row.manager, &QtAbstractPropertyManager::propertyDestroyed, this,
            [this](QtProperty *destroyed) {
                if (destroyed == m_property)
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

void RowEditor::release() { m_property = nullptr; }

void RowEditor::start()
{
    showAttributes();
    showValue();
}

QVariant RowEditor::attribute(const QString &name) const
{
    return isTied() ? m_manager->attributeValue(m_property, name) : QVariant();
}

QVariant RowEditor::value() const { return isTied() ? m_manager->value(m_property) : QVariant(); }

void RowEditor::write(const QVariant &value)
{
    if (!isTied())
        return;
    const QPointer<RowEditor> guard(this);
    m_manager->setValue(m_property, value);
    // The row may have refused the value or bounded it, and a slot may have deleted everything.
    if (guard && isTied())
        showValue();
}

bool RowEditor::isTied() const { return m_manager && m_property; }

void RowEditor::follow(const QtProperty *changed, bool attributes)
{
    if (!isTied() || changed != m_property)
        return;
    if (attributes)
        showAttributes();
    showValue();
}

} // namespace roweditors
