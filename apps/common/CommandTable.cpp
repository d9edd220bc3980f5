#include "CommandTable.h"

#include "Completion.h"
#include "ManualPage.h"

#include <algorithm>

namespace console {

namespace {

/** Lines of a help text as one. */
std::string joined(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::vector<std::string> namesOf(const CLI::Option &option)
{
    if (option.get_positional() && option.get_lnames().empty() && option.get_snames().empty())
        return {option.get_name(true)};
    std::vector<std::string> names;
    for (const std::string &name : option.get_snames())
        names.push_back("-" + name);
    for (const std::string &name : option.get_lnames())
        names.push_back("--" + name);
    return names;
}

CommandEntry::Argument argumentOf(const CLI::Option &option)
{
    CommandEntry::Argument argument;
    argument.names = namesOf(option);
    argument.takesValue = option.get_items_expected_min() > 0;
    if (argument.takesValue) {
        argument.value = option.get_type_name();
        argument.standard = option.get_default_str();
    }
    argument.help = joined(option.get_description());
    return argument;
}

CommandEntry entryOf(const CLI::App &app, const std::string &before)
{
    CommandEntry entry;
    entry.name = app.get_name();
    entry.call = before.empty() ? entry.name : before + " " + entry.name;
    entry.help = joined(app.get_description());
    entry.footer = app.get_footer();
    for (const CLI::Option *option : app.get_options()) {
        if (option->get_positional())
            entry.places.push_back(argumentOf(*option));
        else if (!option->get_group().empty())
            entry.options.push_back(argumentOf(*option));
    }
    for (const CLI::App *part : app.get_subcommands([](const CLI::App *) { return true; }))
        entry.parts.push_back(entryOf(*part, entry.call));
    return entry;
}

/** Ends the parsing well with a text for stdout. */
[[noreturn]] void print(std::string text)
{
    if (!text.empty() && text.back() == '\n')
        text.pop_back(); // the application ends the last line
    throw CLI::CallForVersion(text, 0);
}

} // namespace

CommandEntry commandTable(const CLI::App &app) { return entryOf(app, {}); }

void forEachCommand(const CommandEntry &top, const std::function<void(const CommandEntry &)> &visit)
{
    visit(top);
    for (const CommandEntry &part : top.parts)
        forEachCommand(part, visit);
}

void addTableOptions(CLI::App *app, const std::string &version)
{
    app->add_flag_callback("--man-page",
                           [app, version] { print(manualPage(commandTable(*app), version)); })
        ->trigger_on_parse()
        ->group("");
    app->add_option_function<std::string>(
           "--completion",
           [app](const std::string &shell) {
               const std::string script = completion(commandTable(*app), shell);
               if (script.empty())
                   throw CLI::ValidationError("--completion", shell + ": bash, zsh or fish");
               print(script);
           })
        ->trigger_on_parse()
        ->group("");
}

} // namespace console
