#include <studio/job/TimesModel.h>

#include <QtCore/QLocale>

namespace studio {

namespace {

constexpr int kDecimals = 3;

} // namespace

TimesModel::TimesModel(QObject *parent) : QAbstractTableModel(parent) {}

void TimesModel::setJob(const std::shared_ptr<const Job> &job)
{
    m_job = job;
    fill();
}

void TimesModel::setBy(By by)
{
    m_by = by;
    fill();
}

void TimesModel::setParts(int parts)
{
    m_parts = parts;
    fill();
}

void TimesModel::fill()
{
    beginResetModel();
    m_rows.clear();
    if (m_job) {
        const auto sumsOf = [this](const jobkit::JobTimes &times) {
            if (m_by == By::Pen)
                return times.byPen;
            return m_by == By::Object ? times.byObject : times.byPass;
        };
        m_rows.push_back({0, m_job->times.all, m_job->furtherTimes.all});
        const auto further = sumsOf(m_job->furtherTimes);
        for (const auto &sums : sumsOf(m_job->times)) {
            const auto same = further.find(sums.first);
            m_rows.push_back({sums.first, sums.second,
                              same == further.end() ? jobkit::TimeSums() : same->second});
        }
    }
    endResetModel();
}

int TimesModel::objectOf(int row) const
{
    const bool isObject = m_by == By::Object && row > 0 && row < int(m_rows.size());
    return isObject ? m_rows[size_t(row)].number : -1;
}

int TimesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int TimesModel::columnCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return m_parts > 1 ? ColumnCount : AllParts;
}

QString TimesModel::nameOf(int row) const
{
    if (row == 0)
        return tr("One part");
    const int number = m_rows[size_t(row)].number;
    if (m_by == By::Pen)
        return tr("Pen %1").arg(number);
    if (m_by == By::Pass)
        return tr("Pass %1").arg(number);
    return m_job->request.items.value(number).name;
}

double TimesModel::secondsOf(const Row &row, int column) const
{
    switch (column) {
    case Total:
        return row.first.totalS();
    case Marking:
        return row.first.markS;
    case Jumps:
        return row.first.jumpS;
    case Delays:
        return row.first.delayS;
    default:
        return row.first.totalS() + row.further.totalS() * (m_parts - 1);
    }
}

QVariant TimesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole && index.column() != What)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ToolTipRole && index.column() == What)
        return nameOf(index.row());
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == What)
        return nameOf(index.row());
    const double seconds = secondsOf(m_rows[size_t(index.row())], index.column());
    return QLocale().toString(seconds, 'f', kDecimals);
}

QVariant TimesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case What:
        return tr("Seconds");
    case Total:
        return tr("Total");
    case Marking:
        return tr("Marking");
    case Jumps:
        return tr("Jumps");
    case Delays:
        return tr("Delays");
    default:
        return tr("%1 parts").arg(m_parts);
    }
}

} // namespace studio
