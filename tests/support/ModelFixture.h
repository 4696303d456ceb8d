#pragma once

#include "support/printing.h"

#include "model/History.h"

#include <QList>

#include <gtest/gtest.h>

namespace varnow::test {

inline constexpr const char *linesSaved = "SaveAllLabLineCfg complete";
inline constexpr const char *linesDeleted = "DeleteRemovedLabLineConfigFromDatabase Complete";
inline constexpr const char *fieldsSaved = "SaveAllLabLineFldsCfg Complete.";
inline constexpr const char *fieldsDeleted = "DeleteRemovedLabLineFieldsFromDatabase Complete";

/// The summary of a run.
inline QString summary(const char *title, int errors, int correct)
{
    return QString::asprintf("%s\r\n  %d errors occurred\r\n  %d records processed correctly.", title, errors,
                             correct);
}

/// One number of every record of a table, in table order.
template <class Record> QList<int> columnOf(const auto &table, int Record::*number)
{
    QList<int> column;
    for (const Record &record : table)
        column += record.*number;
    return column;
}

inline Line line(int id, const QString &configuration, const QString &name, int nameIndex, int messageIndex)
{
    return {id, configuration, name, nameIndex, messageIndex, 0, {}, {}, {}};
}

/// A field of line PID(0) with message index 1, with this key and position.
inline Field field(const QString &configuration, const QString &name, int position, int id = -1)
{
    Field made;
    made.id = id;
    made.configuration = configuration;
    made.name = name;
    made.line = "PID";
    made.messageIndex = 1;
    made.position = position;
    return made;
}

/// An empty model.
struct ModelFixture
{
    void storeLine(int id, const QString &configuration, const QString &name, int nameIndex, int messageIndex)
    {
        model.lines.store(line(id, configuration, name, nameIndex, messageIndex));
    }

    void emptyModel() { model = Model(); }

    /// Does something as one step. Returns the step, null when it changed nothing.
    template <class Work> const EditStep *edit(Work work)
    {
        Edit edit(model);
        work(edit);
        EditStep step = edit.finish();
        return step.isEmpty() ? nullptr : &history.add(std::move(step));
    }

    Model model;
    History history;
    LineTable &lines = model.lines;
    FieldTable &fields = model.fields;
};

} // namespace varnow::test
