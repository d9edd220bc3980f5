#include "Console.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cstdio>

namespace console {

namespace {

bool isControl(char c)
{
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7f;
}

/** Chinese characters and the marks that go with them. */
bool isWide(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 0x2E80 && code <= 0xA4CF) || (code >= 0xAC00 && code <= 0xD7A3) ||
           (code >= 0xF900 && code <= 0xFAFF) || (code >= 0xFE30 && code <= 0xFE4F) ||
           (code >= 0xFF00 && code <= 0xFF60) || (code >= 0xFFE0 && code <= 0xFFE6);
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

void printRow(const QString &name, const QString &value, int width)
{
    print(filledUp(name, width) + QLatin1Char(' ') + value);
}

int columnsOf(const QString &text)
{
    const auto wide = std::count_if(text.begin(), text.end(), isWide);
    return text.size() + static_cast<int>(wide);
}

QString filledUp(const QString &text, int width)
{
    return text + QString(qMax(0, width - columnsOf(text)), QLatin1Char(' '));
}

bool finishOutput()
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return true;
    complain(QCoreApplication::translate("Console", "standard output").toStdString(),
             QCoreApplication::translate("Console", "cannot be written"));
    return false;
}

} // namespace console
