// Faults to catch: a change that nobody is told of, or twice; an edit that leaves a trace although nothing
// was changed; steps of one action that must be undone one by one; an undo without a step.

#include "support/ModelFixture.h"

#include "base/names.h"
#include "document/notices.h"

#include <QTemporaryDir>

namespace varnow::test {

namespace {

struct DocumentTest : testing::Test
{
    DocumentTest()
    {
        qputenv("XDG_STATE_HOME", state.path().toUtf8());
        QObject::connect(&document, &Document::changed, &document, [this](const EditStep &step) {
            told += withoutIsolation(noticeFor(step, document.model()).sentence);
        });
        QObject::connect(&document, &Document::configurationChanged, &document,
                         [this] { told += "shown: " + document.configuration(); });
    }

    void storeLine(const QString &name, int messageIndex)
    {
        document.edit({}, [&](Edit &edit) { edit.lines.store(line(-1, "S", name, 0, messageIndex)); });
    }

    DocumentNotice noticeAfter(const Field &stored)
    {
        DocumentNotice notice;
        const auto connection =
            QObject::connect(&document, &Document::changed, &document,
                             [&](const EditStep &step) { notice = noticeFor(step, document.model()); });
        document.edit({}, [&](Edit &edit) { edit.fields.store(stored); });
        QObject::disconnect(connection);
        return notice;
    }

    QTemporaryDir state;
    Session session{{"(sqlite)", "nowhere", "", ""}, {}, {}, {}};
    Document document{session};
    QStringList told;
};

} // namespace

TEST_F(DocumentTest, TellsEveryStepOnce)
{
    document.undo();
    document.redo();
    EXPECT_EQ(told, QStringList());
    storeLine("PID", 1);
    storeLine("PID", 1);
    EXPECT_EQ(std::exchange(told, {}), QStringList("Line PID added with message index 1."));
    const bool hasChanged = document.edit({"two lines", "Two lines stored."}, [this](Edit &) {
        storeLine("PID", 3);
        storeLine("OBX", 2);
    });
    EXPECT_TRUE(hasChanged);
    document.undo();
    EXPECT_EQ(document.model().lines.size(), 1);
    document.redo();
    document.redo();
    EXPECT_EQ(told, QStringList({"Two lines stored.", "Undone: two lines.", "Made again: two lines."}));
    EXPECT_EQ(document.model().countUnsaved().total(), 2);
}

// Fault: what was done before an error is there, but neither told nor undoable.
TEST_F(DocumentTest, KeepsWhatWasDoneBeforeAnError)
{
    const auto failing = [](Edit &edit) {
        edit.lines.store(line(-1, "S", "PID", 0, 1));
        edit.lines.remove(7);
    };
    EXPECT_THROW(document.edit({}, failing), RuntimeError);
    EXPECT_EQ(told.size(), 1);
    document.undo();
    EXPECT_TRUE(document.model().lines.isEmpty());
}

TEST_F(DocumentTest, ShowsAConfigurationByItsTrimmedName)
{
    document.showConfiguration(" S  ");
    document.showConfiguration("S");
    EXPECT_EQ(told, QStringList({"shown: S", "shown: S"}));
}

// Fault: of a field that left its row for a place that is taken, only one of both is told.
TEST_F(DocumentTest, OffersBothRemediesForAMovedField)
{
    storeLine("PID", 1);
    storeLine("OBX", 2);
    Field taken = field("S", "Value", 1, 5);
    taken.line = "OBX";
    taken.messageIndex = 2;
    noticeAfter(taken);
    Field moved = field("S", "Set ID", 1, 6);
    noticeAfter(moved);
    moved.id = -1;
    moved.line = "OBX";
    moved.messageIndex = 2;
    const DocumentNotice notice = noticeAfter(moved);
    EXPECT_EQ(withoutIsolation(notice.sentence),
              "Field Set ID moved from PID to OBX, and stands at 2.1, where Value already is; the tree shows "
              "only one of them. Its row under PID stays in the database.");
    ASSERT_EQ(notice.remedies.size(), 2U);
    EXPECT_EQ(notice.remedies[0].caption, "Move to 2.2");
    EXPECT_EQ(notice.remedies[1].caption, "Add as Set ID(1) instead");
    const FieldTable &fields = document.model().fields;
    apply(notice.remedies[1], document);
    EXPECT_EQ(fields[fields.find("S", "Set ID", 0)].line, "PID");
    EXPECT_EQ(fields[fields.find("S", "Set ID", 1)].line, "OBX");
}

} // namespace varnow::test
