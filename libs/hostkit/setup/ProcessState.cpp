#include <hostkit/setup/ProcessState.h>

namespace hostkit {

ProcessState ProcessState::now()
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    ProcessState state;
    state.width = coord.getWidth();
    state.height = coord.getHeight();
    state.physicalWidth = coord.getPhysicalWidth();
    state.physicalHeight = coord.getPhysicalHeight();
    state.displayRatio = coord.getDisplayRatio();
    state.distance = coord.getDistance();
    state.sortKind = ZTPointSort::getInstance()->getShapeMarkSort();
    for (const std::string &name : ZTShxFontManager::loadedFonts())
        state.fontHeights.push_back({name, ZTShxFontManager::getFont(name, 1)->getTextHeight()});
    return state;
}

void ProcessState::apply() const
{
    ZTCoord &coord = *ZTCoord::getInstance();
    coord.setWidth(width);
    coord.setHeight(height);
    coord.setPhysicalWidth(physicalWidth);
    coord.setPhysicalHeight(physicalHeight);
    coord.setDisplayRatio(displayRatio);
    coord.setDistance(distance);
    ZTPointSort::getInstance()->setShapeMarkSort(sortKind);
    for (const FontHeight &font : fontHeights) {
        if (ZTShxFontManager::hasFont(font.fileName))
            ZTShxFontManager::getFont(font.fileName, 1)->setTextHeight(font.height);
    }
}

} // namespace hostkit
