#include <hostkit/items/MarkReadiness.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

MarkReadiness::~MarkReadiness() = default;

QString notReadyReason(const ZTAbstractGraphicsItem &item)
{
    const auto *shape = dynamic_cast<const MarkReadiness *>(item.getShapeBase());
    return shape != nullptr ? shape->notReadyReason() : QString();
}

} // namespace hostkit
