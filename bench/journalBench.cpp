// What the file that outlives a crash costs while the user works.

#include "BenchDatabase.h"
#include "rows.h"
#include "sideBySide.h"

#include "model/History.h"
#include "storage/RecoveryJournal.h"

#include <cstdlib>

namespace varnow::bench {

namespace {

constexpr int unsavedRecords = 20'000;

enum class Saved { No, Yes };

/// Records of which half were changed, and perhaps saved since, in memory and in a journal.
class EditedModel
{
public:
    explicit EditedModel(Saved saved) : m_journal({"bench", "journal", "admin", {}})
    {
        for (int i = 0; i < 2 * unsavedRecords; ++i)
            m_model.fields.load(numbered(i));
        for (int i = 0; i < unsavedRecords; ++i)
            change(i, "unsaved");
        if (saved == Saved::Yes) {
            for (const Field &field : m_model.fields)
                m_model.fields.markSaved(field);
        }
        m_journal.rewrite(m_model);
        flush();
    }
    ~EditedModel()
    {
        m_journal.drop();
        flush();
    }

    /// The processor time of this thread, per change, until it is handed to the journal. Each change is
    /// undone, so that as much stays unsaved as was; that counts as a change, too.
    double secondsPerChange()
    {
        constexpr int changes = 20'000;
        const double taken = secondsOn(CLOCK_THREAD_CPUTIME_ID, [this] {
            for (int i = 0; i < changes; ++i) {
                m_next = (m_next + 7919) % unsavedRecords; // seldom a neighbour of the last one
                m_journal.note(m_model, change(unsavedRecords + m_next, "changed"));
                m_journal.note(m_model, *m_history.undo(m_model));
            }
        });
        flush();
        return taken / (2 * changes);
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

    const EditStep &change(int number, const QString &constant)
    {
        Field field = numbered(number);
        field.constant = constant;
        Edit edit(m_model);
        edit.fields.store(field);
        return m_history.add(edit.finish());
    }

    void flush()
    {
        if (!m_journal.flush())
            std::abort();
    }

    Model m_model;
    History m_history;
    RecoveryJournal m_journal;
    int m_next = 0;
};

void changeBesideNoneUnsaved(benchmark::State &state)
{
    EditedModel many(Saved::No);
    EditedModel none(Saved::Yes);
    sideBySide(
        state, 1.3, [&] { return many.secondsPerChange(); }, [&] { return none.secondsPerChange(); });
}

} // namespace

void addJournalRows()
{
    addRow("change until in the journal, 20,000 unsaved | none unsaved", "s", 9, changeBesideNoneUnsaved);
}

} // namespace varnow::bench
