#include "fields/modLabLineFldCfg.h"

#include "base/text.h"
#include "db/ConfigADOUtilities.h"
#include "lines/cellValues.h"
#include "lines/errorTraps.h"
#include "lines/modLabLineCfg.h"
#include "util/modDiagnostics.h"
#include "util/modMsgbox.h"
#include "util/modProgress.h"

#include <algorithm>
#include <limits>

namespace varnow {

RecordTable<LabLineFldCfgRecord> LabLineFldTable;
std::vector<LabLineFldCfgRecord> RemovedLabLineFldTable;

namespace {

const QString selectFields =
    QStringLiteral("SELECT id, Configuration, Name, NameIndex, Line, LineIndex, MsgIndex, Position, Length, "
                   "DataType, LookupString, FormatString, Constant, ValidationString, FixedLength, PadChar, "
                   "PadDirection From LabLineFieldConfig ORDER BY MsgIndex, Position;");

/// The fields of the result's current row, its columns looked up once.
class FieldReader
{
public:
    explicit FieldReader(const db::Recordset &rows) : m_rows(rows) {}

    LabLineFldCfgRecord read() const
    {
        LabLineFldCfgRecord field;
        field.id = toLong(m_rows.value(m_id));
        field.Configuration = requiredText(m_configuration);
        field.Name = requiredText(m_name);
        field.NameIndex = longOrZero(m_rows.value(m_nameIndex));
        field.Line = requiredText(m_line);
        field.LineIndex = longOrZero(m_rows.value(m_lineIndex));
        field.Position = toLong(m_rows.value(m_position));
        field.Length = longOrZero(m_rows.value(m_length));
        field.DataType = trimmedText(m_rows.value(m_dataType));
        field.LookupString = trimmedText(m_rows.value(m_lookupString));
        field.FormatString = trimmedText(m_rows.value(m_formatString));
        field.Constant = trimmedText(m_rows.value(m_constant));
        field.MsgIndex = toLong(m_rows.value(m_msgIndex));
        field.FixedLength = longOrZero(m_rows.value(m_fixedLength));
        field.PadChar = m_rows.value(m_padChar).toString();
        field.PadDirection = longOrZero(m_rows.value(m_padDirection));
        const QVariant &fieldPosition = m_rows.value(m_fieldPosition);
        field.FieldPosition = isBlank(fieldPosition.toString()) ? 0 : toLong(fieldPosition);
        return field;
    }

private:
    int column(const char *name) const { return m_rows.column(QString::fromLatin1(name)); }

    QString requiredText(int column) const
    {
        const QVariant &cell = m_rows.value(column);
        if (cell.isNull())
            throw RuntimeError(errors::InvalidUseOfNull);
        return trimmedText(cell);
    }

    const db::Recordset &m_rows;
    int m_id = column("id");
    int m_configuration = column("Configuration");
    int m_name = column("Name");
    int m_nameIndex = column("NameIndex");
    int m_line = column("Line");
    int m_lineIndex = column("LineIndex");
    int m_msgIndex = column("MsgIndex");
    int m_position = column("Position");
    int m_length = column("Length");
    int m_dataType = column("DataType");
    int m_lookupString = column("LookupString");
    int m_formatString = column("FormatString");
    int m_constant = column("Constant");
    int m_fieldPosition = column("ValidationString");
    int m_fixedLength = column("FixedLength");
    int m_padChar = column("PadChar");
    int m_padDirection = column("PadDirection");
};

/// The first field with these trimmed texts and this name index from `start` on, or null.
const LabLineFldCfgRecord *findField(const QString &configuration, const QString &name, int nameIndex,
                                     int start = 0, int direction = 1)
{
    const auto matches = [&](const LabLineFldCfgRecord &field) {
        return field.NameIndex == nameIndex && field.Name == name && field.Configuration == configuration;
    };
    return LabLineFldTable.find(configuration, name, nameIndex, matches, start, direction);
}

/// Stores a field whose texts may have blanks at both ends.
int storeField(LabLineFldCfgRecord field)
{
    const auto store = [&] {
        for (QString *text : {&field.Configuration, &field.Name, &field.Line, &field.DataType,
                              &field.LookupString, &field.FormatString, &field.Constant})
            *text = trim(*text);
        const auto *old = findField(field.Configuration, field.Name, field.NameIndex);
        if (!old) {
            LabLineFldTable.insertOrdered(std::move(field));
            return 0;
        }
        if (field.id <= 0)
            field.id = old->id;
        LabLineFldTable.replace(*old, std::move(field));
        return 0;
    };
    return guarded(store, [](const RuntimeError &error) {
        return developmentTrap(QStringLiteral("StoreDataInLabLineFldCfgArray - Error Trap"), error);
    });
}

int retrieveFields(db::RecordsetPtr &recordset)
{
    Progress progress("Reading the fields");
    return db::RetrieveRecordset(db::GetConfigConnectString(), selectFields, recordset);
}

void storeRows(db::Recordset &rows)
{
    Progress progress("Arranging the fields", rows.recordCount());
    for (const FieldReader reader(rows); !rows.atEnd(); rows.moveNext()) {
        if (!progress.step())
            throw RuntimeError(errors::UserInterrupt);
        if (const int code = storeField(reader.read()))
            throw RuntimeError(code, QStringLiteral("Error storing data in field configuration array."));
    }
}

} // namespace

int LoadAllLabLineData()
{
    auto lines = std::make_shared<db::Recordset>();
    const int code = GetLabLineConfig(lines);
    lines.reset();
    if (code != 0)
        return code;
    auto fields = std::make_shared<db::Recordset>();
    return GetAllLabLineFieldsConfig(fields);
}

int GetAllLabLineFieldsConfig(db::RecordsetPtr &recordset)
{
    const auto load = [&] {
        const int code = retrieveFields(recordset);
        if (code != 0)
            ShowMessage(QStringLiteral("There was a problem retrieving the Line Field\r\n"
                                       "configuration records.  Return code: %1")
                            .arg(code));
        else if (recordset->recordCount() < 1)
            ShowMessage(QStringLiteral("No configuration data returned from database."));
        else
            storeRows(*recordset);
        return 0;
    };
    return guarded(load, [](const RuntimeError &error) {
        return developmentTrap(QStringLiteral("GetAllLabLineFieldsConfig - error trap"), error);
    });
}

int StoreDataInLabLineFldCfgArray(QString &Configuration, QString &Name, const QString &Line, int Position,
                                  int MsgIndex, int NameIndex, int LineIndex, int id, int Length,
                                  const QString &DataType, const QString &LookupString,
                                  const QString &FormatString, const QString &Constant, int FixedLength,
                                  const QString &PadChar, int PadDirection, int FieldPosition)
{
    if (!LabLineFldTable.isEmpty()) {
        Configuration = trim(Configuration);
        Name = trim(Name);
    }
    return storeField({id, Configuration, Name, NameIndex, Line, LineIndex, Position, Length, DataType,
                       LookupString, FormatString, Constant, MsgIndex, FixedLength, PadChar, PadDirection,
                       FieldPosition});
}

int FindLabLineFldConfigIndexByName(QString &Configuration, QString &Name, int NameIndex, int &StartIndex,
                                    int Direction)
{
    if (LabLineFldTable.isEmpty())
        return -1;
    const auto search = [&] {
        StartIndex = std::max(StartIndex, 0);
        Configuration = trim(Configuration);
        Name = trim(Name);
        const auto *field = findField(Configuration, Name, NameIndex, StartIndex, Direction);
        return field ? LabLineFldTable.indexOf(*field) : -1;
    };
    return guarded(search, [](const RuntimeError &error) {
        developmentTrap(QStringLiteral("FindLabLineFldConfigIndexByName - Error Trap"), error);
        return -1;
    });
}

int FindLabLineFldConfigIndexByID(int id)
{
    const auto search = [&] {
        const auto field = std::ranges::find(LabLineFldTable, id, &LabLineFldCfgRecord::id);
        return field == LabLineFldTable.end() ? -1 : LabLineFldTable.indexOf(*field);
    };
    return guarded(search, [](const RuntimeError &error) {
        developmentTrap(QStringLiteral("FindLabLineFldConfigIndexByID - Error Trap"), error);
        return -1;
    });
}

int RemoveLabLineFldCfgRecord(int id, QString &Configuration, QString &Name, int NameIndex)
{
    int index = id > -1 ? FindLabLineFldConfigIndexByID(id) : -1;
    if (index < 0) {
        Configuration = trim(Configuration);
        Name = trim(Name);
        int start = 0;
        if (!Configuration.isEmpty() && !Name.isEmpty())
            index = FindLabLineFldConfigIndexByName(Configuration, Name, NameIndex, start, 1);
    }
    if (index < 0)
        return errors::SubscriptOutOfRange;
    if (const int code = AddRecordToRemovedFields(index))
        return code;
    return RemoveLabLineFldCfgRecordFromArray(index);
}

int AddRecordToRemovedFields(int Index)
{
    const auto add = [&] {
        RemovedLabLineFldTable.push_back(LabLineFldTable[Index]);
        return 0;
    };
    return guarded(add, [](const RuntimeError &error) {
        return developmentTrap(QStringLiteral("AddRecordToRemovedFields - Error Trap "), error);
    });
}

int RemoveLabLineFldCfgRecordFromArray(int Index)
{
    const auto remove = [&] {
        LabLineFldTable.removeAt(Index);
        return 0;
    };
    return guarded(remove, [](const RuntimeError &error) {
        return developmentTrap(QStringLiteral("RemoveLabLineFldCfgRecordFromArray - Error Trap"), error);
    });
}

int SyncLabLineFldMsgIndices()
{
    const LabLineConfigRecord *line = nullptr; // mostly that of the field before
    const auto copyFromLine = [&line](LabLineFldCfgRecord &field) {
        const auto owns = [&](const LabLineConfigRecord &candidate) {
            return candidate.NameIndex == field.LineIndex && candidate.Name == field.Line &&
                   candidate.Configuration == field.Configuration;
        };
        if (!line || !owns(*line))
            line = LabLineTable.find(field.Configuration, field.Line, field.LineIndex, owns);
        if (line)
            field.MsgIndex = line->MsgIndex;
    };
    const auto sync = [&] {
        LabLineFldTable.changeEach(copyFromLine);
        return 0;
    };
    return guarded(sync, [](const RuntimeError &error) {
        return developmentTrap(QStringLiteral("SyncLabLineFldMsgIndices - Error Trap"), error);
    });
}

int GetNextFieldPositionForLine(const QString &Configuration, const QString &Line, int LineIndex)
{
    const auto next = [&] {
        int highest = 0;
        for (const LabLineFldCfgRecord &field : LabLineFldTable) {
            if ((LineIndex < 0 || field.LineIndex == LineIndex) && field.Line == Line &&
                field.Configuration == Configuration)
                highest = std::max(highest, field.Position);
        }
        if (highest == std::numeric_limits<int>::max())
            throw RuntimeError(errors::Overflow);
        return highest + 1;
    };
    return guarded(next, [](const RuntimeError &error) {
        developmentTrap(QStringLiteral("GetNextFieldPositionForLine - Error Trap"), error);
        return 0;
    });
}

} // namespace varnow
