#include <vectorkit/VectorReader.h>

#include <QtCore/QCoreApplication>

namespace vectorkit {

bool readSvg(const QByteArray &, const ReadOptions &, VectorDrawing *, ReadFailure *failure)
{
    if (failure)
        *failure = {ReadFailure::Kind::WrongFormat,
                    QCoreApplication::translate("vectorkit", "SVG drawings are not read."),
                    QString()};
    return false;
}

} // namespace vectorkit
