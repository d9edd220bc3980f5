#include <QtPropertyBrowser/editors/DialogEdit_p.h>

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>

namespace {

constexpr int kPictureSizePx = 16;

bool isRemoval(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
}

} // namespace

DialogEdit::DialogEdit(QWidget *parent)
    : QWidget(parent), picture(new QLabel(this)), words(new QLabel(this)),
      button(new QToolButton(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(picture);
    layout->addWidget(words, 1);
    layout->addWidget(button);
    words->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    button->setText(QStringLiteral("..."));
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setFocusProxy(button);
    connect(button, &QToolButton::clicked, this, &DialogEdit::dialogWanted);
}

void DialogEdit::setContent(const QIcon &icon, const QString &text)
{
    picture->setPixmap(icon.pixmap(kPictureSizePx));
    words->setText(text);
}

bool DialogEdit::event(QEvent *event)
{
    // Taken, so that no shortcut of the program removes anything meanwhile.
    if (event->type() == QEvent::ShortcutOverride && isRemoval(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void DialogEdit::keyPressEvent(QKeyEvent *event)
{
    if (isRemoval(*event))
        event->accept();
    else
        QWidget::keyPressEvent(event);
}
