#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QRectF>
#include <QtCore/QtMath>

#include <limits>

namespace rowtypes {

namespace {

/** Limit: half the range of `int`, so that position plus size never overflows. */
constexpr int kMaxRectCoordinate = std::numeric_limits<int>::max() / 2;

/** A span of one axis: where it begins and how long it is. */
template <class Wide>
struct Span
{
    Wide start;
    Wide length;
};

/** `span` inside `limits`: shortened first, then moved; without limits only its length is kept. */
template <class Wide>
Span<Wide> within(Span<Wide> span, const Span<Wide> *limits)
{
    constexpr Wide largest = kMaxRectCoordinate;
    span.start = qBound(-largest, span.start, largest);
    span.length = qBound(Wide(0), span.length, largest);
    if (!limits)
        return span;
    span.length = qMin(span.length, limits->length);
    const Wide lastStart = limits->start + limits->length - span.length;
    span.start = qBound(limits->start, span.start, qMax(limits->start, lastStart));
    return span;
}

Span<qint64> horizontal(const QRect &rect)
{
    return {rect.left(), qint64(rect.right()) - rect.left() + 1};
}
Span<qint64> vertical(const QRect &rect)
{
    return {rect.top(), qint64(rect.bottom()) - rect.top() + 1};
}
Span<double> horizontal(const QRectF &rect) { return {rect.x(), rect.width()}; }
Span<double> vertical(const QRectF &rect) { return {rect.y(), rect.height()}; }

/** The rules of `QRect` and `QRectF`; Wide holds every coordinate and length without overflow. */
template <class Rect, class Number, class Wide>
class AnyRectType : public RowType
{
public:
    AnyRectType(int type, int numberType) : RowType(type, type), m_number(numberType) {}

    QVariant initialValue() const override { return Rect(0, 0, 0, 0); }

    QVector<AttributeSpec> attributes() const override
    {
        return {{constraintName(), valueType(), Rect()}};
    }

    bool accepts(const QVariant &value, const QVariantMap &) const override
    {
        const Span<Wide> x = horizontal(rect(value));
        const Span<Wide> y = vertical(rect(value));
        return !qIsNaN(double(x.start) + double(x.length) + double(y.start) + double(y.length));
    }

    QVariant bounded(const QVariant &value, const QVariantMap &attributes) const override
    {
        const Rect held = rect(value);
        const Rect limits = rect(attributes.value(constraintName()));
        if (limits.isNull())
            return made(within<Wide>(horizontal(held), nullptr),
                        within<Wide>(vertical(held), nullptr));
        const Span<Wide> limitsX = horizontal(limits);
        const Span<Wide> limitsY = vertical(limits);
        return made(within(horizontal(held), &limitsX), within(vertical(held), &limitsY));
    }

    void setAttribute(QVariantMap *attributes, const QString &name,
                      const QVariant &value) const override
    {
        const bool isConstraint = name == constraintName();
        attributes->insert(name,
                           isConstraint ? bounded(value, {}) : boundedDecimals(value.toInt()));
    }

    bool same(const QVariant &left, const QVariant &right) const override
    {
        for (int field = 0; field < 4; ++field) {
            if (fieldValue(left, field).template value<Number>() !=
                fieldValue(right, field).template value<Number>())
                return false;
        }
        return true;
    }

    QVector<FieldSpec> fields(const QVariant &, const QVariantMap &attributes) const override
    {
        QVector<FieldSpec> specs;
        for (int field = 0; field < 4; ++field)
            specs.append({fieldName(field), m_number, fieldAttributes(field, attributes)});
        return specs;
    }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        const Rect held = rect(value);
        switch (field) {
        case 0:
            return Number(horizontal(held).start);
        case 1:
            return Number(vertical(held).start);
        case 2:
            return Number(horizontal(held).length);
        default:
            return Number(vertical(held).length);
        }
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        Span<Wide> x = horizontal(rect(value));
        Span<Wide> y = vertical(rect(value));
        Wide *const edited[] = {&x.start, &y.start, &x.length, &y.length};
        *edited[field] = part.value<Number>();
        return made(within<Wide>(x, nullptr), within<Wide>(y, nullptr));
    }

protected:
    static Rect rect(const QVariant &value) { return value.value<Rect>(); }
    virtual QString fieldName(int field) const = 0;

private:
    static Rect made(Span<Wide> x, Span<Wide> y)
    {
        return Rect(Number(x.start), Number(y.start), Number(x.length), Number(y.length));
    }

    /** Bounds of one sub-row: a size is never negative, and nothing leaves the constraint. */
    QVariantMap fieldAttributes(int field, const QVariantMap &attributes) const
    {
        const bool isLength = field >= 2;
        Number lowest = isLength ? 0 : -kMaxRectCoordinate;
        Number highest = kMaxRectCoordinate;
        const Rect limits = rect(attributes.value(constraintName()));
        if (!limits.isNull()) {
            const Span<Wide> span = field % 2 == 0 ? horizontal(limits) : vertical(limits);
            lowest = isLength ? 0 : Number(span.start);
            highest = isLength ? Number(span.length) : Number(span.start + span.length);
        }
        QVariantMap own{{minimumName(), lowest}, {maximumName(), highest}};
        if (attributes.contains(decimalsName()))
            own.insert(decimalsName(), attributes.value(decimalsName()));
        return own;
    }

    const int m_number;
};

class RectType : public AnyRectType<QRect, int, qint64>
{
public:
    RectType() : AnyRectType(QMetaType::QRect, QMetaType::Int) {}

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return QStringLiteral("[(%1, %2), %3 x %4]")
            .arg(numberText(fieldValue(value, 0).toInt()), numberText(fieldValue(value, 1).toInt()),
                 numberText(fieldValue(value, 2).toInt()),
                 numberText(fieldValue(value, 3).toInt()));
    }

protected:
    QString fieldName(int field) const override
    {
        switch (field) {
        case 0:
            return QCoreApplication::translate("QtRectPropertyManager", "X");
        case 1:
            return QCoreApplication::translate("QtRectPropertyManager", "Y");
        case 2:
            return QCoreApplication::translate("QtRectPropertyManager", "Width");
        default:
            return QCoreApplication::translate("QtRectPropertyManager", "Height");
        }
    }
};

class RectFType : public AnyRectType<QRectF, double, double>
{
public:
    RectFType() : AnyRectType(QMetaType::QRectF, QMetaType::Double) {}

    QVector<AttributeSpec> attributes() const override
    {
        return AnyRectType::attributes()
               << AttributeSpec{decimalsName(), QMetaType::Int, kDefaultDecimals};
    }

    QString text(const QVariant &value, const QVariantMap &attributes) const override
    {
        const QRectF held = rect(value);
        const int decimals = attributes.value(decimalsName()).toInt();
        return QStringLiteral("[(%1, %2), %3 x %4]")
            .arg(numberText(held.x(), decimals), numberText(held.y(), decimals),
                 numberText(held.width(), decimals), numberText(held.height(), decimals));
    }

protected:
    QString fieldName(int field) const override
    {
        switch (field) {
        case 0:
            return QCoreApplication::translate("QtRectFPropertyManager", "X");
        case 1:
            return QCoreApplication::translate("QtRectFPropertyManager", "Y");
        case 2:
            return QCoreApplication::translate("QtRectFPropertyManager", "Width");
        default:
            return QCoreApplication::translate("QtRectFPropertyManager", "Height");
        }
    }
};

} // namespace

void addRectTypes(RowTypes *types)
{
    types->push_back(std::make_unique<RectType>());
    types->push_back(std::make_unique<RectFType>());
}

} // namespace rowtypes
