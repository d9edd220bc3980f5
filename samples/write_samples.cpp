// write_samples FOLDER: writes the sample drawings into the folder, which holds logo.plt.

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/SampleDrawing.h>
#include <hostkit/drawing/SampleDrawings.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QFile>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <functional>

namespace {

const QDateTime kMoment(QDate(2024, 2, 29), QTime(12, 0), Qt::UTC);

bool write(const QString &path, const std::function<void(ZTGraphicsDocument &)> &build)
{
    ZTGraphicsDocument document;
    build(document);
    hostkit::DrawingCapture capture;
    capture.programVersion = QStringLiteral("samples");
    capture.savedAt = kMoment;
    hostkit::Failure error;
    if (saveDrawing(document, capture, path, &error))
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(error.reason));
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    hostkit::registerFactories();
    ZTVariantText::setClock([] { return kMoment; });
    const QString folder = QFile::decodeName(argv[1]);
    QFile logo(folder + QStringLiteral("/logo.plt"));
    if (!logo.open(QIODevice::ReadOnly))
        return 1;
    const auto shapes = [&logo](ZTGraphicsDocument &d) { hostkit::buildShapesSample(d, logo); };
    const bool isWritten =
        write(folder + QStringLiteral("/plate.ztd"), hostkit::buildSampleDrawing) &&
        write(folder + QStringLiteral("/shapes.ztd"), shapes) &&
        write(folder + QStringLiteral("/text.ztd"), hostkit::buildTextSample) &&
        write(folder + QStringLiteral("/matrix.ztd"), hostkit::buildMatrixSample);
    return isWritten ? 0 : 1;
}
