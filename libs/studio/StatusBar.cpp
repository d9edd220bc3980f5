#include <studio/StatusBar.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QMouseEvent>
#include <QtWidgets/QLabel>

namespace studio {

namespace {

constexpr int kRefreshMs = 33;

/** A length for reading: at most three decimals, never "-0.000". */
QString mmText(double lengthPx)
{
    double lengthMm = ZTCoord::getInstance()->pix2mm(lengthPx);
    if (qAbs(lengthMm) < 0.0005)
        lengthMm = 0.0;
    return QString::number(lengthMm, 'f', 3);
}

/** Explains a field, and gives it room for its widest text. */
void label(QLabel &field, const QString &widestText, const QString &toolTip)
{
    field.setToolTip(toolTip);
    field.setMinimumWidth(field.fontMetrics().horizontalAdvance(widestText));
}

} // namespace

StatusBar::StatusBar(ZTGraphicsDocument &shown, QWidget *parent)
    : QStatusBar(parent), document(shown)
{
    cursorField = addField(QStringLiteral("cursorField"));
    boxField = addField(QStringLiteral("boxField"));
    countField = addField(QStringLiteral("countField"));
    zoomField = addField(QStringLiteral("zoomField"));
    retranslate();
    refreshTimer.setSingleShot(true);
    refreshTimer.setInterval(kRefreshMs);
    connect(&refreshTimer, &QTimer::timeout, this, &StatusBar::refresh);
    connectDocument();
    showZoom(document.view()->getDisplayScale());
    refresh();
}

QLabel *StatusBar::addField(const QString &name)
{
    auto *field = new QLabel(this);
    field->setObjectName(name);
    addPermanentWidget(field);
    return field;
}

void StatusBar::retranslate()
{
    const QString widest = QStringLiteral("-9999.999");
    label(*cursorField, tr("X %1  Y %2 mm").arg(widest, widest),
          tr("Place of the mouse, y downward"));
    const QString wide = QStringLiteral("-999.999");
    label(*boxField, tr("Selection X %1  Y %2  W %3  H %4 mm").arg(wide, wide, wide, wide),
          tr("Top left corner and size of the selection's box"));
    label(*countField, tr("%1 of %2 selected").arg(99999).arg(99999),
          tr("Selected shapes, and all shapes"));
    label(*zoomField, tr("%1 %").arg(2400), tr("Zoom; Ctrl and the wheel change it"));
}

void StatusBar::changeEvent(QEvent *event)
{
    QStatusBar::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    showZoom(document.view()->getDisplayScale());
    refresh();
}

void StatusBar::connectDocument()
{
    const ZTGraphicsScene *scene = document.scene();
    connect(scene, &QGraphicsScene::selectionChanged, this, &StatusBar::showSelection);
    const QAbstractItemModel *rows = document.itemMag()->itemModel();
    connect(rows, &QAbstractItemModel::rowsInserted, this, &StatusBar::refreshLater);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &StatusBar::refreshLater);
    connect(rows, &QAbstractItemModel::modelReset, this, &StatusBar::refreshLater);
    if (const ZTGraphicsResizeItem *frame = scene->getGraphicsResizeItem()) {
        connect(frame, &ZTGraphicsResizeItem::sigPosChanged, this, &StatusBar::refreshLater);
        connect(frame, &ZTGraphicsResizeItem::sigSizeChanged, this, &StatusBar::refreshLater);
    }
    document.view()->viewport()->installEventFilter(this);
}

bool StatusBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseMove) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const QTransform toScene = document.view()->viewportTransform().inverted();
        showCursorAt(toScene.map(mouse->localPos()));
    }
    return QStatusBar::eventFilter(watched, event);
}

void StatusBar::showCursorAt(const QPointF &scenePx)
{
    cursorField->setText(tr("X %1  Y %2 mm").arg(mmText(scenePx.x()), mmText(scenePx.y())));
}

void StatusBar::showZoom(double scale) { zoomField->setText(tr("%1 %").arg(qRound(scale * 100))); }

void StatusBar::showSelection()
{
    selectedCount = document.scene()->selectedItems().size();
    refreshLater();
}

void StatusBar::refreshLater()
{
    if (!refreshTimer.isActive())
        refreshTimer.start();
}

void StatusBar::refresh()
{
    const ZTGraphicsResizeItem *frame = document.scene()->getGraphicsResizeItem();
    if (frame == nullptr || selectedCount == 0) {
        boxField->setText(tr("Nothing selected"));
    } else {
        const QRectF boxPx = frame->rect().translated(frame->pos());
        boxField->setText(tr("Selection X %1  Y %2  W %3  H %4 mm")
                              .arg(mmText(boxPx.x()), mmText(boxPx.y()), mmText(boxPx.width()),
                                   mmText(boxPx.height())));
    }
    countField->setText(tr("%1 of %2 selected")
                            .arg(selectedCount)
                            .arg(document.itemMag()->itemModel()->rowCount()));
}

} // namespace studio
