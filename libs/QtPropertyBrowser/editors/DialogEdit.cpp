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
    : QWidget(parent), m_picture(new QLabel(this)), m_words(new QLabel(this)),
      m_button(new QToolButton(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_picture);
    layout->addWidget(m_words, 1);
    layout->addWidget(m_button);
    m_words->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_button->setText(QStringLiteral("..."));
    m_button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setFocusProxy(m_button);
    connect(m_button, &QToolButton::clicked, this, &DialogEdit::dialogWanted);
}

void DialogEdit::setContent(const QIcon &icon, const QString &text)
{
    m_picture->setPixmap(icon.pixmap(kPictureSizePx));
    m_words->setText(text);
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
