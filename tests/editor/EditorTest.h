#pragma once

#include "support/Driver.h"
#include "support/MessageLog.h"
#include "support/ModelFixture.h"
#include "support/TestDatabase.h"

#include "editor/EditorWindow.h"
#include "storage/load.h"
#include "ui/RunWindow.h"

#include <optional>

namespace varnow::test {

/// A test of the whole editor on a database, on either engine.
struct EditorTest : testing::TestWithParam<Engine>
{
    /// Adds a line to the database, before the editor opens; texts as within quotes of SQL.
    void addLine(const QString &name, int nameIndex, int messageIndex,
                 const QString &configuration = "Standard")
    {
        database.run(
            QStringLiteral("INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex) "
                           "VALUES (%1, '%2', '%3', %4, %5)")
                .arg(QString::number(++lastId), configuration, name)
                .arg(nameIndex)
                .arg(messageIndex));
    }

    void addField(const QString &line, int lineIndex, int messageIndex, int position, const QString &name,
                  int nameIndex = 0)
    {
        database.run(QStringLiteral("INSERT INTO LabLineFieldConfig (id, Line, Name, LineIndex, MsgIndex, "
                                    "Position, NameIndex, Configuration, Constant) "
                                    "VALUES (%1, '%2', '%3', %4, %5, %6, %7, 'Standard', 'x')")
                         .arg(QString::number(++lastId), line, name)
                         .arg(lineIndex)
                         .arg(messageIndex)
                         .arg(position)
                         .arg(nameIndex));
    }

    /// Loads the records and opens the editor on a catalogue.
    void open(const QStringList &configurations = {"Standard"}, const QString &defaultName = "Standard")
    {
        session.configurationNames = configurations;
        session.defaultConfiguration = defaultName;
        ui::RunWindow run;
        user.reset();
        editor.reset();
        document.emplace(session);
        ASSERT_EQ(document->reload(run), 0);
        editor.emplace(*document);
        user.emplace(*editor);
    }

    const Model &model() const { return document->model(); }
    const LineTable &lines() const { return model().lines; }
    const FieldTable &fields() const { return model().fields; }

    /// All lines as "name(nameIndex)=messageIndex", in table order.
    QStringList lineTexts() const
    {
        QStringList found;
        for (const Line &line : lines())
            found += QStringLiteral("%1(%2)=%3").arg(line.name).arg(line.nameIndex).arg(line.messageIndex);
        return found;
    }

    /// All fields as "messageIndex.position name", in table order.
    QStringList fieldTexts() const
    {
        QStringList found;
        for (const Field &field : fields())
            found += QStringLiteral("%1.%2 %3").arg(field.messageIndex).arg(field.position).arg(field.name);
        return found;
    }

    /// Leaves as the close box does and answers a prompt with Cancel. Without a prompt the editor is closed.
    bool leavingAsks()
    {
        const auto before = ui::setMessageBoxHandler([](const Box &) { return ui::Answer::Cancel; });
        editor->unload();
        ui::setMessageBoxHandler(before);
        return editor->isLoaded();
    }

    /// The boxes shown since they were looked at last.
    void expectBoxes(const Boxes &expected) { EXPECT_EQ(messages.take(), expected); }

    TestDatabase database{GetParam()};
    Session session{database.settings(), database.settings(), {}, {}};
    MessageLog messages;
    std::optional<Document> document;
    std::optional<EditorWindow> editor;
    std::optional<Driver> user;
    int lastId = 0;
};

} // namespace varnow::test
