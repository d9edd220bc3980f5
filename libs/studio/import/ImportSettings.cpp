#include <studio/import/ImportSettings.h>

#include <QtCore/QSettings>
#include <QtGui/QColor>

namespace studio {

namespace {

const QString kSplitKey = QStringLiteral("import/split");
const QString kFillOpenKey = QStringLiteral("import/fillOpen");
const QString kPensKey = QStringLiteral("import/pens");

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

} // namespace studio
