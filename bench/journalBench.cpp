// What the file that outlives a crash costs while the user works.

#include "BenchDatabase.h"
#include "rows.h"
#include "sideBySide.h"

#include "storage/RecoveryJournal.h"

#include <cstdlib>

namespace varnow::bench {

namespace {

constexpr int unsavedRecords = 20'000;

/// Records of which some are unsaved, in memory and in a journal.
class EditedModel
{
public:
    explicit EditedModel(int unsaved) : m_journal({"bench", QString::number(unsaved), "admin", {}})
    {
        for (int i = 0; i < 2 * unsavedRecords; ++i)
            m_model.fields.load(numbered(i));
        for (int i = 0; i < unsaved; ++i)
            change(i, "unsaved");
        m_journal.rewrite(m_model);
        flush();
    }
    ~EditedModel()
    {
        m_journal.drop();
        flush();
    }

    /// The processor time of this thread, per change, until the changes are handed to the journal.
    double secondsPerChange()
    {
        constexpr int changes = 1000;
        const double taken = secondsOn(CLOCK_THREAD_CPUTIME_ID, [this] {
            for (int i = 0; i < changes; ++i) {
                const EditStep step = change(unsavedRecords + i % 10, QString::number(++m_count));
                m_journal.note(m_model, step);
            }
        });
        flush();
        return taken / changes;
    }

private:
    static Field numbered(int number)
    {
        Field field;
        field.id = number + 1;
        field.configuration = "Standard";
        field.name = field.lookup = QStringLiteral("Observation Value %1").arg(number);
        field.line = "OBX";
        field.messageIndex = number / 20 + 1;
        field.position = number % 20 + 1;
        field.dataType = "String";
        return field;
    }

    EditStep change(int number, const QString &constant)
    {
        Field field = numbered(number);
        field.constant = constant;
        Edit edit(m_model);
        edit.fields.store(field);
        return edit.finish();
    }

    void flush()
    {
        if (!m_journal.flush())
            std::abort();
    }

    Model m_model;
    RecoveryJournal m_journal;
    int m_count = 0;
};

void changeBesideNoneUnsaved(benchmark::State &state)
{
    EditedModel many(unsavedRecords);
    EditedModel none(0);
    sideBySide(
        state, 1.3, [&] { return many.secondsPerChange(); }, [&] { return none.secondsPerChange(); });
}

} // namespace

void addJournalRows()
{
    addRow("change until in the journal, 20,000 unsaved | none unsaved", "s", 15, changeBesideNoneUnsaved);
}

} // namespace varnow::bench
