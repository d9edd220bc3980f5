#pragma once

#include <QtPropertyBrowser/QtVariantPropertyManager.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QVector>

#include <memory>
#include <unordered_map>

/** What the manager holds of one row. */
struct VariantRow
{
    QtProperty *property = nullptr;
    quint64 id = 0; ///< tells a row from a later one at the same address
    int propertyType = 0;
    const rowtypes::RowType *type = nullptr; ///< null for a type that only a derived class knows
    QVariant value;
    QVariantMap attributes;
    VariantRow *owner = nullptr;  ///< the row whose value this one is a part of
    int field = -1;               ///< which part
    QVector<VariantRow *> fields; ///< the parts' rows; null for one that somebody deleted
};

/** A signal to be emitted once every row that an edit concerns holds its new value. */
struct VariantSignal
{
    enum Kind { Attribute, Shown, Value };

    Kind kind;
    QtProperty *property;
    quint64 id;
    QString attribute;
    QVariant value;
};

using VariantSignals = QVector<VariantSignal>;

/** The rows and how an edit spreads: first everything is stored, then everything is told. */
class QtVariantPropertyManagerPrivate
{
public:
    explicit QtVariantPropertyManagerPrivate(QtVariantPropertyManager *manager) : m_q(manager) {}

    VariantRow *row(const QtProperty *property) const;
    QtVariantProperty *addRow(int propertyType, const QString &name);
    void initialize(QtProperty *property);
    void uninitialize(QtProperty *property);

    void setValue(VariantRow *row, const QVariant &value);
    void setAttribute(VariantRow *row, const QString &name, const QVariant &value);

private:
    bool isAlive(const QtProperty *property, quint64 id) const;
    void makeFields(VariantRow *row);
    void remakeFields(VariantRow *row);
    void refreshFields(VariantRow *row, VariantSignals *told);
    void storeAttributes(VariantRow *row, const QVariantMap &attributes, VariantSignals *told);
    QVariant fitted(const VariantRow *row, QVariant value) const;
    void changeValue(VariantRow *row, const QVariant &value, const VariantRow *forced,
                     VariantSignals *told);
    void store(VariantRow *row, const QVariant &value, const VariantRow *forced,
               VariantSignals *told);
    void announce(const VariantSignals &told);
    void announceOne(const VariantSignal &signal, const VariantSignals &all);

    QtVariantPropertyManager *const m_q;
    std::unordered_map<const QtProperty *, std::unique_ptr<VariantRow>> m_rows;
    quint64 m_lastId = 0;
    int m_pendingType = 0; ///< type of the row that `addRow` is making
};
