#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>

namespace testsupport {

/**
 * The file of the font "DejaVu Sans Mono" under the name of a family that no machine has, so that
 * it comes and goes with the test. As many letters as the true name; empty without the file.
 */
inline QByteArray renamedMonoFont(const QString &newFamily)
{
    const QString family = QStringLiteral("DejaVu Sans Mono");
    QFile file(qEnvironmentVariable("QT_QPA_FONTDIR") + QStringLiteral("/DejaVuSansMono.ttf"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto asInFile = [](const QString &name) {
        QByteArray bytes; // two bytes a letter, the high one first
        for (const QChar letter : name)
            bytes.append(static_cast<char>(letter.row())).append(static_cast<char>(letter.cell()));
        return bytes;
    };
    return file.readAll()
        .replace(asInFile(family), asInFile(newFamily))
        .replace(family.toLatin1(), newFamily.toLatin1());
}

} // namespace testsupport
