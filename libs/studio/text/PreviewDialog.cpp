#include <studio/text/PreviewDialog.h>

#include <studio/measures/MeasureBox.h>
#include <studio/shapes/ShapeItems.h>

#include <QtGui/QScreen>
#include <QtGui/QShowEvent>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QUndoStack>
#include <QtWidgets/QVBoxLayout>

namespace studio {

namespace {

constexpr int kMargin = 24;
constexpr int kLeastFreePx = 100; ///< of the drawing beside the dialog

} // namespace

PreviewDialog::PreviewDialog(ZTAbstractGraphicsTextItem &edited, QUndoStack &undoStack,
                             QWidget *parent)
    : QDialog(parent), m_item(&edited), m_stack(undoStack), m_before(edited),
      m_tabs(new QTabWidget(this)), m_layout(new QVBoxLayout(this)), m_faultLabel(new QLabel(this))
{
    m_tabs->setObjectName(QStringLiteral("tabs"));
    auto *buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, this);
    m_okButton = buttons->button(QDialogButtonBox::Ok);
    m_faultLabel->setObjectName(QStringLiteral("faultLabel"));
    m_faultLabel->setTextFormat(Qt::PlainText);
    m_faultLabel->setWordWrap(true);
    // Its room stays: the buttons below may not move under the mouse.
    m_faultLabel->setMinimumHeight(m_faultLabel->fontMetrics().lineSpacing());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_layout->addWidget(m_tabs);
    m_layout->addWidget(m_faultLabel);
    m_layout->addWidget(buttons);

    m_previewTimer.setSingleShot(true);
    m_previewTimer.setInterval(0);
    connect(&m_previewTimer, &QTimer::timeout, this, &PreviewDialog::preview);
    connect(&edited, &QObject::destroyed, this, &QDialog::reject);
}

PreviewDialog::~PreviewDialog()
{
    if (!m_isFinished)
        giveBack();
}

void PreviewDialog::addPage(QWidget *page, const QString &title) { m_tabs->addTab(page, title); }

void PreviewDialog::insertAbove(QLayout *row)
{
    m_layout->insertLayout(m_layout->indexOf(m_tabs), row);
}

void PreviewDialog::insertBelow(QLayout *row)
{
    m_layout->insertLayout(m_layout->indexOf(m_tabs) + 1, row);
}

void PreviewDialog::previewSoon() { m_previewTimer.start(); }

// From the state before each time, so that going there and back ends exactly where it began.
void PreviewDialog::preview()
{
    if (!m_item)
        return;
    m_before.restore(*m_item);
    apply(false);
    bringIntoSight();
}

void PreviewDialog::done(int result)
{
    if (!m_isFinished) {
        m_isFinished = true;
        m_previewTimer.stop();
        if (m_item && m_item->scene() != nullptr)
            scroll(-m_scrolledPx);
        if (result == Accepted)
            take();
        else
            giveBack();
    }
    QDialog::done(result);
}

void PreviewDialog::take()
{
    if (!m_item)
        return;
    m_before.restore(*m_item);
    apply(true);
    if (TextState(*m_item) != m_before)
        m_stack.push(new TextCommand(m_item, m_before, variantChange(), stepText()));
}

void PreviewDialog::giveBack()
{
    if (m_item && TextState(*m_item) != m_before)
        m_before.restore(*m_item);
}

bool PreviewDialog::event(QEvent *event)
{
    if (event->type() == MeasureBox::faultEvent())
        showFault();
    return QDialog::event(event);
}

void PreviewDialog::showFault()
{
    const QString fault = MeasureBox::faultIn(*this);
    m_faultLabel->setText(fault);
    m_okButton->setEnabled(fault.isEmpty());
}

void PreviewDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && m_item)
        moveAside();
}

/** At the side of the window where the dialog leaves more of the drawing free. */
void PreviewDialog::moveAside()
{
    const QWidget &canvas = *m_item->scene()->views().first()->viewport();
    const QRect drawing(canvas.mapToGlobal(QPoint()), canvas.size());
    const QRect window = canvas.window()->frameGeometry();
    const QRect room = screen()->availableGeometry().adjusted(0, 0, -kMargin, -kMargin);
    QRect right(QPoint(), frameGeometry().size());
    right.moveTop(drawing.top() + kMargin);
    right.moveRight(qMin(window.right() - kMargin, room.right()));
    right.moveBottom(qMin(right.bottom(), room.bottom()));
    QRect left = right;
    left.moveLeft(qMax(window.left() + kMargin, room.left()));
    QRect besideRight = drawing;
    besideRight.setRight(right.left());
    QRect besideLeft = drawing;
    besideLeft.setLeft(left.right());
    const bool isRight = besideRight.width() >= besideLeft.width();
    m_freePlace = isRight ? besideRight : besideLeft;
    move((isRight ? right : left).topLeft());
    bringIntoSight();
}

/** Frame: pixels of the screen. */
QRect PreviewDialog::itemPlace() const
{
    const QGraphicsView &view = *m_item->scene()->views().first();
    const QRect seen = view.mapFromScene(sceneBox(*m_item)).boundingRect();
    return {view.viewport()->mapToGlobal(seen.topLeft()), seen.size()};
}

/** Scrolls an item that is not all in what the dialog left free to the middle of it. */
void PreviewDialog::bringIntoSight()
{
    const QRect place = itemPlace();
    if (m_freePlace.width() < kLeastFreePx ||
        (place.left() >= m_freePlace.left() && place.right() <= m_freePlace.right()))
        return;
    const int byPx = place.center().x() - m_freePlace.center().x();
    m_scrolledPx += byPx;
    scroll(byPx);
}

void PreviewDialog::scroll(int byPx)
{
    QScrollBar &bar = *m_item->scene()->views().first()->horizontalScrollBar();
    bar.setValue(bar.value() + byPx);
}

} // namespace studio
