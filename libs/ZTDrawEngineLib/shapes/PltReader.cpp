#include <ZTDrawEngineLib/shapes/PltReader.h>

bool PltReader::load(const QString &) { return false; }

const QPainterPath &PltReader::getPath() const { return path; }
