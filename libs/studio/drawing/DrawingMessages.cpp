#include <studio/drawing/DrawingMessages.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMap>

namespace studio {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::DrawingMessages)
};

QString fileNameOf(const QString &path) { return QFileInfo(path).fileName(); }

QString whyNotOpened(const hostkit::Failure &error)
{
    using Kind = hostkit::Failure::Kind;
    switch (error.kind) {
    case Kind::OtherFormat:
        return Texts::tr("The file is no drawing of the studio: it %1. Plotter files are imported, "
                         "not opened.")
            .arg(error.reason);
    case Kind::NewerVersion:
        return Texts::tr("A newer studio is needed to open it: the file %1.").arg(error.reason);
    case Kind::Damaged:
        return Texts::tr("The file is damaged, and half a drawing is worse than none. Take a copy "
                         "of it from elsewhere. Reason: %1.")
            .arg(error.reason);
    default:
        return Texts::tr("Reason: %1.").arg(error.reason);
    }
}

} // namespace

Message notOpened(const QString &path, const hostkit::Failure &error)
{
    return {Texts::tr("\"%1\" was not opened.").arg(fileNameOf(path)), whyNotOpened(error), {}};
}

Message notSaved(const QString &path, const hostkit::Failure &error)
{
    return {Texts::tr("\"%1\" was not saved.").arg(fileNameOf(path)),
            Texts::tr("Reason: %1. The drawing is still in the window; save it to another place.")
                .arg(error.reason),
            {}};
}

Message notRecovered(const QString &name, const hostkit::Failure &error)
{
    return {Texts::tr("\"%1\" was not recovered.").arg(name), whyNotOpened(error), {}};
}

Message fontsMissing(const QString &path, const QStringList &fonts)
{
    return {
        Texts::tr("Fonts of \"%1\" are missing.").arg(fileNameOf(path)),
        Texts::tr("Texts in these fonts look and mark differently here: %1. They keep the names "
                  "of their fonts.")
            .arg(fonts.join(QStringLiteral(", "))),
        {}};
}

Message kindsUnknown(const QString &path, const QMap<QString, int> &kinds)
{
    QStringList counts;
    for (auto kind = kinds.begin(); kind != kinds.end(); ++kind)
        counts << QStringLiteral("%1: %2").arg(kind.key()).arg(kind.value());
    return {Texts::tr("\"%1\" holds shapes that this program does not know.").arg(fileNameOf(path)),
            Texts::tr("They are neither shown nor marked here (%1). Saving keeps them.")
                .arg(counts.join(QStringLiteral(", "))),
            {}};
}

Message recoveryDamaged(const QStringList &paths)
{
    QStringList lines;
    for (const QString &path : paths)
        lines << QDir::toNativeSeparators(path);
    return {Texts::tr("A drawing cannot be recovered."),
            Texts::tr("Its recovery file is damaged. It was kept as %1.")
                .arg(lines.join(QStringLiteral(", "))),
            {}};
}

Message onlyOneOpened(const QString &path, const QStringList &others)
{
    QStringList names;
    for (const QString &other : others)
        names << fileNameOf(other);
    return {Texts::tr("Only \"%1\" was opened.").arg(fileNameOf(path)),
            Texts::tr("A window holds one drawing. These were left out: %1.")
                .arg(names.join(QStringLiteral(", "))),
            {}};
}

} // namespace studio
