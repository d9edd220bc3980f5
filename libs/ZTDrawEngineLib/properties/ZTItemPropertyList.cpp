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
        m_helpers.push_back(std::move(helper));
    }

    void remove(const ZTAbstractPropertySetHelper *helper)
    {
        m_helpers.erase(std::find_if(m_helpers.begin(), m_helpers.end(),
                                     [helper](const auto &own) { return own.get() == helper; }));
    }

    bool contains(const ZTAbstractPropertySetHelper *helper) const
    {
        return std::any_of(m_helpers.begin(), m_helpers.end(),
                           [helper](const auto &own) { return own.get() == helper; });
    }

private:
    std::vector<std::unique_ptr<ZTAbstractPropertySetHelper>> m_helpers;
};

ZTItemPropertyList::ZTItemPropertyList(QWidget *parent)
    : QWidget(parent), m_variantManager(new QtVariantPropertyManager(this)),
      m_editorFactory(new QtVariantEditorFactory(this)), m_browser(new QtTreePropertyBrowser(this)),
      m_ownHelpers(new OwnHelpers(this))
{
    connect(m_variantManager, &QtVariantPropertyManager::valueChanged, this,
            &ZTItemPropertyList::slotValueChanged);
    m_browser->setIndentation(kIndentationPx);
    m_browser->setFactoryForManager(m_variantManager, m_editorFactory);

    auto *layout = new QGridLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_browser, 0, 0, 1, 1);

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
    delete m_browser;
    delete m_editorFactory;
    delete m_variantManager;
}

QObject *ZTItemPropertyList::getObject() const { return m_object; }

QUndoStack *ZTItemPropertyList::getUndoStack() const { return m_undoStack; }

QtVariantPropertyManager *ZTItemPropertyList::getVariantManager() const { return m_variantManager; }

void ZTItemPropertyList::setObject(QObject *shown)
{
    if (shown && shown == m_object)
        return;
    if (m_object)
        disconnect(m_object, &QObject::destroyed, this, nullptr);
    clearRows();
    m_object = shown;
    if (!m_object) {
        setEnabled(false);
        return;
    }
    connect(m_object, &QObject::destroyed, this, [this] {
        clearRows();
        setEnabled(false);
    });
    addDisableFunction(m_object, followFontType);
    setEnabled(true);
    const QMetaObject *meta = m_object->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i)
        insertProperty(meta->property(i));
}

void ZTItemPropertyList::setUndoStack(QUndoStack *stack) { m_undoStack = stack; }

void ZTItemPropertyList::insertProperty(const QMetaProperty &property)
{
    if (!m_object || qstrcmp(property.name(), "objectName") == 0)
        return;
    const QScopedValueRollback<Activity> filling(m_activity, Activity::Filling);
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
    row->setValue(shownAs(row->propertyName(), property.read(m_object)));
    m_browser->addProperty(row);
    ZTAbstractPropertySetHelper *helper = isUserType ? getPropertySetHelper(type) : nullptr;
    if (helper) {
        row->setUserType(type);
        helper->addProperty(m_object, property, row);
    }
}

void ZTItemPropertyList::addPropertySetHelper(int metaTypeId, ZTAbstractPropertySetHelper *helper)
{
    if (helper && !m_helpers.contains(metaTypeId))
        m_helpers.insert(metaTypeId, helper);
}

ZTAbstractPropertySetHelper *ZTItemPropertyList::getPropertySetHelper(int metaTypeId)
{
    return m_helpers.value(metaTypeId);
}

void ZTItemPropertyList::removePropertySetHelper(int metaTypeId)
{
    ZTAbstractPropertySetHelper *helper = m_helpers.take(metaTypeId);
    if (m_ownHelpers->contains(helper))
        m_ownHelpers->remove(helper);
    else
        delete helper;
}

void ZTItemPropertyList::addDisableFunction(QObject *target, DisableFunction function)
{
    if (function && !m_disableFunctions.contains(target))
        m_disableFunctions.insert(target, function);
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
    objectValue = helper->valueChanged(m_object, parent, name, value);
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
    if (!row || !m_object || m_activity == Activity::Filling)
        return;
    QString name = row->propertyName();
    QVariant objectValue = isPos(name) ? QVariant(pxOf(value.toPointF())) : value;
    if (m_activity == Activity::Refreshing) {
        // Rows are greyed as the object has become, by an undo for example; it is no edit.
        if (row->parentProperty().isEmpty())
            callDisableFunction(name, objectValue);
        return;
    }
    if (!processParentProperty(m_object->metaObject(), value, row, name, objectValue))
        return;
    // What a disable function does to the grid must not send the edit to another object.
    const QPointer<QObject> edited = m_object;
    callDisableFunction(name, objectValue);
    if (edited && m_undoStack && heldBy(edited, name) != objectValue)
        m_undoStack->push(new ZTItemPropertyCommand(edited, name, objectValue));
}

void ZTItemPropertyList::updateProperty()
{
    const QScopedValueRollback<Activity> refreshing(m_activity, Activity::Refreshing);
    const int filled = m_fillCount;
    const QList<QtProperty *> rows = m_browser->properties();
    for (QtProperty *property : rows) {
        // A disable function may have shown another object, which deletes the rows.
        if (!m_object || m_fillCount != filled)
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
    auto helper = std::make_unique<Helper>(m_variantManager);
    m_helpers.insert(qMetaTypeId<Record>(), helper.get());
    m_ownHelpers->add(std::move(helper));
}

QtVariantProperty *ZTItemPropertyList::addRow(int type, const QMetaProperty &property)
{
    return m_variantManager->addProperty(type, QString::fromUtf8(property.name()));
}

/** Kept: two entries, where the row of a whole font record has the third, "None", too. */
void ZTItemPropertyList::insertFontType(const QMetaProperty &property)
{
    QtVariantProperty *row = addRow(QtVariantPropertyManager::enumTypeId(), property);
    if (!row)
        return;
    {
        const QSignalBlocker blocker(m_variantManager);
        row->setAttribute(QStringLiteral("enumNames"),
                          QStringList{QStringLiteral("singleLine"), QStringLiteral("doubleLine")});
    }
    row->setValue(property.read(m_object));
    m_browser->addProperty(row);
}

void ZTItemPropertyList::clearRows()
{
    ++m_fillCount;
    const QList<QtProperty *> rows = m_browser->properties();
    m_browser->clear();
    for (QtProperty *row : rows)
        deleteBranch(row);
}

void ZTItemPropertyList::refreshRow(QtVariantProperty *row)
{
    const QString name = row->propertyName();
    const QVariant held = heldBy(m_object, name);
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
    if (const DisableFunction function = m_disableFunctions.value(m_object))
        function(m_browser, name, objectValue);
}
