#include "InfoCommand.h"

#include "FontFiles.h"

#include <common/Console.h>

#include <set>

using fontkit::FontFile;

namespace {

constexpr int kLabelWidth = 18;

void printRow(const QString &name, const QString &value)
{
    console::printRow(name, value, kLabelWidth);
}

void printRow(const QString &name, size_t number) { printRow(name, QString::number(number)); }

QString printable(const QByteArray &text)
{
    return QString::fromStdString(console::printable(QString::fromUtf8(text).toStdString()));
}

QString hex(int code, int digits)
{
    return QStringLiteral("0x") +
           QString::number(code, 16).toUpper().rightJustified(digits, QLatin1Char('0'));
}

void printInformation(const FontFile &font)
{
    if (!font.information) {
        printRow(InfoCommand::tr("Font information:"), InfoCommand::tr("none"));
        return;
    }
    printRow(InfoCommand::tr("Name:"), printable(font.information->name));
    printRow(InfoCommand::tr("Above:"), font.information->above);
    printRow(InfoCommand::tr("Below:"), font.information->below);
    printRow(InfoCommand::tr("Modes:"), font.information->modes);
}

void printRanges(const FontFile &font)
{
    for (const fontkit::LeadByteRange &range : font.ranges)
        printRow(
            InfoCommand::tr("Lead bytes:"),
            InfoCommand::tr("%1 to %2").arg(hex(range.first & 0xFF, 2), hex(range.last & 0xFF, 2)));
}

void printGlyphs(const FontFile &font)
{
    std::set<int> codes;
    size_t bytes = 0;
    for (const fontkit::GlyphDefinition &glyph : font.glyphs) {
        codes.insert(glyph.code);
        bytes += static_cast<size_t>(glyph.program.size());
    }
    printRow(InfoCommand::tr("Glyphs:"), font.glyphs.size());
    if (!codes.empty())
        printRow(InfoCommand::tr("Codes:"),
                 InfoCommand::tr("%1 to %2").arg(hex(*codes.begin(), 2), hex(*codes.rbegin(), 2)));
    if (codes.size() < font.glyphs.size())
        printRow(InfoCommand::tr("Repeated codes:"), font.glyphs.size() - codes.size());
    if (!font.entries.empty())
        printRow(InfoCommand::tr("Other records:"), font.entries.size());
    printRow(InfoCommand::tr("Program bytes:"), bytes);
}

} // namespace

InfoCommand::InfoCommand(CLI::App &app) : Command(app, "info", tr("Tell what is in a font file"))
{
    addFile("FONT", m_font, tr("Font file; - reads standard input"));
    m_command->footer(
        tr("Repeated codes are dead: the first glyph of a code counts. Other records are "
           "entries\nof the index without a glyph of their own, as a rule empty ones.")
            .toStdString());
}

int InfoCommand::run()
{
    const auto content = fontfiles::readFont(m_font);
    if (!content)
        return console::Failed;
    printRow(InfoCommand::tr("Form:"), QString::fromLatin1(fontkit::keywordOf(content->form)));
    printInformation(*content);
    printRanges(*content);
    printGlyphs(*content);
    return console::finishOutput() ? console::Done : console::Failed;
}
