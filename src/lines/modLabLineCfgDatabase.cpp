#include "lines/modLabLineCfgDatabase.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "db/ConfigADOUtilities.h"
#include "lines/errorTraps.h"
#include "lines/modLabLineCfg.h"
#include "lines/rowStatements.h"
#include "lines/runSummary.h"
#include "util/modDiagnostics.h"

namespace varnow {

namespace {

/// Shows the error that ended a run before its summary.
int showUnexpected(const RuntimeError &error, QLatin1String occurred)
{
    ShowMessage(QStringLiteral("An unexpected error number %1").arg(error.number()) + lineBreak +
                error.description() + lineBreak + occurred);
    return error.number();
}

QStringList describe(const QString &Configuration, const QString &Name, int NameIndex, int MsgIndex)
{
    return {"Configuration: " + Configuration, "Name: " + Name,
            QStringLiteral("NameIndex: %1").arg(NameIndex), QStringLiteral("MsgIndex: %1").arg(MsgIndex)};
}

} // namespace

int SaveAllLabLineCfg()
{
    const auto save = [] {
        saveAll(LabLineTable, {"Saving the lines", "SaveAllLabLineCfg complete"},
                [](const LabLineConfigRecord &line) {
                    return SaveLabLineConfig(line.Configuration, line.Name, line.NameIndex, line.MsgIndex);
                });
        return 0;
    };
    return guarded(save, [](const RuntimeError &error) {
        return showUnexpected(
            error, QLatin1String("occurred while saving the Labeled Line\r\nconfiguration records."));
    });
}

int DeleteRemovedLabLineConfigFromDatabase()
{
    const auto remove = [] {
        deleteAll(
            RemovedLabLineTable, LabLineTable,
            {"Deleting the removed lines", "DeleteRemovedLabLineConfigFromDatabase Complete"},
            [](const LabLineConfigRecord &line) { return line.id > -1 ? DeleteLabLineConfig(line.id) : 0; });
        return 0;
    };
    return guarded(remove, [](const RuntimeError &error) {
        return showUnexpected(error, QLatin1String("occurred while deleting the removed\r\nLabeled Line "
                                                   "configuration records."));
    });
}

int SaveLabLineConfig(const QString &Configuration, const QString &Name, int NameIndex, int MsgIndex)
{
    const auto save = [&] {
        updateOrInsert(
            LabLineConfigExistsFor(Configuration, Name, NameIndex), QStringLiteral("LabLineConfig"),
            errors::LineNotSaved,
            [&](int id) { return UpdateLabLineConfig(id, Configuration, Name, NameIndex, MsgIndex); },
            [&](int id) { return InsertLabLineConfig(id, Configuration, Name, NameIndex, MsgIndex); });
        return 0;
    };
    return guarded(save, [&](const RuntimeError &error) {
        return debugTrap(QStringLiteral("SaveLabLineConfig - Error Trap"), error,
                         describe(Configuration, Name, NameIndex, MsgIndex));
    });
}

int LabLineConfigExistsFor(const QString &strConfiguration, const QString &strName, int lngNameIndex)
{
    const auto lookUp = [&] {
        const QString query = QStringLiteral("SELECT id FROM LabLineConfig WHERE Configuration = %1 AND "
                                             "Name = %2 AND NameIndex = %3;");
        return identifierFrom(
            query.arg(db::quoted(strConfiguration), db::quoted(strName), QString::number(lngNameIndex)), 0);
    };
    return guarded(lookUp, [&](const RuntimeError &error) {
        debugTrap(QStringLiteral("LabLineConfigExistsFor - Error Trap"), error,
                  {"strConfiguration: " + strConfiguration, "strName: " + strName,
                   QStringLiteral("lngNameIndex: %1").arg(lngNameIndex)});
        return -1;
    });
}

int InsertLabLineConfig(int id, const QString &Configuration, const QString &Name, int NameIndex,
                        int MsgIndex)
{
    const auto insert = [&] {
        const QString statement = QStringLiteral(
            "INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex) VALUES (%1, %2, %3, "
            "%4, %5);");
        return runStatement(statement.arg(QString::number(id), db::quoted(Configuration), db::quoted(Name),
                                          QString::number(NameIndex), QString::number(MsgIndex)));
    };
    return guarded(insert, [&](const RuntimeError &error) {
        return debugTrap(QStringLiteral("InsertLabLineConfig - Error Trap"), error,
                         QStringList(QStringLiteral("id: %1").arg(id)) +
                             describe(Configuration, Name, NameIndex, MsgIndex));
    });
}

int UpdateLabLineConfig(int id, const QString &Configuration, const QString &Name, int NameIndex,
                        int MsgIndex)
{
    const auto update = [&] {
        const QString statement = QStringLiteral(
            "UPDATE LabLineConfig SET Configuration = %1, Name = %2, NameIndex = %3, MsgIndex = %4 WHERE id "
            "= %5;");
        return runStatement(statement.arg(db::quoted(Configuration), db::quoted(Name),
                                          QString::number(NameIndex), QString::number(MsgIndex),
                                          QString::number(id)));
    };
    return guarded(update, [&](const RuntimeError &error) {
        return debugTrap(QStringLiteral("UpdateLabLineConfig - Error Trap"), error,
                         QStringList(QStringLiteral("id: %1").arg(id)) +
                             describe(Configuration, Name, NameIndex, MsgIndex));
    });
}

int DeleteLabLineConfig(int id)
{
    const auto remove = [&] {
        return runStatement(QStringLiteral("DELETE FROM LabLineConfig WHERE id = %1;").arg(id));
    };
    return guarded(remove, [](const RuntimeError &error) {
        return debugTrap(QStringLiteral("DeleteLabLineConfig - Error Trap"), error);
    });
}

void AdoptLabLineIds()
{
    adoptIds(LabLineTable, "Looking up the new lines", [](const LabLineConfigRecord &line) {
        return LabLineConfigExistsFor(line.Configuration, line.Name, line.NameIndex);
    });
}

} // namespace varnow
