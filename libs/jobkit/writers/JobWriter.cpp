#include <jobkit/writers/JobForms_p.h>

#include <hostkit/files/FileWriter.h>
#include <hostkit/files/NumberText.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSet>

#include <algorithm>
#include <cmath>

namespace jobkit {

namespace {

constexpr int kLongText = 1 << 16;

struct Extension
{
    const char *text;
    JobForm form;
};

constexpr Extension kExtensions[] = {
    {".nc", JobForm::Gcode},  {".gcode", JobForm::Gcode}, {".plt", JobForm::Hpgl},
    {".hpgl", JobForm::Hpgl}, {".dxf", JobForm::Dxf},     {".svg", JobForm::Svg},
    {".json", JobForm::Json}, {".csv", JobForm::Csv},
};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(jobkit::JobWriter)
};

bool isSound(const JobFile &job)
{
    return std::all_of(job.parts.begin(), job.parts.end(),
                       [](const JobPlan &plan) { return plan.isSound(); });
}

} // namespace

JobText &JobText::operator<<(const char *more)
{
    m_text.append(more);
    flushIfLong();
    return *this;
}

JobText &JobText::operator<<(const QByteArray &more)
{
    m_text.append(more);
    flushIfLong();
    return *this;
}

JobText &JobText::operator<<(int value)
{
    hostkit::appendWhole(m_text, value);
    return *this;
}

JobText &JobText::number(double value, int decimals)
{
    hostkit::appendRounded(m_text, value, decimals);
    return *this;
}

JobText &JobText::exact(double value)
{
    hostkit::appendShortest(m_text, value);
    return *this;
}

void JobText::flushIfLong()
{
    if (m_text.size() < kLongText)
        return;
    m_isGood = m_device.write(m_text) == m_text.size() && m_isGood;
    m_text.clear();
}

bool JobText::finish()
{
    m_isGood = m_device.write(m_text) == m_text.size() && m_isGood;
    m_text.clear();
    return m_isGood;
}

QByteArray plainText(const QString &text)
{
    QByteArray plain;
    for (const QChar letter : text) {
        const ushort code = letter.unicode();
        plain.append(code >= 0x20 && code < 0x7f ? char(code) : '?');
    }
    return plain;
}

QVector<int> pensOf(const JobPlan &plan)
{
    QVector<int> numbers;
    QSet<int> known;
    for (const PlanPiece &piece : plan.pieces) {
        if (known.contains(piece.pen))
            continue;
        known.insert(piece.pen);
        numbers.append(piece.pen);
    }
    return numbers;
}

QStringList jobExtensions()
{
    QStringList names;
    for (const Extension &extension : kExtensions)
        names.append(QLatin1String(extension.text));
    return names;
}

std::optional<JobForm> jobFormOf(const QString &path)
{
    for (const Extension &extension : kExtensions) {
        if (path.endsWith(QLatin1String(extension.text), Qt::CaseInsensitive))
            return extension.form;
    }
    return std::nullopt;
}

bool canPause(JobForm form) { return form == JobForm::Gcode; }

bool writeJob(JobForm form, const JobFile &job, QIODevice &device)
{
    if (job.parts.isEmpty() || (job.parts.size() > 1 && !canPause(form)) || !isSound(job))
        return false;
    JobText text(device);
    switch (form) {
    case JobForm::Gcode:
        writeGcode(job, &text);
        break;
    case JobForm::Hpgl:
        writeHpgl(job, &text);
        break;
    case JobForm::Dxf:
        writeDxf(job, &text);
        break;
    case JobForm::Svg:
        writeSvg(job, &text);
        break;
    case JobForm::Json:
        writeJson(job, &text);
        break;
    case JobForm::Csv:
        writeCsv(job, &text);
        break;
    }
    return text.finish();
}

bool saveJob(JobForm form, const JobFile &job, const QString &path, hostkit::Failure *failure)
{
    using Kind = hostkit::Failure::Kind;
    if (job.parts.isEmpty())
        return hostkit::fail(failure, Kind::NotPossible, Texts::tr("there is no part to write"));
    if (job.parts.size() > 1 && !canPause(form))
        return hostkit::fail(failure, Kind::NotPossible,
                             Texts::tr("several parts fit into G-code alone, which can pause"));
    if (!isSound(job))
        return hostkit::fail(failure, Kind::NotPossible, Texts::tr("a coordinate is no number"));
    return hostkit::saveWhole(
        path, [&](QIODevice &device) { return writeJob(form, job, device); }, failure);
}

} // namespace jobkit
