#pragma once

#include "FontFolders.h"
#include "ForeignFiles.h"
#include "InputFiles.h"
#include "JobArguments.h"

#include <common/Command.h>

#include <jobkit/plan/JobFrame.h>
#include <jobkit/plan/JobOrder.h>
#include <jobkit/plan/JobTimes.h>
#include <jobkit/values/MachineProfile.h>
#include <jobkit/writers/JobWriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSet>

#include <optional>
#include <string>
#include <vector>

class JobSource;
class Progress;

/** `ztmark job`: a drawing or foreign drawings become files that machines run. */
class JobCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(JobCommand)

public:
    explicit JobCommand(CLI::App &app);

    int run() override;

private:
    /** A part as it is marked. */
    struct Part
    {
        jobkit::JobPlan plan; ///< ordered, its passes laid out
        QString variants;     ///< what its variant texts show
    };

    void addMachine();
    void addWork();
    void addOutput();
    void checkTogether() const;
    void checkDrawing() const;
    bool writeAndKeep(JobSource &source, Progress &progress);
    bool readMachine();
    /** Of what is written and timed: those of the drawing, or that of the frame alone. */
    QVector<jobkit::Pen> jobPens() const;
    bool readPens();
    bool takesNumbers(const JobSource &source) const;
    bool makeParts(JobSource &source, Progress &progress);
    bool check(const QVector<jobkit::JobItem> &items);
    void warnOfEmptyHatch(const QVector<jobkit::JobItem> &items) const;
    jobkit::JobPlan planOf(const QVector<jobkit::JobItem> &items) const;
    bool canWriteAll(const JobArguments::Inputs &inputs) const;
    bool write(Progress &progress);
    bool writeFile(const std::string &name, const QVector<jobkit::JobPlan> &plans,
                   Progress &progress);
    bool isOneFile(const std::string &name) const;
    jobkit::JobForm formOf(const std::string &name) const;
    void takeBack() const;
    void printNumbers(const JobSource &source) const;
    void printTimes() const;
    void printJson() const;
    jobkit::TimeSums allTimes() const;
    QPointF head() const { return m_profile.fromMachine({}); }

    bool m_isYUp = false; ///< how JSON and CSV count, by the drawing
    InputFiles m_files;
    FontFolders m_fonts;
    JobArguments m_job;
    ForeignFiles m_foreign;
    std::string m_profileName = "grbl-diode";
    std::string m_pensFile;
    std::vector<std::string> m_outputs;
    jobkit::OrderKind m_order = jobkit::OrderKind::Best;
    jobkit::HatchPlace m_hatchPlace = jobkit::HatchPlace::Any;
    bool m_isPenByPen = false;
    bool m_isInnerFirst = false;
    std::optional<jobkit::FrameKind> m_frame;
    int m_count = 1;
    bool m_isSeparate = false;
    bool m_marksOutside = false;
    bool m_marksAsShown = false;
    bool m_showsTime = false;
    bool m_asJson = false;

    jobkit::MachineProfile m_profile;
    QVector<jobkit::Pen> m_pens;
    std::vector<Part> m_parts; ///< one where all parts are the same
    QSet<QString> m_told;      ///< findings, so that each is told once
    std::vector<std::string> m_written;
};
