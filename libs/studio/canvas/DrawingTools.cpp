#include <studio/canvas/DrawingTools.h>

#include <studio/canvas/PointerLabel.h>
#include <studio/canvas/ToolCursor.h>
#include <studio/canvas/ToolPreview.h>
#include <studio/choices/Units.h>
#include <studio/edit/DocumentActions.h>
#include <studio/shapes/ShapeKinds.h>
#include <studio/shapes/ShapePlace.h>
#include <studio/text/StrokeFonts.h>

#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstring>

namespace studio {

namespace {

/** The kind that a tool draws; null for selecting. */
const ShapeKind *kindOfTool(const QByteArray &id)
{
    if (id == DrawingTools::kMeasure)
        return &shapeKind(ShapeType::Line);
    const QVector<ShapeKind> &kinds = shapeKinds();
    const auto found = std::find_if(kinds.begin(), kinds.end(), [&id](const ShapeKind &kind) {
        return *kind.tool != '\0' && id == kind.tool;
    });
    return found != kinds.end() ? &*found : nullptr;
}

/** The keys that are held once this event has happened; the event tells what was held before. */
Qt::KeyboardModifiers keysAfter(const QKeyEvent &event)
{
    Qt::KeyboardModifier changed = Qt::NoModifier;
    if (event.key() == Qt::Key_Shift)
        changed = Qt::ShiftModifier;
    else if (event.key() == Qt::Key_Alt)
        changed = Qt::AltModifier;
    else if (event.key() == Qt::Key_Control)
        changed = Qt::ControlModifier;
    Qt::KeyboardModifiers keys = event.modifiers();
    return keys.setFlag(changed, event.type() == QEvent::KeyPress);
}

bool isModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_Control;
}

QString lengthText(double lengthPx)
{
    return units::number(ZTCoord::getInstance()->pix2mm(lengthPx));
}

} // namespace

DrawingTools::DrawingTools(ZTGraphicsDocument &document, DocumentActions &actions, QObject *parent)
    : QObject(parent), m_document(document), m_actions(actions),
      m_label(new PointerLabel(document.view()->viewport()))
{
    m_document.view()->installEventFilter(this);
    m_document.view()->viewport()->installEventFilter(this);
}

DrawingTools::~DrawingTools() = default;

void DrawingTools::choose(const QByteArray &id)
{
    giveUp();
    const ShapeKind *kind = kindOfTool(id);
    m_sample.reset();
    if (kind != nullptr)
        m_sample.reset(ZTGraphicsItemFactory::create(ShapeType2String(kind->type)));
    m_kind = m_sample ? kind : nullptr;
    const bool isOthers = m_others.contains(id);
    m_id = m_kind != nullptr || isOthers ? id : QByteArray(kSelect);
    if (m_kind == nullptr) {
        Q_EMIT told(QString());
        Q_EMIT chosen(m_id, isOthers ? std::optional<QCursor>(toolCursor(m_others.value(id)))
                                     : std::nullopt);
        return;
    }
    if (auto *text = qobject_cast<ZTGraphicsTextItem *>(m_sample.get()))
        setUpNewText(*text);
    m_sampleTransform = m_sample->getTransformParam();
    m_sampleBoxPx = m_sample->boundingRect();
    m_document.view()->setFocus();
    Q_EMIT chosen(m_id, toolCursor(isMeasuring() ? "measure" : m_kind->icon));
    if (isMeasuring()) {
        Q_EMIT told(tr("Measure: drag from place to place. Shift keeps to steps of 15°, Esc ends"));
        return;
    }
    Q_EMIT told(isLine(*m_sample)
                    ? tr("%1: drag from end to end. Shift keeps to steps of 15°, Alt begins in "
                         "the middle, Esc gives up")
                          .arg(kindName(m_kind->type))
                    : tr("%1: drag a box, or click. Shift keeps the proportions, Alt begins in "
                         "the middle, Esc gives up")
                          .arg(kindName(m_kind->type)));
}

void DrawingTools::giveUp()
{
    m_drag.reset();
    m_preview.reset();
    if (m_label)
        m_label->hide();
    if (m_snapDone)
        m_snapDone();
}

bool DrawingTools::eventFilter(QObject *watched, QEvent *event)
{
    if (m_kind == nullptr)
        return QObject::eventFilter(watched, event);
    const bool isTaken = watched == m_document.view() ? viewEvent(event) : viewportEvent(event);
    return isTaken || QObject::eventFilter(watched, event);
}

bool DrawingTools::viewEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        // Esc is a command's, and Alt would open the menus.
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isOurs =
            key->key() == Qt::Key_Escape || (m_drag.has_value() && key->key() == Qt::Key_Alt);
        if (isOurs)
            event->accept();
        return isOurs;
    }
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return keyEvent(*static_cast<QKeyEvent *>(event));
    case QEvent::FocusOut:
        giveUp();
        return false;
    default:
        return false;
    }
}

bool DrawingTools::keyEvent(QKeyEvent &event)
{
    if (event.key() == Qt::Key_Escape && event.type() == QEvent::KeyPress) {
        if (m_drag)
            giveUp();
        else
            choose(kSelect);
        return true;
    }
    if (!m_drag || !isModifier(event.key()))
        return false;
    readKeys(keysAfter(event), &*m_drag);
    showDrag();
    return true;
}

bool DrawingTools::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return move(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return release(*static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

QPointF DrawingTools::placeOf(const QMouseEvent &event) const
{
    const QTransform toScene = m_document.view()->viewportTransform().inverted();
    const QPointF placePx = toScene.map(event.localPos());
    return m_snap ? m_snap(placePx, event.modifiers()) : placePx;
}

bool DrawingTools::press(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || m_drag) {
        const bool wasDragging = m_drag.has_value();
        giveUp();
        return wasDragging;
    }
    m_pressPos = m_pos = event.pos();
    m_isDragged = false;
    m_drag = ToolDrag();
    m_drag->fromPx = m_drag->toPx = placeOf(event);
    if (!m_sampleBoxPx.isEmpty())
        m_drag->proportions = m_sampleBoxPx.size();
    readKeys(event.modifiers(), &*m_drag);
    m_preview.reset();
    m_label->hide();
    m_preview = std::make_unique<ToolPreview>(*m_document.scene());
    return true;
}

bool DrawingTools::move(const QMouseEvent &event)
{
    if (!m_drag) {
        // Nothing below the mouse may set a cursor of its own.
        return event.buttons() == Qt::NoButton;
    }
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        giveUp(); // the release went to somebody else
        return true;
    }
    dragTo(event.pos(), placeOf(event), event.modifiers());
    return true;
}

bool DrawingTools::release(const QMouseEvent &event)
{
    if (!m_drag || event.button() != Qt::LeftButton)
        return m_drag.has_value();
    dragTo(event.pos(), placeOf(event), event.modifiers());
    finish();
    return true;
}

void DrawingTools::dragTo(const QPoint &pos, const QPointF &placePx, Qt::KeyboardModifiers keys)
{
    m_pos = pos;
    if ((pos - m_pressPos).manhattanLength() >= QApplication::startDragDistance())
        m_isDragged = true;
    m_drag->toPx = placePx;
    readKeys(keys, &*m_drag);
    showDrag();
}

ShapePlace DrawingTools::placeOfDrag() const
{
    ShapePlace place;
    if (!m_isDragged) {
        place.boxPx.moveTopLeft(m_drag->fromPx);
        if (m_drag->isFromCentre) {
            const QSizeF usual = m_sampleBoxPx.size();
            place.boxPx.moveTopLeft(m_drag->fromPx -
                                    QPointF(usual.width() / 2, usual.height() / 2));
        }
    } else if (isLine(*m_sample)) {
        place.linePx = draggedLine(*m_drag);
    } else {
        place.boxPx = draggedBox(*m_drag);
    }
    return place;
}

void DrawingTools::showDrag()
{
    if (!m_isDragged)
        return;
    const ShapePlace place = placeOfDrag();
    QPainterPath outlinePx;
    if (place.linePx) {
        outlinePx.moveTo(place.linePx->p1());
        outlinePx.lineTo(place.linePx->p2());
    } else if (!place.boxPx.isEmpty()) {
        m_sample->setTransformParam(m_sampleTransform);
        placeShape(*m_sample, place);
        outlinePx = m_sample->getShapeBase()->getLines().translated(m_sample->pos());
    }
    m_preview->showOutline(outlinePx);
    const QString measure = measureOf(place);
    m_label->tell(measure, m_pos);
    Q_EMIT told(measure);
}

QString DrawingTools::measureOf(const ShapePlace &place) const
{
    if (place.linePx) {
        double angleDeg = place.linePx->angle();
        if (angleDeg >= 359.9995)
            angleDeg = 0.0;
        QString measure = tr("%1 %2, %3°")
                              .arg(lengthText(place.linePx->length()), units::name(),
                                   QString::number(angleDeg, 'f', 3));
        if (!isMeasuring())
            return measure;
        const QString across = lengthText(place.linePx->dx());
        const QString down = lengthText(units::isYUp() ? -place.linePx->dy() : place.linePx->dy());
        return (units::isYUp() ? tr("%1; across %2, up %3 %4") : tr("%1; across %2, down %3 %4"))
            .arg(measure, across, down, units::name());
    }
    const QSizeF sizePx = place.boxPx.isEmpty() ? place.boxPx.size() : sceneBox(*m_sample).size();
    return tr("%1 × %2 %3")
        .arg(lengthText(sizePx.width()), lengthText(sizePx.height()), units::name());
}

void DrawingTools::finish()
{
    if (isMeasuring()) {
        // What was measured stays in sight until the next press.
        if (!m_isDragged) {
            giveUp();
            return;
        }
        m_drag.reset();
        if (m_snapDone)
            m_snapDone();
        Q_EMIT told(m_label->text());
        return;
    }
    const ShapePlace place = placeOfDrag();
    const bool hasNoExtent = m_isDragged && !place.linePx && place.boxPx.isEmpty();
    giveUp();
    if (hasNoExtent) {
        Q_EMIT told(tr("A shape needs a width and a height: drag a box"));
        return;
    }
    const ShapeType type = m_kind->type;
    const QByteArray tool = m_id;
    choose(kSelect);
    m_actions.draw(type, place);
    if (m_isToolKept)
        choose(tool);
}

} // namespace studio
