#include <QtPropertyBrowser/editors/QtBoolEdit_p.h>

#include <QtGui/QMouseEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>

QtBoolEdit::QtBoolEdit(QWidget *parent) : QWidget(parent), box(new QCheckBox(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 0, 0);
    layout->addWidget(box);
    setFocusProxy(box);
    showText();
    connect(box, &QCheckBox::toggled, this, [this](bool checked) {
        showText();
        Q_EMIT toggled(checked);
    });
}

bool QtBoolEdit::isChecked() const { return box->isChecked(); }

void QtBoolEdit::setChecked(bool checked) { box->setChecked(checked); }

void QtBoolEdit::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        box->toggle();
    else
        QWidget::mousePressEvent(event);
}

void QtBoolEdit::showText() { box->setText(box->isChecked() ? tr("True") : tr("False")); }
