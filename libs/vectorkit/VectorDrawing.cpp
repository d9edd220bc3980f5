#include <vectorkit/VectorDrawing.h>

namespace vectorkit {

int VectorDrawing::shapeCount() const
{
    int count = 0;
    for (const VectorLayer &layer : layers)
        count += layer.shapes.size();
    return count;
}

int VectorDrawing::pathCount() const
{
    int count = 0;
    for (const VectorLayer &layer : layers) {
        for (const VectorShape &shape : layer.shapes)
            count += shape.paths.size();
    }
    return count;
}

int VectorDrawing::textCount() const
{
    int count = 0;
    for (const VectorLayer &layer : layers)
        count += layer.texts.size();
    return count;
}

QRectF VectorDrawing::boundsMm() const
{
    bool isFirst = true;
    QRectF bounds;
    for (const VectorLayer &layer : layers) {
        for (const VectorShape &shape : layer.shapes) {
            for (const VectorPath &path : shape.paths) {
                if (path.isEmpty())
                    continue;
                const QRectF box = path.boundsMm();
                if (isFirst) {
                    bounds = box;
                    isFirst = false;
                    continue;
                }
                // Not united(): it ignores boxes without a width or height.
                const QPointF low(qMin(bounds.left(), box.left()), qMin(bounds.top(), box.top()));
                const QPointF high(qMax(bounds.right(), box.right()),
                                   qMax(bounds.bottom(), box.bottom()));
                bounds = QRectF(low, high);
            }
        }
    }
    return bounds;
}

void VectorDrawing::note(VectorNote::Kind kind, const QString &what, const QString &where,
                         qint64 count)
{
    for (VectorNote &known : notes) {
        if (known.kind == kind && known.what == what) {
            known.count += count;
            return;
        }
    }
    notes.append({kind, what, count, where});
}

void VectorDrawing::scale(double factor)
{
    const QTransform larger = QTransform::fromScale(factor, factor);
    for (VectorLayer &layer : layers) {
        for (VectorShape &shape : layer.shapes) {
            for (VectorPath &path : shape.paths)
                path = path.transformed(larger);
            shape.strokeWidthMm *= factor;
        }
        for (VectorText &text : layer.texts) {
            text.positionMm *= factor;
            text.heightMm *= factor;
            text.lengthMm *= factor;
        }
    }
    declaredSizeMm *= factor;
    unitMm *= factor;
}

} // namespace vectorkit
