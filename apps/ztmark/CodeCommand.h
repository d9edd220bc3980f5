#pragma once

#include "JobArguments.h"

#include <codekit/CodeMarks.h>
#include <common/Command.h>

#include <optional>

/** `ztmark code`: QR, Data Matrix and bar codes, one part or many with values of their own. */
class CodeCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(CodeCommand)

public:
    explicit CodeCommand(CLI::App &app);

    int run() override;

private:
    /** Where the text for people stands. */
    enum class HumanText { None, Above, Below };

    /** One part, ready to be marked. */
    struct Part
    {
        codekit::CodeSymbol symbol;
        codekit::CodeMarks marks;
        QPainterPath path; ///< code and text, millimetres
    };

    void addContent();
    void addSize();
    void addForm();
    void addSerial();
    void checkTogether();
    void checkKind(const codekit::CodeKindInfo &info) const;
    void readContent();
    void listKinds() const;
    static void describeKind(const codekit::CodeKindInfo &info);
    bool encodeParts(std::vector<Part> *parts);
    bool makePart(const QString &content, Part *part, QString *reason);
    void addHumanText(Part *part) const;
    bool markPart(const Part &part, hostkit::MarkJobResult *result, Progress &progress) const;
    bool verifyAll(const std::vector<Part> &all, Progress &progress) const;
    bool verify(const Part &part, const ZTMarkGraph &graph) const;
    void printSummary(const Part &part, const hostkit::MarkJobResult &result) const;

    JobArguments m_job;
    bool m_wantsList = false;
    std::string m_symbology;
    CLI::Option *m_typed = nullptr;  ///< the content as it was typed; owned by the command
    CLI::Option *m_serial = nullptr; ///< owned by the command
    codekit::CodeSpec m_spec;
    codekit::CodeForm m_form;
    std::optional<double> m_widthMm;
    HumanText m_humanText = HumanText::None;
    double m_textHeightMm = 2.0;
    ZTVariantText m_content;
    ZTCounterSegment m_counter;
    int m_parts = 1;
    bool m_wantsVerify = false;
    double m_beamMm = 0.0; ///< 0: as wide as the hatch's spacing
};
