#include <QtPropertyBrowser/QtVariantPropertyManager.h>
#include <QtPropertyBrowser/types/RowIcons_p.h>
#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>

namespace rowtypes {

namespace {

enum Field { Family, PixelSize, Bold, Italic, Underline, Strikeout, Kerning };

QFont font(const QVariant &value) { return value.value<QFont>(); }

/** The families of the font database, fetched anew only when that changes. */
class FontFamilies : public QObject
{
public:
    static QStringList names()
    {
        auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
        if (!application)
            return {};
        auto *cache =
            application->findChild<FontFamilies *>(cacheName(), Qt::FindDirectChildrenOnly);
        if (!cache)
            cache = new FontFamilies(application);
        return cache->m_families;
    }

private:
    explicit FontFamilies(QGuiApplication *application)
        : QObject(application), m_families(QFontDatabase().families())
    {
        setObjectName(cacheName());
        connect(application, &QGuiApplication::fontDatabaseChanged, this,
                [this] { m_families = QFontDatabase().families(); });
    }

    static QString cacheName() { return QStringLiteral("qt_propertybrowser_fontfamilies"); }

    QStringList m_families;
};

class FontType : public RowType
{
public:
    FontType() : RowType(QMetaType::QFont, QMetaType::QFont) {}

    QVariant initialValue() const override { return QFont(); }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        const QFont held = font(value);
        const bool hasPixels = held.pixelSize() > 0;
        const QString size =
            hasPixels
                ? numberText(held.pixelSize())
                : QStringLiteral("%1 pt").arg(numberLocale().toString(held.pointSizeF(), 'g', 4));
        return QStringLiteral("[%1, %2]").arg(held.family(), size);
    }

    QIcon icon(const QVariant &value, const QVariantMap &) const override
    {
        return fontIcon(font(value));
    }

    QVector<FieldSpec> fields(const QVariant &, const QVariantMap &) const override
    {
        const auto label = [](const char *text) {
            return QCoreApplication::translate("QtFontPropertyManager", text);
        };
        const int list = QtVariantPropertyManager::enumTypeId();
        return {
            {label(QT_TRANSLATE_NOOP("QtFontPropertyManager", "Family")),
             list,
             {{enumNamesName(), FontFamilies::names()}}},
            {label(QT_TRANSLATE_NOOP("QtFontPropertyManager", "Pixel Size")),
             QMetaType::Int,
             {{minimumName(), 1}}},
            {label(QT_TRANSLATE_NOOP("QtFontPropertyManager", "Bold")), QMetaType::Bool, {}},
            {label(QT_TRANSLATE_NOOP("QtFontPropertyManager", "Italic")), QMetaType::Bool, {}},
            {label(QT_TRANSLATE_NOOP("QtFontPropertyManager", "Underline")), QMetaType::Bool, {}},
            {label(QT_TRANSLATE_NOOP("QtFontPropertyManager", "Strikeout")), QMetaType::Bool, {}},
            {label(QT_TRANSLATE_NOOP("QtFontPropertyManager", "Kerning")), QMetaType::Bool, {}}};
    }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        const QFont held = font(value);
        switch (field) {
        case Family:
            return familyIndex(held.family());
        case PixelSize:
            // A font that is sized in points shows the least size and is left as it is.
            return qMax(1, held.pixelSize());
        case Bold:
            return held.bold();
        case Italic:
            return held.italic();
        case Underline:
            return held.underline();
        case Strikeout:
            return held.strikeOut();
        default:
            return held.kerning();
        }
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        QFont edited = font(value);
        if (fieldValue(value, field) == part)
            return edited;
        switch (field) {
        case Family: {
            const QStringList names = FontFamilies::names();
            const int index = part.toInt();
            if (index >= 0 && index < names.size())
                edited.setFamily(names.at(index));
            break;
        }
        case PixelSize:
            edited.setPixelSize(qMax(1, part.toInt()));
            break;
        case Bold:
            edited.setBold(part.toBool());
            break;
        case Italic:
            edited.setItalic(part.toBool());
            break;
        case Underline:
            edited.setUnderline(part.toBool());
            break;
        case Strikeout:
            edited.setStrikeOut(part.toBool());
            break;
        default:
            edited.setKerning(part.toBool());
        }
        return edited;
    }

private:
    /** A family that the database does not have shows as a list row without a text. */
    static int familyIndex(const QString &family)
    {
        const QStringList names = FontFamilies::names();
        const int index = names.indexOf(family);
        if (index >= 0 || names.isEmpty())
            return index;
        return names.size();
    }
};

} // namespace

void addFontType(RowTypes *types) { types->push_back(std::make_unique<FontType>()); }

} // namespace rowtypes
