#include <hostkit/text/FontPresence.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QStringList>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>

#include <algorithm>

namespace hostkit {

namespace {

/** Names that every system resolves to a font of its own. */
bool isGeneric(const QString &family)
{
    static const QStringList kGeneric{
        QStringLiteral("sans"),    QStringLiteral("sans serif"), QStringLiteral("sans-serif"),
        QStringLiteral("serif"),   QStringLiteral("mono"),       QStringLiteral("monospace"),
        QStringLiteral("cursive"), QStringLiteral("fantasy"),    QStringLiteral("system-ui")};
    return kGeneric.contains(family, Qt::CaseInsensitive) ||
           family.compare(QGuiApplication::font().family(), Qt::CaseInsensitive) == 0;
}

} // namespace

bool hasStrokeFont(const QString &fileName)
{
    ZTShxFontManager::regFonts();
    return ZTShxFontManager::hasFont(fileName.toLocal8Bit().toStdString());
}

bool hasSystemFont(const QString &family)
{
    if (isGeneric(family))
        return true;
    // Families of several makers are listed with their maker, "Nimbus Sans [urw]".
    const QStringList families = QFontDatabase().families();
    return std::any_of(families.begin(), families.end(), [&family](const QString &listed) {
        return listed.compare(family, Qt::CaseInsensitive) == 0 ||
               listed.startsWith(family + QStringLiteral(" ["), Qt::CaseInsensitive);
    });
}

} // namespace hostkit
