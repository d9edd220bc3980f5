// Step 1 of the tutorial: an empty drawing in a window.

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

namespace {

/** What a step has come to, for whoever runs it without looking. */
void tell(const QString &text) { QTextStream(stdout) << text << '\n'; }

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ZTGraphicsDocument document;
    tell(QStringLiteral("%1 shapes").arg(document.itemMag()->getShapeLines().objects.size()));

    document.show();
    return app.arguments().contains(QLatin1String("--once")) ? 0 : app.exec();
}
