#include "FontCommand.h"

#include "Console.h"
#include "Usage.h"

#include <hostkit/text/FontPlaces.h>
#include <hostkit/text/FontSheet.h>
#include <hostkit/text/StrokeFont.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtGui/QFontDatabase>

#include <algorithm>

namespace {

using hostkit::ShxFontFileInfo;
using hostkit::ShxFontInfo;
using hostkit::ShxGlyphInfo;

constexpr int kFontLabelWidth = 12;
constexpr int kMostRuns = 12;

QString hex(int code, int digits)
{
    return QStringLiteral("0x") +
           QString::number(code, 16).toUpper().rightJustified(digits, QLatin1Char('0'));
}

QString runOf(int first, int last, int digits)
{
    if (first == last)
        return hex(first, digits);
    return FontCommand::tr("%1 to %2").arg(hex(first, digits), hex(last, digits));
}

QString kindOf(const ShxFontInfo &info)
{
    return info.isBig() ? FontCommand::tr("big") : FontCommand::tr("regular");
}

/** The codes of the glyphs in runs of neighbours. */
QString codesOf(const ShxFontInfo &info)
{
    std::vector<int> codes;
    for (const ShxGlyphInfo &glyph : info.glyphs) {
        if (glyph.usable)
            codes.push_back(glyph.code);
    }
    std::sort(codes.begin(), codes.end());
    QStringList runs;
    for (size_t i = 0; i < codes.size();) {
        const int first = codes[i];
        int last = first;
        while (++i < codes.size() && codes[i] == last + 1)
            last = codes[i];
        runs << runOf(first, last, last > 0xFF ? 4 : 2);
    }
    const int more = runs.size() - kMostRuns;
    if (more > 0)
        runs = runs.mid(0, kMostRuns) << FontCommand::tr("and %1 more").arg(more);
    return runs.join(QStringLiteral(", "));
}

QString rangesOf(const ShxFontInfo &info)
{
    QStringList ranges;
    for (const QPair<int, int> &range : info.ranges)
        ranges << runOf(range.first, range.second, 2);
    return ranges.join(QStringLiteral(", "));
}

void printFontRow(const QString &name, const QString &value)
{
    console::printRow(name, value, kFontLabelWidth);
}

void printFont(const ShxFontInfo &info)
{
    printFontRow(FontCommand::tr("Form:"), info.form());
    printFontRow(FontCommand::tr("Kind:"), kindOf(info));
    printFontRow(FontCommand::tr("Name:"),
                 QString::fromStdString(console::printable(info.name.toStdString())));
    printFontRow(FontCommand::tr("Above:"), QString::number(info.above));
    printFontRow(FontCommand::tr("Below:"), QString::number(info.below));
    if (info.isBig())
        printFontRow(FontCommand::tr("Lead bytes:"), rangesOf(info));
    printFontRow(FontCommand::tr("Glyphs:"), QString::number(info.usableGlyphs()));
    if (info.usableGlyphs() > 0)
        printFontRow(FontCommand::tr("Codes:"), codesOf(info));
    printFontRow(FontCommand::tr("Damage:"), QString::number(info.problemCount));
    for (const QString &problem : info.problems)
        console::print(QStringLiteral("  ") + problem);
    const int more = info.problemCount - info.problems.size();
    if (more > 0)
        console::print(QStringLiteral("  ") + FontCommand::tr("and %1 more").arg(more));
}

/** Rows of a table, each column as wide as its widest cell. */
void printTable(const QVector<QStringList> &rows)
{
    QVector<int> widths(rows.first().size());
    for (const QStringList &row : rows) {
        for (int i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], console::columnsOf(row[i]));
    }
    for (const QStringList &row : rows) {
        QString line;
        for (int i = 0; i + 1 < row.size(); ++i)
            line += console::filledUp(row[i], widths[i]) + QStringLiteral("  ");
        console::print(line + row.last());
    }
}

} // namespace

FontCommand::FontCommand(CLI::App &app)
    : Command(app, "font", tr("Show which fonts there are and what is in them"))
{
    m_command->require_subcommand(1);
    addList();
    addInfo();
    addSheet();
}

void FontCommand::addList()
{
    m_listCommand = m_command->add_subcommand("list", tr("List the stroke fonts").toStdString());
    m_listCommand->add_flag("--system", m_systemFonts,
                            tr("List the families of system fonts instead").toStdString());
    addFolders(m_listCommand);
    m_listCommand->footer(tr("Stroke fonts are the files *.shx in the folder font beside the "
                             "program, or else those that were\n"
                             "installed with it, and yours in ~/.local/share/ztdrawengine/font. A "
                             "text takes a pair of them: a\n"
                             "regular one and a big one, which has the Chinese characters. What "
                             "has no code in such pairs comes\n"
                             "from unicode-strokes.shx, the same for every pair.")
                              .toStdString());
}

void FontCommand::addInfo()
{
    m_infoCommand = m_command->add_subcommand(
        "info", tr("Tell what is in a stroke font, and what of it is damaged").toStdString());
    addFile(m_infoCommand);
    addFolders(m_infoCommand);
}

void FontCommand::addSheet()
{
    m_sheetCommand = m_command->add_subcommand(
        "sheet", tr("Draw every glyph of a stroke font above its code").toStdString());
    addFile(m_sheetCommand);
    const auto check = [](const std::string &name) {
        if (hostkit::FontSheet::hasExtension(QString::fromStdString(name)))
            return std::string();
        return tr("\"%1\" must end in one of %2")
            .arg(QString::fromStdString(name), QStringLiteral(".svg, .png"))
            .toStdString();
    };
    m_sheetCommand
        ->add_option("-o,--output", m_outputs,
                     tr("Picture to write, .svg or .png. Can be given several times").toStdString())
        ->required()
        ->type_name("OUT")
        ->allow_extra_args(false)
        ->check(CLI::Validator([check](std::string &name) { return check(name); }, ""));
    m_sheetCommand->add_flag("-q,--quiet", m_quiet, tr("No summary").toStdString());
    addFolders(m_sheetCommand);
}

void FontCommand::addFile(CLI::App *part)
{
    part->add_option("FILE", m_file,
                     tr("Stroke font; a name without a folder is looked for in the font folders "
                        "too")
                         .toStdString())
        ->required()
        ->type_name("");
}

void FontCommand::addFolders(CLI::App *part)
{
    part->add_option(
            "--font-dir", m_moreFolders,
            tr("Another folder with stroke fonts. Can be given several times").toStdString())
        ->type_name("DIR")
        ->allow_extra_args(false);
}

int FontCommand::run()
{
    if (m_listCommand->parsed())
        return list();
    return m_infoCommand->parsed() ? info() : sheet();
}

QStringList FontCommand::folders() const
{
    QStringList all = hostkit::fontFolders();
    for (const std::string &folder : m_moreFolders)
        all << QString::fromStdString(folder);
    return all;
}

/** The file as it was named; where there is none, the one of this name in a font folder. */
QString FontCommand::fontPath() const
{
    const QString name = QString::fromStdString(m_file);
    if (QFileInfo::exists(name) || name.contains(QLatin1Char('/')))
        return QFileInfo(name).absoluteFilePath();
    QStringList all = folders();
    std::reverse(all.begin(), all.end()); // as texts do, the folder named last first
    for (const QString &folder : qAsConst(all)) {
        QString path = QDir(folder).filePath(name);
        if (QFileInfo::exists(path))
            return path;
    }
    return QFileInfo(name).absoluteFilePath();
}

int FontCommand::list() const
{
    bool listed = true;
    if (m_systemFonts) {
        for (const QString &family : QFontDatabase().families())
            console::print(family);
    } else {
        listed = listStrokeFonts();
    }
    return listed && console::finishOutput() ? console::Done : console::Failed;
}

bool FontCommand::listStrokeFonts() const
{
    for (const std::string &folder : m_moreFolders) {
        if (!QFileInfo(QString::fromStdString(folder)).isDir()) {
            console::complain(folder, tr("no such folder"));
            return false;
        }
    }
    QVector<QStringList> rows{{tr("Font"), tr("Kind"), tr("Form"), tr("Glyphs"), tr("Folder")}};
    for (const ShxFontFileInfo &font : hostkit::listShxFonts(folders()))
        rows.append({font.fileName, kindOf(font.info), font.info.form(),
                     QString::number(font.info.usableGlyphs()), font.folder});
    if (rows.size() > 1)
        printTable(rows);
    else
        console::print(tr("No stroke fonts in %1").arg(folders().join(QStringLiteral(", "))));
    return true;
}

int FontCommand::info() const
{
    ShxFontInfo font;
    hostkit::Failure failure;
    if (!hostkit::readShxFontInfo(fontPath(), &font, &failure)) {
        console::complain(m_file, failure.reason);
        return console::Failed;
    }
    printFont(font);
    return console::finishOutput() ? console::Done : console::Failed;
}

int FontCommand::sheet() const
{
    hostkit::FontSheet drawn;
    hostkit::Failure failure;
    if (!drawn.read(fontPath(), &failure)) {
        console::complain(m_file, failure.reason);
        return console::Failed;
    }
    const QFileInfo font(fontPath());
    bool written = true;
    for (const std::string &output : m_outputs) {
        if (QFileInfo(QString::fromStdString(output)) == font) {
            console::complain(output, tr("would overwrite the font it shows"));
            return console::Failed;
        }
        if (!drawn.save(QString::fromStdString(output), font.fileName(), &failure)) {
            console::complain(output, failure.reason);
            written = false;
        }
    }
    if (!m_quiet) {
        printFontRow(tr("Glyphs:"), QString::number(drawn.glyphs().size()));
        printFontRow(tr("Grid:"),
                     tr("%1 x %2 cells").arg(drawn.grid().width()).arg(drawn.grid().height()));
    }
    return console::finishOutput() && written ? console::Done : console::Failed;
}
