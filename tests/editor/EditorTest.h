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
        database.run(
            QStringLiteral("INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex) "
                           "VALUES (%1, %2, %3, %4, %5)")
                .arg(++lastId)
                .arg(sqlText(configuration), sqlText(name))
                .arg(nameIndex)
                .arg(msgIndex));
    }

    void addField(const QString &configuration, const QString &line, int lineIndex, int msgIndex,
                  int position, const QString &name, int nameIndex = 0)
    {
        database.run(
            QStringLiteral(
                "INSERT INTO LabLineFieldConfig (id, Configuration, Line, LineIndex, MsgIndex, Position, "
                "Name, NameIndex, Length, DataType, LookupString, FormatString, Constant, "
                "ValidationString, FixedLength, PadChar, PadDirection) "
                "VALUES (%1, %2, %3, %4, %5, %6, %7, %8, 0, 'String', '', '', 'x', '0', 0, '', 0)")
                .arg(++lastId)
                .arg(sqlText(configuration), sqlText(line))
                .arg(lineIndex)
                .arg(msgIndex)
                .arg(position)
                .arg(sqlText(name))
                .arg(nameIndex));
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

    static QString sqlText(const QString &text) { return db::quoted(text); }

    static QString joined(const QStringList &lines) { return lines.join("\r\n"); }

    MessageLog messages;
    TestDatabase database{GetParam()};
    std::optional<frmLinesConfig> editor;
    std::optional<Driver> user;
    int lastId = 0;
};

} // namespace varnow::test
