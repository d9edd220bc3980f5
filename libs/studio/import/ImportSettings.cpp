#include <studio/import/ImportSettings.h>

#include <QtCore/QSettings>
#include <QtGui/QColor>

namespace studio {

namespace {

const QString kSplitKey = QStringLiteral("import/split");
const QString kFillOpenKey = QStringLiteral("import/fillOpen");
const QString kPensKey = QStringLiteral("import/pens");
const QString kJoinKey = QStringLiteral("import/clean/joinMm");
const QString kDoublesKey = QStringLiteral("import/clean/doublesMm");
const QString kZeroKey = QStringLiteral("import/clean/zeroLength");
const QString kSimplifyKey = QStringLiteral("import/clean/simplifyMm");
const QString kArcsKey = QStringLiteral("import/clean/arcsMm");
const QString kWeldKey = QStringLiteral("import/clean/weld");
const QString kWeldFilledKey = QStringLiteral("import/clean/weldFilled");
const QString kOrderKey = QStringLiteral("import/clean/order");

constexpr double kMostMm = 10.0;

/** A length that was kept, or `none` where that makes no sense. */
double lengthOf(const QSettings &settings, const QString &key, double none)
{
    const double lengthMm = settings.value(key, none).toDouble();
    return lengthMm > 0.0 && lengthMm <= kMostMm ? lengthMm : none;
}

} // namespace

hostkit::ImportOptions rememberedImportOptions()
{
    hostkit::ImportOptions options;
    const QSettings settings;
    const int split = settings.value(kSplitKey, int(options.split)).toInt();
    if (split >= int(hostkit::ImportSplit::None) && split <= int(hostkit::ImportSplit::Outline))
        options.split = static_cast<hostkit::ImportSplit>(split);
    options.fillsOpen = settings.value(kFillOpenKey, false).toBool();
    for (const QString &row : settings.value(kPensKey).toStringList()) {
        const QColor color(row.section(QLatin1Char('='), 0, 0));
        const int pen = row.section(QLatin1Char('='), 1).toInt();
        if (color.isValid() && pen >= 1 && pen <= hostkit::kScreenPens)
            options.pens.insert(color.rgb(), pen);
    }
    return options;
}

void rememberImportOptions(const hostkit::ImportOptions &options)
{
    QSettings settings;
    settings.setValue(kSplitKey, int(options.split));
    settings.setValue(kFillOpenKey, options.fillsOpen);
    QStringList rows;
    for (auto it = options.pens.begin(); it != options.pens.end(); ++it)
        rows << QStringLiteral("%1=%2").arg(QColor(it.key()).name()).arg(it.value());
    settings.setValue(kPensKey, rows);
}

vectorkit::CleanOptions rememberedCleaning()
{
    vectorkit::CleanOptions options;
    const QSettings settings;
    options.joinMm = lengthOf(settings, kJoinKey, -1.0);
    const double sameMm = lengthOf(settings, kDoublesKey, -1.0);
    options.dropDoubles = sameMm > 0.0;
    if (options.dropDoubles)
        options.sameMm = sameMm;
    options.dropZeroLength = settings.value(kZeroKey, false).toBool();
    options.simplifyMm = lengthOf(settings, kSimplifyKey, 0.0);
    options.fitArcsMm = lengthOf(settings, kArcsKey, 0.0);
    options.weld = settings.value(kWeldKey, false).toBool();
    options.weldRule =
        settings.value(kWeldFilledKey, false).toBool() ? Qt::WindingFill : Qt::OddEvenFill;
    options.order = settings.value(kOrderKey, false).toBool();
    return options;
}

void rememberCleaning(const vectorkit::CleanOptions &options)
{
    QSettings settings;
    settings.setValue(kJoinKey, options.joinMm);
    settings.setValue(kDoublesKey, options.dropDoubles ? options.sameMm : -1.0);
    settings.setValue(kZeroKey, options.dropZeroLength);
    settings.setValue(kSimplifyKey, options.simplifyMm);
    settings.setValue(kArcsKey, options.fitArcsMm);
    settings.setValue(kWeldKey, options.weld);
    settings.setValue(kWeldFilledKey, options.weldRule == Qt::WindingFill);
    settings.setValue(kOrderKey, options.order);
}

} // namespace studio
