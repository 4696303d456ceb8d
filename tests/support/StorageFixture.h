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

/// A model and its database, once per engine.
struct StorageTest : testing::TestWithParam<Engine>, ModelFixture
{
    int load() { return loadAll(database.settings(), model, run); }
    int save() { return saveAll(database.settings(), model, run); }
    void adoptIds() { varnow::adoptIds(database.settings(), model, run); }

    /// The messages shown since they were looked at last.
    void expectMessages(const QStringList &expected) { EXPECT_EQ(run.takeMessages(), expected); }

    TestDatabase database{GetParam()};
    RunLog run;
};

} // namespace varnow::test
