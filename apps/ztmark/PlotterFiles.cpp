#include "PlotterFiles.h"

#include "Console.h"
#include "Progress.h"

using hostkit::DrawingInput;

namespace {

QString warningAbout(const PltReport &report)
{
    const QString first = DrawingInput::describe(report.problems.first());
    if (report.illFormedLines == 1)
        return PlotterFiles::tr("warning: %1").arg(first);
    return PlotterFiles::tr("warning: %1 ill-formed lines, ztmark info lists them; the first is %2")
        .arg(report.illFormedLines)
        .arg(first);
}

} // namespace

bool PlotterFiles::open(const std::vector<std::string> &files, Progress &progress)
{
    m_names = files;
    for (const std::string &file : files) {
        const QString name = QString::fromStdString(file);
        progress.begin(tr("reading %1").arg(name));
        auto drawing = std::make_unique<DrawingInput>();
        QString error;
        if (!drawing->open(name, &error)) {
            progress.finish();
            console::complain(file, error);
            return false;
        }
        m_opened.push_back(std::move(drawing));
    }
    return true;
}

void PlotterFiles::warnOfLosses() const
{
    for (size_t i = 0; i < m_opened.size(); ++i) {
        if (m_opened[i]->report().illFormedLines > 0)
            console::complain(m_names[i], warningAbout(m_opened[i]->report()));
    }
}
