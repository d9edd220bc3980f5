#include "OwnFolder.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

namespace testsupport {

namespace {
constexpr char kMark[] = "ZT_TEST_IN_OWN_FOLDER";
}

int runInOwnFolder(int argc, char **argv)
{
    if (qEnvironmentVariableIsSet(kMark))
        return -1;
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString program = application.applicationFilePath();
    const QString copy = folder.filePath(QFileInfo(program).fileName());
    if (!folder.isValid() || !QFile::copy(program, copy))
        return 1;
    qputenv(kMark, "1");
    const int code = QProcess::execute(copy, application.arguments().mid(1));
    return code >= 0 ? code : 1;
}

} // namespace testsupport
