#include <vectorkit/VectorReader.h>

#include <QtCore/QCoreApplication>

namespace vectorkit {

bool readHpgl(const QByteArray &, const ReadOptions &, VectorDrawing *, ReadFailure *failure)
{
    if (failure)
        *failure = {ReadFailure::Kind::WrongFormat,
                    QCoreApplication::translate("vectorkit", "HP-GL drawings are not read."),
                    QString()};
    return false;
}

} // namespace vectorkit
