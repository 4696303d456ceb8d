#include "app/demo.h"

#include "base/RuntimeError.h"
#include "base/folders.h"
#include "db/ConnectionSettings.h"
#include "storage/Run.h"
#include "ui/RunWindow.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryFile>

namespace varnow {

namespace {

[[noreturn]] void refuse(const QString &reason)
{
    throw RuntimeError(errors::ElementNotFound, reason);
}

/// Runs the statements of a file, each of which ends with its line. The comments, which fill lines of their
/// own, are left out: to the driver, what follows a semicolon in one is another statement.
void runFile(const QString &path, Run &run)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        refuse(QStringLiteral("%1: %2").arg(path, file.errorString()));
    static const QRegularExpression comment("^--.*\n", QRegularExpression::MultilineOption);
    const QString text = QString::fromUtf8(file.readAll()).remove(comment);
    for (const QString &statement : text.split(";\n", Qt::SkipEmptyParts))
        run.change(statement);
}

void fill(const QString &path)
{
    const QString data = dataFolder();
    if (data.isEmpty())
        refuse(QStringLiteral("The files that it is made from did not come with this program."));
    const db::ConnectionSettings settings{"(sqlite)", path, "demo", {}};
    ui::RunWindow progress;
    Run run(settings, progress);
    const bool isGroup = run.beginTransaction();
    runFile(data + "/sql/schema.sql", run);
    runFile(data + "/sql/sample.sql", run);
    if (isGroup && !run.commitTransaction())
        refuse(QStringLiteral("%1 cannot be written.").arg(path));
}

} // namespace

QString demoDatabase()
{
    const QString folder = stateFolder();
    if (!QDir().mkpath(folder))
        refuse(QStringLiteral("The folder %1 cannot be made.").arg(folder));
    QString path = folder + "/demo.db";
    if (QFile::exists(path))
        return path;
    QTemporaryFile file(folder + "/demo-XXXXXX.new"); // goes unless it gets its name, complete
    if (!file.open())
        refuse(QStringLiteral("%1: %2").arg(folder, file.errorString()));
    file.close();
    fill(file.fileName());
    file.setAutoRemove(!file.rename(path));
    if (!QFile::exists(path)) // another program may have been faster
        refuse(QStringLiteral("%1 cannot be written.").arg(path));
    return path;
}

} // namespace varnow
