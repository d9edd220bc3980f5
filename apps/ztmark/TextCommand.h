#pragma once

#include "FontArguments.h"
#include "JobArguments.h"

#include <common/Command.h>
#include <hostkit/marks/TextJob.h>
#include <hostkit/text/TextPlaces.h>

#include <optional>
#include <set>

/** `ztmark text`: texts become ordered mark paths, one part or many with values of their own. */
class TextCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(TextCommand)

public:
    explicit TextCommand(CLI::App &app);

    int run() override;

private:
    /** What all parts came to. */
    struct Sum
    {
        hostkit::MarkPathMeasure before;
        hostkit::MarkPathMeasure after;
        QSizeF sizeMm; ///< of the last part
        QStringList firstValues;
        QStringList lastValues;
        QStringList noGlyph;
        QStringList notEncoded;
    };

    void addTexts();
    void addFont();
    void addArc();
    void addSerial();
    void checkTogether();
    void readTexts();
    void checkArc() const;
    void checkCount() const;
    void checkOutputNames() const;
    bool hasEnoughValues() const;
    std::vector<std::string> outputsOf(int part) const;
    std::vector<std::string> allOutputs() const;
    bool makePart(int part, Sum *sum, Progress &progress);
    void add(const hostkit::MarkJobResult &result, Sum *sum) const;
    void warn(const Sum &sum) const;
    void printSummary(const Sum &sum) const;
    QStringList values() const;

    CLI::Option *m_typed = nullptr;  ///< the texts as they were typed; owned by the command
    CLI::Option *m_serial = nullptr; ///< owned by the command
    JobArguments m_job;
    hostkit::TextJobOptions m_options;
    std::vector<ZTVariantText> m_texts;
    ZTCounterSegment m_counter;
    int m_count = 1;
    FontArguments m_font;
    std::optional<double> m_lineSpacingMm;
    std::optional<double> m_arcStartDeg;
    bool m_hasArcOption = false; ///< something was said of the arc
};
