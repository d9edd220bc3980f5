#include <hostkit/setup/ProcessState.h>

namespace hostkit {

ProcessState ProcessState::now()
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    ProcessState state;
    state.m_width = coord.getWidth();
    state.m_height = coord.getHeight();
    state.m_physicalWidth = coord.getPhysicalWidth();
    state.m_physicalHeight = coord.getPhysicalHeight();
    state.m_displayRatio = coord.getDisplayRatio();
    state.m_distance = coord.getDistance();
    state.m_toleranceMm = ZTCurveTolerance::toleranceMm();
    state.m_sortKind = ZTPointSort::getInstance()->getShapeMarkSort();
    for (const std::string &name : ZTShxFontManager::loadedFonts())
        state.m_fontHeights.push_back({name, ZTShxFontManager::getFont(name, 1)->getTextHeight()});
    return state;
}

void ProcessState::apply() const
{
    ZTCoord &coord = *ZTCoord::getInstance();
    coord.setWidth(m_width);
    coord.setHeight(m_height);
    coord.setPhysicalWidth(m_physicalWidth);
    coord.setPhysicalHeight(m_physicalHeight);
    coord.setDisplayRatio(m_displayRatio);
    coord.setDistance(m_distance);
    ZTCurveTolerance::setToleranceMm(m_toleranceMm);
    ZTPointSort::getInstance()->setShapeMarkSort(m_sortKind);
    for (const FontHeight &font : m_fontHeights) {
        if (ZTShxFontManager::hasFont(font.fileName))
            ZTShxFontManager::getFont(font.fileName, 1)->setTextHeight(font.height);
    }
}

} // namespace hostkit
