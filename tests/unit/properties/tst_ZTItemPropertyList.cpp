#include <support/PropertyObjects.h>
#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QMetaProperty>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QUndoStack>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

using testsupport::EveryTypeObject;
using testsupport::TextObject;

namespace {

/** Asked before anything else in this program asks for an id. */
const int kFirstAskedRecord = qMetaTypeId<ZTFillParam>();

QString str(const char *text) { return QString::fromUtf8(text); }

struct Flag
{
    bool isSet = false;
};

/** A helper that tells when it is deleted. */
class MortalHelper : public ZTFillParamPropertySetHelper
{
public:
    MortalHelper(QtVariantPropertyManager *rowManager, bool *isDeleted)
        : ZTFillParamPropertySetHelper(rowManager), deleted(isDeleted)
    {
    }
    ~MortalHelper() override { *deleted = true; }

private:
    bool *deleted;
};

/** An object with two records of one type, and properties named as fields of a record. */
class AmbiguousObject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ZTRoundingParam inner MEMBER inner)
    Q_PROPERTY(ZTRoundingParam outer MEMBER outer)
    Q_PROPERTY(ZTShxFontParam shxFont MEMBER shxFont)
    Q_PROPERTY(double height MEMBER height)

public:
    ZTRoundingParam inner;
    ZTRoundingParam outer;
    ZTShxFontParam shxFont;
    double height = 5.0;
};

/** Pointers to a class of Qt's and to one of the library's. */
class PointerObject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QWidget *first MEMBER first)
    Q_PROPERTY(ZTItemPropertyList *later MEMBER later)

public:
    QWidget *first = nullptr;
    ZTItemPropertyList *later = nullptr;
};

struct Call
{
    QString name;
    QVariant value;
};
QVector<Call> calls;
QVector<Call> otherCalls;
ZTItemPropertyList *reentered = nullptr;
QObject *shownNext = nullptr;

void noteCall(QtAbstractPropertyBrowser *, const QString &name, const QVariant &value)
{
    calls.append({name, value});
}

void noteOtherCall(QtAbstractPropertyBrowser *, const QString &name, const QVariant &value)
{
    otherCalls.append({name, value});
}

void showAnother(QtAbstractPropertyBrowser *, const QString &, const QVariant &)
{
    reentered->setObject(shownNext);
}

} // namespace

class tst_ZTItemPropertyList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        singletons.reset(new testsupport::SingletonGuard);
        warnings.reset(new testsupport::WarningGuard);
        // Ten pixels a millimetre.
        ZTCoord::getInstance()->setPhysicalHeight(90.0);
        stack.reset(new QUndoStack);
        text.reset(new TextObject);
        list.reset(new ZTItemPropertyList(nullptr));
        list->setUndoStack(stack.get());
        browser = list->findChild<QtTreePropertyBrowser *>();
        calls.clear();
        otherCalls.clear();
    }

    void cleanup()
    {
        list.reset();
        text.reset();
        stack.reset();
        warnings.reset();
        singletons.reset();
    }

    void newList_isEmptyEnabledAndReady()
    {
        QVERIFY(!list->getObject());
        QVERIFY(list->isEnabled());
        QVERIFY(ZTItemPropertyList(nullptr).getUndoStack() == nullptr);
        QCOMPARE(list->getUndoStack(), stack.get());
        QCOMPARE(browser->indentation(), 10);
        QCOMPARE(list->getVariantManager()->parent(), list.get());
        const auto *layout = qobject_cast<QGridLayout *>(list->layout());
        QVERIFY(layout);
        QCOMPARE(layout->spacing(), 0);
        QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(layout->itemAtPosition(0, 0)->widget(), browser);
        QCOMPARE(layout->count(), 1);
    }

    void newList_hasHelpersForTheFourRecords()
    {
        const auto helper = [this](int id) { return list->getPropertySetHelper(id); };
        QVERIFY(dynamic_cast<ZTFillParamPropertySetHelper *>(helper(qMetaTypeId<ZTFillParam>())));
        QVERIFY(dynamic_cast<ZTRoundingParamPropertySetHelper *>(
            helper(qMetaTypeId<ZTRoundingParam>())));
        QVERIFY(dynamic_cast<ZTFontPropertySetHelper *>(helper(qMetaTypeId<ZTFontParam>())));
        QVERIFY(dynamic_cast<ZTShxFontPropertySetHelper *>(helper(qMetaTypeId<ZTShxFontParam>())));
        QVERIFY(!helper(qMetaTypeId<testsupport::UnknownRecord>()));
    }

    void timer_refreshesOnceASecond_alsoWithoutAnObject()
    {
        const auto *timer = list->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(timer);
        QCOMPARE(timer->interval(), 1000);
        QVERIFY(timer->isActive());
        QVERIFY(!timer->isSingleShot());
        list->setObject(text.get());
        text->lineSpan = 4.0;
        QTRY_COMPARE_WITH_TIMEOUT(row("lineSpan")->value(), QVariant(4.0), 5000);
    }

    void setObject_showsEveryPropertyOnce_inDeclaredOrder_butNotItsName()
    {
        list->setObject(text.get());
        QCOMPARE(list->getObject(), text.get());
        QCOMPARE(rowNames(),
                 str("pos,fillParam,text,roundingParam,lineSpan,font,shxFont,fontType"));
    }

    void setObject_baseClassesFirst_unsupportedTypesLeftOut_unknownRecordsEmpty()
    {
        EveryTypeObject every;
        list->setObject(&every);
        QCOMPARE(rowNames(),
                 str("pos,fillParam,text,roundingParam,lineSpan,font,shxFont,fontType,aBool,anInt,"
                     "aChar,aColor,aDate,aTime,aDateTime,aPoint,aSize,aSizeF,aRect,aRectF,aLocale,"
                     "fontParam,anUnknown"));
        const QtVariantProperty *unknown = row("anUnknown");
        QCOMPARE(unknown->propertyType(), QtVariantPropertyManager::groupTypeId());
        QCOMPARE(unknown->getUserType(), 0);
        QVERIFY(unknown->subProperties().isEmpty());
        list->updateProperty();
    }

    void setObject_recordsAreGroupsThatTellTheirType()
    {
        list->setObject(text.get());
        QCOMPARE(row("fillParam")->propertyType(), QtVariantPropertyManager::groupTypeId());
        QCOMPARE(row("fillParam")->getUserType(), qMetaTypeId<ZTFillParam>());
        QCOMPARE(row("fillParam")->subProperties().size(), 4);
        QCOMPARE(row("roundingParam")->getUserType(), qMetaTypeId<ZTRoundingParam>());
        QCOMPARE(row("roundingParam")->subProperties().size(), 5);
        QCOMPARE(row("shxFont")->getUserType(), qMetaTypeId<ZTShxFontParam>());
        QCOMPARE(row("shxFont")->subProperties().size(), 3);
        QCOMPARE(row("lineSpan")->getUserType(), 0);
    }

    void setObject_theCurrentOne_keepsTheRows()
    {
        list->setObject(text.get());
        const QList<QtProperty *> rows = browser->properties();
        list->setObject(text.get());
        QCOMPARE(browser->properties(), rows);
    }

    void setObject_null_emptiesAndDisables()
    {
        list->setObject(text.get());
        list->setObject(nullptr);
        QVERIFY(!list->getObject());
        QVERIFY(!list->isEnabled());
        QVERIFY(browser->properties().isEmpty());
        QVERIFY(list->getVariantManager()->properties().isEmpty());
        list->updateProperty();
        list->setObject(text.get());
        QVERIFY(list->isEnabled());
    }

    void setObject_nullAtFirst_disablesToo()
    {
        list->setObject(nullptr);
        QVERIFY(!list->isEnabled());
    }

    void setObject_another_deletesTheFormerRows()
    {
        EveryTypeObject every;
        list->setObject(&every);
        const int count = list->getVariantManager()->properties().size();
        for (int i = 0; i < 5; ++i) {
            list->setObject(text.get());
            list->setObject(&every);
        }
        QCOMPARE(list->getVariantManager()->properties().size(), count);
    }

    void setObject_leavesRowsOfTheHostAlone()
    {
        QtVariantProperty *own = list->getVariantManager()->addProperty(QMetaType::Int, str("own"));
        list->setObject(text.get());
        list->setObject(nullptr);
        QCOMPARE(list->getVariantManager()->properties(), QSet<QtProperty *>{own});
        own->setValue(3);
        QCOMPARE(stack->count(), 0);
    }

    void pos_showsMillimetres_andRecordsPixels()
    {
        text->pos = QPointF(100.0, 100.0);
        list->setObject(text.get());
        QCOMPARE(row("pos")->value().toPointF(), QPointF(10.0, 10.0));
        static_cast<QtVariantProperty *>(row("pos")->subProperties().first())->setValue(20.0);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(text->pos, QPointF(200.0, 100.0));
        text->pos = QPointF(50.0, -20.0);
        list->updateProperty();
        QCOMPARE(row("pos")->value().toPointF(), QPointF(5.0, -2.0));
        QCOMPARE(stack->count(), 1);
    }

    void pos_withoutAScale_isShownWithinTheRowsBounds_andLeftAlone()
    {
        text->pos = QPointF(100.0, 100.0);
        ZTCoord::getInstance()->setDisplayRatio(0.0);
        list->setObject(text.get());
        list->updateProperty();
        QVERIFY(qIsFinite(row("pos")->value().toPointF().x()));
        QCOMPARE(text->pos, QPointF(100.0, 100.0));
        QCOMPARE(stack->count(), 0);
    }

    void edit_isOneStep_andUndone()
    {
        list->setObject(text.get());
        row("lineSpan")->setValue(2.5);
        QCOMPARE(text->lineSpan, 2.5);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(stack->text(0), str("Property"));
        stack->undo();
        QCOMPARE(text->lineSpan, 1.5);
        QCOMPARE(row("lineSpan")->value(), QVariant(2.5));
        list->updateProperty();
        QCOMPARE(row("lineSpan")->value(), QVariant(1.5));
        QVERIFY(stack->canRedo());
        stack->redo();
        QCOMPARE(text->lineSpan, 2.5);
    }

    void edit_ofAFontField_isOneStep_andLeavesThePixelSize()
    {
        list->setObject(text.get());
        const QList<QtProperty *> fields = row("font")->subProperties();
        QCOMPARE(fields.at(1)->propertyName(), str("Pixel Size"));
        static_cast<QtVariantProperty *>(fields.at(2))->setValue(true);
        QCOMPARE(stack->count(), 1);
        QVERIFY(text->font.bold());
        QCOMPARE(text->font.pixelSize(), 100);
        static_cast<QtVariantProperty *>(fields.at(1))->setValue(40);
        QCOMPARE(stack->count(), 2);
        QCOMPARE(text->font.pixelSize(), 40);
    }

    void edit_ofARecordField_isOneStep()
    {
        list->setObject(text.get());
        sub("fillParam", "angle")->setValue(45.0);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(text->fillParam.angle, 45.0);
        stack->undo();
        QCOMPARE(text->fillParam, ZTFillParam());
        list->updateProperty();
        QCOMPARE(sub("fillParam", "angle")->value(), QVariant(0.0));
        QVERIFY(stack->canRedo());
    }

    void edit_toTheHeldValue_isNone()
    {
        list->setObject(text.get());
        text->lineSpan = 9.0;
        row("lineSpan")->setValue(9.0);
        QCOMPARE(stack->count(), 0);
        text->fillParam.angle = 30.0;
        sub("fillParam", "angle")->setValue(30.0);
        QCOMPARE(stack->count(), 0);
        text->fontType = FontType::singleLine;
        row("fontType")->setValue(0);
        QCOMPARE(stack->count(), 0);
    }

    void edit_withoutAStack_isLost_andTheRowComesBack()
    {
        list->setUndoStack(nullptr);
        list->setObject(text.get());
        row("lineSpan")->setValue(7.0);
        sub("fillParam", "angle")->setValue(7.0);
        QCOMPARE(text->lineSpan, 1.5);
        QCOMPARE(row("lineSpan")->value(), QVariant(7.0));
        list->updateProperty();
        QCOMPARE(row("lineSpan")->value(), QVariant(1.5));
        QCOMPARE(sub("fillParam", "angle")->value(), QVariant(0.0));
    }

    void edit_afterTheStackWasDeleted_isLost()
    {
        list->setObject(text.get());
        stack.reset();
        QVERIFY(!list->getUndoStack());
        row("lineSpan")->setValue(7.0);
        QCOMPARE(text->lineSpan, 1.5);
    }

    void fillingAndRefreshing_areNoEdits_andKeepTheRedo()
    {
        EveryTypeObject every;
        every.fillParam.spac = 12.0;
        every.fontParam.font.setItalic(true);
        every.fontType = FontType::singleLine;
        list->setObject(text.get());
        row("lineSpan")->setValue(7.0);
        stack->undo();
        const QSignalSpy written(&every, &TextObject::written);
        list->setObject(&every);
        every.fillParam.angle = 3.0;
        every.roundingParam.diameter = 4.0;
        every.aRectF = QRectF(9, 9, 9, 9);
        every.fontType = FontType::doubleLine;
        list->updateProperty();
        QCOMPARE(written.count(), 0);
        QCOMPARE(stack->count(), 1);
        QVERIFY(stack->canRedo());
        QCOMPARE(sub("fillParam", "angle")->value(), QVariant(3.0));
        QCOMPARE(sub("roundingParam", "diameter")->value(), QVariant(4.0));
        QCOMPARE(row("aRectF")->value(), QVariant(QRectF(9, 9, 9, 9)));
    }

    void refreshing_tellsOnlyOfRealChanges()
    {
        EveryTypeObject every;
        list->setObject(&every);
        list->updateProperty();
        QSignalSpy told(list->getVariantManager(), &QtVariantPropertyManager::valueChanged);
        list->updateProperty();
        QCOMPARE(told.count(), 0);
        every.anInt = 8;
        list->updateProperty();
        QCOMPARE(told.count(), 1);
    }

    void fontType_offersTwoNames_andNoneShowsNoText()
    {
        text->fontType = FontType::None;
        list->setObject(text.get());
        const QtVariantProperty *type = row("fontType");
        QCOMPARE(type->propertyType(), QtVariantPropertyManager::enumTypeId());
        QCOMPARE(type->attributeValue(str("enumNames")).toStringList(),
                 (QStringList{str("singleLine"), str("doubleLine")}));
        QCOMPARE(type->value(), QVariant(2));
        QCOMPARE(type->valueText(), QString());
        text->fontType = FontType::doubleLine;
        list->updateProperty();
        QCOMPARE(type->valueText(), str("doubleLine"));
    }

    void fontType_edited_greysTheOtherFont()
    {
        list->setObject(text.get());
        row("fontType")->setValue(0);
        QCOMPARE(text->fontType, FontType::singleLine);
        QVERIFY(!row("font")->isEnabled());
        QVERIFY(row("shxFont")->isEnabled());
        row("fontType")->setValue(1);
        QCOMPARE(text->fontType, FontType::doubleLine);
        QVERIFY(row("font")->isEnabled());
        QVERIFY(!row("shxFont")->isEnabled());
        QVERIFY(row("lineSpan")->isEnabled());
        QCOMPARE(stack->count(), 2);
    }

    void fontType_undone_greysWithTheNextRefresh()
    {
        list->setObject(text.get());
        row("fontType")->setValue(0);
        stack->undo();
        list->updateProperty();
        QVERIFY(row("font")->isEnabled());
        QVERIFY(!row("shxFont")->isEnabled());
        QVERIFY(stack->canRedo());
    }

    void fontRows_startEnabled_whateverTheType_data()
    {
        QTest::addColumn<int>("type");
        for (int type = 0; type < 3; ++type)
            QTest::addRow("%d", type) << type;
    }

    void fontRows_startEnabled_whateverTheType()
    {
        QFETCH(int, type);
        text->fontType = static_cast<FontType>(type);
        list->setObject(text.get());
        list->updateProperty();
        QVERIFY(row("font")->isEnabled());
        QVERIFY(row("shxFont")->isEnabled());
    }

    void disableFunction_theFirstOfAnObjectIsCalled_insteadOfTheDefault()
    {
        list->addDisableFunction(text.get(), nullptr);
        list->addDisableFunction(text.get(), noteCall);
        list->addDisableFunction(text.get(), noteOtherCall);
        list->setObject(text.get());
        list->addDisableFunction(text.get(), noteOtherCall);
        QCOMPARE(calls.size(), 0);
        row("fontType")->setValue(0);
        QVERIFY(row("font")->isEnabled());
        QCOMPARE(calls.size(), 1);
        QCOMPARE(calls.last().name, str("fontType"));
        QCOMPARE(calls.last().value, QVariant(0));
        row("pos")->setValue(QPointF(2.0, 3.0));
        QCOMPARE(calls.last().name, str("pos"));
        QCOMPARE(calls.last().value, QVariant(QPointF(20.0, 30.0)));
        sub("fillParam", "angle")->setValue(5.0);
        QCOMPARE(calls.last().name, str("fillParam"));
        QCOMPARE(calls.last().value.value<ZTFillParam>().angle, 5.0);
        QVERIFY(otherCalls.isEmpty());
    }

    void disableFunction_isCalledWithoutAStackToo()
    {
        list->setUndoStack(nullptr);
        list->addDisableFunction(text.get(), noteCall);
        list->setObject(text.get());
        row("lineSpan")->setValue(3.0);
        QCOMPARE(calls.size(), 1);
    }

    void disableFunction_isNotCalledForAnEditThatChangesNothing()
    {
        list->addDisableFunction(text.get(), noteCall);
        list->setObject(text.get());
        text->fillParam.angle = 5.0;
        sub("fillParam", "angle")->setValue(5.0);
        QCOMPARE(calls.size(), 0);
    }

    void disableFunction_isHandedDownToAnObjectAtTheSameAddress()
    {
        alignas(TextObject) char place[sizeof(TextObject)];
        auto *first = new (place) TextObject;
        list->addDisableFunction(first, noteCall);
        first->~TextObject();
        auto *second = new (place) TextObject;
        list->addDisableFunction(second, noteOtherCall);
        list->setObject(second);
        row("lineSpan")->setValue(3.0);
        QCOMPARE(calls.size(), 1);
        QCOMPARE(otherCalls.size(), 0);
        second->~TextObject();
    }

    void disableFunction_thatShowsAnotherObject_leavesTheEditWhereItWasMade()
    {
        TextObject other;
        reentered = list.get();
        shownNext = &other;
        list->addDisableFunction(text.get(), showAnother);
        list->setObject(text.get());
        row("lineSpan")->setValue(3.0);
        QCOMPARE(list->getObject(), &other);
        QCOMPARE(text->lineSpan, 3.0);
        QCOMPARE(other.lineSpan, 1.5);

        list->setObject(text.get());
        text->lineSpan = 4.0;
        text->text = str("new");
        list->updateProperty();
        QCOMPARE(list->getObject(), &other);
        QCOMPARE(row("text")->value(), QVariant(QString()));
    }

    void objectDestroyed_emptiesAndDisables()
    {
        list->setObject(text.get());
        text.reset();
        QVERIFY(!list->getObject());
        QVERIFY(!list->isEnabled());
        QVERIFY(browser->properties().isEmpty());
        QVERIFY(list->getVariantManager()->properties().isEmpty());
        list->updateProperty();
        TextObject next;
        list->setObject(&next);
        QVERIFY(list->isEnabled());
    }

    void objectNoLongerShown_mayGo()
    {
        TextObject other;
        list->setObject(text.get());
        list->setObject(&other);
        text.reset();
        QCOMPARE(list->getObject(), &other);
        QVERIFY(list->isEnabled());
        QCOMPARE(browser->properties().size(), 8);
    }

    void slotValueChanged_withoutAnObjectOrRow_doesNothing()
    {
        std::unique_ptr<QtVariantProperty> loose(
            list->getVariantManager()->addProperty(QMetaType::Double, str("lineSpan")));
        list->slotValueChanged(loose.get(), 3.0);
        list->slotValueChanged(nullptr, 3.0);
        list->setObject(text.get());
        list->slotValueChanged(nullptr, 3.0);
        QCOMPARE(stack->count(), 0);
        list->slotValueChanged(loose.get(), 3.0);
        QCOMPARE(text->lineSpan, 3.0);
    }

    void insertProperty_withoutAnObject_doesNothing()
    {
        list->insertProperty(text->metaObject()->property(1));
        list->setObject(text.get());
        list->insertProperty(text->metaObject()->property(0));
        list->insertProperty(QMetaProperty());
        QCOMPARE(browser->properties().size(), 8);
        list->insertProperty(
            text->metaObject()->property(text->metaObject()->indexOfProperty("text")));
        QCOMPARE(browser->properties().size(), 9);
        QCOMPARE(stack->count(), 0);
    }

    void processParentProperty_topLevelName_passesUnchanged()
    {
        list->setObject(text.get());
        QString name = str("text");
        QVariant value = 5;
        QVERIFY(list->processParentProperty(text->metaObject(), 6, row("pos"), name, value));
        QCOMPARE(name, str("text"));
        QCOMPARE(value, QVariant(5));
    }

    void processParentProperty_recordField_givesTheRecord()
    {
        list->setObject(text.get());
        QString name = str("diameter");
        QVariant value;
        QtVariantProperty *diameter = sub("roundingParam", "diameter");
        QVERIFY(list->processParentProperty(text->metaObject(), 3.0, diameter, name, value));
        QCOMPARE(name, str("roundingParam"));
        QCOMPARE(value.value<ZTRoundingParam>().diameter, 3.0);
        name = str("diameter");
        QVERIFY(!list->processParentProperty(text->metaObject(), 200.0, diameter, name, value));
        QCOMPARE(name, str("diameter"));
    }

    void processParentProperty_fieldOfNoRecord_fails()
    {
        list->setObject(text.get());
        auto *x = static_cast<QtVariantProperty *>(row("pos")->subProperties().first());
        QString name = str("X");
        QVariant value;
        QVERIFY(!list->processParentProperty(text->metaObject(), 3.0, x, name, value));
        QVERIFY(!list->processParentProperty(text->metaObject(), 3.0, row("pos"), name, value));
        list->removePropertySetHelper(qMetaTypeId<ZTRoundingParam>());
        name = str("diameter");
        QVERIFY(!list->processParentProperty(text->metaObject(), 3.0,
                                             sub("roundingParam", "diameter"), name, value));
    }

    void getParentPropertyName_findsTheRowsOwnRecord()
    {
        AmbiguousObject object;
        list->setObject(&object);
        const QMetaObject *meta = object.metaObject();
        QCOMPARE(ZTItemPropertyList::getParentPropertyName(sub("outer", "diameter"), meta),
                 str("outer"));
        QCOMPARE(ZTItemPropertyList::getParentPropertyName(row("outer"), meta), QString());
        QCOMPARE(ZTItemPropertyList::getParentPropertyName(sub("outer", "diameter"),
                                                           &QObject::staticMetaObject),
                 QString());
        sub("outer", "diameter")->setValue(1.0);
        QCOMPARE(object.outer.diameter, 1.0);
        QCOMPARE(object.inner.diameter, 200.0);
    }

    void fieldNamedAsAProperty_countsAsThatProperty()
    {
        AmbiguousObject object;
        list->setObject(&object);
        QCOMPARE(object.height, 5.0);
        list->updateProperty();
        QCOMPARE(object.height, 5.0);
        sub("shxFont", "height")->setValue(30.0);
        QCOMPARE(object.height, 30.0);
        QCOMPARE(object.shxFont.height, 100.0);
    }

    void helpers_theFirstOfAnIdStays()
    {
        const int id = qMetaTypeId<testsupport::UnknownRecord>();
        Flag firstGone;
        Flag secondGone;
        auto *first = new MortalHelper(list->getVariantManager(), &firstGone.isSet);
        auto *second = new MortalHelper(list->getVariantManager(), &secondGone.isSet);
        list->addPropertySetHelper(id, nullptr);
        QVERIFY(!list->getPropertySetHelper(id));
        list->addPropertySetHelper(id, first);
        list->addPropertySetHelper(id, second);
        QCOMPARE(list->getPropertySetHelper(id), first);
        list->removePropertySetHelper(id);
        QVERIFY(firstGone.isSet);
        QVERIFY(!list->getPropertySetHelper(id));
        list->removePropertySetHelper(id);
        list->addPropertySetHelper(id, second);
        QCOMPARE(list->getPropertySetHelper(id), second);
        list.reset();
        QVERIFY(!secondGone.isSet);
        delete second;
    }

    void helpers_ofTheLibrary_canBeReplaced()
    {
        Flag gone;
        list->removePropertySetHelper(qMetaTypeId<ZTFillParam>());
        list->setObject(text.get());
        QVERIFY(row("fillParam")->subProperties().isEmpty());
        list->updateProperty();
        list->setObject(nullptr);
        list->addPropertySetHelper(qMetaTypeId<ZTFillParam>(),
                                   new MortalHelper(list->getVariantManager(), &gone.isSet));
        list->setObject(text.get());
        sub("fillParam", "angle")->setValue(4.0);
        QCOMPARE(text->fillParam.angle, 4.0);
        list->removePropertySetHelper(qMetaTypeId<ZTFillParam>());
        QVERIFY(gone.isSet);
    }

    void records_areComparedByTheirOperators_notByTheirBytes()
    {
        std::unique_ptr<char[]> bytes(new char[sizeof(ZTFillParam)]);
        std::memset(bytes.get(), 0xa5, sizeof(ZTFillParam));
        const ZTFillParam plain;
        auto *dirty = new (bytes.get()) ZTFillParam;
        const QVariant a = QVariant::fromValue(plain);
        const QVariant b(qMetaTypeId<ZTFillParam>(), dirty);
        QVERIFY(a == b);
        ZTShxFontParam shx;
        shx.enName = str("a") + str("b");
        ZTShxFontParam sameShx;
        sameShx.enName = str("ab");
        QVERIFY(QVariant::fromValue(shx) == QVariant::fromValue(sameShx));
        ZTFontParam font;
        font.shxFont = shx;
        ZTFontParam sameFont;
        sameFont.shxFont = sameShx;
        QVERIFY(QVariant::fromValue(font) == QVariant::fromValue(sameFont));
        QVERIFY(QVariant::fromValue(ZTRoundingParam()) == QVariant::fromValue(ZTRoundingParam()));
    }

    void firstUserType_hasNoRow_whereOthersHaveAnEmptyGroup()
    {
        QVERIFY(kFirstAskedRecord > 1024);
        PointerObject object;
        const QMetaObject *meta = object.metaObject();
        QCOMPARE(meta->property(meta->indexOfProperty("first")).userType(), 1024);
        list->setObject(&object);
        QCOMPARE(rowNames(), str("later"));
        QVERIFY(row("later")->subProperties().isEmpty());
        list->setObject(nullptr);
    }

    void languageChange_isSwallowed()
    {
        list->setObject(text.get());
        QTranslator catalogue;
        QVERIFY(catalogue.load(str(":/ZTDrawEngineLib_zh.qm")));
        QCoreApplication::installTranslator(&catalogue);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::removeTranslator(&catalogue);
        QCOMPARE(sub("fillParam", "fillType")->valueText(), str("None"));
        QCoreApplication::sendPostedEvents();
    }

    void textItem_hasItsRows_andIsEditedAndUndone()
    {
        ZTGraphicsTextItem item;
        warnings->take();
        list->setObject(&item);
        QCOMPARE(rowNames(), str("pos,fillParam,roundingParam,lineSpan,font,shxFont,fontType"));
        list->updateProperty();
        QCOMPARE(stack->count(), 0);
        row("lineSpan")->setValue(4.0);
        QCOMPARE(item.getLineSpan(), 4.0);
        sub("roundingParam", "isEnableRounding")->setValue(true);
        QVERIFY(item.getRoundingParam().isEnableRounding);
        row("fontType")->setValue(0);
        QCOMPARE(item.fontType(), FontType::singleLine);
        QCOMPARE(stack->count(), 3);
        while (stack->canUndo())
            stack->undo();
        list->updateProperty();
        QCOMPARE(item.fontType(), FontType::doubleLine);
        QVERIFY(!item.getRoundingParam().isEnableRounding);
        QCOMPARE(sub("roundingParam", "isEnableRounding")->value(), QVariant(false));
        QVERIFY(row("font")->isEnabled());
        list->setObject(nullptr);
    }

    void polygonItem_hasItsRows()
    {
        ZTGraphicsPolygonItem item;
        list->setObject(&item);
        QCOMPARE(rowNames(), str("pos,fillParam,SideCount"));
        row("SideCount")->setValue(7);
        QCOMPARE(item.getSideCount(), 7);
        list->setObject(nullptr);
    }

    void anHourOfRefreshes_pushesNothing_andMakesNoRows()
    {
        EveryTypeObject every;
        list->setObject(&every);
        list->updateProperty();
        const int rows = list->getVariantManager()->properties().size();
        const int children = list->findChildren<QObject *>().size();
        for (int second = 0; second < 3600; ++second) {
            if (second % 60 == 0)
                every.fillParam.angle = second;
            list->updateProperty();
        }
        QCOMPARE(stack->count(), 0);
        QCOMPARE(list->getVariantManager()->properties().size(), rows);
        QCOMPARE(list->findChildren<QObject *>().size(), children);
        QCOMPARE(sub("fillParam", "angle")->value(), QVariant(3540.0));
    }

private:
    QtVariantProperty *row(const char *name) const { return named(browser->properties(), name); }

    QtVariantProperty *sub(const char *record, const char *field) const
    {
        return named(row(record)->subProperties(), field);
    }

    static QtVariantProperty *named(const QList<QtProperty *> &rows, const char *name)
    {
        const auto found = std::find_if(rows.begin(), rows.end(), [name](const QtProperty *each) {
            return each->propertyName() == QLatin1String(name);
        });
        return found == rows.end() ? nullptr : dynamic_cast<QtVariantProperty *>(*found);
    }

    QString rowNames() const
    {
        QStringList names;
        for (const QtProperty *each : browser->properties())
            names.append(each->propertyName());
        return names.join(QLatin1Char(','));
    }

    std::unique_ptr<testsupport::SingletonGuard> singletons;
    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<QUndoStack> stack;
    std::unique_ptr<TextObject> text;
    std::unique_ptr<ZTItemPropertyList> list;
    QtTreePropertyBrowser *browser = nullptr;
};

QTEST_MAIN(tst_ZTItemPropertyList)
#include "tst_ZTItemPropertyList.moc"
