#include "CleanArgument.h"

#include "InfoRows.h"
#include "Usage.h"

#include <QtCore/QStringList>

#include <sstream>

using inforows::rounded;
using vectorkit::CleanOptions;
using vectorkit::CleanReport;

namespace {

constexpr double kUsualSameMm = 0.01;
constexpr double kUsualJoinMm = 0.05;

/** Adds "3 ends joined" to a list, unless there are none. */
void addCount(QStringList *list, qint64 count, const QString &one, const QString &many)
{
    if (count == 1)
        *list << one;
    else if (count > 1)
        *list << many.arg(count);
}

QStringList partsOf(const CleanReport &report)
{
    QStringList parts;
    addCount(&parts, report.joined, CleanArgument::tr("1 pair of ends joined"),
             CleanArgument::tr("%1 pairs of ends joined"));
    addCount(&parts, report.closed, CleanArgument::tr("1 outline closed"),
             CleanArgument::tr("%1 outlines closed"));
    addCount(&parts, report.doubled, CleanArgument::tr("1 doubled piece removed"),
             CleanArgument::tr("%1 doubled pieces removed"));
    addCount(&parts, report.zeroLength, CleanArgument::tr("1 piece without length removed"),
             CleanArgument::tr("%1 pieces without length removed"));
    return parts;
}

} // namespace

void CleanArgument::addOption(CLI::App *command)
{
    usage::addValue(command, "--clean",
                    tr("Mend SVG, DXF and plotter drawings: join=LENGTH, duplicates, zero,\n"
                       "simplify=LENGTH, arcs=LENGTH, weld, order, with commas between"),
                    [this](const std::string &text) { take(text); })
        ->type_name("WHAT");
}

void CleanArgument::take(const std::string &text)
{
    m_options = CleanOptions();
    std::istringstream parts(text);
    std::string part;
    if (text.empty())
        arguments::refuse(text, tr("\"%1\" names nothing to mend"));
    while (std::getline(parts, part, ',')) {
        const std::size_t equal = part.find('=');
        const bool hasValue = equal != std::string::npos;
        takePart(part.substr(0, equal), hasValue ? part.substr(equal + 1) : std::string(), text);
    }
    m_isAsked = true;
}

void CleanArgument::takePart(const std::string &key, const std::string &value,
                             const std::string &all)
{
    const auto length = [&](double usualMm) {
        return value.empty() ? usualMm : arguments::positiveLengthMm(value);
    };
    const auto needed = [&] {
        if (value.empty())
            arguments::refuse(all, tr("\"%1\": %2 needs a length, as in %2=0.02mm")
                                       .arg(QStringLiteral("%1"), QString::fromStdString(key)));
        return arguments::positiveLengthMm(value);
    };
    const bool takesNone = key == "zero" || key == "weld" || key == "order";
    if (takesNone && !value.empty())
        arguments::refuse(
            all,
            tr("\"%1\": %2 takes no value").arg(QStringLiteral("%1"), QString::fromStdString(key)));
    if (key == "join") {
        m_options.joinMm = value.empty() ? kUsualJoinMm : arguments::lengthMm(value);
    } else if (key == "duplicates") {
        m_options.dropDoubles = true;
        m_options.sameMm = length(kUsualSameMm);
    } else if (key == "simplify") {
        m_options.simplifyMm = needed();
    } else if (key == "arcs") {
        m_options.fitArcsMm = needed();
    } else if (key == "zero") {
        m_options.dropZeroLength = true;
    } else if (key == "weld") {
        m_options.weld = true;
    } else if (key == "order") {
        m_options.order = true;
    } else {
        arguments::refuse(all, tr("\"%1\": cleaning takes join, duplicates, zero, simplify, arcs, "
                                  "weld and order, not \"%2\"")
                                   .arg(QStringLiteral("%1"), QString::fromStdString(key)));
    }
}

CleanReport CleanArgument::clean(vectorkit::VectorDrawing *drawing, double toleranceMm) const
{
    CleanOptions options = m_options;
    options.toleranceMm = toleranceMm;
    CleanReport report;
    vectorkit::cleanDrawing(drawing, options, &report);
    return report;
}

QString CleanArgument::describe(const CleanReport &report)
{
    QStringList parts = partsOf(report);
    if (parts.isEmpty())
        parts << tr("nothing to mend");
    return tr("%1; paths %2, now %3; pieces %4, now %5; jumps %6 mm, now %7 mm")
        .arg(parts.join(QStringLiteral(", ")))
        .arg(report.pathsBefore)
        .arg(report.pathsAfter)
        .arg(report.piecesBefore)
        .arg(report.piecesAfter)
        .arg(rounded(report.jumpsBeforeMm), rounded(report.jumpsAfterMm));
}

QString CleanArgument::describeNeeds(const vectorkit::VectorDrawing &drawing)
{
    const CleanReport needs = vectorkit::cleaningNeeds(drawing, kUsualJoinMm, kUsualSameMm);
    QStringList parts;
    addCount(&parts, needs.joined, tr("1 pair of loose ends"), tr("%1 pairs of loose ends"));
    addCount(&parts, needs.closed, tr("1 outline to close"), tr("%1 outlines to close"));
    if (needs.doubled > 0)
        parts << tr("doubled pieces: %1, %2 mm").arg(needs.doubled).arg(rounded(needs.doubledMm));
    addCount(&parts, needs.zeroLength, tr("1 piece without length"),
             tr("%1 pieces without length"));
    if (parts.isEmpty())
        return tr("nothing");
    return tr("%1 (--clean join=0.05mm,duplicates,zero)").arg(parts.join(QStringLiteral(", ")));
}
