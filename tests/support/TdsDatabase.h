#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

struct sqlite3;

namespace varnow::test::tds {

/// A client's view of the tables: T-SQL goes in, tokens come out; an SQLite file lies behind it.
class Database
{
public:
    /// `interrupted` is asked again and again while a statement waits for another client's lock.
    Database(const QString &file, std::function<bool()> interrupted);
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    /// Runs a batch. The answer is null when it was interrupted while it waited for a lock.
    QByteArray run(const QString &batch);

private:
    QByteArray runStatement(const char *&sql);
    QByteArray errorAnswer() const;
    void guardColumns();

    std::function<bool()> m_interrupted;
    sqlite3 *m_file = nullptr;
    bool m_columnsGuarded = false;
};

/// True for the options that a driver sets by itself when it logs in; they mean nothing to SQLite.
bool isSessionOption(const QString &batch);

} // namespace varnow::test::tds
