#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;

namespace varnow::test::tds {

/// The tables as SQL Server's clients see them: T-SQL goes in, tokens come out; an SQLite file lies behind
/// it.
class Database
{
public:
    explicit Database(const QString &file);
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    /// Runs a batch. The answer is null while somebody else has locked the tables.
    QByteArray run(const QString &batch);

private:
    QByteArray runStatement(const char *&sql);
    QByteArray errorAnswer() const;

    sqlite3 *m_file = nullptr;
};

/// True for the options that a driver sets by itself when it logs in; they mean nothing to SQLite.
bool isSessionOption(const QString &batch);

} // namespace varnow::test::tds
