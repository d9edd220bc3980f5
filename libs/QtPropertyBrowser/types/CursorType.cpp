#include <QtPropertyBrowser/types/CursorNames_p.h>
#include <QtPropertyBrowser/types/RowIcons_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QCursor>

namespace rowtypes {

namespace {

struct NamedShape
{
    Qt::CursorShape shape;
    const char *name;
};

const NamedShape kShapes[] = {
    {Qt::ArrowCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Arrow")},
    {Qt::UpArrowCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Up arrow")},
    {Qt::CrossCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Cross")},
    {Qt::WaitCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Wait")},
    {Qt::IBeamCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Text")},
    {Qt::SizeVerCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Size vertically")},
    {Qt::SizeHorCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Size horizontally")},
    {Qt::SizeFDiagCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Size falling diagonal")},
    {Qt::SizeBDiagCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Size rising diagonal")},
    {Qt::SizeAllCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Size all")},
    {Qt::BlankCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Blank")},
    {Qt::SplitVCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Split vertically")},
    {Qt::SplitHCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Split horizontally")},
    {Qt::PointingHandCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Pointing hand")},
    {Qt::ForbiddenCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Forbidden")},
    {Qt::OpenHandCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Open hand")},
    {Qt::ClosedHandCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Closed hand")},
    {Qt::WhatsThisCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "What's this")},
    {Qt::BusyCursor, QT_TRANSLATE_NOOP("QtCursorPropertyManager", "Busy")},
};

Qt::CursorShape shape(const QVariant &value) { return value.value<QCursor>().shape(); }

class CursorType : public RowType
{
public:
    CursorType() : RowType(QMetaType::QCursor, QMetaType::QCursor) {}

    QVariant initialValue() const override { return QCursor(); }

    bool same(const QVariant &left, const QVariant &right) const override
    {
        return left.value<QCursor>() == right.value<QCursor>();
    }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return cursorName(shape(value));
    }

    QIcon icon(const QVariant &value, const QVariantMap &) const override
    {
        return cursorIcon(shape(value));
    }
};

} // namespace

QVector<Qt::CursorShape> cursorShapes()
{
    QVector<Qt::CursorShape> shapes;
    for (const NamedShape &named : kShapes)
        shapes.append(named.shape);
    return shapes;
}

QString cursorName(Qt::CursorShape shape)
{
    for (const NamedShape &named : kShapes) {
        if (named.shape == shape)
            return QCoreApplication::translate("QtCursorPropertyManager", named.name);
    }
    return {};
}

void addCursorType(RowTypes *types) { types->push_back(std::make_unique<CursorType>()); }

} // namespace rowtypes
