#include <studio/job/JobSettings.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QSettings>

namespace studio {

namespace {

const QString kProfileKey = QStringLiteral("job/profile");
const QString kOrderKey = QStringLiteral("job/order");
const QString kHatchPlaceKey = QStringLiteral("job/hatchPlace");
const QString kPenByPenKey = QStringLiteral("job/penByPen");
const QString kInnerFirstKey = QStringLiteral("job/innerFirst");

constexpr qint64 kMostProfileBytes = 1 << 20;

/** A setting that somebody else wrote may hold anything. */
template <class Value>
Value kept(const QSettings &settings, const QString &key, Value usual, Value last)
{
    const int number = settings.value(key, static_cast<int>(usual)).toInt();
    return number >= 0 && number <= static_cast<int>(last) ? static_cast<Value>(number) : usual;
}

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::JobSettings)
};

} // namespace

bool operator==(const JobSettings &a, const JobSettings &b)
{
    return a.profile == b.profile && a.order == b.order && a.hatchPlace == b.hatchPlace &&
           a.isPenByPen == b.isPenByPen && a.isInnerFirst == b.isInnerFirst;
}

JobSettings JobSettings::load()
{
    const QSettings settings;
    JobSettings job;
    job.profile = settings.value(kProfileKey, QStringLiteral("galvo-fiber")).toString();
    job.order = kept(settings, kOrderKey, job.order, jobkit::OrderKind::Best);
    job.hatchPlace =
        kept(settings, kHatchPlaceKey, job.hatchPlace, jobkit::HatchPlace::AfterOutlines);
    job.isPenByPen = settings.value(kPenByPenKey, job.isPenByPen).toBool();
    job.isInnerFirst = settings.value(kInnerFirstKey, job.isInnerFirst).toBool();
    return job;
}

void JobSettings::save() const
{
    QSettings settings;
    settings.setValue(kProfileKey, profile);
    settings.setValue(kOrderKey, static_cast<int>(order));
    settings.setValue(kHatchPlaceKey, static_cast<int>(hatchPlace));
    settings.setValue(kPenByPenKey, isPenByPen);
    settings.setValue(kInnerFirstKey, isInnerFirst);
}

bool JobSettings::readProfile(jobkit::MachineProfile *machine, QString *error) const
{
    if (jobkit::profileOnBoard(profile, machine))
        return true;
    QFile file(profile);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = Texts::tr("The machine profile \"%1\" cannot be read.").arg(profile);
        return false;
    }
    return jobkit::readProfile(file.read(kMostProfileBytes + 1), machine, error);
}

} // namespace studio
