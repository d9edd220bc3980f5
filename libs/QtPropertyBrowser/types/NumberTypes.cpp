#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QtMath>

#include <limits>

namespace rowtypes {

namespace {

/** What `int` and `double` rows have in common: bounds that a value is brought into. */
template <class Number>
class NumberType : public RowType
{
public:
    NumberType(int type, Number lowest, Number highest)
        : RowType(type, type), m_lowestValue(lowest), m_highestValue(highest)
    {
    }

    QVariant initialValue() const override { return Number(0); }

    QVector<AttributeSpec> attributes() const override
    {
        return {{minimumName(), valueType(), m_lowestValue},
                {maximumName(), valueType(), m_highestValue},
                {singleStepName(), valueType(), Number(1)}};
    }

    bool accepts(const QVariant &value, const QVariantMap &) const override
    {
        return !qIsNaN(value.toDouble());
    }

    QVariant bounded(const QVariant &value, const QVariantMap &attributes) const override
    {
        return qBound(number(attributes.value(minimumName())), number(value),
                      number(attributes.value(maximumName())));
    }

    bool same(const QVariant &left, const QVariant &right) const override
    {
        return number(left) == number(right);
    }

    void setAttribute(QVariantMap *attributes, const QString &name,
                      const QVariant &value) const override
    {
        const Number entered = number(value);
        if (qIsNaN(value.toDouble()))
            return;
        if (name == singleStepName()) {
            attributes->insert(name, qMax(Number(0), entered));
            return;
        }
        attributes->insert(name, entered);
        if (number(attributes->value(minimumName())) > number(attributes->value(maximumName())))
            attributes->insert(name == minimumName() ? maximumName() : minimumName(), entered);
    }

protected:
    static Number number(const QVariant &value) { return value.value<Number>(); }

private:
    const Number m_lowestValue;
    const Number m_highestValue;
};

class IntType : public NumberType<int>
{
public:
    IntType()
        : NumberType(QMetaType::Int, std::numeric_limits<int>::min(),
                     std::numeric_limits<int>::max())
    {
    }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return numberText(value.toInt());
    }
};

class DoubleType : public NumberType<double>
{
public:
    DoubleType()
        : NumberType(QMetaType::Double, -double(std::numeric_limits<int>::max()),
                     double(std::numeric_limits<int>::max()))
    {
    }

    QVector<AttributeSpec> attributes() const override
    {
        return NumberType::attributes()
               << AttributeSpec{decimalsName(), QMetaType::Int, kDefaultDecimals};
    }

    void setAttribute(QVariantMap *attributes, const QString &name,
                      const QVariant &value) const override
    {
        if (name == decimalsName())
            attributes->insert(name, boundedDecimals(value.toInt()));
        else
            NumberType::setAttribute(attributes, name, value);
    }

    QString text(const QVariant &value, const QVariantMap &attributes) const override
    {
        return numberText(value.toDouble(), attributes.value(decimalsName()).toInt());
    }
};

} // namespace

void addNumberTypes(RowTypes *types)
{
    types->push_back(std::make_unique<IntType>());
    types->push_back(std::make_unique<DoubleType>());
}

} // namespace rowtypes
