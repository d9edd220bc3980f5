#include <hostkit/drawing/DrawingExtras.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QVariant>

namespace hostkit {

namespace {

constexpr char kProperty[] = "hostkitDrawingExtras";

} // namespace

DrawingExtras drawingExtras(const ZTGraphicsDocument &document)
{
    return document.property(kProperty).value<DrawingExtras>();
}

void setDrawingExtras(ZTGraphicsDocument &document, const DrawingExtras &extras)
{
    document.setProperty(kProperty, QVariant::fromValue(extras));
}

void clearDrawing(ZTGraphicsDocument &document)
{
    document.clear();
    setDrawingExtras(document, {});
}

} // namespace hostkit
