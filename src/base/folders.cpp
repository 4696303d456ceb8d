#include "base/folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace varnow {

QString dataFolder()
{
    // Ways from the executable, so that an installation can be moved. The last one is for the test programs,
    // which stand a folder deeper.
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char *way : {VARNOW_WAY_TO_DATA, VARNOW_WAY_TO_SOURCE, "../" VARNOW_WAY_TO_SOURCE}) {
        QString folder = QDir::cleanPath(program.filePath(QString::fromUtf8(way)));
        if (QFileInfo(folder + "/sql/schema.sql").isFile())
            return folder;
    }
    return {};
}

QString stateFolder()
{
    const QString configured = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base = QDir::isAbsolutePath(configured) ? configured : QDir::homePath() + "/.local/state";
    return base + "/varnow";
}

} // namespace varnow
