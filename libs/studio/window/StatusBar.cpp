#include <studio/window/StatusBar.h>

#include <studio/choices/Units.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QMouseEvent>
#include <QtWidgets/QLabel>

namespace studio {

namespace {

constexpr int kRefreshMs = 33;
constexpr int kWordCharacters = 30;
constexpr int kFieldGapPx = 8;

/** A length for reading. */
QString lengthText(double lengthPx)
{
    return units::number(ZTCoord::getInstance()->pix2mm(lengthPx));
}

/** A place down the scene as people count it. */
QString downText(double yPx)
{
    return units::number(units::y(ZTCoord::getInstance()->pix2mm(yPx)));
}

/** Explains a field, and gives it room for its widest text. */
void label(QLabel &field, const QString &widestText, const QString &toolTip)
{
    field.setToolTip(toolTip);
    field.setMinimumWidth(field.fontMetrics().horizontalAdvance(widestText));
}

} // namespace

StatusBar::StatusBar(ZTGraphicsDocument &shown, QWidget *parent)
    : QStatusBar(parent), m_document(shown)
{
    m_cursorField = addField(QStringLiteral("cursorField"));
    m_boxField = addField(QStringLiteral("boxField"));
    m_countField = addField(QStringLiteral("countField"));
    m_zoomField = addField(QStringLiteral("zoomField"));
    retranslate();
    if (parent != nullptr)
        parent->installEventFilter(this);
    // Whoever clears the bar, or lets it run out, means the words, too.
    connect(this, &QStatusBar::messageChanged, this, [this](const QString &now) {
        if (now.isEmpty() && m_tip.isEmpty())
            m_words.clear();
    });
    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(kRefreshMs);
    connect(&m_refreshTimer, &QTimer::timeout, this, &StatusBar::refresh);
    connectDocument();
    showZoom(m_document.view()->getDisplayScale());
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
    label(*m_cursorField, tr("X %1  Y %2 %3").arg(widest, widest, units::name()),
          units::isYUp() ? tr("Place of the mouse, y upward")
                         : tr("Place of the mouse, y downward"));
    const QString wide = QStringLiteral("-999.999");
    label(*m_boxField,
          tr("Selection X %1  Y %2  W %3  H %4 %5").arg(wide, wide, wide, wide, units::name()),
          tr("Top left corner and size of the selection's box"));
    label(*m_countField, tr("%1 of %2 selected").arg(99999).arg(99999),
          tr("Selected shapes, and all shapes"));
    label(*m_zoomField, tr("%1 %").arg(2400), tr("Zoom; Ctrl and the wheel change it"));
    showWhatFits();
}

/** Room for its fields is no reason to keep the window wider than a screen. */
QSize StatusBar::minimumSizeHint() const { return {0, QStatusBar::minimumSizeHint().height()}; }

void StatusBar::resizeEvent(QResizeEvent *event)
{
    QStatusBar::resizeEvent(event);
    showWhatFits();
}

/** Leaves room for words: first the count goes, which the panel tells, too, then the mouse. */
void StatusBar::showWhatFits()
{
    const int wordsPx = kWordCharacters * fontMetrics().averageCharWidth();
    int roomPx = width() - wordsPx;
    for (QLabel *field : {m_zoomField, m_boxField, m_cursorField, m_countField}) {
        roomPx -= field->minimumWidth() + kFieldGapPx;
        field->setVisible(roomPx >= 0 || field == m_zoomField || field == m_boxField);
    }
}

void StatusBar::changeEvent(QEvent *event)
{
    QStatusBar::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    showZoom(m_document.view()->getDisplayScale());
    refresh();
}

void StatusBar::connectDocument()
{
    const ZTGraphicsScene *scene = m_document.scene();
    connect(scene, &QGraphicsScene::selectionChanged, this, &StatusBar::showSelection);
    const QAbstractItemModel *rows = m_document.itemMag()->itemModel();
    connect(rows, &QAbstractItemModel::rowsInserted, this, &StatusBar::refreshLater);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &StatusBar::refreshLater);
    connect(rows, &QAbstractItemModel::modelReset, this, &StatusBar::refreshLater);
    if (const ZTGraphicsResizeItem *frame = scene->getGraphicsResizeItem()) {
        connect(frame, &ZTGraphicsResizeItem::sigPosChanged, this, &StatusBar::refreshLater);
        connect(frame, &ZTGraphicsResizeItem::sigSizeChanged, this, &StatusBar::refreshLater);
    }
    m_document.view()->viewport()->installEventFilter(this);
}

void StatusBar::showMessage(const QString &words, int forMs)
{
    m_words = words;
    m_wordsEnd = forMs > 0 ? QDeadlineTimer(forMs) : QDeadlineTimer(QDeadlineTimer::Forever);
    m_tip.clear();
    QStatusBar::showMessage(words, forMs);
}

void StatusBar::takeBack(const QString &words)
{
    if (m_words != words)
        return;
    m_words.clear();
    if (m_tip.isEmpty())
        clearMessage();
}

void StatusBar::showTip(const QString &tip)
{
    const bool hasStood = !m_tip.isEmpty();
    m_tip = tip;
    if (!tip.isEmpty()) {
        QStatusBar::showMessage(tip);
    } else if (hasStood) {
        const int leftMs = static_cast<int>(qMax<qint64>(0, m_wordsEnd.remainingTime()));
        const bool isOver = m_words.isEmpty() || m_wordsEnd.hasExpired();
        isOver ? clearMessage() : QStatusBar::showMessage(m_words, leftMs);
    }
}

bool StatusBar::eventFilter(QObject *watched, QEvent *event)
{
    // Before the window, which would clear the bar when the mouse leaves a command.
    if (event->type() == QEvent::StatusTip && watched == parent()) {
        showTip(static_cast<QStatusTipEvent *>(event)->tip());
        return true;
    }
    if (event->type() == QEvent::MouseMove) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const QTransform toScene = m_document.view()->viewportTransform().inverted();
        showCursorAt(toScene.map(mouse->localPos()));
    }
    return QStatusBar::eventFilter(watched, event);
}

void StatusBar::showCursorAt(const QPointF &scenePx)
{
    m_cursorField->setText(
        tr("X %1  Y %2 %3").arg(lengthText(scenePx.x()), downText(scenePx.y()), units::name()));
}

void StatusBar::showZoom(double scale)
{
    m_zoomField->setText(tr("%1 %").arg(qRound(scale * 100)));
}

void StatusBar::showSelection()
{
    const ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    m_selectedCount = frame != nullptr ? frame->selectItem().size() : 0;
    refreshLater();
}

void StatusBar::refreshLater()
{
    if (!m_refreshTimer.isActive())
        m_refreshTimer.start();
}

void StatusBar::refresh()
{
    const ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    if (frame == nullptr || m_selectedCount == 0) {
        m_boxField->setText(tr("Nothing selected"));
    } else {
        const QRectF boxPx = frame->rect().translated(frame->pos());
        m_boxField->setText(tr("Selection X %1  Y %2  W %3  H %4 %5")
                                .arg(lengthText(boxPx.x()), downText(boxPx.y()),
                                     lengthText(boxPx.width()), lengthText(boxPx.height()),
                                     units::name()));
    }
    m_countField->setText(tr("%1 of %2 selected")
                              .arg(m_selectedCount)
                              .arg(m_document.itemMag()->itemModel()->rowCount()));
}

} // namespace studio
