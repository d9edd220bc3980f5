#include "ManualPage.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <sstream>

namespace console {

namespace {

struct ManualTexts
{
    Q_DECLARE_TR_FUNCTIONS(ManualPage)
};

/** Text as roff shows it: no sign of its own meaning is left in it. */
std::string escaped(const std::string &text)
{
    std::string roff;
    for (const char sign : text) {
        if (sign == '\\')
            roff += "\\(rs";
        else if (sign == '-')
            roff += "\\-";
        else
            roff += sign;
    }
    const bool looksLikeRequest = !roff.empty() && (roff.front() == '.' || roff.front() == '\'');
    return looksLikeRequest ? "\\&" + roff : roff;
}

std::string bold(const std::string &text) { return "\\fB" + escaped(text) + "\\fR"; }
std::string italic(const std::string &text) { return "\\fI" + escaped(text) + "\\fR"; }

std::string upper(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char sign) { return static_cast<char>(std::toupper(sign)); });
    return name;
}

/** One option or place: its names in bold, its value in italics, what it does below. */
void describe(std::ostream &page, const CommandEntry::Argument &argument)
{
    page << ".TP\n";
    bool isFirst = true;
    for (const std::string &name : argument.names) {
        page << (isFirst ? "" : ", ") << bold(name);
        isFirst = false;
    }
    if (!argument.value.empty())
        page << ' ' << italic(argument.value);
    if (!argument.standard.empty())
        page << " (" << escaped(argument.standard) << ')';
    page << '\n' << escaped(argument.help) << '\n';
}

/** The lines under the help as they stand there. */
void describeFooter(std::ostream &page, const std::string &footer)
{
    if (footer.empty())
        return;
    page << ".PP\n.nf\n";
    std::istringstream lines(footer);
    for (std::string line; std::getline(lines, line);)
        page << (line.empty() ? "\\&" : escaped(line)) << '\n';
    page << ".fi\n";
}

void describeArguments(std::ostream &page, const CommandEntry &command)
{
    for (const CommandEntry::Argument &place : command.places)
        describe(page, place);
    for (const CommandEntry::Argument &option : command.options)
        describe(page, option);
    describeFooter(page, command.footer);
}

/** "ztmark mark [OPTIONS] FILE" */
std::string synopsis(const CommandEntry &command)
{
    std::string line = bold(command.call);
    if (!command.options.empty())
        line += " [" + italic(ManualTexts::tr("OPTIONS").toStdString()) + "]";
    if (!command.parts.empty())
        line += " " + italic(ManualTexts::tr("COMMAND").toStdString());
    for (const CommandEntry::Argument &place : command.places)
        line += " " + italic(place.names.front());
    return line;
}

std::string heading(const QString &text) { return ".SH " + text.toStdString() + "\n"; }

} // namespace

std::string manualPage(const CommandEntry &program, const std::string &version)
{
    std::ostringstream page;
    page << ".TH " << upper(program.name) << " 1 \"\" \"" << version << "\"\n"
         << heading(ManualTexts::tr("NAME")) << escaped(program.name) << " \\- "
         << escaped(program.help) << '\n'
         << heading(ManualTexts::tr("SYNOPSIS"));
    forEachCommand(program, [&page](const CommandEntry &command) {
        if (command.parts.empty())
            page << synopsis(command) << "\n.br\n";
    });
    page << heading(ManualTexts::tr("OPTIONS"));
    describeArguments(page, program);
    if (!program.parts.empty())
        page << heading(ManualTexts::tr("COMMANDS"));
    forEachCommand(program, [&page, &program](const CommandEntry &command) {
        if (&command == &program)
            return;
        page << ".SS " << escaped(command.call) << '\n' << escaped(command.help) << '\n';
        describeArguments(page, command);
    });
    return page.str();
}

} // namespace console
