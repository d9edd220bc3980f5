#include <ZTDrawEngineLib/properties/ZTItemPropertyList.h>

#include <QtPropertyBrowser/QtBrowserItem.h>
#include <QtPropertyBrowser/QtTreePropertyBrowser.h>
#include <QtPropertyBrowser/QtVariantEditorFactory.h>
#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>
#include <ZTDrawEngineLib/common/ZTFillParam.h>
#include <ZTDrawEngineLib/common/ZTFontParam.h>
#include <ZTDrawEngineLib/common/ZTRoundingParam.h>
#include <ZTDrawEngineLib/common/ZTShxFontParam.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/items/commands/ZTItemPropertyCommand.h>
#include <ZTDrawEngineLib/properties/ZTFillParamPropertySetHelper.h>
#include <ZTDrawEngineLib/properties/ZTFontPropertySetHelper.h>
#include <ZTDrawEngineLib/properties/ZTRoundingParamPropertySetHelper.h>
#include <ZTDrawEngineLib/properties/ZTShxFontPropertySetHelper.h>

#include <QtCore/QEvent>
#include <QtCore/QMetaProperty>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QSignalBlocker>
#include <QtCore/QTimer>
#include <QtWidgets/QGridLayout>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// Kept: the first user type counts as a record below a row and as none on top. No record has this
// id: Qt's widgets take it for QWidget* as they are loaded.
constexpr int kFirstUserType = 1024;
constexpr int kRefreshMs = 1000;
constexpr int kIndentationPx = 10;

bool isPos(const QString &name) { return name == QLatin1String("pos"); }

QPointF pxOf(const QPointF &posMm) { return posMm * ZTCoord::getInstance()->mm2pix(1.0); }

QPointF mmOf(const QPointF &posPx)
{
    const double pxPerMm = ZTCoord::getInstance()->mm2pix(1.0);
    return {posPx.x() / pxPerMm, posPx.y() / pxPerMm};
}

QVariant heldBy(const QObject *object, const QString &name)
{
    return object->property(name.toUtf8().constData());
}

/** A value of the object as its row shows it. */
QVariant shownAs(const QString &name, const QVariant &held)
{
    return isPos(name) ? QVariant(mmOf(held.toPointF())) : held;
}

/** The default disable function. */
void followFontType(QtAbstractPropertyBrowser *browser, const QString &name, const QVariant &value)
{
    if (name != QLatin1String("fontType"))
        return;
    const bool isStrokeFont = static_cast<FontType>(value.toInt()) == FontType::singleLine;
    const QList<QtBrowserItem *> items = browser->topLevelItems();
    for (const QtBrowserItem *item : items) {
        QtProperty *row = item->property();
        if (row->propertyName() == QLatin1String("font"))
            row->setEnabled(!isStrokeFont);
        else if (row->propertyName() == QLatin1String("shxFont"))
            row->setEnabled(isStrokeFont);
    }
}

/** Deletes a row with all rows below it: those that a helper added do not go by themselves. */
void deleteBranch(QtProperty *row)
{
    while (!row->subProperties().isEmpty())
        deleteBranch(row->subProperties().constLast());
    delete row;
}

/** Lets a `QVariant` compare records with their own operator: bytes of padding do not count. */
template <class Record>
void compareByOperator()
{
    if (!QMetaType::hasRegisteredComparators<Record>())
        QMetaType::registerEqualsComparator<Record>();
}

} // namespace

/**
 * The helpers that the list made itself. As a child of the list it deletes them with the list's
 * other children, after rows and manager.
 */
class ZTItemPropertyList::OwnHelpers : public QObject
{
public:
    using QObject::QObject;

    void add(std::unique_ptr<ZTAbstractPropertySetHelper> helper)
    {
        helpers.push_back(std::move(helper));
    }

    void remove(const ZTAbstractPropertySetHelper *helper)
    {
        helpers.erase(std::find_if(helpers.begin(), helpers.end(),
                                   [helper](const auto &own) { return own.get() == helper; }));
    }

    bool contains(const ZTAbstractPropertySetHelper *helper) const
    {
        return std::any_of(helpers.begin(), helpers.end(),
                           [helper](const auto &own) { return own.get() == helper; });
    }

private:
    std::vector<std::unique_ptr<ZTAbstractPropertySetHelper>> helpers;
};

ZTItemPropertyList::ZTItemPropertyList(QWidget *parent)
    : QWidget(parent), variantManager(new QtVariantPropertyManager(this)),
      editorFactory(new QtVariantEditorFactory(this)), browser(new QtTreePropertyBrowser(this)),
      ownHelpers(new OwnHelpers(this))
{
    connect(variantManager, &QtVariantPropertyManager::valueChanged, this,
            &ZTItemPropertyList::slotValueChanged);
    browser->setIndentation(kIndentationPx);
    browser->setFactoryForManager(variantManager, editorFactory);

    auto *layout = new QGridLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(browser, 0, 0, 1, 1);

    registerRecord<ZTRoundingParam, ZTRoundingParamPropertySetHelper>();
    registerRecord<ZTFillParam, ZTFillParamPropertySetHelper>();
    registerRecord<ZTShxFontParam, ZTShxFontPropertySetHelper>();
    registerRecord<ZTFontParam, ZTFontPropertySetHelper>();

    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &ZTItemPropertyList::updateProperty);
    timer->start(kRefreshMs);
}

ZTItemPropertyList::~ZTItemPropertyList()
{
    delete browser;
    delete editorFactory;
    delete variantManager;
}

QObject *ZTItemPropertyList::getObject() const { return object; }

QUndoStack *ZTItemPropertyList::getUndoStack() const { return undoStack; }

QtVariantPropertyManager *ZTItemPropertyList::getVariantManager() const { return variantManager; }

void ZTItemPropertyList::setObject(QObject *shown)
{
    if (shown && shown == object)
        return;
    if (object)
        disconnect(object, &QObject::destroyed, this, nullptr);
    clearRows();
    object = shown;
    if (!object) {
        setEnabled(false);
        return;
    }
    connect(object, &QObject::destroyed, this, [this] {
        clearRows();
        setEnabled(false);
    });
    addDisableFunction(object, followFontType);
    setEnabled(true);
    const QMetaObject *meta = object->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i)
        insertProperty(meta->property(i));
}

void ZTItemPropertyList::setUndoStack(QUndoStack *stack) { undoStack = stack; }

void ZTItemPropertyList::insertProperty(const QMetaProperty &property)
{
    if (!object || qstrcmp(property.name(), "objectName") == 0)
        return;
    const QScopedValueRollback<Activity> filling(activity, Activity::Filling);
    const int type = property.userType();
    if (type == qMetaTypeId<FontType>()) {
        insertFontType(property);
        return;
    }
    const bool isUserType = type > kFirstUserType;
    QtVariantProperty *row =
        addRow(isUserType ? QtVariantPropertyManager::groupTypeId() : type, property);
    if (!row)
        return;
    row->setValue(shownAs(row->propertyName(), property.read(object)));
    browser->addProperty(row);
    ZTAbstractPropertySetHelper *helper = isUserType ? getPropertySetHelper(type) : nullptr;
    if (helper) {
        row->setUserType(type);
        helper->addProperty(object, property, row);
    }
}

void ZTItemPropertyList::addPropertySetHelper(int metaTypeId, ZTAbstractPropertySetHelper *helper)
{
    if (helper && !helpers.contains(metaTypeId))
        helpers.insert(metaTypeId, helper);
}

ZTAbstractPropertySetHelper *ZTItemPropertyList::getPropertySetHelper(int metaTypeId)
{
    return helpers.value(metaTypeId);
}

void ZTItemPropertyList::removePropertySetHelper(int metaTypeId)
{
    ZTAbstractPropertySetHelper *helper = helpers.take(metaTypeId);
    if (ownHelpers->contains(helper))
        ownHelpers->remove(helper);
    else
        delete helper;
}

void ZTItemPropertyList::addDisableFunction(QObject *target, DisableFunction function)
{
    if (function && !disableFunctions.contains(target))
        disableFunctions.insert(target, function);
}

bool ZTItemPropertyList::processParentProperty(const QMetaObject *meta, const QVariant &value,
                                               QtVariantProperty *row, QString &name,
                                               QVariant &objectValue)
{
    if (meta->indexOfProperty(name.toUtf8().constData()) >= 0)
        return true;
    const QString parentName = getParentPropertyName(row, meta);
    if (parentName.isEmpty())
        return false;
    const QMetaProperty parent =
        meta->property(meta->indexOfProperty(parentName.toUtf8().constData()));
    const int type = QMetaType::type(parent.typeName());
    ZTAbstractPropertySetHelper *helper = getPropertySetHelper(type);
    if (type < kFirstUserType || !helper)
        return false;
    objectValue = helper->valueChanged(object, parent, name, value);
    if (!objectValue.isValid())
        return false;
    name = parentName;
    return true;
}

QString ZTItemPropertyList::getParentPropertyName(QtVariantProperty *row, const QMetaObject *meta)
{
    const QList<QtProperty *> parents = row->parentProperty();
    for (QtProperty *property : parents) {
        const auto *parent = dynamic_cast<QtVariantProperty *>(property);
        if (!parent)
            continue;
        if (parent->propertyType() < kFirstUserType)
            return {};
        for (int i = 0; i < meta->propertyCount(); ++i) {
            // By type: of several properties with one record type, the row's own has its name.
            if (meta->property(i).userType() == parent->getUserType())
                return parent->propertyName();
        }
    }
    return {};
}

void ZTItemPropertyList::slotValueChanged(QtProperty *property, const QVariant &value)
{
    auto *row = dynamic_cast<QtVariantProperty *>(property);
    if (!row || !object || activity == Activity::Filling)
        return;
    QString name = row->propertyName();
    QVariant objectValue = isPos(name) ? QVariant(pxOf(value.toPointF())) : value;
    if (activity == Activity::Refreshing) {
        // Rows are greyed as the object has become, by an undo for example; it is no edit.
        if (row->parentProperty().isEmpty())
            callDisableFunction(name, objectValue);
        return;
    }
    if (!processParentProperty(object->metaObject(), value, row, name, objectValue))
        return;
    // What a disable function does to the grid must not send the edit to another object.
    const QPointer<QObject> edited = object;
    callDisableFunction(name, objectValue);
    if (edited && undoStack && heldBy(edited, name) != objectValue)
        undoStack->push(new ZTItemPropertyCommand(edited, name, objectValue));
}

void ZTItemPropertyList::updateProperty()
{
    const QScopedValueRollback<Activity> refreshing(activity, Activity::Refreshing);
    const int filled = fillCount;
    const QList<QtProperty *> rows = browser->properties();
    for (QtProperty *property : rows) {
        // A disable function may have shown another object, which deletes the rows.
        if (!object || fillCount != filled)
            return;
        if (auto *row = dynamic_cast<QtVariantProperty *>(property))
            refreshRow(row);
    }
}

void ZTItemPropertyList::changeEvent(QEvent *event)
{
    if (event->type() != QEvent::LanguageChange)
        QWidget::changeEvent(event);
}

/** Makes the helper of a record that the library itself knows. */
template <class Record, class Helper>
void ZTItemPropertyList::registerRecord()
{
    compareByOperator<Record>();
    auto helper = std::make_unique<Helper>(variantManager);
    helpers.insert(qMetaTypeId<Record>(), helper.get());
    ownHelpers->add(std::move(helper));
}

QtVariantProperty *ZTItemPropertyList::addRow(int type, const QMetaProperty &property)
{
    return variantManager->addProperty(type, QString::fromUtf8(property.name()));
}

/** Kept: two entries, where the row of a whole font record has the third, "None", too. */
void ZTItemPropertyList::insertFontType(const QMetaProperty &property)
{
    QtVariantProperty *row = addRow(QtVariantPropertyManager::enumTypeId(), property);
    if (!row)
        return;
    {
        const QSignalBlocker blocker(variantManager);
        row->setAttribute(QStringLiteral("enumNames"),
                          QStringList{QStringLiteral("singleLine"), QStringLiteral("doubleLine")});
    }
    row->setValue(property.read(object));
    browser->addProperty(row);
}

void ZTItemPropertyList::clearRows()
{
    ++fillCount;
    const QList<QtProperty *> rows = browser->properties();
    browser->clear();
    for (QtProperty *row : rows)
        deleteBranch(row);
}

void ZTItemPropertyList::refreshRow(QtVariantProperty *row)
{
    const QString name = row->propertyName();
    const QVariant held = heldBy(object, name);
    if (ZTAbstractPropertySetHelper *helper = getPropertySetHelper(held.userType())) {
        helper->setValue(row, held);
        return;
    }
    const QVariant shown = shownAs(name, held);
    if (row->value() != shown)
        row->setValue(shown);
}

void ZTItemPropertyList::callDisableFunction(const QString &name, const QVariant &objectValue)
{
    if (const DisableFunction function = disableFunctions.value(object))
        function(browser, name, objectValue);
}
