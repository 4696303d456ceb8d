#pragma once

#include "support/Driver.h"
#include "support/MessageLog.h"
#include "support/TestDatabase.h"

#include "editor/frmLinesConfig.h"
#include "fields/modLabLineFldCfg.h"
#include "lines/modLabLineCfg.h"
#include "startup/modConfigurations.h"
#include "startup/modGlobals.h"

#include <gtest/gtest.h>

#include <optional>

namespace varnow::test {

inline std::string nameOfEngine(const testing::TestParamInfo<Engine> &info)
{
    return engineName(info.param);
}

/// A test of the whole editor on a database, on either engine.
class EditorTest : public testing::TestWithParam<Engine>
{
protected:
    EditorTest()
    {
        gMsgTitle = "Configuration";
        LabLineTable.clear();
        LabLineFldTable.clear();
        RemovedLabLineTable.clear();
        RemovedLabLineFldTable.clear();
    }

    /// Adds a line to the database, before the editor opens; texts as within quotes of SQL.
    void addLine(const QString &name, int nameIndex, int msgIndex, const QString &configuration = "Standard")
    {
        insert("LabLineConfig (Configuration, Name, NameIndex, MsgIndex, id)",
               QStringLiteral("'%1', '%2', %3, %4").arg(configuration, name).arg(nameIndex).arg(msgIndex));
    }

    void addField(const QString &line, int lineIndex, int msgIndex, int position, const QString &name,
                  int nameIndex = 0)
    {
        const QString place =
            QStringLiteral("'%1', %2, %3, %4").arg(line).arg(lineIndex).arg(msgIndex).arg(position);
        insert("LabLineFieldConfig (Line, LineIndex, MsgIndex, Position, Name, NameIndex, Configuration, "
               "Constant, id)",
               QStringLiteral("%1, '%2', %3, 'Standard', 'x'").arg(place, name).arg(nameIndex));
    }

    void insert(const QString &target, const QString &values)
    {
        database.run(QStringLiteral("INSERT INTO %1 VALUES (%2, %3)").arg(target, values).arg(++lastId));
    }

    /// Reads the catalogue and opens the editor as the program does.
    void open(const QStringList &configurations = {"Standard"}, const QString &defaultName = "Standard")
    {
        gConfigNames = configurations;
        gDefaultConfigName = defaultName;
        editor.emplace();
        user.emplace(*editor);
    }

    /// All lines as "Name(NameIndex)=MsgIndex", in table order.
    static QStringList lines()
    {
        QStringList found;
        for (const LabLineConfigRecord &line : LabLineTable)
            found += QStringLiteral("%1(%2)=%3").arg(line.Name).arg(line.NameIndex).arg(line.MsgIndex);
        return found;
    }

    /// All fields as "MsgIndex.Position Name", in table order.
    static QStringList fields()
    {
        QStringList found;
        for (const LabLineFldCfgRecord &field : LabLineFldTable)
            found += QStringLiteral("%1.%2 %3").arg(field.MsgIndex).arg(field.Position).arg(field.Name);
        return found;
    }

    /// Leaves as the close box does and answers a prompt with Cancel. Without a prompt the editor is closed.
    bool leavingAsks()
    {
        const auto before = ui::setMessageBoxHandler([](auto &, int, auto &) { return ui::answer::Cancel; });
        editor->unload();
        ui::setMessageBoxHandler(before);
        return editor->isLoaded();
    }

    /// The boxes shown since they were looked at last.
    void expectBoxes(const std::vector<Box> &expected) { EXPECT_EQ(messages.take(), expected); }

    MessageLog messages;
    TestDatabase database{GetParam()};
    std::optional<frmLinesConfig> editor;
    std::optional<Driver> user;
    int lastId = 0;
};

} // namespace varnow::test
