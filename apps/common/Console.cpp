#include "Console.h"

#include <QtCore/QTextCodec>

#include <algorithm>
#include <cstdio>

namespace console {

namespace {

std::string program;

bool isControl(char c)
{
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7f;
}

/** Messages meant for developers do not belong between the lines of a command. */
void dropMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        complain(text.toStdString());
}

} // namespace

void setProgram(const std::string &name) { program = name; }

void makeIndependent()
{
    qInstallMessageHandler(dropMessage);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

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
    const std::string line = program + ": " + printable(what) + "\n";
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
