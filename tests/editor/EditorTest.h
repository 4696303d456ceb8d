#pragma once

#include "support/Driver.h"
#include "support/StoreFixture.h"

#include "editor/frmLinesConfig.h"

#include <optional>

namespace varnow::test {

/// A test of the whole editor on a database, on either engine.
struct EditorTest : StoreTest
{
    /// Adds a line to the database, before the editor opens; texts as within quotes of SQL.
    void addLine(const QString &name, int nameIndex, int msgIndex, const QString &configuration = "Standard")
    {
        database.run(
            QStringLiteral("INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex) "
                           "VALUES (%1, '%2', '%3', %4, %5)")
                .arg(QString::number(++lastId), configuration, name)
                .arg(nameIndex)
                .arg(msgIndex));
    }

    void addField(const QString &line, int lineIndex, int msgIndex, int position, const QString &name,
                  int nameIndex = 0)
    {
        database.run(QStringLiteral("INSERT INTO LabLineFieldConfig (id, Line, Name, LineIndex, MsgIndex, "
                                    "Position, NameIndex, Configuration, Constant) "
                                    "VALUES (%1, '%2', '%3', %4, %5, %6, %7, 'Standard', 'x')")
                         .arg(QString::number(++lastId), line, name)
                         .arg(lineIndex)
                         .arg(msgIndex)
                         .arg(position)
                         .arg(nameIndex));
    }

    /// Opens the editor on a catalogue.
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

    std::optional<frmLinesConfig> editor;
    std::optional<Driver> user;
    int lastId = 0;
};

} // namespace varnow::test
