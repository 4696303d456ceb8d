#include "db/dialect.h"

#include <gtest/gtest.h>

namespace varnow::db {

namespace {

TEST(Dialect, TurnsTheCommonStatementIntoEachDatabasesOwn)
{
    const struct
    {
        QString sql, sqlServer, sqlite;
    } cases[] = {
        {"SELECT 'a''b', 1", "SELECT 'a''b', 1", "SELECT 'a''b', 1"},
        {"DELETE t WHERE id = 1;", "DELETE t WHERE id = 1;", "DELETE FROM t WHERE id = 1;"},
        {"DELETE FROM t;", "DELETE FROM t;", "DELETE FROM t;"},
        {"DELETE FromTable;", "DELETE FromTable;", "DELETE FROM FromTable;"},
        {"SELECT 'DELETE t'", "SELECT 'DELETE t'", "SELECT 'DELETE t'"},
        // A doubled apostrophe does not end the literal.
        {QStringLiteral("x('é', 'a', 'it''s ü', 'Ω''')"), QStringLiteral("x(N'é', 'a', N'it''s ü', N'Ω''')"),
         QStringLiteral("x('é', 'a', 'it''s ü', 'Ω''')")},
        {QStringLiteral("x('','''', '''é')"), QStringLiteral("x('','''', N'''é')"),
         QStringLiteral("x('','''', '''é')")},
        {QStringLiteral("SELECT ü FROM t"), QStringLiteral("SELECT ü FROM t"),
         QStringLiteral("SELECT ü FROM t")},
        // SQL Server drops a backslash before a line break, and both with it.
        {"'a\\\n' \\\n", "'a\\\\\n\n' \\\n", "'a\\\n' \\\n"},
        {"'\\\\\r\n\\n'", "'\\\\\\\r\n\r\n\\n'", "'\\\\\r\n\\n'"},
        {QStringLiteral("open 'é"), QStringLiteral("open N'é"), QStringLiteral("open 'é")},
    };
    for (const auto &given : cases) {
        EXPECT_EQ(inDialect(given.sql, Dialect::SqlServer), given.sqlServer);
        EXPECT_EQ(inDialect(given.sql, Dialect::Sqlite), given.sqlite);
    }
}

} // namespace

} // namespace varnow::db
