#pragma once

#include <CLI/CLI.hpp>

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>

#include <string>
#include <vector>

class Progress;

/** The argument FILE of commands that take foreign drawings, or one drawing of the studio. */
class InputFiles
{
    Q_DECLARE_TR_FUNCTIONS(InputFiles)

public:
    /** Limit: no foreign drawing is larger. */
    static constexpr qint64 kMaxBytes = qint64(256) * 1024 * 1024;

    void addOption(CLI::App *command);

    /** The same for a command that takes one file. */
    void addSingle(CLI::App *command);

    /** Throws a usage error for a drawing beside other files, and for input that is named twice. */
    void checkTogether() const;

    /** Takes in standard input where it is named; `read` tells where that failed. */
    void readStandardInput(Progress &progress);

    /**
     * Whether it is one drawing of the studio. Order: after `checkTogether`; of standard input it
     * is known after `readStandardInput`.
     */
    bool isDrawing() const;

    /** All bytes of one of them; false, told on stderr, when they cannot be had. */
    bool read(const std::string &name, QByteArray *bytes) const;

    std::vector<std::string> names; ///< as they were typed, at least one

private:
    QByteArray m_standardInput;
    QString m_standardInputProblem;
};

/** Qt takes names that begin with ':' for built-in resources; an absolute one is always a file. */
QString absolutePath(const QString &name);
