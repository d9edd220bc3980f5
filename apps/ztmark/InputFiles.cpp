#include "InputFiles.h"

#include "OpenedDrawing.h"
#include "Usage.h"

#include <algorithm>

void InputFiles::addOption(CLI::App *command)
{
    command
        ->add_option(
            "FILE", names,
            tr("Plotter drawings, - reads standard input; or one drawing, .ztd").toStdString())
        ->required()
        ->type_name("");
}

void InputFiles::checkTogether() const
{
    if (names.size() > 1 && std::any_of(names.begin(), names.end(), OpenedDrawing::isNamed))
        usage::refuse("FILE", tr("a drawing is taken alone, without other files"));
    if (std::count(names.begin(), names.end(), "-") > 1)
        usage::refuse("FILE", tr("standard input can be read only once"));
}

bool InputFiles::isDrawing() const { return OpenedDrawing::isNamed(names.front()); }
