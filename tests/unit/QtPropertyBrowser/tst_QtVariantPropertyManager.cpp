#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtGui/QCursor>
#include <QtGui/QFontDatabase>
#include <QtGui/QTransform>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QSizePolicy>

#include <cmath>
#include <limits>

using Manager = QtVariantPropertyManager;
using Told = QVector<QPair<QString, QVariant>>;

namespace {

constexpr int kIntMax = std::numeric_limits<int>::max();

QString str(const char *text) { return QString::fromUtf8(text); }

/** Names and values of `valueChanged` in the order in which they came. */
class Listener
{
public:
    explicit Listener(Manager *manager)
    {
        connection = QObject::connect(manager, &Manager::valueChanged,
                                      [this](QtProperty *row, const QVariant &value) {
                                          told.append({row->propertyName(), value});
                                      });
    }
    ~Listener() { QObject::disconnect(connection); }

    Told told;

private:
    QMetaObject::Connection connection;
};

} // namespace

class tst_QtVariantPropertyManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::WarningGuard);
        manager.reset(new Manager);
    }

    void cleanup()
    {
        manager.reset();
        guard.reset();
    }

    void markers_areUserTypesAndDiffer()
    {
        const QSet<int> ids{Manager::enumTypeId(), Manager::flagTypeId(), Manager::groupTypeId(),
                            Manager::iconMapTypeId()};
        QCOMPARE(ids.size(), 4);
        for (const int id : ids)
            QVERIFY(id >= 1024);
    }

    void addProperty_supportedTypes_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("valueType");
        QTest::addColumn<QStringList>("attributes");
        QTest::addColumn<QStringList>("parts");
        const auto plain = [](const char *name, int type, const QStringList &attributes = {},
                              const QStringList &parts = {}) {
            QTest::newRow(name) << type << type << attributes << parts;
        };
        const QStringList bounds{str("minimum"), str("maximum")};
        const QStringList decimals{str("decimals")};
        plain("int", QMetaType::Int, bounds + QStringList{str("singleStep")});
        plain("double", QMetaType::Double, bounds + QStringList{str("singleStep")} + decimals);
        plain("bool", QMetaType::Bool);
        plain("string", QMetaType::QString, {str("regExp"), str("echoMode"), str("readOnly")});
        plain("char", QMetaType::QChar);
        plain("date", QMetaType::QDate, bounds);
        plain("time", QMetaType::QTime);
        plain("dateTime", QMetaType::QDateTime);
        plain("keys", QMetaType::QKeySequence);
        plain("cursor", QMetaType::QCursor);
        plain("color", QMetaType::QColor, {},
              {str("Red"), str("Green"), str("Blue"), str("Alpha")});
        plain("font", QMetaType::QFont, {},
              {str("Family"), str("Pixel Size"), str("Bold"), str("Italic"), str("Underline"),
               str("Strikeout"), str("Kerning")});
        plain("locale", QMetaType::QLocale, {}, {str("Language"), str("Country")});
        const QStringList xy{str("X"), str("Y")};
        const QStringList sides{str("Width"), str("Height")};
        plain("point", QMetaType::QPoint, {}, xy);
        plain("pointF", QMetaType::QPointF, decimals, xy);
        plain("size", QMetaType::QSize, bounds, sides);
        plain("sizeF", QMetaType::QSizeF, bounds + decimals, sides);
        plain("rect", QMetaType::QRect, {str("constraint")}, xy + sides);
        plain("rectF", QMetaType::QRectF, {str("constraint"), str("decimals")}, xy + sides);
        plain("policy", QMetaType::QSizePolicy, {},
              {str("Horizontal Policy"), str("Vertical Policy"), str("Horizontal Stretch"),
               str("Vertical Stretch")});
        QTest::newRow("list") << Manager::enumTypeId() << int(QMetaType::Int)
                              << QStringList{str("enumNames"), str("enumIcons")} << QStringList();
        QTest::newRow("flags") << Manager::flagTypeId() << int(QMetaType::Int)
                               << QStringList{str("flagNames")} << QStringList();
        QTest::newRow("group") << Manager::groupTypeId() << 0 << QStringList() << QStringList();
    }

    void addProperty_supportedTypes()
    {
        QFETCH(int, type);
        QFETCH(int, valueType);
        QFETCH(QStringList, attributes);
        QFETCH(QStringList, parts);
        QVERIFY(manager->isPropertyTypeSupported(type));
        QtVariantProperty *row = manager->addProperty(type, str("name"));
        QVERIFY(row);
        QCOMPARE(row->propertyName(), str("name"));
        QCOMPARE(manager->propertyType(row), type);
        QCOMPARE(manager->valueType(row), valueType);
        QCOMPARE(manager->valueType(type), valueType);
        QCOMPARE(manager->variantProperty(row), row);
        QCOMPARE(row->value().userType(), valueType);
        QCOMPARE(row->hasValue(), valueType != 0);
        QCOMPARE(manager->attributes(type), attributes);
        for (const QString &attribute : attributes)
            QCOMPARE(row->attributeValue(attribute).userType(),
                     manager->attributeType(type, attribute));
        QStringList names;
        for (const QtProperty *part : row->subProperties()) {
            names.append(part->propertyName());
            QCOMPARE(part->parentProperty(), QList<QtProperty *>{row});
        }
        QCOMPARE(names, parts);
        QCOMPARE(manager->properties().size(), 1 + parts.size());
        delete row;
        QVERIFY(manager->properties().isEmpty());
    }

    void addProperty_otherTypes_giveNull_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("none") << 0;
        QTest::newRow("transform") << int(QMetaType::QTransform);
        QTest::newRow("pointer") << int(QMetaType::QObjectStar);
        QTest::newRow("variant") << int(QMetaType::QVariant);
        QTest::newRow("float") << int(QMetaType::Float);
        QTest::newRow("unknown user type") << 60000;
        QTest::newRow("negative") << -1;
    }

    void addProperty_otherTypes_giveNull()
    {
        QFETCH(int, type);
        QVERIFY(!manager->isPropertyTypeSupported(type));
        QVERIFY(!manager->addProperty(type, str("x")));
        QVERIFY(manager->properties().isEmpty());
        QCOMPARE(manager->valueType(type), 0);
        QVERIFY(manager->attributes(type).isEmpty());
        QCOMPARE(manager->attributeType(type, str("minimum")), 0);
    }

    void strangers_areNotKnownAndChangeNothing()
    {
        Manager other;
        QtVariantProperty *row = other.addProperty(QMetaType::Int);
        QVERIFY(!manager->value(row).isValid());
        QVERIFY(!manager->variantProperty(row));
        QCOMPARE(manager->propertyType(row), 0);
        manager->setValue(row, 5);
        manager->setAttribute(row, str("minimum"), 5);
        manager->setValue(nullptr, 5);
        QCOMPARE(row->value(), QVariant(0));
    }

    void plainRowOfTheBaseClass_hasNoValue()
    {
        QtProperty *row = manager->QtAbstractPropertyManager::addProperty(str("plain"));
        QVERIFY(row && !row->hasValue());
        manager->setValue(row, 1);
        QVERIFY(!manager->value(row).isValid());
        QVERIFY(row->valueText().isEmpty());
    }

    void defaults_ofNumbers()
    {
        QtVariantProperty *i = manager->addProperty(QMetaType::Int);
        QCOMPARE(i->value(), QVariant(0));
        QCOMPARE(i->attributeValue(str("minimum")), QVariant(std::numeric_limits<int>::min()));
        QCOMPARE(i->attributeValue(str("maximum")), QVariant(kIntMax));
        QCOMPARE(i->attributeValue(str("singleStep")), QVariant(1));
        QtVariantProperty *d = manager->addProperty(QMetaType::Double);
        QCOMPARE(d->value(), QVariant(0.0));
        QCOMPARE(d->attributeValue(str("minimum")), QVariant(-double(kIntMax)));
        QCOMPARE(d->attributeValue(str("maximum")), QVariant(double(kIntMax)));
        QCOMPARE(d->attributeValue(str("singleStep")), QVariant(1.0));
        QCOMPARE(d->attributeValue(str("decimals")), QVariant(2));
    }

    void setValue_tellsOnceWithTheStoredValue()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int, str("i"));
        QSignalSpy changed(manager.data(), &Manager::propertyChanged);
        Listener listener(manager.data());
        row->setValue(str("7"));
        QCOMPARE(listener.told, (Told{{str("i"), 7}}));
        QCOMPARE(listener.told.first().second.userType(), int(QMetaType::Int));
        QCOMPARE(changed.count(), 1);
        row->setValue(7);
        row->setValue(7.4);
        QCOMPARE(listener.told.size(), 1);
    }

    void setValue_propertyChangedComesFirst()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int);
        QStringList order;
        connect(manager.data(), &Manager::valueChanged, this, [&] { order << str("value"); });
        connect(manager.data(), &Manager::propertyChanged, this, [&] { order << str("shown"); });
        row->setValue(1);
        QCOMPARE(order, (QStringList{str("shown"), str("value")}));
    }

    void setValue_withoutConversion_changesNothing()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int);
        row->setValue(3);
        Listener listener(manager.data());
        row->setValue(QVariant());
        row->setValue(QTransform());
        row->setValue(QPointF(1, 2));
        QVERIFY(listener.told.isEmpty());
        QCOMPARE(row->value(), QVariant(3));
    }

    void setValue_group_doesNothing()
    {
        QtVariantProperty *row = manager->addProperty(Manager::groupTypeId());
        Listener listener(manager.data());
        row->setValue(5);
        QVERIFY(listener.told.isEmpty());
        QVERIFY(!row->value().isValid());
        QCOMPARE(row->valueType(), 0);
        QVERIFY(!row->hasValue());
    }

    void setValue_isBroughtIntoTheBounds()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Double, str("d"));
        row->setAttribute(str("minimum"), 0.01);
        Listener listener(manager.data());
        row->setValue(-3.0);
        QVERIFY(listener.told.isEmpty());
        row->setAttribute(str("maximum"), 2.5);
        row->setValue(1e300);
        QCOMPARE(listener.told, (Told{{str("d"), 2.5}}));
    }

    void doubles_areComparedExactlyAndNotRounded()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Double, str("d"));
        row->setValue(6.987654);
        QVERIFY(row->value().toDouble() == 6.987654);
        QCOMPARE(row->valueText(), str("6.99"));
        Listener listener(manager.data());
        const double next = std::nextafter(6.987654, 7.0);
        row->setValue(next);
        QCOMPARE(listener.told.size(), 1);
        QVERIFY(row->value().toDouble() == next);
        row->setAttribute(str("decimals"), 4);
        QCOMPARE(row->valueText(), str("6.9877"));
        QVERIFY(row->value().toDouble() == next);
        QCOMPARE(listener.told.size(), 1);
    }

    void points_areComparedExactly()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QPointF, str("p"));
        row->setValue(QPointF(1.0, 1.0));
        Listener listener(manager.data());
        const double next = std::nextafter(1.0, 2.0);
        row->setValue(QPointF(next, 1.0));
        QCOMPARE(listener.told.size(), 2);
        QVERIFY(row->value().toPointF().x() == next);
    }

    void notANumber_isRefused()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QtVariantProperty *number = manager->addProperty(QMetaType::Double);
        QtVariantProperty *point = manager->addProperty(QMetaType::QPointF);
        QtVariantProperty *size = manager->addProperty(QMetaType::QSizeF);
        QtVariantProperty *rect = manager->addProperty(QMetaType::QRectF);
        Listener listener(manager.data());
        number->setValue(nan);
        point->setValue(QPointF(1, nan));
        size->setValue(QSizeF(nan, 1));
        rect->setValue(QRectF(0, nan, 1, 1));
        number->setAttribute(str("minimum"), nan);
        QVERIFY(listener.told.isEmpty());
        QCOMPARE(number->value(), QVariant(0.0));
        number->setValue(std::numeric_limits<double>::infinity());
        QCOMPARE(number->value(), QVariant(double(kIntMax)));
    }

    void decimals_stayWithinZeroToThirteen()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Double);
        row->setAttribute(str("decimals"), 99);
        QCOMPARE(row->attributeValue(str("decimals")), QVariant(13));
        row->setAttribute(str("decimals"), -1);
        QCOMPARE(row->attributeValue(str("decimals")), QVariant(0));
        row->setValue(2.6);
        QCOMPARE(row->valueText(), str("3"));
    }

    void bounds_moveTheValueAndTell()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int, str("i"));
        row->setValue(50);
        Listener listener(manager.data());
        QSignalSpy attributes(manager.data(), &Manager::attributeChanged);
        row->setAttribute(str("maximum"), 40);
        row->setAttribute(str("minimum"), -5);
        QCOMPARE(listener.told, (Told{{str("i"), 40}}));
        QCOMPARE(attributes.count(), 2);
        row->setAttribute(str("minimum"), 60);
        QCOMPARE(row->attributeValue(str("maximum")), QVariant(60));
        QCOMPARE(row->value(), QVariant(60));
        QCOMPARE(attributes.count(), 4);
        row->setAttribute(str("maximum"), 10);
        QCOMPARE(row->attributeValue(str("minimum")), QVariant(10));
        QCOMPARE(row->value(), QVariant(10));
    }

    void attributes_unknownOrWrong_changeNothing()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int);
        QSignalSpy attributes(manager.data(), &Manager::attributeChanged);
        row->setAttribute(str("decimals"), 1);
        row->setAttribute(str("minimum"), QTransform());
        row->setAttribute(str("minimum"), std::numeric_limits<int>::min());
        QCOMPARE(attributes.count(), 0);
        QVERIFY(!row->attributeValue(str("decimals")).isValid());
    }

    void list_newRow_isBelowTheFirst()
    {
        QtVariantProperty *row = manager->addProperty(Manager::enumTypeId());
        QCOMPARE(row->value(), QVariant(-1));
        QCOMPARE(row->valueText(), QString());
    }

    void list_newNames_startAtTheFirstAndTell()
    {
        QtVariantProperty *row = manager->addProperty(Manager::enumTypeId(), str("e"));
        Listener listener(manager.data());
        row->setAttribute(str("enumNames"), QStringList{str("a"), str("b"), str("c")});
        QCOMPARE(listener.told, (Told{{str("e"), 0}}));
        row->setValue(2);
        row->setAttribute(str("enumNames"), QStringList{str("d"), str("e")});
        QCOMPARE(row->value(), QVariant(0));
        row->setAttribute(str("enumNames"), QStringList{str("f"), str("g")});
        QCOMPARE(listener.told.size(), 4);
        QCOMPARE(row->valueText(), str("f"));
        row->setAttribute(str("enumNames"), QStringList());
        QCOMPARE(row->value(), QVariant(-1));
        QCOMPARE(listener.told.size(), 5);
    }

    void list_blockedSignals_namesArriveSilently()
    {
        QtVariantProperty *row = manager->addProperty(Manager::enumTypeId());
        Listener listener(manager.data());
        manager->blockSignals(true);
        row->setAttribute(str("enumNames"), QStringList{str("a"), str("b")});
        manager->blockSignals(false);
        QVERIFY(listener.told.isEmpty());
        QCOMPARE(row->value(), QVariant(0));
    }

    void list_indexPastTheEnd_isKeptAndShowsNoText()
    {
        QtVariantProperty *row = manager->addProperty(Manager::enumTypeId(), str("e"));
        row->setAttribute(str("enumNames"), QStringList{str("a"), str("b")});
        Listener listener(manager.data());
        row->setValue(2u);
        QCOMPARE(listener.told, (Told{{str("e"), 2}}));
        QCOMPARE(row->value().userType(), int(QMetaType::Int));
        QCOMPARE(row->valueText(), QString());
        row->setValue(1000000);
        QCOMPARE(row->value(), QVariant(1000000));
    }

    void list_negativeIndex_isRefusedWhileThereAreNames()
    {
        QtVariantProperty *row = manager->addProperty(Manager::enumTypeId());
        row->setAttribute(str("enumNames"), QStringList{str("a"), str("b")});
        row->setValue(1);
        row->setValue(-1);
        QCOMPARE(row->value(), QVariant(1));
    }

    void list_textAndUnsigned_convert()
    {
        QtVariantProperty *row = manager->addProperty(Manager::enumTypeId());
        row->setAttribute(str("enumNames"), QStringList{str("a"), str("b"), str("c")});
        row->setValue(str("2"));
        QCOMPARE(row->value(), QVariant(2));
        row->setValue(str("simplex.shx"));
        QCOMPARE(row->value(), QVariant(0));
        row->setValue(1u);
        QCOMPARE(row->valueText(), str("b"));
        row->setValue(QVariant::fromValue(Qt::DashLine));
        QCOMPARE(row->value(), QVariant(int(Qt::DashLine)));
    }

    void list_icons_areShownByIndex()
    {
        QPixmap red(4, 4);
        red.fill(Qt::red);
        QtVariantProperty *row = manager->addProperty(Manager::enumTypeId());
        row->setAttribute(str("enumNames"), QStringList{str("a"), str("b")});
        row->setAttribute(str("enumIcons"), QVariant::fromValue(QMap<int, QIcon>{{1, QIcon(red)}}));
        QVERIFY(row->valueIcon().isNull());
        row->setValue(1);
        QVERIFY(!row->valueIcon().isNull());
    }

    void flags_subRowsAndValueAgree()
    {
        QtVariantProperty *row = manager->addProperty(Manager::flagTypeId(), str("f"));
        QVERIFY(row->subProperties().isEmpty());
        row->setAttribute(str("flagNames"), QStringList{str("a"), str("b"), str("c")});
        QCOMPARE(row->subProperties().size(), 3);
        Listener listener(manager.data());
        row->setValue(5);
        QCOMPARE(listener.told, (Told{{str("a"), true}, {str("c"), true}, {str("f"), 5}}));
        QCOMPARE(row->valueText(), str("a|c"));
        listener.told.clear();
        part(row, 1)->setValue(true);
        QCOMPARE(listener.told, (Told{{str("b"), true}, {str("f"), 7}}));
        row->setValue(0xff);
        QCOMPARE(row->value(), QVariant(7));
        row->setAttribute(str("flagNames"), QStringList{str("x")});
        QCOMPARE(row->value(), QVariant(0));
        QCOMPARE(row->subProperties().size(), 1);
        QCOMPARE(manager->properties().size(), 2);
    }

    void flags_thirtyTwoBits()
    {
        QtVariantProperty *row = manager->addProperty(Manager::flagTypeId());
        QStringList names;
        for (int i = 0; i < 40; ++i)
            names.append(QString::number(i));
        row->setAttribute(str("flagNames"), names);
        QCOMPARE(row->subProperties().size(), 32);
        part(row, 31)->setValue(true);
        QCOMPARE(row->value(), QVariant(std::numeric_limits<int>::min()));
        row->setValue(-1);
        QVERIFY(part(row, 0)->value().toBool());
    }

    void point_editOfAPart_tellsPartThenWhole()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QPointF, str("pos"));
        Listener listener(manager.data());
        bool agree = true;
        connect(manager.data(), &Manager::valueChanged, this, [&] {
            const QPointF whole = row->value().toPointF();
            agree = agree && part(row, 0)->value().toDouble() == whole.x() &&
                    part(row, 1)->value().toDouble() == whole.y();
        });
        part(row, 1)->setValue(2.5);
        QCOMPARE(listener.told, (Told{{str("Y"), 2.5}, {str("pos"), QPointF(0, 2.5)}}));
        listener.told.clear();
        row->setValue(QPointF(1, 2.5));
        QCOMPARE(listener.told, (Told{{str("X"), 1.0}, {str("pos"), QPointF(1, 2.5)}}));
        listener.told.clear();
        row->setValue(QPointF(3, 4));
        QCOMPARE(listener.told,
                 (Told{{str("X"), 3.0}, {str("Y"), 4.0}, {str("pos"), QPointF(3, 4)}}));
        QVERIFY(agree);
        QCOMPARE(row->valueText(), str("(3.00, 4.00)"));
    }

    void point_decimals_reachTheParts()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QPointF);
        row->setAttribute(str("decimals"), 3);
        QCOMPARE(part(row, 0)->attributeValue(str("decimals")), QVariant(3));
        QCOMPARE(part(row, 1)->valueText(), str("0.000"));
        QCOMPARE(row->valueText(), str("(0.000, 0.000)"));
    }

    void point_boundsOfAPart_holdForTheWhole()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QPointF, str("p"));
        part(row, 0)->setAttribute(str("minimum"), 1.0);
        QCOMPARE(row->value(), QVariant(QPointF(1, 0)));
        row->setValue(QPointF(-5, -5));
        QCOMPARE(row->value(), QVariant(QPointF(1, -5)));
        QCOMPARE(part(row, 0)->value(), QVariant(1.0));
        row->setValue(QPointF(1e300, 0));
        QCOMPARE(row->value().toPointF().x(), double(kIntMax));
        QCOMPARE(part(row, 0)->value(), QVariant(double(kIntMax)));
    }

    void part_deletedByTheHost_isForgotten()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QPointF);
        delete part(row, 0);
        row->setValue(QPointF(1, 2));
        QCOMPARE(row->value(), QVariant(QPointF(1, 2)));
        QCOMPARE(part(row, 0)->value(), QVariant(2.0));
        row->setAttribute(str("decimals"), 5);
        QCOMPARE(part(row, 0)->attributeValue(str("decimals")), QVariant(5));
    }

    void texts_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("int") << int(QMetaType::Int) << QVariant(-12345) << str("-12345");
        QTest::newRow("double") << int(QMetaType::Double) << QVariant(1234.5) << str("1234.50");
        QTest::newRow("true") << int(QMetaType::Bool) << QVariant(true) << str("True");
        QTest::newRow("text") << int(QMetaType::QString) << QVariant(str("x y")) << str("x y");
        QTest::newRow("char") << int(QMetaType::QChar) << QVariant(QChar(0x41)) << str("A");
        QTest::newRow("point") << int(QMetaType::QPoint) << QVariant(QPoint(1, 2)) << str("(1, 2)");
        QTest::newRow("size") << int(QMetaType::QSize) << QVariant(QSize(3, 4)) << str("3 x 4");
        QTest::newRow("sizeF") << int(QMetaType::QSizeF) << QVariant(QSizeF(3, 4.5))
                               << str("3.00 x 4.50");
        QTest::newRow("rect") << int(QMetaType::QRect) << QVariant(QRect(1, 2, 3, 4))
                              << str("[(1, 2), 3 x 4]");
        QTest::newRow("rectF") << int(QMetaType::QRectF) << QVariant(QRectF(1, 2, 3, 4))
                               << str("[(1.00, 2.00), 3.00 x 4.00]");
        QTest::newRow("color") << int(QMetaType::QColor) << QVariant(QColor(1, 2, 3, 4))
                               << str("[1, 2, 3] (4)");
        QTest::newRow("keys") << int(QMetaType::QKeySequence)
                              << QVariant(QKeySequence(Qt::CTRL + Qt::Key_S)) << str("Ctrl+S");
        QTest::newRow("cursor") << int(QMetaType::QCursor) << QVariant(QCursor(Qt::CrossCursor))
                                << str("Cross");
        QTest::newRow("locale") << int(QMetaType::QLocale)
                                << QVariant(QLocale(QLocale::German, QLocale::Austria))
                                << str("German, Austria");
        QTest::newRow("date") << int(QMetaType::QDate) << QVariant(QDate(2024, 3, 5))
                              << QLocale().toString(QDate(2024, 3, 5), QLocale::ShortFormat);
        QTest::newRow("time") << int(QMetaType::QTime) << QVariant(QTime(13, 5))
                              << QLocale().toString(QTime(13, 5), QLocale::ShortFormat);
        QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Minimum);
        policy.setHorizontalStretch(1);
        policy.setVerticalStretch(2);
        QTest::newRow("policy") << int(QMetaType::QSizePolicy) << QVariant::fromValue(policy)
                                << str("[Fixed, Minimum, 1, 2]");
    }

    void texts()
    {
        QFETCH(int, type);
        QFETCH(QVariant, value);
        QFETCH(QString, text);
        QtVariantProperty *row = manager->addProperty(type);
        row->setValue(value);
        QVERIFY(row->value() == value);
        QCOMPARE(row->valueText(), text);
    }

    void numbers_inAnotherLocale_readAsTheSpinBoxWritesThem()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QtVariantProperty *row = manager->addProperty(QMetaType::Double);
        row->setValue(12345.5);
        const QString text = row->valueText();
        QLocale::setDefault(before);
        QCOMPARE(text, str("12345,50"));
    }

    void bool_hasAnIconForEachState()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Bool);
        QCOMPARE(row->valueText(), str("False"));
        const QImage off = row->valueIcon().pixmap(16).toImage();
        row->setValue(true);
        const QImage on = row->valueIcon().pixmap(16).toImage();
        QVERIFY(!off.isNull() && !on.isNull() && off != on);
    }

    void string_pattern_refusesWhatDoesNotMatch()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QString);
        row->setAttribute(str("regExp"), QRegExp(str("[a-z]*")));
        row->setValue(str("abc"));
        row->setValue(str("abc1"));
        QCOMPARE(row->value(), QVariant(str("abc")));
        row->setAttribute(str("regExp"), QRegularExpression(str("[0-9]+")));
        row->setValue(str("x1"));
        QCOMPARE(row->value(), QVariant(str("abc")));
        row->setValue(str("17"));
        QCOMPARE(row->value(), QVariant(str("17")));
        row->setAttribute(str("regExp"), QRegExp());
        row->setValue(str("any thing"));
        QCOMPARE(row->value(), QVariant(str("any thing")));
    }

    void string_passwords_doNotShow()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QString);
        row->setValue(str("secret"));
        row->setAttribute(str("echoMode"), 2);
        QCOMPARE(row->valueText(), QString(6, QChar(0x25cf)));
        row->setAttribute(str("echoMode"), 1);
        QCOMPARE(row->valueText(), QString());
        QCOMPARE(row->value(), QVariant(str("secret")));
    }

    void size_boundsReachThePartsAndBack()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QSize, str("s"));
        QCOMPARE(row->value(), QVariant(QSize(0, 0)));
        row->setAttribute(str("minimum"), QSize(2, 3));
        QCOMPARE(row->value(), QVariant(QSize(2, 3)));
        QCOMPARE(part(row, 1)->attributeValue(str("minimum")), QVariant(3));
        row->setAttribute(str("maximum"), QSize(1, 10));
        QCOMPARE(row->attributeValue(str("minimum")), QVariant(QSize(1, 3)));
        Listener listener(manager.data());
        part(row, 1)->setValue(99);
        QCOMPARE(listener.told, (Told{{str("Height"), 10}, {str("s"), QSize(1, 10)}}));
        row->setValue(QSize(-5, -5));
        QCOMPARE(row->value(), QVariant(QSize(1, 3)));
    }

    void rect_staysWithinItsConstraint()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QRect, str("r"));
        row->setAttribute(str("constraint"), QRect(0, 0, 100, 50));
        row->setValue(QRect(90, 40, 20, 20));
        QCOMPARE(row->value(), QVariant(QRect(80, 30, 20, 20)));
        row->setValue(QRect(-10, -10, 500, 10));
        QCOMPARE(row->value(), QVariant(QRect(0, 0, 100, 10)));
        Listener listener(manager.data());
        part(row, 2)->setValue(30);
        QCOMPARE(listener.told, (Told{{str("Width"), 30}, {str("r"), QRect(0, 0, 30, 10)}}));
        listener.told.clear();
        // Past the edge: the row moves back, and every part tells where it ended up.
        part(row, 0)->setValue(95);
        QCOMPARE(listener.told, (Told{{str("X"), 70}, {str("r"), QRect(70, 0, 30, 10)}}));
        row->setAttribute(str("constraint"), QRect(0, 0, 50, 50));
        QCOMPARE(row->value(), QVariant(QRect(20, 0, 30, 10)));
        QCOMPARE(part(row, 0)->value(), QVariant(20));
    }

    void rect_extremesDoNotOverflow()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QRect);
        row->setValue(QRect(QPoint(std::numeric_limits<int>::min(), 0),
                            QPoint(std::numeric_limits<int>::max(), 9)));
        const QRect held = row->value().toRect();
        QVERIFY(held.width() > 0);
        QCOMPARE(held.height(), 10);
        part(row, 0)->setValue(kIntMax);
        part(row, 2)->setValue(kIntMax);
        QCOMPARE(part(row, 0)->value().toInt(), row->value().toRect().x());
        QCOMPARE(part(row, 2)->value().toInt(), row->value().toRect().width());
        row->setValue(QRect(0, 0, -5, -5));
        QVERIFY(row->value().toRect().width() >= 0);
    }

    void color_partsAndWholeAgree()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QColor, str("c"));
        QCOMPARE(row->value().value<QColor>(), QColor(Qt::black));
        Listener listener(manager.data());
        part(row, 2)->setValue(300);
        QCOMPARE(listener.told, (Told{{str("Blue"), 255}, {str("c"), QColor(0, 0, 255)}}));
        row->setValue(QColor(10, 20, 30, 40));
        QCOMPARE(part(row, 3)->value(), QVariant(40));
        QVERIFY(!row->valueIcon().isNull());
    }

    void color_partSetToItself_changesNothing()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QColor);
        const QColor fine = QColor::fromRgba64(0x1234, 0x5678, 0x9abc, 0xffff);
        row->setValue(fine);
        Listener listener(manager.data());
        part(row, 0)->setValue(part(row, 0)->value());
        QVERIFY(listener.told.isEmpty());
        QCOMPARE(row->value().value<QColor>(), fine);
    }

    void font_changingOneField_leavesTheOthersAlone()
    {
        QFont font(QFontDatabase().families().value(0));
        font.setPixelSize(100);
        font.setLetterSpacing(QFont::AbsoluteSpacing, 3.0);
        font.setStretch(150);
        font.setWeight(QFont::Light);
        QtVariantProperty *row = manager->addProperty(QMetaType::QFont, str("font"));
        row->setValue(font);
        QCOMPARE(part(row, 1)->value(), QVariant(100));
        Listener listener(manager.data());
        part(row, 3)->setValue(true);
        QFont expected = font;
        expected.setItalic(true);
        QCOMPARE(listener.told.size(), 2);
        QCOMPARE(listener.told.first().first, str("Italic"));
        QCOMPARE(row->value().value<QFont>(), expected);
        QCOMPARE(row->value().value<QFont>().pixelSize(), 100);
        for (const int field : {4, 5}) {
            part(row, field)->setValue(true);
            QCOMPARE(row->value().value<QFont>().pixelSize(), 100);
        }
        part(row, 6)->setValue(false);
        QVERIFY(!row->value().value<QFont>().kerning());
        part(row, 1)->setValue(30);
        QCOMPARE(row->value().value<QFont>().pixelSize(), 30);
        QCOMPARE(row->value().value<QFont>().stretch(), 150);
        QCOMPARE(row->value().value<QFont>().weight(), int(QFont::Light));
        QCOMPARE(row->valueText(), str("[%1, 30]").arg(font.family()));
    }

    void font_inPoints_showsTheLeastSizeAndKeepsItsPoints()
    {
        QFont font;
        font.setPointSize(17);
        QtVariantProperty *row = manager->addProperty(QMetaType::QFont);
        row->setValue(font);
        QCOMPARE(part(row, 1)->value(), QVariant(1));
        QCOMPARE(part(row, 1)->attributeValue(str("minimum")), QVariant(1));
        part(row, 2)->setValue(true);
        QCOMPARE(row->value().value<QFont>().pointSize(), 17);
        part(row, 1)->setValue(1);
        QCOMPARE(row->value().value<QFont>().pointSize(), 17);
        part(row, 1)->setValue(12);
        QCOMPARE(row->value().value<QFont>().pixelSize(), 12);
    }

    void font_family_isAnIndexIntoTheDatabase()
    {
        const QStringList families = QFontDatabase().families();
        QVERIFY(!families.isEmpty());
        QtVariantProperty *row = manager->addProperty(QMetaType::QFont, str("font"));
        QCOMPARE(part(row, 0)->attributeValue(str("enumNames")).toStringList(), families);
        row->setValue(QFont(families.last()));
        QCOMPARE(part(row, 0)->value(), QVariant(families.size() - 1));
        part(row, 0)->setValue(0);
        QCOMPARE(row->value().value<QFont>().family(), families.first());
        row->setValue(QFont(str("no such family")));
        QCOMPARE(part(row, 0)->value(), QVariant(families.size()));
        QCOMPARE(part(row, 0)->valueText(), QString());
        part(row, 2)->setValue(true);
        QCOMPARE(row->value().value<QFont>().family(), str("no such family"));
    }

    void date_keepsItsBounds()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QDate);
        row->setAttribute(str("minimum"), QDate(2020, 1, 1));
        row->setValue(QDate(1999, 1, 1));
        QCOMPARE(row->value(), QVariant(QDate(2020, 1, 1)));
        row->setValue(QDate());
        QCOMPARE(row->value(), QVariant(QDate(2020, 1, 1)));
        row->setAttribute(str("maximum"), QDate(2019, 1, 1));
        QCOMPARE(row->attributeValue(str("minimum")), QVariant(QDate(2019, 1, 1)));
        QCOMPARE(row->value(), QVariant(QDate(2019, 1, 1)));
    }

    void locale_countriesFollowTheLanguage()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QLocale, str("l"));
        row->setValue(QLocale(QLocale::German, QLocale::Austria));
        QCOMPARE(part(row, 0)->valueText(), str("German"));
        QCOMPARE(part(row, 1)->valueText(), str("Austria"));
        const QStringList languages = part(row, 0)->attributeValue(str("enumNames")).toStringList();
        part(row, 0)->setValue(languages.indexOf(str("Japanese")));
        QCOMPARE(row->value().toLocale(), QLocale(QLocale::Japanese, QLocale::Japan));
        QCOMPARE(part(row, 1)->valueText(), str("Japan"));
        QVERIFY(!part(row, 1)
                     ->attributeValue(str("enumNames"))
                     .toStringList()
                     .contains(str("Austria")));
    }

    void sizePolicy_partsAndWholeAgree()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QSizePolicy);
        const QStringList names = part(row, 0)->attributeValue(str("enumNames")).toStringList();
        part(row, 0)->setValue(names.indexOf(str("Expanding")));
        part(row, 3)->setValue(999);
        const auto held = row->value().value<QSizePolicy>();
        QCOMPARE(held.horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(held.verticalStretch(), 255);
    }

    void slot_thatDeletesTheRow_isSafe()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QPointF);
        int told = 0;
        connect(manager.data(), &Manager::valueChanged, this, [&] {
            ++told;
            manager->clear();
        });
        row->setValue(QPointF(1, 2));
        QCOMPARE(told, 1);
        QVERIFY(manager->properties().isEmpty());
    }

    void slot_thatDeletesTheManager_isSafe()
    {
        auto *doomed = new Manager;
        QtVariantProperty *row = doomed->addProperty(QMetaType::QPointF);
        connect(doomed, &Manager::valueChanged, this, [&] { delete doomed; });
        row->setValue(QPointF(1, 2));
    }

    void slot_thatEditsAgain_tellsTheLaterValueLast()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QPointF, str("p"));
        connect(manager.data(), &Manager::valueChanged, this, [&](QtProperty *told) {
            if (told == part(row, 0) && row->value().toPointF().y() == 2.0)
                row->setValue(QPointF(1, 7));
        });
        Listener listener(manager.data());
        row->setValue(QPointF(1, 2));
        int wholes = 0;
        for (const auto &each : qAsConst(listener.told))
            wholes += each.first == str("p");
        QCOMPARE(wholes, 1);
        QCOMPARE(row->value(), QVariant(QPointF(1, 7)));
        QCOMPARE(part(row, 1)->value(), QVariant(7.0));
    }

    void derivedManager_mayRefuseTypes()
    {
        class Picky : public Manager
        {
        public:
            bool isPropertyTypeSupported(int type) const override
            {
                return type != QMetaType::Double && Manager::isPropertyTypeSupported(type);
            }
        };
        Picky picky;
        QVERIFY(!picky.addProperty(QMetaType::Double));
        QtVariantProperty *point = picky.addProperty(QMetaType::QPointF);
        QCOMPARE(point->subProperties().size(), 2);
    }

private:
    static QtVariantProperty *part(QtProperty *row, int index)
    {
        return dynamic_cast<QtVariantProperty *>(row->subProperties().at(index));
    }

    QScopedPointer<testsupport::WarningGuard> guard;
    QScopedPointer<Manager> manager;
};

QTEST_MAIN(tst_QtVariantPropertyManager)
#include "tst_QtVariantPropertyManager.moc"
