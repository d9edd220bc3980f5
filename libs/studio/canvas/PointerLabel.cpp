#include <studio/canvas/PointerLabel.h>

#include <QtWidgets/QToolTip>

namespace studio {

namespace {

constexpr int kGap = 18; ///< to the mouse, whose cursor stands there
constexpr int kMargin = 3;

} // namespace

PointerLabel::PointerLabel(QWidget *canvas) : QLabel(canvas)
{
    setObjectName(QStringLiteral("pointerLabel"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setPalette(QToolTip::palette());
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    setAutoFillBackground(true);
    setFrameStyle(Box | Plain);
    setMargin(kMargin);
    setTextFormat(Qt::PlainText);
    hide();
}

void PointerLabel::tell(const QString &words, const QPoint &pos)
{
    setText(words);
    adjustSize();
    const QRect room = parentWidget()->rect();
    QPoint place = pos + QPoint(kGap, kGap);
    if (place.x() + width() > room.right())
        place.setX(pos.x() - kGap - width());
    if (place.y() + height() > room.bottom())
        place.setY(pos.y() - kGap - height());
    move(qBound(0, place.x(), qMax(0, room.width() - width())),
         qBound(0, place.y(), qMax(0, room.height() - height())));
    show();
    raise();
}

} // namespace studio
