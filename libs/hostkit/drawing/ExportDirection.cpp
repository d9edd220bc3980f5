#include <hostkit/drawing/ExportDirection.h>

#include <hostkit/drawing/DrawingExtras.h>

namespace hostkit {

namespace {

const QByteArray kField = QByteArrayLiteral("exportYUp");
const QByteArray kUpward(1, '\1');

} // namespace

bool exportsYUp(const ZTGraphicsDocument &document)
{
    return drawingExtras(document).fields.value(kField) == kUpward;
}

void setExportsYUp(ZTGraphicsDocument &document, bool isYUp)
{
    if (isYUp == exportsYUp(document))
        return;
    DrawingExtras extras = drawingExtras(document);
    if (isYUp)
        extras.fields.insert(kField, kUpward);
    else
        extras.fields.remove(kField);
    setDrawingExtras(document, extras);
}

} // namespace hostkit
