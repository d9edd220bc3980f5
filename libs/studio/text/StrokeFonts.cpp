#include <studio/text/StrokeFonts.h>

#include <studio/text/TextSettings.h>

#include <hostkit/text/StrokeFont.h>

#include <QtCore/QCoreApplication>

namespace studio {

namespace {

const QString kPreferredRegular = QStringLiteral("hershey-simplex.shx");
const QString kPreferredBig = QStringLiteral("gb-strokes.shx");

constexpr double kNewHeightMm = 10.0;
constexpr double kNewLineSpacingMm = 4.0;

/** The manager lists a name again with every scan that an empty list of the other kind causes. */
QStringList sortedOnce(const std::vector<std::string> &names)
{
    QStringList sorted;
    for (const std::string &name : names)
        sorted << QString::fromLocal8Bit(name.c_str());
    sorted.removeDuplicates();
    sorted.sort(Qt::CaseInsensitive);
    return sorted;
}

QString preferred(const QStringList &names, const QString &wanted, const QString &otherwise)
{
    return names.contains(wanted) ? wanted : otherwise;
}

} // namespace

QStringList regularStrokeFonts() { return sortedOnce(ZTShxFontManager::regFonts()); }

QStringList bigStrokeFonts() { return sortedOnce(ZTShxFontManager::bigFonts()); }

ZTShxFontParam strokeFontPair(const QString &regularName, const QString &bigName)
{
    ZTShxFontParam param;
    param.enName = regularName;
    param.zhName = bigName;
    param.height = hostkit::kStrokeFontUnits;
    param.parser.init(regularName.toLocal8Bit().constData(), bigName.toLocal8Bit().constData());
    param.parser.setTextHeight(hostkit::kStrokeFontUnits);
    return param;
}

QString usualRegularFont(const QString &otherwise)
{
    return preferred(regularStrokeFonts(), kPreferredRegular, otherwise);
}

QString usualBigFont(const QString &otherwise)
{
    return preferred(bigStrokeFonts(), kPreferredBig, otherwise);
}

void setUpNewText(ZTGraphicsTextItem &item)
{
    // Without stroke fonts a new text has no words of its own.
    if (item.getFixedText().isEmpty())
        item.setFixedText(QCoreApplication::translate("studio::StrokeFonts", "TEXT"));
    TextSettings settings = TextSettings::of(item);
    settings.enName = usualRegularFont(settings.enName);
    settings.zhName = usualBigFont(settings.zhName);
    settings.heightMm = kNewHeightMm;
    settings.lineSpacingMm = kNewLineSpacingMm;
    settings.applyTo(item);
}

} // namespace studio
