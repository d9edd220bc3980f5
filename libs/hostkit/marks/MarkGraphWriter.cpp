#include <hostkit/marks/MarkGraphWriter.h>

#include <hostkit/marks/MarkGraphForms_p.h>

#include <QtCore/QCoreApplication>

#include <array>

namespace hostkit {

namespace {

using Look = MarkPictureLook;
using Writer = bool (*)(const ZTMarkGraph &, const MarkUnits &, QIODevice &, const Look &);

struct Form
{
    QLatin1String extension;
    Writer write;
};

template <void (*write)(const ZTMarkGraph &, const MarkUnits &, QIODevice &)>
bool writeText(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device, const Look &)
{
    write(graph, units, device);
    return true;
}

bool writeSvg(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device, const Look &look)
{
    writeMarkSvg(graph, units, device, look);
    return true;
}

const std::array<Form, 4> &forms()
{
    static const std::array<Form, 4> all{Form{QLatin1String(".svg"), writeSvg},
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

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::MarkGraphWriter)
};

QString unknownExtension()
{
    return Texts::tr("unknown form, the name must end in one of %1")
        .arg(markGraphExtensions().join(QStringLiteral(", ")));
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
                   Failure *failure, const MarkPictureLook &look, const StillWanted &isWanted)
{
    const Form *form = formOf(path);
    if (form == nullptr)
        return fail(failure, Failure::Kind::NotPossible, unknownExtension());
    return saveWhole(
        path, [&](QIODevice &device) { return form->write(graph, units, device, look); }, failure,
        isWanted);
}

} // namespace hostkit
