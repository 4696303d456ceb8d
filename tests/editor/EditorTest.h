#pragma once

#include "support/Driver.h"
#include "support/MessageLog.h"
#include "support/TestDatabase.h"

#include "db/ConfigADOUtilities.h"
#include "editor/frmLinesConfig.h"
#include "fields/modLabLineFldCfg.h"
#include "lines/modLabLineCfg.h"
#include "startup/modConfigurations.h"
#include "startup/modGlobals.h"
#include "ui/MessageBox.h"

#include <gtest/gtest.h>

#include <QStringList>

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
        forgetStores();
    }

    ~EditorTest() override { forgetStores(); }

    /// Adds a line to the database, before the editor opens.
    void addLine(const QString &configuration, const QString &name, int nameIndex, int msgIndex)
    {
        insert("LabLineConfig", "Configuration, Name, NameIndex, MsgIndex",
               {db::quoted(configuration), db::quoted(name), QString::number(nameIndex),
                QString::number(msgIndex)});
    }

    void addField(const QString &configuration, const QString &line, int lineIndex, int msgIndex,
                  int position, const QString &name, int nameIndex = 0)
    {
        insert("LabLineFieldConfig",
               "Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Constant",
               {db::quoted(configuration), db::quoted(line), QString::number(lineIndex),
                QString::number(msgIndex), QString::number(position), db::quoted(name),
                QString::number(nameIndex), "'x'"});
    }

    void insert(const QString &table, const QString &columns, const QStringList &values)
    {
        database.run(QStringLiteral("INSERT INTO %1 (id, %2) VALUES (%3, %4)")
                         .arg(table, columns, QString::number(++lastId), values.join(u',')));
    }

    /// Reads the catalogue and opens the editor as the program does.
    void open(const QStringList &configurations = {"Standard"}, const QString &defaultName = "Standard")
    {
        gConfigNames = configurations;
        gDefaultConfigName = defaultName;
        editor.emplace();
        user.emplace(*editor);
    }

    /// Lines of a configuration as "Name(NameIndex)=MsgIndex", in table order.
    static QStringList lines(const QString &configuration = "Standard")
    {
        QStringList found;
        for (const LabLineConfigRecord &line : LabLineTable) {
            if (line.Configuration == configuration)
                found += QStringLiteral("%1(%2)=%3").arg(line.Name).arg(line.NameIndex).arg(line.MsgIndex);
        }
        return found;
    }

    /// Fields of a configuration as "Line(LineIndex) MsgIndex.Position Name(NameIndex)", in table order.
    static QStringList fields(const QString &configuration = "Standard")
    {
        QStringList found;
        for (const LabLineFldCfgRecord &field : LabLineFldTable) {
            if (field.Configuration == configuration)
                found += QStringLiteral("%1(%2) %3.%4 %5(%6)")
                             .arg(field.Line)
                             .arg(field.LineIndex)
                             .arg(field.MsgIndex)
                             .arg(field.Position)
                             .arg(field.Name)
                             .arg(field.NameIndex);
        }
        return found;
    }

    static void forgetStores()
    {
        LabLineTable.clear();
        LabLineFldTable.clear();
        RemovedLabLineTable.clear();
        RemovedLabLineFldTable.clear();
    }

    /// Leaves as the close box does and answers a prompt with Cancel. Returns whether there was a prompt;
    /// without one the editor is closed then.
    bool leavingAsks()
    {
        messages.take();
        bool asked = false;
        const auto before = ui::setMessageBoxHandler([&asked](const QString &, int, const QString &) {
            asked = true;
            return ui::answer::Cancel;
        });
        editor->unload();
        ui::setMessageBoxHandler(before);
        return asked;
    }

    /// The boxes shown since they were looked at last.
    void expectBoxes(const std::vector<Box> &expected) { EXPECT_EQ(messages.take(), expected); }

    static QString joined(const QStringList &lines) { return lines.join("\r\n"); }

    MessageLog messages;
    TestDatabase database{GetParam()};
    std::optional<frmLinesConfig> editor;
    std::optional<Driver> user;
    int lastId = 0;
};

} // namespace varnow::test
