#include "CodeArguments.h"

#include "Usage.h"

#include <map>

using codekit::CodeCharset;
using codekit::CodeKindInfo;
using codekit::CodeSpec;
using codekit::CodeStyle;
using codekit::HumanPlace;
using usage::addValue;
using usage::chosen;

namespace {

constexpr int kMostOfAll = 40; ///< sizes and columns; each kind has its own end
constexpr int kMostMask = 7;
constexpr double kPercent = 100.0;

const std::map<std::string, CodeStyle> kStyles{
    {"merged", CodeStyle::Merged}, {"squares", CodeStyle::Squares}, {"dots", CodeStyle::Dots},
    {"points", CodeStyle::Points}, {"bars", CodeStyle::Bars},       {"lines", CodeStyle::BarLines}};

const std::map<std::string, CodeCharset> kCharsets{
    {"auto", CodeCharset::Automatic}, {"utf8", CodeCharset::Utf8}, {"gbk", CodeCharset::Gbk}};

const std::map<std::string, HumanPlace> kPlaces{
    {"none", HumanPlace::None}, {"above", HumanPlace::Above}, {"below", HumanPlace::Below}};

} // namespace

void CodeArguments::addSize()
{
    addValue(m_command, "--module", tr("Width of a module, the narrowest bar"),
             [this](const std::string &text) {
                 settings.form.moduleMm = arguments::positiveLengthMm(text);
             })
        ->type_name("LENGTH")
        ->default_str("0.5mm");
    addValue(m_command, "--width", tr("Width of the code without its quiet zone"),
             [this](const std::string &text) {
                 settings.widthMm = arguments::positiveLengthMm(text);
                 settings.isSizedByWidth = true;
             })
        ->type_name("LENGTH");
    addValue(m_command, "--height", tr("Height of the bars of a bar code"),
             [this](const std::string &text) {
                 settings.form.heightMm = arguments::positiveLengthMm(text);
             })
        ->type_name("LENGTH")
        ->default_str("10mm");
}

void CodeArguments::addOptions()
{
    CodeSpec &spec = settings.spec;
    addValue(m_command, "--level",
             tr("Error correction: L, M, Q or H in QR codes, 1 to 4 in Aztec, 1 to\n9 in PDF417"),
             [this](const std::string &text) { m_level = arguments::text(text); })
        ->type_name("LEVEL");
    addValue(
        m_command, "--size", tr("Size by its number in the symbology; else the smallest"),
        [&spec](const std::string &text) { spec.version = arguments::count(text, 1, kMostOfAll); })
        ->type_name("N");
    m_command->add_flag("--rectangular", spec.isRectangular,
                        tr("A Data Matrix that is not square").toStdString());
    addValue(
        m_command, "--columns", tr("Columns of PDF417, 1 to 30, or Micro PDF417, 1 to 4"),
        [&spec](const std::string &text) { spec.columns = arguments::count(text, 1, kMostOfAll); })
        ->type_name("N");
    addValue(m_command, "--mask",
             tr("Mask of a QR code, 0 to 7, or Micro QR, 0 to 3; else the best"),
             [&spec](const std::string &text) { spec.mask = arguments::count(text, 0, kMostMask); })
        ->type_name("N");
    m_command->add_flag(
        "--check-digit", spec.hasCheckDigit,
        tr("Add the check digit that Code 39, Codabar and i25 may have").toStdString());
    addValue(m_command, "--charset",
             tr("Character set that the code names: auto, utf8, or gbk for Chinese"),
             [&spec](const std::string &text) { spec.charset = chosen(kCharsets, text); })
        ->type_name("SET")
        ->default_str("auto");
    m_command->add_flag(
        "--escapes", spec.hasEscapes,
        tr("In the content, \\G \\R \\E \\xHH and others are control characters").toStdString());
}

void CodeArguments::addForm()
{
    codekit::CodeForm &form = settings.form;
    addValue(m_command, "--style",
             tr("What is marked: merged (outlines of dark areas), squares, dots, points\n(one a "
                "module), bars or lines"),
             [&form](const std::string &text) { form.style = chosen(kStyles, text); })
        ->type_name("STYLE")
        ->default_str("merged");
    addValue(m_command, "--dot", tr("Diameter of a dot in % of the module, 1 to 100"),
             [&form](const std::string &text) {
                 form.dotShare = arguments::number(text, 1.0, kPercent) / kPercent;
             })
        ->type_name("PERCENT")
        ->default_str("80");
    m_command->add_flag("--inverse", form.isInverse,
                        tr("Mark what is light, for dark material").toStdString());
    addValue(m_command, "--growth", tr("Width of the beam, taken off each dark area"),
             [&form](const std::string &text) { form.growthMm = arguments::lengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("0");
}

void CodeArguments::addHumanText()
{
    codekit::HumanText &human = settings.human;
    addValue(m_command, "--text", tr("Text for people: none, above or below the code"),
             [&human](const std::string &text) { human.place = chosen(kPlaces, text); })
        ->type_name("PLACE")
        ->default_str("none");
    addValue(
        m_command, "--text-height", tr("Height of its capital letters"),
        [&human](const std::string &text) { human.heightMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("2mm");
    addValue(m_command, "--char-spacing", tr("Space added between its characters"),
             [&human](const std::string &text) { human.charSpacingMm = arguments::lengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("0");
    m_font.addOptions(m_command);
}

bool CodeArguments::isGiven(const char *option) const
{
    return m_command->get_option(option)->count() > 0;
}

void CodeArguments::checkKind(const CodeKindInfo &info)
{
    settings.spec.kind = info.kind;
    if (isGiven("--level") && !info.levels.isEmpty()) {
        settings.spec.level = codekit::levelNamed(info, m_level);
        QStringList names;
        for (const codekit::CodeLevel &level : info.levels)
            names << level.name;
        if (settings.spec.level == 0)
            usage::refuse("--level", tr("\"%1\" is none of %2's: %3")
                                         .arg(m_level, QLatin1String(info.label),
                                              names.join(QStringLiteral(", "))));
    }
    checkOptions(info);
    checkForm(info);
    checkHumanText();
}

/** Each option by itself, so that the one at fault is named. */
void CodeArguments::checkOptions(const CodeKindInfo &info) const
{
    const CodeSpec &given = settings.spec;
    CodeSpec level;
    level.level = isGiven("--level") ? 1 : 0;
    CodeSpec size;
    size.version = given.version;
    CodeSpec columns;
    columns.columns = given.columns;
    CodeSpec mask;
    mask.mask = given.mask;
    CodeSpec rectangular;
    rectangular.isRectangular = given.isRectangular;
    CodeSpec checkDigit;
    checkDigit.hasCheckDigit = given.hasCheckDigit;
    CodeSpec charset;
    charset.charset = given.charset;
    CodeSpec escapes;
    escapes.hasEscapes = given.hasEscapes;
    const std::map<const char *, CodeSpec> alone{
        {"--level", level},     {"--size", size},
        {"--columns", columns}, {"--mask", mask},
        {"--charset", charset}, {"--rectangular", rectangular},
        {"--escapes", escapes}, {"--check-digit", checkDigit}};
    for (const auto &[option, spec] : alone) {
        CodeSpec ofKind = spec;
        ofKind.kind = info.kind;
        const QString why = codekit::lackingOption(ofKind);
        if (!why.isEmpty())
            usage::refuse(option, why);
    }
    if (isGiven("--size") && isGiven("--rectangular"))
        usage::refuse("--rectangular", tr("cannot be given together with --size"));
}

void CodeArguments::checkForm(const CodeKindInfo &info) const
{
    const QString label = QLatin1String(info.label);
    const CodeStyle style = settings.form.style;
    if (isGiven("--width") && isGiven("--module"))
        usage::refuse("--width", tr("cannot be given together with --module"));
    if (isGiven("--height") && !info.isLinear)
        usage::refuse("--height", tr("%1 has no bars, it is as high as its modules").arg(label));
    if ((style == CodeStyle::Dots || style == CodeStyle::Points) && info.isLinear)
        usage::refuse("--style", tr("%1 has bars, which are no dots").arg(label));
    if (isGiven("--dot") && style != CodeStyle::Dots)
        usage::refuse("--dot", tr("nothing without --style dots"));
}

void CodeArguments::checkHumanText() const
{
    m_font.checkTogether();
    if (settings.human.place != HumanPlace::None)
        return;
    for (const char *option : {"--text-height", "--char-spacing", "--font", "--font-pair"}) {
        if (isGiven(option))
            usage::refuse(option, tr("nothing without --text"));
    }
}

bool CodeArguments::hasAreas() const
{
    const CodeStyle style = settings.form.style;
    return style != CodeStyle::BarLines && style != CodeStyle::Points;
}

void CodeArguments::checkWithoutOutline() const
{
    const bool isText = settings.human.place != HumanPlace::None && m_font.isStrokeFont();
    if (!hasAreas() || isText)
        usage::refuse("--no-outline", tr("single lines, points and stroke fonts have no hatch"));
}

bool CodeArguments::chooseFont()
{
    ZTFontParam font;
    if (!m_font.choose(&font))
        return false;
    settings.human.kind = font.fontType;
    settings.human.font = font.font;
    settings.human.enName = font.shxFont.enName;
    settings.human.zhName = font.shxFont.zhName;
    return true;
}
