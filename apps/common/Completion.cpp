#include "Completion.h"

#include <sstream>

namespace console {

namespace {

/** In single quotes, for all three shells. */
std::string quoted(const std::string &text)
{
    std::string result = "'";
    for (const char sign : text)
        result += sign == '\'' ? std::string("'\\''") : std::string(1, sign);
    return result + "'";
}

/** As `_describe` of zsh takes it: the colon before the help is the only one that counts. */
std::string described(const std::string &name, const std::string &help)
{
    return quoted(name + ":" + help);
}

/** All names of what `command` offers: with `wantsOptions` its options, else its commands. */
std::string wordsOf(const CommandEntry &command, bool wantsOptions)
{
    std::string words;
    if (wantsOptions) {
        for (const CommandEntry::Argument &option : command.options) {
            for (const std::string &name : option.names)
                words += (words.empty() ? "" : " ") + name;
        }
    } else {
        for (const CommandEntry &part : command.parts)
            words += (words.empty() ? "" : " ") + part.name;
    }
    return words;
}

/** The calls of all commands but the program itself, as patterns of one branch. */
std::string callPatterns(const CommandEntry &program, const char *separator)
{
    std::string patterns;
    forEachCommand(program, [&](const CommandEntry &command) {
        if (&command != &program)
            patterns += (patterns.empty() ? "" : separator) + quoted(command.call);
    });
    return patterns.empty() ? "''" : patterns;
}

/** Names of the options of a command that are followed by a value, as patterns of one branch. */
std::string valuePatterns(const CommandEntry &command)
{
    std::string patterns;
    for (const CommandEntry::Argument &option : command.options) {
        if (!option.takesValue)
            continue;
        for (const std::string &name : option.names)
            patterns += (patterns.empty() ? "" : "|") + quoted(name);
    }
    return patterns.empty() ? "''" : patterns;
}

std::string forBash(const CommandEntry &program)
{
    std::ostringstream script;
    const std::string function = "_" + program.name;
    script << "# bash completion for " << program.name << "\n"
           << function << "()\n{\n"
           << "    local path=" << quoted(program.name) << " word commands= options=\n"
           << "    local current=\"${COMP_WORDS[COMP_CWORD]}\" "
              "before=\"${COMP_WORDS[COMP_CWORD-1]}\"\n"
           << "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           << "        case \"$path $word\" in\n"
           << "        " << callPatterns(program, "|") << ") path=\"$path $word\" ;;\n"
           << "        esac\n    done\n"
           << "    COMPREPLY=()\n"
           << "    case \"$path\" in\n";
    forEachCommand(program, [&script](const CommandEntry &command) {
        script << "    " << quoted(command.call) << ")\n"
               << "        case \"$before\" in\n"
               << "        " << valuePatterns(command) << ") return ;;\n"
               << "        esac\n"
               << "        commands=" << quoted(wordsOf(command, false)) << "\n"
               << "        options=" << quoted(wordsOf(command, true)) << " ;;\n";
    });
    script << "    esac\n"
           << "    case \"$current\" in\n"
           << "    -*) COMPREPLY=($(compgen -W \"$options\" -- \"$current\")) ;;\n"
           << "    *) COMPREPLY=($(compgen -W \"$commands\" -- \"$current\")) ;;\n"
           << "    esac\n}\n"
           << "complete -o default -F " << function << ' ' << program.name << '\n';
    return script.str();
}

std::string forZsh(const CommandEntry &program)
{
    std::ostringstream script;
    const std::string function = "_" + program.name;
    script << "#compdef " << program.name << "\n"
           << function << "()\n{\n"
           << "    local at=" << quoted(program.name) << " word before=\"$words[CURRENT-1]\"\n"
           << "    local -a commands options\n"
           << "    for word in \"${(@)words[2,CURRENT-1]}\"; do\n"
           << "        case \"$at $word\" in\n"
           << "        (" << callPatterns(program, "|") << ") at=\"$at $word\" ;;\n"
           << "        esac\n    done\n"
           << "    case \"$at\" in\n";
    forEachCommand(program, [&script](const CommandEntry &command) {
        script << "    (" << quoted(command.call) << ")\n"
               << "        case \"$before\" in\n"
               << "        (" << valuePatterns(command) << ") _files; return ;;\n"
               << "        esac\n";
        script << "        commands=(";
        for (const CommandEntry &part : command.parts)
            script << ' ' << described(part.name, part.help);
        script << " )\n        options=(";
        for (const CommandEntry::Argument &option : command.options) {
            for (const std::string &name : option.names)
                script << ' ' << described(name, option.help);
        }
        script << " ) ;;\n";
    });
    script << "    esac\n"
           << "    if [[ \"$words[CURRENT]\" == -* ]]; then\n"
           << "        _describe -o option options\n"
           << "    elif (( $#commands )); then\n"
           << "        _describe command commands\n"
           << "    else\n"
           << "        _files\n"
           << "    fi\n}\n"
           << function << " \"$@\"\n";
    return script.str();
}

void addFishOption(std::ostream &script, const std::string &start,
                   const CommandEntry::Argument &option)
{
    script << start;
    for (const std::string &name : option.names) {
        const bool isLong = name.rfind("--", 0) == 0;
        script << (isLong ? " -l " : " -s ") << name.substr(isLong ? 2 : 1);
    }
    script << (option.takesValue ? " -r -F" : "") << " -d " << quoted(option.help) << '\n';
}

std::string forFish(const CommandEntry &program)
{
    std::ostringstream script;
    const std::string at = "__" + program.name + "_at";
    script << "# fish completion for " << program.name << "\n"
           << "function " << at << "\n"
           << "    set -l path " << program.name << "\n"
           << "    set -l words (commandline -opc)\n"
           << "    for word in $words[2..-1]\n"
           << "        switch \"$path $word\"\n"
           << "            case " << callPatterns(program, " ") << "\n"
           << "                set path \"$path $word\"\n"
           << "        end\n    end\n"
           << "    test \"$path\" = \"$argv\"\nend\n";
    forEachCommand(program, [&](const CommandEntry &command) {
        const std::string start =
            "complete -c " + program.name + " -n " + quoted(at + " " + command.call);
        for (const CommandEntry &part : command.parts)
            script << start << " -f -a " << part.name << " -d " << quoted(part.help) << '\n';
        for (const CommandEntry::Argument &option : command.options)
            addFishOption(script, start, option);
    });
    return script.str();
}

} // namespace

std::string completion(const CommandEntry &program, const std::string &shell)
{
    if (shell == "bash")
        return forBash(program);
    if (shell == "zsh")
        return forZsh(program);
    return shell == "fish" ? forFish(program) : std::string();
}

} // namespace console
