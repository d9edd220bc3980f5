#include <ZTDrawEngineLib/items/ZTGraphicsItemFactory.h>

#include <map>
#include <utility>

namespace {

std::map<std::string, Factory *> &registry()
{
    static std::map<std::string, Factory *> factories;
    return factories;
}

} // namespace

bool ZTGraphicsItemFactory::regist(std::string name, Factory *factory)
{
    return registry().emplace(std::move(name), factory).second;
}

ZTAbstractGraphicsItem *ZTGraphicsItemFactory::create(std::string name)
{
    const auto found = registry().find(name);
    const bool isUsable = found != registry().end() && found->second != nullptr;
    return isUsable ? found->second->create() : nullptr;
}
