#pragma once

#include "CodeArguments.h"
#include "JobArguments.h"

#include <codekit/shape/CodeCheck.h>
#include <common/Command.h>

/** `ztmark code`: QR, Data Matrix and bar codes, one part or many with values of their own. */
class CodeCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(CodeCommand)

public:
    explicit CodeCommand(CLI::App &app);

    int run() override;

private:
    /** One part that can be made. */
    struct Part
    {
        QString content;
        codekit::CodeSymbol symbol;
        codekit::CodeForm form; ///< with the module that a wanted width gives
    };

    void addContent();
    void addVerify();
    void addSerial();
    void checkTogether();
    void readContent();
    void listKinds() const;
    static void describeKind(const codekit::CodeKindInfo &info);
    bool encodeParts(std::vector<Part> *parts);
    bool markPart(const Part &part, hostkit::MarkJobResult *result, Progress &progress) const;
    bool verifyAll(const std::vector<Part> &all, Progress &progress) const;
    bool verify(const Part &part, const ZTMarkGraph &graph) const;
    bool tellReading(const codekit::CodeReading &reading) const;
    void printSummary(const Part &part, const hostkit::MarkJobResult &result) const;

    JobArguments m_job;
    bool m_wantsList = false;
    std::string m_symbology;
    CLI::Option *m_typed = nullptr;  ///< the content as it was typed; owned by the command
    CLI::Option *m_serial = nullptr; ///< owned by the command
    CodeArguments m_code;
    ZTVariantText m_content;
    ZTCounterSegment m_counter;
    int m_parts = 1;
    bool m_wantsVerify = false;
    double m_beamMm = 0.0; ///< 0: as wide as the hatch's spacing
};
