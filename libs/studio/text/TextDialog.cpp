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
    : QDialog(parent), item(&edited), stack(undoStack), before(edited),
      initial(TextSettings::of(edited)), tabs(new QTabWidget(this)), hatch(new HatchPage(initial))
{
    setObjectName(QStringLiteral("textDialog"));
    setWindowTitle(tr("Text"));
    tabs->setObjectName(QStringLiteral("tabs"));
    addPage(new WordsPage(initial), tr("&1 Words"));
    addPage(new FontPage(initial), tr("&2 Font"));
    addPage(new ArcPage(initial), tr("&3 Arc"));
    addPage(hatch, tr("&4 Hatch"));
    auto *buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);

    previewTimer.setSingleShot(true);
    previewTimer.setInterval(0);
    connect(&previewTimer, &QTimer::timeout, this, &TextDialog::preview);
    connect(&edited, &QObject::destroyed, this, &QDialog::reject);
}

TextDialog::~TextDialog()
{
    if (!isFinished)
        giveBack();
}

void TextDialog::addPage(TextPage *page, const QString &title)
{
    pages.append(page);
    tabs->addTab(page, title);
    connect(page, &TextPage::changed, &previewTimer, qOverload<>(&QTimer::start));
}

TextSettings TextDialog::wanted() const
{
    TextSettings settings = initial;
    for (const TextPage *page : pages)
        page->read(settings);
    return settings;
}

// From the state before each time, so that going there and back ends exactly where it began.
void TextDialog::preview()
{
    if (!item)
        return;
    before.restore(*item);
    const TextSettings settings = wanted();
    settings.applyTo(*item);
    hatch->setKind(settings.kind);
    bringIntoSight();
}

void TextDialog::done(int result)
{
    if (!isFinished) {
        isFinished = true;
        previewTimer.stop();
        if (item && item->scene() != nullptr)
            scroll(-scrolledPx);
        if (result == Accepted)
            take();
        else
            giveBack();
    }
    QDialog::done(result);
}

void TextDialog::take()
{
    if (!item)
        return;
    TextSettings settings = wanted();
    const bool isNewVariant = settings.variantText != initial.variantText;
    if (isNewVariant)
        settings.variantText.update(); // makes the present part
    before.restore(*item);
    settings.applyTo(*item);
    if (TextState(*item) == before)
        return;
    const bool changesVariant = isNewVariant || settings.isVariant != initial.isVariant;
    stack.push(new TextCommand(item, before,
                               changesVariant ? TextCommand::VariantText::Changed
                                              : TextCommand::VariantText::Kept,
                               undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change text"))));
}

void TextDialog::giveBack()
{
    if (item && TextState(*item) != before)
        before.restore(*item);
}

void TextDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && item)
        moveAside();
}

/** At the side of the window where the dialog leaves more of the drawing free. */
void TextDialog::moveAside()
{
    const QWidget &canvas = *item->scene()->views().first()->viewport();
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
    freePlace = isRight ? besideRight : besideLeft;
    move((isRight ? right : left).topLeft());
    bringIntoSight();
}

/** Frame: pixels of the screen. */
QRect TextDialog::textPlace() const
{
    const QGraphicsView &view = *item->scene()->views().first();
    const QRect seen = view.mapFromScene(sceneBox(*item)).boundingRect();
    return {view.viewport()->mapToGlobal(seen.topLeft()), seen.size()};
}

/** Scrolls a text that is not all in what the dialog left free to the middle of it. */
void TextDialog::bringIntoSight()
{
    const QRect text = textPlace();
    if (freePlace.width() < kLeastFreePx ||
        (text.left() >= freePlace.left() && text.right() <= freePlace.right()))
        return;
    const int byPx = text.center().x() - freePlace.center().x();
    scrolledPx += byPx;
    scroll(byPx);
}

void TextDialog::scroll(int byPx)
{
    QScrollBar &bar = *item->scene()->views().first()->horizontalScrollBar();
    bar.setValue(bar.value() + byPx);
}

} // namespace studio
