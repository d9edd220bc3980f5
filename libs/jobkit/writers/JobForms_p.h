#pragma once

#include <jobkit/writers/JobWriter.h>

#include <QtCore/QIODevice>

namespace jobkit {

/** Text that goes to a device in large pieces. */
class JobText
{
public:
    explicit JobText(QIODevice &target) : m_device(target) {}

    JobText &operator<<(const char *text);
    JobText &operator<<(const QByteArray &text);
    JobText &operator<<(int number);
    /** A number with at most so many decimals, none that say nothing. */
    JobText &number(double value, int decimals);
    /** The shortest text that reads back the same. */
    JobText &exact(double value);

    /** Hands over the rest. Failure: false where any writing failed. */
    bool finish();

private:
    void flushIfLong();

    QIODevice &m_device;
    QByteArray m_text;
    bool m_isGood = true;
};

/** Printable ASCII; other characters become "?", so that every controller can skip a comment. */
QByteArray plainText(const QString &text);

void writeGcode(const JobFile &job, JobText *text);
void writeHpgl(const JobFile &job, JobText *text);
void writeDxf(const JobFile &job, JobText *text);
void writeSvg(const JobFile &job, JobText *text);
void writeJson(const JobFile &job, JobText *text);
void writeCsv(const JobFile &job, JobText *text);

/** The numbers of the pens of a plan, in the order in which they come. */
QVector<int> pensOf(const JobPlan &plan);

} // namespace jobkit
