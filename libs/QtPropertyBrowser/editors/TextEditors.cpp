#include <QtPropertyBrowser/editors/RowEditor_p.h>

#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/TextPattern_p.h>

#include <QtCore/QSignalBlocker>
#include <QtGui/QKeyEvent>
#include <QtGui/QValidator>
#include <QtWidgets/QKeySequenceEdit>
#include <QtWidgets/QLineEdit>

namespace roweditors {

namespace {

QValidator *validatorOf(const QVariant &pattern, QObject *parent)
{
    if (pattern.userType() == QMetaType::QRegularExpression) {
        const QRegularExpression expression = pattern.toRegularExpression();
        if (expression.isValid() && !expression.pattern().isEmpty())
            return new QRegularExpressionValidator(expression, parent);
        return nullptr;
    }
    const QRegExp expression = pattern.toRegExp();
    if (expression.isValid() && !expression.isEmpty())
        return new QRegExpValidator(expression, parent);
    return nullptr;
}

/** A whole text is one edit: it is written on Return or when the focus leaves. */
class StringEditor : public RowEditor
{
public:
    StringEditor(const EditedRow &row, QLineEdit *lineEdit)
        : RowEditor(row, lineEdit), m_edit(lineEdit)
    {
        start();
        connect(m_edit, &QLineEdit::editingFinished, this, [this] { commit(); });
    }

protected:
    void showAttributes() override
    {
        const QValidator *former = m_edit->validator();
        m_edit->setValidator(validatorOf(attribute(rowtypes::regExpName()), m_edit));
        delete former;
        m_edit->setEchoMode(QLineEdit::EchoMode(attribute(rowtypes::echoModeName()).toInt()));
        m_edit->setReadOnly(attribute(rowtypes::readOnlyName()).toBool());
    }

    void showValue() override
    {
        if (m_edit->text() != value().toString())
            m_edit->setText(value().toString());
    }

    void takeEntry() override
    {
        if (!m_edit->hasAcceptableInput())
            showValue();
        else if (m_edit->text() != value().toString())
            write(m_edit->text());
    }

private:
    QLineEdit *const m_edit;
};

/** Takes one character: each key replaces the last, Delete and Backspace leave none. */
class OneKeyEdit : public QLineEdit
{
public:
    explicit OneKeyEdit(QWidget *parent) : QLineEdit(parent) { setMaxLength(1); }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const QString typed = event->text();
        const bool isPrintable = typed.size() == 1 && typed.at(0).isPrint();
        const bool isRemoval = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
        if (!isPrintable && !isRemoval) {
            QLineEdit::keyPressEvent(event);
            return;
        }
        setText(isPrintable ? typed : QString());
        Q_EMIT textEdited(text());
    }
};

class CharEditor : public RowEditor
{
public:
    CharEditor(const EditedRow &row, OneKeyEdit *keyEdit) : RowEditor(row, keyEdit), m_edit(keyEdit)
    {
        start();
        connect(m_edit, &QLineEdit::textEdited, this,
                [this](const QString &text) { write(text.isEmpty() ? QChar() : text.at(0)); });
    }

protected:
    void showValue() override
    {
        const QChar held = value().toChar();
        m_edit->setText(held.isNull() ? QString() : QString(held));
    }

private:
    OneKeyEdit *const m_edit;
};

class KeySequenceEditor : public RowEditor
{
public:
    KeySequenceEditor(const EditedRow &row, QKeySequenceEdit *keyEdit)
        : RowEditor(row, keyEdit), m_edit(keyEdit)
    {
        start();
        connect(m_edit, &QKeySequenceEdit::editingFinished, this, [this] { commit(); });
    }

protected:
    void showValue() override
    {
        const QSignalBlocker blocker(m_edit);
        if (m_edit->keySequence() != value().value<QKeySequence>())
            m_edit->setKeySequence(value().value<QKeySequence>());
    }

    void takeEntry() override { write(QVariant::fromValue(m_edit->keySequence())); }

private:
    QKeySequenceEdit *const m_edit;
};

template <class Editor, class Widget>
QWidget *makeTextEditor(const EditedRow &row, QWidget *parent)
{
    auto *widget = new Widget(parent);
    new Editor(row, widget);
    return widget;
}

} // namespace

void addTextEditors(Makers *makers)
{
    makers->insert(QMetaType::QString, makeTextEditor<StringEditor, QLineEdit>);
    makers->insert(QMetaType::QChar, makeTextEditor<CharEditor, OneKeyEdit>);
    makers->insert(QMetaType::QKeySequence, makeTextEditor<KeySequenceEditor, QKeySequenceEdit>);
}

} // namespace roweditors
