#include "storage/catalogue.h"

#include "db/codes.h"
#include "support/RunLog.h"
#include "support/TdsServer.h"
#include "support/TestDatabase.h"
#include "support/errorOf.h"
#include "support/printing.h"

namespace varnow::test {

namespace {

struct CatalogueTest : testing::TestWithParam<Engine>
{
    TestDatabase database{GetParam()};
    db::ConnectionSettings settings = database.settings();
    RunLog log;
    varnow::Run run{settings, log};
};

} // namespace

ON_EVERY_ENGINE(CatalogueTest);

// An outcome taken for another one, a substitute that is none.
TEST_P(CatalogueTest, SubstitutesADefaultConfigurationItCannotRead)
{
    using enum DefaultConfiguration::Problem;
    const std::tuple<QString, QString, DefaultConfiguration::Problem> cases[] = {
        {"DELETE FROM Misc_upload_constants", "Standard", NoRow},
        {"INSERT INTO Misc_upload_constants VALUES ('  ')", "Standard", Blank},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = ''", "Standard", Blank},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = NULL", "Standard", Unreadable},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = '  Not there '", "Not there", None},
        {"INSERT INTO Misc_upload_constants VALUES ('Second')", "Not there", None},
        {"ALTER TABLE Misc_upload_constants RENAME DefaultConfigName TO x", "Standard", QueryFailed},
        {"DROP TABLE Misc_upload_constants", "Standard", QueryFailed},
    };
    for (const auto &[sql, name, problem] : cases) {
        database.run(sql);
        const DefaultConfiguration found = loadDefaultConfiguration(run);
        EXPECT_EQ(found.name, name) << qPrintable(sql);
        EXPECT_EQ(found.problem, problem) << qPrintable(sql);
    }
}

// Names that are sorted, merged or padded; a failed query that stops the start, or a Null name or the user
// who does not.
TEST_P(CatalogueTest, ListsTheConfigurations)
{
    EXPECT_EQ(loadConfigurationNames(run), QStringList());
    database.run("INSERT INTO data_extractor_config VALUES ('b'), (' a '), ('b'), ('a')");
    EXPECT_EQ(loadConfigurationNames(run), QStringList({"b", "a", "a"}));
    database.run("INSERT INTO data_extractor_config VALUES (NULL)");
    EXPECT_EQ(errorOf([this] { loadConfigurationNames(run); }), errors::InvalidUseOfNull);
    run.close();
    database.run("BEGIN EXCLUSIVE");
    log.goesOn = [](const QString &, int) { return false; };
    EXPECT_EQ(errorOf([this] { loadConfigurationNames(run); }), errors::UserInterrupt);
    EXPECT_EQ(errorOf([this] { loadDefaultConfiguration(run); }), errors::UserInterrupt);
    database.run("COMMIT; DROP TABLE data_extractor_config");
    log.goesOn = {};
    EXPECT_EQ(loadConfigurationNames(run), QStringList());
}

// Data fields of another configuration, a failure taken for another one, settings used with their blanks.
TEST_P(CatalogueTest, ListsTheDataFieldsOfAConfiguration)
{
    using enum DataFieldNames::Outcome;
    const auto expectOutcome = [this](DataFieldNames::Outcome outcome, int errorNumber) {
        const DataFieldNames found = loadDataFieldNames(settings, "S");
        EXPECT_EQ(found.outcome, outcome);
        EXPECT_EQ(found.errorNumber, errorNumber);
        EXPECT_EQ(found.errorDescription.isEmpty(), errorNumber == 0);
    };
    database.run("INSERT INTO data_extractor_fields_config VALUES ('S', 'sex '), (' S', ' race'), "
                 "('s', 'no'), ('S', NULL), ('It''s', 'file')");
    settings = {' ' + settings.server, settings.database + ' ', " tester ", ' ' + settings.password + ' '};
    EXPECT_EQ(loadDataFieldNames(settings, "S").names, QStringList({"", "race", "sex"}));
    EXPECT_EQ(loadDataFieldNames(settings, "It's").names, QStringList("file"));
    EXPECT_EQ(loadDataFieldNames(settings, "S ").names, QStringList());
    if (database.server()) {
        const Login login = database.server()->logins().back();
        EXPECT_EQ(login.userName + '/' + login.password, "tester/secret");
    }
    expectOutcome(Complete, 0);
    database.run("DROP TABLE data_extractor_fields_config");
    expectOutcome(QueryFailed, db::codes::MissingTable);
    settings.user.clear();
    expectOutcome(NotConnected, db::codes::Failure);
}

} // namespace varnow::test
