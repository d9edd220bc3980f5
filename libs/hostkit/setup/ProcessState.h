#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <string>
#include <vector>

namespace hostkit {

/**
 * What all documents of a process share: the figures of `ZTCoord`, the sort kind of `ZTPointSort`
 * and the heights of the loaded stroke fonts.
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

    double width = 0.0;
    double height = 0.0;
    double physicalWidth = 0.0;
    double physicalHeight = 0.0;
    double displayRatio = 0.0;
    double distance = 0.0;
    EShapeSortType sortKind = EShapeSortType::ShapeSortNone;
    std::vector<FontHeight> fontHeights;
};

/** Puts the process's state back as it was when the guard was made, however its scope is left. */
class ProcessStateGuard
{
public:
    ProcessStateGuard() : former(ProcessState::now()) {}
    ~ProcessStateGuard() { former.apply(); }
    ProcessStateGuard(const ProcessStateGuard &) = delete;
    ProcessStateGuard &operator=(const ProcessStateGuard &) = delete;

private:
    const ProcessState former;
};

} // namespace hostkit
