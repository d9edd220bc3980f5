#include <hostkit/MarkGraphWriter.h>

#include <hostkit/MarkGraphForms_p.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <array>

namespace hostkit {

namespace {

using Writer = bool (*)(const ZTMarkGraph &, const MarkUnits &, QIODevice &);

struct Form
{
    QLatin1String extension;
    Writer write;
};

template <void (*write)(const ZTMarkGraph &, const MarkUnits &, QIODevice &)>
bool writeText(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device)
{
    write(graph, units, device);
    return true;
}

const std::array<Form, 4> &forms()
{
    static const std::array<Form, 4> all{Form{QLatin1String(".svg"), writeText<writeMarkSvg>},
                                         Form{QLatin1String(".png"), writeMarkPng},
                                         Form{QLatin1String(".json"), writeText<writeMarkJson>},
                                         Form{QLatin1String(".csv"), writeText<writeMarkCsv>}};
    return all;
}

const Form *formOf(const QString &path)
{
    for (const Form &form : forms()) {
        if (path.endsWith(form.extension, Qt::CaseInsensitive))
            return &form;
    }
    return nullptr;
}

bool fail(QString *error, const QString &reason)
{
    if (error != nullptr)
        *error = reason;
    return false;
}

QString unknownExtension()
{
    return QStringLiteral("unknown form, the name must end in one of %1")
        .arg(markGraphExtensions().join(QStringLiteral(", ")));
}

QString cannotWrite(const QSaveFile &file)
{
    return QStringLiteral("cannot be written: %1").arg(file.errorString());
}

} // namespace

QStringList markGraphExtensions()
{
    QStringList extensions;
    for (const Form &form : forms())
        extensions << form.extension;
    return extensions;
}

bool hasMarkGraphExtension(const QString &path) { return formOf(path) != nullptr; }

bool saveMarkGraph(const ZTMarkGraph &graph, const MarkUnits &units, const QString &path,
                   QString *error)
{
    const Form *form = formOf(path);
    if (form == nullptr)
        return fail(error, unknownExtension());
    // Asked first because a file saved through a temporary one names that one in its own reasons.
    const QFileInfo target(path);
    if (target.isDir())
        return fail(error, QStringLiteral("is a folder"));
    if (!target.dir().exists())
        return fail(error, QStringLiteral("the folder does not exist"));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(error, cannotWrite(file));
    const bool written = form->write(graph, units, file);
    if (!written && file.error() == QFileDevice::NoError) {
        file.cancelWriting();
        return fail(error, QStringLiteral("the picture could not be made"));
    }
    if (!file.commit())
        return fail(error, cannotWrite(file));
    return true;
}

} // namespace hostkit
