#include <QtPropertyBrowser/types/RowIcons_p.h>
#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QCoreApplication>

namespace rowtypes {

namespace {

QColor color(const QVariant &value) { return value.value<QColor>(); }

class ColorType : public RowType
{
public:
    ColorType() : RowType(QMetaType::QColor, QMetaType::QColor) {}

    QVariant initialValue() const override { return QColor(Qt::black); }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        const QColor held = color(value);
        return QStringLiteral("[%1, %2, %3] (%4)")
            .arg(numberText(held.red()), numberText(held.green()), numberText(held.blue()),
                 numberText(held.alpha()));
    }

    QIcon icon(const QVariant &value, const QVariantMap &) const override
    {
        return colorIcon(color(value));
    }

    QVector<FieldSpec> fields(const QVariant &, const QVariantMap &) const override
    {
        const QVariantMap byte{{minimumName(), 0}, {maximumName(), 255}};
        return {
            {QCoreApplication::translate("QtColorPropertyManager", "Red"), QMetaType::Int, byte},
            {QCoreApplication::translate("QtColorPropertyManager", "Green"), QMetaType::Int, byte},
            {QCoreApplication::translate("QtColorPropertyManager", "Blue"), QMetaType::Int, byte},
            {QCoreApplication::translate("QtColorPropertyManager", "Alpha"), QMetaType::Int, byte}};
    }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        const QColor held = color(value);
        const int channels[] = {held.red(), held.green(), held.blue(), held.alpha()};
        return channels[field];
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        QColor edited = color(value);
        const auto set = {&QColor::setRed, &QColor::setGreen, &QColor::setBlue, &QColor::setAlpha};
        (edited.*(set.begin()[field]))(part.toInt());
        return edited;
    }
};

} // namespace

void addColorType(RowTypes *types) { types->push_back(std::make_unique<ColorType>()); }

} // namespace rowtypes
