#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <string>
#include <vector>

namespace hostkit {

/**
 * What all documents of a process share: the figures of `ZTCoord`, the sort kind of `ZTPointSort`,
 * the tolerance of curves and the heights of the loaded stroke fonts.
 *
 * Frame: the figures as `ZTCoord` names them; heights in font drawing units.
 */
class ProcessState
{
public:
    /** What holds now. Loads no font. Order: GUI thread. */
    static ProcessState now();

    /** Makes it hold again. Fonts that were loaded since then keep their heights. */
    void apply() const;

private:
    struct FontHeight
    {
        std::string fileName;
        double height;
    };

    double m_width = 0.0;
    double m_height = 0.0;
    double m_physicalWidth = 0.0;
    double m_physicalHeight = 0.0;
    double m_displayRatio = 0.0;
    double m_distance = 0.0;
    double m_toleranceMm = 0.0;
    EShapeSortType m_sortKind = EShapeSortType::ShapeSortNone;
    std::vector<FontHeight> m_fontHeights;
};

/** Puts the process's state back as it was when the guard was made, however its scope is left. */
class ProcessStateGuard
{
public:
    ProcessStateGuard() : m_former(ProcessState::now()) {}
    ~ProcessStateGuard() { m_former.apply(); }
    ProcessStateGuard(const ProcessStateGuard &) = delete;
    ProcessStateGuard &operator=(const ProcessStateGuard &) = delete;

private:
    const ProcessState m_former;
};

} // namespace hostkit
