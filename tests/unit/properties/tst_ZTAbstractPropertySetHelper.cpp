#include <support/RecordRow.h>
#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtTreePropertyBrowser.h>
#include <ZTDrawEngineLib/properties/ZTItemPropertyList.h>

#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

/** A record of a host. */
struct PenRecord
{
    int pen = 0;
    QString note;
};
bool operator==(const PenRecord &a, const PenRecord &b)
{
    return a.pen == b.pen && a.note == b.note;
}
bool operator!=(const PenRecord &a, const PenRecord &b) { return !(a == b); }
Q_DECLARE_METATYPE(PenRecord)

namespace {

QString str(const char *text) { return QString::fromLatin1(text); }

class PenHelper : public ZTAbstractPropertySetHelper
{
public:
    using ZTAbstractPropertySetHelper::ZTAbstractPropertySetHelper;

    void addProperty(const QObject *object, const QMetaProperty &property,
                     QtVariantProperty *parent) override
    {
        QtVariantProperty *pen = manager->addProperty(QMetaType::Int, str("pen"));
        pen->setValue(property.read(object).value<PenRecord>().pen);
        parent->addSubProperty(pen);
    }

    QVariant valueChanged(const QObject *object, const QMetaProperty &property, const QString &name,
                          const QVariant &value) override
    {
        auto record = property.read(object).value<PenRecord>();
        if (name != str("pen") || record.pen == value.toInt())
            return {};
        record.pen = value.toInt();
        return QVariant::fromValue(record);
    }

    void setValue(QtVariantProperty *parent, const QVariant &value) override
    {
        static_cast<QtVariantProperty *>(parent->subProperties().first())
            ->setValue(value.value<PenRecord>().pen);
    }

    QVariant getValue(QtVariantProperty *) override { return {}; }
};

class PenObject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(PenRecord penRecord MEMBER penRecord)

public:
    PenRecord penRecord{3, str("a note that a copy of bytes would lose")};
};

} // namespace

class tst_ZTAbstractPropertySetHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aHostsHelper_editsTheHostsRecord()
    {
        const testsupport::WarningGuard warnings;
        QMetaType::registerEqualsComparator<PenRecord>();
        PenObject object;
        QUndoStack stack;
        ZTItemPropertyList list(nullptr);
        list.setUndoStack(&stack);
        PenHelper helper(list.getVariantManager());
        list.addPropertySetHelper(qMetaTypeId<PenRecord>(), &helper);
        list.setObject(&object);
        QtProperty *group = list.findChild<QtTreePropertyBrowser *>()->properties().first();
        auto *pen = static_cast<QtVariantProperty *>(group->subProperties().first());
        QCOMPARE(pen->value(), QVariant(3));
        QCOMPARE(stack.count(), 0);
        pen->setValue(5);
        QCOMPARE(object.penRecord.pen, 5);
        QCOMPARE(object.penRecord.note, str("a note that a copy of bytes would lose"));
        QCOMPARE(stack.count(), 1);
        stack.undo();
        list.updateProperty();
        QCOMPARE(pen->value(), QVariant(3));
        QVERIFY(stack.canRedo());
        list.setObject(nullptr);
    }
};

QTEST_MAIN(tst_ZTAbstractPropertySetHelper)
#include "tst_ZTAbstractPropertySetHelper.moc"
