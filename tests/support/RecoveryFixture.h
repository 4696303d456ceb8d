#pragma once

#include "support/ModelFixture.h"

#include "db/ConnectionSettings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace varnow::test {

/// A model with rows, a database that it is said to come from, and a state folder of the test's own.
struct RecoveryFixture : testing::Test, ModelFixture
{
    RecoveryFixture()
    {
        useStateFolder(folder.path());
        loadRows(model);
    }
    ~RecoveryFixture() override { qunsetenv("XDG_STATE_HOME"); }

    void useStateFolder(const QString &path)
    {
        stateHome = path;
        qputenv("XDG_STATE_HOME", path.toUtf8());
    }

    static void loadRows(Model &model)
    {
        model.lines.assign({line(1, "S", "PID", 0, 1), line(2, "S", "NTE", 1, 2)});
        for (int i = 1; i <= 3; ++i)
            model.fields.load(field("S", "F" + QString::number(i), i, i));
    }

    /// Adds, changes and removes lines and fields; one record is removed and entered again.
    void edit()
    {
        lines.store(line(0, "S", hostile, 7, 3));
        lines.store(line(0, "S", "PID", 0, 9));
        fields.remove(fields.find("S", "F2", 0));
        fields.store(field("S", "New", 5));
        lines.remove(lines.find("S", "NTE", 1));
        lines.store(line(0, "S", "NTE", 1, 8));
        fields.store(field("T", hostile, 1));
    }

    QString state() const { return QDir(stateHome).filePath("varnow"); }
    QStringList files() const { return QDir(state()).entryList({"*.journal"}, QDir::Files); }
    QString onlyFile() const { return QDir(state()).filePath(files().value(0)); }

    static QByteArray contentsOf(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    /// A file as another program would have left it. Returns its path.
    QString leave(const QByteArray &contents, const QString &ending) const
    {
        QFile file(state() + '/' + prefix + ending);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
        return file.fileName();
    }

    const db::ConnectionSettings database{"host", "db", "user", "the password"};
    const QString prefix = "324c75c931fee536-"; // of the files for this database
    const QString hostile = QString("x'\"\n\r\t\\ \u202e ü ") + QChar(0) + "<b>";
    QTemporaryDir folder;
    QString stateHome;
};

template <class Table> QList<std::tuple<QString, int, int>> rowsOf(const Table &table)
{
    QList<std::tuple<QString, int, int>> rows;
    for (const auto &record : table)
        rows += {record.configuration + record.name, record.nameIndex, record.messageIndex};
    return rows;
}

} // namespace varnow::test
