#include <studio/text/TextDialog.h>

#include <studio/ShapeItems.h>
#include <studio/UndoTexts.h>
#include <studio/text/ArcPage.h>
#include <studio/text/FontPage.h>
#include <studio/text/HatchPage.h>
#include <studio/text/TextCommand.h>
#include <studio/text/WordsPage.h>

#include <QtGui/QScreen>
#include <QtGui/QShowEvent>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QUndoStack>
#include <QtWidgets/QVBoxLayout>

namespace studio {

namespace {

constexpr int kMargin = 24;
constexpr int kLeastFreePx = 100; ///< of the drawing beside the dialog

} // namespace

TextDialog::TextDialog(ZTGraphicsTextItem &edited, QUndoStack &undoStack, QWidget *parent)
    : QDialog(parent), m_item(&edited), m_stack(undoStack), m_before(edited),
      m_initial(TextSettings::of(edited)), m_tabs(new QTabWidget(this)),
      m_hatch(new HatchPage(m_initial))
{
    setObjectName(QStringLiteral("textDialog"));
    setWindowTitle(tr("Text"));
    m_tabs->setObjectName(QStringLiteral("tabs"));
    addPage(new WordsPage(m_initial), tr("&1 Words"));
    addPage(new FontPage(m_initial), tr("&2 Font"));
    addPage(new ArcPage(m_initial), tr("&3 Arc"));
    addPage(m_hatch, tr("&4 Hatch"));
    auto *buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(buttons);

    m_previewTimer.setSingleShot(true);
    m_previewTimer.setInterval(0);
    connect(&m_previewTimer, &QTimer::timeout, this, &TextDialog::preview);
    connect(&edited, &QObject::destroyed, this, &QDialog::reject);
}

TextDialog::~TextDialog()
{
    if (!m_isFinished)
        giveBack();
}

void TextDialog::addPage(TextPage *page, const QString &title)
{
    m_pages.append(page);
    m_tabs->addTab(page, title);
    connect(page, &TextPage::changed, &m_previewTimer, qOverload<>(&QTimer::start));
}

TextSettings TextDialog::wanted() const
{
    TextSettings settings = m_initial;
    for (const TextPage *page : m_pages)
        page->read(settings);
    return settings;
}

// From the state before each time, so that going there and back ends exactly where it began.
void TextDialog::preview()
{
    if (!m_item)
        return;
    m_before.restore(*m_item);
    const TextSettings settings = wanted();
    settings.applyTo(*m_item);
    m_hatch->setKind(settings.kind);
    bringIntoSight();
}

void TextDialog::done(int result)
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

void TextDialog::take()
{
    if (!m_item)
        return;
    TextSettings settings = wanted();
    const bool isNewVariant = settings.variantText != m_initial.variantText;
    if (isNewVariant)
        settings.variantText.update(); // makes the present part
    m_before.restore(*m_item);
    settings.applyTo(*m_item);
    if (TextState(*m_item) == m_before)
        return;
    const bool changesVariant = isNewVariant || settings.isVariant != m_initial.isVariant;
    m_stack.push(new TextCommand(m_item, m_before,
                                 changesVariant ? TextCommand::VariantText::Changed
                                                : TextCommand::VariantText::Kept,
                                 undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change text"))));
}

void TextDialog::giveBack()
{
    if (m_item && TextState(*m_item) != m_before)
        m_before.restore(*m_item);
}

void TextDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && m_item)
        moveAside();
}

/** At the side of the window where the dialog leaves more of the drawing free. */
void TextDialog::moveAside()
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
QRect TextDialog::textPlace() const
{
    const QGraphicsView &view = *m_item->scene()->views().first();
    const QRect seen = view.mapFromScene(sceneBox(*m_item)).boundingRect();
    return {view.viewport()->mapToGlobal(seen.topLeft()), seen.size()};
}

/** Scrolls a text that is not all in what the dialog left free to the middle of it. */
void TextDialog::bringIntoSight()
{
    const QRect text = textPlace();
    if (m_freePlace.width() < kLeastFreePx ||
        (text.left() >= m_freePlace.left() && text.right() <= m_freePlace.right()))
        return;
    const int byPx = text.center().x() - m_freePlace.center().x();
    m_scrolledPx += byPx;
    scroll(byPx);
}

void TextDialog::scroll(int byPx)
{
    QScrollBar &bar = *m_item->scene()->views().first()->horizontalScrollBar();
    bar.setValue(bar.value() + byPx);
}

} // namespace studio
