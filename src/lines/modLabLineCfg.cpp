#include "lines/modLabLineCfg.h"

#include "base/text.h"
#include "db/ConfigADOUtilities.h"
#include "lines/cellValues.h"
#include "lines/errorTraps.h"
#include "util/modDiagnostics.h"
#include "util/modNumberTools.h"
#include "util/modProgress.h"

#include <algorithm>
#include <limits>

namespace varnow {

RecordTable<LabLineConfigRecord> LabLineTable;
std::vector<LabLineConfigRecord> RemovedLabLineTable;

namespace {

const QString selectLines = QStringLiteral("SELECT id, Configuration, Name, NameIndex, MsgIndex, number1, "
                                           "string1, text1, date1 FROM LabLineConfig "
                                           "ORDER BY Configuration, MsgIndex;");

/// The date of a cell; SQLite keeps dates as ISO text. Any other value gives the start of 1900.
QDateTime dateOf(const QVariant &cell)
{
    static const QDateTime noDate(QDate(1900, 1, 1), QTime(0, 0), Qt::UTC);
    if (cell.typeId() == QMetaType::QDateTime)
        return cell.toDateTime();
    const QString text = trim(cell.toString());
    const QDate date = QDate::fromString(text.left(10), Qt::ISODate);
    const QTime time = text.size() > 10 ? QTime::fromString(text.mid(11), Qt::ISODateWithMs) : QTime(0, 0);
    // In UTC every time of every day exists.
    return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : noDate;
}

/// Fills the lines from the rows, one each.
void readLines(db::Recordset &rows, std::vector<LabLineConfigRecord> &lines)
{
    const int id = rows.column(QStringLiteral("id"));
    const int configuration = rows.column(QStringLiteral("Configuration"));
    const int name = rows.column(QStringLiteral("Name"));
    const int nameIndex = rows.column(QStringLiteral("NameIndex"));
    const int msgIndex = rows.column(QStringLiteral("MsgIndex"));
    const int number1 = rows.column(QStringLiteral("number1"));
    const int string1 = rows.column(QStringLiteral("string1"));
    const int text1 = rows.column(QStringLiteral("text1"));
    const int date1 = rows.column(QStringLiteral("date1"));
    for (auto line = lines.begin(); !rows.atEnd(); rows.moveNext(), ++line) {
        line->id = longOrZero(rows.value(id));
        line->Configuration = trimmedText(rows.value(configuration));
        line->Name = trimmedText(rows.value(name));
        line->NameIndex = longOrZero(rows.value(nameIndex));
        line->MsgIndex = longOrZero(rows.value(msgIndex));
        line->number1 = longOrZero(rows.value(number1));
        line->string1 = trimmedText(rows.value(string1));
        line->text1 = trimmedText(rows.value(text1));
        line->date1 = dateOf(rows.value(date1));
    }
}

/// Index of the first line that `matches` from `start` on, or -1. With a name index the line is looked up
/// by its key, which has to equal the other arguments once blanks are ignored.
template <class Matches>
int findLine(const QString &configuration, const QString &name, int nameIndex, int start, int direction,
             Matches matches)
{
    const int step = direction == -1 ? -1 : 1;
    if (nameIndex > 0 && start < LabLineTable.size()) {
        const auto *line = LabLineTable.find(configuration, name, nameIndex, matches, start, step);
        return line ? LabLineTable.indexOf(*line) : -1;
    }
    for (int i = start; i >= 0 && (step < 0 || i < LabLineTable.size()); i += step) {
        if (matches(LabLineTable[i]))
            return i;
    }
    return -1;
}

} // namespace

int GetLabLineConfig(db::RecordsetPtr &recordset)
{
    const auto load = [&] {
        Progress progress("Reading the lines");
        if (const int code = db::RetrieveRecordset(db::GetConfigConnectString(), selectLines, recordset))
            return code;
        const int count = recordset->recordCount();
        if (count <= 0)
            return 0;
        std::vector<LabLineConfigRecord> lines(static_cast<std::size_t>(count));
        try {
            readLines(*recordset, lines);
        } catch (const RuntimeError &) {
            LabLineTable.assign(std::move(lines)); // what was read so far is kept, the rest is blank
            throw;
        }
        LabLineTable.assign(std::move(lines));
        return 0;
    };
    return guarded(load, [](const RuntimeError &error) {
        return debugTrap(QStringLiteral("GetLabLineConfig - Error Trap"), error);
    });
}

int FindLabLineConfigIndex(QString &Configuration, const QString &Name, int NameIndex, int &StartIndex,
                           int Direction)
{
    const auto search = [&] {
        StartIndex = std::max(StartIndex, 0);
        Configuration = trim(Configuration);
        const auto matches = [&](const LabLineConfigRecord &line) {
            return (NameIndex <= 0 || line.NameIndex == NameIndex) && line.Name == Name &&
                   trimmedView(line.Configuration) == Configuration;
        };
        return findLine(Configuration, Name, NameIndex, StartIndex, Direction, matches);
    };
    return guarded(search, [](const RuntimeError &error) {
        debugTrap(QStringLiteral("FindLabLineConfigIndex - Error Trap"), error);
        return -1;
    });
}

int FindLabLineConfigIndexByName(const QString &Configuration, QString &Name, int NameIndex, int &StartIndex)
{
    const auto search = [&] {
        StartIndex = std::max(StartIndex, 0);
        Name = trim(Name);
        const auto matches = [&](const LabLineConfigRecord &line) {
            return (NameIndex < 1 || line.NameIndex == NameIndex) && trimmedView(line.Name) == Name &&
                   trimmedView(line.Configuration) == Configuration;
        };
        return findLine(Configuration, Name, NameIndex, StartIndex, 1, matches);
    };
    return guarded(search, [](const RuntimeError &error) {
        debugTrap(QStringLiteral("FindLabLineConfigIndexByName - Error Trap"), error);
        return -1;
    });
}

int StoreDataInLabLineConfigRecordArray(int id, QString &Configuration, const QString &Name, int NameIndex,
                                        int MsgIndex, int number1, const QString &string1,
                                        const QString &text1, const QDateTime &date1)
{
    const auto store = [&] {
        int start = 0;
        const int index = FindLabLineConfigIndex(Configuration, Name, NameIndex, start, 1);
        LabLineConfigRecord line{id,      Configuration, Name,  NameIndex, MsgIndex,
                                 number1, string1,       text1, date1};
        if (index < 0) {
            LabLineTable.append(std::move(line));
            return 0;
        }
        const LabLineConfigRecord &old = LabLineTable[index];
        if (id <= 0)
            line.id = old.id;
        LabLineTable.replace(old, std::move(line));
        return 0;
    };
    return guarded(store, [&](const RuntimeError &error) {
        return debugTrap(QStringLiteral("StoreDataInLabLineConfigRecordArray - Error Trap"), error,
                         {QStringLiteral("id: %1").arg(id), "Configuration: " + Configuration,
                          "Name: " + Name, QStringLiteral("NameIndex: %1").arg(NameIndex),
                          QStringLiteral("MsgIndex: %1").arg(MsgIndex)});
    });
}

int RemoveLabLineConfigRecord(QString &Configuration, const QString &Name, int NameIndex)
{
    int start = 0;
    const int index = FindLabLineConfigIndex(Configuration, Name, NameIndex, start, 1);
    if (index < 0 || RemoveLabLineConfigRecordFromArray(index) != 0)
        return errors::LineNotFound;
    return 0;
}

int RemoveLabLineConfigRecordFromArray(int Index)
{
    const auto remove = [&] {
        RemovedLabLineTable.push_back(LabLineTable[Index]);
        LabLineTable.removeAt(Index);
        return 0;
    };
    return guarded(remove, [](const RuntimeError &error) { return error.number(); });
}

int RenumberLabLineMsgIndices(const QString &Configuration)
{
    int counter = 0;
    LabLineTable.changeEach([&](LabLineConfigRecord &line) {
        if (line.Configuration == Configuration)
            line.MsgIndex = Increment(counter);
    });
    return 0;
}

int GetNextMsgIndexNumber(const QString &Configuration)
{
    int highest = 0;
    for (const LabLineConfigRecord &line : LabLineTable) {
        if (line.Configuration == Configuration)
            highest = std::max(highest, line.MsgIndex);
    }
    return highest < std::numeric_limits<int>::max() ? highest + 1 : highest;
}

} // namespace varnow
