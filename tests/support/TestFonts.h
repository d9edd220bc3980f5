#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QFontDatabase>

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

/**
 * A font of the package fonts-urw-base35 by its file, as "C059-Roman.otf" (CFF) or "C059-Roman.t1"
 * (Type 1): its letters have curves with two control points. Without the package, one that matches
 * nothing exactly.
 */
inline QFont cubicFont(const QString &file, int pixels)
{
    const QString kind =
        file.endsWith(QStringLiteral(".t1")) ? QStringLiteral("type1") : QStringLiteral("opentype");
    const int id = QFontDatabase::addApplicationFont(
        QStringLiteral("/usr/share/fonts/%1/urw-base35/%2").arg(kind, file));
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    QFont font(families.value(0, QStringLiteral("missing: ") + file));
    font.setPixelSize(pixels);
    return font;
}

} // namespace testsupport
