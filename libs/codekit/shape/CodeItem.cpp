#include <codekit/shape/CodeItem.h>

#include <codekit/shape/CodeOverlay_p.h>

#include <hostkit/items/HatchedShape.h>

#include <QtGui/QPainter>

#include <cmath>

namespace codekit {

namespace {

/** Makes codes of a kind; its singletons live as long as the process. */
class CodeItemFactory : public Factory
{
public:
    explicit CodeItemFactory(CodeKind kind) : m_kind(kind) {}

    ZTAbstractGraphicsItem *create() override { return new CodeItem(m_kind); }

private:
    CodeKind m_kind;
};

/** The four corners of a rectangle as a shape with this transform shows it. */
QPolygonF shownPx(const QRectF &rectMm, const QTransform &transform)
{
    const QTransform toPx = transform * ZTCoord::getInstance()->getMm2pixTransform();
    return toPx.map(QPolygonF(QVector<QPointF>{rectMm.topLeft(), rectMm.topRight(),
                                               rectMm.bottomRight(), rectMm.bottomLeft()}));
}

} // namespace

CodeItem::CodeItem(CodeKind kind)
    : m_code(new hostkit::HatchedShape<CodeShape>(*this, kind)), m_overlay(new CodeOverlay(this))
{
    shape = m_code;
    shapeType = shapeTypeOf(kind);
}

CodeItem::~CodeItem()
{
    m_code = nullptr; // the base deletes the shape
}

void CodeItem::copy(ZTAbstractGraphicsItem *source)
{
    const auto *copied =
        source != nullptr ? dynamic_cast<const CodeShape *>(source->getShapeBase()) : nullptr;
    if (copied == nullptr)
        return;
    auto *copy = new hostkit::HatchedShape<CodeShape>(
        *this, *copied); // first: an item may be copied onto itself
    replaceShape(copy);
    m_code = copy;
    shapeType = m_code->getShapeType();
    rebuildShape();
    followShape();
}

bool CodeItem::load(QDataStream &stream)
{
    ZTAbstractGraphicsTextItem::load(stream);
    shapeType = shapeTypeOf(settings().spec.kind);
    followShape();
    return true;
}

void CodeItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    if (m_code->isUpdate()) {
        m_code->paint();
        noteChangedGeometry();
    }
    if (!hostkit::paintHatchPens(*painter, *this))
        ZTAbstractGraphicsTextItem::paint(painter, option, widget);
}

QString CodeItem::text() const { return m_code->text(); }

void CodeItem::setText(const QString &text)
{
    if (text == m_code->text())
        return;
    prepareGeometryChange();
    m_code->setText(text);
    followShape();
}

void CodeItem::setSettings(const CodeSettings &settings) { setCode(settings, text()); }

void CodeItem::setCode(const CodeSettings &settings, const QString &content)
{
    prepareGeometryChange();
    m_code->setCode(settings, content);
    shapeType = m_code->getShapeType();
    followShape();
}

double CodeItem::moduleMm() const
{
    const QTransform &transform = m_code->getTransformParam();
    return m_code->symbol().columns > 0
               ? m_code->form().moduleMm * std::hypot(transform.m11(), transform.m12())
               : 0.0;
}

void CodeItem::setTransformParam(const QTransform &transform)
{
    ZTAbstractGraphicsTextItem::setTransformParam(transform);
    followShape();
}

void CodeItem::scale(double x, double y)
{
    ZTAbstractGraphicsTextItem::scale(x, y);
    followShape();
}

// A loader gives the shape what its record lacks before the item comes into a scene.
QVariant CodeItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSceneHasChanged)
        followShape();
    return ZTAbstractGraphicsTextItem::itemChange(change, value);
}

/** Brings frame, overlay and tool tip to what the shape has become. */
void CodeItem::followShape()
{
    m_code->paint();
    const QTransform &transform = m_code->getTransformParam();
    const QString reason = m_code->notReadyReason();
    const bool hasCode = m_code->symbol().columns > 0;
    m_overlay->show(settings().showsQuietZone && hasCode ? shownPx(m_code->fieldMm(), transform)
                                                         : QPolygonF(),
                    reason.isEmpty() ? QPolygonF() : shownPx(m_code->getRect(), transform));
    setToolTip(reason);
    updateResizeItem();
    update();
}

CodeItem *codeItem(ZTAbstractGraphicsItem *item) { return qobject_cast<CodeItem *>(item); }

const CodeItem *codeItem(const ZTAbstractGraphicsItem *item)
{
    return qobject_cast<const CodeItem *>(item);
}

void registerCodeFactories()
{
    static CodeItemFactory squares(CodeKind::DataMatrix);
    static CodeItemFactory bars(CodeKind::Code128);
    // The first factory under a name stays, so a second call is harmless.
    ZTGraphicsItemFactory::regist(ShapeType2String(ShapeType::QRCode), &squares);
    ZTGraphicsItemFactory::regist(ShapeType2String(ShapeType::BarCode), &bars);
}

} // namespace codekit
