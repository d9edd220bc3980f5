#include <codekit/shape/RetailText_p.h>

namespace codekit {

namespace {

constexpr double kDigitModules = 7.0;
constexpr double kGuardModules = 3.0;
constexpr double kMiddleModules = 5.0;
constexpr double kAddOnStartModules = 4.0;
constexpr double kAddOnPitchModules = 9.0; ///< a digit and the separator behind it

/** Digits side by side from where their first module is. */
void addGroup(const QString &digits, double first, double pitch, bool isAddOn,
              QVector<RetailDigit> *all)
{
    for (int at = 0; at < digits.size(); ++at)
        all->append({digits[at], first + pitch * at + kDigitModules / 2.0, isAddOn});
}

/** How many digits stand between two guards; the ends of a UPC-A stand beside them. */
struct Halves
{
    int before = 0; ///< digits in the left quiet zone
    int left = 0;
    int right = 0;
    int after = 0;       ///< digits in the right quiet zone
    int leftSkipped = 0; ///< bars of digits that stand beside them
};

Halves halvesOf(CodeKind kind)
{
    switch (kind) {
    case CodeKind::Ean13:
        return {1, 6, 6, 0, 0};
    case CodeKind::Ean8:
        return {0, 4, 4, 0, 0};
    case CodeKind::UpcA:
        return {1, 5, 5, 1, 1};
    case CodeKind::UpcE:
        return {1, 6, 0, 1, 0};
    default:
        return {};
    }
}

/** Width of the bars without an add-on. */
double mainModules(CodeKind kind)
{
    return kind == CodeKind::Ean8 ? 67.0 : kind == CodeKind::UpcE ? 51.0 : 95.0;
}

double addOnModules(int digits) { return digits == 2 ? 20.0 : 47.0; }

} // namespace

QVector<RetailDigit> retailDigits(const CodeSymbol &symbol)
{
    const Halves halves = halvesOf(symbol.kind);
    if (halves.left == 0)
        return {};
    const QString digits = symbol.humanText.section(QLatin1Char(' '), 0, 0);
    const QString addOn = symbol.humanText.section(QLatin1Char(' '), 1, 1);
    const QMargins quiet = infoOf(symbol.kind).quietModules;
    const double width = mainModules(symbol.kind);
    QVector<RetailDigit> all;
    if (halves.before > 0)
        all.append({digits[0], -quiet.left() / 2.0, false});
    double first = kGuardModules + halves.leftSkipped * kDigitModules;
    addGroup(digits.mid(halves.before, halves.left), first, kDigitModules, false, &all);
    first += halves.left * kDigitModules + kMiddleModules;
    addGroup(digits.mid(halves.before + halves.left, halves.right), first, kDigitModules, false,
             &all);
    if (halves.after > 0)
        all.append({digits.back(), width + quiet.right() / 2.0, false});
    if (!addOn.isEmpty())
        addGroup(addOn, symbol.columns - addOnModules(addOn.size()) + kAddOnStartModules,
                 kAddOnPitchModules, true, &all);
    return all;
}

} // namespace codekit
