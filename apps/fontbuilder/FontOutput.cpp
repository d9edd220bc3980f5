#include "FontOutput.h"

#include "FontFiles.h"

#include <common/Console.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

bool writeFontTo(const std::string &folder, const QString &fileName, const fontkit::FontFile &font)
{
    const QDir dir(QString::fromStdString(folder));
    if (!dir.mkpath(QStringLiteral("."))) {
        console::complain(
            folder, QCoreApplication::translate("FontFiles", "is no folder, and none can be made"));
        return false;
    }
    const std::string path = dir.filePath(fileName).toStdString();
    QString error;
    const QByteArray bytes = fontkit::writeFont(font, &error);
    if (bytes.isEmpty()) {
        console::complain(path, error);
        return false;
    }
    return fontfiles::write(path, bytes);
}
