// The names of the configurations and of the one that opens first.

#include "startup/modConfigurations.h"
#include "startup/modGlobals.h"
#include "support/MessageLog.h"
#include "support/TestDatabase.h"
#include "support/printing.h"

#include "base/RuntimeError.h"

namespace varnow::test {

class CatalogueTest : public testing::TestWithParam<Engine>
{
protected:
    CatalogueTest() { gMsgTitle = "Configuration"; }

    static std::vector<Box> substituting(const QString &first, const QString &second)
    {
        return {{first + "\r\n" + second, ui::style::Information}};
    }

    MessageLog messages;
    TestDatabase database{GetParam()};
};

// An outcome with another outcome's message, or one that ends the start.
TEST_P(CatalogueTest, ReadsTheDefaultNameOrSubstitutesStandard)
{
    const auto noQuery = substituting("An unexpected problem with the database prevented reading",
                                      "the default configuration name, substituting 'Standard'.");
    const auto noRow = substituting("No data was returned from the database for the default ",
                                    "configuration name, substituting 'Standard'.");
    const auto blank = substituting("The default configuration name is missing,", "substituting 'Standard'.");
    const auto error = substituting("An unexpected error occurred while reading the database",
                                    "for the default configuration name, substituting 'Standard'.");
    const struct
    {
        const char *sql;
        std::vector<Box> boxes;
        const char *name = "Standard";
    } cases[] = {
        {"DELETE FROM Misc_upload_constants", noRow},
        {"INSERT INTO Misc_upload_constants VALUES ('  ')", blank},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = ''", blank},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = NULL", error},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = '  Not there '", {}, "Not there"},
        {"INSERT INTO Misc_upload_constants VALUES ('Second')", {}, "Not there"},
        {"ALTER TABLE Misc_upload_constants RENAME COLUMN DefaultConfigName TO other", noQuery},
        {"DROP TABLE Misc_upload_constants", noQuery},
    };
    for (const auto &[sql, boxes, name] : cases) {
        gDefaultConfigName = "before";
        database.run(sql);
        EXPECT_EQ(LoadDefaultConfigName(), 0) << sql;
        EXPECT_EQ(messages.take(), boxes) << sql;
        EXPECT_EQ(gDefaultConfigName, name) << sql;
    }
}

// Names that are sorted, merged or padded; an empty or failed query that forgets the names or ends the start.
TEST_P(CatalogueTest, ReadsTheNamesAsTheyStand)
{
    const struct
    {
        const char *sql;
        QStringList names;
        int result = 0;
    } cases[] = {
        {"DELETE FROM data_extractor_config", {"before"}},
        {"INSERT INTO data_extractor_config VALUES ('b'), (' a '), ('b'), ('a')", {"b", "a", "a"}},
        {"INSERT INTO data_extractor_config VALUES (NULL)", {"b", "a", "a", ""}, errors::InvalidUseOfNull},
        {"DROP TABLE data_extractor_config", {"before"}},
    };
    for (const auto &[sql, names, result] : cases) {
        gConfigNames = QStringList("before");
        database.run(sql);
        EXPECT_EQ(LoadConfigNames(), result) << sql;
        EXPECT_EQ(gConfigNames, names) << sql;
        const Box error{"An unexpected error occurred while getting the configuration names."};
        EXPECT_EQ(messages.take(), std::vector<Box>(result != 0 ? 1 : 0, error)) << sql;
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, CatalogueTest, everyEngine(),
                         [](const auto &engine) { return engineName(engine.param); });

} // namespace varnow::test
