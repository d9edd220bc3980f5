#pragma once

#include "FontFolders.h"

#include <common/Command.h>

#include <QtCore/QCoreApplication>

#include <string>

class OpenedDrawing;

/** `ztmark render`: a picture of a drawing. */
class RenderCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(RenderCommand)

public:
    explicit RenderCommand(CLI::App &app);

    int run() override;

private:
    void addOutput();
    void checkTogether() const;
    bool save(OpenedDrawing &drawing, QString *error) const;
    bool asPaths() const;

    std::string m_file;
    std::string m_output;
    int m_longerSidePx;
    FontFolders m_fonts;
};
