// Where an imported shape came from, as a drawing file carries it: any bytes in its field neither
// crash nor give what a re-import could not use, and what is read is the same when written again.

#include <hostkit/items/GraphicItems.h>
#include <hostkit/setup/Factories.h>
#include <studio/import/ImportSource.h>

#include <QtWidgets/QApplication>

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

bool isScale(double scale) { return std::isfinite(scale) && scale > 0.0; }

void ignoreMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_importsource";
    static char *argv[] = {name, nullptr};
    static const QApplication application(argc, argv);
    static const bool isSetUp = [] {
        qInstallMessageHandler(ignoreMessages);
        hostkit::registerFactories();
        return true;
    }();
    Q_UNUSED(isSetUp)
    static ZTGraphicsDocument document;
    static ZTAbstractGraphicsItem *item =
        hostkit::addGraphic(document, {vectorkit::VectorPath::polyline({{0.0, 0.0}, {5.0, 5.0}})});

    hostkit::ItemExtras extras;
    extras.fields.insert("importsource",
                         QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    hostkit::setItemExtras(*item, extras);
    const auto source = studio::importSourceOf(*item);
    if (!source)
        return 0;
    require(!source->file.isEmpty() && !source->import.isEmpty());
    require(isScale(source->scaleX) && isScale(source->scaleY));
    require(isScale(source->cleaning.sameMm));
    studio::setImportSource(*item, *source);
    const QByteArray once = hostkit::itemExtras(*item).fields.value("importsource");
    const auto again = studio::importSourceOf(*item);
    require(again.has_value());
    studio::setImportSource(*item, *again);
    require(hostkit::itemExtras(*item).fields.value("importsource") == once);
    return 0;
}
