#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSizeF>
#include <QtCore/QtMath>

#include <limits>

namespace rowtypes {

namespace {

/** Sizes between a smallest and a largest size, each side for itself. */
template <class Size, class Number>
class AnySizeType : public RowType
{
public:
    AnySizeType(int type, int sideType) : RowType(type, type), m_side(sideType) {}

    QVariant initialValue() const override { return Size(0, 0); }

    QVector<AttributeSpec> attributes() const override
    {
        constexpr Number limit = std::numeric_limits<int>::max();
        return {{minimumName(), valueType(), Size(0, 0)},
                {maximumName(), valueType(), Size(limit, limit)}};
    }

    bool accepts(const QVariant &value, const QVariantMap &) const override
    {
        return !qIsNaN(double(size(value).width())) && !qIsNaN(double(size(value).height()));
    }

    QVariant bounded(const QVariant &value, const QVariantMap &attributes) const override
    {
        return size(value)
            .expandedTo(size(attributes.value(minimumName())))
            .boundedTo(size(attributes.value(maximumName())));
    }

    bool same(const QVariant &left, const QVariant &right) const override
    {
        return size(left).width() == size(right).width() &&
               size(left).height() == size(right).height();
    }

    void setAttribute(QVariantMap *attributes, const QString &name,
                      const QVariant &value) const override
    {
        attributes->insert(name, value);
        const QString other = name == minimumName() ? maximumName() : minimumName();
        const Size moved = size(attributes->value(other));
        attributes->insert(other, name == minimumName() ? moved.expandedTo(size(value))
                                                        : moved.boundedTo(size(value)));
    }

    QVector<FieldSpec> fields(const QVariant &, const QVariantMap &attributes) const override
    {
        const Size smallest = size(attributes.value(minimumName()));
        const Size largest = size(attributes.value(maximumName()));
        return {
            {sideName(0), m_side, sideAttributes(smallest.width(), largest.width(), attributes)},
            {sideName(1), m_side, sideAttributes(smallest.height(), largest.height(), attributes)}};
    }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        return field == 0 ? size(value).width() : size(value).height();
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        Size edited = size(value);
        (field == 0 ? edited.rwidth() : edited.rheight()) = part.value<Number>();
        return edited;
    }

protected:
    static Size size(const QVariant &value) { return value.value<Size>(); }
    virtual QString sideName(int index) const = 0;

private:
    static QVariantMap sideAttributes(Number smallest, Number largest,
                                      const QVariantMap &attributes)
    {
        QVariantMap own{{minimumName(), smallest}, {maximumName(), largest}};
        if (attributes.contains(decimalsName()))
            own.insert(decimalsName(), attributes.value(decimalsName()));
        return own;
    }

    const int m_side;
};

class SizeType : public AnySizeType<QSize, int>
{
public:
    SizeType() : AnySizeType(QMetaType::QSize, QMetaType::Int) {}

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return QStringLiteral("%1 x %2").arg(numberText(size(value).width()),
                                             numberText(size(value).height()));
    }

protected:
    QString sideName(int index) const override
    {
        return index == 0 ? QCoreApplication::translate("QtSizePropertyManager", "Width")
                          : QCoreApplication::translate("QtSizePropertyManager", "Height");
    }
};

class SizeFType : public AnySizeType<QSizeF, double>
{
public:
    SizeFType() : AnySizeType(QMetaType::QSizeF, QMetaType::Double) {}

    QVector<AttributeSpec> attributes() const override
    {
        return AnySizeType::attributes()
               << AttributeSpec{decimalsName(), QMetaType::Int, kDefaultDecimals};
    }

    void setAttribute(QVariantMap *attributes, const QString &name,
                      const QVariant &value) const override
    {
        if (name == decimalsName())
            attributes->insert(name, boundedDecimals(value.toInt()));
        else
            AnySizeType::setAttribute(attributes, name, value);
    }

    QString text(const QVariant &value, const QVariantMap &attributes) const override
    {
        const int decimals = attributes.value(decimalsName()).toInt();
        return QStringLiteral("%1 x %2").arg(numberText(size(value).width(), decimals),
                                             numberText(size(value).height(), decimals));
    }

protected:
    QString sideName(int index) const override
    {
        return index == 0 ? QCoreApplication::translate("QtSizeFPropertyManager", "Width")
                          : QCoreApplication::translate("QtSizeFPropertyManager", "Height");
    }
};

} // namespace

void addSizeTypes(RowTypes *types)
{
    types->push_back(std::make_unique<SizeType>());
    types->push_back(std::make_unique<SizeFType>());
}

} // namespace rowtypes
