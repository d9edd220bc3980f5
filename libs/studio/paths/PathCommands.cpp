#include <studio/paths/PathCommands.h>

#include <studio/MainWindow.h>
#include <studio/paths/PathActions.h>
#include <studio/paths/PathTools.h>

namespace studio {

namespace {

template <vectorkit::OutlineOp op>
void together(MainWindow &window)
{
    window.paths().actions().takeTogether(op);
}

constexpr auto kWindow = ShortcutScope::Window;

} // namespace

// For the tool that gathers texts to translate, which takes them as texts of the namespace.
#define TEXT(text) text

// clang-format off
QVector<Command> pathCommands()
{
    using vectorkit::OutlineOp;
    return {
        {"paths.toPaths", TEXT("Turn into &paths"), "", "Ctrl+Shift+C",
         TEXT("Shapes and texts become paths, whose nodes can be edited"), Needs::Selection,
         kWindow, [](MainWindow &w) { w.paths().actions().toPaths(); }},
        {"paths.union", TEXT("&Union"), "", "Ctrl+Alt+U",
         TEXT("One area of all the selected ones"), Needs::TwoSelected, kWindow,
         &together<OutlineOp::Union>},
        {"paths.difference", TEXT("&Difference"), "", "Ctrl+Alt+D",
         TEXT("The lowest of the selected areas without the others"), Needs::TwoSelected, kWindow,
         &together<OutlineOp::Difference>},
        {"paths.intersection", TEXT("&Intersection"), "", "Ctrl+Alt+I",
         TEXT("What lies in all of the selected areas"), Needs::TwoSelected, kWindow,
         &together<OutlineOp::Intersection>},
        {"paths.exclusion", TEXT("E&xclusion"), "", "Ctrl+Alt+X",
         TEXT("What lies in one of the selected areas alone"), Needs::TwoSelected, kWindow,
         &together<OutlineOp::Exclusion>},
        {"paths.offset", TEXT("&Offset..."), "", "Ctrl+Alt+O",
         TEXT("Outlines at a distance from the selected ones"), Needs::Selection, kWindow,
         [](MainWindow &w) { w.paths().showOffset(); }},
        {"paths.combine", TEXT("&Combine"), "", "Ctrl+Alt+K",
         TEXT("The selected shapes become one path, hatched as one"), Needs::TwoSelected, kWindow,
         [](MainWindow &w) { w.paths().actions().combine(); }},
        {"paths.breakApart", TEXT("&Break apart"), "", "Ctrl+Alt+B",
         TEXT("A shape for each outline with its holes"), Needs::Selection, kWindow,
         [](MainWindow &w) { w.paths().actions().breakApart(); }},
        {"paths.clean", TEXT("C&lean and simplify..."), "", "Ctrl+Alt+L",
         TEXT("Join ends, remove what is drawn twice, take out needless points"),
         Needs::Selection, kWindow, [](MainWindow &w) { w.paths().showCleaning(); }},
        {"paths.weld", TEXT("&Weld"), "", "Ctrl+Alt+W",
         TEXT("Areas of a shape that overlap become one; holes stay holes"), Needs::Selection,
         kWindow, [](MainWindow &w) { w.paths().actions().weld(); }},
    };
}
// clang-format on

#undef TEXT

} // namespace studio
