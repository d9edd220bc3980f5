#include <studio/program/UndoTexts.h>

#include <QtCore/QCoreApplication>

namespace studio {

namespace {

constexpr const char *kContext = "studio::UndoTexts";

// Stands in no text: the separator of units.
constexpr QLatin1Char kSeparator('\x1f');

const char *sourceOfTheLibrary(const QString &text)
{
    if (text == QLatin1String("release item setPos"))
        return QT_TRANSLATE_NOOP("studio::UndoTexts", "Move");
    if (text == QLatin1String("item resize"))
        return QT_TRANSLATE_NOOP("studio::UndoTexts", "Resize");
    if (text == QLatin1String("item setPos"))
        return QT_TRANSLATE_NOOP("studio::UndoTexts", "Align");
    if (text == QLatin1String("Property"))
        return QT_TRANSLATE_NOOP("studio::UndoTexts", "Change property");
    return nullptr;
}

} // namespace

QString undoText(const char *source, const QStringList &arguments)
{
    return (QStringList(QString::fromUtf8(source)) + arguments).join(kSeparator);
}

QString readableUndoText(const QString &text)
{
    if (text.isEmpty())
        return text;
    if (const char *source = sourceOfTheLibrary(text))
        return QCoreApplication::translate(kContext, source);
    QStringList parts = text.split(kSeparator);
    const QByteArray source = parts.takeFirst().toUtf8();
    QString readable = QCoreApplication::translate(kContext, source.constData());
    for (const QString &argument : qAsConst(parts))
        readable = readable.arg(argument);
    return readable;
}

} // namespace studio
