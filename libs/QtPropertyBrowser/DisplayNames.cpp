#include <QtPropertyBrowser/DisplayNames_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>

namespace {

/** The names that have a text of their own in other languages; key and source text are one. */
const char *const kNames[] = {
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "text"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "pos"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "X"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Y"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "fillParam"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "fillType"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "spac"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "angle"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "isEnableBorder"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "roundingParam"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "isEnableRounding"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "startAngle"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "spanAngle"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "diameter"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "itemRotate"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "font"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Family"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Pixel Size"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Bold"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Italic"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Underline"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Strikeout"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Kerning"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "LaserPower"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "PulseWidth"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "RunSpeed"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "LaserFrequency"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "OpenDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "ShutDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "EffectWaitTime"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "CornerDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "OpenBehind"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "ChangeCornerDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "MopaPulse"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "JumpSpeed"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "JumpPosDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "FirstJumpDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "StartLineDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "LineEndsDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "ShapeEndDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "PointTime"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "FJAutoDelay"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "TwoDCodeParam"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "mode"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "version"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "mask"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "type"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "ecc"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "xMultiple"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "yMultiple"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "del"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "ratio"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "reversal"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "shxFont"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "zhName"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "enName"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "height"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "fontType"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "singleLine"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "doubleLine"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "lineSpan"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "BarCode"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "BarCodeType"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Height"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "ModuleWid"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "Reverse"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "HideText"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "FontSize"),
    QT_TRANSLATE_NOOP("QtTreePropertyBrowserPrivate", "BarSpaceReverse"),
};

QHash<QString, const char *> namesByKey()
{
    QHash<QString, const char *> table;
    for (const char *name : kNames)
        table.insert(QString::fromLatin1(name), name);
    return table;
}

} // namespace

QString propertyDisplayName(const QString &propertyName)
{
    static const QHash<QString, const char *> table = namesByKey();
    const char *source = table.value(propertyName);
    return source ? QCoreApplication::translate("QtTreePropertyBrowserPrivate", source, nullptr, -1)
                  : propertyName;
}
