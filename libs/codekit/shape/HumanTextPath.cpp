#include <codekit/shape/HumanTextPath.h>

#include <hostkit/items/TextItem.h>
#include <hostkit/text/FontPresence.h>
#include <hostkit/text/StrokeFont.h>

#include <QtCore/QCoreApplication>

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
    param.font = how.font;
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

} // namespace

bool layOutHumanText(const HumanText &how, const QString &text, HumanTextPath *path,
                     QString *reason)
{
    const QString missing = missingFont(how);
    if (!missing.isEmpty()) {
        *reason = tr("the text cannot be written: there is no stroke font %1").arg(missing);
        return false;
    }
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

} // namespace codekit
