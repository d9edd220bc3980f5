#include "Console.h"

#include <algorithm>
#include <cstdio>

namespace console {

namespace {

bool isControl(char c)
{
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7f;
}

} // namespace

std::string printable(const std::string &text)
{
    std::string shown = text;
    std::replace_if(shown.begin(), shown.end(), isControl, '?');
    return shown;
}

void complain(const std::string &file, const QString &what)
{
    complain((file.empty() ? "\"\"" : file) + ": " + what.toStdString());
}

void complain(const std::string &what)
{
    const std::string line = ZT_PROGRAM ": " + printable(what) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void print(const QString &line)
{
    const std::string text = line.toStdString() + "\n";
    std::fwrite(text.data(), 1, text.size(), stdout);
}

bool finishOutput()
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return true;
    complain("standard output", QStringLiteral("cannot be written"));
    return false;
}

} // namespace console
