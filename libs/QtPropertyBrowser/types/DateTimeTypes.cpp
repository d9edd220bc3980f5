#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QDateTime>

namespace rowtypes {

namespace {

class DateType : public RowType
{
public:
    DateType() : RowType(QMetaType::QDate, QMetaType::QDate) {}

    QVariant initialValue() const override { return QDate::currentDate(); }

    /** Limit: the dates that a date editor can show. */
    QVector<AttributeSpec> attributes() const override
    {
        return {{minimumName(), QMetaType::QDate, QDate(1752, 9, 14)},
                {maximumName(), QMetaType::QDate, QDate(9999, 12, 31)}};
    }

    bool accepts(const QVariant &value, const QVariantMap &) const override
    {
        return value.toDate().isValid();
    }

    QVariant bounded(const QVariant &value, const QVariantMap &attributes) const override
    {
        return qBound(attributes.value(minimumName()).toDate(), value.toDate(),
                      attributes.value(maximumName()).toDate());
    }

    void setAttribute(QVariantMap *attributes, const QString &name,
                      const QVariant &value) const override
    {
        if (!value.toDate().isValid())
            return;
        attributes->insert(name, value);
        if (attributes->value(minimumName()).toDate() > attributes->value(maximumName()).toDate())
            attributes->insert(name == minimumName() ? maximumName() : minimumName(), value);
    }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return QLocale().toString(value.toDate(), QLocale::ShortFormat);
    }
};

class TimeType : public RowType
{
public:
    TimeType() : RowType(QMetaType::QTime, QMetaType::QTime) {}

    QVariant initialValue() const override { return QTime::currentTime(); }

    bool accepts(const QVariant &value, const QVariantMap &) const override
    {
        return value.toTime().isValid();
    }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return QLocale().toString(value.toTime(), QLocale::ShortFormat);
    }
};

class DateTimeType : public RowType
{
public:
    DateTimeType() : RowType(QMetaType::QDateTime, QMetaType::QDateTime) {}

    QVariant initialValue() const override { return QDateTime::currentDateTime(); }

    bool accepts(const QVariant &value, const QVariantMap &) const override
    {
        return value.toDateTime().isValid();
    }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return QLocale().toString(value.toDateTime(), QLocale::ShortFormat);
    }
};

} // namespace

void addDateTimeTypes(RowTypes *types)
{
    types->push_back(std::make_unique<DateType>());
    types->push_back(std::make_unique<TimeType>());
    types->push_back(std::make_unique<DateTimeType>());
}

} // namespace rowtypes
