#include <jobkit/marks/DrawingPens.h>

#include <jobkit/values/Material.h>

#include <hostkit/drawing/DrawingExtras.h>

namespace jobkit {

namespace {

/** Of the drawing's extras: the pens as a material without a name of its own. */
const QByteArray kPensKey = QByteArrayLiteral("pens");
const QString kMaterialName = QStringLiteral("drawing");

} // namespace

QVector<Pen> givenPens(const ZTGraphicsDocument &document, QString *error)
{
    QString problem;
    Material material;
    const QByteArray json = hostkit::drawingExtras(document).fields.value(kPensKey);
    const bool isRead = !json.isEmpty() && readMaterial(json, &material, &problem);
    if (error != nullptr)
        *error = problem;
    return isRead ? material.pens : QVector<Pen>();
}

QVector<Pen> drawingPens(const ZTGraphicsDocument &document, QString *error)
{
    const QVector<Pen> given = givenPens(document, error);
    return given.isEmpty() ? defaultPens() : given;
}

bool hasDrawingPens(const ZTGraphicsDocument &document)
{
    return hostkit::drawingExtras(document).fields.contains(kPensKey);
}

void setDrawingPens(ZTGraphicsDocument &document, const QVector<Pen> &pens)
{
    hostkit::DrawingExtras extras = hostkit::drawingExtras(document);
    if (pens.isEmpty())
        extras.fields.remove(kPensKey);
    else
        extras.fields.insert(kPensKey, writeMaterial({kMaterialName, pens}));
    hostkit::setDrawingExtras(document, extras);
}

} // namespace jobkit
