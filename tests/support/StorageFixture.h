#pragma once

#include "support/ModelFixture.h"
#include "support/RunLog.h"
#include "support/TestDatabase.h"

#include "storage/load.h"
#include "storage/save.h"

namespace varnow::test {

inline constexpr const char *nothingToSave = "No records found to process.";
inline constexpr const char *noFieldRows = "No configuration data returned from database.";

/// The message of a failed query for the fields.
inline QString fieldsNotRetrieved(int code)
{
    return QString::asprintf("There was a problem retrieving the Line Field\r\n"
                             "configuration records.  Return code: %d",
                             code);
}

/// A model and its database.
struct Storage : ModelFixture
{
    explicit Storage(Engine engine) : database(engine) {}

    int load() { return loadAll(settings, model, run); }
    int save() { return saveAll(settings, model, run).code; }
    void adoptIds() { varnow::adoptIds(settings, model, run); }

    /// The messages shown since they were looked at last.
    void expectMessages(const QStringList &expected) { EXPECT_EQ(run.takeMessages(), expected); }

    TestDatabase database;
    db::ConnectionSettings settings = database.settings();
    RunLog run;
};

/// The same, once per engine.
struct StorageTest : testing::TestWithParam<Engine>, Storage
{
    StorageTest() : Storage(GetParam()) {}
};

} // namespace varnow::test
