#pragma once

#include <QtCore/QByteArray>

class ZTGraphicsDocument;

namespace hostkit {

/** A PNG of the whole drawing, its longer side 256 pixels; empty for a drawing without extent. */
QByteArray drawPreview(const ZTGraphicsDocument &document);

} // namespace hostkit
