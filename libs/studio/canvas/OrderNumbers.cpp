#include <studio/canvas/OrderNumbers.h>

#include <studio/shapes/ShapeItems.h>

#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkOrder.h>

#include <QtGui/QPainter>
#include <QtWidgets/QUndoStack>

#include <limits>
#include <numeric>
#include <vector>

namespace studio {

namespace {

constexpr double kAboveAll = 1e6;
constexpr int kFollowMs = 50;
constexpr int kLetterPx = 11;
constexpr double kRoomPx = 3.0;
const QColor kPaper(0x20, 0x2a, 0x36, 0xd0);

/** The places in the list of marked shapes, in the order of marking. */
std::vector<int> orderOf(const ZTGraphicsDocument &document, const hostkit::MarkItems &items)
{
    std::vector<int> asListed(static_cast<std::size_t>(items.size()));
    std::iota(asListed.begin(), asListed.end(), 0);
    if (ZTPointSort::getInstance()->getShapeMarkSort() == EShapeSortType::ShapeSortNone)
        return asListed; // no mark paths are needed to know it
    hostkit::MarkGraphBuilder builder(document, items);
    builder.work(std::numeric_limits<int>::max());
    return hostkit::markOrder(builder.takeUnordered());
}

} // namespace

OrderNumbers::OrderNumbers(ZTGraphicsDocument &document) : m_document(document)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(kAboveAll);
    setVisible(false);
    ZTGraphicsScene *scene = document.scene();
    scene->addItem(this);
    if (ZTGraphicsResizeItem *frame = scene->getGraphicsResizeItem()) {
        stackBefore(frame);
        connect(frame, &ZTGraphicsResizeItem::sigPosChanged, this, &OrderNumbers::followSoon);
        connect(frame, &ZTGraphicsResizeItem::sigSizeChanged, this, &OrderNumbers::followSoon);
    }
    m_timer.setSingleShot(true);
    m_timer.setInterval(kFollowMs);
    connect(&m_timer, &QTimer::timeout, this, &OrderNumbers::follow);
    connect(document.undoStack(), &QUndoStack::indexChanged, this, &OrderNumbers::followSoon);
    const QAbstractItemModel *rows = document.itemMag()->itemModel();
    connect(rows, &QAbstractItemModel::rowsInserted, this, &OrderNumbers::followSoon);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &OrderNumbers::followSoon);
    connect(rows, &QAbstractItemModel::modelReset, this, &OrderNumbers::followSoon);
}

void OrderNumbers::setShown(bool isShown)
{
    setVisible(isShown);
    if (isShown)
        follow();
}

void OrderNumbers::followSoon()
{
    if (isVisible() && !m_timer.isActive())
        m_timer.start();
}

void OrderNumbers::follow()
{
    prepareGeometryChange();
    m_numbers.clear();
    m_boxPx = QRectF();
    const hostkit::MarkItems items = hostkit::markedItems(m_document);
    if (!isVisible() || items.size() > kMost)
        return;
    int number = 0;
    for (const int place : orderOf(m_document, items)) {
        const QPointF placePx = sceneBox(*items.at(place)).topLeft();
        m_numbers.append({placePx, ++number});
        m_boxPx |= QRectF(placePx, QSizeF(1.0, 1.0));
    }
    // Letters keep their size on the screen: at the least zoom they reach far.
    m_boxPx.adjust(-1000.0, -1000.0, 1000.0, 1000.0);
    update();
}

void OrderNumbers::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->save(); // the view does not do it for its items
    const QTransform toScreen = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    QFont letters = painter->font();
    letters.setPixelSize(kLetterPx);
    painter->setFont(letters);
    const QFontMetricsF metrics(letters);
    for (const Number &one : qAsConst(m_numbers)) {
        const QString text = QString::number(one.number);
        QRectF label(0.0, 0.0, metrics.horizontalAdvance(text) + 2 * kRoomPx, metrics.height());
        label.moveBottomLeft(toScreen.map(one.placePx));
        painter->fillRect(label, kPaper);
        painter->setPen(Qt::white);
        painter->drawText(label, Qt::AlignCenter, text);
    }
    painter->restore();
}

} // namespace studio
