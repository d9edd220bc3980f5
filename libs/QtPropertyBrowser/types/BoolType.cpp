#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtPropertyBrowser/types/RowIcons_p.h>

#include <QtCore/QCoreApplication>

namespace rowtypes {

namespace {

class BoolType : public RowType
{
public:
    BoolType() : RowType(QMetaType::Bool, QMetaType::Bool) {}

    QVariant initialValue() const override { return false; }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return value.toBool() ? QCoreApplication::translate("QtBoolPropertyManager", "True")
                              : QCoreApplication::translate("QtBoolPropertyManager", "False");
    }

    QIcon icon(const QVariant &value, const QVariantMap &) const override
    {
        return checkBoxIcon(value.toBool());
    }
};

} // namespace

void addBoolType(RowTypes *types) { types->push_back(std::make_unique<BoolType>()); }

} // namespace rowtypes
