#include <studio/text/InPlaceEditor.h>

#include <studio/shapes/ShapeItems.h>

#include <QtGui/QKeyEvent>
#include <QtGui/QTextDocument>
#include <QtWidgets/QScrollBar>

namespace studio {

namespace {

constexpr int kGap = 24; ///< to the text; the frame's handles stand there
constexpr int kSmallestFontPx = 16;
constexpr int kLargestFontPx = 32;
constexpr int kLeastWidth = 160;
constexpr int kLinePx = 2;

bool isLineKey(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/** Keys that mean something to someone who types, whatever they are shortcuts of. */
bool belongsToTyping(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Delete:
        return true;
    default:
        return !(event.modifiers() & commands) || event.matches(QKeySequence::Undo) ||
               event.matches(QKeySequence::Redo);
    }
}

} // namespace

InPlaceEditor::InPlaceEditor(ZTGraphicsView &shownIn, ZTGraphicsTextItem &edited)
    : QTextEdit(shownIn.viewport()), m_view(shownIn), m_item(&edited)
{
    setObjectName(QStringLiteral("inPlaceEditor"));
    setAcceptRichText(false);
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(Box | Plain);
    setLineWidth(kLinePx);
    setCursor(Qt::IBeamCursor);
    setToolTip(tr("Ctrl+Return or a click elsewhere takes the words, Esc gives them up"));
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, colors.color(QPalette::Highlight)); // of the frame
    setPalette(colors);
    setPlainText(edited.getFixedText());
    selectAll();

    connect(this, &QTextEdit::textChanged, this, &InPlaceEditor::showWords);
    connect(m_view.horizontalScrollBar(), &QScrollBar::valueChanged, this, &InPlaceEditor::follow);
    connect(m_view.verticalScrollBar(), &QScrollBar::valueChanged, this, &InPlaceEditor::follow);
    connect(m_view.horizontalScrollBar(), &QScrollBar::rangeChanged, this, &InPlaceEditor::follow);
    connect(&edited, &ShapeItem::posChanged, this, &InPlaceEditor::follow);
    connect(&edited, &QObject::destroyed, this, &InPlaceEditor::giveUp);
    follow();
    show();
    setFocus();
}

void InPlaceEditor::accept()
{
    if (m_isDone)
        return;
    m_isDone = true;
    Q_EMIT accepted(toPlainText());
}

void InPlaceEditor::giveUp()
{
    if (m_isDone)
        return;
    m_isDone = true;
    Q_EMIT givenUp();
}

void InPlaceEditor::showWords()
{
    if (m_item)
        m_item->setText(toPlainText());
    follow();
}

bool InPlaceEditor::event(QEvent *event)
{
    // Letters are shortcuts elsewhere in the drawing.
    if (event->type() == QEvent::ShortcutOverride &&
        belongsToTyping(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QTextEdit::event(event);
}

void InPlaceEditor::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        giveUp();
    else if (isLineKey(*event) && event->modifiers().testFlag(Qt::ControlModifier))
        accept();
    else
        QTextEdit::keyPressEvent(event);
}

void InPlaceEditor::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    // The context menu of the field, and another window, are no end of typing.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        accept();
}

void InPlaceEditor::follow()
{
    if (!m_item || m_isDone)
        return;
    const double heightPx = sceneBox(*m_item).height() * m_view.getDisplayScale();
    const int lines = qMax(1, document()->blockCount());
    QFont shown = font();
    shown.setPixelSize(qBound(kSmallestFontPx, qRound(heightPx / lines), kLargestFontPx));
    setFont(shown);
    const QSize size = wantedSize();
    setGeometry(QRect(wantedPlace(size), size));
}

QSize InPlaceEditor::wantedSize() const
{
    document()->adjustSize();
    const QSize words = document()->size().toSize();
    const QSize room = m_view.viewport()->size();
    const int caret = fontMetrics().averageCharWidth();
    return {
        qBound(kLeastWidth, words.width() + caret + 2 * kLinePx, qMax(kLeastWidth, room.width())),
        qMin(words.height() + 2 * kLinePx, room.height())};
}

/** Below the text; above it where there is no room; in any case in sight. */
QPoint InPlaceEditor::wantedPlace(const QSize &size) const
{
    const QRect room = m_view.viewport()->rect();
    const QRect box = m_view.mapFromScene(sceneBox(*m_item)).boundingRect();
    QPoint place(box.left(), box.bottom() + kGap);
    if (place.y() + size.height() > room.bottom() && box.top() - kGap - size.height() >= 0)
        place.setY(box.top() - kGap - size.height());
    return {qBound(0, place.x(), qMax(0, room.width() - size.width())),
            qBound(0, place.y(), qMax(0, room.height() - size.height()))};
}

} // namespace studio
