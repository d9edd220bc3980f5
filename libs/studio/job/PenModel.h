#pragma once

#include <jobkit/values/Pen.h>

#include <QtCore/QAbstractTableModel>

namespace studio {

/**
 * Pens as rows that can be edited. An edit that is out of range is refused and told; a good one is
 * not made here but asked for, so that it can be undone.
 */
class PenModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        On,
        Number,
        Name,
        Speed,      ///< mm/s
        Power,      ///< %
        Frequency,  ///< kHz
        PulseWidth, ///< ns
        DotTime,    ///< ms on a dot
        Passes,
        Mode,
        ColumnCount
    };

    explicit PenModel(QObject *parent = nullptr);

    void setPens(const QVector<jobkit::Pen> &pens);
    const QVector<jobkit::Pen> &pens() const { return m_pens; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /** The user edited a pen: these are to become the drawing's. */
    void edited(const QVector<jobkit::Pen> &pens);
    /** An entry was refused, in one sentence. */
    void refused(const QString &why);

private:
    QString shown(const jobkit::Pen &pen, int column) const;

    QVector<jobkit::Pen> m_pens;
};

} // namespace studio
