#include <ZTDrawEngineLib/shapes/PltCheck.h>

#include <ZTDrawEngineLib/shapes/PltLine_p.h>
#include <ZTDrawEngineLib/shapes/ZTPltDrawing_p.h>

#include <QtCore/QCoreApplication>

namespace {

constexpr int kShownCharacters = 60;

/** Texts of this file for the catalogue. */
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PltCheck)
};

/** The line as a person can read it: one row, of bounded length, in quotes. */
QString quoted(const QString &text)
{
    QString shown;
    for (const QChar c : text.trimmed()) {
        if (shown.size() == kShownCharacters) {
            shown += QStringLiteral("...");
            break;
        }
        shown += c.isPrint() ? c : QChar(QChar::ReplacementCharacter);
    }
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

QString describe(PltFlaw flaw, const QString &text)
{
    switch (flaw) {
    case PltFlaw::None:
        break;
    case PltFlaw::NoPoint:
        return Texts::tr("no point in %1").arg(quoted(text));
    case PltFlaw::NoNumber:
        return Texts::tr("not a whole number, taken as 0, in %1").arg(quoted(text));
    case PltFlaw::MoreParts:
        return Texts::tr("only the first point is read of %1").arg(quoted(text));
    case PltFlaw::RestOfLine:
        return Texts::tr("only the first command is read of %1").arg(quoted(text));
    }
    return {};
}

/** Counts lines into a report. */
class Inspector
{
public:
    explicit Inspector(int limit) : m_maxListed(limit) {}

    void add(const PltLine &line, const QByteArray &bytes)
    {
        ++report.lines;
        report.points += line.hasPoint ? 1 : 0;
        switch (line.kind) {
        case PltLineKind::Skipped:
            ++report.skippedLines;
            listSkipped(bytes);
            break;
        case PltLineKind::PenUp:
            ++report.penUpLines;
            break;
        case PltLineKind::PenDown:
            ++report.penDownLines;
            break;
        }
        if (line.flaw != PltFlaw::None) {
            ++report.illFormedLines;
            listProblem(line.flaw, bytes);
        }
    }

    PltReport report;

private:
    void listSkipped(const QByteArray &bytes)
    {
        if (report.skipped.size() >= m_maxListed)
            return;
        const QString text = pltLineText(bytes.cbegin(), bytes.cend());
        if (!text.trimmed().isEmpty())
            report.skipped.append({report.lines, Texts::tr("skipped %1").arg(quoted(text))});
    }

    void listProblem(PltFlaw flaw, const QByteArray &bytes)
    {
        if (report.problems.size() >= m_maxListed)
            return;
        const QString text = pltLineText(bytes.cbegin(), bytes.cend());
        report.problems.append({report.lines, describe(flaw, text)});
    }

    int m_maxListed;
};

} // namespace

PltReport PltCheck::inspect(const QByteArray &bytes, int maxListed)
{
    Inspector inspector(maxListed);
    ZTPltDrawing drawing;
    PltLine line;
    const char *const end = bytes.constData() + bytes.size();
    for (const char *at = bytes.constData(); at != end;) {
        const char *const begin = at;
        at = readPltLine(at, end, line);
        inspector.add(line, QByteArray::fromRawData(begin, static_cast<int>(at - begin)));
        drawing.add(line);
    }
    inspector.report.extent = drawing.extent();
    inspector.report.polylines = drawing.polylineCount();
    return inspector.report;
}
