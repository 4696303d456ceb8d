// The names of the configurations and of the one that opens first.

#include "startup/StartUpTest.h"

#include "base/RuntimeError.h"
#include "startup/modConfigurations.h"

namespace varnow::test {

// An outcome with another outcome's message, or one that ends the start; names that are sorted, merged or
// padded; an empty or failed query that forgets the names.
TEST_P(StartUpTest, CatalogueSurvivesAllButANullName)
{
    const Boxes noQuery{information("An unexpected problem with the database prevented reading\n"
                                    "the default configuration name, substituting 'Standard'.")};
    const Boxes noRow{information("No data was returned from the database for the default \n"
                                  "configuration name, substituting 'Standard'.")};
    const Boxes blank{information("The default configuration name is missing,\nsubstituting 'Standard'.")};
    const Boxes error{information("An unexpected error occurred while reading the database\n"
                                  "for the default configuration name, substituting 'Standard'.")};
    const Boxes nullName{{"An unexpected error occurred while getting the configuration names."}};
    const struct
    {
        QString sql;
        QStringList names;
        Boxes boxes = {};
        int (*load)() = LoadDefaultConfigName;
    } cases[] = {
        {"DELETE FROM Misc_upload_constants", {"Standard"}, noRow},
        {"INSERT INTO Misc_upload_constants VALUES ('  ')", {"Standard"}, blank},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = ''", {"Standard"}, blank},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = NULL", {"Standard"}, error},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = '  Not there '", {"Not there"}},
        {"INSERT INTO Misc_upload_constants VALUES ('Second')", {"Not there"}},
        {"ALTER TABLE Misc_upload_constants RENAME COLUMN DefaultConfigName TO other", {"Standard"}, noQuery},
        {"DROP TABLE Misc_upload_constants", {"Standard"}, noQuery},
        {"DELETE FROM data_extractor_config", {"before"}, {}, LoadConfigNames},
        {"INSERT INTO data_extractor_config VALUES ('b'), (' a '), ('b'), ('a')",
         {"b", "a", "a"},
         {},
         LoadConfigNames},
        {"INSERT INTO data_extractor_config VALUES (NULL)", {"b", "a", "a", ""}, nullName, LoadConfigNames},
        {"DROP TABLE data_extractor_config", {"before"}, {}, LoadConfigNames},
    };
    gCfgServer = valid[0], gCfgDatabase = valid[1], gCfgUser = valid[2];
    for (const auto &[sql, names, boxes, load] : cases) {
        SCOPED_TRACE(qPrintable(sql));
        gConfigNames = {gDefaultConfigName = "before"};
        database.run(sql);
        EXPECT_EQ(load(), boxes == nullName ? errors::InvalidUseOfNull : 0);
        EXPECT_EQ(load == LoadConfigNames ? gConfigNames : QStringList(gDefaultConfigName), names);
        EXPECT_EQ(shown(), boxes);
    }
}

} // namespace varnow::test
