#include <studio/text/FontOffers.h>

#include <studio/text/StrokeFonts.h>

#include <hostkit/text/FontPresence.h>
#include <hostkit/text/StrokeFont.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QRawFont>

#include <algorithm>

namespace studio {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::FontOffers)
};

constexpr int kMostStrokeOffers = 2;
constexpr int kMostPairsTried = 40;

FontOffer strokeOffer(const QString &enName, const QString &zhName)
{
    FontOffer offer;
    offer.enName = enName;
    offer.zhName = zhName;
    return offer;
}

bool isSame(const FontOffer &offer, const QString &enName, const QString &zhName)
{
    return offer.enName == enName && offer.zhName == zhName;
}

/** Pairs of stroke fonts, those with a font of the text first, then those with the usual ones. */
QVector<FontOffer> strokePairs(const TextSettings &settings)
{
    const QString usualRegular = usualRegularFont(settings.enName);
    const QString usualBig = usualBigFont(settings.zhName);
    QVector<FontOffer> pairs;
    const auto add = [&pairs](const QString &enName, const QString &zhName) {
        const bool isKnown = std::any_of(pairs.begin(), pairs.end(), [&](const FontOffer &offer) {
            return isSame(offer, enName, zhName);
        });
        if (!isKnown && !enName.isEmpty() && !zhName.isEmpty() && pairs.size() < kMostPairsTried)
            pairs.append(strokeOffer(enName, zhName));
    };
    add(settings.enName, settings.zhName);
    add(settings.enName, usualBig);
    add(usualRegular, settings.zhName);
    add(usualRegular, usualBig);
    for (const QString &big : bigStrokeFonts())
        add(settings.enName, big);
    for (const QString &regular : regularStrokeFonts())
        add(regular, usualBig);
    return pairs;
}

bool draws(const QString &text, const TextSettings &settings, const FontOffer &offer)
{
    TextSettings wanted = settings;
    offer.applyTo(&wanted);
    return missingCharacters(text, wanted).isEmpty();
}

bool hasAll(const QString &family, const QVector<uint> &characters)
{
    const QRawFont font = QRawFont::fromFont(QFont(family));
    return font.isValid() &&
           std::all_of(characters.begin(), characters.end(), [&font](uint character) {
               return character == '\n' || font.supportsCharacter(character);
           });
}

/** The text's own family, the usual one, or else the first that has every character itself. */
QString familyThatDraws(const QString &text, const QFont &ownFont)
{
    const QVector<uint> characters = text.toUcs4();
    QStringList families{QFontInfo(ownFont).family(), QFontInfo(QGuiApplication::font()).family()};
    families += QFontDatabase().families();
    const auto found = std::find_if(families.begin(), families.end(), [&](const QString &family) {
        return hasAll(family, characters);
    });
    return found != families.end() ? *found : QString();
}

} // namespace

QString FontOffer::shown() const
{
    if (kind != FontType::singleLine)
        return family;
    const auto named = [](const QString &fileName) {
        return QFileInfo(fileName).completeBaseName();
    };
    return QStringLiteral("%1 + %2").arg(named(enName), named(zhName));
}

void FontOffer::applyTo(TextSettings *settings) const
{
    settings->kind = kind;
    if (kind == FontType::singleLine) {
        settings->enName = enName;
        settings->zhName = zhName;
    } else {
        settings->font.setFamily(family);
    }
}

QString missingFamilyNote(const QFont &font)
{
    if (hostkit::hasSystemFont(font.family()))
        return {};
    return Texts::tr("\"%1\" is not installed here; \"%2\" stands in for it.")
        .arg(font.family(), QFontInfo(font).family());
}

QStringList missingCharacters(const QString &text, const TextSettings &settings)
{
    ZTFontParam font;
    font.fontType = settings.kind;
    font.font = settings.font;
    if (settings.kind == FontType::singleLine)
        font.shxFont = strokeFontPair(settings.enName, settings.zhName);
    const hostkit::MissingCharacters missing = hostkit::missingCharacters(text, font);
    return missing.noGlyph + missing.notEncoded;
}

QVector<FontOffer> fontsThatDraw(const QString &text, const TextSettings &settings)
{
    QVector<FontOffer> offers;
    const bool isStroke = settings.kind == FontType::singleLine;
    for (const FontOffer &pair : strokePairs(settings)) {
        const bool isPresent = isStroke && isSame(pair, settings.enName, settings.zhName);
        if (offers.size() < kMostStrokeOffers && !isPresent && draws(text, settings, pair))
            offers.append(pair);
    }
    FontOffer system;
    system.kind = FontType::doubleLine;
    system.family = familyThatDraws(text, settings.font);
    if (!system.family.isEmpty() && (isStroke || system.family != settings.font.family()))
        offers.append(system);
    return offers;
}

} // namespace studio
