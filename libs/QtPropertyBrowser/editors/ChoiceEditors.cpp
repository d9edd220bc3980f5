#include <QtPropertyBrowser/editors/RowEditor_p.h>

#include <QtPropertyBrowser/QtVariantPropertyManager.h>
#include <QtPropertyBrowser/editors/QtBoolEdit_p.h>
#include <QtPropertyBrowser/types/CursorNames_p.h>
#include <QtPropertyBrowser/types/RowIcons_p.h>
#include <QtPropertyBrowser/types/RowTexts_p.h>

#include <QtCore/QMap>
#include <QtCore/QSignalBlocker>
#include <QtGui/QCursor>
#include <QtWidgets/QComboBox>

namespace roweditors {

namespace {

class BoolEditor : public RowEditor
{
public:
    BoolEditor(const EditedRow &row, QtBoolEdit *boolEdit)
        : RowEditor(row, boolEdit), m_edit(boolEdit)
    {
        start();
        connect(m_edit, &QtBoolEdit::toggled, this, [this](bool checked) { write(checked); });
    }

protected:
    void showValue() override
    {
        const QSignalBlocker blocker(m_edit);
        m_edit->setChecked(value().toBool());
    }

private:
    QtBoolEdit *const m_edit;
};

/** A list to choose from: by hand, for the list's own filling is no choice. */
class ListEditor : public RowEditor
{
public:
    ListEditor(const EditedRow &row, QComboBox *box) : RowEditor(row, box), m_list(box)
    {
        m_list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        connect(m_list, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                [this](int index) {
                    if (index >= 0)
                        write(valueAt(index));
                });
    }

protected:
    void showValue() override
    {
        const QSignalBlocker blocker(m_list);
        const int index = indexOf(value());
        m_list->setCurrentIndex(index < m_list->count() ? index : -1);
    }

    virtual QVariant valueAt(int index) const = 0;
    virtual int indexOf(const QVariant &value) const = 0;

    QComboBox *const m_list;
};

class EnumEditor : public ListEditor
{
public:
    EnumEditor(const EditedRow &row, QComboBox *box) : ListEditor(row, box) { start(); }

protected:
    void showAttributes() override
    {
        const QSignalBlocker blocker(m_list);
        const QStringList names = attribute(rowtypes::enumNamesName()).toStringList();
        const auto icons = attribute(rowtypes::enumIconsName()).value<QMap<int, QIcon>>();
        m_list->clear();
        for (int i = 0; i < names.size(); ++i)
            m_list->addItem(icons.value(i), names.at(i));
    }

    QVariant valueAt(int index) const override { return index; }
    int indexOf(const QVariant &value) const override { return value.toInt(); }
};

class CursorEditor : public ListEditor
{
public:
    CursorEditor(const EditedRow &row, QComboBox *box) : ListEditor(row, box) { start(); }

protected:
    void showAttributes() override
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        const QVector<Qt::CursorShape> shapes = rowtypes::cursorShapes();
        for (const Qt::CursorShape shape : shapes)
            m_list->addItem(rowtypes::cursorIcon(shape), rowtypes::cursorName(shape));
    }

    QVariant valueAt(int index) const override
    {
        return QCursor(rowtypes::cursorShapes().at(index));
    }

    int indexOf(const QVariant &value) const override
    {
        return rowtypes::cursorShapes().indexOf(value.value<QCursor>().shape());
    }
};

template <class Editor, class Widget>
QWidget *makeChoice(const EditedRow &row, QWidget *parent)
{
    auto *widget = new Widget(parent);
    new Editor(row, widget);
    return widget;
}

} // namespace

void addChoiceEditors(Makers *makers)
{
    makers->insert(QMetaType::Bool, makeChoice<BoolEditor, QtBoolEdit>);
    makers->insert(QMetaType::QCursor, makeChoice<CursorEditor, QComboBox>);
    makers->insert(QtVariantPropertyManager::enumTypeId(), makeChoice<EnumEditor, QComboBox>);
}

} // namespace roweditors
