#include <codekit/shape/HumanTextPath.h>

#include <codekit/shape/RetailText_p.h>

#include <hostkit/items/TextItem.h>
#include <hostkit/setup/ProcessState.h>
#include <hostkit/text/FontPresence.h>
#include <hostkit/text/StrokeFont.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>

#include <algorithm>

namespace codekit {

namespace {

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

QString onOneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x20 || c.unicode() == 0x7F; },
        QChar(QLatin1Char(' ')));
    return text;
}

/** The font at a height of `kStrokeFontUnits`, whatever size it came in. */
ZTFontParam fontOf(const HumanText &how)
{
    ZTFontParam param;
    param.fontType = how.kind;
    // Of the font no more counts than what a drawing keeps of it.
    param.font = QFont(how.font.family());
    param.font.setBold(how.font.bold());
    param.font.setItalic(how.font.italic());
    param.font.setPixelSize(static_cast<int>(hostkit::kStrokeFontUnits));
    if (how.kind != FontType::singleLine)
        return param;
    param.shxFont.enName = how.enName;
    param.shxFont.zhName = how.zhName;
    param.shxFont.height = hostkit::kStrokeFontUnits;
    param.shxFont.parser.init(how.enName.toLocal8Bit().constData(),
                              how.zhName.toLocal8Bit().constData());
    hostkit::setStrokeHeight(&param.shxFont);
    return param;
}

/** The name of a stroke font that is not to be had; empty where all are there. */
QString missingFont(const HumanText &how)
{
    if (how.kind != FontType::singleLine)
        return {};
    for (const QString &name : {how.enName, how.zhName}) {
        if (name.isEmpty() || !hostkit::hasStrokeFont(name))
            return name.isEmpty() ? tr("(none)") : name;
    }
    return {};
}

void addMoved(const HumanTextPath &letters, const QPointF &by, HumanTextPath *all)
{
    all->outlines.addPath(letters.outlines.translated(by));
    all->strokes.addPath(letters.strokes.translated(by));
    all->boxMm |= letters.boxMm.translated(by);
}

/** The digits of a code that each have a place, as they are drawn; empty where one is too wide. */
using DrawnDigits = QHash<QChar, HumanTextPath>;

bool drawDigits(const HumanText &how, const QVector<RetailDigit> &digits, DrawnDigits *drawn,
                QString *reason)
{
    for (const RetailDigit &place : digits) {
        if (drawn->contains(place.digit))
            continue;
        HumanTextPath digit;
        if (!layOutHumanText(how, QString(place.digit), &digit, reason))
            return false;
        drawn->insert(place.digit, digit);
    }
    return true;
}

bool isNarrow(const DrawnDigits &drawn, double mostMm)
{
    return std::all_of(drawn.begin(), drawn.end(), [mostMm](const HumanTextPath &digit) {
        return digit.boxMm.width() <= mostMm;
    });
}

/** The height that digits on one base line take. */
QRectF lineOf(const DrawnDigits &drawn)
{
    QRectF line;
    for (const HumanTextPath &digit : drawn)
        line |= digit.boxMm;
    return line;
}

/** How far a line of letters is moved down to stand above or below a code. */
double moveDown(const QRectF &lineMm, const CodeForm &form, const CodeMarks &marks, bool isAbove)
{
    return isAbove ? marks.fieldMm.top() - form.moduleMm - lineMm.bottom()
                   : marks.fieldMm.bottom() + form.moduleMm - lineMm.top();
}

} // namespace

bool layOutHumanText(const HumanText &how, const QString &text, HumanTextPath *path,
                     QString *reason)
{
    const QString missing = missingFont(how);
    if (!missing.isEmpty()) {
        *reason = tr("the text cannot be written: there is no stroke font %1").arg(missing);
        return false;
    }
    // In the order of reading, whatever order the program marks shapes in.
    const hostkit::ProcessStateGuard former;
    ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortNone);
    const ZTCoord &coord = *ZTCoord::getInstance();
    ZTFontParam font = fontOf(how);
    const double mmPerUnit = how.heightMm / hostkit::capitalHeight(font);
    // The shape turns spaces into pixels and then takes these for units.
    font.wordSpac = coord.pix2mm(how.charSpacingMm / (mmPerUnit * how.widthFactor));
    hostkit::TextShape letters;
    letters.setFont(font);
    letters.setText(onOneLine(text));
    const QTransform toMm =
        coord.getPix2MmTransform() * QTransform::fromScale(mmPerUnit * how.widthFactor, mmPerUnit);
    HumanTextPath made;
    QPainterPath &letterPath = how.kind == FontType::singleLine ? made.strokes : made.outlines;
    for (const QPolygonF &polygon : letters.getLines().toSubpathPolygons(toMm))
        letterPath.addPolygon(polygon);
    made.boxMm = letterPath.controlPointRect();
    if (letterPath.isEmpty()) {
        *reason = tr("the text below or above the code leaves no lines in this font");
        return false;
    }
    *path = made;
    return true;
}

bool layOutCodeText(const HumanText &how, const CodeSymbol &symbol, const CodeForm &form,
                    const CodeMarks &marks, HumanTextPath *path, QString *reason)
{
    constexpr double kDigitModules = 7.0;
    const bool isAbove = how.place == HumanPlace::Above;
    const QVector<RetailDigit> digits =
        how.charSpacingMm == 0.0 ? retailDigits(symbol) : QVector<RetailDigit>();
    DrawnDigits drawn;
    HumanTextPath made;
    if (!drawDigits(how, digits, &drawn, reason))
        return false;
    if (!digits.isEmpty() && isNarrow(drawn, kDigitModules * form.moduleMm)) {
        const QRectF line = lineOf(drawn);
        for (const RetailDigit &place : digits) {
            const HumanTextPath &digit = drawn[place.digit];
            addMoved(digit,
                     {place.centreModules * form.moduleMm - digit.boxMm.center().x(),
                      moveDown(line, form, marks, isAbove || place.isAddOn)},
                     &made);
        }
    } else {
        HumanTextPath letters;
        if (!layOutHumanText(how, symbol.humanText, &letters, reason))
            return false;
        addMoved(letters,
                 {marks.symbolMm.center().x() - letters.boxMm.center().x(),
                  moveDown(letters.boxMm, form, marks, isAbove)},
                 &made);
    }
    *path = made;
    return true;
}

} // namespace codekit
