#pragma once

#include <studio/job/JobRun.h>

#include <QtCore/QAbstractTableModel>

#include <vector>

namespace studio {

/** Where the time of a job goes, as a table: one part first, then by pen, object or pass. */
class TimesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum class By : quint8 { Pen, Object, Pass };

    /** The last one is there for several parts alone. Unit: seconds. */
    enum Column { What, Total, Marking, Jumps, Delays, AllParts, ColumnCount };

    explicit TimesModel(QObject *parent = nullptr);

    void setJob(const std::shared_ptr<const Job> &job); ///< may be null
    void setBy(By by);

    /** Range: from 1. Parts after the first begin where the one before ended, with the same plan.
     */
    void setParts(int parts);

    /** The object that a row is about, as the job counts; -1: none. */
    int objectOf(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    struct Row
    {
        int number = 0; ///< of the pen, the object or the pass; no matter in the first row
        jobkit::TimeSums first;
        jobkit::TimeSums further; ///< of each part after the first
    };

    void fill();
    QString nameOf(int row) const;
    double secondsOf(const Row &row, int column) const;

    std::shared_ptr<const Job> m_job;
    By m_by = By::Pen;
    int m_parts = 1;
    std::vector<Row> m_rows;
};

} // namespace studio
