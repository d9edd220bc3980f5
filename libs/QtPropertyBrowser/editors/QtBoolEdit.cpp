#include <QtPropertyBrowser/editors/QtBoolEdit_p.h>

#include <QtGui/QMouseEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>

QtBoolEdit::QtBoolEdit(QWidget *parent) : QWidget(parent), m_box(new QCheckBox(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 0, 0);
    layout->addWidget(m_box);
    setFocusProxy(m_box);
    showText();
    connect(m_box, &QCheckBox::toggled, this, [this](bool checked) {
        showText();
        Q_EMIT toggled(checked);
    });
}

bool QtBoolEdit::isChecked() const { return m_box->isChecked(); }

void QtBoolEdit::setChecked(bool checked) { m_box->setChecked(checked); }

void QtBoolEdit::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_box->toggle();
    else
        QWidget::mousePressEvent(event);
}

void QtBoolEdit::showText() { m_box->setText(m_box->isChecked() ? tr("True") : tr("False")); }
