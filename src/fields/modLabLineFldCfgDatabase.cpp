#include "fields/modLabLineFldCfgDatabase.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "db/ConfigADOUtilities.h"
#include "fields/modLabLineFldCfg.h"
#include "lines/errorTraps.h"
#include "lines/modLabLineCfgDatabase.h"
#include "lines/rowStatements.h"
#include "lines/runSummary.h"
#include "util/modDiagnostics.h"
#include "util/modProgress.h"

namespace varnow {

namespace {

using Field = LabLineFldCfgRecord;

QString number(int value)
{
    return QString::number(value);
}

/// The values that the error traps of one field list.
QStringList describe(const Field &field)
{
    return {"Configuration: " + field.Configuration, "Name: " + field.Name,
            "NameIndex: " + number(field.NameIndex), "Line: " + field.Line,
            "LineIndex: " + number(field.LineIndex), "Position: " + number(field.Position),
            "Length: " + number(field.Length),       "DataType: " + field.DataType,
            "LookupString: " + field.LookupString,   "FormatString: " + field.FormatString,
            "Constant: " + field.Constant,           "FieldPosition: " + number(field.FieldPosition)};
}

/// Runs a statement for the row with the field's id.
template <class Statement> int runFor(const Field &field, const QString &trapName, Statement statement)
{
    return guarded([&] { return runStatement(statement()); },
                   [&](const RuntimeError &error) {
                       return debugTrap(trapName, error,
                                        QStringList("id: " + number(field.id)) + describe(field));
                   });
}

int insertField(const Field &field)
{
    return runFor(field, QStringLiteral("InsertLabLineFldsCfg - Error Trap"), [&] {
        const QString statement = QStringLiteral(
            "INSERT INTO LabLineFieldConfig (id, Configuration, Name, NameIndex, Line, LineIndex, Position, "
            "Length, DataType, LookupString, FormatString, Constant, ValidationString, FixedLength, PadChar, "
            "PadDirection, MsgIndex) VALUES (%1, %2, %3, %4, %5, %6, %7, %8, %9, %10, %11, %12, %13, %14, "
            "%15, %16, %17);");
        return statement.arg(number(field.id), db::quoted(field.Configuration), db::quoted(field.Name),
                             number(field.NameIndex), db::quoted(field.Line), number(field.LineIndex),
                             number(field.Position), number(field.Length), db::quoted(field.DataType),
                             db::quoted(field.LookupString), db::quoted(field.FormatString),
                             db::quoted(field.Constant), db::quoted(number(field.FieldPosition)),
                             number(field.FixedLength), db::quoted(field.PadChar), number(field.PadDirection),
                             number(field.MsgIndex));
    });
}

int updateField(const Field &field)
{
    return runFor(field, QStringLiteral("UpdateLabLineFldsCfg - Error Trap"), [&] {
        const QString statement = QStringLiteral(
            "UPDATE LabLineFieldConfig SET Configuration = %1, Name = %2, NameIndex = %3, Line = %4, "
            "LineIndex = %5, Position = %6, MsgIndex = %7, Length = %8, DataType = %9, LookupString = %10, "
            "FormatString = %11, Constant = %12, ValidationString = %13, FixedLength = %14, PadChar = %15, "
            "PadDirection = %16 WHERE id = %17;");
        return statement.arg(db::quoted(field.Configuration), db::quoted(field.Name), number(field.NameIndex),
                             db::quoted(field.Line), number(field.LineIndex), number(field.Position),
                             number(field.MsgIndex), number(field.Length), db::quoted(field.DataType),
                             db::quoted(field.LookupString), db::quoted(field.FormatString),
                             db::quoted(field.Constant), db::quoted(number(field.FieldPosition)),
                             number(field.FixedLength), db::quoted(field.PadChar), number(field.PadDirection),
                             number(field.id));
    });
}

/// Inserts or updates the field's row; the id it has in memory plays no part.
int saveField(Field field)
{
    const auto withId = [&](int id) -> const Field & {
        field.id = id;
        return field;
    };
    const auto save = [&] {
        updateOrInsert(
            LabLineFldsCfgExistsFor(field.Configuration, field.Name, field.NameIndex, field.Line,
                                    field.LineIndex),
            QStringLiteral("LabLineFieldConfig"), errors::FieldNotSaved,
            [&](int id) { return updateField(withId(id)); }, [&](int id) { return insertField(withId(id)); });
        return 0;
    };
    return guarded(save, [&](const RuntimeError &error) {
        return debugTrap(QStringLiteral("SaveLabLineFldsCfg - Error Trap"), error, describe(field));
    });
}

bool isComplete(const Field &field)
{
    return !field.Name.isEmpty() && !field.Configuration.isEmpty() && !field.Line.isEmpty();
}

} // namespace

int SaveAllLabLineData()
{
    Progress whole("Saving"); // stopping one of the runs stops those that follow
    DeleteRemovedLabLineConfigFromDatabase();
    if (const int code = SaveAllLabLineCfg())
        return code;
    DeleteRemovedLabLineFieldsFromDatabase();
    const int code = SaveAllLabLineFldsCfg();
    return code == 0 && whole.isStopped() ? errors::UserInterrupt : code;
}

void AdoptLabLineDataIds()
{
    AdoptLabLineIds();
    adoptIds(LabLineFldTable, "Looking up the new fields", [](const Field &field) {
        return LabLineFldsCfgExistsFor(field.Configuration, field.Name, field.NameIndex, field.Line,
                                       field.LineIndex);
    });
}

int SaveAllLabLineFldsCfg()
{
    const auto save = [] {
        saveAll(LabLineFldTable, {"Saving the fields", "SaveAllLabLineFldsCfg Complete."},
                [](const Field &field) { return isComplete(field) ? saveField(field) : 0; });
        return 0;
    };
    return guarded(save, [](const RuntimeError &error) {
        ShowMessage(QStringLiteral("An unexpected error occurred while saving \r\n"
                                   "the Labeled Line Fields configuration.\r\nError: ") +
                    number(error.number()) + lineBreak + error.description());
        return error.number();
    });
}

int DeleteRemovedLabLineFieldsFromDatabase()
{
    const auto remove = [] {
        deleteAll(RemovedLabLineFldTable, LabLineFldTable,
                  {"Deleting the removed fields", "DeleteRemovedLabLineFieldsFromDatabase Complete"},
                  [](const Field &field) { return DeleteLabLineFlds(field.id); });
        return 0;
    };
    return guarded(remove, [](const RuntimeError &error) { return error.number(); });
}

int SaveLabLineFldsCfg(const QString &Configuration, const QString &Name, int NameIndex, const QString &Line,
                       int LineIndex, int Position, int Length, const QString &DataType,
                       const QString &LookupString, const QString &FormatString, const QString &Constant,
                       const QString & /*ValidationText*/, int FixedLength, const QString &PadChar,
                       int PadDirection, int MsgIndex, int FieldPosition)
{
    return saveField({0, Configuration, Name, NameIndex, Line, LineIndex, Position, Length, DataType,
                      LookupString, FormatString, Constant, MsgIndex, FixedLength, PadChar, PadDirection,
                      FieldPosition});
}

int LabLineFldsCfgExistsFor(const QString &Configuration, const QString &strField, int lngFieldIndex,
                            const QString &strLine, int lngLineIndex)
{
    const auto lookUp = [&] {
        const QString query =
            QStringLiteral("SELECT id FROM LabLineFieldConfig WHERE Configuration = %1 AND Name = %2 AND "
                           "NameIndex = %3 AND Line = %4 AND LineIndex = %5;");
        return identifierFrom(query.arg(db::quoted(Configuration), db::quoted(strField),
                                        number(lngFieldIndex), db::quoted(strLine), number(lngLineIndex)),
                              -1);
    };
    return guarded(lookUp, [&](const RuntimeError &error) {
        debugTrap(QStringLiteral("LabLineFldsCfgExistsFor - Error Trap"), error,
                  {"strField: " + strField, "lngFieldIndex: " + number(lngFieldIndex), "strLine: " + strLine,
                   "lngLineIndex: " + number(lngLineIndex)});
        return -1;
    });
}

int InsertLabLineFldsCfg(int id, const QString &Configuration, const QString &Name, int NameIndex,
                         const QString &Line, int LineIndex, int MsgIndex, int Position, int Length,
                         const QString &DataType, const QString &LookupString, const QString &FormatString,
                         const QString &Constant, const QString & /*ValidationText*/, int FixedLength,
                         const QString &PadChar, int PadDirection, int FieldPosition)
{
    return insertField({id, Configuration, Name, NameIndex, Line, LineIndex, Position, Length, DataType,
                        LookupString, FormatString, Constant, MsgIndex, FixedLength, PadChar, PadDirection,
                        FieldPosition});
}

int UpdateLabLineFldsCfg(int id, const QString &Configuration, const QString &Name, int NameIndex,
                         const QString &Line, int LineIndex, int Position, int MsgIndex, int Length,
                         const QString &DataType, const QString &LookupString, const QString &FormatString,
                         const QString &Constant, const QString & /*ValidationText*/, int FixedLength,
                         const QString &PadChar, int PadDirection, int FieldPosition)
{
    return updateField({id, Configuration, Name, NameIndex, Line, LineIndex, Position, Length, DataType,
                        LookupString, FormatString, Constant, MsgIndex, FixedLength, PadChar, PadDirection,
                        FieldPosition});
}

int DeleteLabLineFlds(int id)
{
    const auto remove = [&] {
        return runStatement(QStringLiteral("DELETE LabLineFieldConfig WHERE id = %1;").arg(id));
    };
    return guarded(remove, [&](const RuntimeError &error) {
        return debugTrap(QStringLiteral("DeleteLabLineFlds - Error Trap"), error, {"id: " + number(id)});
    });
}

} // namespace varnow
