#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QPointF>
#include <QtCore/QtMath>

#include <limits>

namespace rowtypes {

namespace {

class PointType : public RowType
{
public:
    PointType() : RowType(QMetaType::QPoint, QMetaType::QPoint) {}

    QVariant initialValue() const override { return QPoint(); }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        const QPoint point = value.toPoint();
        return QStringLiteral("(%1, %2)").arg(numberText(point.x()), numberText(point.y()));
    }

    QVector<FieldSpec> fields(const QVariant &, const QVariantMap &) const override
    {
        return {{QCoreApplication::translate("QtPointPropertyManager", "X"), QMetaType::Int, {}},
                {QCoreApplication::translate("QtPointPropertyManager", "Y"), QMetaType::Int, {}}};
    }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        return field == 0 ? value.toPoint().x() : value.toPoint().y();
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        QPoint point = value.toPoint();
        (field == 0 ? point.rx() : point.ry()) = part.toInt();
        return point;
    }
};

class PointFType : public RowType
{
public:
    PointFType() : RowType(QMetaType::QPointF, QMetaType::QPointF) {}

    QVariant initialValue() const override { return QPointF(); }

    QVector<AttributeSpec> attributes() const override
    {
        return {{decimalsName(), QMetaType::Int, kDefaultDecimals}};
    }

    bool accepts(const QVariant &value, const QVariantMap &) const override
    {
        return !qIsNaN(value.toPointF().x()) && !qIsNaN(value.toPointF().y());
    }

    // Limit: the bounds of a number row, which each coordinate has to fit into.
    QVariant bounded(const QVariant &value, const QVariantMap &) const override
    {
        constexpr double limit = std::numeric_limits<int>::max();
        const QPointF point = value.toPointF();
        return QPointF(qBound(-limit, point.x(), limit), qBound(-limit, point.y(), limit));
    }

    bool same(const QVariant &left, const QVariant &right) const override
    {
        const QPointF a = left.toPointF();
        const QPointF b = right.toPointF();
        return a.x() == b.x() && a.y() == b.y();
    }

    void setAttribute(QVariantMap *attributes, const QString &name,
                      const QVariant &value) const override
    {
        attributes->insert(name, boundedDecimals(value.toInt()));
    }

    QString text(const QVariant &value, const QVariantMap &attributes) const override
    {
        const QPointF point = value.toPointF();
        const int decimals = attributes.value(decimalsName()).toInt();
        return QStringLiteral("(%1, %2)")
            .arg(numberText(point.x(), decimals), numberText(point.y(), decimals));
    }

    QVector<FieldSpec> fields(const QVariant &, const QVariantMap &attributes) const override
    {
        const QVariantMap shared{{decimalsName(), attributes.value(decimalsName())}};
        return {{QCoreApplication::translate("QtPointFPropertyManager", "X"), QMetaType::Double,
                 shared},
                {QCoreApplication::translate("QtPointFPropertyManager", "Y"), QMetaType::Double,
                 shared}};
    }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        return field == 0 ? value.toPointF().x() : value.toPointF().y();
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        QPointF point = value.toPointF();
        (field == 0 ? point.rx() : point.ry()) = part.toDouble();
        return point;
    }
};

} // namespace

void addPointTypes(RowTypes *types)
{
    types->push_back(std::make_unique<PointType>());
    types->push_back(std::make_unique<PointFType>());
}

} // namespace rowtypes
