#pragma once

#include "Arguments.h"

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>

#include <map>
#include <string>

/** How options take their values. */
namespace usage {

/** Adds an option whose value `read` takes, and turns a refusal into a usage error. */
template <class Read>
CLI::Option *addValue(CLI::App *command, const std::string &name, const QString &help, Read read)
{
    const auto take = [name, read](const std::string &text) {
        try {
            read(text);
        } catch (const arguments::ArgumentError &error) {
            throw CLI::ValidationError(name, error.what);
        }
    };
    return command->add_option_function<std::string>(name, take, help.toStdString())->take_last();
}

/** The value that a name stands for. */
template <class Value>
Value chosen(const std::map<std::string, Value> &choices, const std::string &text)
{
    const auto found = choices.find(text);
    if (found == choices.end())
        arguments::refuse(text, arguments::Texts::tr("\"%1\" is not among the choices"));
    return found->second;
}

/** A usage error of an option, or of what the command line lacks. */
[[noreturn]] inline void refuse(const std::string &option, const QString &why)
{
    throw CLI::ValidationError(option, why.toStdString());
}

} // namespace usage
