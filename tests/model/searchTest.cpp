// Faults to catch: a column that is not looked at, a match out of the tree's order or of another
// configuration.

#include "model/search.h"

#include "support/ModelFixture.h"

using namespace varnow;
using namespace varnow::test;

TEST(Search, FindsRecordsInTheOrderOfTheTree)
{
    ModelFixture fixture;
    fixture.storeLine(1, "S", "PID", 0, 1);
    fixture.storeLine(2, "S", "NTE", 12, 3);
    fixture.storeLine(3, "S", "OBX", 0, 2);
    fixture.storeLine(4, "T", "PID", 0, 1);
    Field birth = field("S", "Date of birth", 7);
    birth.lookup = "patient_birth";
    birth.format = "yyyyMMdd";
    fixture.fields.store(birth);
    Field note = field("S", "Note", 40);
    note.line = "NTE";
    note.lineIndex = 12;
    note.messageIndex = 3;
    note.constant = "Größe in cm^2";
    fixture.fields.store(note);
    Field lost = field("S", "Lost", 2);
    lost.messageIndex = 9;
    fixture.fields.store(lost);
    const std::pair<QString, QString> cases[] = {
        {"pid", "PID|Date of birth|Lost"},
        {"BIRTH", "Date of birth"},
        {"yyyymm", "Date of birth"},
        {"GRÖSSE", ""},
        {"GRÖß", "Note"},
        {"nte(12)", "NTE|Note"},
        {"12", "NTE|Note"},
        {"3.4", "Note"},
        {"2", "OBX|NTE|Note|Lost"},
        {"t", "Date of birth|NTE|Note|Lost"},
        {"^2", "Note"},
        {"", ""},
        {".", "Date of birth|Note|Lost"},
    };
    for (const auto &[text, names] : cases) {
        QStringList found;
        for (const RecordReference &record : search(fixture.model, "S", text))
            found += record.key.name;
        EXPECT_EQ(found.join(u'|'), names) << qPrintable(text);
    }
}
